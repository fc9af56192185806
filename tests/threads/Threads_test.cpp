#include "CountedObject.h"
#include "KELMutex.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <future>
#include <mutex>
#include <vector>

namespace {

using Object = KELSysTSBaseUnknown*;
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

KELUnicodeString Numbered(int iNumber)
{
    return KELUnicodeString(("number" + std::to_string(iNumber)).c_str());
}

/// A set of iCount numbers, all the same.
ZrvProperties Filled(int iCount, KELINT32 iNumber)
{
    ZrvProperties set;
    for (int i = 0; i < iCount; ++i) {
        ZrvPublishProperty(set, Numbered(i), iNumber);
    }
    return set;
}

ZrvProperties* g_reporting = nullptr;
std::atomic<int> g_reports{0};

// What a host may do on a report: look into the set that makes it, change it and copy it.
void CallBack(const KELCheckFailure&)
{
    ZrvPublishProperty<KELINT32>(*g_reporting, "reported", ++g_reports);
    const ZrvProperties copy(*g_reporting);
}

TEST(Threads, WaitUntilAMutexIsGivenUpAsOftenAsItWasTaken)
{
    KELMutex mutex(0, 1, 0);
    const auto use = [&mutex] { mutex.Lock(), mutex.Unlock(); };
    mutex.Lock(), use();
    const auto other = std::async(std::launch::async, use);
    EXPECT_EQ(other.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    mutex.Unlock();
}

TEST(Threads, UseOneSetWithEveryOperation)
{
    ZrvPrototypeImpl nested;
    CountedObject object;
    const ZrvProperties source = Filled(3, 5);
    ZrvProperties set;
    set.AddProperty("object", "KELSysTSBaseUnknownPtr", &nested);
    g_reporting = &set;
    const KELCheckFailureHandler previous = KELSetCheckFailureHandler(&CallBack);
    const Job add = [&](int iRound) {
        EXPECT_TRUE(set.AddProperty(Numbered(3 + iRound % 500), "float", &nested).IsValid());
    };
    const Job change = [&](int iRound) {
        const ZrvPropertyValue<Object> value(iRound % 2 ? &object : nullptr);
        EXPECT_TRUE(set.SetProperty("object", value).IsValid() && set.SetFromProperties(source).IsValid());
        EXPECT_TRUE(set.SetProperty("object", ZrvPropertyValue<float>(1)).IsError());
        EXPECT_TRUE(set.AddProperty("object").IsError());
    };
    const Job query = [&](int) {
        KELListValKELUnicodeString names;
        ZrvConstPropertiesPrototype* none = nullptr;
        EXPECT_TRUE(set.GetListProperties(names) >= 1 && set.GetPrototype(none).IsValid() && !none);
        EXPECT_TRUE(!set.GetPropertyParameters("object") && set.GetAvailability("object") && set.HasProperty("object"));
        EXPECT_TRUE(set.GetPropertyType("object") != "" && set.GetProperty("object"));
    };
    const Job copy = [&](int) {
        const ZrvProperties constructed(set);
        ZrvProperties assigned;
        assigned = set;
        EXPECT_TRUE(constructed.HasProperty("object") && assigned.SetFromProperties(set).IsValid());
    };
    RunTogether({add, add, change, change, query, query, copy});
    KELSetCheckFailureHandler(previous);
    EXPECT_TRUE(g_reports >= 2 && set.HasProperty("number3") && set.GetPropertyType("reported") == "KELINT32");
    set = ZrvProperties();
    EXPECT_TRUE(CountOf(nested) == 1 && CountOf(object) == 1);
}

/// Whether a set that no other thread uses is one of the two below, with nothing of the other.
bool IsWhole(const ZrvProperties& iSet)
{
    KELListValKELUnicodeString names;
    const int count = iSet.GetListProperties(names);
    const auto isRight = [&](const KELUnicodeString& iName) {
        return ZrvReadProperty<KELINT32>(iSet, iName) == (count == 3 ? 1 : 2);
    };
    return (count == 3 || count == 9) && std::all_of(begin(names), end(names), isRight);
}

// Copies go in every direction. A reader meets what was assigned as a whole, never an emptied or half-filled set.
TEST(Threads, CopyAndReadWhileAssigned)
{
    const ZrvProperties few = Filled(3, 1), many = Filled(9, 2);
    ZrvProperties sets[] = {few, few, many};
    const Job write = [&](int iRound) { sets[iRound % 2] = iRound % 3 ? few : many; };
    const Job assign = [&](int iRound) { sets[iRound % 3] = sets[(iRound + iRound % 2 + 1) % 3]; };
    const Job copy = [&](int iRound) {
        ZrvProperties assigned;
        assigned = sets[iRound % 3];
        EXPECT_TRUE(IsWhole(assigned) && IsWhole(ZrvProperties(sets[iRound % 3])));
        EXPECT_TRUE(assigned.SetFromProperties(sets[(iRound + 1) % 3]).IsValid());
    };
    const Job read = [&](int iRound) {
        KELListValKELUnicodeString names;
        ZrvProperties& set = sets[iRound % 3];
        EXPECT_TRUE(set.GetListProperties(names) % 6 == 3 && set.HasProperty("number0") && set.GetProperty("number2"));
        EXPECT_TRUE(set.GetPropertyType("number1") == "KELINT32");
        EXPECT_TRUE(set.SetProperty("no", ZrvPropertyValue<float>(1)).IsError());
    };
    RunTogether({write, assign, assign, copy, copy, read});
    EXPECT_TRUE(IsWhole(sets[0]) && IsWhole(sets[1]) && IsWhole(sets[2]));
}

// A thread that holds a host's mutex uses the set, while another lets an object go that takes the mutex.
TEST(Threads, WhatGoesMayWaitForAThreadThatUsesTheSet)
{
    std::mutex hosts;
    ZrvProperties empty = Filled(1, 5);
    ZrvPublishProperty<Object>(empty, "object", nullptr);
    ZrvProperties set(empty);
    const Job replace = [&](int iRound) {
        auto* const object = new CountedObject([&hosts] { const std::lock_guard lock(hosts); });
        EXPECT_TRUE(ZrvPublishProperty<Object>(set, "object", object).IsValid());
        object->Release();
        iRound % 3 == 0   ? void(set = empty)
        : iRound % 3 == 1 ? void(set.SetFromProperties(empty))
                          : void(ZrvPublishProperty<Object>(set, "object", nullptr));
    };
    const Job use = [&](int) {
        const std::lock_guard lock(hosts);
        EXPECT_TRUE(ZrvPublishProperty<KELINT32>(set, "number0", 5).IsValid() && set.GetPropertyType("object") != "");
    };
    RunTogether({replace, use});
}

TEST(Threads, SharePrototypesTextsAndFloats)
{
    ZrvPrototypeImpl nested, prototype;
    nested.AddProperty("x", zrvPT_Float, nullptr);
    const KELUnicodeString name("a name that all threads share and that is long");
    prototype.AddProperty(name, zrvPT_BytePtr, &nested);
    ZrvProperties shared(&prototype); // is assigned while it is asked for its prototype
    KELRawCollfloat floats;
    floats.Size(5, 1.0F);
    const Job use = [&, &floats = std::as_const(floats)](int) {
        ZrvProperties set(&prototype);
        EXPECT_TRUE(set.AddProperty(name).IsValid() && shared.AddProperty(name).IsValid());
        shared = ZrvProperties(set);
        const auto taken = ZrvPropertyAccess::PrototypeOf(shared);
        ZrvConstPropertiesPrototype* const inner = taken->GetPropertyPrototype(name);
        EXPECT_TRUE(taken.Get() == &prototype && inner == &nested && inner->HasProperty("x").IsValid());
        inner->Release();
        KELUnicodeString copy = name;
        EXPECT_TRUE(copy.Append(name) != name && copy.ComputeHashKey() == KELUnicodeString(copy).ComputeHashKey());
        KELRawCollfloat list = floats;
        list.Append(2.0F);
        KELRawCollfloat other = list;
        other[1] = 3.0F;
        EXPECT_TRUE(list[1] == 1.0F && list.Size() == 6 && other[1] == 3.0F);
    };
    RunTogether({use, use, use, use});
    EXPECT_EQ(CountOf(nested), 3U) << "the assigned set's property holds it, too";
    shared = ZrvProperties();
    EXPECT_TRUE(CountOf(nested) == 2 && CountOf(prototype) == 1 && floats.Size() == 5 && floats[1] == 1.0F);
}

} // namespace
