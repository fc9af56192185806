// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELText_H
#define KELText_H

/// \file
/// What is known of the bytes of a text, and the text that strings share.

#include "KELReferenceCount.h"
#include "KELTypes.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "KELUnicodeString reads its bytes as little-endian words: big-endian machines are not supported"
#endif

/// Characters and hashes of UTF-8 bytes.
///
/// A character is a code point. A byte that is not part of a well-formed character is a character by itself.
struct KELUtf8 {
    using Word = std::uint64_t;

    static constexpr Word kHashMultiplier = 0x9E3779B97F4A7C15U;

    static constexpr std::uint8_t Byte(char iByte) noexcept { return static_cast<std::uint8_t>(iByte); }

    /// Whether the byte continues a character.
    static constexpr bool IsTrail(char iByte) noexcept { return (Byte(iByte) & 0xC0U) == 0x80U; }

    /// Number of bytes of the character at iText, which has iRemaining (at least 1) bytes left.
    static constexpr std::size_t CharacterLength(const char* iText, std::size_t iRemaining) noexcept;

    /// Number of characters. Linear.
    static constexpr int Count(const char* iText, std::size_t iLength) noexcept;

    /// Number of bytes at the end that are characters by themselves and may become one character with what follows.
    static std::size_t IncompleteTail(const char* iText, std::size_t iLength) noexcept;

    /// Whether a character starts at iOffset, which may be the end of the text.
    static bool IsBoundary(const char* iText, std::size_t iLength, std::size_t iOffset) noexcept;

    /// The hash of a text whose words `iWordAt(i)` gives, the last one filled up with zeros.
    template <class WordAt>
    static constexpr KELUINT32 Hash(std::size_t iLength, const WordAt& iWordAt) noexcept
    {
        Word hash = iLength * kHashMultiplier;
        for (std::size_t i = 0; i * sizeof(Word) < iLength; ++i) {
            hash = (hash ^ iWordAt(i)) * kHashMultiplier;
            hash ^= hash >> 32U;
        }
        return static_cast<KELUINT32>(hash ^ (hash >> 17U));
    }

    static KELUINT32 Hash(const char* iText, std::size_t iLength) noexcept
    {
        return Hash(iLength, [iText, iLength](std::size_t iIndex) {
            const std::size_t left = iLength - iIndex * sizeof(Word);
            Word word = 0;
            std::memcpy(&word, iText + iIndex * sizeof(Word), left < sizeof(Word) ? left : sizeof(Word));
            return word;
        });
    }
};

/// A text that is too long to lie inside a string, which strings share and count. Its bytes lie behind it, with room to
/// grow.
///
/// Changed by its only holder alone; of a shared one only the hash is ever written, and by every thread alike.
class KELText {
public:
    KELText(const KELText&) = delete;
    KELText& operator=(const KELText&) = delete;
    ~KELText() = default;

    const char* Bytes() const noexcept { return reinterpret_cast<const char*>(this + 1); }
    std::size_t Length() const noexcept { return m_length; }
    int Characters() const noexcept { return m_characters; }

    /// Computed when first asked for; linear then.
    KELUINT32 Hash() const noexcept
    {
        KELUINT32 hash = m_hash.load(std::memory_order_relaxed);
        if (hash == 0) {
            hash = KELUtf8::Hash(Bytes(), m_length);
            m_hash.store(hash, std::memory_order_relaxed);
        }
        return hash;
    }

private:
    friend class KELUnicodeString;

    explicit KELText(KELUINT32 iCapacity) noexcept : m_capacity(iCapacity) {}

    char* Bytes() noexcept { return reinterpret_cast<char*>(this + 1); }

    mutable KELReferenceCount m_holders{1};
    mutable std::atomic<KELUINT32> m_hash{0}; // 0 until it has been asked for
    KELUINT32 m_length = 0;                   // in bytes, without the terminating zero
    KELUINT32 m_capacity;                     // for bytes, the terminating zero not counted
    int m_characters = 0;
};

constexpr std::size_t KELUtf8::CharacterLength(const char* iText, std::size_t iRemaining) noexcept
{
    const std::uint8_t lead = Byte(iText[0]);
    const std::size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
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

constexpr int KELUtf8::Count(const char* iText, std::size_t iLength) noexcept
{
    int characters = 0;
    for (std::size_t i = 0; i < iLength; ++characters) {
        i += Byte(iText[i]) < 0x80 ? 1 : CharacterLength(iText + i, iLength - i);
    }
    return characters;
}

#endif
