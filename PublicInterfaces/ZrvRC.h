#ifndef ZrvRC_H
#define ZrvRC_H

#include "KELTypes.h"
#include "KELUnicodeString.h"
#include "ZrvExport.h"

#include <type_traits>

/// The result of every fallible operation: a code and a trace.
///
/// The code says whether the operation failed; the trace is a text of any number of lines in which messages gather
/// while the result travels up a chain of calls. A success costs nothing: no text, no allocation.
///
/// \code
/// ZrvRC Load(Reader& ioReader)
/// {
///     ZrvRC rc = ioReader.Open();
///     if (rc.IsError()) {
///         return rc.AddTrace("\nwhile loading");
///     }
///     return ZrvRC::zrvEC_OK;
/// }
/// \endcode
///
/// The compiler warns when a result is ignored. Cast it to void to ignore it on purpose.
///
/// A plain value. No operation fails or reports. Those that lengthen the trace may throw `std::bad_alloc`, and change
/// nothing then. Appending costs what is appended, not what the trace holds. Thread-compatible.
class [[nodiscard]] ZRV_API ZrvRC {
public:
    /// Read as an unsigned number, 0 and 1 are successes and every other code is an error.
    enum ErrorCode : KELUINT32 {
        zrvEC_NothingDone = 0,    ///< Succeeded, and nothing had to change.
        zrvEC_OK = 1,             ///< Succeeded.
        zrvEC_Error = 0xFFFFFFFFU ///< Failed.
    };

    /// A success with an empty trace.
    ZRV_INLINE ZrvRC() noexcept;

    /// A code with a copy of a text as its trace.
    ZRV_INLINE ZrvRC(ErrorCode iCode, const KELUnicodeString& iText) noexcept;

    /// The same from narrow text (UTF-8); null gives an empty trace. A bare code converts, so that it can be returned
    /// and compared as it is.
    ZRV_INLINE ZrvRC(ErrorCode iCode, const char* iText = nullptr); // NOLINT(google-explicit-constructor)

    /// The outcome of a platform call, of which the lower 32 bits count: a success for 0 and above, else an error with
    /// a message for the failure as its trace.
    ZrvRC(long iResult); // NOLINT(google-explicit-constructor,google-runtime-int)

    /// A truth value is no outcome, and as a number its false would be a success: it does not compile.
    template <class Truth, class = std::enable_if_t<std::is_same_v<Truth, bool>>>
    ZrvRC(Truth iTruth) = delete; // NOLINT(google-explicit-constructor): refuses the conversions, too

    /// Copying shares the trace and does not fail.
    /// @{
    ZRV_INLINE ZrvRC(const ZrvRC& iOther) noexcept;
    ZRV_INLINE ZrvRC& operator=(const ZrvRC& iOther) noexcept;
    ZRV_INLINE ~ZrvRC();
    /// @}

    /// The code.
    ZRV_INLINE ErrorCode GetRC() noexcept;

    /// The trace, owned by this object.
    ZRV_INLINE const KELUnicodeString& GetTrace() const noexcept;

    /// The trace as narrow text (UTF-8), never null; valid until the trace changes or this object is destroyed.
    ZRV_INLINE const char* Dump() const noexcept;

    /// Whether the code is a success.
    ZRV_INLINE bool IsValid() noexcept;

    /// Whether the code is an error.
    /// @{
    ZRV_INLINE bool IsError() noexcept;
    ZRV_INLINE bool operator!() noexcept;
    /// @}

    /// Compare the codes; traces do not count.
    /// @{
    ZRV_INLINE bool operator==(const ZrvRC& iOther) noexcept;
    ZRV_INLINE bool operator!=(const ZrvRC& iOther) noexcept;
    /// @}

    /// Adds a text, as it is, at the end of the trace; null adds nothing. Returns this object.
    /// @{
    ZrvRC& AddTrace(const KELUnicodeString& iText);
    ZrvRC& AddTrace(const char* iText);
    /// @}

    /// Takes over the other's code, whichever it is, and adds its trace to this one on a line of its own. To make a
    /// first failure stick, test a result before adding it. Adding an object to itself changes nothing. Returns this
    /// object.
    ZrvRC& Add(const ZrvRC& iOther);

    /// The text with the prefix in front of its first character and after each line break ("\n"), a final one
    /// included; a null prefix gives the text as it is. Throws `std::bad_alloc` for a result of more than 2^31 - 1
    /// bytes. Linear in the result.
    /// @{
    static KELUnicodeString InsertLinesBegin(const KELUnicodeString& iText, KELUnicodeString& iPrefix);
    static KELUnicodeString InsertLinesBegin(const KELUnicodeString& iText, char* iPrefix);
    /// @}

private:
    static void MergesTraces(KELUnicodeString& ioTrace, const KELUnicodeString& iAdded);

    ErrorCode m_rc;
    KELUnicodeString m_trace;
};

// The inline members.

ZrvRC::ZrvRC() noexcept : m_rc(zrvEC_OK) {}
ZrvRC::ZrvRC(ErrorCode iCode, const KELUnicodeString& iText) noexcept : m_rc(iCode), m_trace(iText) {}
ZrvRC::ZrvRC(ErrorCode iCode, const char* iText) : m_rc(iCode)
{
    if (iText) {
        m_trace = KELUnicodeString(iText);
    }
}
ZrvRC::ZrvRC(const ZrvRC& iOther) noexcept = default;
ZrvRC& ZrvRC::operator=(const ZrvRC& iOther) noexcept = default;
ZrvRC::~ZrvRC() = default;

ZrvRC::ErrorCode ZrvRC::GetRC() noexcept
{
    return m_rc;
}
const KELUnicodeString& ZrvRC::GetTrace() const noexcept
{
    return m_trace;
}
const char* ZrvRC::Dump() const noexcept
{
    return m_trace.ConvertToChar();
}

bool ZrvRC::IsError() noexcept
{
    return m_rc > zrvEC_OK;
}
bool ZrvRC::IsValid() noexcept
{
    return !IsError();
}
bool ZrvRC::operator!() noexcept
{
    return IsError();
}
bool ZrvRC::operator==(const ZrvRC& iOther) noexcept
{
    return m_rc == iOther.m_rc;
}
bool ZrvRC::operator!=(const ZrvRC& iOther) noexcept
{
    return m_rc != iOther.m_rc;
}

/// The same questions as `GetRC` and `IsError`, which only an object that is not const can be asked.
/// \code
/// void Log(const ZrvRC& iRC)
/// {
///     if (ZrvIsError(iRC)) { ... }
/// }
/// \endcode
/// @{
inline ZrvRC::ErrorCode ZrvGetRC(const ZrvRC& iRC) noexcept
{
    return const_cast<ZrvRC&>(iRC).GetRC(); // changes nothing, though it is not const
}

inline bool ZrvIsError(const ZrvRC& iRC) noexcept
{
    return const_cast<ZrvRC&>(iRC).IsError();
}
/// @}

#if defined(__cpp_impl_three_way_comparison)
// C++20 also tries a comparison with its sides exchanged, and older compilers then find the two equally good where
// neither side is const. This one fits better than both.
template <
    class Left, class Right,
    class = std::enable_if_t<std::is_same_v<std::decay_t<Left>, ZrvRC> && std::is_same_v<std::decay_t<Right>, ZrvRC>>>
bool operator==(Left&& iLeft, Right&& iRight) noexcept
{
    return ZrvRC(iLeft).operator==(iRight);
}
#endif

#endif
