#ifndef ZrvFPSMeasure_H
#define ZrvFPSMeasure_H

#include "KELSysElapseTime.h"
#include "KELTypes.h"
#include "ZrvExport.h"

/// Measures the frame rate of a media loop.
///
/// The loop counts each frame and polls for a new rate; the meter measures whenever the period, in whole seconds, has
/// passed.
///
/// \code
/// ZrvFPSMeasure meter;
/// while (Show(NextFrame())) {
///     meter.IncrementFrames();
///     if (meter.HasNewInstantFPS()) {
///         Print(meter.GetInstantFPS(), meter.GetGlobalFPS());
///     }
/// }
/// \endcode
///
/// Rates are whole frames per second, rounded towards zero; a rate that no `int` holds gives the nearest one that does,
/// and an interval of no length gives 0. When the clock cannot measure, rates stay as they are. Counts wrap around
/// after 2^32 frames. Nothing fails, allocates or reports. Thread-compatible; reading a rate may measure, which is a
/// change.
class ZRV_API ZrvFPSMeasure {
public:
    /// Starts measuring.
    /// \param iPeriod seconds; 0 or less measures at every occasion
    ZrvFPSMeasure(int iPeriod = 1); // NOLINT(google-explicit-constructor)

    /// Goes on from where the other is.
    ZrvFPSMeasure(ZrvFPSMeasure& iOther);
    ZrvFPSMeasure& operator=(const ZrvFPSMeasure&) = delete;
    virtual ~ZrvFPSMeasure();

    /// Starts again from zero, with the same period.
    void Start();

    /// Counts one frame.
    ZRV_INLINE void IncrementFrames() noexcept;

    /// Measures if the period has passed since the last measurement; returns whether it did.
    bool HasNewInstantFPS();

    /// The rate of the last complete interval; 0 before the first and after a rate below 1. Measures first, if there is
    /// a rate other than 0 and the period has passed.
    int GetInstantFPS();

    /// All frames since the start over the time of all complete intervals; 0 before the first. Measures first, if there
    /// is a rate and the period has passed.
    int GetGlobalFPS();

private:
    void Reset();

    KELSysElapseTime m_clock;
    KELINT32 m_instantFPS = 0;
    KELINT32 m_framesSinceMeasure = 0;
    KELINT32 m_totalFrames = 0;
    double m_measuredSeconds = 0.0;
    KELINT32 m_period;
};

// The inline members.

void ZrvFPSMeasure::IncrementFrames() noexcept
{
    m_framesSinceMeasure = static_cast<KELINT32>(static_cast<KELUINT32>(m_framesSinceMeasure) + 1U);
    m_totalFrames = static_cast<KELINT32>(static_cast<KELUINT32>(m_totalFrames) + 1U);
}

#endif
