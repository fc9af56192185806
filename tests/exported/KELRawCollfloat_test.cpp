#include "KELRawCollfloat.h"

#include "CheckRecorder.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

namespace {

KELRawCollfloat List(std::initializer_list<float> iValues)
{
    KELRawCollfloat list;
    for (const float value : iValues) {
        list.Append(value);
    }
    return list;
}

bool Is(const KELRawCollfloat& iList, std::initializer_list<float> iValues)
{
    return KELRawCollfloat::Compare(iList, List(iValues)) == 0;
}

TEST(KELRawCollfloat, NoLengthIsNegative)
{
    EXPECT_EQ(KELRawCollfloat(-5).Size(), 0);
    KELRawCollfloat list = List({1, 2});
    list.Size(-1, 7.0F);
    EXPECT_EQ(list.Size(), 0);
    list.Size(1, 7.0F);
    EXPECT_TRUE(Is(list, {7}));
}

TEST(KELRawCollfloat, ComparesElementByElement)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(KELRawCollfloat::Compare(List({0.0F}), List({-0.0F})), 0);
    EXPECT_NE(KELRawCollfloat::Compare(List({nan}), List({nan})), 0);
    const KELRawCollfloat sorted[] = {List({}), List({1}), List({1, 2}), List({1, 3}), List({2})};
    for (const KELRawCollfloat& left : sorted) {
        for (const KELRawCollfloat& right : sorted) {
            EXPECT_EQ(KELRawCollfloat::Compare(left, right), &left < &right ? -1 : &left > &right ? 1 : 0);
        }
    }
}

TEST(KELRawCollfloat, PositionsOutsideAreReportedAndHarmless)
{
    CheckRecorder reports;
    KELRawCollfloat list = List({1});
    const std::string report = " [condition 1<=iPosition && iPosition<=Size() in KELPositions]";
    for (const int position : {0, 2, -1}) {
        EXPECT_EQ(std::as_const(list)[position], 0.0F);
        list[position] = 5.0F;
        EXPECT_EQ(reports.Take(), report + report);
    }
    EXPECT_TRUE(Is(list, {1}));
}

} // namespace
