// Compares KELUnicodeString with texts whose characters are found by a table.

#include "FuzzInput.h"
#include "KELUnicodeString.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace {

// Where the characters of a text start, and its end. A character is what has one of these forms, else one byte.
std::vector<std::size_t> Starts(const std::string& iText)
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

int Search(const std::string& iText, const std::string& iWanted, int iStart)
{
    const std::vector<std::size_t> starts = Starts(iText);
    for (std::size_t first = static_cast<std::size_t>(iStart); iStart >= 0 && first < starts.size(); ++first) {
        if (iText.compare(starts[first], iWanted.size(), iWanted) == 0 &&
            std::binary_search(starts.begin(), starts.end(), starts[first] + iWanted.size())) {
            return static_cast<int>(first);
        }
    }
    return -1;
}

KELUnicodeString Show(const std::string& iText)
{
    return KELUnicodeString(iText.data(), iText.size());
}

bool IsSame(const KELUnicodeString& iReal, const std::string& iText)
{
    return iReal == Show(iText) && iReal.ComputeHashKey() == Show(iText).ComputeHashKey() &&
           iReal.ConvertToChar() == std::string(iText.c_str()) &&
           iReal.GetLengthInChar() == static_cast<int>(Starts(iText).size()) - 1;
}

} // namespace

// The first byte is a position, the second says where the rest is cut into two texts.
int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize)
{
    if (iSize < 2) {
        return 0;
    }
    const int position = static_cast<std::int8_t>(iData[0]);
    const std::string rest(reinterpret_cast<const char*>(iData + 2), iSize - 2);
    const std::string first = rest.substr(0, std::min<std::size_t>(iData[1], rest.size()));
    const std::string second = rest.substr(first.size());
    const std::vector<std::size_t> starts = Starts(first);
    const KELUnicodeString text = Show(first);
    const KELUnicodeString other = Show(second);

    Require(IsSame(text, first) && IsSame(other, second), "a string shows its text");
    const int order = first == second ? 2 : first < second ? 0 : 1;
    Require(text.Compare(other) == order, "Compare");
    Require((text == other) == (order == 2) && (text != other) == (order != 2), "operator==");
    Require(text.SearchSubString(other, position, 1) == Search(first, second, position), "SearchSubString");
    Require(other.SearchSubString(text, 0, 1) == Search(second, first, 0), "SearchSubString from the start");
    Require(text.SearchSubString(other, 0, 2) == -1, "there is one mode");

    KELUnicodeString appended(text);
    Require(IsSame(appended.Append(other), first + second), "Append");
    KELUnicodeString inserted(text);
    std::string expected = first;
    expected.insert(starts[static_cast<std::size_t>(std::clamp(position, 0, static_cast<int>(starts.size()) - 1))],
                    second);
    Require(IsSame(inserted.Insert(position, other), expected), "Insert");
    Require(IsSame(text, first), "copies are changed alone");
    return 0;
}
