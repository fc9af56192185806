// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELReferenceCount_H
#define KELReferenceCount_H

/// \file
/// The count of what is shared.

#include "KELTypes.h"

#include <atomic>

/// The number of holders of one shared object. Thread-safe. Wraps around after 2^32 holders.
class KELReferenceCount {
public:
    constexpr explicit KELReferenceCount(KELUINT32 iReferences) noexcept : m_count(iReferences) {}
    KELReferenceCount(const KELReferenceCount&) = delete;
    KELReferenceCount& operator=(const KELReferenceCount&) = delete;
    ~KELReferenceCount() = default;

    /// Whether the caller is the only holder, so that it may change what is shared.
    bool IsUnique() const noexcept { return m_count.load(std::memory_order_acquire) == 1; }

    /// Adds one holder and returns the new count.
    KELUINT32 Increment() noexcept { return m_count.fetch_add(1, std::memory_order_relaxed) + 1; }

    /// Takes one holder away and returns the new count.
    ///
    /// At 0 the caller owns the object alone and sees everything that the other holders did to it.
    KELUINT32 Decrement() noexcept { return m_count.fetch_sub(1, std::memory_order_acq_rel) - 1; }

private:
    std::atomic<KELUINT32> m_count;
};

#endif
