#include "KELCheckFailure.h"

#include <atomic>
#include <cstdio>

namespace {

const char* Opening(KELCheckFailureKind iKind)
{
    switch (iKind) {
    case kelCF_Condition:
        return "check failed: ";
    case kelCF_Pointer:
        return "null pointer: ";
    case kelCF_Message:
        break;
    }
    return "failure: ";
}

// One call of a standard output function, which the C library keeps whole among threads and which does not throw.
void PrintFailure(const KELCheckFailure& iFailure)
{
    const auto orEmpty = [](const char* iText) { return iText ? iText : ""; };
    std::fprintf(stderr, "%s(%d): %s%s%s%s\n", orEmpty(iFailure.file), iFailure.line, Opening(iFailure.kind),
                 orEmpty(iFailure.text), iFailure.message ? " - " : "", orEmpty(iFailure.message));
}

std::atomic<KELCheckFailureHandler> g_handler{&PrintFailure};

void Report(const KELCheckFailure& iFailure)
{
    g_handler.load()(iFailure);
}

} // namespace

KELCheckFailureHandler KELSetCheckFailureHandler(KELCheckFailureHandler iHandler)
{
    return g_handler.exchange(iHandler ? iHandler : &PrintFailure);
}

void Check_TRUE_Failed__(const char* iText, const char* iFile, int iLine, const char* iMessage)
{
    Report({kelCF_Condition, iText, iFile, iLine, iMessage});
}

void Check_Pointer_Failed__(const char* iText, const char* iFile, int iLine, const char* iMessage)
{
    Report({kelCF_Pointer, iText, iFile, iLine, iMessage});
}

void CheckFailure__(const char* iText, const char* iFile, int iLine, const char* iMessage)
{
    Report({kelCF_Message, iText, iFile, iLine, iMessage});
}
