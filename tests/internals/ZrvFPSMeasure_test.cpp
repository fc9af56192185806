#include "ZrvFPSMeasure.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

constexpr int kMost = std::numeric_limits<int>::max();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(ZrvFPSMeasure, MeasuresAfterWholePeriods)
{
    constexpr int kSame = -9;
    struct Row {
        int period, frames; // a new meter's period, unless it is the same meter
        double clock;
        char asked; // to measure, to copy or start, the instant or the global rate
        int answer; // -1 when it does not measure
    };
    // The global rate is one of whole intervals.
    const Row rows[] = {
        {1, 30, 999999.0, 'm', -1},  {1, 30, 1e6, 'm', 30},     {kSame, 0, 0.0, 'g', 30},  {1, 0, 1.5e6, 'm', 0},
        {2, 59, 1.9e6, 'm', -1},     {2, 30, 2e6, 'm', 15},     {2, 59, 2.9e6, 'm', 20},   {1, 251, 1e6, 'm', 250},
        {0, 30, 10.0, 'm', 3000000}, {0, 30, 0.0, 'm', 0},      {-3, 0, 0.0, 'm', 0},      {0, 3000, 1.0, 'm', kMost},
        {0, 30, kNoNumber, 'm', 0},  {1, 30, -1.0, 'm', -1},    {1, 30, 2e6, 'i', 0},      {kSame, 0, 2e6, 'g', 0},
        {kSame, 0, 1.5e6, 'm', 20},  {kSame, 0, 0.0, 'i', 20},  {kSame, 0, 0.0, 'g', 20},  {kSame, 10, 0.5e6, 'i', 20},
        {kSame, 0, 0.5e6, 'g', 26},  {kSame, 0, -1.0, 'm', -1}, {kSame, 0, -1.0, 'i', 20}, {kSame, 0, 1e6, 'i', 10},
        {kSame, 5, 2.5e6, 'g', 9},   {kSame, 0, 1e6, 'm', 0},   {kSame, 5, 1e6, 'i', 0}, // nothing to renew
        {3, 30, 3e6, 'm', 10},       {kSame, 60, 1e6, 'c', 10}, {kSame, 0, 2e6, 'm', 20},  {kSame, 0, 2e6, 'g', 15},
        {kSame, 9, 1e6, 'c', 20},    {kSame, 0, 1e6, 's', 0},   {kSame, 0, 1e6, 'g', 0},   {kSame, 60, 2.9e6, 'm', -1},
        {kSame, 0, 3e6, 'm', 20},    {kSame, 0, 2e6, 'g', 20}};
    std::unique_ptr<ZrvFPSMeasure> meter;
    for (const auto& [period, frames, clock, asked, answer] : rows) {
        meter = period == kSame ? std::move(meter) : std::make_unique<ZrvFPSMeasure>(period);
        for (int i = 0; i < frames; ++i) {
            meter->IncrementFrames();
        }
        KELSysElapseTime::s_microseconds = clock;
        if (asked == 'c') {
            meter->m_clock.ahead = 1e6;
            meter = std::make_unique<ZrvFPSMeasure>(*meter);
        }
        asked == 's' ? meter->Start() : void();
        const int real = asked != 'm' && asked != 'g' ? meter->GetInstantFPS()
                         : asked == 'g'               ? meter->GetGlobalFPS()
                         : meter->HasNewInstantFPS()  ? meter->m_instantFPS
                                                      : -1;
        EXPECT_EQ(real, answer) << period << ' ' << frames << " frames " << clock << asked;
    }
}

} // namespace
