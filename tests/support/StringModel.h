#ifndef StringModel_H
#define StringModel_H

#include "KELUnicodeString.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

/// \file
/// What a string is to do, told by a table of the forms of a character and by standard texts.

/// Where the characters of a text start, and its end. A character is what has one of these forms, else one byte.
inline std::vector<std::size_t> CharacterStarts(const std::string& iText)
{
    using Range = std::pair<unsigned char, unsigned char>;
    constexpr Range kTrail = {0x80, 0xBF};
    static const std::vector<Range> kForms[] = {
        {{0xC2, 0xDF}, kTrail},
        {{0xE0, 0xE0}, {0xA0, 0xBF}, kTrail},
        {{0xE1, 0xEC}, kTrail, kTrail},
        {{0xED, 0xED}, {0x80, 0x9F}, kTrail}, // not the surrogates
        {{0xEE, 0xEF}, kTrail, kTrail},
        {{0xF0, 0xF0}, {0x90, 0xBF}, kTrail, kTrail},
        {{0xF1, 0xF3}, kTrail, kTrail, kTrail},
        {{0xF4, 0xF4}, {0x80, 0x8F}, kTrail, kTrail},
    };
    const auto isIn = [](char iByte, const Range& iRange) {
        return static_cast<unsigned char>(iByte) >= iRange.first && static_cast<unsigned char>(iByte) <= iRange.second;
    };
    std::vector<std::size_t> starts = {0};
    while (starts.back() < iText.size()) {
        const auto first = iText.begin() + static_cast<std::ptrdiff_t>(starts.back());
        std::size_t length = 1;
        for (const std::vector<Range>& form : kForms) {
            if (iText.size() - starts.back() >= form.size() &&
                std::equal(form.begin(), form.end(), first,
                           [&](const Range& iRange, char iByte) { return isIn(iByte, iRange); })) {
                length = form.size();
            }
        }
        starts.push_back(starts.back() + length);
    }
    return starts;
}

inline int SearchForModel(const std::string& iText, const std::string& iWanted, int iStart)
{
    const std::vector<std::size_t> starts = CharacterStarts(iText);
    for (std::size_t first = static_cast<std::size_t>(iStart); iStart >= 0 && first < starts.size(); ++first) {
        if (iText.compare(starts[first], iWanted.size(), iWanted) == 0 &&
            std::binary_search(starts.begin(), starts.end(), starts[first] + iWanted.size())) {
            return static_cast<int>(first);
        }
    }
    return -1;
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
    const auto place = static_cast<std::size_t>(std::clamp(iPosition, 0, static_cast<int>(starts.size()) - 1));
    const KELUnicodeString text = Show(iFirst);
    const KELUnicodeString other = Show(iSecond);
    KELUnicodeString appended(text);
    KELUnicodeString inserted(text);
    appended.Append(other);
    inserted.Insert(iPosition, other);
    const int order = iFirst == iSecond ? 2 : iFirst < iSecond ? 0 : 1;
    return !IsSame(text, iFirst) || !IsSame(other, iSecond)                                          ? "the text"
           : text.Compare(other) != order                                                            ? "Compare"
           : (text == other) != (order == 2) || (text != other) != (order != 2)                      ? "operator=="
           : text.SearchSubString(other, iPosition, 1) != SearchForModel(iFirst, iSecond, iPosition) ? "SearchSubString"
           : text.SearchSubString(other, 0, 2) != -1                                                 ? "mode of search"
           : !IsSame(appended, iFirst + iSecond)                                                     ? "Append"
           : !IsSame(inserted, std::string(iFirst).insert(starts[place], iSecond))                   ? "Insert"
                                                                                                     : "";
}

#endif
