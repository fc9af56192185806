#include "Y4mReader.h"

#include "PropertyAccess.h"

Y4mReader::Y4mReader()
    : m_prototype(Y4mMakePrototype()), m_properties(GetPrototype()),
      m_streamProperties(
          KELReference<ZrvConstPropertiesPrototype>::Adopt(GetPrototype()->GetPropertyPrototype(kY4mStream)).Get())
{
}

ZrvRC Y4mReader::Open(std::istream& ioInput, const KELUnicodeString& iTitle)
{
    ZrvRC rc = Y4mStream::Open(ioInput, m_stream);
    if (rc.IsError()) {
        return rc;
    }
    const Y4mFormat& format = m_stream->GetFormat();
    Publish(rc, m_streamProperties, kY4mTitle, format.title.empty() ? iTitle : KELUnicodeString(format.title.c_str()));
    Publish(rc, m_streamProperties, kY4mWidth, format.width);
    Publish(rc, m_streamProperties, kY4mHeight, format.height);
    Publish(rc, m_streamProperties, kY4mFrameRate, format.frameRate);
    Publish(rc, m_streamProperties, kY4mPixelAspect, static_cast<float>(format.pixelAspect));
    Publish(rc, m_streamProperties, kY4mInterlaced, static_cast<KELBoolean>(format.isInterlaced));
    Publish(rc, m_streamProperties, kY4mColourSpace, KELUnicodeString(format.colourSpace.name));
    Publish<KELSysTSBaseUnknown*>(rc, m_properties, kY4mStream, m_stream.Get());
    PublishFrame(rc);
    return rc;
}

ZrvRC Y4mReader::ReadFrame()
{
    ZrvRC rc = m_stream->ReadFrame();
    if (rc == ZrvRC::zrvEC_OK) {
        PublishFrame(rc);
    }
    return rc;
}

void Y4mReader::PublishFrame(ZrvRC& ioRC)
{
    Publish(ioRC, m_properties, kY4mFrameCount, m_stream->GetFrameCount());
    Publish(ioRC, m_properties, kY4mFrameBytes, m_stream->GetFrameBytes());
}
