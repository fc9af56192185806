#ifndef KELMutex_H
#define KELMutex_H

#include "KELExport.h"
#include "KELInline.h"
#include "KELThreadIdentity.h"
#include "KELThreadSafety.h"

#include <atomic>

/// \file
/// The thread sanitizer is told of the mutex: it would not see the order in which several are taken.
#if defined(__SANITIZE_THREAD__)
#define KEL_HAS_THREAD_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KEL_HAS_THREAD_SANITIZER 1
#endif
#endif
#if defined(KEL_HAS_THREAD_SANITIZER)
#include <sanitizer/tsan_interface.h>
#define KEL_TELL_SANITIZER(call) call
#else
#define KEL_TELL_SANITIZER(call) static_cast<void>(0)
#endif

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
    ~KELMutex() { KEL_TELL_SANITIZER(__tsan_mutex_destroy(this, 0)); } // NOLINT(modernize-use-equals-default)

    /// Waits until no other thread holds the mutex.
    KEL_ALWAYS_INLINE void Lock() noexcept KEL_ACQUIRE() KEL_NO_THREAD_SAFETY_ANALYSIS
    {
        const KELThreadIdentity self = KELCurrentThread();
        if (m_owner.load(std::memory_order_relaxed) == self) {
            ++m_again;
            return;
        }
        KEL_TELL_SANITIZER(__tsan_mutex_pre_lock(this, 0));
        int expected = kFree;
        if (!m_state.compare_exchange_strong(expected, kHeld, std::memory_order_acquire, std::memory_order_relaxed)) {
            Wait();
        }
        m_owner.store(self, std::memory_order_relaxed);
        KEL_TELL_SANITIZER(__tsan_mutex_post_lock(this, 0, 0));
    }

    /// Takes back one `Lock` of the calling thread.
    KEL_ALWAYS_INLINE void Unlock() noexcept KEL_RELEASE() KEL_NO_THREAD_SAFETY_ANALYSIS
    {
        if (m_again > 0) {
            --m_again;
            return;
        }
        KEL_TELL_SANITIZER(__tsan_mutex_pre_unlock(this, 0));
        m_owner.store(KELThreadIdentity(), std::memory_order_relaxed);
        if (m_state.exchange(kFree, std::memory_order_release) == kAwaited) {
            Wake();
        }
        KEL_TELL_SANITIZER(__tsan_mutex_post_unlock(this, 0));
    }

private:
    static constexpr int kFree = 0;
    static constexpr int kHeld = 1;
    static constexpr int kAwaited = 2; // held, and somebody may wait

    // Takes the mutex as soon as it is free.
    KEL_API void Wait() noexcept;

    // Wakes one of those who wait.
    KEL_API void Wake() noexcept;

    std::atomic<int> m_state{kFree};
    unsigned int m_again = 0; // how often the owner has locked it again; touched by the owner alone
    std::atomic<KELThreadIdentity> m_owner{};
};

#endif
