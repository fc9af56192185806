#ifndef ZrvLock_H
#define ZrvLock_H

#include "KELInline.h"
#include "KELMutex.h"
#include "KELThreadSafety.h"

#include <functional>

/// Holds a mutex for the length of a scope, an exit by exception included.
class KEL_SCOPED_CAPABILITY ZrvLock {
public:
    KEL_ALWAYS_INLINE explicit ZrvLock(KELMutex& ioMutex) KEL_ACQUIRE(ioMutex) : m_mutex(ioMutex) { m_mutex.Lock(); }
    ZrvLock(const ZrvLock&) = delete;
    ZrvLock& operator=(const ZrvLock&) = delete;
    KEL_ALWAYS_INLINE ~ZrvLock() KEL_RELEASE() { m_mutex.Unlock(); }

private:
    KELMutex& m_mutex;
};

/// Holds two mutexes for the length of a scope, or one when both are the same.
///
/// Everyone takes the two in the order of their addresses, so that nobody waits for the second while somebody who holds
/// it waits for the first.
class KEL_SCOPED_CAPABILITY ZrvPairLock {
public:
    ZrvPairLock(KELMutex& ioOne, KELMutex& ioOther) KEL_ACQUIRE(ioOne, ioOther) KEL_NO_THREAD_SAFETY_ANALYSIS
        : m_first(std::less<>()(&ioOne, &ioOther) ? ioOne : ioOther),
          m_second(&m_first == &ioOne ? ioOther : ioOne)
    {
        m_first.Lock();
        if (&m_first != &m_second) {
            m_second.Lock();
        }
    }
    ZrvPairLock(const ZrvPairLock&) = delete;
    ZrvPairLock& operator=(const ZrvPairLock&) = delete;
    ~ZrvPairLock() KEL_RELEASE() KEL_NO_THREAD_SAFETY_ANALYSIS
    {
        if (&m_first != &m_second) {
            m_second.Unlock();
        }
        m_first.Unlock();
    }

private:
    KELMutex& m_first;
    KELMutex& m_second;
};

#endif
