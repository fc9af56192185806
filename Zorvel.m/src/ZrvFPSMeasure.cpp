#include "ZrvFPSMeasure.h"

#include <cmath>
#include <limits>

namespace {

constexpr double kMicrosecondsPerSecond = 1000000.0;

int ToRate(double iRate)
{
    constexpr double kLeast = std::numeric_limits<int>::min();
    constexpr double kMost = std::numeric_limits<int>::max();
    if (std::isnan(iRate)) {
        return 0;
    }
    return static_cast<int>(iRate < kLeast ? kLeast : iRate > kMost ? kMost : iRate);
}

} // namespace

ZrvFPSMeasure::ZrvFPSMeasure(int iPeriod) : m_period(iPeriod)
{
    Reset();
}

ZrvFPSMeasure::ZrvFPSMeasure(ZrvFPSMeasure& iOther)
    : m_clock(iOther.m_clock), m_instantFPS(iOther.m_instantFPS), m_framesSinceMeasure(iOther.m_framesSinceMeasure),
      m_totalFrames(iOther.m_totalFrames), m_measuredSeconds(iOther.m_measuredSeconds), m_period(iOther.m_period)
{
}

ZrvFPSMeasure::~ZrvFPSMeasure()
{
    Reset();
}

void ZrvFPSMeasure::Start()
{
    Reset();
}

void ZrvFPSMeasure::Reset()
{
    m_clock.Reset();
    m_instantFPS = 0;
    m_framesSinceMeasure = 0;
    m_totalFrames = 0;
    m_measuredSeconds = 0.0;
}

bool ZrvFPSMeasure::HasNewInstantFPS()
{
    double elapsed = 0.0;
    if (m_clock.GetElapse(elapsed) < 0) {
        return false;
    }
    const double seconds = elapsed / kMicrosecondsPerSecond;
    if (static_cast<double>(m_period) > std::floor(seconds)) {
        return false;
    }
    m_measuredSeconds += seconds;
    m_clock.Reset();
    const KELINT32 frames = m_framesSinceMeasure;
    m_framesSinceMeasure = 0;
    m_instantFPS = elapsed == 0.0 ? 0 : ToRate(frames / elapsed * kMicrosecondsPerSecond);
    return true;
}

int ZrvFPSMeasure::GetInstantFPS()
{
    if (m_instantFPS == 0) {
        return 0;
    }
    HasNewInstantFPS();
    return m_instantFPS;
}

int ZrvFPSMeasure::GetGlobalFPS()
{
    if (m_measuredSeconds == 0.0) {
        return 0;
    }
    HasNewInstantFPS();
    return m_measuredSeconds == 0.0 ? 0 : ToRate(m_totalFrames / m_measuredSeconds);
}
