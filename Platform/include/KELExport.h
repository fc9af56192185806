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

#endif
