#ifndef ZrvIsExactly_H
#define ZrvIsExactly_H

#include "ZrvExport.h"

#include <typeinfo>

/// Whether an object is of exactly a class, and not of one derived from it, whose operations may answer otherwise.
///
/// The answer is the language's own, which holds between modules that each have the class for themselves.
/// @{
template <class Base>
bool ZrvIsExactly(const Base& iObject, const std::type_info& iClass) noexcept
{
    return typeid(iObject) == iClass;
}

template <class T, class Base>
bool ZrvIsExactly(const Base& iObject) noexcept
{
    return ZrvIsExactly(iObject, typeid(T));
}
/// @}

#endif
