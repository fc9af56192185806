#ifndef Y4mMeter_H
#define Y4mMeter_H

#include "Y4mFormat.h"
#include "ZrvProperties.h"

/// The component that measures frames. It knows its source by the source's properties alone.
class Y4mMeter {
public:
    /// \param iPrototype what the source declares
    explicit Y4mMeter(ZrvConstPropertiesPrototype& iPrototype);

    /// Takes over what the source says of itself and of its stream.
    ZrvRC TakeStream(const ZrvProperties& iSource, const ZrvProperties& iStreamOfSource);

    /// Takes over the source's latest frame and sets the means of its planes.
    ZrvRC TakeFrame(const ZrvProperties& iSource);

    /// What was taken over and measured.
    /// @{
    const ZrvProperties& GetProperties() const { return m_properties; }
    const ZrvProperties& GetStreamProperties() const { return m_streamProperties; }
    /// @}

private:
    ZrvProperties m_properties;
    ZrvProperties m_streamProperties;
};

#endif
