#include "Contestants.h"
#include "LockedSlots.h"
#include "MillionWorkloads.h"
#include "ReturnCodes.h"
#include "Workloads.h"
#include "ZrvFPSMeasure.h"

#include <chrono>

namespace {

constexpr char kFloor[] = "floor";

void SetLockedSlot(benchmark::State& ioState)
{
    constexpr std::size_t hashes[] = {0x9E3779B9U, 0x7F4A7C15U, 0xF39CC060U, 0x5CEDC834U};
    LockedSlots slots;
    for (const std::size_t hash : hashes) {
        slots.Add(hash);
    }
    Cycle<std::size_t> cycle({std::begin(hashes), std::end(hashes)});
    std::int32_t value = 0;
    Measure(ioState, [&] { return slots.Set(cycle.Next(), ++value); });
}

template <class Code, Code (*Succeed)()>
void ReturnCode(benchmark::State& ioState)
{
    Measure(ioState, [] {
        Code code = Succeed();
        return !code.IsError();
    });
}

struct Counters {
    void IncrementFrames()
    {
        ++since;
        ++total;
    }

    std::uint32_t since = 0;
    std::uint32_t total = 0;
};

template <class Meter>
void IncrementFrames(benchmark::State& ioState)
{
    Meter meter;
    benchmark::DoNotOptimize(&meter);
    Measure(ioState, [&] {
        meter.IncrementFrames();
        benchmark::ClobberMemory();
        return true;
    });
}

void DoublePointerArray(benchmark::State& ioState)
{
    std::vector<const void*> pointers(kMillion);
    pointers.shrink_to_fit();
    Measure(ioState, [&] {
        const double before = ThreadSeconds();
        pointers.push_back(nullptr);
        ioState.SetIterationTime(ThreadSeconds() - before);
        return pointers.capacity() >= 2 * kMillion;
    });
}

} // namespace

void AddFloor()
{
    AddWorkload("Floor", kFloor, &SetLockedSlot);
    AddWorkload("ReturnCode", "Zorvel", &ReturnCode<ZrvRC, &SucceedWithLibrary>);
    AddWorkload("ReturnCode", "baseline", &ReturnCode<HandWrittenCode, &SucceedByHand>);
    AddWorkload("ReturnCode", kFloor, &ReturnCode<PlainCode, &SucceedPlainly>);
    AddWorkload("FrameIncrement", "Zorvel", &IncrementFrames<ZrvFPSMeasure>);
    AddWorkload("FrameIncrement", kFloor, &IncrementFrames<Counters>);
    if (!IsCountingInstructions()) {
        AddWorkload("LongestAddition", kFloor, &DoublePointerArray)
            ->Iterations(1)
            ->Repetitions(kLongestRepetitions)
            ->UseManualTime();
    }
}
