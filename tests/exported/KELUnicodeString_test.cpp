#include "KELUnicodeString.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

TEST(KELUnicodeString, CountsCodePointsAndIllFormedBytes)
{
    // For each number of characters, texts that have it.
    const std::vector<const char*> texts[] = {
        {""},
        {"\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\x80", "\xC3", "\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF",
         "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"},
        {"\xC3z", "\xC0\xAF", "\xC1\xBF", "\xE2\x82", "\xFF\xFE"},            // overlong and cut short
        {"abc", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xE2\x82z", "\xF0\x9F\x98"}, // overlong, surrogate, cut short
        {"\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80"},         // overlong, beyond the last
        {"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z"},
    };
    for (int characters = 0; characters < 6; ++characters) {
        for (const char* bytes : texts[characters]) {
            const KELUnicodeString text(bytes);
            EXPECT_EQ(text.GetLengthInChar(), characters) << ::testing::PrintToString(bytes);
            EXPECT_STREQ(text.ConvertToChar(), bytes);
        }
    }
    EXPECT_EQ(KELUnicodeString(nullptr), KELUnicodeString());
    EXPECT_EQ(KELUnicodeString("a\0b", 3).GetLengthInChar(), 3);
}

TEST(KELUnicodeString, ComparesExactlyAndSortsByCodePoint)
{
    const char* const sorted[] = {"",  "12345678", "123456789", "A",        "AB",           "B",
                                  "a", "texs",     "text",      "\xC3\xA9", "\xEF\xBF\xBD", "\xF0\x9F\x98\x80"};
    for (const char* const& left : sorted) {
        for (const char* const& right : sorted) {
            const KELUnicodeString one(left);
            const KELUnicodeString other(right);
            EXPECT_EQ(one.Compare(other), &left == &right ? 2 : &left < &right ? 0 : 1) << left << " " << right;
            EXPECT_EQ(one == other, &left == &right);
            EXPECT_EQ(one != other, &left != &right);
            EXPECT_EQ(one.ComputeHashKey() == other.ComputeHashKey(), &left == &right);
        }
    }
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

TEST(KELUnicodeString, AppendAndInsertLeaveOtherHoldersAlone)
{
    KELUnicodeString text("caf\xC3\xA9");
    const KELUnicodeString shared(text);
    EXPECT_EQ(&text.Append("!"), &text);
    text.Append(text).Append(KELUnicodeString());
    EXPECT_STREQ(text.ConvertToChar(), "caf\xC3\xA9!caf\xC3\xA9!");
    EXPECT_STREQ(shared.ConvertToChar(), "caf\xC3\xA9");
    struct Case {
        const char* text;
        int position;
        const char* added;
        const char* result;
    };
    for (const Case& c : {Case{"caf\xC3\xA9", 0, "_", "_caf\xC3\xA9"}, Case{"caf\xC3\xA9", 3, "_", "caf_\xC3\xA9"},
                          Case{"caf\xC3\xA9", 4, "_", "caf\xC3\xA9_"}, Case{"caf\xC3\xA9", -1, "_", "_caf\xC3\xA9"},
                          Case{"\xC3\xA9x", 1, "_", "\xC3\xA9_x"}, Case{"abcd", 2, "_", "ab_cd"},
                          Case{"abcd", 99, "_", "abcd_"}, Case{"", 5, "x", "x"}, Case{"\xC3", 1, "\xA9", "\xC3\xA9"}}) {
        KELUnicodeString inserted(c.text);
        EXPECT_EQ(inserted.Insert(c.position, c.added), KELUnicodeString(c.result)) << c.result;
        EXPECT_EQ(inserted.GetLengthInChar(), KELUnicodeString(c.result).GetLengthInChar());
    }
}

TEST(KELUnicodeString, SearchFindsWholeCharacters)
{
    struct Case {
        const char* text;
        const char* wanted;
        int start;
        int position;
    };
    const Case cases[] = {
        {"abcabc", "bc", 0, 1},
        {"abcabc", "bc", 1, 1},
        {"abcabc", "bc", 2, 4},
        {"abcabc", "bc", 5, -1},
        {"aab", "ab", 0, 1},
        {"abc", "", 1, 1},
        {"abc", "", 3, 3},
        {"abc", "", 4, -1},
        {"abc", "a", -1, -1},
        {"", "a", 0, -1},
        {"\xC3\xA9\xC3\xA9x", "x", 0, 2},
        {"\xC3\xA9\xC3\xA9x", "\xC3\xA9", 1, 1},
        {"\xC3\xA9x", "\xC3", 0, -1},   // the first half of a character
        {"\xC3\xA9x", "\xA9", 0, -1},   // the second half
        {"\xC3\xA9\xA9", "\xA9", 0, 1}, // a stray byte behind one
        {"\xC3\xA9\xC3", "\xC3", 0, 1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(KELUnicodeString(c.text).SearchSubString(c.wanted, c.start, 1), c.position)
            << c.text << " " << c.wanted;
    }
    EXPECT_EQ(KELUnicodeString("abc").SearchSubString("a", 0, 2), -1);
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
    text = copy = assigned = KELUnicodeString();
    EXPECT_STREQ(moved.ConvertToChar(), "some text") << "kept by its last holder";
}

} // namespace
