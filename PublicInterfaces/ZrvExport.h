#ifndef ZrvExport_H
#define ZrvExport_H

/// \file
/// The export macros of the library, and what it needs of a compiler. Every public header includes it.
///
/// `ZRV_STATIC` compiles the sources straight into a program; `ZRV_BUILDING` is set while the shared library itself is
/// built.

// A caller without it would crash where the classes of values and prototypes are compared.
#if !defined(__cpp_rtti) && !defined(__GXX_RTTI) && !defined(_CPPRTTI)
#error "Zorvel compares the classes of objects: compile with run-time type information (no -fno-rtti, no /GR-)"
#endif

// In a form that may stand beside other attributes: GCC takes no [[...]] beside a __attribute__ in front of a class.
#if defined(ZRV_STATIC)
#define ZRV_API
#elif defined(_MSC_VER)
#if defined(ZRV_BUILDING)
#define ZRV_API __declspec(dllexport)
#else
#define ZRV_API __declspec(dllimport)
#endif
#elif defined(_WIN32)
#if defined(ZRV_BUILDING)
#define ZRV_API [[gnu::dllexport]]
#else
#define ZRV_API [[gnu::dllimport]]
#endif
#else
#define ZRV_API [[gnu::visibility("default")]]
#endif

// Declares an inline member of an exported class. The library also exports it, for callers that do not inline it.
// Visual C++ exports it with its class. With GCC and Clang one source, ZrvPropertyValueBase.cpp, defines this as
// nothing and so emits the functions. It has to be the source with the virtual table of that class, since a virtual
// member that is not inline there says where the table lies.
#if !defined(ZRV_INLINE)
#if defined(ZRV_BUILDING) && defined(__GNUC__)
#define ZRV_INLINE __attribute__((gnu_inline)) inline
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wgnu-inline-cpp-without-extern" // a member cannot be marked `extern`
#endif
#else
#define ZRV_INLINE inline
#endif
#endif

#endif
