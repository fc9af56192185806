#include "ZrvPropertyTypeConv.h"

#include <gtest/gtest.h>

namespace {

const char* const g_names[] = {"bytePtr",  "KELUnicodeString", "KELBoolean",
                               "KELINT32", "KELUINT32",        "float",
                               "double",   "floatList",        "KELSysTSBaseUnknownPtr"};

// Asked for before main: the names need no start-up of their own.
const KELUnicodeString g_early = ZrvPropertyTypeConv::GetAsUnicode(zrvPT_FloatList);

TEST(ZrvPropertyTypeConv, ConvertsTheNineBothWaysAndAnswersWhatIsUnknown)
{
    EXPECT_EQ(zrvPT_Undefined, 9);
    for (const int number : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, -1, -2147483647 - 1, 2147483647}) {
        const auto type = static_cast<ZrvPropertyType>(number);
        const char* const name = number >= 0 && number < 9 ? g_names[number] : "";
        EXPECT_STREQ(ZrvPropertyTypeConv::GetAsUnicode(type).ConvertToChar(), name) << number;
        EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(name), *name ? type : zrvPT_Undefined) << name;
    }
    EXPECT_STREQ(g_early.ConvertToChar(), "floatList");
    for (const char* name : {"int", "float ", "Float", "floatLis", "floatLists", "KELint32"}) {
        EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(name), zrvPT_Undefined) << name;
    }
    ZrvPropertyTypeConv one;
    ZrvPropertyTypeConv other;
    EXPECT_EQ(&(one = other), &one);
    EXPECT_EQ(&(one = ZrvPropertyTypeConv()), &one);
}

} // namespace
