#ifndef KELExport_H
#define KELExport_H

/// \file
/// The export macro of the platform library.
///
/// `KEL_STATIC` compiles the sources straight into a program; `KEL_BUILDING` is set while the shared library itself is
/// built.

#if defined(KEL_STATIC)
#define KEL_API
#elif defined(_WIN32)
#if defined(KEL_BUILDING)
#define KEL_API __declspec(dllexport)
#else
#define KEL_API __declspec(dllimport)
#endif
#else
#define KEL_API __attribute__((visibility("default")))
#endif

// Visual C++ warns of exported classes with members or bases that are not exported: here those are complete in their
// headers, or touched by the library alone.
#if defined(_MSC_VER) && !defined(__clang__)
#pragma warning(disable : 4251 4275)
#endif

#endif
