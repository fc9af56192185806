#ifndef Y4mReader_H
#define Y4mReader_H

#include "Y4mPrototype.h"
#include "Y4mStream.h"
#include "ZrvProperties.h"

/// The component that reads a stream and publishes what it finds.
class Y4mReader {
public:
    Y4mReader();

    /// Reads the stream's header and publishes its parameters.
    /// \param iTitle the title of a stream that names none itself
    ZrvRC Open(std::istream& ioInput, const KELUnicodeString& iTitle);

    /// Reads the next frame of an open stream and publishes it; `zrvEC_NothingDone` at the end.
    ZrvRC ReadFrame();

    /// What the reader and the components behind it may publish.
    ZrvConstPropertiesPrototype* GetPrototype() const { return m_prototype.Get(); }

    const ZrvProperties& GetProperties() const { return m_properties; }

    /// The parameters of the stream property, bound to its nested prototype.
    const ZrvProperties& GetStreamProperties() const { return m_streamProperties; }

private:
    ZrvRC PublishStream(const Y4mFormat& iFormat, const KELUnicodeString& iTitle);
    ZrvRC PublishFrame();

    KELReference<ZrvPrototypeImpl> m_prototype;
    ZrvProperties m_properties;
    ZrvProperties m_streamProperties;
    KELReference<Y4mStream> m_stream;
};

#endif
