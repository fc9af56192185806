#include "OwnMemory.h"

#include <cstdlib>
#include <malloc.h>
#include <new>

#ifdef _WIN32
#define malloc_usable_size _msize
#endif

void OwnMemory::FailAt(long iAllocation, bool iAndEveryLaterOne)
{
    s_countdown = iAllocation;
    s_failsOn = iAndEveryLaterOne;
    s_failures = 0;
}

void* operator new(std::size_t iSize)
{
    if (OwnMemory::s_countdown > 0 && --OwnMemory::s_countdown == 0) {
        OwnMemory::s_countdown = OwnMemory::s_failsOn ? 1 : 0;
        ++OwnMemory::s_failures;
        throw std::bad_alloc();
    }
    void* const memory = std::malloc(iSize);
    memory ? void() : throw std::bad_alloc();
    OwnMemory::s_allocatedBytes += static_cast<long>(iSize);
    OwnMemory::s_liveBytes += static_cast<long>(malloc_usable_size(memory));
    return memory;
}

// The one of a fuzzer's run time would not fit the `delete` below.
void* operator new(std::size_t iSize, const std::nothrow_t& /*iTag*/) noexcept
{
    return ::operator new(iSize); // nobody calls it while memory fails
}

void operator delete(void* iMemory) noexcept
{
    if (iMemory) {
        OwnMemory::s_liveBytes -= static_cast<long>(malloc_usable_size(iMemory));
        std::free(iMemory);
    }
}

void operator delete(void* iMemory, std::size_t) noexcept
{
    ::operator delete(iMemory);
}
