#include "Console.h"

#include "System.h"
#include "ZrvPropertyAccess.h"

#include <algorithm>
#include <cerrno>
#include <exception>
#include <system_error>

bool PrintLines(const std::string& iLines)
{
    if (System::PrintOutput(ZrvPrintable(iLines, true))) {
        return true;
    }
    PrintFailure("standard output cannot be written: " + std::generic_category().message(errno));
    return false;
}

void PrintFailure(const std::string& iText)
{
    System::PrintError("y4m_meter: " + ZrvPrintable(iText, true) + "\n");
}

ProgressLine::ProgressLine() : m_isTerminal(System::IsErrorTerminal()) {}

ProgressLine::~ProgressLine()
{
    if (m_width > 0) {
        try {
            Write("");
            System::PrintError("\r");
        } catch (const std::exception&) {
            return; // without memory, the line stays
        }
    }
}

// A terminal that becomes narrower breaks a line in two, of which only the second is written over. So the text leaves
// out what a narrow one has no room for.
void ProgressLine::Show(KELINT32 iFrames, int iRate)
{
    constexpr std::size_t kLongest = 19;
    if (m_isTerminal) {
        const std::string frames = std::to_string(iFrames) + " frames";
        const std::string rate = ", " + std::to_string(iRate) + "/s";
        Write(frames.size() + rate.size() <= kLongest ? frames + rate : frames);
    }
}

void ProgressLine::Write(const std::string& iText)
{
    const std::size_t rest = m_width - std::min(m_width, iText.size());
    System::PrintError("\r" + iText + std::string(rest, ' ') + std::string(rest, '\b'));
    m_width = iText.size();
}
