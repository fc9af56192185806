// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELThreadIdentity_H
#define KELThreadIdentity_H

#if !defined(_WIN32)
#include <thread>
#endif

/// What tells a thread from all others that run at the same time; default-constructed it is nobody's. The same in every
/// module.
///
/// The standard's own identity is a call and, on Windows, may cost the process a thread-local slot that is not given
/// back when the library is unloaded.
#if defined(_WIN32)
extern "C" __declspec(dllimport) unsigned long __stdcall GetCurrentThreadId();

using KELThreadIdentity = unsigned long;

inline KELThreadIdentity KELCurrentThread() noexcept
{
    return GetCurrentThreadId();
}
#elif defined(__linux__) && defined(__x86_64__)
using KELThreadIdentity = const void*;

inline KELThreadIdentity KELCurrentThread() noexcept
{
    return __builtin_thread_pointer();
}
#else
using KELThreadIdentity = std::thread::id;

inline KELThreadIdentity KELCurrentThread() noexcept
{
    return std::this_thread::get_id();
}
#endif

#endif
