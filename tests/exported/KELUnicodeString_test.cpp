#include "KELUnicodeString.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

TEST(KELUnicodeString, CountsCodePointsAndIllFormedBytes)
{
    struct Case {
        const char* bytes;
        int characters;
    };
    const Case cases[] = {
        {"", 0},
        {"abc", 3},
        {"\xC3\xA9", 1},
        {"\xE2\x82\xAC", 1},
        {"\xF0\x9F\x98\x80", 1},
        {"a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z", 5},
        {"\x80", 1},
        {"\xC3", 1},
        {"\xC3z", 2},
        {"\xC0\xAF", 2}, // overlong
        {"\xC1\xBF", 2}, // overlong
        {"\xC2\x80", 1},
        {"\xE0\x9F\xBF", 3}, // overlong
        {"\xE0\xA0\x80", 1},
        {"\xED\x9F\xBF", 1},
        {"\xED\xA0\x80", 3}, // surrogate
        {"\xEE\x80\x80", 1},
        {"\xF0\x8F\xBF\xBF", 4}, // overlong
        {"\xF0\x90\x80\x80", 1},
        {"\xF4\x8F\xBF\xBF", 1},
        {"\xF4\x90\x80\x80", 4}, // beyond the last code point
        {"\xF5\x80\x80\x80", 4},
        {"\xE2\x82", 2}, // cut short
        {"\xE2\x82z", 3},
        {"\xF0\x9F\x98", 3},
        {"\xFF\xFE", 2},
    };
    for (const Case& c : cases) {
        const KELUnicodeString text(c.bytes);
        EXPECT_EQ(text.GetLengthInChar(), c.characters) << c.bytes;
        EXPECT_STREQ(text.ConvertToChar(), c.bytes);
    }
    EXPECT_EQ(KELUnicodeString(nullptr), KELUnicodeString());
    EXPECT_STREQ(KELUnicodeString().ConvertToChar(), "");
}

TEST(KELUnicodeString, ComparesExactlyAndSortsByCodePoint)
{
    const char* const sorted[] = {"", "A", "AB", "B", "a", "\xC3\xA9", "\xEF\xBF\xBD", "\xF0\x9F\x98\x80"};
    for (const char* const& left : sorted) {
        for (const char* const& right : sorted) {
            const KELUnicodeString one(left);
            const KELUnicodeString other(right);
            EXPECT_EQ(one.Compare(other), &left == &right ? 2 : &left < &right ? 0 : 1) << left << " " << right;
            EXPECT_EQ(one == other, &left == &right);
            EXPECT_EQ(one != other, &left != &right);
        }
    }
    const KELUnicodeString text("text");
    EXPECT_EQ(text.ComputeHashKey(), KELUnicodeString("text").ComputeHashKey());
    EXPECT_NE(text.ComputeHashKey(), KELUnicodeString("texs").ComputeHashKey());
    EXPECT_NE(KELUnicodeString("12345678").ComputeHashKey(), KELUnicodeString("123456789").ComputeHashKey());
}

TEST(KELUnicodeString, AppendAndInsertLeaveOtherHoldersAlone)
{
    KELUnicodeString text("caf\xC3\xA9");
    const KELUnicodeString shared(text);
    EXPECT_EQ(&text.Append("!"), &text);
    EXPECT_EQ(text, KELUnicodeString("caf\xC3\xA9!"));
    EXPECT_EQ(shared, KELUnicodeString("caf\xC3\xA9"));
    text.Append(text);
    EXPECT_EQ(text, KELUnicodeString("caf\xC3\xA9!caf\xC3\xA9!"));
    text.Append(KELUnicodeString());
    EXPECT_EQ(text.GetLengthInChar(), 10);

    struct Case {
        int position;
        const char* result;
    };
    for (const Case& c : {Case{0, "_caf\xC3\xA9"}, Case{3, "caf_\xC3\xA9"}, Case{4, "caf\xC3\xA9_"},
                          Case{-1, "_caf\xC3\xA9"}, Case{99, "caf\xC3\xA9_"}}) {
        KELUnicodeString inserted(shared);
        EXPECT_EQ(inserted.Insert(c.position, "_"), KELUnicodeString(c.result)) << c.position;
    }
    KELUnicodeString half("\xC3");
    half.Append("\xA9");
    EXPECT_EQ(half.GetLengthInChar(), 1) << "two bytes that meet make a character";
    KELUnicodeString ascii("abcd");
    EXPECT_EQ(ascii.Insert(2, "_"), KELUnicodeString("ab_cd"));
    EXPECT_EQ(KELUnicodeString().Insert(5, "x"), KELUnicodeString("x"));
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
    EXPECT_EQ(copy.ConvertToChar(), text.ConvertToChar());
    KELUnicodeString assigned("other");
    assigned = copy;
    EXPECT_EQ(assigned.ConvertToChar(), text.ConvertToChar());
    const KELUnicodeString& alias = assigned;
    assigned = alias;
    EXPECT_EQ(assigned, text);
    const KELUnicodeString moved(std::move(copy));
    copy = KELUnicodeString("again");
    EXPECT_EQ(moved, text);
    text = KELUnicodeString();
    EXPECT_STREQ(moved.ConvertToChar(), "some text") << "kept by its last holders";
    EXPECT_EQ(KELUnicodeString("a\0b", 3).GetLengthInChar(), 3);
}

} // namespace
