#ifndef CheckRecorder_H
#define CheckRecorder_H

#include "KELCheckFailure.h"
#include "ZrvRC.h"

#include <functional>
#include <string>
#include <type_traits>
#include <utility>

/// What an operation has answered, in words; of a return code also, behind a colon, its trace.
template <class T>
std::string InWords(T iAnswer)
{
    if constexpr (std::is_same_v<T, ZrvRC>) {
        const std::string code = iAnswer == ZrvRC::zrvEC_OK            ? "ok"
                                 : iAnswer == ZrvRC::zrvEC_NothingDone ? "nothing done"
                                 : iAnswer == ZrvRC::zrvEC_Error       ? "error"
                                                                       : std::to_string(iAnswer.GetRC());
        return iAnswer.GetTrace().GetLengthInChar() == 0 ? code : code + ": " + iAnswer.Dump();
    } else if constexpr (std::is_same_v<T, KELUnicodeString>) {
        return "'" + std::string(iAnswer.ConvertToChar()) + "'";
    } else if constexpr (std::is_pointer_v<T>) {
        return iAnswer ? "there" : "null";
    } else {
        return std::to_string(iAnswer);
    }
}

/// Takes the reports of failed checks in for as long as it lives, and allocates nothing for them. For tests that report
/// on one thread.
class CheckRecorder {
public:
    CheckRecorder() : m_previous(KELSetCheckFailureHandler(&Record))
    {
        s_current = this;
        reports.reserve(2000);
    }
    ~CheckRecorder() { KELSetCheckFailureHandler(m_previous); }

    /// The reports since the last call, each as " [kind text in file]". The library adds no remark of its own and
    /// always says the line; where that fails, " (odd)" follows the file.
    std::string Take()
    {
        const std::string taken = reports;
        reports.clear(); // and keeps its room
        return taken;
    }

    std::string reports;
    int line = 0;                  ///< Of the last report.
    std::function<void()> further; ///< Called after each report.

private:
    static void Record(const KELCheckFailure& iFailure)
    {
        static constexpr const char* kKinds[] = {"condition", "pointer", "message"};
        const bool isOdd = iFailure.message || iFailure.line < 1;
        for (const char* part :
             {" [", kKinds[iFailure.kind], " ", iFailure.text, " in ", iFailure.file, isOdd ? " (odd)]" : "]"}) {
            s_current->reports += part;
        }
        s_current->line = iFailure.line;
        if (s_current->further) {
            s_current->further();
        }
    }

    static inline CheckRecorder* s_current = nullptr;
    KELCheckFailureHandler m_previous;
};

#endif
