#ifndef Measure_H
#define Measure_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

/// How many bytes the heap spends on what is allocated, its own included.
std::size_t CountBytesInUse() noexcept;

/// Starts to count what one run of a workload asks of the heap, and, under callgrind, its instructions. What it returns
/// is handed to the function that stops and notes the counts.
/// @{
std::uint64_t StartCounting();
void StopCounting(benchmark::State& ioState, std::uint64_t iStart);
/// @}

/// Runs an operation, which tells whether it succeeded, as often as the state asks.
template <class Operation>
void Measure(benchmark::State& ioState, Operation iOperation)
{
    const std::uint64_t start = StartCounting();
    for (auto _ : ioState) {
        if (!iOperation()) {
            ioState.SkipWithError("an operation failed");
            break;
        }
    }
    StopCounting(ioState, start);
}

/// How many operations of a workload are counted, a multiple of the numbers of names that it uses in turn.
constexpr benchmark::IterationCount kCounted = 1200;

/// Adds a workload of one contestant to the run. Under callgrind it runs with iCounted operations and with twice as
/// many: the difference counts. A run of one operation before them pays what is paid once, such as binding functions.
benchmark::internal::Benchmark* AddWorkload(const std::string& iWorkload, const std::string& iContestant,
                                            std::function<void(benchmark::State&)> iRun,
                                            benchmark::IterationCount iCounted = kCounted);

/// Whether the program runs under callgrind.
bool IsCountingInstructions();

#endif
