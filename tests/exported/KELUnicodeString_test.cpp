#include "KELUnicodeString.h"

#include "StringModel.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

// An empty text, texts of letters, the code points at the bounds of each form, and what is overlong, cut short, a
// surrogate or beyond the last.
std::vector<std::string> OddTexts()
{
    std::istringstream texts(" a A ab aab abc bc abcabc text texs 12345678 123456789 "
                             "\xC3\xA9 \xC3\xA9\xC3\xA9x \xC3\xA9\xA9 \xC3\xA9\xC3 caf\xC3\xA9 \xA9\xA9 "
                             "\xC3\xA9\xA9\xA9 \xC2\x80 \xE0\xA0\x80 "
                             "\xE2\x82\xAC \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBD \xF0\x90\x80\x80 \xF4\x8F\xBF\xBF "
                             "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z \x80 \xC3 \xC3z \xC0\xAF \xC1\xBF \xE2\x82 "
                             "\xE2\x82z \xE0\x9F\xBF \xED\xA0\x80 \xF0\x9F\x98 \xF0\x8F\xBF\xBF \xF4\x90\x80\x80 "
                             "\xF5\x80\x80\x80 \xFF\xFE");
    std::vector<std::string> all;
    for (std::string text; std::getline(texts, text, ' ');) {
        all.push_back(text);
    }
    return all;
}

TEST(KELUnicodeString, AgreesWithTheModel)
{
    const std::vector<std::string> texts = OddTexts();
    for (const std::string& first : texts) {
        for (const std::string& second : texts) {
            EXPECT_EQ(Show(first).ComputeHashKey() == Show(second).ComputeHashKey(), first == second);
            for (const int position : {-1, 0, 1, 2, 3, 4, 5, 99}) {
                EXPECT_STREQ(DifferenceFromModel(first, second, position), "")
                    << ::testing::PrintToString(first) << ::testing::PrintToString(second) << position;
            }
        }
    }
    EXPECT_EQ(KELUnicodeString("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z").GetLengthInChar(), 5);
    EXPECT_EQ(KELUnicodeString("\xF4\x90\x80\x80").GetLengthInChar(), 4) << "an ill-formed byte is a character";
    EXPECT_EQ(KELUnicodeString("a\0b", 3).GetLengthInChar(), 3);
    EXPECT_EQ(KELUnicodeString(nullptr), KELUnicodeString());
}

TEST(KELUnicodeString, TellsTextsOfOneHashApart)
{
    const KELUnicodeString texts[][2] = {{"rate73436", "rate73804"}, {"rate31162", "frame59897"}};
    for (const auto& [one, other] : texts) {
        ASSERT_EQ(one.ComputeHashKey(), other.ComputeHashKey()) << "another hash needs other texts";
        EXPECT_FALSE(one == other);
        EXPECT_NE(one.Compare(other), 2);
    }
}

TEST(KELUnicodeString, CopiesShareAndMovesTake)
{
    KELUnicodeString text("some text");
    KELUnicodeString copy(text);
    KELUnicodeString assigned("other");
    assigned = copy;
    assigned = std::as_const(assigned);
    EXPECT_EQ(copy.ConvertToChar(), text.ConvertToChar());
    EXPECT_EQ(assigned.ConvertToChar(), text.ConvertToChar());
    const KELUnicodeString moved(std::move(copy));
    EXPECT_EQ(&text.Append(text), &text);
    EXPECT_STREQ(text.ConvertToChar(), "some textsome text");
    text = copy = assigned = KELUnicodeString();
    EXPECT_STREQ(moved.ConvertToChar(), "some text") << "kept by its last holder";
}

} // namespace
