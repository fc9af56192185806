#include "CountedObject.h"
#include "KELCheckFailure.h"
#include "KELMutex.h"
#include "KELSysElapseTime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

namespace {

// Locks twice on purpose, which the analysis takes for a mistake.
TEST(KELMutex, IsHeldUntilTheLastUnlock) KEL_NO_THREAD_SAFETY_ANALYSIS
{
    KELMutex mutex(0, 1, 0);
    int shared = 0;
    int seen = 0;
    mutex.Lock();
    mutex.Lock();
    mutex.Unlock();
    std::thread other([&] {
        mutex.Lock();
        seen = shared;
        mutex.Unlock();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(20)); // time for the other to get in, if it can
    shared = 1;
    mutex.Unlock();
    other.join();
    EXPECT_EQ(seen, 1);
}

TEST(KELSysElapseTime, TellsMicrosecondsSinceTheStart)
{
    KELSysElapseTime clock;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const KELSysElapseTime copy(clock);
    double elapsed = 0.0;
    double copied = 0.0;
    EXPECT_GE(clock.GetElapse(elapsed), 0);
    EXPECT_GE(copy.GetElapse(copied), 0);
    EXPECT_GE(elapsed, 20000.0);
    EXPECT_LT(elapsed, 10e6) << "not a finer unit";
    EXPECT_GE(copied, elapsed);
    EXPECT_EQ(clock.Reset(), 0);
    clock.GetElapse(elapsed);
    copy.GetElapse(copied);
    EXPECT_LE(elapsed + 20000.0, copied);
}

TEST(KELSysTSBaseUnknown, CountsAndKnowsNoInterface)
{
    bool isGone = false;
    auto* const object = new CountedObject([&isGone] { isGone = true; });
    EXPECT_EQ(object->AddRef(), 2U);
    EXPECT_EQ(object->Release(), 1U);
    void* out = object;
    EXPECT_LT(object->QueryInterface(nullptr, &out), 0);
    EXPECT_EQ(out, nullptr);
    EXPECT_LT(object->QueryInterface(nullptr, nullptr), 0);
    EXPECT_EQ(object->GetMetaObject(), nullptr);
    EXPECT_FALSE(isGone);
    EXPECT_EQ(object->Release(), 0U);
    EXPECT_TRUE(isGone);
}

std::string g_seen;

void See(const KELCheckFailure& iFailure)
{
    g_seen = std::to_string(iFailure.kind) + " " + iFailure.text + " " + iFailure.file + " " +
             std::to_string(iFailure.line) + " " + (iFailure.message ? iFailure.message : "-");
}

TEST(KELCheckFailure, HandlersReplaceEachOther)
{
    const KELCheckFailureHandler outer = KELSetCheckFailureHandler(&See);
    Check_TRUE_Failed__("a>0", "File", 7, "remark");
    EXPECT_EQ(g_seen, "0 a>0 File 7 remark");
    Check_Pointer_Failed__("p", "File", 8, nullptr);
    EXPECT_EQ(g_seen, "1 p File 8 -");
    CheckFailure__("m", "File", 9, nullptr);
    EXPECT_EQ(g_seen, "2 m File 9 -");

    EXPECT_EQ(KELSetCheckFailureHandler(nullptr), &See);
    ::testing::internal::CaptureStderr();
    Check_TRUE_Failed__("a>0", "File", 7, "remark");
    Check_Pointer_Failed__("p", "File", 8, nullptr);
    CheckFailure__(nullptr, nullptr, 9, nullptr);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "File(7): check failed: a>0 - remark\nFile(8): null pointer: p\n(9): failure: \n");
    KELSetCheckFailureHandler(outer);
}

} // namespace
