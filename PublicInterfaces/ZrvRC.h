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
/// A plain value: not changed by one thread while another uses it. No operation fails or reports; those that lengthen
/// the trace may throw the standard allocation failure, and change nothing then.
class ZRV_API ZrvRC {
public:
    /// Read as an unsigned number, 0 and 1 are successes and every other code is an error.
    enum ErrorCode : KELUINT32 {
        zrvEC_NothingDone = 0,    ///< Succeeded, and nothing had to change.
        zrvEC_OK = 1,             ///< Succeeded.
        zrvEC_Error = 0xFFFFFFFFU ///< Failed.
    };

    /// A success with an empty trace.
    ZRV_EXPORTED_INLINE ZrvRC() noexcept : m_rc(zrvEC_OK) {}

    /// A code with a copy of a text as its trace.
    ZRV_EXPORTED_INLINE ZrvRC(ErrorCode iCode, const KELUnicodeString& iText) noexcept : m_rc(iCode), m_trace(iText) {}

    /// The same from narrow text (UTF-8); null gives an empty trace. A bare code converts, so that it can be returned
    /// and compared as it is.
    ZRV_EXPORTED_INLINE ZrvRC(ErrorCode iCode, const char* iText = nullptr) // NOLINT(google-explicit-constructor)
        : m_rc(iCode)
    {
        if (iText) {
            m_trace = KELUnicodeString(iText);
        }
    }

    /// The outcome of a platform call, of which the lower 32 bits count: a success for 0 and above, else an error with
    /// a message for the failure as its trace.
    ZrvRC(long iResult); // NOLINT(google-explicit-constructor,google-runtime-int)

    ZRV_EXPORTED_INLINE ZrvRC(const ZrvRC& iOther) noexcept : m_rc(iOther.m_rc), m_trace(iOther.m_trace) {}

    ZRV_EXPORTED_INLINE ZrvRC& operator=(const ZrvRC& iOther) noexcept
    {
        m_rc = iOther.m_rc;
        m_trace = iOther.m_trace;
        return *this;
    }

    ZRV_EXPORTED_INLINE ~ZrvRC() {}

    ZRV_EXPORTED_INLINE ErrorCode GetRC() noexcept { return m_rc; }

    /// The trace, owned by this object.
    ZRV_EXPORTED_INLINE const KELUnicodeString& GetTrace() const noexcept { return m_trace; }

    /// The trace as narrow text (UTF-8), never null; valid until the trace changes or this object is destroyed.
    ZRV_EXPORTED_INLINE const char* Dump() const noexcept { return m_trace.ConvertToChar(); }

    ZRV_EXPORTED_INLINE bool IsValid() noexcept { return !IsError(); }
    ZRV_EXPORTED_INLINE bool IsError() noexcept { return m_rc > zrvEC_OK; }
    ZRV_EXPORTED_INLINE bool operator!() noexcept { return IsError(); }

    /// Compare the codes; traces do not count.
    /// @{
    ZRV_EXPORTED_INLINE bool operator==(const ZrvRC& iOther) noexcept { return m_rc == iOther.m_rc; }
    ZRV_EXPORTED_INLINE bool operator!=(const ZrvRC& iOther) noexcept { return m_rc != iOther.m_rc; }
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

    /// The text with the prefix in front of its first character and behind each line break ("\n"), a final one
    /// included; a null prefix gives the text as it is.
    /// @{
    static KELUnicodeString InsertLinesBegin(const KELUnicodeString& iText, KELUnicodeString& iPrefix);
    static KELUnicodeString InsertLinesBegin(const KELUnicodeString& iText, char* iPrefix);
    /// @}

private:
    static void MergesTraces(KELUnicodeString& ioTrace, const KELUnicodeString& iAdded);

    ErrorCode m_rc;
    KELUnicodeString m_trace;
};

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
