#ifndef KELSYPPool_H
#define KELSYPPool_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

/// \file
/// The address sanitizer is told which blocks of a pool are in use: it would not see the use of any other.
#if defined(__SANITIZE_ADDRESS__)
#define KELSYP_HAS_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KELSYP_HAS_ADDRESS_SANITIZER 1
#endif
#endif
#if defined(KELSYP_HAS_ADDRESS_SANITIZER)
#include <sanitizer/asan_interface.h>
#define KELSYP_POISON(memory, size) ASAN_POISON_MEMORY_REGION(memory, size)
#define KELSYP_UNPOISON(memory, size) ASAN_UNPOISON_MEMORY_REGION(memory, size)
#else
#define KELSYP_POISON(memory, size) static_cast<void>(0)
#define KELSYP_UNPOISON(memory, size) static_cast<void>(0)
#endif

/// Objects of one class in chunks of memory, so that few objects cost an allocation.
///
/// Blocks that are given back serve the next objects; when the last object has gone, the memory goes, too. The pool
/// outlives its objects. Thread-compatible.
template <class T>
class KELSYPPool {
public:
    /// Destroys an object and gives its block back.
    struct Deleter {
        void operator()(T* iObject) const noexcept
        {
            Destroy(iObject);
            pool->Give(iObject);
        }

        KELSYPPool* pool;
    };

    /// Owns an object of the pool.
    using Owner = std::unique_ptr<T, Deleter>;

    KELSYPPool() = default;
    KELSYPPool(const KELSYPPool&) = delete;
    KELSYPPool& operator=(const KELSYPPool&) = delete;
    ~KELSYPPool() { FreeChunks(); }

    /// A new object. Throws `std::bad_alloc` and what the constructor throws; the pool is then as it was.
    template <class... Arguments>
    Owner Make(Arguments&&... ioArguments)
    {
        void* const block = Take();
        try {
            return Own(::new (block) T{std::forward<Arguments>(ioArguments)...});
        } catch (...) {
            Give(block);
            throw;
        }
    }

    /// Owns an object that was released from its owner.
    Owner Own(T* iObject) noexcept { return Owner(iObject, Deleter{this}); }

    /// Destroys an object that was released from its owner, if any, when the pool goes next and needs no block back.
    static void Destroy(T* iObject) noexcept
    {
        if (iObject) {
            iObject->T::~T(); // exactly a T
        }
    }

    /// Makes room for iCount more objects in one chunk. Does nothing for a count that two chunks of the first size
    /// cover: two that allocators keep at hand cost less than a larger one. Throws `std::bad_alloc`.
    void Reserve(std::size_t iCount)
    {
        const bool isTwoChunks = iCount > kFewestBlocks && iCount <= 2 * kFewestBlocks;
        if (!isTwoChunks && iCount > static_cast<std::size_t>(m_end - m_next) / kBlock) {
            AddChunk(iCount);
        }
    }

    /// Exchanges all memory, and with it the objects that no owner holds.
    void Swap(KELSYPPool& ioOther) noexcept
    {
        std::swap(m_lastChunk, ioOther.m_lastChunk);
        std::swap(m_free, ioOther.m_free);
        std::swap(m_next, ioOther.m_next);
        std::swap(m_end, ioOther.m_end);
        std::swap(m_blocks, ioOther.m_blocks);
        std::swap(m_taken, ioOther.m_taken);
    }

private:
    struct FreeBlock {
        FreeBlock* next;
    };

    // The blocks lie behind it, in the same allocation.
    struct Chunk {
        Chunk* previous;
    };

    static_assert(alignof(T) <= alignof(Chunk) && sizeof(T) >= sizeof(FreeBlock));
    static constexpr std::size_t kBlock = (sizeof(T) + alignof(Chunk) - 1) / alignof(Chunk) * alignof(Chunk);
    static constexpr std::size_t kFirstBytes = 1008; // of a chunk: what allocators keep at hand
    static constexpr std::size_t kFewestBlocks = (std::max<std::size_t>)(1, (kFirstBytes - sizeof(Chunk)) / kBlock);
    static constexpr std::size_t kMostBlocks = 64;

    void* Take()
    {
        if (!m_free && m_next == m_end) {
            AddChunk(std::clamp(m_blocks / 2, kFewestBlocks, kMostBlocks));
        }
        ++m_taken;
        if (m_free) {
            KELSYP_UNPOISON(m_free, kBlock);
            return std::exchange(m_free, m_free->next);
        }
        KELSYP_UNPOISON(m_next, kBlock);
        return std::exchange(m_next, m_next + kBlock);
    }

    void Give(void* iBlock) noexcept
    {
        m_free = ::new (iBlock) FreeBlock{m_free};
        KELSYP_POISON(iBlock, kBlock);
        if (--m_taken == 0) {
            FreeChunks();
        }
    }

    void AddChunk(std::size_t iBlocks)
    {
        void* const memory = ::operator new(sizeof(Chunk) + iBlocks * kBlock);
        m_lastChunk = ::new (memory) Chunk{m_lastChunk};
        m_blocks += iBlocks;
        m_next = reinterpret_cast<std::byte*>(m_lastChunk + 1);
        m_end = m_next + iBlocks * kBlock;
        KELSYP_POISON(m_next, iBlocks * kBlock);
    }

    void FreeChunks() noexcept
    {
        while (m_lastChunk) {
            ::operator delete(std::exchange(m_lastChunk, m_lastChunk->previous));
        }
        m_free = nullptr;
        m_next = m_end = nullptr;
        m_blocks = 0;
    }

    Chunk* m_lastChunk = nullptr;
    FreeBlock* m_free = nullptr; // given back
    std::byte* m_next = nullptr; // never taken: the rest of the last chunk, up to m_end
    std::byte* m_end = nullptr;
    std::size_t m_blocks = 0; // of all chunks
    std::size_t m_taken = 0;  // blocks in use
};

#endif
