#ifndef KELTypes_H
#define KELTypes_H

#include <cstdint>

/// \file
/// The platform's scalar types.

using KELBoolean = std::uint8_t; ///< A truth value; 0 is false, 1 is what the library itself stores for true.

/// Integers of 32 bits.
/// @{
using KELINT32 = std::int32_t;
using KELUINT32 = std::uint32_t;
/// @}

/// The result of a platform call, 32 bits wide and negative on failure.
#if defined(_WIN32)
typedef long HRESULT; // the system's own declaration, repeated so that its headers are not needed
#else
typedef std::int32_t HRESULT;
#endif

#endif
