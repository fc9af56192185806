#ifndef ZrvPropertyType_H
#define ZrvPropertyType_H

#include "KELTypes.h"
#include "ZrvExport.h"

/// \file
/// The types of values.

/// The table of the types, which says all about them: `X(id, name, type)` with the enumerator's ending, the type name
/// that prototypes and callers exchange, and the C++ type that a value holds. The order gives the enumerators their
/// numbers from 0.
#define ZRV_PROPERTY_TYPES(X)                                                                                          \
    X(BytePtr, "bytePtr", unsigned char*)                                                                              \
    X(UnicodeString, "KELUnicodeString", KELUnicodeString)                                                             \
    X(Boolean, "KELBoolean", KELBoolean)                                                                               \
    X(INT32, "KELINT32", KELINT32)                                                                                     \
    X(UINT32, "KELUINT32", KELUINT32)                                                                                  \
    X(Float, "float", float)                                                                                           \
    X(Double, "double", double)                                                                                        \
    X(FloatList, "floatList", KELRawCollfloat)                                                                         \
    X(BaseUnknownPtr, "KELSysTSBaseUnknownPtr", KELSysTSBaseUnknown*)

/// A type of value: `zrvPT_BytePtr` is 0, `zrvPT_BaseUnknownPtr` 8, and `zrvPT_Undefined` stands for none of them.
enum ZrvPropertyType : KELINT32 {
#define ZRV_ENUMERATOR(id, name, type) zrvPT_##id,
    ZRV_PROPERTY_TYPES(ZRV_ENUMERATOR)
#undef ZRV_ENUMERATOR
        zrvPT_Undefined
};

#endif
