#include "KELText.h"

#include <algorithm>

std::size_t KELUtf8::IncompleteTail(const char* iText, std::size_t iLength) noexcept
{
    constexpr std::size_t kMostBytes = 3; // of a character that lacks its last byte
    for (std::size_t back = 1; back <= std::min(iLength, kMostBytes); ++back) {
        const char* const byte = iText + iLength - back;
        if (!IsTrail(*byte)) {
            return Byte(*byte) >= 0xC2 && CharacterLength(byte, back) == 1 ? back : 0;
        }
    }
    return 0;
}

bool KELUtf8::IsBoundary(const char* iText, std::size_t iLength, std::size_t iOffset) noexcept
{
    if (iOffset == iLength || !IsTrail(iText[iOffset])) {
        return true;
    }
    constexpr std::size_t kMostBytes = 3; // of a character in front of its last byte
    for (std::size_t back = 1; back <= std::min(iOffset, kMostBytes); ++back) {
        const std::size_t start = iOffset - back;
        if (!IsTrail(iText[start])) { // a lead byte is never inside a character
            return CharacterLength(iText + start, iLength - start) <= back;
        }
    }
    return true;
}
