#include "ZrvRC.h"

#include "ReportingTest.h"

namespace {

TEST(ZrvRC, TranslatesPlatformResults)
{
    const std::pair<long, const char*> rows[] = {
        {0, "ok"},
        {0x7FFFFFFFL, "ok"},
        {static_cast<long>(0x80004003L), "error: E_POINTER : NULL pointer argument."},
        {static_cast<long>(0x80004004L), "error: E_ABORT : Operation aborted."},
        {-2147467259L, "error: E_FAIL : Failure."},
        {static_cast<long>(0x8007000EL), "error: E_OUTOFMEMORY : Insufficient memory."},
        {static_cast<long>(0x80070057L), "error: E_INVALIDARG : Argument is invalid."},
        {-2, "error: Unknown error hresult."}};
    for (const auto& [result, words] : rows) {
        ZrvRC rc(result), ok;
        EXPECT_EQ(InWords(rc), words) << result;
        EXPECT_EQ(rc != std::as_const(ok), rc.IsError()); // C++20 asks == for two that are not constant
    }
}

TEST(ZrvRC, JoinsTraces)
{
    // A trace, what is added to it or put in front of its lines, and the three results.
    const char* const rows[][5] = {{"", "", "ok", "error", ""},
                                   {"a", "", "ok: a", "error: a", "a"},
                                   {"", "b", "ok: b", "error: b", "b"},
                                   {"a\n\nc", "b", "ok: a\n\ncb", "error: a\n\nc\nb", "ba\nb\nbc"},
                                   {"\xC3\xA9\n", "\xE2\x82\xAC", "ok: \xC3\xA9\n\xE2\x82\xAC",
                                    "error: \xC3\xA9\n\n\xE2\x82\xAC", "\xE2\x82\xAC\xC3\xA9\n\xE2\x82\xAC"}};
    for (const auto& [trace, text, added, merged, lines] : rows) {
        ZrvRC rc(ZrvRC::zrvEC_OK, trace);
        KELUnicodeString prefix(text);
        EXPECT_EQ(InWords(ZrvRC(rc).AddTrace(text)), added);
        EXPECT_EQ(InWords(ZrvRC(rc).Add(ZrvRC(ZrvRC::zrvEC_Error, prefix))), merged);
        EXPECT_EQ(InWords(rc.Add(rc)), InWords(ZrvRC(ZrvRC::zrvEC_OK, trace))) << "itself";
        EXPECT_EQ(ZrvRC::InsertLinesBegin(trace, prefix), lines);
        EXPECT_EQ(ZrvRC::InsertLinesBegin(trace, std::string(text).data()), lines);
    }
    EXPECT_EQ(InWords(ZrvRC().AddTrace(static_cast<const char*>(nullptr))), "ok");
    EXPECT_EQ(ZrvRC::InsertLinesBegin("a\nb", static_cast<char*>(nullptr)), "a\nb");
}

} // namespace
