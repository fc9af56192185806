// Compares KELUnicodeString with texts that are lists of characters.

#include "FuzzInput.h"
#include "KELUnicodeString.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Characters = std::vector<std::string>;

// The UTF-8 of a code point; empty for a number that is none.
std::string Encode(unsigned int iPoint)
{
    const auto byte = [](unsigned int iByte) { return static_cast<char>(iByte); };
    const auto trail = [byte, iPoint](unsigned int iShift) { return byte(0x80U | ((iPoint >> iShift) & 0x3FU)); };
    if (iPoint > 0x10FFFF || (iPoint >= 0xD800 && iPoint <= 0xDFFF)) {
        return {};
    }
    if (iPoint < 0x80) {
        return {byte(iPoint)};
    }
    if (iPoint < 0x800) {
        return {byte(0xC0U | (iPoint >> 6U)), trail(0)};
    }
    if (iPoint < 0x10000) {
        return {byte(0xE0U | (iPoint >> 12U)), trail(6), trail(0)};
    }
    return {byte(0xF0U | (iPoint >> 18U)), trail(12), trail(6), trail(0)};
}

// What starts here and is what some code point encodes to, else one byte.
std::string FirstCharacter(const std::string& iText)
{
    static constexpr unsigned int kBitsOfLead[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    for (std::size_t length = 1; length <= std::min<std::size_t>(4, iText.size()); ++length) {
        unsigned int point = static_cast<unsigned char>(iText[0]) & kBitsOfLead[length];
        for (std::size_t i = 1; i < length; ++i) {
            point = point << 6U | (static_cast<unsigned char>(iText[i]) & 0x3FU);
        }
        if (Encode(point) == iText.substr(0, length)) {
            return iText.substr(0, length);
        }
    }
    return iText.substr(0, 1);
}

Characters Split(std::string iText)
{
    Characters characters;
    while (!iText.empty()) {
        characters.push_back(FirstCharacter(iText));
        iText.erase(0, characters.back().size());
    }
    return characters;
}

std::string Join(const Characters& iCharacters, std::size_t iFirst, std::size_t iEnd)
{
    std::string text;
    for (std::size_t i = iFirst; i < iEnd; ++i) {
        text += iCharacters[i];
    }
    return text;
}

int Search(const Characters& iText, const std::string& iWanted, int iStart)
{
    for (std::size_t first = static_cast<std::size_t>(iStart); iStart >= 0 && first <= iText.size(); ++first) {
        std::size_t end = first;
        std::string found;
        while (end < iText.size() && found.size() < iWanted.size()) {
            found += iText[end++];
        }
        if (found == iWanted) {
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
           iReal.GetLengthInChar() == static_cast<int>(Split(iText).size());
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
    const Characters characters = Split(first);
    const KELUnicodeString text = Show(first);
    const KELUnicodeString other = Show(second);

    Require(IsSame(text, first) && IsSame(other, second), "a string shows its text");
    const int order = first == second ? 2 : first < second ? 0 : 1;
    Require(text.Compare(other) == order, "Compare");
    Require((text == other) == (order == 2) && (text != other) == (order != 2), "operator==");
    Require(text.SearchSubString(other, position, 1) == Search(characters, second, position), "SearchSubString");
    Require(other.SearchSubString(text, 0, 1) == Search(Split(second), first, 0), "SearchSubString from the start");
    Require(text.SearchSubString(other, 0, 2) == -1, "there is one mode");

    KELUnicodeString appended(text);
    Require(IsSame(appended.Append(other), first + second), "Append");
    KELUnicodeString inserted(text);
    const auto place = static_cast<std::size_t>(std::clamp(position, 0, static_cast<int>(characters.size())));
    Require(IsSame(inserted.Insert(position, other),
                   Join(characters, 0, place) + second + Join(characters, place, characters.size())),
            "Insert");
    Require(IsSame(text, first), "copies are changed alone");
    return 0;
}
