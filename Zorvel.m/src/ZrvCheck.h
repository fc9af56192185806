#ifndef ZrvCheck_H
#define ZrvCheck_H

#include "KELCheckFailure.h"
#include "KELUnicodeString.h"
#include "ZrvPropertyValueBase.h"

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

    bool HasName(const KELUnicodeString& iPropertyName, int iLine = __builtin_LINE()) const
    {
        return Holds(iPropertyName.GetLengthInChar() > 0, "iPropertyName.GetLengthInChar()>0", iLine);
    }

    bool HasTypeName(const KELUnicodeString& iPropertyType, int iLine = __builtin_LINE()) const
    {
        return Holds(iPropertyType.GetLengthInChar() > 0, "iPropertyType.GetLengthInChar()>0", iLine);
    }

    bool HasType(const ZrvPropertyValueBase& iValue, int iLine = __builtin_LINE()) const
    {
        return Holds(iValue.GetType().GetLengthInChar() > 0, "iValue.GetType().GetLengthInChar()>0", iLine);
    }

    void Fail(const char* iText, int iLine = __builtin_LINE()) const { CheckFailure__(iText, m_file, iLine, nullptr); }

private:
    const char* m_file;
};

#endif
