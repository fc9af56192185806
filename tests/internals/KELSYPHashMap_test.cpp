#include "KELSYPHashMap.h"

#include "CheckRecorder.h"
#include "CountedObject.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPrototypeImpl.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <string>

namespace {

constexpr char kFile[] = "KELSYPHashMap";

using IntMap = KELSYPHashMap<KELUnicodeString, int>;
using PointerMap = KELSYPHashMap<KELUnicodeString, int*>;
using DefinitionMap = KELSYPHashMap<KELUnicodeString, ZrvPropertyDefinition>;

TEST(KELSYPHashMap, InsertsReplacesFindsAndRemoves)
{
    IntMap map;
    const KELSYPConstHashMap<KELUnicodeString, int>& reader = map;
    EXPECT_EQ(map.Insert("a", 1), 1);
    EXPECT_EQ(map.Insert("", 2), 1) << "an empty key is a key like any other";
    EXPECT_EQ(map.Insert("a", 3), 0);
    EXPECT_EQ(reader.Size(), 2);
    ASSERT_NE(reader.Locate("a"), nullptr);
    EXPECT_EQ(*reader.Locate("a"), 3);
    *map.Locate("") = 4;
    EXPECT_EQ(*reader.Locate(""), 4);
    EXPECT_EQ(reader.Locate("A"), nullptr);
    EXPECT_EQ(reader.Contains("a"), 1);
    EXPECT_EQ(reader.Contains("b"), 0);
    EXPECT_EQ(map.Remove("b"), 0);
    EXPECT_EQ(map.Remove("a"), 1);
    EXPECT_EQ(map.Remove("a"), 0);
    EXPECT_EQ(map.Size(), 1);
    map.RemoveAll();
    EXPECT_EQ(map.Size(), 0);
    EXPECT_EQ(map.Insert("a", 5), 1);
}

// Many keys with adds and removes in between, so that buckets split and elements move into holes.
TEST(KELSYPHashMap, AgreesWithAnOrderedMapWhileItGrowsAndShrinks)
{
    IntMap map;
    std::map<std::string, int> model;
    for (int i = 0; i < 3000; ++i) {
        const std::string key = "key" + std::to_string(i * 7919 % 2003);
        if (i % 3 == 2) {
            EXPECT_EQ(map.Remove(key.c_str()), static_cast<int>(model.erase(key)));
        } else {
            EXPECT_EQ(map.Insert(key.c_str(), i), model.insert_or_assign(key, i).second ? 1 : 0);
        }
        ASSERT_EQ(map.Size(), static_cast<int>(model.size()));
    }
    for (int i = 0; i < 2003; ++i) {
        const std::string key = "key" + std::to_string(i);
        const int* value = map.Locate(key.c_str());
        const auto expected = model.find(key);
        ASSERT_EQ(value != nullptr, expected != model.end()) << key;
        if (value) {
            EXPECT_EQ(*value, expected->second);
        }
    }
    std::map<std::string, int> walked;
    for (KELSYPHashMapIteratorHolder<KELUnicodeString, int> it(map); !it.IsDone(); it.Next()) {
        walked[it.CurrentItem()->pKey->ConvertToChar()] = *it.CurrentItem()->pValue;
    }
    EXPECT_EQ(walked, model);
}

TEST(KELSYPHashMap, PointeesAreNobodysButTheCallers)
{
    int one = 1;
    int other = 2;
    PointerMap map;
    map.Insert("a", &one);
    map.Insert("a", &other);
    map.Insert("b", &one);
    EXPECT_EQ(*map.Locate("a"), &other);
    map.Remove("a");
    EXPECT_EQ(one + other, 3);
}

TEST(KELSYPHashMap, DefinitionsReleaseTheirPrototypesOnce)
{
    ZrvPrototypeImpl one;
    ZrvPrototypeImpl other;
    {
        DefinitionMap map;
        map.Insert("a", ZrvPropertyDefinition("float", &one));
        map.Insert("b", ZrvPropertyDefinition("float", &one));
        EXPECT_EQ(CountOf(one), 3U);
        map.Insert("a", ZrvPropertyDefinition("float", &other));
        EXPECT_EQ(CountOf(one), 2U);
        EXPECT_EQ(CountOf(other), 2U);
        map.Remove("a");
        EXPECT_EQ(CountOf(other), 1U);
    }
    EXPECT_EQ(CountOf(one), 1U);
}

TEST(KELSYPHashMap, IteratorsKeepTheirItemUntilTheyMove)
{
    IntMap map;
    using Iterator = std::unique_ptr<KELSYPHashMapIterator<KELUnicodeString, int>>;
    const Iterator empty(map.CreateIterator());
    EXPECT_NE(empty->IsDone(), 0);
    EXPECT_EQ(empty->CurrentItem(), nullptr);
    empty->Next();
    EXPECT_NE(empty->IsDone(), 0);

    map.Insert("a", 1);
    map.Insert("b", 2);
    const Iterator it(std::as_const(map).CreateIterator());
    const auto* const item = it->CurrentItem();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(it->CurrentItem(), item);
    const KELUnicodeString first = *item->pKey;
    EXPECT_EQ(map.Locate(first), item->pValue);
    it->Next();
    ASSERT_EQ(it->IsDone(), 0);
    EXPECT_NE(*it->CurrentItem()->pKey, first);
    it->Next();
    EXPECT_NE(it->IsDone(), 0);
    EXPECT_EQ(it->CurrentItem(), nullptr);
}

TEST(KELSYPHashMap, TableFunctionsReadKeysAndReportNulls)
{
    CheckRecorder reports;
    IntMap::Entry entry{"key", 1};
    KELUnicodeString key("key");
    KELUnicodeString other("other");
    EXPECT_EQ(IntMap::HashElement(&entry), key.ComputeHashKey());
    EXPECT_NE(IntMap::CompareElements(&entry, &key), 0) << "a bare key stands for an entry";
    EXPECT_EQ(IntMap::CompareElements(&entry, &other), 0);
    EXPECT_EQ(reports.Take(), Nothing());
    EXPECT_EQ(IntMap::HashElement(nullptr), 0U);
    EXPECT_EQ(reports.Take(), Pointer("i_elem", kFile));
    EXPECT_EQ(IntMap::CompareElements(nullptr, nullptr), 0);
    EXPECT_EQ(reports.Take(), Pointer("i_elem1", kFile));
    EXPECT_EQ(IntMap::CompareElements(&entry, nullptr), 0);
    EXPECT_EQ(reports.Take(), Pointer("i_elem2", kFile));
}

unsigned int HashInt(void* iElement)
{
    return static_cast<unsigned int>(*static_cast<int*>(iElement) % 4);
}

int EqualInts(void* iOne, void* iOther)
{
    return *static_cast<int*>(iOne) == *static_cast<int*>(iOther) ? 1 : 0;
}

// Four hashes for a hundred elements: chains are long, and the ends and middles of chains are taken out.
TEST(KELSysSimpleHashTable, StaysDenseWithCollidingHashes)
{
    int values[100];
    KELSysSimpleHashTable table(5, &HashInt, &EqualInts);
    EXPECT_EQ(table.Locate(&values[0]), nullptr);
    EXPECT_EQ(table.InsertAndReturn(nullptr), nullptr);
    for (int i = 0; i < 100; ++i) {
        values[i] = i;
        EXPECT_EQ(table.InsertAndReturn(&values[i]), &values[i]);
    }
    int again = 42;
    EXPECT_EQ(table.InsertAndReturn(&again), &values[42]);
    for (int i = 0; i < 100; i += 3) {
        EXPECT_EQ(table.Remove(&values[i]), &values[i]);
        EXPECT_EQ(table.Remove(&values[i]), nullptr);
    }
    EXPECT_EQ(table.Size(), 66);
    std::set<void*> dense;
    for (int i = 0; i < table.Size(); ++i) {
        dense.insert(table.Get(i));
    }
    EXPECT_EQ(dense.size(), 66U);
    EXPECT_EQ(table.Get(-1), nullptr);
    EXPECT_EQ(table.Get(66), nullptr);
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(table.Locate(&values[i]), i % 3 == 0 ? nullptr : &values[i]);
    }
    table.RemoveAll();
    EXPECT_EQ(table.Size(), 0);
    EXPECT_EQ(table.Locate(&values[1]), nullptr);
}

} // namespace
