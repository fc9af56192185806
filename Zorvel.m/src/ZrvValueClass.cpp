#include "ZrvValueClass.h"

#include "ZrvPropertyCast.h"

#include <iterator>
#include <new>
#include <type_traits>

namespace {

template <class T>
constexpr bool g_isObject = std::is_same_v<T, KELSysTSBaseUnknown*>;

// The values that properties start with.
template <class T>
T DefaultOf()
{
    return T();
}

template <>
KELBoolean DefaultOf()
{
    return 1;
}

template <>
KELRawCollfloat DefaultOf()
{
    KELRawCollfloat floats(0);
    floats.Size(3, 0.0F);
    return floats;
}

template <class T>
const ZrvPropertyValue<T>& As(const ZrvPropertyValueBase& iValue)
{
    return static_cast<const ZrvPropertyValue<T>&>(iValue);
}

template <class T>
ZrvPropertyValue<T>& As(ZrvPropertyValueBase& ioValue)
{
    return static_cast<ZrvPropertyValue<T>&>(ioValue);
}

template <class T>
ZrvPropertyValueBase* MakeDefault(void* iRoom)
{
    static_assert(alignof(ZrvPropertyValue<T>) <= alignof(void*));
    return ::new (iRoom) ZrvPropertyValue<T>(DefaultOf<T>());
}

template <class T>
ZrvPropertyValueBase* MakeCopy(void* iRoom, const ZrvPropertyValueBase& iValue)
{
    return ::new (iRoom) ZrvPropertyValue<T>(As<T>(iValue));
}

template <class T>
ZrvPropertyValueBase* MakeAnswer(void* iRoom, const ZrvPropertyValueBase& iValue)
{
    const auto* const value = dynamic_cast<const ZrvPropertyValue<T>*>(&iValue);
    if (!value) {
        return nullptr;
    }
    if constexpr (g_isObject<T>) {
        // The reference that the answer comes with is moved: giving one back may call the host, under a lock.
        auto object = ZrvPropertyValue<T>::Contents::Adopt(value->GetValue());
        auto* const answer = ::new (iRoom) ZrvPropertyValue<T>(nullptr);
        answer->Swap(object);
        return answer;
    } else {
        return ::new (iRoom) ZrvPropertyValue<T>(value->GetValue());
    }
}

template <class T>
void Assign(ZrvPropertyValueBase& ioValue, const ZrvPropertyValueBase& iOther)
{
    As<T>(ioValue) = As<T>(iOther);
}

template <class T>
void Swap(ZrvPropertyValueBase& ioValue, ZrvPropertyValueBase& ioOther)
{
    As<T>(ioValue).Swap(As<T>(ioOther));
}

const ZrvValueClass g_classes[] = {
#define ZRV_VALUE_CLASS(id, name, type)                                                                                \
    {&typeid(ZrvPropertyValue<type>),                                                                                  \
     &MakeDefault<type>,                                                                                               \
     &MakeCopy<type>,                                                                                                  \
     &MakeAnswer<type>,                                                                                                \
     &Assign<type>,                                                                                                    \
     &Swap<type>,                                                                                                      \
     zrvPT_##id,                                                                                                       \
     g_isObject<type>},
    ZRV_PROPERTY_TYPES(ZRV_VALUE_CLASS)
#undef ZRV_VALUE_CLASS
};

} // namespace

bool ZrvIsOfLibrary(const ZrvPropertyValueBase& iValue, ZrvPropertyType iType) noexcept
{
    return static_cast<std::size_t>(iType) < std::size(g_classes) && &typeid(iValue) == g_classes[iType].typeInfo;
}

const ZrvValueClass* ZrvValueClass::Find(const KELUnicodeString& iType)
{
    const ZrvPropertyType type = ZrvPropertyTypeConv::GetEnum(iType);
    return type == zrvPT_Undefined ? nullptr : &g_classes[type];
}

void ZrvValueHolder::MakeCopy(const ZrvValueHolder& iOther)
{
    if (iOther.m_class) {
        Place(*iOther.m_class, iOther.m_class->makeCopy(m_room, *iOther.m_value));
    } else if (iOther.m_value) {
        Take(iOther.m_value->Duplicate());
    }
}

void ZrvValueHolder::MakeAnswer(const ZrvValueClass& iClass, const ZrvPropertyValueBase& iValue)
{
    if (ZrvPropertyValueBase* const answer = iClass.makeAnswer(m_room, iValue)) {
        Place(iClass, answer);
    }
}
