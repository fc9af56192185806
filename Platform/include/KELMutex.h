#ifndef KELMutex_H
#define KELMutex_H

#include "KELInline.h"
#include "KELThreadIdentity.h"
#include "KELThreadSafety.h"

#include <atomic>
#include <mutex>

/// A re-entrant mutex: the thread that holds it may lock it again, and gives it up with as many `Unlock` calls.
///
/// A standard mutex does the waiting. The owner's identity beside it tells a thread that it holds the mutex already; a
/// thread can find its own identity there only if it wrote it itself, so a relaxed read is enough. Thread-safe.
class KEL_CAPABILITY("mutex") KELMutex {
public:
    /// The arguments select kinds of mutex on other systems; here there is one kind.
    KELMutex(int, int, int) noexcept {}

    KELMutex(const KELMutex&) = delete;
    KELMutex& operator=(const KELMutex&) = delete;
    ~KELMutex() = default;

    /// Waits until no other thread holds the mutex.
    KEL_ALWAYS_INLINE void Lock() KEL_ACQUIRE() KEL_NO_THREAD_SAFETY_ANALYSIS
    {
        const KELThreadIdentity self = KELCurrentThread();
        if (m_owner.load(std::memory_order_relaxed) == self) {
            ++m_again;
            return;
        }
        m_mutex.lock();
        m_owner.store(self, std::memory_order_relaxed);
    }

    /// Takes back one `Lock` of the calling thread.
    KEL_ALWAYS_INLINE void Unlock() KEL_RELEASE() KEL_NO_THREAD_SAFETY_ANALYSIS
    {
        if (m_again > 0) {
            --m_again;
            return;
        }
        m_owner.store(KELThreadIdentity(), std::memory_order_relaxed);
        m_mutex.unlock();
    }

private:
    std::mutex m_mutex;
    std::atomic<KELThreadIdentity> m_owner{};
    unsigned int m_again = 0; // how often the owner has locked it again; touched by the owner alone
};

#endif
