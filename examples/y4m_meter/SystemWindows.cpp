#if defined(_WIN32)

#include "System.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <stdio.h>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <shellapi.h>

namespace {

std::atomic<bool> g_wasInterrupted = false;
std::atomic<bool> g_isReading = false;
std::atomic<bool> g_isCancelling = false;
HANDLE g_mainThread = nullptr;

std::wstring Widen(std::string_view iText)
{
    const int length = static_cast<int>(iText.size());
    std::wstring wide(iText.size(), L'\0'); // UTF-16 never takes more units than UTF-8 takes bytes
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, iText.data(), length, wide.data(), length)));
    return wide;
}

std::string Narrow(std::wstring_view iText)
{
    const int length = static_cast<int>(iText.size());
    std::string narrow(3 * iText.size(), '\0');
    narrow.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, iText.data(), length, narrow.data(), 3 * length, nullptr, nullptr)));
    return narrow;
}

HANDLE GetSystemHandle(FILE* iStream)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(iStream)));
}

bool IsConsole(HANDLE iHandle)
{
    DWORD mode = 0;
    return GetConsoleMode(iHandle, &mode) != 0;
}

bool Print(FILE* ioStream, std::string_view iText)
{
    if (const HANDLE console = GetSystemHandle(ioStream); IsConsole(console)) {
        const std::wstring wide = Widen(iText);
        DWORD written = 0;
        return WriteConsoleW(console, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr) != 0;
    }
    return fwrite(iText.data(), 1, iText.size(), ioStream) == iText.size() && fflush(ioStream) == 0;
}

BOOL WINAPI TakeInterruption(DWORD iEvent)
{
    if (iEvent != CTRL_C_EVENT || g_wasInterrupted.exchange(true)) {
        return FALSE;
    }
    g_isCancelling = true;
    while (g_isReading) { // the thread may not have come to its wait yet
        CancelSynchronousIo(g_mainThread);
        Sleep(1);
    }
    g_isCancelling = false;
    return TRUE;
}

} // namespace

std::vector<std::string> System::GetArguments(int /*iCount*/, char** /*iArguments*/)
{
    int count = 0;
    std::vector<std::string> arguments;
    if (wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count)) {
        for (int i = 1; i < count; ++i) {
            arguments.push_back(Narrow(wide[i]));
        }
        LocalFree(wide);
    }
    return arguments;
}

int System::OpenFile(const std::string& iPath)
{
    const std::wstring path = Widen(iPath);
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        errno = EISDIR;
        return -1;
    }
    return _wopen(path.c_str(), _O_RDONLY | _O_BINARY);
}

void System::CloseFile(int iFile)
{
    _close(iFile);
}

int System::GetStandardInput()
{
    const int input = _fileno(stdin);
    _setmode(input, _O_BINARY);
    return input;
}

std::ptrdiff_t System::ReadFile(int iFile, char* oBytes, std::size_t iSize)
{
    g_isReading = true;
    const int count = WasInterrupted() ? -1 : _read(iFile, oBytes, static_cast<unsigned int>(iSize));
    g_isReading = false;
    while (g_isCancelling) { // reading, and not what comes next
        Sleep(1);
    }
    if (WasInterrupted()) {
        errno = EINTR;
    }
    return count;
}

bool System::PrintOutput(std::string_view iText)
{
    return Print(stdout, iText);
}

bool System::PrintError(std::string_view iText)
{
    return Print(stderr, iText);
}

bool System::IsErrorTerminal()
{
    return IsConsole(GetSystemHandle(stderr));
}

void System::CatchInterruption()
{
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &g_mainThread, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    SetConsoleCtrlHandler(TakeInterruption, TRUE);
}

bool System::WasInterrupted()
{
    return g_wasInterrupted;
}

#endif
