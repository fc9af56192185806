#if !defined(_WIN32)

#include "System.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

std::atomic<bool> g_wasInterrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may set it");

bool Print(int iFile, std::string_view iText)
{
    while (!iText.empty()) {
        const ssize_t count = write(iFile, iText.data(), iText.size());
        if (count < 0 && errno != EINTR) {
            return false;
        }
        iText.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return true;
}

// Waits until `read` has something to return, or for an interruption. SIGINT is blocked between the test and the wait,
// so that none is missed.
void WaitForInput(int iFile)
{
    sigset_t interruption;
    sigset_t before;
    sigemptyset(&interruption);
    sigaddset(&interruption, SIGINT);
    pthread_sigmask(SIG_BLOCK, &interruption, &before);
    pollfd input = {iFile, POLLIN, 0};
    while (!System::WasInterrupted() && ppoll(&input, 1, nullptr, &before) < 0 && errno == EINTR) {
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

} // namespace

std::vector<std::string> System::GetArguments(int iCount, char** iArguments)
{
    return {iArguments + (iCount > 0 ? 1 : 0), iArguments + iCount};
}

int System::OpenFile(const std::string& iPath)
{
    int file = -1;
    do {
        file = open(iPath.c_str(), O_RDONLY | O_CLOEXEC);
    } while (file < 0 && errno == EINTR && !WasInterrupted());
    return file;
}

void System::CloseFile(int iFile)
{
    close(iFile);
}

int System::GetStandardInput()
{
    return STDIN_FILENO;
}

std::ptrdiff_t System::ReadFile(int iFile, char* oBytes, std::size_t iSize)
{
    ssize_t count = -1;
    errno = EINTR;
    while (count < 0 && errno == EINTR && !WasInterrupted()) {
        WaitForInput(iFile);
        count = WasInterrupted() ? -1 : read(iFile, oBytes, iSize);
    }
    return count;
}

bool System::PrintOutput(std::string_view iText)
{
    return Print(STDOUT_FILENO, iText);
}

bool System::PrintError(std::string_view iText)
{
    return Print(STDERR_FILENO, iText);
}

bool System::IsErrorTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

void System::CatchInterruption()
{
    struct sigaction before = {};
    if (sigaction(SIGINT, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) {
        return; // whoever started the program wants it so
    }
    struct sigaction action = {};
    action.sa_handler = [](int) { g_wasInterrupted = true; };
    action.sa_flags = static_cast<int>(SA_RESETHAND); // and no SA_RESTART: what waits for input ends
    sigaction(SIGINT, &action, nullptr);
}

bool System::WasInterrupted()
{
    return g_wasInterrupted;
}

#endif
