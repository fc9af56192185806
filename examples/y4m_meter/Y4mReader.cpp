#include "Y4mReader.h"

#include "ZrvPropertyAccess.h"

Y4mReader::Y4mReader()
    : m_prototype(Y4mMakePrototype()), m_properties(GetPrototype()),
      m_streamProperties(
          KELReference<ZrvConstPropertiesPrototype>::Adopt(GetPrototype()->GetPropertyPrototype(kY4mStream)).Get())
{
}

ZrvRC Y4mReader::Open(std::istream& ioInput, const KELUnicodeString& iTitle)
{
    ZrvRC rc = Y4mStream::Open(ioInput, m_stream);
    if (rc.IsValid()) {
        rc = PublishStream(m_stream->GetFormat(), iTitle);
    }
    return rc.IsValid() ? PublishFrame() : rc;
}

ZrvRC Y4mReader::ReadFrame()
{
    ZrvRC rc = m_stream->ReadFrame();
    return rc == ZrvRC::zrvEC_OK ? PublishFrame() : rc;
}

// A failure names its property.
ZrvRC Y4mReader::PublishStream(const Y4mFormat& iFormat, const KELUnicodeString& iTitle)
{
    ZrvRC rc = ZrvPublishProperty<KELSysTSBaseUnknown*>(m_properties, kY4mStream, m_stream.Get());
    const auto publish = [this, &rc](const KELUnicodeString& iName, auto iValue) {
        if (rc.IsValid()) {
            rc = ZrvPublishProperty(m_streamProperties, iName, std::move(iValue));
        }
    };
    publish(kY4mTitle, iFormat.title.empty() ? iTitle : KELUnicodeString(iFormat.title.c_str()));
    publish(kY4mWidth, iFormat.width);
    publish(kY4mHeight, iFormat.height);
    publish(kY4mFrameRate, iFormat.frameRate.GetText().c_str());
    publish(kY4mPixelAspect, iFormat.pixelAspect.GetText().c_str());
    publish(kY4mInterlacing, iFormat.interlacing.c_str());
    publish(kY4mColourSpace, iFormat.colourSpace.name.c_str());
    publish(kY4mBitDepth, iFormat.colourSpace.bitDepth);
    return rc;
}

ZrvRC Y4mReader::PublishFrame()
{
    ZrvRC rc = ZrvPublishProperty(m_properties, kY4mFrameCount, m_stream->GetFrameCount());
    return rc.IsValid() ? ZrvPublishProperty(m_properties, kY4mFrameBytes, m_stream->GetFrameBytes()) : rc;
}
