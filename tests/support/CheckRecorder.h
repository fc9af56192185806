#ifndef CheckRecorder_H
#define CheckRecorder_H

#include "KELCheckFailure.h"

#include <bitset>
#include <cstddef>
#include <string>
#include <utility>

/// Takes the reports of failed checks in for as long as it lives, and allocates nothing for them. For tests that report
/// on one thread.
class CheckRecorder {
public:
    CheckRecorder() : m_outer(std::exchange(s_current, this)), m_previous(KELSetCheckFailureHandler(&Record))
    {
        m_reports.reserve(2000);
    }
    CheckRecorder(const CheckRecorder&) = delete;
    CheckRecorder& operator=(const CheckRecorder&) = delete;
    ~CheckRecorder()
    {
        KELSetCheckFailureHandler(m_previous);
        s_current = m_outer;
    }

    /// The reports since the last call, each as " [kind text in file]". The library adds no remark of its own and
    /// always says the line; where that fails, " (odd)" follows the file.
    std::string Take()
    {
        const std::string taken = m_reports;
        m_reports.clear(); // and keeps its room
        return taken;
    }

    /// How many different lines have said something so far.
    std::size_t Lines() const { return m_lines.count(); }

private:
    static void Record(const KELCheckFailure& iFailure)
    {
        static constexpr const char* kKinds[] = {"condition", "pointer", "message"};
        const bool isOdd = iFailure.message || iFailure.line < 1;
        s_current->m_lines.set(static_cast<std::size_t>(iFailure.line) % s_current->m_lines.size());
        for (const char* part :
             {" [", kKinds[iFailure.kind], " ", iFailure.text, " in ", iFailure.file, isOdd ? " (odd)]" : "]"}) {
            s_current->m_reports += part;
        }
    }

    static inline CheckRecorder* s_current = nullptr;

    CheckRecorder* m_outer;
    KELCheckFailureHandler m_previous;
    std::string m_reports;
    std::bitset<1024> m_lines;
};

#endif
