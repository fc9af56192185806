#ifndef StringModel_H
#define StringModel_H

#include "KELUnicodeString.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// \file
/// What a string is to do, told by the definition of UTF-8 and by standard texts.

/// The bytes of the character at iStart; 1 for a byte that is no part of a well-formed one.
inline std::size_t CharacterLength(const std::string& iText, std::size_t iStart)
{
    for (std::size_t length = 2; length <= 4 && iStart + length <= iText.size(); ++length) {
        const auto byte = [&](std::size_t i) { return std::uint32_t{static_cast<unsigned char>(iText[iStart + i])}; };
        std::uint32_t point = byte(0) ^ (0xF00U >> length & 0xFFU); // without the mark of a lead byte
        bool isForm = point < 0x80U >> length;
        for (std::size_t i = 1; i < length; ++i) {
            isForm = isForm && byte(i) >> 6U == 2;
            point = point << 6U | (byte(i) & 0x3FU);
        }
        const bool isShortest = point >= (length == 2 ? 0x80U : length == 3 ? 0x800U : 0x10000U);
        if (isForm && isShortest && point <= 0x10FFFF && point >> 11U != 0x1B) { // no surrogate
            return length;
        }
    }
    return 1;
}

/// Where the characters of a text start, and its end.
inline std::vector<std::size_t> CharacterStarts(const std::string& iText)
{
    std::vector<std::size_t> starts = {0};
    while (starts.back() < iText.size()) {
        starts.push_back(starts.back() + CharacterLength(iText, starts.back()));
    }
    return starts;
}

inline KELUnicodeString Show(const std::string& iText)
{
    return KELUnicodeString(iText.data(), iText.size());
}

inline bool IsSame(const KELUnicodeString& iReal, const std::string& iText)
{
    return iReal == Show(iText) && iReal.ComputeHashKey() == Show(iText).ComputeHashKey() &&
           iReal.ConvertToChar() == std::string(iText.c_str()) && iReal.LengthInBytes() == iText.size() &&
           iReal.GetLengthInChar() == static_cast<int>(CharacterStarts(iText).size()) - 1;
}

/// Does everything that can be done with two strings and a position. Returns what differs from the model; "" when
/// nothing does.
inline const char* DifferenceFromModel(const std::string& iFirst, const std::string& iSecond, int iPosition)
{
    const std::vector<std::size_t> starts = CharacterStarts(iFirst);
    const auto isFound = [&](std::size_t iStart) {
        return iFirst.compare(iStart, iSecond.size(), iSecond) == 0 &&
               std::binary_search(starts.begin(), starts.end(), iStart + iSecond.size());
    };
    const auto start = starts.begin() + std::clamp(iPosition, 0, static_cast<int>(starts.size()) - 1);
    const auto found = std::find_if(start + (iPosition >= static_cast<int>(starts.size())), starts.end(), isFound);
    const int position = iPosition < 0 || found == starts.end() ? -1 : static_cast<int>(found - starts.begin());
    const KELUnicodeString text = Show(iFirst);
    const KELUnicodeString other = Show(iSecond);
    KELUnicodeString appended(text); // shares the text, and has one of its own from then on
    appended.Append(other);
    const KELUnicodeString shared(appended);
    appended.Append(other);
    const std::string twice = iFirst + iSecond + iSecond;
    const bool isTwice = IsSame(appended, twice); // asks for the hash of a text that grows on
    appended.Append(other);                       // in place, if there is room
    const bool isGrown = IsSame(appended, twice + iSecond);
    appended.Append(appended);
    appended = std::as_const(appended);
    KELUnicodeString assigned; // holds a text that has room to grow, which another holder has used
    assigned = appended;
    appended.Append(other);
    assigned.Append(text);
    KELUnicodeString inserted(text);
    inserted.Insert(iPosition, other);
    const int order = iFirst == iSecond ? 2 : iFirst < iSecond ? 0 : 1;
    return !IsSame(text, iFirst) || !IsSame(other, iSecond)                     ? "the text"
           : text.Compare(other) != order                                       ? "Compare"
           : (text == other) != (order == 2) || (text != other) != (order != 2) ? "operator=="
           : text.SearchSubString(other, iPosition, 1) != position              ? "SearchSubString"
           : text.SearchSubString(other, 0, 2) != -1                            ? "mode of search"
           : !isTwice || !isGrown || !IsSame(shared, iFirst + iSecond) ||
                   !IsSame(appended, twice + iSecond + twice + iSecond + iSecond) ||
                   !IsSame(assigned, twice + iSecond + twice + iSecond + iFirst)
               ? "Append"
           : !IsSame(inserted, std::string(iFirst).insert(*start, iSecond)) ? "Insert"
                                                                            : "";
}

#endif
