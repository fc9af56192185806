#include "ZrvRC.h"

#include "ReportingTest.h"

#include <array>
#include <utility>

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
    const std::pair<long, const char*> cases[] = {
        {0, "ok"},
        {1, "ok"},
        {0x7FFFFFFFL, "ok"},
        {static_cast<long>(0x80004003L), "error: E_POINTER : NULL pointer argument."},
        {static_cast<long>(0x80004004L), "error: E_ABORT : Operation aborted."},
        {static_cast<long>(0x80004005L), "error: E_FAIL : Failure."},
        {-2147467259L, "error: E_FAIL : Failure."},
        {static_cast<long>(0x8007000EL), "error: E_OUTOFMEMORY : Insufficient memory."},
        {static_cast<long>(0x80070057L), "error: E_INVALIDARG : Argument is invalid."},
        {-2, "error: Unknown error hresult."},
    };
    for (const auto& [result, words] : cases) {
        EXPECT_EQ(InWords(ZrvRC(result)), words) << result;
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
    const std::array<const char*, 3> cases[] = {
        {"a\nb", "> ", "> a\n> b"},  {"a\n", "> ", "> a\n> "},         {"", "> ", "> "},
        {"a\nb", "", "a\nb"},        {"a\n\nb", "P", "Pa\nP\nPb"},     {"\na", "P", "P\nPa"},
        {"a\r\nb", "P", "Pa\r\nPb"}, {"a\nb", "x\ny", "x\nya\nx\nyb"},
    };
    for (const auto& [text, prefix, prefixed] : cases) {
        KELUnicodeString wide(prefix);
        std::string narrow(prefix);
        EXPECT_STREQ(ZrvRC::InsertLinesBegin(text, wide).ConvertToChar(), prefixed);
        EXPECT_STREQ(ZrvRC::InsertLinesBegin(text, narrow.data()).ConvertToChar(), prefixed);
        EXPECT_STREQ(wide.ConvertToChar(), prefix);
    }
    EXPECT_EQ(ZrvRC::InsertLinesBegin("a\nb", static_cast<char*>(nullptr)), KELUnicodeString("a\nb"));
}

} // namespace
