#ifndef ThreadWorkloads_H
#define ThreadWorkloads_H

#include "Workloads.h"

#include <memory>
#include <string>

/// Adds a workload that one thread runs and then two at once.
template <class Contestant, class Run>
void AddThreadWorkload(const std::string& iWorkload, Run iRun)
{
    AddWorkload(iWorkload, Contestant::kName, iRun)->Threads(1)->Threads(2)->UseRealTime();
}

/// Adds the setting of numbers from two threads.
template <class Contestant>
void AddThreadWorkloads()
{
    if (IsCountingInstructions()) {
        return;
    }
    const auto sharedKeys = KeysOf<Contestant>(MediaDeclarations(), Kind::Int32);
    AddThreadWorkload<Contestant>("OwnSetsSharedKeys", [sharedKeys](benchmark::State& ioState) {
        FilledSet<Contestant> filled(MediaDeclarations());
        SetInt32<Contestant>(ioState, filled.set, sharedKeys);
    });
    AddThreadWorkload<Contestant>("OwnSetsOwnKeys", [](benchmark::State& ioState) {
        FilledSet<Contestant> filled(MediaDeclarations());
        SetInt32<Contestant>(ioState, filled.set, KeysOf<Contestant>(MediaDeclarations(), Kind::Int32));
    });
    const auto shared = std::make_shared<FilledSet<Contestant>>(MediaDeclarations());
    AddThreadWorkload<Contestant>("OneSet", [shared](benchmark::State& ioState) {
        SetInt32<Contestant>(ioState, shared->set, KeysOf<Contestant>(MediaDeclarations(), Kind::Int32));
    });
}

#endif
