#include "ZrvProperty.h"

#include "ZrvCheck.h"

#include <utility>

namespace {

constexpr ZrvCheck g_check("ZrvProperty");

} // namespace

ZrvProperty::ZrvProperty(ZrvConstPropertiesPrototype* iPropertyPrototype) : m_pPropertyPrototype(iPropertyPrototype) {}

ZrvProperty::ZrvProperty(const ZrvValueClass& iClass)
{
    m_value.MakeDefault(iClass);
}

ZrvProperty::ZrvProperty(const ZrvProperty& iOther)
{
    m_value.MakeUncounted(iOther.m_value);
}

ZrvProperty::~ZrvProperty() = default;

ZrvRC ZrvProperty::CreateProperty(const KELUnicodeString& iPropertyType, ZrvProperty*& oProperty,
                                  ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    if (!g_check.Holds(!oProperty, "!oProperty")) {
        return ZrvRC::zrvEC_Error;
    }
    const ZrvValueClass* const valueClass = ZrvValueClass::Find(iPropertyType);
    if (!valueClass) {
        return ZrvRC::zrvEC_Error;
    }
    auto property = std::make_unique<ZrvProperty>(*valueClass);
    property->SetPrototype(Prototype(iPropertyPrototype));
    oProperty = property.release();
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvProperty::SetValue(const ZrvPropertyValueBase& iValue)
{
    if (!m_value) {
        m_value.Take(iValue.Duplicate());
        return ZrvRC::zrvEC_OK;
    }
    ZrvRC rc = m_value->SetValueFromProperty(iValue);
    if (rc.IsError()) {
        static_cast<void>(RefuseValue());
        return rc;
    }
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvProperty::RefuseValue()
{
    g_check.Holds(false, "m_value->SetValueFromProperty(iValue)");
    return ZrvRC::zrvEC_Error;
}

KELUnicodeString ZrvProperty::GetType() const
{
    return g_check.IsThere(m_value.get() != nullptr, "m_value") ? m_value->GetType() : KELUnicodeString();
}

ZrvProperty* ZrvProperty::Duplicate() const
{
    if (!g_check.IsThere(m_value.get() != nullptr, "m_value")) {
        return nullptr;
    }
    auto copy = std::make_unique<ZrvProperty>(*this);
    if (HasObject()) {
        KELReference<KELSysTSBaseUnknown> object = GetObject();
        copy->SwapObject(object);
    }
    copy->SetParameters(CopyParameters()); // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): owned from here on
    copy->SetPrototype(m_pPropertyPrototype);
    return copy.release();
}

std::unique_ptr<ZrvProperties> ZrvProperty::CopyParameters() const
{
    return m_pParameters ? std::make_unique<ZrvProperties>(*m_pParameters) : nullptr;
}

ZrvRC ZrvProperty::GetParameters(ZrvProperties** opProperties) const
{
    if (!g_check.IsThere(opProperties != nullptr, "opProperties")) {
        return ZrvRC::zrvEC_Error;
    }
    if (!g_check.Holds(!*opProperties, "!(*opProperties)")) {
        return ZrvRC::zrvEC_Error;
    }
    *opProperties = CopyParameters().release();
    return ZrvRC::zrvEC_OK;
}
