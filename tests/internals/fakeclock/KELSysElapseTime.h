#ifndef KELSysElapseTime_H
#define KELSysElapseTime_H

/// A clock that shows what the test sets; broken when that is negative.
struct KELSysElapseTime {
    int Reset() { return ahead = 0.0, -1; } // nobody looks at the answer
    int GetElapse(double& oMicroseconds) const
    {
        oMicroseconds = s_microseconds < 0.0 ? 5e6 : s_microseconds + ahead;
        return s_microseconds < 0.0 ? -1 : 0;
    }
    double ahead = 0.0; // of what the others show
    static inline double s_microseconds = 0.0;
};

#endif
