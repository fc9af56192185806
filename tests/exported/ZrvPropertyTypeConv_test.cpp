#include "ZrvPropertyTypeConv.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

// Asked for before main: the names need no start-up of their own.
const KELUnicodeString g_early = ZrvPropertyTypeConv::GetAsUnicode(zrvPT_FloatList);

TEST(ZrvPropertyTypeConv, AnswersEarlyAndWhatIsUnknown)
{
    EXPECT_STREQ(g_early.ConvertToChar(), "floatList");
    EXPECT_EQ(zrvPT_Undefined, 9);
    for (const int number : {9, 10, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(ZrvPropertyTypeConv::GetAsUnicode(static_cast<ZrvPropertyType>(number)), "") << number;
    }
    for (const char* name : {"", "int", "float ", "Float", "floatLis", "floatLists", "KELint32"}) {
        EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(name), zrvPT_Undefined) << name;
    }
    ZrvPropertyTypeConv one;
    ZrvPropertyTypeConv other;
    EXPECT_EQ(&(one = other), &one);
    EXPECT_EQ(&(one = ZrvPropertyTypeConv()), &one);
}

} // namespace
