#include "ZrvPropertyTypeConv.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const char* const g_names[] = {"bytePtr",  "KELUnicodeString", "KELBoolean",
                               "KELINT32", "KELUINT32",        "float",
                               "double",   "floatList",        "KELSysTSBaseUnknownPtr"};

// Asked for before main: the names need no start-up of their own.
const KELUnicodeString g_early = ZrvPropertyTypeConv::GetAsUnicode(zrvPT_FloatList);

TEST(ZrvPropertyTypeConv, ConvertsTheNineBothWays)
{
    EXPECT_EQ(zrvPT_BytePtr, 0);
    EXPECT_EQ(zrvPT_BaseUnknownPtr, 8);
    EXPECT_EQ(zrvPT_Undefined, 9);
    for (int i = 0; i < 9; ++i) {
        const auto type = static_cast<ZrvPropertyType>(i);
        EXPECT_STREQ(ZrvPropertyTypeConv::GetAsUnicode(type).ConvertToChar(), g_names[i]);
        EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(g_names[i]), type);
    }
    EXPECT_STREQ(g_early.ConvertToChar(), "floatList");
}

TEST(ZrvPropertyTypeConv, AnswersWhatIsUnknown)
{
    for (const int type : {9, 10, -1, -2147483647 - 1, 2147483647}) {
        EXPECT_EQ(ZrvPropertyTypeConv::GetAsUnicode(static_cast<ZrvPropertyType>(type)).GetLengthInChar(), 0) << type;
    }
    for (const char* name : {"", "int", "float ", "Float", "floatLis", "floatLists", "KELint32"}) {
        EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(name), zrvPT_Undefined) << name;
    }
}

TEST(ZrvPropertyTypeConv, AssignmentDoesNothing)
{
    ZrvPropertyTypeConv one;
    ZrvPropertyTypeConv other;
    EXPECT_EQ(&(one = other), &one);
    EXPECT_EQ(&(one = ZrvPropertyTypeConv()), &one);
}

} // namespace
