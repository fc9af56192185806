#include "CountedObject.h"
#include "KELCheckFailure.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <vector>

namespace {

using Int = ZrvPropertyValue<KELINT32>;
using Object = ZrvPropertyValue<KELSysTSBaseUnknown*>;
using Job = std::function<void(int iRound)>;

/// Runs each job on a thread of its own, round after round for half a second. Ends the process when the threads wait
/// for each other.
void RunTogether(const std::vector<Job>& iJobs)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
    std::vector<std::future<void>> runs;
    for (const Job& job : iJobs) {
        runs.push_back(std::async(std::launch::async, [&job, end] {
            for (int round = 0; std::chrono::steady_clock::now() < end; ++round) {
                job(round);
            }
        }));
    }
    for (std::future<void>& run : runs) {
        run.wait_for(std::chrono::minutes(1)) == std::future_status::ready ? run.get() : std::abort();
    }
}

KELUnicodeString Numbered(const char* iText, int iNumber)
{
    return KELUnicodeString((iText + std::to_string(iNumber)).c_str());
}

/// A set of iCount numbers, all the same.
ZrvProperties Filled(int iCount, KELINT32 iNumber)
{
    ZrvProperties set;
    for (int i = 0; i < iCount; ++i) {
        set.AddProperty(Numbered("number", i), "KELINT32", nullptr);
        set.SetProperty(Numbered("number", i), Int(iNumber));
    }
    return set;
}

bool IsFilled(const ZrvProperties& iSet, int iCount, KELINT32 iNumber)
{
    KELListValKELUnicodeString names;
    bool isSame = iSet.GetListProperties(names) == iCount;
    for (int i = 0; i < iCount && isSame; ++i) {
        isSame = iSet.GetProperty(Numbered("number", i))->IsPurelyIdenticalTo(Int(iNumber));
    }
    return isSame;
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
    g_reporting->AddProperty("reported", "KELINT32", nullptr);
    g_reporting->SetProperty("reported", Int(++g_reports));
    const ZrvProperties copy(*g_reporting);
}

TEST_F(Threads, UseOneSetWithEveryOperation)
{
    ZrvPrototypeImpl nested;
    CountedObject object;
    const ZrvProperties source = Filled(3, 5);
    ZrvProperties set;
    set.AddProperty("object", "KELSysTSBaseUnknownPtr", &nested);
    g_reporting = &set;
    const KELCheckFailureHandler previous = KELSetCheckFailureHandler(&CallBack);
    const Job add = [&](int iRound) {
        Expect(set.AddProperty(Numbered("name", iRound % 500), "float", &nested).IsValid());
    };
    const Job change = [&](int iRound) {
        const Object value(iRound % 2 ? &object : nullptr);
        Expect(set.SetProperty("object", value).IsValid() && set.SetFromProperties(source).IsValid());
        Expect(set.SetProperty("object", Int(1)).IsError() && set.AddProperty("object").IsError());
    };
    const Job query = [&](int) {
        KELListValKELUnicodeString names;
        ZrvConstPropertiesPrototype* none = nullptr;
        Expect(set.GetListProperties(names) >= 1 && set.GetPrototype(none).IsValid() && !none);
        Expect(!set.GetPropertyParameters("object") && set.GetAvailability("object") && set.HasProperty("object"));
        Expect(set.GetPropertyType("object") != "" && set.GetProperty("object"));
    };
    const Job copy = [&](int) {
        const ZrvProperties constructed(set);
        ZrvProperties assigned;
        assigned = set;
        Expect(constructed.HasProperty("object") && assigned.SetFromProperties(set).IsValid());
    };
    RunTogether({add, add, change, change, query, query, copy});
    KELSetCheckFailureHandler(previous);
    EXPECT_TRUE(g_reports >= 2 && set.HasProperty("name0") && set.GetPropertyType("reported") == "KELINT32");
    set = ZrvProperties();
    EXPECT_TRUE(CountOf(nested) == 1 && CountOf(object) == 1);
}

// Copies go in every direction. A reader meets what was assigned as a whole, never an emptied or half-filled set.
TEST_F(Threads, CopyAndReadWhileAssigned)
{
    const ZrvProperties few = Filled(3, 1);
    const ZrvProperties many = Filled(9, 2);
    ZrvProperties sets[] = {few, few, many};
    const auto isWhole = [](const ZrvProperties& iSet) { return IsFilled(iSet, 3, 1) || IsFilled(iSet, 9, 2); };
    const Job write = [&](int iRound) { sets[iRound % 2] = iRound % 3 ? few : many; };
    const Job assign = [&](int iRound) { sets[iRound % 3] = sets[(iRound + iRound % 2 + 1) % 3]; };
    const Job copy = [&](int iRound) {
        ZrvProperties assigned;
        assigned = sets[iRound % 3];
        Expect(isWhole(assigned) && isWhole(ZrvProperties(sets[iRound % 3])));
        Expect(assigned.SetFromProperties(sets[(iRound + 1) % 3]).IsValid());
    };
    const Job read = [&](int iRound) {
        KELListValKELUnicodeString names;
        const ZrvProperties& set = sets[iRound % 3];
        Expect(set.GetListProperties(names) % 6 == 3 && set.HasProperty("number0") && set.GetProperty("number2"));
        Expect(set.GetPropertyType("number1") == "KELINT32" && sets[iRound % 3].SetProperty("no", Int(1)).IsError());
    };
    RunTogether({write, assign, assign, copy, copy, read});
    EXPECT_TRUE(isWhole(sets[0]) && isWhole(sets[1]) && isWhole(sets[2]));
}

// A thread that holds a host's mutex uses the set, while another lets an object go that takes the mutex.
TEST_F(Threads, WhatGoesMayWaitForAThreadThatUsesTheSet)
{
    std::mutex hosts;
    ZrvProperties empty = Filled(1, 5);
    empty.AddProperty("object", "KELSysTSBaseUnknownPtr", nullptr);
    ZrvProperties set(empty);
    const Job replace = [&](int iRound) {
        auto* const object = new CountedObject([&hosts] { const std::lock_guard lock(hosts); });
        Expect(set.SetProperty("object", Object(object)).IsValid());
        object->Release();
        iRound % 3 == 0   ? void(set = empty)
        : iRound % 3 == 1 ? Expect(set.SetFromProperties(empty).IsValid())
                          : Expect(set.SetProperty("object", Object(nullptr)).IsValid());
    };
    const Job use = [&](int) {
        const std::lock_guard lock(hosts);
        Expect(set.SetProperty("number0", Int(5)).IsValid() && set.GetPropertyType("object") != "");
    };
    RunTogether({replace, use});
}

TEST_F(Threads, SharePrototypesTextsAndFloats)
{
    ZrvPrototypeImpl nested;
    ZrvPrototypeImpl prototype;
    nested.AddProperty("x", zrvPT_Float, nullptr);
    const KELUnicodeString name("a name that all threads share and that is long");
    prototype.AddProperty(name, zrvPT_BytePtr, &nested);
    ZrvProperties shared(&prototype); // is assigned while it is asked for its prototype
    KELRawCollfloat made;
    made.Size(5, 1.0F);
    const KELRawCollfloat floats(made);
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
        KELUnicodeString copy = name;
        Expect(copy.Append(name) != name && copy.ComputeHashKey() == KELUnicodeString(copy).ComputeHashKey());
        KELRawCollfloat list = floats;
        list.Append(2.0F);
        KELRawCollfloat other = list;
        other[1] = 3.0F;
        Expect(list[1] == 1.0F && list.Size() == 6 && other[1] == 3.0F);
    };
    RunTogether({use, use, use, use});
    shared = ZrvProperties();
    EXPECT_TRUE(CountOf(nested) == 2 && CountOf(prototype) == 1 && floats.Size() == 5 && floats[1] == 1.0F);
}

} // namespace
