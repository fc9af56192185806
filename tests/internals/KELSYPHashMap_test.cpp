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

TEST_F(KELSYPHashMapTest, TheTablesFunctionsReportNulls)
{
    KELUnicodeString key("key");
    EXPECT_EQ(Answer(IntMap::HashElement(nullptr)), "0 [pointer i_elem in KELSYPHashMap]");
    EXPECT_EQ(Answer(IntMap::CompareElements(nullptr, &key)), "0 [pointer i_elem1 in KELSYPHashMap]");
    EXPECT_EQ(Answer(IntMap::CompareElements(&key, nullptr)), "0 [pointer i_elem2 in KELSYPHashMap]");
}

} // namespace
