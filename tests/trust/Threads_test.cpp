#include "CountedObject.h"
#include "KELCheckFailure.h"
#include "ZrvProperties.h"
#include "ZrvPropertyValue.h"
#include "ZrvPrototypeImpl.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

using Job = std::function<void(int iRound)>;

/// Ends the process when it lives too long: the threads that it watches wait for each other.
class Watchdog {
public:
    Watchdog() = default;
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isOver = true;
        }
        m_condition.notify_one();
        m_thread.join();
    }

private:
    void Watch()
    {
        std::unique_lock lock(m_mutex);
        if (!m_condition.wait_for(lock, std::chrono::seconds(60), [this] { return m_isOver; })) {
            std::fputs("The threads have been waiting for each other for a minute.\n", stderr);
            std::abort();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_condition;
    bool m_isOver = false;
    std::thread m_thread{[this] { Watch(); }};
};

/// Runs each job on a thread of its own, round after round for half a second. All start together.
void RunTogether(const std::vector<Job>& iJobs)
{
    const Watchdog watchdog;
    std::atomic<std::size_t> ready{0};
    std::vector<std::thread> threads;
    for (const Job& job : iJobs) {
        threads.emplace_back([&ready, &job, count = iJobs.size()] {
            for (++ready; ready < count;) {
                std::this_thread::yield();
            }
            const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
            for (int round = 0; std::chrono::steady_clock::now() < end; ++round) {
                job(round);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

KELUnicodeString Numbered(const char* iText, int iNumber)
{
    return KELUnicodeString((iText + std::to_string(iNumber)).c_str());
}

/// A free set of iCount properties, all of which hold the same number and its text.
ZrvProperties MakeSet(int iCount, KELINT32 iNumber)
{
    ZrvProperties set;
    for (int i = 0; i < iCount; ++i) {
        set.AddProperty(Numbered("number", i), "KELINT32", nullptr);
        set.SetProperty(Numbered("number", i), ZrvPropertyValue<KELINT32>(iNumber));
    }
    set.AddProperty("text", "KELUnicodeString", nullptr);
    set.SetProperty("text", ZrvPropertyValue<KELUnicodeString>(Numbered("text ", iNumber)));
    return set;
}

/// The number that a set of `MakeSet` holds, if it holds it everywhere and iCount times; else -1.
KELINT32 NumberOf(const ZrvProperties& iSet, int iCount)
{
    KELListValKELUnicodeString names;
    if (iSet.GetListProperties(names) != iCount + 1) {
        return -1;
    }
    const auto number = [&iSet](int iIndex) {
        const ZrvPropertyValueBase* value = iSet.GetProperty(Numbered("number", iIndex));
        return value ? static_cast<const ZrvPropertyValue<KELINT32>*>(value)->GetValue() : -1;
    };
    const KELINT32 first = number(0);
    for (int i = 1; i < iCount; ++i) {
        if (number(i) != first) {
            return -1;
        }
    }
    const ZrvPropertyValue<KELUnicodeString> text(Numbered("text ", first));
    return text.IsPurelyIdenticalTo(*iSet.GetProperty("text")) ? first : -1;
}

bool IsHeldNowhereElse(ZrvPrototypeImpl& ioPrototype)
{
    return CountOf(ioPrototype) == 1;
}

class Threads : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(m_wrong, 0); }
    void Expect(bool iHolds) { m_wrong += iHolds ? 0 : 1; }

private:
    std::atomic<int> m_wrong{0};
};

TEST_F(Threads, UseOneSetWithEveryOperation)
{
    ZrvPrototypeImpl nested;
    CountedObject object;
    ZrvProperties set;
    const ZrvProperties source = MakeSet(3, 5);
    set.AddProperty("object", "KELSysTSBaseUnknownPtr", &nested);
    set.AddProperty("text", "KELUnicodeString", nullptr);
    const Job change = [&](int iRound) {
        const KELUnicodeString name = Numbered("name", iRound % 500);
        Expect(set.AddProperty(name, "float", &nested).IsValid());
        Expect(set.SetProperty(name, ZrvPropertyValue<float>(1.0F)).IsValid());
        Expect(set.SetProperty("object", ZrvPropertyValue<KELSysTSBaseUnknown*>(iRound % 2 ? &object : nullptr))
                   .IsValid());
        Expect(set.SetProperty("text", ZrvPropertyValue<KELUnicodeString>(name)).IsValid());
        Expect(set.SetFromProperties(source).IsValid());
    };
    const Job read = [&](int iRound) {
        const KELUnicodeString name = Numbered("name", iRound % 500);
        KELListValKELUnicodeString names;
        KELSysTSListOfUnicodeString narrow;
        ZrvConstPropertiesPrototype* none = nullptr;
        Expect(set.GetListProperties(names) >= 2 && set.GetListProperties(narrow) >= 2);
        Expect(set.GetAvailability(name) != ZrvProperties::zrvPA_Unavailable);
        Expect(!set.HasProperty(name) || (set.GetPropertyType(name) == "float" && set.GetProperty(name)));
        Expect(set.GetPropertyParameters("object") == nullptr);
        Expect(set.SetProperty("missing", ZrvPropertyValue<float>(1.0F)).IsError());
        Expect(set.GetPrototype(none).IsValid() && !none);
    };
    const Job copy = [&](int) {
        const ZrvProperties constructed(set);
        ZrvProperties assigned;
        assigned = set;
        Expect(constructed.GetPropertyType("object") == "KELSysTSBaseUnknownPtr" && assigned.HasProperty("text"));
        Expect(assigned.SetFromProperties(set).IsValid());
    };
    RunTogether({change, change, read, copy});
    EXPECT_EQ(set.HasProperty("name0"), 1);
    set = ZrvProperties();
    EXPECT_TRUE(IsHeldNowhereElse(nested));
    EXPECT_EQ(CountOf(object), 1U);
}

TEST_F(Threads, CopyBetweenSetsInEveryDirection)
{
    ZrvProperties sets[3] = {MakeSet(5, 1), MakeSet(5, 2), MakeSet(5, 3)};
    const auto assign = [&sets](int iTo, int iFrom) {
        return [&to = sets[iTo], &from = sets[iFrom]](int) { to = from; };
    };
    const auto copyValues = [&](int iTo, int iFrom) {
        return [&, iTo, iFrom](int) { Expect(sets[iTo].SetFromProperties(sets[iFrom]).IsValid()); };
    };
    RunTogether({assign(0, 1), copyValues(1, 0), assign(1, 2), copyValues(2, 1), copyValues(0, 2), assign(2, 0)});
    for (const ZrvProperties& set : sets) {
        EXPECT_NE(NumberOf(set, 5), -1);
    }
}

// A reader meets what was assigned as a whole, never an emptied or half-filled set.
TEST_F(Threads, ReadWhileAssigned)
{
    ZrvPrototypeImpl prototype;
    for (int i = 0; i < 9; ++i) {
        prototype.AddProperty(Numbered("number", i), zrvPT_INT32, nullptr);
    }
    prototype.AddProperty("text", zrvPT_UnicodeString, nullptr);
    ZrvProperties few(&prototype);
    ZrvProperties many(&prototype);
    ASSERT_TRUE(few.SetFromProperties(MakeSet(2, 1)).IsValid() && many.SetFromProperties(MakeSet(9, 2)).IsValid());
    ZrvProperties set(few);
    const Job write = [&](int iRound) { set = iRound % 2 ? few : many; };
    const Job list = [&](int) {
        KELListValKELUnicodeString names;
        const int count = set.GetListProperties(names);
        Expect((count == 3 || count == 10) && set.HasProperty("number0") && set.GetProperty("number1"));
        Expect(set.GetPropertyType("text") == "KELUnicodeString" && !set.GetProperty("missing"));
        Expect(set.AddProperty("text").IsValid() && !set.GetPropertyParameters("text"));
        Expect(set.SetProperty("missing", ZrvPropertyValue<float>(1.0F)).IsError());
        ZrvConstPropertiesPrototype* taken = nullptr;
        Expect(set.GetPrototype(taken).IsValid() && taken == &prototype);
        taken->Release();
    };
    const Job copy = [&](int) {
        const ZrvProperties constructed(set);
        Expect(NumberOf(constructed, 2) == 1 || NumberOf(constructed, 9) == 2);
    };
    const Job assign = [&](int) {
        ZrvProperties assigned;
        assigned = set;
        Expect(NumberOf(assigned, 2) == 1 || NumberOf(assigned, 9) == 2);
    };
    RunTogether({write, list, copy, assign});
}

TEST_F(Threads, SharePrototypes)
{
    ZrvPrototypeImpl nested;
    nested.AddProperty("x", zrvPT_Float, nullptr);
    ZrvPrototypeImpl prototype;
    prototype.AddProperty("point", zrvPT_BytePtr, &nested);
    const KELUnicodeString name("point"); // its text is shared by all threads
    const Job use = [&](int) {
        ZrvProperties set(&prototype);
        Expect(set.AddProperty(name).IsValid());
        const ZrvProperties copy(set);
        ZrvConstPropertiesPrototype* taken = nullptr;
        Expect(copy.GetPrototype(taken).IsValid() && taken == &prototype);
        ZrvConstPropertiesPrototype* inner = taken->GetPropertyPrototype(name);
        Expect(inner == &nested && inner->HasProperty("x").IsValid());
        inner->Release();
        taken->Release();
    };
    RunTogether({use, use, use, use});
    EXPECT_EQ(CountOf(nested), 2U);
    EXPECT_TRUE(IsHeldNowhereElse(prototype));
}

TEST_F(Threads, ShareTextsAndFloats)
{
    const KELUnicodeString text("a text that all threads share");
    KELRawCollfloat made;
    made.Size(5, 1.0F);
    const KELRawCollfloat floats(made);
    const Job use = [&](int iRound) {
        KELUnicodeString copy = text;
        copy.Append(Numbered(" ", iRound));
        Expect(copy != text && copy.SearchSubString(text, 0, 1) == 0);
        copy = text;
        KELRawCollfloat list = floats;
        list.Append(2.0F);
        KELRawCollfloat other = list;
        other[1] = 3.0F;
        Expect(list[1] == 1.0F && list.Size() == 6 && other[1] == 3.0F);
        list = floats;
    };
    RunTogether({use, use, use, use});
    EXPECT_EQ(text, "a text that all threads share");
    EXPECT_TRUE(floats.Size() == 5 && floats[1] == 1.0F);
}

ZrvProperties* g_reporting = nullptr;
std::atomic<int> g_reports{0};

// What a host may do on a report: look into the set that makes it, and change it.
void CallBack(const KELCheckFailure&)
{
    KELListValKELUnicodeString names;
    g_reporting->GetListProperties(names);
    g_reporting->AddProperty("reported", "KELINT32", nullptr);
    g_reporting->SetProperty("reported", ZrvPropertyValue<KELINT32>(++g_reports));
    const ZrvProperties copy(*g_reporting);
}

TEST_F(Threads, CallBackIntoTheSetThatReports)
{
    ZrvProperties set = MakeSet(2, 1);
    ZrvProperties other;
    other.AddProperty("reported", "float", nullptr);
    g_reporting = &set;
    const KELCheckFailureHandler previous = KELSetCheckFailureHandler(&CallBack);
    const Job fail = [&](int) {
        Expect(set.SetProperty("text", ZrvPropertyValue<float>(1.0F)).IsError());
        Expect(set.AddProperty("text").IsError());
        Expect(set.GetAvailability("") == ZrvProperties::zrvPA_Unavailable);
        Expect(set.SetFromProperties(other).IsError());
    };
    RunTogether({fail, fail, fail});
    KELSetCheckFailureHandler(previous);
    EXPECT_GE(g_reports, 9);
    EXPECT_EQ(set.GetPropertyType("reported"), "KELINT32");
}

} // namespace
