#ifndef ZrvExport_H
#define ZrvExport_H

/// \file
/// The export macros of the library.
///
/// `ZRV_STATIC` compiles the sources straight into a program; `ZRV_BUILDING` is set while the shared library itself is
/// built. `ZRV_EXPORTED_INLINE` marks an inline member that the library exports as well, for callers that do not
/// inline it.

#if defined(ZRV_STATIC)
#define ZRV_API
#elif defined(_WIN32)
#if defined(ZRV_BUILDING)
#define ZRV_API __declspec(dllexport)
#else
#define ZRV_API __declspec(dllimport)
#endif
#else
#define ZRV_API __attribute__((visibility("default")))
#endif

#if !defined(ZRV_BUILDING)
#define ZRV_EXPORTED_INLINE
#elif defined(_WIN32)
#define ZRV_EXPORTED_INLINE ZRV_API
#else
#define ZRV_EXPORTED_INLINE __attribute__((used))
#endif

#endif
