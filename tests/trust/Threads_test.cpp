#include "CountedObject.h"
#include "KELCheckFailure.h"
#include "ZrvProperties.h"
#include "ZrvPropertyValue.h"
#include "ZrvPrototypeImpl.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <future>
#include <string>
#include <vector>

namespace {

using Job = std::function<void(int iRound)>;

/// Runs each job on a thread of its own, round after round for half a second. All start together. Ends the process when
/// the threads wait for each other.
void RunTogether(const std::vector<Job>& iJobs)
{
    using Clock = std::chrono::steady_clock;
    std::promise<void> start; // no std::latch: that of MinGW's run time loses wake-ups under Wine
    const std::shared_future<void> started = start.get_future().share();
    std::vector<std::future<void>> runs;
    for (const Job& job : iJobs) {
        runs.push_back(std::async(std::launch::async, [started, &job] {
            started.wait();
            const auto end = Clock::now() + std::chrono::milliseconds(500);
            for (int round = 0; Clock::now() < end; ++round) {
                job(round);
            }
        }));
    }
    start.set_value();
    for (std::future<void>& run : runs) {
        if (run.wait_for(std::chrono::minutes(1)) != std::future_status::ready) {
            std::fputs("The threads have been waiting for each other for a minute.\n", stderr);
            std::abort();
        }
        run.get();
    }
}

KELUnicodeString Numbered(const char* iText, int iNumber)
{
    return KELUnicodeString((iText + std::to_string(iNumber)).c_str());
}

/// Fills a set with iCount numbers, all the same, and a text of that number.
void Fill(ZrvProperties& ioSet, int iCount, KELINT32 iNumber)
{
    for (int i = 0; i < iCount; ++i) {
        static_cast<void>(ioSet.AddProperty(Numbered("number", i), "KELINT32", nullptr));
        static_cast<void>(ioSet.SetProperty(Numbered("number", i), ZrvPropertyValue<KELINT32>(iNumber)));
    }
    static_cast<void>(ioSet.AddProperty("text", "KELUnicodeString", nullptr));
    static_cast<void>(ioSet.SetProperty("text", ZrvPropertyValue<KELUnicodeString>(Numbered("text ", iNumber))));
}

/// Whether a set is as `Fill` has filled it.
bool IsFilled(const ZrvProperties& iSet, int iCount, KELINT32 iNumber)
{
    KELListValKELUnicodeString names;
    bool isSame = iSet.GetListProperties(names) == iCount + 1;
    for (int i = 0; i < iCount && isSame; ++i) {
        const ZrvPropertyValueBase* const value = iSet.GetProperty(Numbered("number", i));
        isSame = value && value->IsPurelyIdenticalTo(ZrvPropertyValue<KELINT32>(iNumber));
    }
    const ZrvPropertyValue<KELUnicodeString> text(Numbered("text ", iNumber));
    return isSame && text.IsPurelyIdenticalTo(*iSet.GetProperty("text"));
}

class Threads : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(m_wrong, 0); }
    void Expect(bool iHolds) { m_wrong += iHolds ? 0 : 1; }

private:
    std::atomic<int> m_wrong{0};
};

ZrvProperties* g_reporting = nullptr;
std::atomic<int> g_reports{0};

// What a host may do on a report: look into the set that makes it, change it and copy it.
void CallBack(const KELCheckFailure&)
{
    static_cast<void>(g_reporting->AddProperty("reported", "KELINT32", nullptr));
    static_cast<void>(g_reporting->SetProperty("reported", ZrvPropertyValue<KELINT32>(++g_reports)));
    const ZrvProperties copy(*g_reporting);
}

TEST_F(Threads, UseOneSetWithEveryOperation)
{
    ZrvPrototypeImpl nested;
    CountedObject object;
    ZrvProperties source;
    ZrvProperties set;
    Fill(source, 3, 5);
    Fill(set, 0, 0);
    static_cast<void>(set.AddProperty("object", "KELSysTSBaseUnknownPtr", &nested));
    g_reporting = &set;
    const KELCheckFailureHandler previous = KELSetCheckFailureHandler(&CallBack);
    const auto name = [](int iRound) { return Numbered("name", iRound % 500); };
    const Job add = [&](int iRound) { Expect(set.AddProperty(name(iRound), "float", &nested).IsValid()); };
    const Job change = [&](int iRound) {
        const ZrvPropertyValue<KELSysTSBaseUnknown*> value(iRound % 2 ? &object : nullptr);
        Expect(set.SetProperty("object", value).IsValid() && set.SetFromProperties(source).IsValid());
        Expect(set.SetProperty("text", ZrvPropertyValue<KELUnicodeString>(name(iRound))).IsValid());
    };
    const Job query = [&](int iRound) {
        KELListValKELUnicodeString names;
        KELSysTSListOfUnicodeString narrow;
        Expect(set.GetListProperties(names) >= 2 && set.GetListProperties(narrow) >= 2);
        ZrvConstPropertiesPrototype* none = nullptr;
        Expect(set.GetPrototype(none).IsValid() && !none && !set.GetPropertyParameters("object"));
        Expect(set.GetAvailability(name(iRound)) != ZrvProperties::zrvPA_Unavailable);
        Expect(!set.HasProperty(name(iRound)) ||
               (set.GetPropertyType(name(iRound)) == "float" && set.GetProperty(name(iRound))));
    };
    const Job copy = [&](int) {
        const ZrvProperties constructed(set);
        ZrvProperties assigned;
        assigned = set;
        Expect(constructed.GetPropertyType("object") == "KELSysTSBaseUnknownPtr" && assigned.HasProperty("text"));
        Expect(assigned.SetFromProperties(set).IsValid());
    };
    const Job fail = [&](int) {
        Expect(set.SetProperty("text", ZrvPropertyValue<float>(1.0F)).IsError() && set.AddProperty("text").IsError());
        Expect(set.GetAvailability("") == ZrvProperties::zrvPA_Unavailable);
    };
    RunTogether({add, add, change, change, query, query, copy, fail});
    KELSetCheckFailureHandler(previous);
    EXPECT_TRUE(g_reports >= 3 && set.HasProperty("name0") && set.GetPropertyType("reported") == "KELINT32");
    set = ZrvProperties();
    EXPECT_TRUE(CountOf(nested) == 1 && CountOf(object) == 1);
}

TEST_F(Threads, CopyBetweenSetsInEveryDirection)
{
    ZrvProperties sets[3];
    for (int i = 0; i < 3; ++i) {
        Fill(sets[i], 5, i);
    }
    const auto assign = [&sets](int iTo, int iFrom) {
        return [&to = sets[iTo], &from = sets[iFrom]](int) { to = from; };
    };
    const auto copyValues = [&](int iTo, int iFrom) {
        return [&, iTo, iFrom](int) { Expect(sets[iTo].SetFromProperties(sets[iFrom]).IsValid()); };
    };
    RunTogether({assign(0, 1), copyValues(1, 0), assign(1, 2), copyValues(2, 1), copyValues(0, 2), assign(2, 0)});
    for (const ZrvProperties& set : sets) {
        EXPECT_TRUE(IsFilled(set, 5, 0) || IsFilled(set, 5, 1) || IsFilled(set, 5, 2));
    }
}

// A reader meets what was assigned as a whole, never an emptied or half-filled set.
TEST_F(Threads, ReadWhileAssigned)
{
    ZrvProperties few;
    ZrvProperties many;
    Fill(few, 2, 1);
    Fill(many, 9, 2);
    ZrvProperties set(few);
    const Job write = [&](int iRound) { set = iRound % 2 ? few : many; };
    const Job read = [&](int) {
        KELListValKELUnicodeString names;
        const int count = set.GetListProperties(names);
        Expect((count == 3 || count == 10) && set.HasProperty("number0") && set.GetProperty("number1"));
        Expect(set.GetPropertyType("text") == "KELUnicodeString" && !set.GetPropertyParameters("text"));
        Expect(set.GetAvailability("text") == ZrvProperties::zrvPA_Instantiated);
        Expect(set.SetProperty("missing", ZrvPropertyValue<float>(1.0F)).IsError());
    };
    const Job copy = [&](int) {
        const ZrvProperties constructed(set);
        ZrvProperties assigned;
        assigned = set;
        Expect(IsFilled(constructed, 2, 1) || IsFilled(constructed, 9, 2));
        Expect(IsFilled(assigned, 2, 1) || IsFilled(assigned, 9, 2));
    };
    RunTogether({write, read, copy});
}

TEST_F(Threads, SharePrototypes)
{
    ZrvPrototypeImpl nested;
    static_cast<void>(nested.AddProperty("x", zrvPT_Float, nullptr));
    ZrvPrototypeImpl prototype;
    static_cast<void>(prototype.AddProperty("point", zrvPT_BytePtr, &nested));
    const KELUnicodeString name("point"); // its text is shared by all threads
    ZrvProperties shared(&prototype);     // is assigned while it is asked for its prototype
    const Job use = [&](int) {
        ZrvProperties set(&prototype);
        Expect(set.AddProperty(name).IsValid() && shared.AddProperty(name).IsValid());
        shared = ZrvProperties(set);
        ZrvConstPropertiesPrototype* taken = nullptr;
        Expect(shared.GetPrototype(taken).IsValid() && taken == &prototype);
        ZrvConstPropertiesPrototype* const inner = taken->GetPropertyPrototype(name);
        Expect(inner == &nested && inner->HasProperty("x").IsValid());
        inner->Release();
        taken->Release();
    };
    RunTogether({use, use, use, use});
    shared = ZrvProperties();
    EXPECT_TRUE(CountOf(nested) == 2 && CountOf(prototype) == 1);
}

TEST_F(Threads, ShareTextsAndFloats)
{
    const KELUnicodeString text("a text that all threads share");
    KELRawCollfloat made;
    made.Size(5, 1.0F);
    const KELRawCollfloat floats(made);
    const Job use = [&](int iRound) {
        KELUnicodeString copy = text;
        Expect(copy.Append(Numbered(" ", iRound)) != text && copy.SearchSubString(text, 0, 1) == 0);
        KELRawCollfloat list = floats;
        list.Append(2.0F);
        KELRawCollfloat other = list;
        other[1] = 3.0F;
        Expect(list[1] == 1.0F && list.Size() == 6 && other[1] == 3.0F);
        copy = text;
        list = floats;
    };
    RunTogether({use, use, use, use});
    EXPECT_TRUE(text == "a text that all threads share" && floats.Size() == 5 && floats[1] == 1.0F);
}

} // namespace
