#ifndef ZrvPropertyTypeConv_H
#define ZrvPropertyTypeConv_H

#include "KELUnicodeString.h"
#include "ZrvExport.h"
#include "ZrvPropertyType.h"

/// Converts between the two forms of a value type, the enumerator and the type name.
///
/// Neither conversion fails, allocates or reports: what is unknown gives the other form's unknown. Thread-safe, and
/// usable from any static initialiser and destructor.
class ZRV_API ZrvPropertyTypeConv {
public:
    ZrvPropertyTypeConv() = default;
    ZrvPropertyTypeConv(const ZrvPropertyTypeConv&) = default;

    /// Do nothing; there is nothing to assign.
    /// @{
    ZrvPropertyTypeConv& operator=(const ZrvPropertyTypeConv& iOther);
    ZrvPropertyTypeConv& operator=(ZrvPropertyTypeConv&& iOther) noexcept;
    /// @}

    /// The type name, such as "KELINT32"; empty for any value that is none of the nine types. The string shows a text
    /// of the library's, to be given up before the library is unloaded.
    static KELUnicodeString GetAsUnicode(ZrvPropertyType iType);

    /// The type of that exact name; `zrvPT_Undefined` for any other text.
    static ZrvPropertyType GetEnum(const KELUnicodeString& iTypeName);
};

#endif
