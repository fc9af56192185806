// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELInline_H
#define KELInline_H

/// \file
/// Code that is put in line whatever the compiler thinks of its size,
/// because a call would cost a tenth of the operation that it serves.

#if defined(__GNUC__)
#define KEL_ALWAYS_INLINE inline __attribute__((always_inline))
#elif defined(_MSC_VER)
#define KEL_ALWAYS_INLINE __forceinline
#else
#define KEL_ALWAYS_INLINE inline
#endif

#endif
