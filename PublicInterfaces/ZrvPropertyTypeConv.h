#ifndef ZrvPropertyTypeConv_H
#define ZrvPropertyTypeConv_H

#include "KELUnicodeString.h"
#include "ZrvExport.h"
#include "ZrvPropertyType.h"

/// Converts between the two forms of a value type, the enumerator and the type name.
///
/// Neither conversion fails, allocates or reports. Thread-safe, and usable in any static initialiser and destructor.
class ZRV_API ZrvPropertyTypeConv {
public:
    /// There is nothing to copy or to assign.
    /// @{
    ZrvPropertyTypeConv() = default;
    ZrvPropertyTypeConv(const ZrvPropertyTypeConv&) = default;
    ZrvPropertyTypeConv& operator=(const ZrvPropertyTypeConv& iOther);
    ZrvPropertyTypeConv& operator=(ZrvPropertyTypeConv&& iOther) noexcept;
    /// @}

    /// Returns the type name, such as "KELINT32". A value that is no type yields an empty string.
    static KELUnicodeString GetAsUnicode(ZrvPropertyType iType);

    /// Returns the type of that exact name. An unknown name yields `zrvPT_Undefined`.
    static ZrvPropertyType GetEnum(const KELUnicodeString& iTypeName);
};

#endif
