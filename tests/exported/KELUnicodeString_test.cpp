#include "KELUnicodeString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <sstream>
#include <vector>

namespace {

/// A text as the list of its characters. A byte that is no part of a well-formed character is one itself.
using Characters = std::vector<std::string>;

// Letters that begin again, the characters at the bounds of each form, and bytes that are cut short, overlong, a
// surrogate or beyond the last character.
std::istringstream g_words(
    "a a b a a b a a a b \x7F \xC2\x80 \xDF\xBF \xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBF \xF0\x90\x80\x80 "
    "\xF4\x8F\xBF\xBF \xC3\xA9 \xA9 \xC3 z \xE2 \x82 z \xF0 \x9F \x98 z \xC0 \xAF \xC1 \xBF \xE0 \x9F \xBF \xED "
    "\xA0 \x80 \xF0 \x8F \xBF \xBF \xF4 \x90 \x80 \x80 \xF5 \x80 \x80 \x80 \xFF \xFE \xE2\x82\xAC \xF0\x9F\x98\x80");
const Characters g_all(std::istream_iterator<std::string>(g_words), {});

Characters Part(std::size_t iStart, std::size_t iCount)
{
    Characters part;
    while (part.size() < iCount) {
        part.push_back(g_all[iStart++ % g_all.size()]);
    }
    return part;
}

std::string Joined(const Characters& iText)
{
    return std::accumulate(iText.begin(), iText.end(), std::string());
}

KELUnicodeString Show(const std::string& iText)
{
    const std::string longer = iText + "\x80 of a longer text";
    return KELUnicodeString(longer.data(), iText.size());
}

/// Whether a string is as if it had been made of the text at once.
bool IsSame(const KELUnicodeString& iReal, const std::string& iText)
{
    return iReal == Show(iText) && iReal.ComputeHashKey() == Show(iText).ComputeHashKey() &&
           iReal.ConvertToChar() == std::string(iText.c_str()) && iReal.LengthInBytes() == iText.size() &&
           iReal.GetLengthInChar() == Show(iText).GetLengthInChar();
}

TEST(KELUnicodeString, CountsAndCompares)
{
    std::vector<std::string> texts = {std::string("a\0b", 3), std::string("a\0c", 3), std::string(39, 'a') + "b",
                                      std::string(40, 'a')};
    for (std::size_t start = 0; start < g_all.size(); ++start) {
        for (std::size_t count = 0; count <= 27; ++count) {
            const std::string text = Joined(Part(start, count));
            EXPECT_TRUE(IsSame(Show(text), text) && Show(text).GetLengthInChar() == static_cast<int>(count)) << text;
            count % 13 < 2 ? texts.push_back(text) : void();
        }
    }
    for (const std::string& first : texts) {
        for (const std::string& second : texts) {
            const bool isSame = first == second;
            EXPECT_EQ(Show(first).Compare(Show(second)), isSame ? 2 : first < second ? 0 : 1) << first << ' ' << second;
            EXPECT_TRUE((Show(first) == Show(second)) == isSame && (Show(first) != Show(second)) != isSame);
            EXPECT_EQ(Show(first).ComputeHashKey() == Show(second).ComputeHashKey(), isSame) << first << ' ' << second;
        }
    }
    EXPECT_THROW(KELUnicodeString("", std::size_t{1} << 31U), std::bad_alloc);
    EXPECT_EQ(Show("rate73436").ComputeHashKey(), Show("rate73804").ComputeHashKey()) << "random use needs other names";
}

// A string grows in place or anew, by parts of characters too, and what shares its text stays as it was.
TEST(KELUnicodeString, IsTheSameHoweverItIsPutTogether)
{
    for (std::size_t start = 0; start < g_all.size(); ++start) {
        const std::string all = Joined(Part(start, 40));
        for (std::size_t first = 0; first <= 27; ++first) {
            for (std::size_t second = 0; second <= 27; second += 1 + start % 3) {
                const std::string head = all.substr(0, first);
                const std::string middle = all.substr(first, second);
                const std::string half = head + middle + "b" + middle;
                KELUnicodeString text = Show(head);
                KELUnicodeString other = text;
                text.Append(Show(middle));
                const KELUnicodeString shared = text;
                EXPECT_TRUE(IsSame(text.Append("b"), head + middle + "b")) << first << ' ' << second << ' ' << all;
                text.Append(Show(middle)).Append(text);
                text = std::as_const(text);
                EXPECT_TRUE(IsSame(text, half + half) && IsSame(text.Append("c"), half + half + "c") &&
                            IsSame(text.Append("d"), half + half + "cd") && IsSame(shared, head + middle) &&
                            IsSame(other.Append(Show(middle), "c"), head + middle + "c"));
            }
        }
    }
}

TEST(KELUnicodeString, InsertsAndFindsAtCharacters)
{
    for (std::size_t start = 0; start < g_all.size(); ++start) {
        const Characters text = Part(start, start % 2 == 0 ? 9 : 27);
        const KELUnicodeString real = Show(Joined(text));
        for (const Characters& part :
             {Characters{}, {"a"}, Part(3, 7), {"\xC3"}, {"\xA9"}, {{'\0'}}, Part(start + 2, 2)}) {
            for (int position = -1; position <= static_cast<int>(text.size()) + 1; ++position) {
                const auto offset = std::clamp<std::ptrdiff_t>(position, 0, std::ssize(text));
                const auto found = std::search(text.begin() + offset, text.end(), part.begin(), part.end());
                const bool isFound = offset == position && (found != text.end() || part.empty());
                EXPECT_EQ(real.SearchSubString(Show(Joined(part)), position, 1), isFound ? found - text.begin() : -1);
                EXPECT_EQ(real.SearchSubString(Show(Joined(part)), position, 2), -1) << "another mode";
                Characters inserted = text;
                inserted.insert(inserted.begin() + offset, part.begin(), part.end());
                EXPECT_TRUE(IsSame(KELUnicodeString(real).Insert(position, Show(Joined(part))), Joined(inserted)));
            }
        }
    }
}

} // namespace
