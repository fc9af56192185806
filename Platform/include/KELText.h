#ifndef KELText_H
#define KELText_H

#include "KELReferenceCount.h"
#include "KELTypes.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

/// Immutable UTF-8 text with its measures, which the strings that show it share.
///
/// Made at run time by `KELUnicodeString` alone, or at compile time from a literal. A literal's text is immortal: it
/// needs no start-up and no counting, and strings can show it from any static initialiser to the last destructor.
class KELText {
public:
    /// Number of characters (code points; an ill-formed byte is one character) and hash of a text.
    struct Measures {
        KELUINT32 hash;
        int characters;
    };

    /// An immortal text. The literal stays where it is.
    template <std::size_t N>
    constexpr explicit KELText(const char (&iLiteral)[N]) noexcept
        : m_bytes(iLiteral), m_length(static_cast<int>(N - 1)), m_measures(Measure(iLiteral, N - 1)),
          m_references(KELReferenceCount::Immortal())
    {
    }

    KELText(const KELText&) = delete;
    KELText& operator=(const KELText&) = delete;
    ~KELText() = default;

    constexpr const char* Bytes() const noexcept { return m_bytes; }
    constexpr int Length() const noexcept { return m_length; }
    constexpr int Characters() const noexcept { return m_measures.characters; }
    constexpr KELUINT32 Hash() const noexcept { return m_measures.hash; }

    /// Number of bytes of the character at iText, which has iRemaining (at least 1) bytes left.
    static constexpr std::size_t CharacterLength(const char* iText, std::size_t iRemaining) noexcept;

    /// Whether iLength bytes are the same in both places. In line for the length of names, where calling would cost
    /// more than comparing.
    static bool AreSame(const char* iOne, const char* iOther, std::size_t iLength) noexcept;

    static constexpr Measures Measure(const char* iText, std::size_t iLength) noexcept
    {
        return {Hash(iText, iLength), Count(iText, iLength)};
    }

private:
    friend class KELUnicodeString;

    /// A text with one holder, whose bytes lie behind it in the same allocation.
    KELText(const char* iBytes, std::size_t iLength) noexcept
        : m_bytes(iBytes), m_length(static_cast<int>(iLength)), m_measures(Measure(iBytes, iLength)), m_references(1)
    {
    }

    template <class Word>
    static bool StartSame(const char* iOne, const char* iOther) noexcept
    {
        Word one;
        Word other;
        std::memcpy(&one, iOne, sizeof(Word));
        std::memcpy(&other, iOther, sizeof(Word));
        return one == other;
    }

    static constexpr std::uint8_t Byte(char iByte) noexcept { return static_cast<std::uint8_t>(iByte); }
    static constexpr bool IsTrail(char iByte) noexcept { return (Byte(iByte) & 0xC0U) == 0x80U; }
    static constexpr int Count(const char* iText, std::size_t iLength) noexcept;
    static constexpr KELUINT32 Hash(const char* iText, std::size_t iLength) noexcept;

    const char* m_bytes;
    int m_length;
    Measures m_measures;
    mutable KELReferenceCount m_references;
};

constexpr std::size_t KELText::CharacterLength(const char* iText, std::size_t iRemaining) noexcept
{
    const std::uint8_t lead = Byte(iText[0]);
    std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
    if (length == 1 || length > iRemaining) {
        return 1;
    }
    // What follows these four leads is narrowed, against overlong forms, surrogates and values beyond U+10FFFF.
    const std::uint8_t second = Byte(iText[1]);
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) || (lead == 0xF0 && second < 0x90) ||
        (lead == 0xF4 && second > 0x8F)) {
        return 1;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if (!IsTrail(iText[i])) {
            return 1;
        }
    }
    return length;
}

constexpr int KELText::Count(const char* iText, std::size_t iLength) noexcept
{
    int characters = 0;
    for (std::size_t i = 0; i < iLength; ++characters) {
        i += Byte(iText[i]) < 0x80 ? 1 : CharacterLength(iText + i, iLength - i);
    }
    return characters;
}

constexpr KELUINT32 KELText::Hash(const char* iText, std::size_t iLength) noexcept
{
    constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = iLength * kMultiplier;
    while (iLength > 0) {
        std::uint64_t word = 0;
        const std::size_t taken = iLength < 8 ? iLength : 8;
        for (std::size_t i = 0; i < taken; ++i) {
            word |= static_cast<std::uint64_t>(Byte(iText[i])) << (8 * i);
        }
        hash = (hash ^ word) * kMultiplier;
        hash ^= hash >> 32U;
        iText += taken;
        iLength -= taken;
    }
    return static_cast<KELUINT32>(hash ^ (hash >> 17U));
}

inline bool KELText::AreSame(const char* iOne, const char* iOther, std::size_t iLength) noexcept
{
    using Word = std::uint64_t;
    using HalfWord = std::uint32_t;
    constexpr std::size_t kLongest = 8 * sizeof(Word);
    if (iLength < sizeof(HalfWord) || iLength > kLongest) {
        return std::memcmp(iOne, iOther, iLength) == 0;
    }
    if (iLength < sizeof(Word)) { // two half words, which may overlap
        const std::size_t last = iLength - sizeof(HalfWord);
        return StartSame<HalfWord>(iOne, iOther) && StartSame<HalfWord>(iOne + last, iOther + last);
    }
    const std::size_t last = iLength - sizeof(Word); // the last word may overlap the one before
    for (std::size_t i = 0; i < last; i += sizeof(Word)) {
        if (!StartSame<Word>(iOne + i, iOther + i)) {
            return false;
        }
    }
    return StartSame<Word>(iOne + last, iOther + last);
}

#endif
