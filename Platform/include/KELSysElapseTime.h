#ifndef KELSysElapseTime_H
#define KELSysElapseTime_H

#include "KELExport.h"

#include <chrono>

/// A clock that tells the time since it was made or last restarted. A copy goes on from the same start.
/// Thread-compatible.
class KEL_API KELSysElapseTime {
public:
    KELSysElapseTime();

    /// Starts again from now; always returns 0.
    int Reset();

    /// Stores the time since the start, in microseconds; returns 0. A negative result would mean that the clock cannot
    /// measure, which this monotonic clock always can.
    int GetElapse(double& oMicroseconds) const;

private:
    std::chrono::steady_clock::time_point m_start;
};

#endif
