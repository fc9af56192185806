#include "Contestants.h"
#include "ParkedThreads.h"

#include <benchmark/benchmark.h>

int main(int iCount, char** iArguments)
{
    benchmark::Initialize(&iCount, iArguments);
    if (benchmark::ReportUnrecognizedArguments(iCount, iArguments)) {
        return 2;
    }
    AddLibrary();
    AddBaseline();
    const ParkedThreads parked;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
