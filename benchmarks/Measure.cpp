#include "Measure.h"

#include <malloc.h>

#include <utility>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define RUNNING_ON_VALGRIND 0
#define CALLGRIND_START_INSTRUMENTATION
#define CALLGRIND_ZERO_STATS
#define CALLGRIND_DUMP_STATS_AT(title) static_cast<void>(title)
#define CALLGRIND_STOP_INSTRUMENTATION
#endif

namespace {

constinit thread_local std::uint64_t g_allocations = 0;
std::string g_running; // the workload and contestant, for the title of a dump

} // namespace

// The program's own definitions stand in front of the C library's for every module, so that C libraries count as well.
// They add one instruction to the real work, for all contestants alike.
// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names
extern "C" {
void* __libc_malloc(std::size_t iSize) noexcept;
void* __libc_calloc(std::size_t iCount, std::size_t iSize) noexcept;
void* __libc_realloc(void* ioMemory, std::size_t iSize) noexcept;
void* __libc_memalign(std::size_t iAlignment, std::size_t iSize) noexcept;

void* malloc(std::size_t iSize) noexcept
{
    ++g_allocations;
    return __libc_malloc(iSize);
}

void* calloc(std::size_t iCount, std::size_t iSize) noexcept
{
    ++g_allocations;
    return __libc_calloc(iCount, iSize);
}

void* realloc(void* ioMemory, std::size_t iSize) noexcept
{
    ++g_allocations;
    return __libc_realloc(ioMemory, iSize);
}

void* aligned_alloc(std::size_t iAlignment, std::size_t iSize) noexcept
{
    ++g_allocations;
    return __libc_memalign(iAlignment, iSize);
}
}
// NOLINTEND(bugprone-reserved-identifier)

std::size_t CountBytesInUse() noexcept
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

bool IsCountingInstructions()
{
    static const bool isCounting = RUNNING_ON_VALGRIND != 0;
    return isCounting;
}

std::uint64_t StartCounting()
{
    if (IsCountingInstructions()) {
        CALLGRIND_START_INSTRUMENTATION;
        CALLGRIND_ZERO_STATS;
    }
    return g_allocations;
}

void StopCounting(benchmark::State& ioState, std::uint64_t iStart)
{
    const auto allocations = static_cast<double>(g_allocations - iStart);
    if (IsCountingInstructions()) {
        const std::string title = g_running + "/" + std::to_string(ioState.iterations());
        CALLGRIND_DUMP_STATS_AT(title.c_str());
        CALLGRIND_STOP_INSTRUMENTATION;
    }
    ioState.counters["allocations"] = benchmark::Counter(allocations, benchmark::Counter::kAvgIterations);
}

benchmark::internal::Benchmark* AddWorkload(const std::string& iWorkload, const std::string& iContestant,
                                            std::function<void(benchmark::State&)> iRun,
                                            benchmark::IterationCount iCounted)
{
    const std::string name = iWorkload + "/" + iContestant;
    if (!IsCountingInstructions()) {
        return benchmark::RegisterBenchmark(name.c_str(), std::move(iRun));
    }
    const auto titledRun = [name, run = std::move(iRun)](benchmark::State& ioState) {
        g_running = name;
        run(ioState);
    };
    benchmark::RegisterBenchmark(name.c_str(), titledRun)->Iterations(1);
    benchmark::RegisterBenchmark(name.c_str(), titledRun)->Iterations(iCounted);
    return benchmark::RegisterBenchmark(name.c_str(), titledRun)->Iterations(2 * iCounted);
}
