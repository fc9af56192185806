#include "KELSYPHashMap.h"

#include "ReportingTest.h"

#include <memory>

namespace {

using IntMap = KELSYPHashMap<KELUnicodeString, int>;
using KELSYPHashMapTest = ReportingTest;

TEST_F(KELSYPHashMapTest, IteratorsKeepTheirItemUntilTheyMove)
{
    IntMap map;
    map.Insert("a", 1);
    const std::unique_ptr<KELSYPHashMapIterator<KELUnicodeString, int>> it(map.CreateIterator());
    const auto* const item = it->CurrentItem();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(it->CurrentItem(), item);
    EXPECT_EQ(it->IsDone(), 0);
    for (int i = 0; i < 2; ++i) { // beyond the end, too
        it->Next();
        EXPECT_NE(it->IsDone(), 0);
        EXPECT_EQ(it->CurrentItem(), nullptr);
    }
}

TEST_F(KELSYPHashMapTest, TableFunctionsReadKeysAndReportNulls)
{
    IntMap::Entry entry{"key", 1};
    KELUnicodeString key("key");
    KELUnicodeString other("other");
    EXPECT_EQ(IntMap::HashElement(&entry), key.ComputeHashKey());
    EXPECT_NE(IntMap::CompareElements(&entry, &key), 0) << "a bare key stands for an entry";
    EXPECT_EQ(IntMap::CompareElements(&entry, &other), 0);
    EXPECT_EQ(Answer(IntMap::HashElement(nullptr)), "0 [pointer i_elem in KELSYPHashMap]");
    EXPECT_EQ(Answer(IntMap::CompareElements(nullptr, nullptr)), "0 [pointer i_elem1 in KELSYPHashMap]");
    EXPECT_EQ(Answer(IntMap::CompareElements(&entry, nullptr)), "0 [pointer i_elem2 in KELSYPHashMap]");
}

TEST(KELSysSimpleHashTable, TakesNoNullAndHasNoneOutside)
{
    KELSysSimpleHashTable table(1, &IntMap::HashElement, &IntMap::CompareElements);
    KELUnicodeString key("key");
    KELUnicodeString same("key");
    EXPECT_EQ(table.InsertAndReturn(nullptr), nullptr);
    EXPECT_EQ(table.InsertAndReturn(&key), &key);
    EXPECT_EQ(table.InsertAndReturn(&same), &key);
    EXPECT_TRUE(table.Get(0) == &key && !table.Get(-1) && !table.Get(1));
    EXPECT_TRUE(table.Remove(&same) == &key && !table.Remove(&same) && table.Size() == 0);
}

} // namespace
