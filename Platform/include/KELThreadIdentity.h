#ifndef KELThreadIdentity_H
#define KELThreadIdentity_H

#if !defined(_WIN32)
#include <thread>
#endif

/// What tells a thread from all others that run at the same time; default-constructed it is nobody's.
///
/// On Windows the standard's identity may cost the process a thread-local slot that is not given back when the library
/// is unloaded, and several times the time.
#if defined(_WIN32)
extern "C" __declspec(dllimport) unsigned long __stdcall GetCurrentThreadId();

using KELThreadIdentity = unsigned long;

inline KELThreadIdentity KELCurrentThread() noexcept
{
    return GetCurrentThreadId();
}
#else
using KELThreadIdentity = std::thread::id;

inline KELThreadIdentity KELCurrentThread() noexcept
{
    return std::this_thread::get_id();
}
#endif

#endif
