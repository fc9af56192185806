#ifndef FuzzInput_H
#define FuzzInput_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What a fuzzer calls with each input, and a replay with each file; returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize);

/// Ends the process when something does not hold, so that a fuzzer keeps the input.
inline void Require(bool iHolds, const char* iWhat)
{
    if (!iHolds) {
        std::fprintf(stderr, "does not hold: %s\n", iWhat);
        std::abort();
    }
}

#endif
