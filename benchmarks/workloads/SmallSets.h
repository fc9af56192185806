#ifndef SmallSets_H
#define SmallSets_H

#include "Declarations.h"
#include "Measure.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// \file
/// The workloads on a set of 16 properties, written once for all contestants.
///
/// A contestant is a struct with the members `kName`, `String`, `MakeString`, `Schema` and `Set`; those of
/// `LibraryContestant` say what each does. Strings to look up with are made anew for every use: each is equal to a name
/// in the set but never shares its text.

/// Hands out the elements of a list in turn, for ever. Copies hand out the same elements, each at its own pace.
template <class T>
class Cycle {
public:
    explicit Cycle(std::vector<T> iElements)
        : m_elements(std::make_shared<const std::vector<T>>(std::move(iElements))), m_next(m_elements->begin())
    {
    }

    const T& operator()()
    {
        const T& element = *m_next;
        if (++m_next == m_elements->end()) {
            m_next = m_elements->begin();
        }
        return element;
    }

private:
    std::shared_ptr<const std::vector<T>> m_elements;
    typename std::vector<T>::const_iterator m_next;
};

template <class Contestant>
std::vector<typename Contestant::String> MakeNames(const std::vector<Declaration>& iDeclarations)
{
    std::vector<typename Contestant::String> names;
    names.reserve(iDeclarations.size());
    for (const Declaration& declaration : iDeclarations) {
        names.push_back(Contestant::MakeString(declaration.name));
    }
    return names;
}

template <class Contestant>
Cycle<typename Contestant::String> NamesOf(const std::vector<Declaration>& iDeclarations)
{
    return Cycle(MakeNames<Contestant>(iDeclarations));
}

template <class Contestant>
Cycle<typename Contestant::String> NamesOf(const std::vector<Declaration>& iDeclarations, Kind iKind)
{
    std::vector<Declaration> ofThatKind;
    for (const Declaration& declaration : iDeclarations) {
        if (declaration.kind == iKind) {
            ofThatKind.push_back(declaration);
        }
    }
    return NamesOf<Contestant>(ofThatKind);
}

/// What sets of one component may share: a schema and the names that it declares.
template <class Contestant>
struct Component {
    explicit Component(const std::vector<Declaration>& iDeclarations)
        : declarations(iDeclarations), schema(iDeclarations), names(MakeNames<Contestant>(iDeclarations))
    {
    }

    std::vector<Declaration> declarations;
    typename Contestant::Schema schema;
    std::vector<typename Contestant::String> names;
};

/// A set with all its properties added and filled.
template <class Contestant>
struct FilledSet {
    explicit FilledSet(const std::vector<Declaration>& iDeclarations)
        : FilledSet(std::make_shared<const Component<Contestant>>(iDeclarations))
    {
    }

    explicit FilledSet(std::shared_ptr<const Component<Contestant>> iComponent)
        : component(std::move(iComponent)), set(component->schema)
    {
        for (std::size_t i = 0; i < component->names.size(); ++i) {
            set.Add(component->names[i]);
            set.Fill(component->names[i], component->declarations[i].kind);
        }
    }

    std::shared_ptr<const Component<Contestant>> component;
    typename Contestant::Set set;
};

/// Adds a workload on a filled set of its own, which it is handed.
template <class Contestant, class Run>
void AddOnSet(const std::string& iWorkload, const std::vector<Declaration>& iDeclarations, Run iRun,
              benchmark::IterationCount iCounted = kCounted)
{
    const auto run = [iDeclarations, iRun](benchmark::State& ioState) {
        FilledSet<Contestant> filled(iDeclarations);
        iRun(ioState, filled.set);
    };
    AddWorkload(iWorkload, Contestant::kName, run, iCounted);
}

/// Sets numbers under the names that a function hands out.
template <class T, class Set, class Names>
void SetNumbers(benchmark::State& ioState, Set& ioSet, Names iNames)
{
    T value = 0;
    Measure(ioState, [&] { return ioSet.SetNumber(iNames(), ++value); });
}

template <class T, class Set, class Names>
void GetNumbers(benchmark::State& ioState, const Set& iSet, Names iNames)
{
    Measure(ioState, [&] {
        T value = 0;
        const bool succeeded = iSet.Read(iNames(), value);
        benchmark::DoNotOptimize(value);
        return succeeded;
    });
}

/// Adds getting and setting of numbers under the names that a function hands out.
template <class T, class Contestant, class Names>
void AddNumbers(const std::string& iEnding, const std::vector<Declaration>& iDeclarations, Names iNames)
{
    const auto set = [iNames](benchmark::State& ioState, auto& ioSet) { SetNumbers<T>(ioState, ioSet, iNames); };
    const auto get = [iNames](benchmark::State& ioState, auto& ioSet) { GetNumbers<T>(ioState, ioSet, iNames); };
    AddOnSet<Contestant>("Set" + iEnding, iDeclarations, set);
    AddOnSet<Contestant>("Get" + iEnding, iDeclarations, get);
}

/// Sets texts in turn, so that each set changes the value.
template <class Set, class Names>
void SetTexts(benchmark::State& ioState, Set& ioSet, Names iNames, Names iTexts)
{
    Measure(ioState, [&] { return ioSet.SetText(iNames(), iTexts()); });
}

template <class Set, class Names>
void GetTexts(benchmark::State& ioState, Set& ioSet, Names iNames, Names iTexts)
{
    for (int i = 0; i < 3; ++i) {
        ioSet.SetText(iNames(), iTexts());
    }
    Measure(ioState, [&] { return ioSet.ReadText(iNames()) != '\0'; });
}

template <class Contestant>
void AddTexts(std::size_t iLength)
{
    const auto names = NamesOf<Contestant>(MediaDeclarations(), Kind::Text);
    const Cycle texts(
        std::vector{Contestant::MakeString(MakeText(iLength, 'A')), Contestant::MakeString(MakeText(iLength, 'B'))});
    const auto set = [=](benchmark::State& ioState, auto& ioSet) { SetTexts(ioState, ioSet, names, texts); };
    const auto get = [=](benchmark::State& ioState, auto& ioSet) { GetTexts(ioState, ioSet, names, texts); };
    const std::string ending = "String" + std::to_string(iLength);
    AddOnSet<Contestant>("Set" + ending, MediaDeclarations(), set);
    AddOnSet<Contestant>("Get" + ending, MediaDeclarations(), get);
}

template <class Set>
void Copy(benchmark::State& ioState, const Set& iSet)
{
    Measure(ioState, [&] {
        const Set copy(iSet);
        benchmark::DoNotOptimize(&copy);
        return true;
    });
}

template <class Set>
void List(benchmark::State& ioState, const Set& iSet)
{
    Measure(ioState, [&] {
        const auto names = iSet.List();
        benchmark::DoNotOptimize(&names);
        return true;
    });
}

template <class Contestant>
void BuildDestroy(benchmark::State& ioState)
{
    const Component<Contestant> component(MediaDeclarations());
    Measure(ioState, [&] {
        typename Contestant::Set set(component.schema);
        bool succeeded = true;
        for (const auto& name : component.names) {
            succeeded &= set.Add(name);
        }
        return succeeded;
    });
}

template <class Contestant>
void AddSmallSets()
{
    using Set = typename Contestant::Set;
    AddNumbers<std::int32_t, Contestant>("Int32", MediaDeclarations(),
                                         NamesOf<Contestant>(MediaDeclarations(), Kind::Int32));
    AddOnSet<Contestant>("Has", MediaDeclarations(), [](benchmark::State& ioState, const auto& iSet) {
        auto nextName = NamesOf<Contestant>(MediaDeclarations());
        Measure(ioState, [&] { return iSet.Has(nextName()); });
    });
    for (const std::size_t length : {12U, 20U, 40U, 4000U}) {
        AddTexts<Contestant>(length);
    }
    AddWorkload("BuildDestroy16", Contestant::kName, &BuildDestroy<Contestant>);
    AddOnSet<Contestant>("Copy16", MediaDeclarations(), &Copy<Set>);
    AddOnSet<Contestant>("CopyInto16", MediaDeclarations(), [](benchmark::State& ioState, auto& ioSet) {
        const FilledSet<Contestant> source(MediaDeclarations());
        Measure(ioState, [&] { return ioSet.CopyFrom(source.set); });
    });
    AddOnSet<Contestant>("List16", MediaDeclarations(), &List<Set>);
}

/// Adds the workloads on values that are objects. Each set changes the value, as 3 objects go round 16 names.
template <class Contestant>
void AddObjects()
{
    std::vector<Declaration> declarations = MediaDeclarations();
    for (Declaration& declaration : declarations) {
        declaration.kind = Kind::Object;
    }
    AddOnSet<Contestant>("SetObject", declarations, [](benchmark::State& ioState, auto& ioSet) {
        auto nextName = NamesOf<Contestant>(MediaDeclarations());
        Cycle objects(std::vector{Contestant::MakeObject(), Contestant::MakeObject(), Contestant::MakeObject()});
        Measure(ioState, [&] { return ioSet.SetObject(nextName(), objects()); });
    });
    AddOnSet<Contestant>("Copy16Objects", declarations, &Copy<typename Contestant::Set>);
}

#endif
