#include "KELSysElapseTime.h"

KELSysElapseTime::KELSysElapseTime() : m_start(std::chrono::steady_clock::now()) {}

int KELSysElapseTime::Reset()
{
    m_start = std::chrono::steady_clock::now();
    return 0;
}

int KELSysElapseTime::GetElapse(double& oMicroseconds) const
{
    oMicroseconds = std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - m_start).count();
    return 0;
}
