#ifndef ZrvDebugServices_H
#define ZrvDebugServices_H

#include "KELUnicodeString.h"
#include "ZrvExport.h"

class ZrvProperties;

/// Debugging services for property sets. Thread-safe.
class ZRV_API ZrvDebugServices {
public:
    /// There is nothing to copy or to assign.
    /// @{
    ZrvDebugServices() = default;
    ZrvDebugServices(const ZrvDebugServices&) = default;
    ZrvDebugServices& operator=(const ZrvDebugServices& iOther);
    ZrvDebugServices& operator=(ZrvDebugServices&& iOther) noexcept;
    /// @}

    /// The traces of a set: there are none, so an empty string.
    static KELUnicodeString GetTracesFromProperties(const ZrvProperties& iProperties);
};

#endif
