#ifndef MillionWorkloads_H
#define MillionWorkloads_H

#include "Declarations.h"
#include "Measure.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <random>
#include <string>
#include <vector>

/// \file
/// Workloads on a set that grows to a million properties. One operation is the whole million, but for the longest
/// addition, which is that one alone.

constexpr std::size_t kMillion = 1'000'000;

/// Seconds that the calling thread has run; time in which it is not running does not count.
inline double ThreadSeconds()
{
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// New keys of the same million names, in the order of adding or in another one.
template <class Contestant>
std::vector<typename Contestant::Key> MillionKeys(bool iInOrderOfAdding)
{
    static const std::vector<Declaration> declarations = ManyDeclarations(kMillion);
    std::vector<std::size_t> order(kMillion);
    for (std::size_t i = 0; i < kMillion; ++i) {
        order[i] = i;
    }
    if (!iInOrderOfAdding) {
        std::shuffle(order.begin(), order.end(), std::mt19937(7)); // NOLINT: the same order in every run
    }
    std::vector<typename Contestant::Key> keys;
    keys.reserve(kMillion);
    for (const std::size_t position : order) {
        keys.push_back(Contestant::MakeKey(declarations[position].name));
    }
    return keys;
}

template <class Contestant>
bool AddAll(typename Contestant::Set& ioSet, const std::vector<typename Contestant::Key>& iKeys)
{
    bool succeeded = true;
    for (const typename Contestant::Key& key : iKeys) {
        succeeded &= ioSet.AddInt32(key);
    }
    return succeeded;
}

template <class Contestant>
void AddMillion(benchmark::State& ioState)
{
    const auto keys = MillionKeys<Contestant>(true);
    typename Contestant::Set set;
    Measure(ioState, [&] { return AddAll<Contestant>(set, keys); });
}

template <class Contestant>
void FindMillion(benchmark::State& ioState)
{
    typename Contestant::Set set;
    AddAll<Contestant>(set, MillionKeys<Contestant>(true));
    const auto keys = MillionKeys<Contestant>(false);
    Measure(ioState, [&] {
        bool succeeded = true;
        for (const typename Contestant::Key& key : keys) {
            std::int32_t value = 1;
            succeeded &= set.GetInt32(key, value);
        }
        return succeeded;
    });
}

template <class Contestant>
void LongestAddition(benchmark::State& ioState)
{
    const auto keys = MillionKeys<Contestant>(true);
    typename Contestant::Set set;
    double longest = 0.0;
    Measure(ioState, [&] {
        bool succeeded = true;
        double before = ThreadSeconds();
        for (const typename Contestant::Key& key : keys) {
            succeeded &= set.AddInt32(key);
            const double after = ThreadSeconds();
            longest = std::max(longest, after - before);
            before = after;
        }
        ioState.SetIterationTime(longest);
        return succeeded;
    });
}

constexpr int kMillionRepetitions = 3; // each takes seconds
constexpr int kLongestRepetitions = 9; // what else the machine does makes a longest time longer, never shorter

template <class Contestant>
void AddMillionWorkloads()
{
    if (IsCountingInstructions()) {
        return;
    }
    AddWorkload("Add1000000", Contestant::kName, &AddMillion<Contestant>)
        ->Iterations(1)
        ->Repetitions(kMillionRepetitions);
    AddWorkload("Find1000000", Contestant::kName, &FindMillion<Contestant>)
        ->Iterations(1)
        ->Repetitions(kMillionRepetitions);
}

template <class Contestant>
void AddLongestAddition()
{
    if (IsCountingInstructions()) {
        return;
    }
    AddWorkload("LongestAddition", Contestant::kName, &LongestAddition<Contestant>)
        ->Iterations(1)
        ->Repetitions(kLongestRepetitions)
        ->UseManualTime();
}

#endif
