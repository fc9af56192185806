#ifndef KELReferenceCount_H
#define KELReferenceCount_H

#include "KELTypes.h"

#include <atomic>

/// The number of holders of one shared object, or the mark of an object that is never given back.
///
/// An immortal count is never written to: copying a text of the library's own costs a read, and such texts may lie in
/// read-only memory. Thread-safe.
class KELReferenceCount {
public:
    struct Immortal {};

    constexpr explicit KELReferenceCount(KELUINT32 iReferences) noexcept : m_count(iReferences) {}
    constexpr explicit KELReferenceCount(Immortal) noexcept : m_count(kImmortal) {}
    KELReferenceCount(const KELReferenceCount&) = delete;
    KELReferenceCount& operator=(const KELReferenceCount&) = delete;
    ~KELReferenceCount() = default;

    bool IsImmortal() const noexcept { return m_count.load(std::memory_order_relaxed) == kImmortal; }

    /// Whether the caller is the only holder, so that it may change what is shared.
    bool IsUnique() const noexcept { return m_count.load(std::memory_order_acquire) == 1; }

    /// Adds one holder and returns the new count. Not for an immortal count.
    KELUINT32 Increment() noexcept { return m_count.fetch_add(1, std::memory_order_relaxed) + 1; }

    /// Takes one holder away and returns the new count. Not for an immortal count.
    ///
    /// At 0 the caller owns the object alone and sees everything that the other holders did to it.
    KELUINT32 Decrement() noexcept { return m_count.fetch_sub(1, std::memory_order_acq_rel) - 1; }

private:
    static constexpr KELUINT32 kImmortal = 0xFFFFFFFF;

    std::atomic<KELUINT32> m_count;
};

#endif
