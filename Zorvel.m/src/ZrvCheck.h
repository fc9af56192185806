#ifndef ZrvCheck_H
#define ZrvCheck_H

#include "KELCheckFailure.h"

/// Checks preconditions for one source file and reports those that are broken.
///
/// Each check answers whether all is well; the line that a report names is the caller's own.
///
/// \code
/// constexpr ZrvCheck g_check("ZrvProperties");
/// if (!g_check.Holds(!ioPrototype, "!ioPrototype")) {
///     return ZrvRC::zrvEC_Error;
/// }
/// \endcode
class ZrvCheck {
public:
    /// \param iFile the source file's name without folder and ending
    constexpr explicit ZrvCheck(const char* iFile) noexcept : m_file(iFile) {}

    /// \param iText the condition, as reports give it
    bool Holds(bool iCondition, const char* iText, int iLine = __builtin_LINE()) const
    {
        if (!iCondition) [[unlikely]] {
            Check_TRUE_Failed__(iText, m_file, iLine, nullptr);
        }
        return iCondition;
    }

    /// \param iText the pointer's name, as reports give it
    bool IsThere(bool iPointer, const char* iText, int iLine = __builtin_LINE()) const
    {
        if (!iPointer) [[unlikely]] {
            Check_Pointer_Failed__(iText, m_file, iLine, nullptr);
        }
        return iPointer;
    }

    void Fail(const char* iText, int iLine = __builtin_LINE()) const { CheckFailure__(iText, m_file, iLine, nullptr); }

private:
    const char* m_file;
};

/// The conditions that more than one source file checks, as reports give them.
/// @{
inline constexpr char ZrvCheck_NameIsThere[] = "iPropertyName.GetLengthInChar()>0";
inline constexpr char ZrvCheck_TypeNameIsThere[] = "iPropertyType.GetLengthInChar()>0";
inline constexpr char ZrvCheck_ValueHasType[] = "iValue.GetType().GetLengthInChar()>0";
/// @}

#endif
