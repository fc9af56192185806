#ifndef ZrvValueClass_H
#define ZrvValueClass_H

#include "KELReference.h"
#include "KELSysTSBaseUnknown.h"
#include "KELUnicodeString.h"
#include "ZrvIsExactly.h"
#include "ZrvPropertyType.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvPropertyValue.h"
#include "ZrvPropertyValueBase.h"

#include <algorithm>
#include <cstddef>
#include <typeinfo>
#include <utility>

/// What the library knows of one class of values, `ZrvPropertyValue<T>`, in one table. The functions take values of
/// that class; those that make one do so in a room of the caller's.
struct ZrvValueClass {
    const std::type_info* typeInfo;

    ZrvPropertyValueBase* (*makeDefault)(void* iRoom);
    ZrvPropertyValueBase* (*makeCopy)(void* iRoom, const ZrvPropertyValueBase& iValue);

    /// Asks any value for its contents; null for one that is neither of this class nor derived from it.
    ZrvPropertyValueBase* (*makeAnswer)(void* iRoom, const ZrvPropertyValueBase& iValue);
    void (*assign)(ZrvPropertyValueBase& ioValue, const ZrvPropertyValueBase& iOther);
    void (*swap)(ZrvPropertyValueBase& ioValue, ZrvPropertyValueBase& ioOther);

    ZrvPropertyType type;

    /// Whether values refer to objects, so that copying one counts and may call the host. It is then `ObjectValue`.
    bool hasObjects;
    using ObjectValue = ZrvPropertyValue<KELSysTSBaseUnknown*>;

    KELUnicodeString TypeName() const { return ZrvPropertyTypeConv::GetAsUnicode(type); }

    bool IsClassOf(const ZrvPropertyValueBase& iValue) const { return ZrvIsExactly(iValue, *typeInfo); }

    /// The class of that type name; null for an unknown name.
    static const ZrvValueClass* Find(const KELUnicodeString& iType);
};

/// Owns a value, or none: in its own room if its class is in the table, else on the heap.
///
/// In a set every value lies in the room. A value lies on the heap only in a property that was made without one and
/// then took a duplicate.
class ZrvValueHolder {
public:
    ZrvValueHolder() noexcept = default;
    ZrvValueHolder(const ZrvValueHolder&) = delete;
    ZrvValueHolder& operator=(const ZrvValueHolder&) = delete;
    ~ZrvValueHolder() { Reset(); }

    /// Destroys the value.
    void Reset() noexcept
    {
        const ZrvValueClass* const valueClass = std::exchange(m_class, nullptr);
        if (ZrvPropertyValueBase* const value = std::exchange(m_value, nullptr)) {
            if (valueClass) {
                value->~ZrvPropertyValueBase();
            } else {
                delete value;
            }
        }
    }

    /// Give an empty holder its value: the default of a class, a copy of another holder's, what a value answers (none
    /// when it is not of the class), or one on the heap, which the holder takes over.
    /// @{
    void MakeDefault(const ZrvValueClass& iClass) { Place(iClass, iClass.makeDefault(m_room)); }
    void MakeCopy(const ZrvValueHolder& iOther);
    void MakeUncounted(const ZrvValueHolder& iOther) // a copy, but without an object
    {
        if (iOther.m_class && iOther.m_class->hasObjects) {
            MakeDefault(*iOther.m_class);
        } else {
            MakeCopy(iOther);
        }
    }
    void MakeAnswer(const ZrvValueClass& iClass, const ZrvPropertyValueBase& iValue);
    void Take(ZrvPropertyValueBase* iValue) noexcept { m_value = iValue; }
    /// @}

    /// The class of a value in the room; null for one on the heap and without a value.
    const ZrvValueClass* Class() const noexcept { return m_class; }

    /// Exchanges the contents of two values of the same class. Calls no host.
    void Swap(ZrvValueHolder& ioOther) { m_class->swap(*m_value, *ioOther.m_value); }

    /// Takes the object out of the value, if it has one.
    KELReference<KELSysTSBaseUnknown> TakeObject()
    {
        KELReference<KELSysTSBaseUnknown> object;
        if (m_class && m_class->hasObjects) {
            static_cast<ZrvValueClass::ObjectValue&>(*m_value).Swap(object);
        }
        return object;
    }

    ZrvPropertyValueBase* get() const noexcept { return m_value; }
    ZrvPropertyValueBase* operator->() const noexcept { return m_value; }
    explicit operator bool() const noexcept { return m_value != nullptr; }

private:
    static constexpr std::size_t kRoom = std::max({
#define ZRV_VALUE_SIZE(id, name, type) sizeof(ZrvPropertyValue<type>),
        ZRV_PROPERTY_TYPES(ZRV_VALUE_SIZE)
#undef ZRV_VALUE_SIZE
    });

    void Place(const ZrvValueClass& iClass, ZrvPropertyValueBase* iValue) noexcept
    {
        m_value = iValue;
        m_class = &iClass;
    }

    ZrvPropertyValueBase* m_value = nullptr;
    const ZrvValueClass* m_class = nullptr;
    alignas(void*) std::byte m_room[kRoom];
};

#endif
