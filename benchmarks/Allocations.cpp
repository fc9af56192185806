#include "Allocations.h"

#include <cstddef>

// The program's own definitions stand in front of the C library's for every module, so that C libraries count as well.
// They add one instruction to the real work, for all contestants alike.

namespace {

constinit thread_local std::uint64_t g_count = 0;

} // namespace

std::uint64_t CountAllocations() noexcept
{
    return g_count;
}

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names
extern "C" {
void* __libc_malloc(std::size_t iSize) noexcept;
void* __libc_calloc(std::size_t iCount, std::size_t iSize) noexcept;
void* __libc_realloc(void* ioMemory, std::size_t iSize) noexcept;
void* __libc_memalign(std::size_t iAlignment, std::size_t iSize) noexcept;

void* malloc(std::size_t iSize) noexcept
{
    ++g_count;
    return __libc_malloc(iSize);
}

void* calloc(std::size_t iCount, std::size_t iSize) noexcept
{
    ++g_count;
    return __libc_calloc(iCount, iSize);
}

void* realloc(void* ioMemory, std::size_t iSize) noexcept
{
    ++g_count;
    return __libc_realloc(ioMemory, iSize);
}

void* aligned_alloc(std::size_t iAlignment, std::size_t iSize) noexcept
{
    ++g_count;
    return __libc_memalign(iAlignment, iSize);
}
}
// NOLINTEND(bugprone-reserved-identifier)
