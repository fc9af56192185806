#ifndef CheckRecorder_H
#define CheckRecorder_H

#include "KELCheckFailure.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

/// A report as the tests compare it; the line is left out.
struct Report {
    KELCheckFailureKind kind;
    std::string text;
    std::string file;

    friend bool operator==(const Report&, const Report&) = default;
    friend std::ostream& operator<<(std::ostream& ioStream, const Report& iReport)
    {
        return ioStream << "{" << iReport.kind << ", \"" << iReport.text << "\", " << iReport.file << "}";
    }
};

/// Takes the reports of failed checks in for as long as it lives. For tests that report on one thread.
class CheckRecorder {
public:
    CheckRecorder() : m_outer(std::exchange(Current(), this)), m_previous(KELSetCheckFailureHandler(&Record)) {}
    CheckRecorder(const CheckRecorder&) = delete;
    CheckRecorder& operator=(const CheckRecorder&) = delete;
    ~CheckRecorder()
    {
        KELSetCheckFailureHandler(m_previous);
        Current() = m_outer;
    }

    /// The reports since the last call.
    std::vector<Report> Take() { return std::exchange(m_reports, {}); }

private:
    static CheckRecorder*& Current()
    {
        static CheckRecorder* s_current = nullptr;
        return s_current;
    }

    static void Record(const KELCheckFailure& iFailure)
    {
        Current()->m_reports.push_back({iFailure.kind, iFailure.text, iFailure.file});
    }

    CheckRecorder* m_outer;
    KELCheckFailureHandler m_previous;
    std::vector<Report> m_reports;
};

/// What a test expects to have been reported.
/// @{
inline std::vector<Report> Nothing()
{
    return {};
}
inline std::vector<Report> Condition(const char* iText, const char* iFile)
{
    return {{kelCF_Condition, iText, iFile}};
}
inline std::vector<Report> Pointer(const char* iText, const char* iFile)
{
    return {{kelCF_Pointer, iText, iFile}};
}
inline std::vector<Report> Message(const char* iText, const char* iFile)
{
    return {{kelCF_Message, iText, iFile}};
}
/// @}

#endif
