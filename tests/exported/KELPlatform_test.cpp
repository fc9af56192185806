#include "KELCheckFailure.h"
#include "KELRawCollfloat.h"
#include "KELSysElapseTime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <thread>

namespace {

TEST(KELSysElapseTime, TellsMicrosecondsSinceTheStart)
{
    KELSysElapseTime clock;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    double elapsed = 0.0, sinceReset = 0.0;
    EXPECT_TRUE(clock.GetElapse(elapsed) >= 0 && elapsed >= 20000.0 && elapsed < 10e6) << elapsed;
    EXPECT_TRUE(clock.Reset() == 0 && clock.GetElapse(sinceReset) >= 0 && sinceReset < elapsed) << sinceReset;
}

TEST(KELCheckFailure, IsPrintedByDefault)
{
    ::testing::internal::CaptureStderr();
    Check_TRUE_Failed__("a>0", "File", 7, "remark");
    Check_Pointer_Failed__("p", "File", 8, nullptr);
    CheckFailure__("text", "File", 9, nullptr);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "File(7): check failed: a>0 - remark\nFile(8): null pointer: p\nFile(9): failure: text\n");
}

KELRawCollfloat Listed(std::initializer_list<float> iElements)
{
    KELRawCollfloat list(2);
    for (const float element : iElements) {
        list.Append(element);
    }
    return list;
}

TEST(KELRawCollfloat, ComparesByElementsOfItsOwn)
{
    const KELRawCollfloat ascending[] = {KELRawCollfloat(), Listed({-1.0F}), Listed({0.0F}), Listed({0.0F, 1.0F}),
                                         Listed({1.0F})};
    for (const KELRawCollfloat& left : ascending) {
        for (const KELRawCollfloat& right : ascending) {
            EXPECT_EQ(KELRawCollfloat::Compare(left, right), &left < &right ? -1 : &left == &right ? 0 : 1);
        }
    }
    const KELRawCollfloat noNumber = Listed({std::numeric_limits<float>::quiet_NaN()});
    EXPECT_EQ(KELRawCollfloat::Compare(noNumber, noNumber), 1);
    KELRawCollfloat list = Listed({1.0F, 2.0F});
    float& lent = list[2];
    KELRawCollfloat copy = list;
    lent = 5.0F, copy.Size(4, 7.0F), copy.Size(3, 0.0F);
    EXPECT_TRUE(KELRawCollfloat::Compare(copy, Listed({1.0F, 2.0F, 7.0F})) == 0 && std::as_const(list)[2] == 5.0F);
    EXPECT_TRUE((copy.Size(-1, 0.0F), copy.Size() == 0));
}

} // namespace
