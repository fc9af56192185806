#ifndef InputFile_H
#define InputFile_H

#include <array>
#include <streambuf>
#include <string>
#include <system_error>

/// A file or standard input for a stream to read. An error makes the stream bad and is kept with the system's reason;
/// an interruption ends the input.
class InputFile : public std::streambuf {
public:
    static constexpr char kStandardInput[] = "-";

    /// Opens the file of that path, or standard input.
    explicit InputFile(const std::string& iPath);
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile() override;

    /// Why the file could not be opened or read, for people; empty when it could.
    std::string GetFailure() const;

protected:
    int_type underflow() override;

private:
    void KeepError();

    bool m_isOwned;
    int m_file;
    std::error_code m_error;
    std::array<char, 1U << 16U> m_bytes;
};

#endif
