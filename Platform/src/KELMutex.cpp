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

using Number = std::atomic<int>;

static_assert(sizeof(Number) == sizeof(int) && Number::is_always_lock_free, "the systems read it as an int");

// May return early.
void SleepWhile(Number& iNumber, int iValue) noexcept
{
#if defined(__linux__)
    const int before = errno; // which the host may read after any operation
    syscall(SYS_futex, &iNumber, FUTEX_WAIT_PRIVATE, iValue, nullptr, nullptr, 0);
    errno = before;
#elif defined(_WIN32)
    constexpr unsigned long kForEver = 0xFFFFFFFF;
    WaitOnAddress(&iNumber, &iValue, sizeof(iValue), kForEver);
#else
    iNumber.wait(iValue, std::memory_order_relaxed);
#endif
}

void WakeOne(Number& iNumber) noexcept
{
#if defined(__linux__)
    syscall(SYS_futex, &iNumber, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
#elif defined(_WIN32)
    WakeByAddressSingle(&iNumber);
#else
    iNumber.notify_one();
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
