#include "Y4mMeter.h"

#include "PropertyAccess.h"
#include "Y4mPrototype.h"
#include "Y4mStream.h"

#include <numeric>

namespace {

KELRawCollfloat MeasurePlanes(const unsigned char* iBytes, const Y4mFormat& iFormat)
{
    KELRawCollfloat means(3);
    for (const std::size_t size : iFormat.GetPlaneSizes()) {
        const auto sum = static_cast<double>(std::accumulate(iBytes, iBytes + size, std::uint64_t(0)));
        means.Append(size == 0 ? 0.0F : static_cast<float>(sum / static_cast<double>(size)));
        iBytes += size;
    }
    return means;
}

} // namespace

Y4mMeter::Y4mMeter(ZrvConstPropertiesPrototype& iPrototype)
    : m_properties(&iPrototype),
      m_streamProperties(
          KELReference<ZrvConstPropertiesPrototype>::Adopt(iPrototype.GetPropertyPrototype(kY4mStream)).Get())
{
    static_cast<void>(m_properties.AddProperty(kY4mPlaneMeans)); // three zeros until there is a frame
}

ZrvRC Y4mMeter::TakeStream(const ZrvProperties& iSource, const ZrvProperties& iStreamOfSource)
{
    ZrvRC rc = m_streamProperties.SetFromProperties(iStreamOfSource);
    if (rc.IsValid()) {
        rc = m_properties.SetFromProperties(iSource);
    }
    return rc.IsError() ? rc.AddTrace("the meter can not take the stream's parameters") : rc;
}

ZrvRC Y4mMeter::TakeFrame(const ZrvProperties& iSource)
{
    ZrvRC rc = m_properties.SetFromProperties(iSource);
    const auto* bytes = Read<unsigned char*>(m_properties, kY4mFrameBytes);
    const auto object = KELReference<KELSysTSBaseUnknown>::Adopt(Read<KELSysTSBaseUnknown*>(m_properties, kY4mStream));
    const auto* stream = dynamic_cast<const Y4mStream*>(object.Get());
    if (rc.IsError() || !bytes || !stream) {
        return rc.Add(Y4mFailure("the meter can not take a frame"));
    }
    Publish(rc, m_properties, kY4mPlaneMeans, MeasurePlanes(bytes, stream->GetFormat()));
    return rc;
}
