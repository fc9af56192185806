#include "KELMutex.h"

// Linux and Windows can put a thread to sleep on the address of a number. The standard library's own wait looks at the
// number again and again before it does so, which costs the thread that holds the mutex more than it saves, and that of
// mingw-w64 loses wake-ups.
#if defined(__linux__)
#include <cerrno>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>
#elif defined(_WIN32)
#include <cstddef>
extern "C" {
__declspec(dllimport) int __stdcall WaitOnAddress(volatile void*, void*, std::size_t, unsigned long);
__declspec(dllimport) void __stdcall WakeByAddressSingle(void*);
}
#endif

namespace {

static_assert(sizeof(std::atomic<int>) == sizeof(int) && std::atomic<int>::is_always_lock_free, "systems read an int");

#if defined(__linux__)
// The host may read errno after any operation: it stays.
void Futex(std::atomic<int>& ioState, int iOperation, int iValue) noexcept
{
    const int before = errno;
    syscall(SYS_futex, &ioState, iOperation, iValue, nullptr, nullptr, 0);
    errno = before;
}
#endif

// May return early.
void SleepWhile(std::atomic<int>& ioState, int iValue) noexcept
{
#if defined(__linux__)
    Futex(ioState, FUTEX_WAIT_PRIVATE, iValue);
#elif defined(_WIN32)
    constexpr unsigned long kForEver = 0xFFFFFFFF;
    WaitOnAddress(&ioState, &iValue, sizeof(iValue), kForEver);
#else
    ioState.wait(iValue, std::memory_order_relaxed);
#endif
}

void WakeOne(std::atomic<int>& ioState) noexcept
{
#if defined(__linux__)
    Futex(ioState, FUTEX_WAKE_PRIVATE, 1);
#elif defined(_WIN32)
    WakeByAddressSingle(&ioState);
#else
    ioState.notify_one();
#endif
}

} // namespace

// Who has waited takes the mutex as awaited, since others may wait beside it: at worst its `Unlock` wakes nobody.
void KELMutex::Wait() noexcept
{
    while (m_state.exchange(kAwaited, std::memory_order_acquire) != kFree) {
        SleepWhile(m_state, kAwaited);
    }
}

void KELMutex::Wake() noexcept
{
    WakeOne(m_state);
}
