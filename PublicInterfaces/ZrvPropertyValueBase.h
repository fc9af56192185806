#ifndef ZrvPropertyValueBase_H
#define ZrvPropertyValueBase_H

#include "KELRawCollfloat.h"
#include "KELUnicodeString.h"
#include "ZrvExport.h"
#include "ZrvRC.h"

/// A value of a type that the holder need not know.
///
/// The typed values of ZrvPropertyValue.h give the operations their meaning. A bare base is a value without a type: its
/// type name is empty, it cannot be duplicated or set, and it is identical to nothing.
///
/// Thread-compatible.
class ZRV_API ZrvPropertyValueBase {
public:
    /// There is nothing to copy.
    /// @{
    ZRV_INLINE ZrvPropertyValueBase() noexcept;
    ZRV_INLINE ZrvPropertyValueBase(const ZrvPropertyValueBase& iOther) noexcept;
    ZRV_INLINE ZrvPropertyValueBase& operator=(const ZrvPropertyValueBase& iOther) noexcept;
    ZRV_INLINE virtual ~ZrvPropertyValueBase();
    /// @}

    /// The value's type name; empty for a value without a type.
    virtual KELUnicodeString GetType() const;

    /// A new copy, which the caller deletes; null for a value without a type. Throws `std::bad_alloc`.
    virtual ZrvPropertyValueBase* Duplicate() const;

    /// Takes over the value of iOther, which must have the same type name; else an error with an empty trace, and
    /// nothing changes. A value without a type always fails, and reports
    /// "Property value wihtout type cannot be set."
    virtual ZrvRC SetValueFromProperty(const ZrvPropertyValueBase& iOther);

    /// Whether iOther has the same type name and an equal value.
    virtual bool IsPurelyIdenticalTo(const ZrvPropertyValueBase& iOther) const;
};

// The inline members.

ZrvPropertyValueBase::ZrvPropertyValueBase() noexcept = default;
ZrvPropertyValueBase::ZrvPropertyValueBase(const ZrvPropertyValueBase& iOther) noexcept = default;
ZrvPropertyValueBase& ZrvPropertyValueBase::operator=(const ZrvPropertyValueBase&) noexcept = default;
ZrvPropertyValueBase::~ZrvPropertyValueBase() = default;

/// The type name of string values. Thread-safe.
ZRV_API KELUnicodeString ZrvPropertyValue_GetStringType();

/// Whether two strings are identical. Linear in long texts. Thread-safe.
ZRV_API bool ZrvPropertyValue_StringComparator(const KELUnicodeString& iFirst, const KELUnicodeString& iSecond);

/// Whether two lists have the same number of elements and compare equal. Linear. Thread-safe.
ZRV_API bool ZrvPropertyValue_LstFloatComparator(const KELRawCollfloat& iFirst, const KELRawCollfloat& iSecond);

#endif
