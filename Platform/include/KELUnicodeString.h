#ifndef KELUnicodeString_H
#define KELUnicodeString_H

#include "KELExport.h"
#include "KELHashSalt.h"
#include "KELInline.h"
#include "KELText.h"

#include <cstddef>
#include <cstring>
#include <string_view>

/// The 32 bytes of a string that holds a text of up to 25 bytes, made at compile time from a literal.
///
/// The text and its terminating zeros, then one byte each for the numbers of bytes and characters, then the hash.
class KELShortText {
    using Word = KELUtf8::Word;

public:
    static constexpr std::size_t kLongest = 25; ///< bytes

    constexpr KELShortText() noexcept = default;

    /// A constant; more than 25 bytes do not compile.
    template <std::size_t N>
    constexpr explicit KELShortText(const char (&iLiteral)[N]) noexcept
    {
        static_assert(N - 1 <= kLongest, "too long to lie inside a string");
        for (std::size_t i = 0; i + 1 < N; ++i) {
            m_words[i / 8] |= Word{KELUtf8::Byte(iLiteral[i])} << (i % 8 * 8);
        }
        Seal(N - 1, KELUtf8::Count(iLiteral, N - 1));
    }

    /// Whether both are the same to the bit.
    bool IsSame(const KELShortText& iOther) const noexcept
    {
        const Word* const other = iOther.m_words;
        return m_words[3] == other[3] &&
               ((m_words[0] ^ other[0]) | (m_words[1] ^ other[1]) | (m_words[2] ^ other[2])) == 0;
    }

private:
    friend class KELUnicodeString;

    static constexpr unsigned int kLengthShift = 16;
    static constexpr unsigned int kCharactersShift = 24;
    static constexpr unsigned int kHashShift = 32;

    // Adds the measures to a text that is in place.
    constexpr void Seal(std::size_t iLength, int iCharacters) noexcept
    {
        const Word hash = KELUtf8::Hash(iLength, [this](std::size_t iIndex) { return m_words[iIndex]; });
        m_words[3] |=
            Word{iLength} << kLengthShift | static_cast<Word>(iCharacters) << kCharactersShift | hash << kHashShift;
    }

    Word m_words[4] = {};
};

static_assert(sizeof(KELShortText) == 32, "built callers have strings of this size");

/// A Unicode string: UTF-8 text with its hash and its number of characters.
///
/// A text of up to 25 bytes lies inside the string; a longer one lies on the heap, where copies share and count it.
/// Copying, moving and assigning never allocate and never fail. Construction from narrow text, `Append` and `Insert`
/// may throw `std::bad_alloc`, also for more than 2^31 - 1 bytes, and leave the string as it was. `Append` writes in
/// place when there is room and no other string shares the text. A string refers to nothing in another module, so that
/// it may outlive the module that made it.
///
/// A character is a code point; positions count characters from 0. Bytes that are not well-formed UTF-8 are kept and
/// count one character each. A text may contain bytes 0. Comparison is exact: case matters, and nothing is normalised.
///
/// Thread-compatible; strings that share a text may be used by different threads.
///
/// \code
/// KELUnicodeString name("frame");
/// name.Append("Rate");
/// assert(name == "frameRate" && name.GetLengthInChar() == 9);
/// \endcode
class KEL_API KELUnicodeString {
public:
    /// The empty string.
    constexpr KELUnicodeString() noexcept {} // NOLINT(modernize-use-equals-default): exported

    /// Copies iText, UTF-8 up to its terminating zero; null gives the empty string. Linear.
    inline KELUnicodeString(const char* iText); // NOLINT(google-explicit-constructor): texts are passed as names

    /// Copies iLength bytes at iText. Linear.
    KELUnicodeString(const char* iText, std::size_t iLength);

    /// Copies a constant.
    constexpr explicit KELUnicodeString(const KELShortText& iText) noexcept : m_form(iText) {}

    /// A copy shares a long text. What is moved from is empty.
    /// @{
    inline KELUnicodeString(const KELUnicodeString& iOther) noexcept;
    inline KELUnicodeString(KELUnicodeString&& ioOther) noexcept;
    /// @}

    inline ~KELUnicodeString();

    /// Shares a long text of the other, or exchanges texts with it.
    /// @{
    inline KELUnicodeString& operator=(const KELUnicodeString& iOther) noexcept;
    inline KELUnicodeString& operator=(KELUnicodeString&& ioOther) noexcept;
    /// @}

    /// Adds iText at the end; returns this string. Copies the bytes of iText, and now and then, as a growing array
    /// does, those of this string.
    KELUnicodeString& Append(const KELUnicodeString& iText);

    /// Adds two texts at the end, or neither when it throws; returns this string.
    KELUnicodeString& Append(const KELUnicodeString& iFirst, const KELUnicodeString& iSecond);

    /// Puts iText in front of the character at iPosition; returns this string. A position outside the string means its
    /// nearer end. Linear.
    KELUnicodeString& Insert(int iPosition, const KELUnicodeString& iText);

    /// Finds iText as whole characters, from the character iStart on. Linear in both texts; may throw `std::bad_alloc`.
    /// \param iMode 1 searches forward; there is no other mode.
    /// \return the position of its first character, or -1 when it is not found or iStart or iMode is out of range.
    int SearchSubString(const KELUnicodeString& iText, int iStart, int iMode) const;

    /// Number of characters.
    inline int GetLengthInChar() const noexcept;

    /// The text as UTF-8, never null; valid until this string is changed or destroyed. It may point into this object.
    inline const char* ConvertToChar() const noexcept;

    /// Number of bytes at `ConvertToChar`, without the terminating zero.
    inline std::size_t LengthInBytes() const noexcept;

    /// 2 when both texts are identical, else 0 when this string sorts first and 1 when iOther does (by code points).
    /// Linear in texts of more than 25 bytes, as the operators are.
    inline int Compare(const KELUnicodeString& iOther) const noexcept;

    /// A hash of the text: equal strings have equal hashes in every module and every run. Linear when a text of more
    /// than 25 bytes is asked for the first time.
    inline unsigned int ComputeHashKey() const noexcept;

    /// A hash that nobody can foresee who does not know the salt. Linear.
    unsigned int ComputeHashKey(const KELHashSalt& iSalt) const noexcept;

    /// Whether both texts are identical.
    /// @{
    KEL_ALWAYS_INLINE friend bool operator==(const KELUnicodeString& iLeft, const KELUnicodeString& iRight) noexcept
    {
        return iLeft.IsIdentical(iRight);
    }

    friend bool operator!=(const KELUnicodeString& iLeft, const KELUnicodeString& iRight) noexcept
    {
        return !iLeft.IsIdentical(iRight);
    }
    /// @}

    /// Compares with a constant, without making a string of it.
    friend bool operator==(const KELUnicodeString& iLeft, const KELShortText& iRight) noexcept
    {
        return iLeft.m_form.IsSame(iRight);
    }

private:
    using Word = KELUtf8::Word;

    // A number of bytes that no text inside has: the first word is then the address of a KELText.
    static constexpr Word kLong = Word{0xFF} << KELShortText::kLengthShift;

    std::string_view View() const noexcept { return {ConvertToChar(), LengthInBytes()}; }
    static std::size_t CheckedLength(std::size_t iFirst, std::size_t iSecond, std::size_t iThird);
    static KELText* MakeText(std::size_t iCapacity);
    static KELText* MakeText(std::string_view iFirst, std::string_view iSecond, std::string_view iThird,
                             std::size_t iCapacity);
    static KELShortText MakeShort(std::string_view iFirst, std::string_view iSecond, std::string_view iThird) noexcept;
    static void Destroy(KELText* iText) noexcept;

    void Join(std::string_view iFirst, std::string_view iSecond, std::string_view iThird);
    KELUnicodeString& AppendViews(std::string_view iFirst, std::string_view iSecond);
    void SetText(KELText* iText) noexcept;
    std::size_t ByteOffset(int iPosition) const noexcept;
    bool SortsBefore(const KELUnicodeString& iOther) const noexcept;
    bool IsSameText(const KELUnicodeString& iOther) const noexcept;

    const Word& Last() const noexcept { return m_form.m_words[3]; }
    bool IsLong() const noexcept
    {
        return reinterpret_cast<const unsigned char*>(m_form.m_words)[KELShortText::kLongest + 1] == 0xFF;
    }

    KELText& Text() const noexcept
    {
        KELText* text = nullptr;
        static_assert(sizeof(text) == sizeof(Word)); // NOLINT(bugprone-sizeof-expression): of the pointer
        std::memcpy(&text, m_form.m_words, sizeof(Word));
        return *text;
    }

    KEL_ALWAYS_INLINE bool IsIdentical(const KELUnicodeString& iOther) const noexcept
    {
        return m_form.IsSame(iOther.m_form) || (IsLong() && iOther.IsLong() && IsSameText(iOther));
    }

    void AddHolder() const noexcept
    {
        if (IsLong()) {
            Text().m_holders.Increment();
        }
    }

    void RemoveHolder() const noexcept
    {
        if (IsLong() && Text().m_holders.Decrement() == 0) {
            Destroy(&Text());
        }
    }

    KELShortText m_form;
};

// The inline members.

KELUnicodeString::KELUnicodeString(const char* iText) : KELUnicodeString(iText, iText ? std::strlen(iText) : 0) {}
KELUnicodeString::KELUnicodeString(const KELUnicodeString& iOther) noexcept : m_form(iOther.m_form)
{
    iOther.AddHolder();
}
KELUnicodeString::KELUnicodeString(KELUnicodeString&& ioOther) noexcept : m_form(ioOther.m_form)
{
    ioOther.m_form = KELShortText();
}
KELUnicodeString::~KELUnicodeString()
{
    RemoveHolder();
}

KELUnicodeString& KELUnicodeString::operator=(const KELUnicodeString& iOther) noexcept
{
    if (iOther.IsLong()) {
        if (m_form.IsSame(iOther.m_form)) {
            return *this;
        }
        iOther.AddHolder();
    }
    RemoveHolder();
    m_form = iOther.m_form;
    return *this;
}
KELUnicodeString& KELUnicodeString::operator=(KELUnicodeString&& ioOther) noexcept
{
    const KELShortText form = m_form;
    m_form = ioOther.m_form;
    ioOther.m_form = form;
    return *this;
}

int KELUnicodeString::GetLengthInChar() const noexcept
{
    return IsLong() ? Text().Characters() : static_cast<int>(Last() >> KELShortText::kCharactersShift & 0xFFU);
}
const char* KELUnicodeString::ConvertToChar() const noexcept
{
    return IsLong() ? Text().Bytes() : reinterpret_cast<const char*>(m_form.m_words);
}
std::size_t KELUnicodeString::LengthInBytes() const noexcept
{
    return IsLong() ? Text().Length() : Last() >> KELShortText::kLengthShift & 0xFFU;
}
int KELUnicodeString::Compare(const KELUnicodeString& iOther) const noexcept
{
    return IsIdentical(iOther) ? 2 : SortsBefore(iOther) ? 0 : 1;
}
unsigned int KELUnicodeString::ComputeHashKey() const noexcept
{
    return IsLong() ? Text().Hash() : static_cast<KELUINT32>(Last() >> KELShortText::kHashShift);
}

#endif
