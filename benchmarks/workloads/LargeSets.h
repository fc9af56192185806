#ifndef LargeSets_H
#define LargeSets_H

#include "SmallSets.h"

#include <algorithm>
#include <random>

/// \file
/// The workloads on sets of 10,000 properties and of a million. One operation on the latter is the whole million.

constexpr std::size_t kMillion = 1'000'000;

template <class Contestant>
bool AddAll(typename Contestant::Set& ioSet, const std::vector<typename Contestant::String>& iNames)
{
    bool succeeded = true;
    for (const auto& name : iNames) {
        succeeded &= ioSet.AddInt32(name);
    }
    return succeeded;
}

template <class Contestant>
void AddMillion(benchmark::State& ioState)
{
    const auto names = MakeNames<Contestant>(ManyDeclarations(kMillion));
    typename Contestant::Set set;
    Measure(ioState, [&] { return AddAll<Contestant>(set, names); });
}

template <class Contestant>
void FindMillion(benchmark::State& ioState)
{
    std::vector<Declaration> declarations = ManyDeclarations(kMillion);
    typename Contestant::Set set;
    AddAll<Contestant>(set, MakeNames<Contestant>(declarations));
    std::shuffle(declarations.begin(), declarations.end(), std::mt19937(7)); // NOLINT: the same order in every run
    const auto names = MakeNames<Contestant>(declarations);
    Measure(ioState, [&] {
        bool succeeded = true;
        for (const auto& name : names) {
            std::int32_t value = 1;
            succeeded &= set.Read(name, value);
        }
        return succeeded;
    });
}

/// How many bytes the heap spends on each property of a million, with names of 20 bytes that nobody else keeps.
template <class Contestant>
void CountBytes(benchmark::State& ioState)
{
    const std::size_t before = CountBytesInUse();
    typename Contestant::Set set;
    Measure(ioState, [&] {
        bool succeeded = true;
        for (std::size_t i = 0; i < kMillion; ++i) {
            const std::string number = std::to_string(i);
            succeeded &= set.AddInt32(Contestant::MakeString(std::string(20 - number.size(), 'p') + number));
        }
        return succeeded;
    });
    ioState.counters["bytes"] = static_cast<double>(CountBytesInUse() - before) / static_cast<double>(kMillion);
}

template <class Contestant>
void AddLargeSets()
{
    const std::vector<Declaration> many = ManyDeclarations(10'000);
    AddNumbers<std::int32_t, Contestant>("Int32in10000", many, NamesOf<Contestant>(many));
    AddOnSet<Contestant>("Copy10000", many, &Copy<typename Contestant::Set>, 2);
    if (!IsCountingInstructions()) {
        AddWorkload("Add1000000", Contestant::kName, &AddMillion<Contestant>)->Iterations(1)->Repetitions(3);
        AddWorkload("Find1000000", Contestant::kName, &FindMillion<Contestant>)->Iterations(1)->Repetitions(3);
        AddWorkload("Memory", Contestant::kName, &CountBytes<Contestant>)->Iterations(1)->Repetitions(1);
    }
}

#endif
