#include "KELRawCollfloat.h"

#include "CheckRecorder.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace {

KELRawCollfloat List(std::initializer_list<float> iValues)
{
    KELRawCollfloat list;
    for (const float value : iValues) {
        list.Append(value);
    }
    return list;
}

TEST(KELRawCollfloat, GrowsShrinksAndFills)
{
    KELRawCollfloat list(2);
    EXPECT_EQ(list.Size(), 0);
    for (int i = 1; i <= 9; ++i) {
        list.Append(static_cast<float>(i));
    }
    EXPECT_EQ(list.Size(), 9);
    EXPECT_EQ(list[9], 9.0F);
    list.Size(2, 7.0F);
    list.Size(4, 7.0F);
    EXPECT_EQ(KELRawCollfloat::Compare(list, List({1, 2, 7, 7})), 0);
    list.Size(-1, 7.0F);
    EXPECT_EQ(list.Size(), 0);
    EXPECT_EQ(KELRawCollfloat(-5).Size(), 0);
}

TEST(KELRawCollfloat, ACopyIsItsOwnHoweverItIsChanged)
{
    const KELRawCollfloat original = List({1, 2, 3});
    KELRawCollfloat copy(original);
    copy[2] = 5.0F;
    KELRawCollfloat grown(original);
    grown.Append(4);
    KELRawCollfloat shrunk(original);
    shrunk.Size(1, 0);
    EXPECT_EQ(KELRawCollfloat::Compare(original, List({1, 2, 3})), 0);
    EXPECT_EQ(KELRawCollfloat::Compare(copy, List({1, 5, 3})), 0);
    EXPECT_EQ(KELRawCollfloat::Compare(grown, List({1, 2, 3, 4})), 0);
    EXPECT_EQ(KELRawCollfloat::Compare(shrunk, List({1})), 0);

    // A reference handed out for writing must not reach into a later copy.
    float& element = copy[1];
    const KELRawCollfloat later(copy);
    element = 9.0F;
    EXPECT_EQ(later[1], 1.0F);
    EXPECT_EQ(std::as_const(copy)[1], 9.0F);
    copy = original;
    EXPECT_EQ(std::as_const(copy)[1], 1.0F);
    static_assert(!std::is_nothrow_copy_assignable_v<KELRawCollfloat>, "copying a list that was lent may fail");
}

TEST(KELRawCollfloat, ConstantElementsAreCopiedBeforeTheyChange)
{
    static constinit KELRawCollfloat::Constant<3> s_zeros;
    KELRawCollfloat list(s_zeros);
    EXPECT_EQ(list.Size(), 3);
    list[2] = 1.0F;
    EXPECT_EQ(KELRawCollfloat::Compare(KELRawCollfloat(s_zeros), List({0, 0, 0})), 0);
    EXPECT_EQ(KELRawCollfloat::Compare(list, List({0, 1, 0})), 0);
}

TEST(KELRawCollfloat, ComparesElementByElement)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(KELRawCollfloat::Compare(List({}), List({})), 0);
    EXPECT_EQ(KELRawCollfloat::Compare(List({0.0F}), List({-0.0F})), 0);
    EXPECT_NE(KELRawCollfloat::Compare(List({nan}), List({nan})), 0);
    EXPECT_EQ(KELRawCollfloat::Compare(List({1, 2}), List({1, 3})), -1);
    EXPECT_EQ(KELRawCollfloat::Compare(List({1, 3}), List({1, 2})), 1);
    EXPECT_EQ(KELRawCollfloat::Compare(List({1}), List({1, 2})), -1);
    EXPECT_EQ(KELRawCollfloat::Compare(List({1, 2}), List({1})), 1);
}

TEST(KELRawCollfloat, PositionsOutsideAreReportedAndHarmless)
{
    CheckRecorder reports;
    KELRawCollfloat list = List({1});
    for (const int position : {0, 2, -1}) {
        EXPECT_EQ(std::as_const(list)[position], 0.0F);
        list[position] = 5.0F;
        EXPECT_EQ(reports.Take().size(), 2U);
    }
    EXPECT_EQ(KELRawCollfloat::Compare(list, List({1})), 0);
}

} // namespace
