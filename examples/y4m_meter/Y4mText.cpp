#include "Y4mText.h"

#include <algorithm>
#include <iterator>

namespace {

struct CodePoints {
    char32_t first;
    char32_t last;
};

// Controls, format characters, separators of lines, surrogates, private and unassigned characters; sorted.
constexpr CodePoints kUnprintable[] = {
    {0x0000, 0x001F},   {0x007F, 0x009F},    {0x00AD, 0x00AD},   {0x0600, 0x0605},   {0x061C, 0x061C},
    {0x06DD, 0x06DD},   {0x070F, 0x070F},    {0x0890, 0x0891},   {0x08E2, 0x08E2},   {0x180E, 0x180E},
    {0x200B, 0x200F},   {0x2028, 0x202E},    {0x2060, 0x206F},   {0xD800, 0xF8FF},   {0xFDD0, 0xFDEF},
    {0xFEFF, 0xFEFF},   {0xFFF0, 0xFFFB},    {0xFFFE, 0xFFFF},   {0x110BD, 0x110BD}, {0x110CD, 0x110CD},
    {0x13430, 0x1343F}, {0x1BCA0, 0x1BCA3},  {0x1D173, 0x1D17A}, {0x1FFFE, 0x1FFFF}, {0x2FFFE, 0x2FFFF},
    {0x323B0, 0xE00FF}, {0xE01F0, 0x1FFFFF},
};

bool IsPrintable(char32_t iCodePoint)
{
    const auto* const found =
        std::lower_bound(std::begin(kUnprintable), std::end(kUnprintable), iCodePoint,
                         [](const CodePoints& iRange, char32_t iValue) { return iRange.last < iValue; });
    return found == std::end(kUnprintable) || iCodePoint < found->first;
}

bool IsContinuation(char iByte)
{
    return (static_cast<unsigned char>(iByte) & 0xC0U) == 0x80U;
}

// How many bytes the first byte of a sequence announces; 0 for a byte that starts none.
std::size_t SequenceLength(unsigned char iFirst)
{
    return iFirst < 0x80 ? 1 : iFirst < 0xC2 ? 0 : iFirst < 0xE0 ? 2 : iFirst < 0xF0 ? 3 : iFirst < 0xF5 ? 4 : 0;
}

// The bytes of the printable character at the front; 0 when there is none, or it is written with too many bytes.
std::size_t PrintableLength(std::string_view iText)
{
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto first = static_cast<unsigned char>(iText.front());
    const std::size_t length = SequenceLength(first);
    const std::string_view rest = iText.substr(1, length - 1);
    if (length == 0 || rest.size() != length - 1 || !std::all_of(rest.begin(), rest.end(), IsContinuation)) {
        return 0;
    }
    char32_t codePoint = length == 1 ? first : first & (0x7FU >> length);
    for (const char byte : rest) {
        codePoint = (codePoint << 6U) | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    return codePoint >= kSmallest[length] && IsPrintable(codePoint) ? length : 0;
}

} // namespace

std::string Y4mPrintable(std::string_view iText, bool iKeepsLines)
{
    std::string text;
    while (!iText.empty()) {
        const std::size_t length = iKeepsLines && iText.front() == '\n' ? 1 : PrintableLength(iText);
        if (length > 0) {
            text += iText.substr(0, length);
            iText.remove_prefix(length);
            continue;
        }
        text += '?';
        do { // one mark for all bytes of a character
            iText.remove_prefix(1);
        } while (!iText.empty() && IsContinuation(iText.front()));
    }
    return text;
}

std::string Y4mQuote(std::string_view iText)
{
    constexpr std::size_t kLongest = 60;
    std::size_t length = iText.size();
    if (length > kLongest) {
        length = kLongest;
        while (length > 0 && IsContinuation(iText[length])) {
            --length;
        }
    }
    const char* const end = length < iText.size() ? "...'" : "'";
    return std::string("'").append(Y4mPrintable(iText.substr(0, length))).append(end);
}
