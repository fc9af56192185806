#include "StringModel.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

// An empty text, texts of letters, the code points at the bounds of each form, and what is overlong, cut short, a
// surrogate or beyond the last. Then texts about as long as a string holds inside, whose ends can be parts of a
// character.
std::vector<std::string> OddTexts()
{
    std::istringstream texts(" a A ab aab abc bc abcabc text texs 12345678 \xC3\xA9\xC3\xA9x \xC3\xA9\xA9 caf\xC3\xA9 "
                             "\xA9\xA9 \xC3\xA9\xA9\xA9 \xC2\x80 \xE0\xA0\x80 \xE2\x82\xAC \xED\x9F\xBF \xEE\x80\x80 "
                             "\xEF\xBF\xBD \xF0\x90\x80\x80 \xF4\x8F\xBF\xBF a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z "
                             "\xC3 \xC3z \xC0\xAF \xC1\xBF \xE2\x82 \xE2\x82z \xE0\x9F\xBF \xED\xA0\x80 \xF0\x9F\x98 "
                             "\xF0\x8F\xBF\xBF \xF4\x90\x80\x80 \xF5\x80\x80\x80 \xFF\xFE");
    std::vector<std::string> all = {std::string("a\0b", 3)};
    for (std::string text; std::getline(texts, text, ' ');) {
        all.push_back(text);
    }
    for (std::size_t length = 24; length <= 26; ++length) {
        for (const std::string end : {"", "\xC3", "\xF0\x9F\x98"}) {
            all.push_back(std::string(length - end.size(), 'x') + end);
        }
        std::string characters;
        while (characters.size() < 2 * length) {
            characters += "\xC3\xA9";
        }
        all.push_back(characters);
    }
    return all;
}

TEST(KELUnicodeString, AgreesWithTheModel)
{
    const std::vector<std::string> texts = OddTexts();
    for (const std::string& first : texts) {
        for (const std::string& second : texts) {
            EXPECT_EQ(Show(first).ComputeHashKey() == Show(second).ComputeHashKey(), first == second);
            for (const int position : {-1, 0, 1, 25, 99}) {
                EXPECT_STREQ(DifferenceFromModel(first, second, position), "")
                    << ::testing::PrintToString(first) << ::testing::PrintToString(second) << position;
            }
        }
    }
    EXPECT_EQ(KELUnicodeString(nullptr), KELUnicodeString());
    const KELUnicodeString texts32[][2] = {{"rate73436", "rate73804"}, {"rate31162", "frame59897"}};
    for (const auto& [one, other] : texts32) {
        ASSERT_EQ(one.ComputeHashKey(), other.ComputeHashKey()) << "another hash needs other texts";
        EXPECT_TRUE(one != other && one.Compare(other) != 2);
    }
}

TEST(KELUnicodeString, FindsLongTexts)
{
    std::string text;
    for (int i = 0; i < 150; ++i) {
        text += i % 7 == 0 ? "\xC3\xA9" : i % 50 == 0 ? "abab\xC3" : "ab";
    }
    for (std::size_t start = 0; start < text.size(); start += 11) {
        for (const char* const end : {"", "ab", "\xA9"}) {
            const std::string wanted = text.substr(start, 1 + start * 7 % 150) + end;
            EXPECT_STREQ(DifferenceFromModel(text, wanted, static_cast<int>(start / 3)), "") << wanted;
        }
    }
}

} // namespace
