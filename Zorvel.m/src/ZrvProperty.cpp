#include "ZrvProperty.h"

#include "ZrvCheck.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvPropertyValue.h"

#include <typeinfo>
#include <utility>

namespace {

constexpr ZrvCheck g_check("ZrvProperty");
constexpr char g_valueIsThere[] = "m_value";

constinit KELRawCollfloat::Constant<3> g_defaultFloatList;

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
    return KELRawCollfloat(g_defaultFloatList);
}

template <class T>
ZrvPropertyValueBase* PlaceDefault(void* iRoom)
{
    static_assert(sizeof(ZrvPropertyValue<T>) <= ZrvProperty::kValueRoom);
    return ::new (iRoom) ZrvPropertyValue<T>(DefaultOf<T>());
}

template <class T>
void AssignSame(ZrvPropertyValueBase& ioValue, const ZrvPropertyValueBase& iOther)
{
    static_cast<ZrvPropertyValue<T>&>(ioValue) = static_cast<const ZrvPropertyValue<T>&>(iOther);
}

template <class T>
ZrvPropertyValueBase* PlaceCopy(void* iRoom, const ZrvPropertyValueBase& iValue)
{
    return ::new (iRoom) ZrvPropertyValue<T>(static_cast<const ZrvPropertyValue<T>&>(iValue));
}

} // namespace

/// Places values of one type and assigns one to another.
struct ZrvValueMaker {
    const std::type_info* valueClass;
    void (*assign)(ZrvPropertyValueBase& ioValue, const ZrvPropertyValueBase& iOther);
    ZrvPropertyValueBase* (*placeDefault)(void* iRoom);
    ZrvPropertyValueBase* (*placeCopy)(void* iRoom, const ZrvPropertyValueBase& iValue);
};

namespace {

const ZrvValueMaker g_makers[] = {
#define ZRV_VALUE_MAKER(id, name, type)                                                                                \
    {&typeid(ZrvPropertyValue<type>), &AssignSame<type>, &PlaceDefault<type>, &PlaceCopy<type>},
    ZRV_PROPERTY_TYPES(ZRV_VALUE_MAKER)
#undef ZRV_VALUE_MAKER
};

const ZrvValueMaker* MakerOf(const KELUnicodeString& iType)
{
    const ZrvPropertyType type = ZrvPropertyTypeConv::GetEnum(iType);
    return type == zrvPT_Undefined ? nullptr : &g_makers[type];
}

} // namespace

void ZrvValueDeleter::operator()(ZrvPropertyValueBase* iValue) const noexcept
{
    if (placedBy) {
        iValue->~ZrvPropertyValueBase();
    } else {
        delete iValue;
    }
}

ZrvProperty::ZrvProperty(ZrvConstPropertiesPrototype* iPropertyPrototype) : m_pPropertyPrototype(iPropertyPrototype) {}

ZrvProperty::~ZrvProperty()
{
    // The value and the parameters go before the prototype that describes them.
    m_value.reset();
    m_pParameters.reset();
}

void ZrvProperty::operator delete(ZrvProperty* iProperty, std::destroying_delete_t)
{
    const bool isInRoom = iProperty->m_isInRoom;
    iProperty->~ZrvProperty();
    if (!isInRoom) {
        ::operator delete(iProperty);
    }
}

std::unique_ptr<ZrvProperty> ZrvProperty::MakeIn(void* iRoom, ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    if (!iRoom) {
        return std::make_unique<ZrvProperty>(iPropertyPrototype);
    }
    std::unique_ptr<ZrvProperty> property(::new (iRoom) ZrvProperty(iPropertyPrototype));
    property->m_isInRoom = true;
    return property;
}

std::unique_ptr<ZrvProperty> ZrvProperty::CreateIn(void* iRoom, const KELUnicodeString& iPropertyType,
                                                   ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    const ZrvValueMaker* maker = MakerOf(iPropertyType);
    if (!maker) {
        return nullptr;
    }
    std::unique_ptr<ZrvProperty> property = MakeIn(iRoom, iPropertyPrototype);
    property->m_value = {maker->placeDefault(property->m_valueRoom), ZrvValueDeleter{maker}};
    return property;
}

ZrvRC ZrvProperty::CreateProperty(const KELUnicodeString& iPropertyType, ZrvProperty*& oProperty,
                                  ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    if (!g_check.Holds(!oProperty, "!oProperty")) {
        return ZrvRC::zrvEC_Error;
    }
    oProperty = CreateIn(nullptr, iPropertyType, iPropertyPrototype).release();
    return oProperty ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

ZrvRC ZrvProperty::SetValue(const ZrvPropertyValueBase& iValue)
{
    if (!m_value) {
        m_value = {iValue.Duplicate(), ZrvValueDeleter()};
        return ZrvRC::zrvEC_OK;
    }
    ZrvRC rc = m_value->SetValueFromProperty(iValue);
    if (!g_check.Holds(!rc.IsError(), "m_value->SetValueFromProperty(iValue)")) {
        return rc;
    }
    return ZrvRC::zrvEC_OK;
}

// The comparison of classes is the language's own: it holds between modules, each of which may have the nine classes
// for itself, and it tells a class that a caller derived from one of them.
bool ZrvProperty::AssignPlain(const ZrvPropertyValueBase& iValue)
{
    const ZrvValueMaker* maker = Maker();
    if (!maker || typeid(iValue) != *maker->valueClass) {
        return false;
    }
    maker->assign(*m_value, iValue);
    return true;
}

KELUnicodeString ZrvProperty::GetType() const
{
    return g_check.IsThere(m_value != nullptr, g_valueIsThere) ? m_value->GetType() : KELUnicodeString();
}

std::unique_ptr<ZrvProperty> ZrvProperty::DuplicateIn(void* iRoom) const
{
    if (!g_check.IsThere(m_value != nullptr, g_valueIsThere)) {
        return nullptr;
    }
    std::unique_ptr<ZrvProperty> copy = MakeIn(iRoom, nullptr);
    copy->CopyValue(*this);
    if (m_pParameters) {
        copy->m_pParameters = std::make_unique<ZrvProperties>(*m_pParameters);
    }
    copy->m_pPropertyPrototype = m_pPropertyPrototype;
    return copy;
}

ZrvProperty* ZrvProperty::Duplicate() const
{
    return DuplicateIn(nullptr).release();
}

void ZrvProperty::CopyValue(const ZrvProperty& iOther)
{
    const ZrvValueMaker* maker = iOther.Maker();
    ZrvPropertyValueBase* copy = maker ? maker->placeCopy(m_valueRoom, *iOther.m_value) : iOther.m_value->Duplicate();
    m_value = {copy, ZrvValueDeleter{maker}};
}

ZrvRC ZrvProperty::GetParameters(ZrvProperties** opProperties) const
{
    if (!g_check.IsThere(opProperties != nullptr, "opProperties")) {
        return ZrvRC::zrvEC_Error;
    }
    if (!g_check.Holds(!*opProperties, "!(*opProperties)")) {
        return ZrvRC::zrvEC_Error;
    }
    *opProperties = m_pParameters ? new ZrvProperties(*m_pParameters) : nullptr;
    return ZrvRC::zrvEC_OK;
}
