#include "CountedObject.h"
#include "KELCheckFailure.h"
#include "KELRawCollfloat.h"
#include "KELSysElapseTime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <thread>
#include <vector>

namespace {

TEST(KELSysElapseTime, TellsMicrosecondsSinceTheStart)
{
    KELSysElapseTime clock;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const KELSysElapseTime copy(clock);
    double elapsed = 0.0;
    double sinceReset = 0.0;
    EXPECT_TRUE(clock.GetElapse(elapsed) >= 0 && elapsed >= 20000.0 && elapsed < 10e6) << elapsed;
    EXPECT_TRUE(clock.Reset() == 0 && clock.GetElapse(sinceReset) >= 0 && copy.GetElapse(elapsed) >= 0);
    EXPECT_LE(sinceReset + 20000.0, elapsed);
}

TEST(KELCheckFailure, IsPrintedByDefault)
{
    const KELCheckFailureHandler outer = KELSetCheckFailureHandler(nullptr);
    ::testing::internal::CaptureStderr();
    Check_TRUE_Failed__("a>0", "File", 7, "remark");
    Check_Pointer_Failed__("p", "File", 8, nullptr);
    CheckFailure__(nullptr, nullptr, 9, nullptr);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "File(7): check failed: a>0 - remark\nFile(8): null pointer: p\n(9): failure: \n");
    KELSetCheckFailureHandler(outer);
}

TEST(KELSysTSBaseUnknown, KnowsNoInterface)
{
    CountedObject object;
    void* out = &object;
    EXPECT_TRUE(object.QueryInterface(nullptr, &out) < 0 && !out && object.QueryInterface(nullptr, nullptr) < 0);
    EXPECT_TRUE(!object.GetMetaObject() && object.AddRef() == 2 && object.Release() == 1);
}

KELRawCollfloat Listed(const std::vector<float>& iElements)
{
    KELRawCollfloat list(2);
    for (const float element : iElements) {
        list.Append(element);
    }
    return list;
}

int Compare(const KELRawCollfloat& iLeft, const std::vector<float>& iRight)
{
    return KELRawCollfloat::Compare(iLeft, Listed(iRight));
}

TEST(KELRawCollfloat, ComparesByElements)
{
    constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();
    const std::vector<float> lists[] = {{}, {-1.0F}, {0.0F}, {-0.0F, 0.0F}, {0.0F, 1.0F, 2.0F, 3.0F}, {1.0F}};
    for (const std::vector<float>& left : lists) {
        for (const std::vector<float>& right : lists) {
            EXPECT_EQ(Compare(Listed(left), right), left < right ? -1 : left == right ? 0 : 1);
        }
    }
    EXPECT_EQ(Compare(Listed({kNoNumber}), {kNoNumber}), 1);
}

TEST(KELRawCollfloat, SharesUntilItIsChangedOrHasLentAnElement)
{
    KELRawCollfloat list = Listed({1.0F, 2.0F, 3.0F});
    float& lent = list[2];
    KELRawCollfloat copy = list;
    lent = 5.0F;
    EXPECT_TRUE(Compare(list, {1.0F, 5.0F, 3.0F}) == 0 && Compare(copy, {1.0F, 2.0F, 3.0F}) == 0);
    const KELRawCollfloat kept = copy;
    copy.Append(4.0F);
    list = copy;
    list.Size(2, 0.0F);
    EXPECT_TRUE(Compare(copy, {1.0F, 2.0F, 3.0F, 4.0F}) == 0 && Compare(list, {1.0F, 2.0F}) == 0);
    list.Size(4, 7.0F);
    EXPECT_EQ(Compare(list, {1.0F, 2.0F, 7.0F, 7.0F}), 0);
    list.Size(-1, 0.0F);
    EXPECT_EQ(list.Size(), 0);
    list = std::move(copy);
    EXPECT_TRUE(list.Size() == 4 && Compare(kept, {1.0F, 2.0F, 3.0F}) == 0);
}

} // namespace
