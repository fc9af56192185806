#ifndef KELSysTSUnicodeString_H
#define KELSysTSUnicodeString_H

#include "KELExport.h"
#include "KELUnicodeString.h"

/// A string of the system-services library, which is built from and read as UTF-8. Used as a plain value.
class KEL_API KELSysTSUnicodeString {
public:
    KELSysTSUnicodeString() noexcept = default;

    /// Copies iText; null gives the empty string.
    inline KELSysTSUnicodeString(const char* iText); // NOLINT(google-explicit-constructor)

    /// The text as UTF-8, never null; valid until the string is changed or destroyed.
    inline const char* ConvertToChar() const noexcept;

private:
    KELUnicodeString m_text;
};

// The inline members.

KELSysTSUnicodeString::KELSysTSUnicodeString(const char* iText) : m_text(iText) {}

const char* KELSysTSUnicodeString::ConvertToChar() const noexcept
{
    return m_text.ConvertToChar();
}

#endif
