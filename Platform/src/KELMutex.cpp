#include "KELMutex.h"

#include <cstddef>

#if defined(_WIN32)
// Not the standard library's wait: that of mingw-w64 loses wake-ups.
extern "C" {
__declspec(dllimport) int __stdcall WaitOnAddress(volatile void*, void*, std::size_t, unsigned long);
__declspec(dllimport) void __stdcall WakeByAddressSingle(void*);
}
#endif

namespace {

void WaitWhile(std::atomic<int>& iState, int iValue) noexcept
{
#if defined(_WIN32)
    constexpr unsigned long kForEver = 0xFFFFFFFF;
    WaitOnAddress(&iState, &iValue, sizeof(iValue), kForEver);
#else
    iState.wait(iValue, std::memory_order_relaxed);
#endif
}

void WakeOne(std::atomic<int>& iState) noexcept
{
#if defined(_WIN32)
    WakeByAddressSingle(&iState);
#else
    iState.notify_one();
#endif
}

} // namespace

// Who has waited takes the mutex as awaited, since others may wait beside it: at worst its `Unlock` wakes nobody.
void KELMutex::Wait() noexcept
{
    while (m_state.exchange(kAwaited, std::memory_order_acquire) != kFree) {
        WaitWhile(m_state, kAwaited);
    }
}

void KELMutex::Wake() noexcept
{
    WakeOne(m_state);
}
