#ifndef KELSysElapseTime_H
#define KELSysElapseTime_H

/// A clock that shows what the test sets.
class KELSysElapseTime {
public:
    int Reset()
    {
        ++s_resets;
        s_microseconds = 0.0;
        return -1; // nobody looks at it
    }
    int GetElapse(double& oMicroseconds) const
    {
        if (s_isBroken) {
            oMicroseconds = 5e6;
            return -1;
        }
        oMicroseconds = s_microseconds;
        return 0;
    }

    static inline double s_microseconds = 0.0;
    static inline bool s_isBroken = false;
    static inline int s_resets = 0;
};

#endif
