#include "Contestants.h"

#include <benchmark/benchmark.h>

#include <latch>
#include <thread>

int main(int iCount, char** iArguments)
{
    benchmark::Initialize(&iCount, iArguments);
    if (benchmark::ReportUnrecognizedArguments(iCount, iArguments)) {
        return 2;
    }
    AddLibrary();
    AddCodes();
    AddBaseline();
#if defined(BENCH_WITH_Absl)
    AddAbsl();
#endif
#if defined(BENCH_WITH_Qt)
    AddQt();
#endif
    // With waiting threads in the process no library takes the short cuts that it has for programs of a single thread.
    std::latch end(1);
    const std::jthread first([&end] { end.wait(); });
    const std::jthread second([&end] { end.wait(); });
    benchmark::RunSpecifiedBenchmarks();
    end.count_down();
    benchmark::Shutdown();
    return 0;
}
