#include "ZrvPrototypeImpl.h"

#include "KELSYPHashMap.h"
#include "ZrvCheck.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPropertyTypeConv.h"

#include <utility>

namespace {
constexpr ZrvCheck g_check("ZrvPrototypeImpl");
constexpr char g_mapIsThere[] = "m_properties";
} // namespace

ZrvConstPropertiesPrototype::ZrvConstPropertiesPrototype() : KELSysTSBaseUnknown(1) {}

ZrvConstPropertiesPrototype::ZrvConstPropertiesPrototype(const ZrvConstPropertiesPrototype& /*iOther*/)
    : KELSysTSBaseUnknown(1)
{
}

ZrvConstPropertiesPrototype::~ZrvConstPropertiesPrototype() = default;

ZrvPrototypeImpl::ZrvPrototypeImpl()
    : m_properties(std::make_unique<KELSYPHashMap<KELUnicodeString, ZrvPropertyDefinition>>())
{
}

ZrvPrototypeImpl::~ZrvPrototypeImpl() = default;

ZrvRC ZrvPrototypeImpl::GetListProperties(KELListValKELUnicodeString& ioList) const
{
    for (const auto& entry : m_properties->Entries()) {
        ioList.Append(entry.key);
    }
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvPrototypeImpl::HasProperty(const KELUnicodeString& iPropertyName) const
{
    return GetPropertyDefinition(iPropertyName) ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

const KELUnicodeString ZrvPrototypeImpl::GetPropertyType(const KELUnicodeString& iPropertyName) const
{
    const ZrvPropertyDefinition* definition = GetPropertyDefinition(iPropertyName);
    return definition ? definition->GetType() : KELUnicodeString();
}

ZrvPropertyType ZrvPrototypeImpl::GetPropertyAsType(const KELUnicodeString& iPropertyName) const
{
    const ZrvPropertyDefinition* definition = GetPropertyDefinition(iPropertyName);
    return definition ? definition->GetAsType() : zrvPT_Undefined;
}

ZrvConstPropertiesPrototype* ZrvPrototypeImpl::GetPropertyPrototype(const KELUnicodeString& iPropertyName) const
{
    const ZrvPropertyDefinition* definition = GetPropertyDefinition(iPropertyName);
    return definition ? definition->GetPrototype() : nullptr;
}

ZrvRC ZrvPrototypeImpl::AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                                    ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    if (!g_check.IsThere(m_properties != nullptr, g_mapIsThere)) {
        return ZrvRC::zrvEC_Error;
    }
    if (!CheckPropertyNameValidity(iPropertyName) || !CheckPropertyTypeValidity(iPropertyType)) {
        return ZrvRC::zrvEC_Error;
    }
    const ZrvPropertyDefinition* declared = m_properties->Locate(iPropertyName);
    if (!declared) {
        m_properties->Insert(iPropertyName, ZrvPropertyDefinition(iPropertyType, iPropertyPrototype));
        return ZrvRC::zrvEC_OK;
    }
    // Changed on a copy, so that a refusal leaves the declaration as it was.
    ZrvPropertyDefinition definition(*declared);
    if (definition.SetType(iPropertyType).IsError()) {
        return ZrvRC::zrvEC_Error;
    }
    if (iPropertyPrototype && definition.SetPrototype(iPropertyPrototype).IsError()) {
        return ZrvRC::zrvEC_Error;
    }
    m_properties->Insert(iPropertyName, definition);
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvPrototypeImpl::AddProperty(const KELUnicodeString& iPropertyName, ZrvPropertyType iPropertyType,
                                    ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    return AddProperty(iPropertyName, ZrvPropertyTypeConv::GetAsUnicode(iPropertyType), iPropertyPrototype);
}

ZrvRC ZrvPrototypeImpl::RemoveProperty(const KELUnicodeString& iPropertyName)
{
    if (!g_check.IsThere(m_properties != nullptr, g_mapIsThere)) {
        return ZrvRC::zrvEC_Error;
    }
    if (!CheckPropertyNameValidity(iPropertyName)) {
        return ZrvRC::zrvEC_Error;
    }
    return m_properties->Remove(iPropertyName) ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

ZrvRC ZrvPrototypeImpl::GetPropertyPrototype(const KELUnicodeString& iPropertyName,
                                             ZrvConstPropertiesPrototype*& oPropertyPrototype)
{
    const ZrvPropertyDefinition* definition = GetPropertyDefinition(iPropertyName);
    if (!definition) {
        return ZrvRC::zrvEC_Error;
    }
    oPropertyPrototype = definition->GetPrototype();
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvPrototypeImpl::IsValid()
{
    return g_check.IsThere(m_properties != nullptr, g_mapIsThere) ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

int ZrvPrototypeImpl::CheckPropertyNameValidity(const KELUnicodeString& iPropertyName) const
{
    return iPropertyName.GetLengthInChar() >= 1 ? 1 : 0;
}

int ZrvPrototypeImpl::CheckPropertyTypeValidity(const KELUnicodeString& iPropertyType) const
{
    return CheckPropertyNameValidity(iPropertyType);
}

const ZrvPropertyDefinition* ZrvPrototypeImpl::GetPropertyDefinition(const KELUnicodeString& iPropertyName) const
{
    if (!g_check.IsThere(m_properties != nullptr, g_mapIsThere)) {
        return nullptr;
    }
    return std::as_const(*m_properties).Locate(iPropertyName);
}
