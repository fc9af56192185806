#include "KELSYPHashMap.h"

#include "ReportingTest.h"

#include <map>
#include <memory>
#include <random>

namespace {

using IntMap = KELSYPHashMap<KELUnicodeString, int>;
using KELSYPHashMapTest = ReportingTest;

TEST_F(KELSYPHashMapTest, AgreesWithAStandardMap)
{
    IntMap map;
    std::map<std::string, int> model;
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        const std::string text = "key" + std::to_string(random() % 200);
        const KELUnicodeString key(text.c_str());
        const int held = static_cast<int>(model.count(text));
        ASSERT_TRUE(map.Contains(key) == held && (map.Locate(key) ? *map.Locate(key) == model[text] : held == 0));
        if (random() % 3000 == 0) {
            map.RemoveAll();
            model.clear();
        } else if (random() % 4 == 0) {
            ASSERT_EQ(map.Remove(key), held);
            model.erase(text);
        } else {
            ASSERT_EQ(map.Insert(key, i), 1 - held);
            model[text] = i;
        }
        ASSERT_EQ(map.Size(), static_cast<int>(model.size()));
    }
    std::map<std::string, int> met;
    for (KELSYPHashMapIteratorHolder<KELUnicodeString, int> it(map); !it.IsDone(); it.Next()) {
        const auto* const item = it.CurrentItem();
        EXPECT_TRUE(item && it.CurrentItem() == item && std::as_const(map).Locate(*item->pKey) == item->pValue);
        met[item->pKey->ConvertToChar()] = *item->pValue;
    }
    EXPECT_EQ(met, model);
    IntMap empty;
    const std::unique_ptr<KELSYPHashMapIterator<KELUnicodeString, int>> none(empty.CreateIterator());
    EXPECT_TRUE(none->IsDone() && !none->CurrentItem());
    EXPECT_EQ(Answer(IntMap::HashElement(nullptr)), "0 [pointer i_elem in KELSYPHashMap]");
    EXPECT_EQ(Answer(IntMap::CompareElements(nullptr, &met)), "0 [pointer i_elem1 in KELSYPHashMap]");
    EXPECT_EQ(Answer(IntMap::CompareElements(&met, nullptr)), "0 [pointer i_elem2 in KELSYPHashMap]");
}

} // namespace
