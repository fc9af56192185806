#include "Console.h"

#include <algorithm>
#include <iostream>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#else
#include <unistd.h>
#endif

namespace {

bool IsOutputTerminal()
{
#if defined(_WIN32)
    return _isatty(_fileno(stdout)) != 0;
#else
    return isatty(STDOUT_FILENO) != 0;
#endif
}

} // namespace

std::istream& GetBinaryInput()
{
#if defined(_WIN32)
    _setmode(_fileno(stdin), _O_BINARY);
#endif
    return std::cin;
}

ProgressLine::ProgressLine() : m_isTerminal(IsOutputTerminal()) {}

ProgressLine::~ProgressLine()
{
    if (m_width > 0) {
        std::cout << std::endl;
    }
}

void ProgressLine::Show(const std::string& iText)
{
    if (m_isTerminal) {
        m_width = std::max(m_width, iText.size());
        std::cout << '\r' << iText << std::string(m_width - iText.size(), ' ') << std::flush;
    }
}
