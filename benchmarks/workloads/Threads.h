#ifndef Threads_H
#define Threads_H

#include "SmallSets.h"

/// \file
/// What one thread does and then two at once, each with a set of its own. The sets have names that are equal, or share
/// the names and the schema of one component.

template <class Contestant, class Run>
void AddOnThreads(const std::string& iWorkload, Run iRun)
{
    AddWorkload(iWorkload, Contestant::kName, iRun)->Threads(1)->Threads(2)->UseRealTime();
}

template <class Contestant>
void AddThreads()
{
    if (IsCountingInstructions()) {
        return;
    }
    const auto component = std::make_shared<const Component<Contestant>>(MediaDeclarations());
    const auto names = NamesOf<Contestant>(MediaDeclarations(), Kind::Int32);
    AddOnThreads<Contestant>("SetEqualNames", [](benchmark::State& ioState) {
        FilledSet<Contestant> filled(MediaDeclarations());
        SetNumbers<std::int32_t>(ioState, filled.set, NamesOf<Contestant>(MediaDeclarations(), Kind::Int32));
    });
    AddOnThreads<Contestant>("SetSharedNames", [component, names](benchmark::State& ioState) {
        FilledSet<Contestant> filled(component);
        SetNumbers<std::int32_t>(ioState, filled.set, names);
    });
    AddOnThreads<Contestant>("ListEqualNames", [](benchmark::State& ioState) {
        const FilledSet<Contestant> filled(MediaDeclarations());
        List(ioState, filled.set);
    });
    AddOnThreads<Contestant>("ListSharedNames", [component](benchmark::State& ioState) {
        const FilledSet<Contestant> filled(component);
        List(ioState, filled.set);
    });
    const auto shared = std::make_shared<FilledSet<Contestant>>(MediaDeclarations());
    AddOnThreads<Contestant>("SetInOneSet", [shared, names](benchmark::State& ioState) {
        SetNumbers<std::int32_t>(ioState, shared->set, names);
    });
}

#endif
