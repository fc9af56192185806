#include "KELSYPHashMap.h"
#include "Zorvel.h"

#include "CheckRecorder.h"
#include "CountedObject.h"

#include <gtest/gtest.h>

namespace {

const std::vector<Report> g_refused = Message("Failed to add the element", "KELSYPHashMap");

class FullTable : public ::testing::Test {
protected:
    FullTable() { KELSysSimpleHashTable::s_isFull = true; }
    ~FullTable() override
    {
        KELSysSimpleHashTable::s_isFull = false;
        KELSysSimpleHashTable::s_isBlind = false;
    }
    CheckRecorder reports;
};

TEST_F(FullTable, MapRefusesAndKeepsNothing)
{
    KELSYPHashMap<KELUnicodeString, KELUnicodeString> map;
    EXPECT_EQ(map.Insert("key", "value"), -1);
    EXPECT_EQ(reports.Take(), g_refused);
    EXPECT_EQ(map.Size(), 0);
    KELSysSimpleHashTable::s_isFull = false;
    map.Insert("key", "value");
    KELSysSimpleHashTable::s_isFull = true;
    EXPECT_EQ(map.Insert("key", "other"), 0) << "an entry that is there needs no room";
    EXPECT_EQ(*map.Locate("key"), KELUnicodeString("other"));
}

TEST_F(FullTable, NullElementsAreReportedAndSkipped)
{
    KELSysSimpleHashTable::s_isFull = false;
    KELSYPHashMap<KELUnicodeString, int> map;
    map.Insert("a", 1);
    map.Insert("b", 2);
    map.Insert("c", 3);
    EXPECT_EQ(map.Remove("b"), 1);
    int sum = 0;
    for (const auto& entry : map.Entries()) {
        sum += entry.value;
    }
    EXPECT_EQ(sum, 4);
    map.RemoveAll();
    EXPECT_EQ(reports.Take(), Message("NULL pair?", "KELSYPHashMap"));
    EXPECT_EQ(map.Size(), 0);
}

TEST_F(FullTable, SetsLeaveNoPropertyBehind)
{
    ZrvPrototypeImpl nested;
    ZrvPrototypeImpl prototype;
    KELSysSimpleHashTable::s_isFull = false;
    prototype.AddProperty("n", "float", &nested);
    KELSysSimpleHashTable::s_isFull = true;

    ZrvProperties bound(&prototype);
    EXPECT_TRUE(bound.AddProperty("n") == ZrvRC::zrvEC_OK) << "the report is all that tells";
    EXPECT_EQ(reports.Take(), g_refused);
    EXPECT_EQ(bound.HasProperty("n"), 0);

    ZrvProperties free;
    ZrvRC rc = free.AddProperty("n", "float", &nested);
    EXPECT_TRUE(rc == ZrvRC::zrvEC_Error);
    EXPECT_STREQ(rc.Dump(), "AddProperty: property not retrieved.");
    std::vector<Report> expected = g_refused;
    expected.push_back({kelCF_Pointer, "ppProperty", "ZrvProperties_data"});
    EXPECT_EQ(reports.Take(), expected);
    EXPECT_EQ(CountOf(nested), 2U);

    ZrvPrototypeImpl full;
    EXPECT_TRUE(full.AddProperty("n", "float", &nested) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(reports.Take(), g_refused);
    EXPECT_EQ(CountOf(nested), 2U);

    KELSysSimpleHashTable::s_isFull = false;
    EXPECT_TRUE(free.AddProperty("n", "float", &nested) == ZrvRC::zrvEC_OK) << "nothing was lost";
    KELSysSimpleHashTable::s_isFull = true;
    const ZrvProperties copy(free);
    EXPECT_EQ(reports.Take(), g_refused);
    EXPECT_EQ(CountOf(nested), 3U);
}

TEST_F(FullTable, APropertyThatIsNotFoundAgainStaysTheSets)
{
    KELSysSimpleHashTable::s_isFull = false;
    KELSysSimpleHashTable::s_isBlind = true;
    ZrvPrototypeImpl nested;
    {
        ZrvProperties free;
        ZrvRC rc = free.AddProperty("n", "float", &nested);
        EXPECT_STREQ(rc.Dump(), "AddProperty: property not retrieved.");
        EXPECT_EQ(reports.Take(), Pointer("ppProperty", "ZrvProperties_data"));
        EXPECT_EQ(CountOf(nested), 2U);
    }
    EXPECT_EQ(CountOf(nested), 1U);
}

} // namespace
