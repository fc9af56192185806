#ifndef ZrvPropertyValue_H
#define ZrvPropertyValue_H

#include "KELRawCollfloat.h"
#include "KELReference.h"
#include "KELSysTSBaseUnknown.h"
#include "KELTypes.h"
#include "KELUnicodeString.h"
#include "ZrvIsExactly.h"
#include "ZrvPropertyType.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvPropertyValueBase.h"

#include <type_traits>
#include <utility>

/// \file
/// The typed values: one class for each type of `ZRV_PROPERTY_TYPES`.
///
/// \code
/// set.SetProperty("width", ZrvPropertyValue<KELUINT32>(1920));
///
/// if (const auto* width = ZrvPropertyCast<KELUINT32>(set.GetProperty("width"))) {
///     Use(width->GetValue());
/// }
/// \endcode

/// Which type of values holds a T; for a T that none holds, a message of the compiler that says what to use.
template <class T>
struct ZrvPropertyTypeOf {
    static_assert(
        sizeof(T) == 0,
        "T is none of the types of values: a bool is kept as KELBoolean, a number as KELINT32, "
        "KELUINT32, float or double, a text as KELUnicodeString, a list as KELRawCollfloat, bytes as unsigned "
        "char*, an object of any class as KELSysTSBaseUnknown*");

    static constexpr ZrvPropertyType kType = zrvPT_Undefined; ///< What else the compiler would complain about.
};

/// \cond
#define ZRV_TYPE_OF(id, name, type)                                                                                    \
    template <>                                                                                                        \
    struct ZrvPropertyTypeOf<type> {                                                                                   \
        static constexpr ZrvPropertyType kType = zrvPT_##id;                                                           \
    };
ZRV_PROPERTY_TYPES(ZRV_TYPE_OF)
#undef ZRV_TYPE_OF
/// \endcond

/// A value of type T, one of `ZRV_PROPERTY_TYPES`.
///
/// Strings and lists are owned; a byte pointer is an address and nothing more; an object pointer holds one reference on
/// the object while it is not null. The type never changes. Thread-compatible.
template <class T>
class ZrvPropertyValue : public ZrvPropertyValueBase {
    static constexpr bool kIsObject = std::is_same_v<T, KELSysTSBaseUnknown*>;

public:
    /// What a value of that type holds.
    using Contents = std::conditional_t<kIsObject, KELReference<KELSysTSBaseUnknown>, T>;

    static constexpr ZrvPropertyType kType = ZrvPropertyTypeOf<T>::kType; ///< The type by number.

    /// Starts with iValue; takes a reference of its own on an object.
    /// @{
    explicit ZrvPropertyValue(const T& iValue) : m_typedValue(iValue) {}
    explicit ZrvPropertyValue(T&& ioValue) : m_typedValue(std::move(ioValue)) {}
    /// @}

    /// A copy of an object pointer takes a reference of its own.
    /// @{
    ZrvPropertyValue(const ZrvPropertyValue&) = default;
    ZrvPropertyValue& operator=(const ZrvPropertyValue&) = default;
    /// @}

    ~ZrvPropertyValue() override = default;

    KELUnicodeString GetType() const override { return ZrvPropertyTypeConv::GetAsUnicode(kType); }

    ZrvPropertyValueBase* Duplicate() const override { return new ZrvPropertyValue(*this); }

    ZrvRC SetValueFromProperty(const ZrvPropertyValueBase& iOther) override
    {
        const ZrvPropertyValue* const other = OfSameType(iOther);
        if (!other) {
            return ZrvRC::zrvEC_Error;
        }
        if constexpr (kIsObject) {
            const auto object = Contents::Adopt(other->GetValue());
            return SetValue(object.Get());
        } else {
            return SetValue(other->GetValue());
        }
    }

    bool IsPurelyIdenticalTo(const ZrvPropertyValueBase& iOther) const override
    {
        const ZrvPropertyValue* const other = OfSameType(iOther);
        if (!other) {
            return false;
        }
        if constexpr (kIsObject) { // its own pointer is compared as it is: asking for it would add a reference
            return m_typedValue == Contents::Adopt(other->GetValue()).Get();
        } else {
            const T otherValue = other->GetValue();
            return AreEqual(GetValue(), otherValue);
        }
    }

    /// Stores iValue; always succeeds. On an object, takes a reference before it gives up the one it held.
    virtual ZrvRC SetValue(T iValue)
    {
        m_typedValue = std::move(iValue);
        return ZrvRC();
    }

    /// A copy of the value; an object comes with a reference added for the caller, who releases it.
    virtual T GetValue() const
    {
        if constexpr (kIsObject) {
            return m_typedValue.Share();
        } else {
            return m_typedValue;
        }
    }

    /// Exchange the contents for others, or for those of another value. Neither counts references nor fails.
    /// @{
    void Swap(Contents& ioContents) noexcept { std::swap(m_typedValue, ioContents); }
    void Swap(ZrvPropertyValue& ioOther) noexcept { Swap(ioOther.m_typedValue); }
    /// @}

    /// Whether another value holds equal contents; of objects, the same one. Asks neither value and counts no
    /// references.
    bool HoldsSame(const ZrvPropertyValue& iOther) const
    {
        if constexpr (kIsObject) {
            return m_typedValue == iOther.m_typedValue.Get();
        } else {
            return AreEqual(m_typedValue, iOther.m_typedValue);
        }
    }

private:
    // The other value if both have the same type name and it is of this class indeed; else null. A caller may have
    // derived a class that names a type which it is not of.
    const ZrvPropertyValue* OfSameType(const ZrvPropertyValueBase& iOther) const
    {
        if (ZrvIsExactly<ZrvPropertyValue>(*this) && ZrvIsExactly<ZrvPropertyValue>(iOther)) {
            return static_cast<const ZrvPropertyValue*>(&iOther);
        }
        return HasSameTypeName(iOther) ? dynamic_cast<const ZrvPropertyValue*>(&iOther) : nullptr;
    }

    bool HasSameTypeName(const ZrvPropertyValueBase& iOther) const
    {
        const KELUnicodeString type = GetType();
        return type.GetLengthInChar() >= 1 && type.Compare(iOther.GetType()) == 2;
    }

    static bool AreEqual(const T& iFirst, const T& iSecond)
    {
        if constexpr (std::is_same_v<T, KELUnicodeString>) {
            return ZrvPropertyValue_StringComparator(iFirst, iSecond);
        } else if constexpr (std::is_same_v<T, KELRawCollfloat>) {
            return ZrvPropertyValue_LstFloatComparator(iFirst, iSecond);
        } else {
            return iFirst == iSecond;
        }
    }

    Contents m_typedValue;
};

#endif
