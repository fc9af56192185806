// Drives the property system by the bytes of the input and compares it with the model; the first byte says in what
// trouble.

#include "RandomUse.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize)
{
    const auto next = [&] { return iSize > 0 ? (--iSize, std::size_t{*iData++}) : 0; }; // zeros behind the end
    const auto below = [&next](std::size_t iCount) { return next() % iCount; };         // counts are small
    const std::size_t trouble = below(12); // mostly refusals alone: failing memory takes long
    UseAtRandom(below, static_cast<long>(iSize / 6), trouble < 4 ? static_cast<Trouble>(trouble) : Trouble::Refusals);
    return 0;
}
