#include "ZrvFPSMeasure.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Clock = KELSysElapseTime;

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

void Count(ZrvFPSMeasure& ioMeter, int iFrames)
{
    for (int i = 0; i < iFrames; ++i) {
        ioMeter.IncrementFrames();
    }
}

bool MeasureAt(ZrvFPSMeasure& ioMeter, double iMicroseconds)
{
    Clock::s_microseconds = iMicroseconds;
    return ioMeter.HasNewInstantFPS();
}

TEST(ZrvFPSMeasure, MeasuresAfterWholeSeconds)
{
    struct Case {
        int period;
        int frames;
        double microseconds;
        bool measures;
        int rate;
    };
    const Case cases[] = {
        {1, 30, 999999.0, false, 0},  {1, 30, 1000000.0, true, 30},
        {1, 30, 1500000.0, true, 20}, {1, 0, 1500000.0, true, 0},
        {2, 30, 1999999.0, false, 0}, {2, 30, 2000000.0, true, 15},
        {2, 59, 2999999.0, true, 19}, {1, 251, 1000000.0, true, static_cast<int>(251 / 1000000.0 * 1000000.0)},
        {0, 30, 10.0, true, 3000000}, {0, 30, 0.0, true, 0},
        {-3, 0, 0.0, true, 0},        {0, 3000, 1.0, true, kMost},
        {0, 30, kNoNumber, true, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.period) + " " + std::to_string(c.microseconds));
        ZrvFPSMeasure meter(c.period);
        Count(meter, c.frames);
        EXPECT_EQ(MeasureAt(meter, c.microseconds), c.measures);
        EXPECT_EQ(meter.m_instantFPS, c.rate);
        EXPECT_EQ(meter.m_measuredSeconds != 0.0, c.measures && c.microseconds != 0.0);
        EXPECT_EQ(meter.m_framesSinceMeasure, c.measures ? 0 : c.frames);
        EXPECT_EQ(c.rate == 0 ? meter.GetGlobalFPS() : 0, 0);
    }
}

TEST(ZrvFPSMeasure, ReadersMeasureOnlyWhatIsMeasuredAlready)
{
    ZrvFPSMeasure meter;
    Count(meter, 30);
    Clock::s_microseconds = 2e6;
    EXPECT_EQ(meter.GetInstantFPS() + meter.GetGlobalFPS(), 0);
    EXPECT_EQ(meter.m_framesSinceMeasure, 30);

    EXPECT_TRUE(MeasureAt(meter, 1.5e6));
    EXPECT_EQ(meter.GetInstantFPS(), 20);
    EXPECT_EQ(meter.GetGlobalFPS(), 20);
    Count(meter, 10);
    Clock::s_microseconds = 0.5e6;
    EXPECT_EQ(meter.GetInstantFPS(), 20);
    EXPECT_EQ(meter.GetGlobalFPS(), 26) << "all frames over complete intervals";
    Clock::s_microseconds = 1e6;
    Clock::s_isBroken = true;
    EXPECT_FALSE(meter.HasNewInstantFPS());
    EXPECT_EQ(meter.GetInstantFPS(), 20) << "a broken clock changes nothing";
    Clock::s_isBroken = false;
    EXPECT_EQ(meter.GetInstantFPS(), 10) << "measured by the reader";
    Count(meter, 5);
    Clock::s_microseconds = 2.5e6;
    EXPECT_EQ(meter.GetGlobalFPS(), 9) << "measured by the reader";

    EXPECT_TRUE(MeasureAt(meter, 1e6));
    Count(meter, 5);
    Clock::s_microseconds = 1e6;
    EXPECT_EQ(meter.GetInstantFPS(), 0) << "an interval without frames left no rate to renew";
    EXPECT_EQ(meter.m_framesSinceMeasure, 5);
}

TEST(ZrvFPSMeasure, CountsWrapAround)
{
    ZrvFPSMeasure meter;
    meter.m_framesSinceMeasure = kMost;
    meter.m_totalFrames = kMost;
    meter.IncrementFrames();
    EXPECT_EQ(meter.m_totalFrames, kLeast);
    EXPECT_TRUE(MeasureAt(meter, 1e6));
    EXPECT_EQ(meter.GetInstantFPS(), kLeast);
}

TEST(ZrvFPSMeasure, CopiesGoOnAndRestartingKeepsThePeriodAlone)
{
    ZrvFPSMeasure meter(3);
    Count(meter, 30);
    EXPECT_TRUE(MeasureAt(meter, 3e6));
    Count(meter, 2);
    const int resets = Clock::s_resets;
    meter.m_clock.ahead = 1e6;
    {
        ZrvFPSMeasure copy(meter);
        EXPECT_EQ(Clock::s_resets, resets);
        EXPECT_EQ(copy.GetInstantFPS(), 10);
        EXPECT_EQ(copy.GetGlobalFPS(), 10);
        EXPECT_EQ(copy.m_framesSinceMeasure, 2);
        EXPECT_EQ(copy.m_clock.ahead, 1e6);
        copy.Start();
        EXPECT_EQ(Clock::s_resets, resets + 1);
        EXPECT_EQ(copy.GetInstantFPS() + copy.GetGlobalFPS() + copy.m_framesSinceMeasure + copy.m_totalFrames, 0);
        EXPECT_FALSE(MeasureAt(copy, 2.9e6));
        EXPECT_TRUE(MeasureAt(copy, 3e6));
    }
    EXPECT_EQ(Clock::s_resets, resets + 3) << "the destructor's, too";
}

} // namespace
