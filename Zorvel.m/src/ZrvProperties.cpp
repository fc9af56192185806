#include "ZrvProperties.h"

#include "KELSysTSUnicodeString.h"
#include "ZrvCheck.h"
#include "ZrvIsExactly.h"
#include "ZrvProperties_data.h"

namespace {

constexpr ZrvCheck g_check("ZrvProperties");

bool CheckData(const std::unique_ptr<ZrvPropertiesData>& iData, int iLine = __builtin_LINE())
{
    return g_check.IsThere(iData != nullptr, "m_PropertiesData", iLine);
}

bool ListsNothing(const ZrvProperties& iProperties)
{
    KELListValKELUnicodeString names;
    return iProperties.GetListProperties(names) == 0;
}

} // namespace

ZrvProperties::ZrvProperties(ZrvConstPropertiesPrototype* iPrototype)
    : m_PropertiesData(std::make_unique<ZrvPropertiesData>(iPrototype))
{
}

ZrvProperties::ZrvProperties(const ZrvProperties& iOther)
    : m_PropertiesData(iOther.m_PropertiesData ? std::make_unique<ZrvPropertiesData>(*iOther.m_PropertiesData)
                                               : nullptr)
{
}

ZrvProperties::~ZrvProperties() = default;

ZrvProperties& ZrvProperties::operator=(const ZrvProperties& iProperties)
{
    if (&iProperties == this) {
        return *this;
    }
    const bool hasData = CheckData(m_PropertiesData);
    const bool hasSource = g_check.IsThere(iProperties.m_PropertiesData != nullptr, "iProperties.m_PropertiesData");
    if (hasData && hasSource) {
        *m_PropertiesData = *iProperties.m_PropertiesData;
    }
    return *this;
}

ZrvRC ZrvProperties::GetPrototype(ZrvConstPropertiesPrototype*& ioPrototype) const
{
    if (!CheckData(m_PropertiesData) || !g_check.Holds(!ioPrototype, "!ioPrototype")) {
        return ZrvRC::zrvEC_Error;
    }
    ioPrototype = m_PropertiesData->GetPrototype();
    return ZrvRC::zrvEC_OK;
}

int ZrvProperties::HasProperty(const KELUnicodeString& iPropertyName) const
{
    return CheckData(m_PropertiesData) ? m_PropertiesData->HasProperty(iPropertyName) : 0;
}

int ZrvProperties::GetListProperties(KELSysTSListOfUnicodeString& ioList) const
{
    if (!CheckData(m_PropertiesData)) {
        return 0;
    }
    KELListValKELUnicodeString names;
    const int count = m_PropertiesData->GetListProperties(names);
    ioList.Reserve(ioList.Size() + names.Size());
    for (int position = 1; position <= names.Size(); ++position) {
        ioList.PutBack(KELSysTSUnicodeString(names[position].ConvertToChar()));
    }
    return count;
}

int ZrvProperties::GetListProperties(KELListValKELUnicodeString& ioList) const
{
    return CheckData(m_PropertiesData) ? m_PropertiesData->GetListProperties(ioList) : 0;
}

ZrvProperties::PropertyAvailability ZrvProperties::GetAvailability(const KELUnicodeString& iPropertyName) const
{
    return CheckData(m_PropertiesData) ? m_PropertiesData->GetAvailability(iPropertyName) : zrvPA_Unavailable;
}

KELUnicodeString ZrvProperties::GetPropertyType(const KELUnicodeString& iPropertyName) const
{
    return CheckData(m_PropertiesData) ? m_PropertiesData->GetPropertyType(iPropertyName) : KELUnicodeString();
}

ZrvRC ZrvProperties::AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                                 ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    if (!CheckData(m_PropertiesData) || !g_check.HasName(iPropertyName) || !g_check.HasTypeName(iPropertyType)) {
        return ZrvRC::zrvEC_Error;
    }
    return m_PropertiesData->AddProperty(iPropertyName, iPropertyType, iPropertyPrototype);
}

ZrvRC ZrvProperties::AddProperty(const KELUnicodeString& iPropertyName)
{
    if (!CheckData(m_PropertiesData) || !g_check.HasName(iPropertyName)) {
        return ZrvRC::zrvEC_Error;
    }
    return m_PropertiesData->AddProperty(iPropertyName);
}

ZrvProperties* ZrvProperties::GetPropertyParameters(const KELUnicodeString& iPropertyName) const
{
    if (!CheckData(m_PropertiesData) || !g_check.HasName(iPropertyName)) {
        return nullptr;
    }
    return m_PropertiesData->GetPropertyParameters(iPropertyName);
}

ZrvRC ZrvProperties::SetFromProperties(const ZrvProperties& iPropertiesValues)
{
    if (!CheckData(m_PropertiesData) ||
        !g_check.IsThere(iPropertiesValues.m_PropertiesData != nullptr, "iPropertiesValues.m_PropertiesData")) {
        return ZrvRC::zrvEC_Error;
    }
    if (&iPropertiesValues == this) {
        return ZrvRC::zrvEC_NothingDone;
    }
    // Nothing listed is nothing to copy, and a success. A derived set may list what it likes; of a set of exactly this
    // class the data tell it without a list.
    const bool isExact = ZrvIsExactly<ZrvProperties>(iPropertiesValues);
    if (!isExact && ListsNothing(iPropertiesValues)) {
        return ZrvRC::zrvEC_OK;
    }
    return m_PropertiesData->SetFromProperties(*iPropertiesValues.m_PropertiesData,
                                               isExact ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error);
}

const ZrvPropertyValueBase* ZrvProperties::GetProperty(const KELUnicodeString& iPropertyName) const
{
    if (!CheckData(m_PropertiesData) || !g_check.HasName(iPropertyName)) {
        return nullptr;
    }
    return m_PropertiesData->GetProperty(iPropertyName);
}

ZrvRC ZrvProperties::SetProperty(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue)
{
    if (!CheckData(m_PropertiesData) || !g_check.HasName(iPropertyName)) {
        return ZrvRC::zrvEC_Error;
    }
    const ZrvRC::ErrorCode code = m_PropertiesData->AssignIfSameClass(iPropertyName, iValue);
    if (code != ZrvRC::zrvEC_NothingDone) [[likely]] {
        return code;
    }
    if (!g_check.HasType(iValue)) {
        return ZrvRC::zrvEC_Error;
    }
    return m_PropertiesData->SetProperty(iPropertyName, iValue);
}
