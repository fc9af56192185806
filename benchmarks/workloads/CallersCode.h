#ifndef CallersCode_H
#define CallersCode_H

#include "SmallSets.h"

/// \file
/// What a caller writes with a literal for a name, beside the same with a name that it keeps.

template <class Contestant>
void AddCallersCode()
{
    const auto& declarations = MediaDeclarations();
    const auto kept = [name = Contestant::MakeString("width")]() -> const auto&
    {
        return name;
    };
    AddNumbers<std::uint32_t, Contestant>("Kept", declarations, kept);
    AddNumbers<std::uint32_t, Contestant>("Literal", declarations, [] { return "width"; });
    AddOnSet<Contestant>("HasLiteral25", declarations, [](benchmark::State& ioState, const auto& iSet) {
        Measure(ioState, [&] { return iSet.Has("hardwareDecodingIsEnabled"); });
    });
    AddOnSet<Contestant>("SetStringLiteral25", declarations, [](benchmark::State& ioState, auto& ioSet) {
        Measure(ioState, [&] { return ioSet.SetText("colourSpace", "YCbCr 4:2:0, as in MPEG-2"); });
    });
}

#endif
