#ifndef KELSYPEntryPool_H
#define KELSYPEntryPool_H

#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

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
    ~KELSYPEntryPool() = default;

    /// A block, aligned for any object. Throws the standard allocation failure, and the pool is then as it was.
    void* Take()
    {
        if (!m_free) {
            AddChunk();
        }
        return std::exchange(m_free, m_free->next);
    }

    void Give(void* iBlock) noexcept { m_free = ::new (iBlock) FreeBlock{m_free}; }

private:
    static constexpr std::size_t kAlignment = alignof(std::max_align_t);
    static constexpr std::size_t kFirstBlocks = 8;
    static constexpr std::size_t kMostBlocks = 64;

    struct FreeBlock {
        FreeBlock* next;
    };

    void AddChunk()
    {
        auto chunk = std::make_unique_for_overwrite<std::byte[]>(m_nextBlocks * m_blockSize);
        std::byte* const first = chunk.get();
        m_chunks.push_back(std::move(chunk));
        for (std::size_t i = m_nextBlocks; i-- > 0;) { // backwards, so that blocks are taken in the order of memory
            Give(first + i * m_blockSize);
        }
        if (m_nextBlocks < kMostBlocks) {
            m_nextBlocks *= 2;
        }
    }

    std::vector<std::unique_ptr<std::byte[]>> m_chunks;
    FreeBlock* m_free = nullptr;
    std::size_t m_blockSize;
    std::size_t m_nextBlocks = kFirstBlocks;
};

#endif
