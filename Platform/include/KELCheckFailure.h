#ifndef KELCheckFailure_H
#define KELCheckFailure_H

#include "KELExport.h"

/// \file
/// Reports of failed checks: how the library tells of a broken precondition without stopping its host.
///
/// \code
/// void Count(const KELCheckFailure& iFailure) { ++g_failures; }
///
/// const KELCheckFailureHandler previous = KELSetCheckFailureHandler(&Count);
/// ...
/// KELSetCheckFailureHandler(previous);
/// \endcode

/// What kind of check failed.
enum KELCheckFailureKind {
    kelCF_Condition, ///< A condition did not hold; the text is the condition.
    kelCF_Pointer,   ///< A pointer was null; the text is its name.
    kelCF_Message    ///< The text says what went wrong.
};

/// One report. The texts belong to the reporting library and last until it is unloaded.
struct KELCheckFailure {
    KELCheckFailureKind kind; ///< What the text is.
    const char* text;         ///< The condition, the pointer's name or the message.
    const char* file;         ///< The source file's bare name.
    int line;                 ///< The line in that file.
    const char* message;      ///< A remark, or null.
};

/// Receives the reports. It runs on the reporting thread, may run on several threads at once, and may call back into
/// the library. It must not throw.
typedef void (*KELCheckFailureHandler)(const KELCheckFailure&);

/// Installs the process's handler and returns the one it replaces. Null restores the default handler, which prints one
/// line to standard error. Thread-safe.
KEL_API KELCheckFailureHandler KELSetCheckFailureHandler(KELCheckFailureHandler iHandler);

/// Report a condition that does not hold, a null pointer, or a message to the handler, and return. Thread-safe.
/// @{
KEL_API void Check_TRUE_Failed__(const char* iText, const char* iFile, int iLine, const char* iMessage);
KEL_API void Check_Pointer_Failed__(const char* iText, const char* iFile, int iLine, const char* iMessage);
KEL_API void CheckFailure__(const char* iText, const char* iFile, int iLine, const char* iMessage);
/// @}

#endif
