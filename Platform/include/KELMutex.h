#ifndef KELMutex_H
#define KELMutex_H

#include "KELExport.h"
#include "KELInline.h"
#include "KELThreadIdentity.h"
#include "KELThreadSafety.h"

#include <atomic>

/// A re-entrant mutex: the thread that holds it may lock it again, and gives it up with as many `Unlock` calls.
///
/// A free mutex is locked and given up in line, at the cost of one exchange each; only who must wait, or is waited for,
/// calls the platform library. The owner's identity beside the state tells a thread that it holds the mutex already; a
/// thread can find its own identity there only if it wrote it itself, so a relaxed read is enough. Waiters are not
/// served in order. Thread-safe.
class KEL_CAPABILITY("mutex") KELMutex {
public:
    /// The arguments select kinds of mutex on other systems; here there is one kind.
    KELMutex(int, int, int) noexcept {}

    KELMutex(const KELMutex&) = delete;
    KELMutex& operator=(const KELMutex&) = delete;
    ~KELMutex() = default;

    /// Waits until no other thread holds the mutex.
    KEL_ALWAYS_INLINE void Lock() noexcept KEL_ACQUIRE() KEL_NO_THREAD_SAFETY_ANALYSIS
    {
        const KELThreadIdentity self = KELCurrentThread();
        if (m_owner.load(std::memory_order_relaxed) == self) {
            ++m_again;
            return;
        }
        State expected = kFree;
        if (!m_state.compare_exchange_strong(expected, kHeld, std::memory_order_acquire, std::memory_order_relaxed)) {
            Wait();
        }
        m_owner.store(self, std::memory_order_relaxed);
    }

    /// Takes back one `Lock` of the calling thread.
    KEL_ALWAYS_INLINE void Unlock() noexcept KEL_RELEASE() KEL_NO_THREAD_SAFETY_ANALYSIS
    {
        if (m_again > 0) {
            --m_again;
            return;
        }
        m_owner.store(KELThreadIdentity(), std::memory_order_relaxed);
        if (m_state.exchange(kFree, std::memory_order_release) == kAwaited) {
            Wake();
        }
    }

private:
    using State = int;
    static constexpr State kFree = 0;
    static constexpr State kHeld = 1;
    static constexpr State kAwaited = 2; // held, and somebody may wait

    // Takes the mutex as soon as it is free.
    KEL_API void Wait() noexcept;

    // Wakes one of those who wait.
    KEL_API void Wake() noexcept;

    std::atomic<State> m_state{kFree};
    unsigned int m_again = 0; // how often the owner has locked it again; touched by the owner alone
    std::atomic<KELThreadIdentity> m_owner{};
};

#endif
