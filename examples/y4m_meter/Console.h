#ifndef Console_H
#define Console_H

#include "KELTypes.h"

#include <cstddef>
#include <string>

/// Prints lines to standard output; prints why that is impossible, and returns false, when it is.
bool PrintLines(const std::string& iLines);

/// Prints a line to standard error, with the program's name in front.
void PrintFailure(const std::string& iText);

/// A line on standard error that is written over and over while a program works, and removed at the end. Nothing when
/// that is no terminal.
class ProgressLine {
public:
    ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine();

    void Show(KELINT32 iFrames, int iRate);

private:
    void Write(const std::string& iText);

    bool m_isTerminal;
    std::size_t m_width = 0; // of the text that is shown
};

#endif
