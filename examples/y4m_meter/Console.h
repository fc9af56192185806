#ifndef Console_H
#define Console_H

#include <istream>
#include <string>

/// Standard input, without any translation of line breaks.
std::istream& GetBinaryInput();

/// A line on standard output that is written over and over while a program works; nothing when that is no terminal.
class ProgressLine {
public:
    ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine();

    void Show(const std::string& iText);

private:
    bool m_isTerminal;
    std::size_t m_width = 0; // of the longest text so far
};

#endif
