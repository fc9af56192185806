#include "Contestants.h"
#include "HandWrittenSet.h"
#include "Library.h"
#include "Measure.h"

namespace {

template <class Code, Code (*Succeed)()>
void ReturnCode(benchmark::State& ioState)
{
    Measure(ioState, [] {
        if (Code code = Succeed(); code.IsError()) {
            return false;
        }
        return true;
    });
}

void IncrementFrames(benchmark::State& ioState)
{
    ZrvFPSMeasure meter;
    benchmark::DoNotOptimize(&meter);
    Measure(ioState, [&] {
        meter.IncrementFrames();
        benchmark::ClobberMemory();
        return true;
    });
}

} // namespace

void AddCodes()
{
    AddWorkload("ReturnCode", "Zorvel", &ReturnCode<ZrvRC, &LibraryContestant::Succeed>);
    AddWorkload("ReturnCode", "baseline", &ReturnCode<HandWrittenCode, &SucceedByHand>);
    AddWorkload("FrameIncrement", "Zorvel", &IncrementFrames);
}
