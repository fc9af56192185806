#ifndef OwnMemory_H
#define OwnMemory_H

#include <atomic>

/// The memory of a program that has OwnMemory.cpp's operator new for its own. Allocations may be made to fail by a test
/// that runs on one thread.
struct OwnMemory {
    static inline std::atomic<long> s_allocatedBytes{0};
    static inline std::atomic<long> s_liveBytes{0};

    /// Lets the iAllocation-th allocation from now on fail, none if that is 0, and every later one too if wanted.
    /// Not in line, so that whoever calls it gets this operator new and not that of a sanitizer.
    static void FailAt(long iAllocation, bool iAndEveryLaterOne);

    /// Ends that; returns how many allocations have failed since.
    static long Behave() { return s_countdown = 0, s_failures; }

    static inline long s_countdown = 0;
    static inline bool s_failsOn = false;
    static inline long s_failures = 0;
};

#endif
