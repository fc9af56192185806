#include "ZrvRC.h"

#include "ReportingTest.h"

#include <utility>

namespace {

TEST(ZrvRC, OnlyZeroAndOneAreValid)
{
    for (const KELUINT32 code : {0U, 1U, 2U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(ZrvRC(static_cast<ZrvRC::ErrorCode>(code)).IsValid(), code <= 1) << code;
    }
    EXPECT_TRUE(ZrvRC::zrvEC_NothingDone == 0U && ZrvRC::zrvEC_OK == 1U && ZrvRC::zrvEC_Error == 0xFFFFFFFFU);
    EXPECT_EQ(InWords(ZrvRC()), "ok");
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

TEST(ZrvRC, TakesNullForNothing)
{
    EXPECT_EQ(InWords(ZrvRC().AddTrace(static_cast<const char*>(nullptr))), "ok");
    EXPECT_EQ(ZrvRC::InsertLinesBegin("a\nb", static_cast<char*>(nullptr)), KELUnicodeString("a\nb"));
}

} // namespace
