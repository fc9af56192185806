#ifndef KELText_H
#define KELText_H

#include "KELReferenceCount.h"
#include "KELTypes.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

/// Immutable UTF-8 text with its measures, which the strings that show it share. The bytes lie behind it.
///
/// Made at run time by `KELUnicodeString` alone, or at compile time as a `KELLiteralText`.
class KELText {
public:
    /// Number of characters (code points; an ill-formed byte is one character) and hash of a text.
    struct Measures {
        KELUINT32 hash;
        int characters;
    };

    KELText(const KELText&) = delete;
    KELText& operator=(const KELText&) = delete;
    ~KELText() = default;

    const char* Bytes() const noexcept { return reinterpret_cast<const char*>(this + 1); }
    constexpr int Length() const noexcept { return m_length; }
    constexpr int Characters() const noexcept { return m_measures.characters; }
    constexpr KELUINT32 Hash() const noexcept { return m_measures.hash; }

    /// Number of bytes of the character at iText, which has iRemaining (at least 1) bytes left.
    static constexpr std::size_t CharacterLength(const char* iText, std::size_t iRemaining) noexcept;

    /// Whether both texts have the same bytes. In line, because calling would cost more than comparing a name.
    bool IsSame(const KELText& iOther) const noexcept;

    /// Bytes to keep for a text of iLength bytes: whole words, so that texts are compared word by word. What follows
    /// the bytes is zero.
    static constexpr std::size_t Room(std::size_t iLength) noexcept
    {
        return (iLength + sizeof(Word)) / sizeof(Word) * sizeof(Word);
    }

    static constexpr Measures Measure(const char* iText, std::size_t iLength) noexcept
    {
        return {Hash(iText, iLength), Count(iText, iLength)};
    }

protected:
    /// An immortal text.
    constexpr KELText(const char* iBytes, std::size_t iLength, KELReferenceCount::Immortal iCount) noexcept
        : m_length(static_cast<int>(iLength)), m_measures(Measure(iBytes, iLength)), m_references(iCount)
    {
    }

private:
    friend class KELUnicodeString;

    /// A text with one holder. iBytes is the place behind it, where the bytes are already.
    KELText(const char* iBytes, std::size_t iLength) noexcept
        : m_length(static_cast<int>(iLength)), m_measures(Measure(iBytes, iLength)), m_references(1)
    {
    }

    using Word = std::uint64_t;

    static Word WordAt(const char* iBytes) noexcept
    {
        Word word;
        std::memcpy(&word, iBytes, sizeof(word));
        return word;
    }

    static constexpr std::uint8_t Byte(char iByte) noexcept { return static_cast<std::uint8_t>(iByte); }
    static constexpr bool IsTrail(char iByte) noexcept { return (Byte(iByte) & 0xC0U) == 0x80U; }
    static constexpr int Count(const char* iText, std::size_t iLength) noexcept;
    static constexpr KELUINT32 Hash(const char* iText, std::size_t iLength) noexcept;

    int m_length;
    Measures m_measures;
    mutable KELReferenceCount m_references;
};

/// A text from a literal. It is immortal: it needs no start-up and no counting, and strings can show it from any static
/// initialiser to the last destructor.
/// \tparam Size what `KELText::Room` gives for the literal, or more
template <std::size_t Size>
class KELLiteralText : public KELText {
public:
    template <std::size_t N>
    constexpr explicit KELLiteralText(const char (&iLiteral)[N]) noexcept
        : KELText(iLiteral, N - 1, KELReferenceCount::Immortal())
    {
        static_assert(Room(N - 1) <= Size && sizeof(KELLiteralText) == sizeof(KELText) + Size);
        for (std::size_t i = 0; i < N; ++i) {
            m_literal[i] = iLiteral[i];
        }
    }

private:
    char m_literal[Size] = {};
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

inline bool KELText::IsSame(const KELText& iOther) const noexcept
{
    if (m_length != iOther.m_length) {
        return false;
    }
    const char* one = Bytes();
    const char* other = iOther.Bytes();
    for (const char* const end = one + m_length; one < end; one += sizeof(Word), other += sizeof(Word)) {
        if (WordAt(one) != WordAt(other)) {
            return false;
        }
    }
    return true;
}

#endif
