#ifndef System_H
#define System_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What differs between systems. Texts are UTF-8 on Windows; elsewhere they are the system's own bytes. What fails
/// leaves its reason in `errno`.
namespace System {

/// The program's arguments, without its name.
std::vector<std::string> GetArguments(int iCount, char** iArguments);

/// Opens a file for reading, without any translation of line breaks; the caller closes it. Negative when it fails.
int OpenFile(const std::string& iPath);
void CloseFile(int iFile);

/// Standard input, without any translation of line breaks; not to be closed.
int GetStandardInput();

/// Reads up to iSize bytes, as soon as there are some. 0 at the end, negative when it fails or is interrupted.
std::ptrdiff_t ReadFile(int iFile, char* oBytes, std::size_t iSize);

/// Prints a printable text, with all its characters also on a console of Windows; whether it could be written.
/// @{
bool PrintOutput(std::string_view iText);
bool PrintError(std::string_view iText);
/// @}

/// Whether standard error is a terminal.
bool IsErrorTerminal();

/// Makes the first interruption (Ctrl-C) end `ReadFile` and be remembered; another one ends the program.
void CatchInterruption();
bool WasInterrupted();

} // namespace System

#endif
