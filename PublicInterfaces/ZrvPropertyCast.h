#ifndef ZrvPropertyCast_H
#define ZrvPropertyCast_H

#include "KELReference.h"
#include "KELSysTSBaseUnknown.h"
#include "ZrvExport.h"
#include "ZrvIsExactly.h"
#include "ZrvPropertyType.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvPropertyValue.h"
#include "ZrvPropertyValueBase.h"

/// Whether a value is of the library's own class for a type, as the values that sets make are. False says nothing:
/// another module has the class for itself. Saves `ZrvPropertyCast` a comparison of the classes' names.
ZRV_API bool ZrvIsOfLibrary(const ZrvPropertyValueBase& iValue, ZrvPropertyType iType) noexcept;

/// The value as a value of type T; null for null and for a value of another type.
///
/// Both the type name and the class are checked, so that a foreign class which only names a type is not taken for it.
/// This is the one cast that a caller needs.
/// \code
/// if (const auto* width = ZrvPropertyCast<KELUINT32>(set.GetProperty(kWidth))) {
///     Use(width->GetValue());
/// }
/// \endcode
/// \return iValue itself, owned by whoever owns iValue
template <class T>
const ZrvPropertyValue<T>* ZrvPropertyCast(const ZrvPropertyValueBase* iValue)
{
    if (!iValue) {
        return nullptr;
    }
    // An object of exactly this class answers with its own type name. Nearly all are, and need no search of bases.
    if (ZrvIsOfLibrary(*iValue, ZrvPropertyValue<T>::kType) || ZrvIsExactly<ZrvPropertyValue<T>>(*iValue)) {
        return static_cast<const ZrvPropertyValue<T>*>(iValue);
    }
    if (iValue->GetType() != ZrvPropertyTypeConv::GetAsUnicode(ZrvPropertyValue<T>::kType)) {
        return nullptr;
    }
    return dynamic_cast<const ZrvPropertyValue<T>*>(iValue);
}

/// How a value of type T reaches its reader: as a T, ...
template <class T>
struct ZrvPropertyReader {
    using Result = T; ///< What the reader gets.

    /// Reads it.
    static Result Read(const ZrvPropertyValue<T>& iValue) { return iValue.GetValue(); }
};

/// ... an object in a holder, which gives back the reference that the value added for the reader.
template <>
struct ZrvPropertyReader<KELSysTSBaseUnknown*> {
    using Result = KELReference<KELSysTSBaseUnknown>; ///< What the reader gets.

    /// Reads it.
    static Result Read(const ZrvPropertyValue<KELSysTSBaseUnknown*>& iValue)
    {
        return Result::Adopt(iValue.GetValue());
    }
};

#endif
