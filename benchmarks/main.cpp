#include "Contestants.h"
#include "ParkedThreads.h"

#include <benchmark/benchmark.h>

int main(int iCount, char** iArguments)
{
    benchmark::Initialize(&iCount, iArguments);
    if (benchmark::ReportUnrecognizedArguments(iCount, iArguments)) {
        return 2;
    }
    AddFloor();
    AddLibrary();
    AddBaseline();
#if defined(BENCH_WITH_Absl)
    AddAbsl();
#endif
#if defined(BENCH_WITH_GLib)
    AddGLib();
#endif
#if defined(BENCH_WITH_GStreamer)
    AddGStreamer();
#endif
#if defined(BENCH_WITH_OpenExr)
    AddOpenExr();
#endif
#if defined(BENCH_WITH_Qt)
    AddQt();
#endif
    const ParkedThreads parked;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
