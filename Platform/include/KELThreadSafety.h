// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELThreadSafety_H
#define KELThreadSafety_H

/// \file
/// Annotations by which Clang proves, at compile time, that what a mutex guards is only touched under it. Empty for
/// other compilers.

#if defined(__clang__)
#define KEL_THREAD_ATTRIBUTE(x) __attribute__((x))
#else
#define KEL_THREAD_ATTRIBUTE(x)
#endif

#define KEL_CAPABILITY(name) KEL_THREAD_ATTRIBUTE(capability(name))
#define KEL_SCOPED_CAPABILITY KEL_THREAD_ATTRIBUTE(scoped_lockable)
#define KEL_GUARDED_BY(mutex) KEL_THREAD_ATTRIBUTE(guarded_by(mutex))
#define KEL_REQUIRES(...) KEL_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define KEL_ACQUIRE(...) KEL_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define KEL_RELEASE(...) KEL_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
#define KEL_NO_THREAD_SAFETY_ANALYSIS KEL_THREAD_ATTRIBUTE(no_thread_safety_analysis)

#endif
