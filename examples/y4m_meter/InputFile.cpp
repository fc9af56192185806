#include "InputFile.h"

#include "System.h"

#include <cerrno>

InputFile::InputFile(const std::string& iPath)
    : m_isOwned(iPath != kStandardInput), m_file(m_isOwned ? System::OpenFile(iPath) : System::GetStandardInput())
{
    if (m_isOwned && m_file < 0) {
        KeepError();
    }
}

InputFile::~InputFile()
{
    if (m_isOwned && m_file >= 0) {
        System::CloseFile(m_file);
    }
}

std::string InputFile::GetFailure() const
{
    if (m_error == std::errc::bad_file_descriptor) {
        return "it is closed, or not open for reading";
    }
    return m_error ? m_error.message() : "";
}

// A stream that reads from here catches the exception and is bad from then on.
InputFile::int_type InputFile::underflow()
{
    if (m_error) {
        throw std::system_error(m_error);
    }
    const std::ptrdiff_t count = System::ReadFile(m_file, m_bytes.data(), m_bytes.size());
    if (System::WasInterrupted()) {
        return traits_type::eof();
    }
    if (count < 0) {
        KeepError();
        throw std::system_error(m_error);
    }
    setg(m_bytes.data(), m_bytes.data(), m_bytes.data() + count);
    return count == 0 ? traits_type::eof() : traits_type::to_int_type(m_bytes.front());
}

void InputFile::KeepError()
{
    m_error = std::error_code(errno, std::generic_category());
}
