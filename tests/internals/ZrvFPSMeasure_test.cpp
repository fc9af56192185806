#include "ZrvFPSMeasure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Clock = KELSysElapseTime;

constexpr int kMost = std::numeric_limits<int>::max();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

void Count(ZrvFPSMeasure& ioMeter, int iFrames, double iMicroseconds)
{
    for (int i = 0; i < iFrames; ++i) {
        ioMeter.IncrementFrames();
    }
    Clock::s_microseconds = iMicroseconds;
}

TEST(ZrvFPSMeasure, MeasuresAfterWholePeriods)
{
    struct Row {
        int period, frames;
        double clock;
        int rate; // -1 when it does not measure
    };
    const Row rows[] = {{1, 30, 999999.0, -1},  {1, 30, 1e6, 30}, {1, 30, 1.5e6, 20}, {1, 0, 1.5e6, 0},
                        {2, 59, 1.9e6, -1},     {2, 30, 2e6, 15}, {2, 59, 2.9e6, 20}, {1, 251, 1e6, 250},
                        {0, 30, 10.0, 3000000}, {0, 30, 0.0, 0},  {-3, 0, 0.0, 0},    {0, 3000, 1.0, kMost},
                        {0, 30, kNoNumber, 0},  {1, 30, -1.0, -1}};
    for (const auto& [period, frames, clock, rate] : rows) {
        SCOPED_TRACE(std::to_string(period) + " " + std::to_string(clock));
        ZrvFPSMeasure meter(period);
        Count(meter, frames, clock);
        EXPECT_EQ(meter.HasNewInstantFPS() ? meter.m_instantFPS : -1, rate);
        EXPECT_EQ(meter.m_framesSinceMeasure, rate < 0 ? frames : 0);
        EXPECT_EQ(std::isnan(clock) ? 0.0 : meter.m_measuredSeconds, rate < 0 || std::isnan(clock) ? 0.0 : clock / 1e6);
    }
}

TEST(ZrvFPSMeasure, ReadersMeasureOnlyWhatIsMeasuredAlready)
{
    struct Row {
        int frames;
        double clock;
        char asked; // for a measurement, the instant or the global rate
        int answer;
    };
    const Row rows[] = {{30, 2e6, 'i', 0}, {0, 2e6, 'g', 0},     {0, 1.5e6, 'm', 1},  {0, 0.0, 'i', 20},
                        {0, 0.0, 'g', 20}, {10, 0.5e6, 'i', 20}, {0, 0.5e6, 'g', 26}, // of whole intervals
                        {0, -1.0, 'm', 0}, {0, -1.0, 'i', 20},   {0, 1e6, 'i', 10},   {5, 2.5e6, 'g', 9},
                        {0, 1e6, 'm', 1},  {5, 1e6, 'i', 0}}; // an interval without frames left nothing to renew
    ZrvFPSMeasure meter;
    for (const auto& [frames, clock, asked, answer] : rows) {
        Count(meter, frames, clock);
        const int real = asked == 'm'   ? meter.HasNewInstantFPS()
                         : asked == 'i' ? meter.GetInstantFPS()
                                        : meter.GetGlobalFPS();
        EXPECT_EQ(real, answer) << frames << " frames " << clock << asked;
    }
    meter.m_framesSinceMeasure = meter.m_totalFrames = kMost;
    Count(meter, 1, 1e6);
    EXPECT_TRUE(meter.HasNewInstantFPS() && meter.m_instantFPS < -kMost && meter.m_totalFrames < -kMost)
        << "wraps around";
}

TEST(ZrvFPSMeasure, CopiesGoOnAndRestartingKeepsThePeriodAlone)
{
    ZrvFPSMeasure meter(3);
    Count(meter, 30, 3e6);
    EXPECT_TRUE(meter.HasNewInstantFPS());
    Count(meter, 2, 3e6);
    const int resets = Clock::s_resets;
    meter.m_clock.ahead = 1e6;
    {
        ZrvFPSMeasure copy(meter);
        EXPECT_TRUE(Clock::s_resets == resets && copy.m_clock.ahead == 1e6 && copy.m_framesSinceMeasure == 2);
        EXPECT_TRUE(copy.m_instantFPS == 10 && copy.m_totalFrames == 32 && copy.m_measuredSeconds == 3.0);
        copy.Start();
        EXPECT_EQ(copy.GetInstantFPS() + copy.GetGlobalFPS() + copy.m_framesSinceMeasure + copy.m_totalFrames, 0);
        Count(copy, 0, 2.9e6);
        EXPECT_FALSE(copy.HasNewInstantFPS());
        Count(copy, 0, 3e6);
        EXPECT_TRUE(copy.HasNewInstantFPS());
    }
    EXPECT_EQ(Clock::s_resets, resets + 3) << "the destructor's, too";
}

} // namespace
