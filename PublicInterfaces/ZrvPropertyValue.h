#ifndef ZrvPropertyValue_H
#define ZrvPropertyValue_H

#include "KELRawCollfloat.h"
#include "KELReference.h"
#include "KELSysTSBaseUnknown.h"
#include "KELTypes.h"
#include "KELUnicodeString.h"
#include "ZrvPropertyType.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvPropertyValueBase.h"

#include <typeinfo>
#include <utility>

/// \file
/// The typed values: one class for each of the nine types.
///
/// \code
/// set.SetProperty("width", ZrvPropertyValue<KELUINT32>(1920));
///
/// const ZrvPropertyValueBase* value = set.GetProperty("width");
/// if (value && value->GetType() == "KELUINT32") {
///     Use(static_cast<const ZrvPropertyValue<KELUINT32>*>(value)->GetValue());
/// }
/// \endcode

/// Which of the nine types holds a T; declared for those nine alone.
template <class T>
struct ZrvPropertyTypeOf;

#define ZRV_TYPE_OF(id, name, type)                                                                                    \
    template <>                                                                                                        \
    struct ZrvPropertyTypeOf<type> {                                                                                   \
        static constexpr ZrvPropertyType kType = zrvPT_##id;                                                           \
    };
ZRV_PROPERTY_TYPES(ZRV_TYPE_OF)
#undef ZRV_TYPE_OF

/// How a value keeps, hands out and compares its contents: plainly, ...
template <class T>
struct ZrvPropertyContents {
    using Kept = T;     ///< what the value holds
    using Received = T; ///< what takes another value's answer in

    static T HandOut(const Kept& iKept) { return iKept; }
    static const T& Peek(const Received& iReceived) { return iReceived; }
    static bool AreEqual(const T& iFirst, const T& iSecond) { return iFirst == iSecond; }
};

/// ... strings and lists compared by the library, ...
/// @{
template <>
inline bool ZrvPropertyContents<KELUnicodeString>::AreEqual(const KELUnicodeString& iFirst,
                                                            const KELUnicodeString& iSecond)
{
    return ZrvPropertyValue_StringComparator(iFirst, iSecond);
}

template <>
inline bool ZrvPropertyContents<KELRawCollfloat>::AreEqual(const KELRawCollfloat& iFirst,
                                                           const KELRawCollfloat& iSecond)
{
    return ZrvPropertyValue_LstFloatComparator(iFirst, iSecond);
}
/// @}

/// ... and objects with a reference.
template <>
struct ZrvPropertyContents<KELSysTSBaseUnknown*> {
    using Kept = KELReference<KELSysTSBaseUnknown>;

    struct Received {
        explicit Received(KELSysTSBaseUnknown* iObject) noexcept : reference(Kept::Adopt(iObject)) {}
        Kept reference;
    };

    static KELSysTSBaseUnknown* HandOut(const Kept& iKept) { return iKept.Share(); }
    static KELSysTSBaseUnknown* Peek(const Received& iReceived) { return iReceived.reference.Get(); }
};

/// A value of one of the nine types T.
///
/// Strings and lists are owned; a byte pointer is an address and nothing more; an object pointer holds one reference on
/// the object while it is not null. The type never changes. Not changed by one thread while another uses it.
template <class T>
class ZrvPropertyValue : public ZrvPropertyValueBase {
    using Contents = ZrvPropertyContents<T>;

public:
    static constexpr ZrvPropertyType kType = ZrvPropertyTypeOf<T>::kType;

    /// Starts with iValue; takes a reference of its own on an object.
    explicit ZrvPropertyValue(T iValue) : m_typedValue(std::move(iValue)) {}
    ZrvPropertyValue(const ZrvPropertyValue&) = default;
    ZrvPropertyValue& operator=(const ZrvPropertyValue&) = default;
    ~ZrvPropertyValue() override = default;

    KELUnicodeString GetType() const override { return ZrvPropertyTypeConv::GetAsUnicode(kType); }

    ZrvPropertyValueBase* Duplicate() const override { return new ZrvPropertyValue(*this); }

    ZrvRC SetValueFromProperty(const ZrvPropertyValueBase& iOther) override
    {
        if (IsPlain(*this) && IsPlain(iOther)) {
            m_typedValue = static_cast<const ZrvPropertyValue&>(iOther).m_typedValue;
            return ZrvRC();
        }
        if (!HasSameTypeName(iOther)) {
            return ZrvRC::zrvEC_Error;
        }
        const typename Contents::Received other(static_cast<const ZrvPropertyValue&>(iOther).GetValue());
        return SetValue(Contents::Peek(other));
    }

    bool IsPurelyIdenticalTo(const ZrvPropertyValueBase& iOther) const override
    {
        if (!HasSameTypeName(iOther)) {
            return false;
        }
        const typename Contents::Received other(static_cast<const ZrvPropertyValue&>(iOther).GetValue());
        return IsEqualTo(Contents::Peek(other));
    }

    /// Stores iValue; always succeeds. On an object, takes a reference before it gives up the one it held.
    virtual ZrvRC SetValue(T iValue)
    {
        m_typedValue = std::move(iValue);
        return ZrvRC();
    }

    /// A copy of the value; an object comes with a reference added for the caller, who releases it.
    virtual T GetValue() const { return Contents::HandOut(m_typedValue); }

private:
    // An object of exactly this class, not of one derived by a caller: what it answers is known without asking. Modules
    // may have their own copies of the class, and a copy that is not recognised is asked like any other.
    static bool IsPlain(const ZrvPropertyValueBase& iValue) noexcept
    {
        return &typeid(iValue) == &typeid(ZrvPropertyValue);
    }

    bool HasSameTypeName(const ZrvPropertyValueBase& iOther) const
    {
        return GetType().GetLengthInChar() >= 1 && iOther.GetType().GetLengthInChar() >= 1 &&
               GetType().Compare(iOther.GetType()) == 2;
    }

    bool IsEqualTo(const T& iOther) const { return Contents::AreEqual(GetValue(), iOther); }

    typename Contents::Kept m_typedValue;
};

// The object's own pointer is compared as it is: asking for it would add a reference.
template <>
inline bool ZrvPropertyValue<KELSysTSBaseUnknown*>::IsEqualTo(KELSysTSBaseUnknown* const& iOther) const
{
    return m_typedValue == iOther;
}

#endif
