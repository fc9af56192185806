#include "ZrvRC.h"

#include "ReportingTest.h"

namespace {

TEST(ZrvRC, OnlyZeroAndOneAreValid)
{
    for (const KELUINT32 code : {0U, 1U, 2U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        ZrvRC rc(static_cast<ZrvRC::ErrorCode>(code));
        EXPECT_EQ(rc.IsValid(), code <= 1) << code;
        EXPECT_EQ(rc.IsError(), code > 1) << code;
        EXPECT_EQ(!rc, code > 1) << code;
        EXPECT_EQ(rc.GetRC(), code);
        EXPECT_STREQ(rc.Dump(), "");
    }
    EXPECT_EQ(InWords(ZrvRC()), "ok");
    EXPECT_EQ(ZrvRC::zrvEC_NothingDone, 0U);
    EXPECT_EQ(ZrvRC::zrvEC_OK, 1U);
    EXPECT_EQ(ZrvRC::zrvEC_Error, 0xFFFFFFFFU);
}

TEST(ZrvRC, TranslatesPlatformResults)
{
    struct Case {
        long result;
        const char* words;
    };
    for (const Case& c : {Case{0, "ok"}, Case{1, "ok"}, Case{0x7FFFFFFFL, "ok"},
                          Case{static_cast<long>(0x80004003L), "error: E_POINTER : NULL pointer argument."},
                          Case{static_cast<long>(0x80004004L), "error: E_ABORT : Operation aborted."},
                          Case{static_cast<long>(0x80004005L), "error: E_FAIL : Failure."},
                          Case{-2147467259L, "error: E_FAIL : Failure."},
                          Case{static_cast<long>(0x8007000EL), "error: E_OUTOFMEMORY : Insufficient memory."},
                          Case{static_cast<long>(0x80070057L), "error: E_INVALIDARG : Argument is invalid."},
                          Case{-2L, "error: Unknown error hresult."}}) {
        EXPECT_EQ(InWords(ZrvRC(c.result)), c.words) << c.result;
    }
}

TEST(ZrvRC, ComparesCodesAlone)
{
    ZrvRC one = ZrvRC(ZrvRC::zrvEC_NothingDone, "one").AddTrace(static_cast<const char*>(nullptr));
    ZrvRC other(ZrvRC::zrvEC_NothingDone, KELUnicodeString("other"));
    const ZrvRC error(ZrvRC::zrvEC_Error);
    EXPECT_TRUE(one == other && !(one != other));
    EXPECT_TRUE(one != error && !(one == error));
    EXPECT_TRUE(one == ZrvRC::zrvEC_NothingDone && !(one == ZrvRC::zrvEC_OK));
    EXPECT_EQ(InWords(one.AddTrace(KELUnicodeString(", two"))), "nothing done: one, two");
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
        EXPECT_STREQ(ZrvRC::InsertLinesBegin(c.text, prefix).ConvertToChar(), c.prefixed);
        EXPECT_STREQ(ZrvRC::InsertLinesBegin(c.text, narrow.data()).ConvertToChar(), c.prefixed);
        EXPECT_STREQ(prefix.ConvertToChar(), c.prefix);
    }
    EXPECT_EQ(ZrvRC::InsertLinesBegin("a\nb", static_cast<char*>(nullptr)), KELUnicodeString("a\nb"));
}

} // namespace
