#include "ZrvRC.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(ZrvRC, DefaultIsSuccessWithoutTrace)
{
    ZrvRC rc;
    EXPECT_EQ(rc.GetRC(), ZrvRC::zrvEC_OK);
    EXPECT_TRUE(rc.IsValid());
    EXPECT_FALSE(!rc);
    EXPECT_STREQ(rc.Dump(), "");
}

TEST(ZrvRC, OnlyZeroAndOneAreValid)
{
    for (const KELUINT32 code : {0U, 1U, 2U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        ZrvRC rc(static_cast<ZrvRC::ErrorCode>(code));
        EXPECT_EQ(rc.IsValid(), code <= 1) << code;
        EXPECT_EQ(rc.IsError(), code > 1) << code;
        EXPECT_EQ(!rc, code > 1) << code;
    }
    EXPECT_EQ(static_cast<KELUINT32>(ZrvRC::zrvEC_Error), 0xFFFFFFFFU);
}

TEST(ZrvRC, TranslatesPlatformResults)
{
    struct Case {
        long result;
        const char* trace; // null for a success
    };
    const Case cases[] = {
        {0, nullptr},
        {1, nullptr},
        {0x7FFFFFFFL, nullptr},
        {static_cast<long>(0x80004003L), "E_POINTER : NULL pointer argument."},
        {static_cast<long>(0x80004004L), "E_ABORT : Operation aborted."},
        {static_cast<long>(0x80004005L), "E_FAIL : Failure."},
        {-2147467259L, "E_FAIL : Failure."},
        {static_cast<long>(0x8007000EL), "E_OUTOFMEMORY : Insufficient memory."},
        {static_cast<long>(0x80070057L), "E_INVALIDARG : Argument is invalid."},
        {-2L, "Unknown error hresult."},
    };
    for (const Case& c : cases) {
        ZrvRC rc(c.result);
        EXPECT_EQ(rc.GetRC(), c.trace ? ZrvRC::zrvEC_Error : ZrvRC::zrvEC_OK) << c.result;
        EXPECT_STREQ(rc.Dump(), c.trace ? c.trace : "") << c.result;
    }
}

TEST(ZrvRC, ComparesCodesAlone)
{
    ZrvRC one(ZrvRC::zrvEC_NothingDone, "one");
    ZrvRC other(ZrvRC::zrvEC_NothingDone, KELUnicodeString("other"));
    const ZrvRC error(ZrvRC::zrvEC_Error);
    EXPECT_TRUE(one == other);
    EXPECT_FALSE(one != other);
    EXPECT_TRUE(one != error);
    EXPECT_FALSE(one == error);
    EXPECT_TRUE(one == ZrvRC::zrvEC_NothingDone);
    EXPECT_FALSE(one == ZrvRC::zrvEC_OK);
}

TEST(ZrvRC, AddTraceAppendsAsItIs)
{
    ZrvRC rc;
    rc.AddTrace("a").AddTrace(KELUnicodeString("b")).AddTrace(static_cast<const char*>(nullptr));
    EXPECT_STREQ(rc.Dump(), "ab");
    EXPECT_EQ(rc.GetTrace(), KELUnicodeString("ab"));
    ZrvRC copy;
    copy = rc;
    rc.AddTrace("c");
    EXPECT_STREQ(copy.Dump(), "ab");
}

TEST(ZrvRC, AddTakesTheCodeAndJoinsTracesByOneLineBreak)
{
    struct Case {
        const char* own;
        const char* added;
        const char* joined;
    };
    for (const Case& c : {Case{"a", "b", "a\nb"}, Case{"", "b", "b"}, Case{"a", "", "a"}, Case{"", "", ""}}) {
        ZrvRC rc(ZrvRC::zrvEC_Error, c.own);
        EXPECT_EQ(&rc.Add(ZrvRC(ZrvRC::zrvEC_OK, c.added)), &rc);
        EXPECT_STREQ(rc.Dump(), c.joined);
        EXPECT_EQ(rc.GetRC(), ZrvRC::zrvEC_OK) << "the added code counts, whichever it is";
    }
    ZrvRC self(ZrvRC::zrvEC_Error, "a");
    self.Add(self);
    EXPECT_EQ(self.GetRC(), ZrvRC::zrvEC_Error);
    EXPECT_STREQ(self.Dump(), "a");
}

TEST(ZrvRC, InsertLinesBeginPrefixesEveryLine)
{
    struct Case {
        const char* text;
        const char* prefix;
        const char* prefixed;
    };
    const Case cases[] = {
        {"a\nb", "> ", "> a\n> b"},  {"a\n", "> ", "> a\n> "},         {"", "> ", "> "},
        {"a\nb", "", "a\nb"},        {"a\n\nb", "P", "Pa\nP\nPb"},     {"\na", "P", "P\nPa"},
        {"a\r\nb", "P", "Pa\r\nPb"}, {"a\nb", "x\ny", "x\nya\nx\nyb"},
    };
    for (const Case& c : cases) {
        KELUnicodeString prefix(c.prefix);
        std::string narrow(c.prefix);
        EXPECT_EQ(ZrvRC::InsertLinesBegin(c.text, prefix), KELUnicodeString(c.prefixed));
        EXPECT_EQ(ZrvRC::InsertLinesBegin(c.text, narrow.data()), KELUnicodeString(c.prefixed));
        EXPECT_EQ(prefix, KELUnicodeString(c.prefix));
    }
    EXPECT_EQ(ZrvRC::InsertLinesBegin("a\nb", static_cast<char*>(nullptr)), KELUnicodeString("a\nb"));
}

} // namespace
