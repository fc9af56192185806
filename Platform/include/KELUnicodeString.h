#ifndef KELUnicodeString_H
#define KELUnicodeString_H

#include "KELExport.h"
#include "KELText.h"

#include <utility>

/// A Unicode string: immutable UTF-8 text, shared between copies.
///
/// Copying, moving and assigning never allocate and never fail; a string that shows a text of its own is made by the
/// constructor from narrow text, by `Append` and by `Insert`, which leave it unchanged when memory runs out. A
/// character is a code point; positions count characters from 0. Bytes that are not well-formed UTF-8 are kept as they
/// are and count one character each. Comparison is exact: case matters, and nothing is normalised.
///
/// Different strings may be used by different threads, also when they share a text; one string is not changed by one
/// thread while another uses it.
///
/// \code
/// KELUnicodeString name("frame");
/// name.Append("Rate");
/// assert(name == "frameRate" && name.GetLengthInChar() == 9);
/// \endcode
class KEL_API KELUnicodeString {
public:
    constexpr KELUnicodeString() noexcept = default;

    /// Copies iText, UTF-8 up to its terminating zero; null gives the empty string.
    KELUnicodeString(const char* iText); // NOLINT(google-explicit-constructor): texts are passed where names are due

    /// Copies iLength bytes at iText.
    KELUnicodeString(const char* iText, std::size_t iLength);

    /// Shows an immortal text, without allocating.
    constexpr explicit KELUnicodeString(const KELText& iText) noexcept : m_text(&iText) {}

    KELUnicodeString(const KELUnicodeString& iOther) noexcept : m_text(iOther.m_text) { AddHolder(); }
    KELUnicodeString(KELUnicodeString&& ioOther) noexcept : m_text(std::exchange(ioOther.m_text, nullptr)) {}
    ~KELUnicodeString() { RemoveHolder(); }

    KELUnicodeString& operator=(const KELUnicodeString& iOther) noexcept { return *this = KELUnicodeString(iOther); }

    KELUnicodeString& operator=(KELUnicodeString&& ioOther) noexcept
    {
        std::swap(m_text, ioOther.m_text);
        return *this;
    }

    /// Adds iText at the end; returns this string.
    KELUnicodeString& Append(const KELUnicodeString& iText);

    /// Puts iText in front of the character at iPosition; returns this string. A position outside the string means its
    /// nearer end.
    KELUnicodeString& Insert(int iPosition, const KELUnicodeString& iText);

    /// Finds iText as whole characters, from the character iStart on.
    /// \param iMode 1 searches forward; there is no other mode.
    /// \return the position of its first character, or -1 when it is not found or iStart or iMode is out of range.
    int SearchSubString(const KELUnicodeString& iText, int iStart, int iMode) const;

    int GetLengthInChar() const noexcept { return m_text ? m_text->Characters() : 0; }

    /// The text as UTF-8 with a terminating zero, never null; valid until the string is changed or destroyed.
    const char* ConvertToChar() const noexcept { return m_text ? m_text->Bytes() : ""; }

    /// Number of bytes at `ConvertToChar`, without the terminating zero.
    std::size_t LengthInBytes() const noexcept { return m_text ? static_cast<std::size_t>(m_text->Length()) : 0; }

    /// 2 when both texts are identical, else 0 when this string sorts first and 1 when iOther does (by code points).
    int Compare(const KELUnicodeString& iOther) const noexcept
    {
        return IsIdentical(iOther) ? 2 : SortsBefore(iOther) ? 0 : 1;
    }

    /// A hash of the text, stored with it: equal strings have equal hashes in every module and every run.
    unsigned int ComputeHashKey() const noexcept { return m_text ? m_text->Hash() : 0; }

    friend bool operator==(const KELUnicodeString& iLeft, const KELUnicodeString& iRight) noexcept
    {
        return iLeft.IsIdentical(iRight);
    }

    friend bool operator!=(const KELUnicodeString& iLeft, const KELUnicodeString& iRight) noexcept
    {
        return !iLeft.IsIdentical(iRight);
    }

private:
    static const KELText* MakeText(const char* iFirst, std::size_t iFirstLength, const char* iSecond = "",
                                   std::size_t iSecondLength = 0, const char* iThird = "",
                                   std::size_t iThirdLength = 0);
    static void Destroy(const KELText* iText) noexcept;

    std::size_t ByteOffset(int iPosition) const noexcept;
    [[gnu::pure]] bool SortsBefore(const KELUnicodeString& iOther) const noexcept;

    bool IsIdentical(const KELUnicodeString& iOther) const noexcept
    {
        if (m_text == iOther.m_text) {
            return true;
        }
        return m_text && iOther.m_text && m_text->Hash() == iOther.m_text->Hash() && m_text->IsSame(*iOther.m_text);
    }

    void AddHolder() const noexcept
    {
        if (m_text && !m_text->m_references.IsImmortal()) {
            m_text->m_references.Increment();
        }
    }

    void RemoveHolder() const noexcept
    {
        if (m_text && !m_text->m_references.IsImmortal() && m_text->m_references.Decrement() == 0) {
            Destroy(m_text);
        }
    }

    const KELText* m_text = nullptr; // null shows the empty text, which has no other form
};

#endif
