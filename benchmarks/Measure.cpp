#include "Measure.h"

#include "Allocations.h"

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#endif

#include <utility>

namespace {

std::string g_running; // the workload and contestant, for the title of a dump

#if defined(CALLGRIND_START_INSTRUMENTATION)

bool IsUnderCallgrind()
{
    return RUNNING_ON_VALGRIND != 0;
}

void StartCounting()
{
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
}

void StopCounting(const std::string& iTitle)
{
    CALLGRIND_DUMP_STATS_AT(iTitle.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
}

#else

bool IsUnderCallgrind()
{
    return false;
}

void StartCounting() {}
void StopCounting(const std::string& /*iTitle*/) {}

#endif

} // namespace

bool IsCountingInstructions()
{
    static const bool isCounting = IsUnderCallgrind();
    return isCounting;
}

Observer::Observer(benchmark::State& ioState)
    : m_state(ioState), m_allocationsBefore(static_cast<double>(CountAllocations()))
{
    if (IsCountingInstructions()) {
        StartCounting();
    }
}

Observer::~Observer()
{
    if (IsCountingInstructions()) {
        StopCounting(g_running + "/" + std::to_string(m_state.iterations()));
    }
    m_state.counters["allocations"] = benchmark::Counter(static_cast<double>(CountAllocations()) - m_allocationsBefore,
                                                         benchmark::Counter::kAvgIterations);
}

benchmark::internal::Benchmark* AddWorkload(const std::string& iWorkload, const std::string& iContestant,
                                            std::function<void(benchmark::State&)> iRun)
{
    const std::string name = iWorkload + "/" + iContestant;
    if (!IsCountingInstructions()) {
        return benchmark::RegisterBenchmark(name.c_str(), std::move(iRun));
    }
    const auto titledRun = [name, run = std::move(iRun)](benchmark::State& ioState) {
        g_running = name;
        run(ioState);
    };
    constexpr benchmark::IterationCount kOperations = 1000;
    benchmark::RegisterBenchmark(name.c_str(), titledRun)->Iterations(kOperations);
    return benchmark::RegisterBenchmark(name.c_str(), titledRun)->Iterations(2 * kOperations);
}
