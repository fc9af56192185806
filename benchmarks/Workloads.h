#ifndef Workloads_H
#define Workloads_H

#include "Declarations.h"
#include "Measure.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// \file
/// The workloads, written once for all contestants.
///
/// A contestant is a struct with the members `kName`, `Key`, `Text`, `Schema` and `Set`; those of `LibraryContestant`
/// say what each does. Keys are made anew for every use, so that a key looked up is equal to the one that was added but
/// never shares its text.

/// Hands out the elements of a list in turn, for ever. Copies hand out the same elements, each at its own pace.
template <class T>
class Cycle {
public:
    explicit Cycle(std::vector<T> iElements)
        : m_elements(std::make_shared<const std::vector<T>>(std::move(iElements))), m_next(m_elements->begin())
    {
    }

    const T& Next()
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
Cycle<typename Contestant::Key> KeysOf(const std::vector<Declaration>& iDeclarations)
{
    std::vector<typename Contestant::Key> keys;
    keys.reserve(iDeclarations.size());
    for (const Declaration& declaration : iDeclarations) {
        keys.push_back(Contestant::MakeKey(declaration.name));
    }
    return Cycle(std::move(keys));
}

template <class Contestant>
Cycle<typename Contestant::Key> KeysOf(const std::vector<Declaration>& iDeclarations, Kind iKind)
{
    std::vector<Declaration> ofThatKind;
    for (const Declaration& declaration : iDeclarations) {
        if (declaration.kind == iKind) {
            ofThatKind.push_back(declaration);
        }
    }
    return KeysOf<Contestant>(ofThatKind);
}

/// A set with all its properties added and filled.
template <class Contestant>
struct FilledSet {
    explicit FilledSet(const std::vector<Declaration>& iDeclarations) : schema(iDeclarations), set(schema)
    {
        for (const Declaration& declaration : iDeclarations) {
            const typename Contestant::Key key = Contestant::MakeKey(declaration.name);
            set.Add(key);
            set.Fill(key, declaration.kind);
        }
    }

    typename Contestant::Schema schema;
    typename Contestant::Set set;
};

template <class Contestant>
void SetInt32(benchmark::State& ioState, typename Contestant::Set& ioSet, Cycle<typename Contestant::Key> iKeys)
{
    std::int32_t value = 0;
    Measure(ioState, [&] { return ioSet.SetInt32(iKeys.Next(), ++value); });
}

template <class Contestant>
void GetInt32(benchmark::State& ioState, const typename Contestant::Set& iSet, Cycle<typename Contestant::Key> iKeys)
{
    Measure(ioState, [&] {
        std::int32_t value = 0;
        const bool succeeded = iSet.GetInt32(iKeys.Next(), value);
        benchmark::DoNotOptimize(value);
        return succeeded;
    });
}

template <class Contestant>
void SetString(benchmark::State& ioState)
{
    FilledSet<Contestant> filled(MediaDeclarations());
    auto keys = KeysOf<Contestant>(MediaDeclarations(), Kind::Text);
    const typename Contestant::Text text = Contestant::MakeText(LongText());
    Measure(ioState, [&] { return filled.set.SetText(keys.Next(), text); });
}

template <class Contestant>
void GetString(benchmark::State& ioState)
{
    const FilledSet<Contestant> filled(MediaDeclarations());
    auto keys = KeysOf<Contestant>(MediaDeclarations(), Kind::Text);
    Measure(ioState, [&] {
        const auto text = filled.set.GetText(keys.Next());
        benchmark::DoNotOptimize(&text);
        return true;
    });
}

template <class Contestant>
void Has(benchmark::State& ioState)
{
    const FilledSet<Contestant> filled(MediaDeclarations());
    auto keys = KeysOf<Contestant>(MediaDeclarations());
    Measure(ioState, [&] { return filled.set.Has(keys.Next()); });
}

template <class Contestant>
void BuildDestroy(benchmark::State& ioState)
{
    const typename Contestant::Schema schema(MediaDeclarations());
    auto keys = KeysOf<Contestant>(MediaDeclarations());
    const std::size_t count = MediaDeclarations().size();
    Measure(ioState, [&] {
        typename Contestant::Set set(schema);
        bool succeeded = true;
        for (std::size_t i = 0; i < count; ++i) {
            succeeded &= set.Add(keys.Next());
        }
        return succeeded;
    });
}

template <class Contestant>
void Copy(benchmark::State& ioState)
{
    const FilledSet<Contestant> filled(MediaDeclarations());
    Measure(ioState, [&] {
        const typename Contestant::Set copy(filled.set);
        benchmark::DoNotOptimize(&copy);
        return true;
    });
}

template <class Contestant>
void CopyInto(benchmark::State& ioState)
{
    const FilledSet<Contestant> source(MediaDeclarations());
    FilledSet<Contestant> destination(MediaDeclarations());
    Measure(ioState, [&] { return destination.set.CopyFrom(source.set); });
}

template <class Contestant>
void List(benchmark::State& ioState)
{
    const FilledSet<Contestant> filled(MediaDeclarations());
    Measure(ioState, [&] {
        const auto names = filled.set.List();
        benchmark::DoNotOptimize(&names);
        return true;
    });
}

/// Adds the workloads on a set of 16 properties.
template <class Contestant>
void AddSmallWorkloads()
{
    AddWorkload("SetInt32", Contestant::kName, [](benchmark::State& ioState) {
        FilledSet<Contestant> filled(MediaDeclarations());
        SetInt32<Contestant>(ioState, filled.set, KeysOf<Contestant>(MediaDeclarations(), Kind::Int32));
    });
    AddWorkload("GetInt32", Contestant::kName, [](benchmark::State& ioState) {
        const FilledSet<Contestant> filled(MediaDeclarations());
        GetInt32<Contestant>(ioState, filled.set, KeysOf<Contestant>(MediaDeclarations(), Kind::Int32));
    });
    AddWorkload("SetString40", Contestant::kName, &SetString<Contestant>);
    AddWorkload("GetString40", Contestant::kName, &GetString<Contestant>);
    AddWorkload("Has", Contestant::kName, &Has<Contestant>);
    AddWorkload("BuildDestroy16", Contestant::kName, &BuildDestroy<Contestant>);
    AddWorkload("Copy16", Contestant::kName, &Copy<Contestant>);
    AddWorkload("CopyInto16", Contestant::kName, &CopyInto<Contestant>);
    AddWorkload("List16", Contestant::kName, &List<Contestant>);
}

/// Adds the workloads on a set of 10,000 properties.
template <class Contestant>
void AddLargeWorkloads()
{
    constexpr std::size_t kProperties = 10'000;
    AddWorkload("SetInt32in10000", Contestant::kName, [](benchmark::State& ioState) {
        FilledSet<Contestant> filled(ManyDeclarations(kProperties));
        SetInt32<Contestant>(ioState, filled.set, KeysOf<Contestant>(ManyDeclarations(kProperties)));
    });
    AddWorkload("GetInt32in10000", Contestant::kName, [](benchmark::State& ioState) {
        const FilledSet<Contestant> filled(ManyDeclarations(kProperties));
        GetInt32<Contestant>(ioState, filled.set, KeysOf<Contestant>(ManyDeclarations(kProperties)));
    });
}

#endif
