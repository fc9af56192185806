#include "Y4mText.h"

#include "ZrvPropertyAccess.h"

std::string Y4mQuote(std::string_view iText)
{
    constexpr std::size_t kLongest = 60;
    std::size_t length = iText.size();
    if (length > kLongest) {
        length = kLongest;
        while (length > 0 && (static_cast<unsigned char>(iText[length]) & 0xC0U) == 0x80U) { // whole characters
            --length;
        }
    }
    const char* const end = length < iText.size() ? "...'" : "'";
    return std::string("'").append(ZrvPrintable(iText.substr(0, length))).append(end);
}
