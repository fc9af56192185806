#include "OwnMemory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> g_allocations{0};
std::atomic<long> g_live{0};
long g_countdown = 0; // to the failure; 0 when none is to come
bool g_failsOn = false;
long g_failures = 0;

} // namespace

void OwnMemory::FailAt(long iAllocation, bool iAndEveryLaterOne)
{
    g_countdown = iAllocation;
    g_failsOn = iAndEveryLaterOne;
    g_failures = 0;
}

long OwnMemory::Behave()
{
    g_countdown = 0;
    return g_failures;
}

long OwnMemory::Allocations()
{
    return g_allocations;
}

long OwnMemory::Live()
{
    return g_live;
}

void* operator new(std::size_t iSize)
{
    if (g_countdown > 0 && --g_countdown == 0) {
        g_countdown = g_failsOn ? 1 : 0;
        ++g_failures;
        throw std::bad_alloc();
    }
    void* const memory = std::malloc(iSize);
    if (!memory) {
        throw std::bad_alloc();
    }
    ++g_allocations;
    ++g_live;
    return memory;
}

void* operator new(std::size_t iSize, const std::nothrow_t&) noexcept
{
    try {
        return ::operator new(iSize);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void operator delete(void* iMemory) noexcept
{
    g_live -= iMemory ? 1 : 0;
    std::free(iMemory);
}

void operator delete(void* iMemory, std::size_t) noexcept
{
    ::operator delete(iMemory);
}
