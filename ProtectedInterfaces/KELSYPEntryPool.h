#ifndef KELSYPEntryPool_H
#define KELSYPEntryPool_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>

/// Memory for the entries of one map: blocks of one size, cut from chunks, so that few entries cost an allocation.
///
/// Blocks that are given back serve the next entries; the chunks are freed with the pool, which outlives every block.
/// Not used by two threads at once.
class KELSYPEntryPool {
public:
    explicit KELSYPEntryPool(std::size_t iBlockSize)
        : m_blockSize((iBlockSize + kAlignment - 1) / kAlignment * kAlignment)
    {
    }

    KELSYPEntryPool(const KELSYPEntryPool&) = delete;
    KELSYPEntryPool& operator=(const KELSYPEntryPool&) = delete;

    ~KELSYPEntryPool()
    {
        while (m_lastChunk) { // one by one: chunks that freed each other would do so on top of each other
            m_lastChunk = std::move(m_lastChunk->previous);
        }
    }

    /// A block, aligned for any object. Throws the standard allocation failure, and the pool is then as it was.
    void* Take()
    {
        if (m_free) {
            return std::exchange(m_free, m_free->next);
        }
        if (m_next == m_end) {
            AddChunk();
        }
        return std::exchange(m_next, m_next + m_blockSize);
    }

    void Give(void* iBlock) noexcept { m_free = ::new (iBlock) FreeBlock{m_free}; }

private:
    static constexpr std::size_t kAlignment = alignof(std::max_align_t);
    static constexpr std::size_t kFewestBlocks = 8; // of a chunk; so few that its memory is at hand in most allocators
    static constexpr std::size_t kMostBlocks = 64;

    struct FreeBlock {
        FreeBlock* next;
    };

    // The blocks lie behind it, in the same allocation.
    struct alignas(kAlignment) Chunk {
        static void* operator new(std::size_t iSize, std::size_t iBytes) { return ::operator new(iSize + iBytes); }
        // NOLINTNEXTLINE(misc-new-delete-overloads): chunks are made with bytes behind them only
        static void operator delete(void* iChunk) noexcept { ::operator delete(iChunk); }

        std::unique_ptr<Chunk> previous;
    };

    void AddChunk()
    {
        const std::size_t blocks = std::clamp(m_blocks / 2, kFewestBlocks, kMostBlocks);
        auto* const chunk = new (blocks * m_blockSize) Chunk{std::move(m_lastChunk)};
        m_lastChunk.reset(chunk);
        m_blocks += blocks;
        m_next = reinterpret_cast<std::byte*>(chunk + 1);
        m_end = m_next + blocks * m_blockSize;
    }

    std::unique_ptr<Chunk> m_lastChunk;
    FreeBlock* m_free = nullptr; // given back
    std::byte* m_next = nullptr; // never taken: the rest of the last chunk, up to m_end
    std::byte* m_end = nullptr;
    std::size_t m_blocks = 0; // of all chunks
    std::size_t m_blockSize;
};

#endif
