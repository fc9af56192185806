#include "AllocationCount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {
std::atomic<int> g_allocations{0};
}

int AllocationCount()
{
    return g_allocations;
}

void* operator new(std::size_t iSize)
{
    ++g_allocations;
    if (void* memory = std::malloc(iSize)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* iMemory) noexcept
{
    std::free(iMemory);
}

void operator delete(void* iMemory, std::size_t) noexcept
{
    std::free(iMemory);
}
