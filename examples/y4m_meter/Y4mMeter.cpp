#include "Y4mMeter.h"

#include "Y4mPrototype.h"
#include "Y4mStream.h"
#include "ZrvPropertyAccess.h"

#include <numeric>

namespace {

// The sum of 8-bit samples, or of samples of two bytes.
std::uint64_t AddSamples(const unsigned char* iBytes, std::size_t iSamples, bool iAreWide)
{
    if (!iAreWide) {
        return std::accumulate(iBytes, iBytes + iSamples, std::uint64_t(0));
    }
    std::uint64_t sum = 0;
    for (std::size_t sample = 0; sample < iSamples; ++sample) {
        sum += iBytes[2 * sample] + 256U * iBytes[2 * sample + 1];
    }
    return sum;
}

KELRawCollfloat MeasurePlanes(const unsigned char* iBytes, const Y4mFormat& iFormat)
{
    KELRawCollfloat means(4);
    for (const Y4mPlane& plane : iFormat.GetPlanes()) {
        std::uint64_t sum = 0;
        for (std::size_t row = 0; row < plane.rows; ++row, iBytes += plane.bytesPerRow) {
            sum += AddSamples(iBytes, plane.samplesPerRow, iFormat.GetBytesPerSample() > 1);
        }
        const std::size_t samples = plane.rows * plane.samplesPerRow;
        means.Append(samples == 0 ? 0.0F : static_cast<float>(static_cast<double>(sum) / static_cast<double>(samples)));
    }
    return means;
}

} // namespace

Y4mMeter::Y4mMeter(ZrvConstPropertiesPrototype& iPrototype)
    : m_properties(&iPrototype),
      m_streamProperties(
          KELReference<ZrvConstPropertiesPrototype>::Adopt(iPrototype.GetPropertyPrototype(kY4mStream)).Get())
{
}

ZrvRC Y4mMeter::TakeStream(const ZrvProperties& iSource, const ZrvProperties& iStreamOfSource)
{
    ZrvRC rc = m_streamProperties.SetFromProperties(iStreamOfSource);
    if (rc.IsValid()) {
        rc = m_properties.SetFromProperties(iSource);
    }
    return rc.IsError() ? rc.AddTrace("the meter cannot take the stream's parameters") : rc;
}

ZrvRC Y4mMeter::TakeFrame(const ZrvProperties& iSource)
{
    ZrvRC rc = m_properties.SetFromProperties(iSource);
    const auto* bytes = ZrvReadProperty<unsigned char*>(m_properties, kY4mFrameBytes);
    const auto object = ZrvReadProperty<KELSysTSBaseUnknown*>(m_properties, kY4mStream);
    const auto* stream = dynamic_cast<const Y4mStream*>(object.Get());
    if (rc.IsError() || !bytes || !stream) {
        return rc.Add(Y4mFailure("the meter cannot take a frame"));
    }
    return ZrvPublishProperty(m_properties, kY4mPlaneMeans, MeasurePlanes(bytes, stream->GetFormat()));
}
