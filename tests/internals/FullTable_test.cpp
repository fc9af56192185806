#include "KELSYPHashMap.h"
#include "Zorvel.h"

#include "CountedObject.h"
#include "ReportingTest.h"

namespace {

const std::string g_refused = " [message Failed to add the element in KELSYPHashMap]";
const std::string g_notFound = " [pointer ppProperty in ZrvProperties_data]";

using Table = KELSysSimpleHashTable;

class FullTable : public ReportingTest {
protected:
    FullTable() { Table::s_isFull = true; }
    ~FullTable() override { Table::s_isFull = Table::s_isBlind = Table::s_hasNull = false; }

    /// Does something while there is room.
    template <class Operation>
    std::string AnswerWithRoom(const Operation& iOperation)
    {
        Table::s_isFull = false;
        const std::string answer = Answer(iOperation());
        Table::s_isFull = true;
        return answer;
    }

    KELSYPHashMap<KELUnicodeString, int> map;
    ZrvPrototypeImpl nested;
};

TEST_F(FullTable, MapRefusesAndKeepsNothing)
{
    EXPECT_EQ(Answer(map.Insert("key", 1)), "-1" + g_refused);
    EXPECT_EQ(map.Size(), 0);
    EXPECT_EQ(AnswerWithRoom([this] { return map.Insert("key", 1); }), "1");
    EXPECT_EQ(Answer(map.Insert("key", 2)), "0") << "an entry that is there needs no room";
    EXPECT_EQ(*map.Locate("key"), 2);
}

TEST_F(FullTable, NullElementsAreReportedAndSkipped)
{
    Table::s_hasNull = true;
    for (const int expected : {0, 1}) {
        int sum = 0;
        for (const auto& entry : map.Entries()) {
            sum += entry.value;
        }
        EXPECT_EQ(sum, expected);
        AnswerWithRoom([this] { return map.Insert("key", 1); });
    }
    map.RemoveAll();
    EXPECT_EQ(Answer(map.Size()), "1 [message NULL pair? in KELSYPHashMap]");
}

TEST_F(FullTable, SetsLeaveNoPropertyBehind)
{
    ZrvPrototypeImpl prototype;
    EXPECT_EQ(Answer(prototype.AddProperty("n", "float", &nested)), "ok" + g_refused) << "the report is all that tells";
    EXPECT_EQ(CountOf(nested), 1U);
    EXPECT_EQ(AnswerWithRoom([&] { return prototype.AddProperty("n", "float", &nested); }), "ok");
    ZrvProperties bound(&prototype);
    EXPECT_EQ(Answer(bound.AddProperty("n")), "ok" + g_refused);
    EXPECT_EQ(bound.HasProperty("n"), 0);

    ZrvProperties free;
    EXPECT_EQ(Answer(free.AddProperty("n", "float", &nested)),
              "error: AddProperty: property not retrieved." + g_refused + g_notFound);
    EXPECT_EQ(CountOf(nested), 2U);
    EXPECT_EQ(AnswerWithRoom([&] { return free.AddProperty("n", "float", &nested); }), "ok") << "nothing was lost";
    const ZrvProperties copy(free);
    EXPECT_EQ(Answer(copy.HasProperty("n")), "0" + g_refused);
    EXPECT_EQ(CountOf(nested), 3U);
    EXPECT_EQ(Answer(ZrvProperties().SetFromProperties(free)),
              "error: AddProperty: property not retrieved." + g_refused + g_notFound +
                  " [condition !(rc.IsError()) in ZrvProperties_data]");
}

TEST_F(FullTable, APropertyThatIsNotFoundAgainStaysTheSets)
{
    Table::s_isBlind = true;
    {
        ZrvProperties free;
        EXPECT_EQ(AnswerWithRoom([&] { return free.AddProperty("n", "float", &nested); }),
                  "error: AddProperty: property not retrieved." + g_notFound);
        EXPECT_EQ(CountOf(nested), 2U);
    }
    EXPECT_EQ(CountOf(nested), 1U);
}

} // namespace
