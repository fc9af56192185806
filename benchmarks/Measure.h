#ifndef Measure_H
#define Measure_H

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

/// Counts what one run of a workload asks of the heap, and, under callgrind, its instructions.
class Observer {
public:
    explicit Observer(benchmark::State& ioState);
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;
    ~Observer();

private:
    benchmark::State& m_state;
    double m_allocationsBefore;
};

/// Runs an operation, which tells whether it succeeded, as often as the state asks.
template <class Operation>
void Measure(benchmark::State& ioState, Operation iOperation)
{
    bool succeeded = true;
    {
        const Observer observer(ioState);
        for (auto _ : ioState) {
            succeeded &= iOperation();
        }
    }
    if (!succeeded) {
        ioState.SkipWithError("an operation failed");
    }
}

/// Adds a workload of one contestant to the run. Under callgrind it runs twice with fixed numbers of operations, of
/// which the difference counts.
benchmark::internal::Benchmark* AddWorkload(const std::string& iWorkload, const std::string& iContestant,
                                            std::function<void(benchmark::State&)> iRun);

/// Whether the program runs under callgrind.
bool IsCountingInstructions();

#endif
