#include "KELSYPHashMap.h"

#include "CheckRecorder.h"

#include <gtest/gtest.h>

#include <map>

namespace {

TEST(KELSYPHashMap, IteratorsMeetEachEntryOnce)
{
    KELSYPHashMap<KELUnicodeString, int> map;
    std::map<std::string, int> met;
    for (const char* key : {"a", "b", "c", "d", "c"}) {
        EXPECT_EQ(map.Insert(key, *key), met.emplace(key, *key).second ? 1 : 0);
    }
    EXPECT_TRUE(map.Remove("a") == static_cast<int>(met.erase("a")) && map.Contains("d"));
    for (KELSYPHashMapIteratorHolder<KELUnicodeString, int> it(map); !it.IsDone(); it.Next()) {
        const auto* const item = it.CurrentItem();
        ASSERT_TRUE(item && it.CurrentItem() == item && std::as_const(map).Locate(*item->pKey) == item->pValue);
        EXPECT_EQ(met[item->pKey->ConvertToChar()], *item->pValue);
        met.erase(item->pKey->ConvertToChar());
    }
    EXPECT_TRUE(met.empty());
    CheckRecorder reports;
    KELUnicodeString key("a");
    EXPECT_TRUE(map.CompareElements(&key, &key) && !map.CompareElements(&key, nullptr) && !map.HashElement(nullptr));
    EXPECT_TRUE(!map.CompareElements(nullptr, &key) && !KELSYPHashMapBaseIterator(nullptr).InternalCurrentItem());
    const std::string in = " in KELSYPHashMap]";
    EXPECT_EQ(reports.Take(), " [pointer i_elem2" + in + " [pointer i_elem" + in + " [pointer i_elem1" + in);
}

} // namespace
