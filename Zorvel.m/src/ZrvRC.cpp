#include "ZrvRC.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>
#include <string>
#include <string_view>

namespace {

constexpr KELShortText g_lineBreak("\n");

struct ResultMessage {
    KELUINT32 result;
    const char* text;
};

constexpr ResultMessage g_resultMessages[] = {
    {0x80004003U, "E_POINTER : NULL pointer argument."},
    {0x80004004U, "E_ABORT : Operation aborted."},
    {0x80004005U, "E_FAIL : Failure."},
    {0x8007000EU, "E_OUTOFMEMORY : Insufficient memory."},
    {0x80070057U, "E_INVALIDARG : Argument is invalid."},
};

const char* MessageFor(KELUINT32 iResult)
{
    for (const ResultMessage& message : g_resultMessages) {
        if (message.result == iResult) {
            return message.text;
        }
    }
    return "Unknown error hresult.";
}

} // namespace

ZrvRC::ZrvRC(long iResult) : m_rc(zrvEC_OK)
{
    const auto result = static_cast<HRESULT>(iResult);
    if (result < 0) {
        m_rc = zrvEC_Error;
        m_trace = MessageFor(static_cast<KELUINT32>(result));
    }
}

ZrvRC& ZrvRC::AddTrace(const KELUnicodeString& iText)
{
    m_trace.Append(iText);
    return *this;
}

ZrvRC& ZrvRC::AddTrace(const char* iText)
{
    return AddTrace(KELUnicodeString(iText));
}

ZrvRC& ZrvRC::Add(const ZrvRC& iOther)
{
    if (&iOther != this) {
        MergesTraces(m_trace, iOther.m_trace);
    }
    m_rc = iOther.m_rc;
    return *this;
}

void ZrvRC::MergesTraces(KELUnicodeString& ioTrace, const KELUnicodeString& iAdded)
{
    if (ioTrace.GetLengthInChar() != 0 && iAdded.GetLengthInChar() != 0) {
        ioTrace.Append(KELUnicodeString(g_lineBreak), iAdded);
    } else {
        ioTrace.Append(iAdded);
    }
}

KELUnicodeString ZrvRC::InsertLinesBegin(const KELUnicodeString& iText, KELUnicodeString& iPrefix)
{
    // Built in one walk over the text, so that a line break in the prefix is never met again.
    const std::string_view text(iText.ConvertToChar(), iText.LengthInBytes());
    const std::string_view prefix(iPrefix.ConvertToChar(), iPrefix.LengthInBytes());
    const auto starts = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    constexpr std::size_t kLongest = std::numeric_limits<int>::max();
    if (prefix.size() > (kLongest - text.size()) / starts) {
        throw std::bad_alloc(); // as any string that would be too long; before memory is filled with it
    }
    std::string lines;
    lines.reserve(text.size() + starts * prefix.size());
    lines += prefix;
    for (const char character : text) {
        lines += character;
        if (character == '\n') {
            lines += prefix;
        }
    }
    return KELUnicodeString(lines.data(), lines.size());
}

KELUnicodeString ZrvRC::InsertLinesBegin(const KELUnicodeString& iText, char* iPrefix)
{
    if (!iPrefix) {
        return iText;
    }
    KELUnicodeString prefix(iPrefix);
    return InsertLinesBegin(iText, prefix);
}
