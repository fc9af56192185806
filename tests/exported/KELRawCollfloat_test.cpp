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

bool Is(const KELRawCollfloat& iList, std::initializer_list<float> iValues)
{
    return KELRawCollfloat::Compare(iList, List(iValues)) == 0;
}

TEST(KELRawCollfloat, GrowsShrinksAndFills)
{
    KELRawCollfloat list(2);
    EXPECT_TRUE(Is(list, {}));
    for (int i = 1; i <= 9; ++i) {
        list.Append(static_cast<float>(i));
    }
    EXPECT_EQ(list.Size(), 9);
    EXPECT_EQ(list[9], 9.0F);
    list.Size(2, 7.0F);
    list.Size(4, 7.0F);
    EXPECT_TRUE(Is(list, {1, 2, 7, 7}));
    list.Size(-1, 7.0F);
    EXPECT_EQ(list.Size() + KELRawCollfloat(-5).Size(), 0);
}

TEST(KELRawCollfloat, ACopyIsItsOwnHoweverItIsChanged)
{
    static constinit KELRawCollfloat::Constant<3> s_zeros;
    for (const KELRawCollfloat& original : {List({0, 0, 0}), KELRawCollfloat(s_zeros)}) {
        KELRawCollfloat copy(original);
        copy[2] = 5.0F;
        EXPECT_TRUE(Is(copy, {0, 5, 0}));
        KELRawCollfloat grown(original);
        grown.Append(4);
        EXPECT_TRUE(Is(grown, {0, 0, 0, 4}));
        KELRawCollfloat shrunk(original);
        shrunk.Size(1, 0);
        EXPECT_TRUE(Is(shrunk, {0}));
        EXPECT_TRUE(Is(original, {0, 0, 0}));

        // A reference handed out for writing must not reach into a later copy.
        float& element = copy[1];
        const KELRawCollfloat later(copy);
        element = 9.0F;
        EXPECT_TRUE(Is(later, {0, 5, 0}));
        EXPECT_TRUE(Is(copy, {9, 5, 0}));
        copy = original;
        EXPECT_TRUE(Is(copy, {0, 0, 0}));
    }
    static_assert(!std::is_nothrow_copy_assignable_v<KELRawCollfloat>, "copying a list that was lent may fail");
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
