// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELHashSalt_H
#define KELHashSalt_H

/// \file
/// Hashes that nobody can foresee.

#include "KELExport.h"
#include "KELTypes.h"

#include <cstddef>
#include <cstdint>

/// The key of a hash.
struct KELHashSalt {
    std::uint64_t first = 0;
    std::uint64_t second = 0;

    /// A salt that differs from process to process and from call to call. Never throws.
    static KEL_API KELHashSalt Make() noexcept;

    /// SipHash-1-3 of some bytes: without the salt nobody can tell which texts have one hash. Linear.
    KELUINT32 Hash(const char* iBytes, std::size_t iLength) const noexcept;
};

#endif
