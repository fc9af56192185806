#include "ZrvProperties_data.h"

#include "ZrvCheck.h"
#include "ZrvLock.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPrototypeImpl.h"

#include <typeinfo>
#include <utility>

namespace {

constexpr ZrvCheck g_check("ZrvProperties_data");
constexpr char g_isAvailable[] = "ZrvProperties::zrvPA_Unavailable!=propertyAvailability";

bool CheckName(const KELUnicodeString& iPropertyName, int iLine = __builtin_LINE())
{
    return g_check.Holds(iPropertyName.GetLengthInChar() > 0, ZrvCheck_NameIsThere, iLine);
}

ZrvRC Failure(const char* iTrace)
{
    return ZrvRC(ZrvRC::zrvEC_Error, iTrace);
}

} // namespace

ZrvPropertiesData::ZrvPropertiesData(ZrvConstPropertiesPrototype* iPrototype) : m_pPrototype(iPrototype) {}

// Delegates, so that the destructor cleans up when copying throws half-way.
ZrvPropertiesData::ZrvPropertiesData(const ZrvPropertiesData& iSource) : ZrvPropertiesData(nullptr)
{
    const ZrvPairLock lock(m_mutex, iSource.m_mutex);
    m_pPrototype = iSource.m_pPrototype;
    for (const PropertyMap::Entry& source : iSource.m_propertyMap.Entries()) {
        if (source.key.GetLengthInChar() > 0 && source.value) {
            NewProperty copy{m_propertyMap.MakeEntry(source.key, nullptr), nullptr};
            copy.property = source.value->DuplicateIn(PropertyMap::RoomOf(*copy.entry));
            Insert_Int(copy);
        }
    }
}

ZrvPropertiesData::~ZrvPropertiesData()
{
    m_pPrototype = nullptr;
    RemoveAllProperties_Int();
}

ZrvPropertiesData& ZrvPropertiesData::operator=(const ZrvPropertiesData& iSource)
{
    const ZrvPairLock lock(m_mutex, iSource.m_mutex);
    if (&iSource != this) {
        m_pPrototype = nullptr; // what calls back while the properties go finds a free set, as in the destructor
        RemoveAllProperties_Int();
        m_pPrototype = iSource.m_pPrototype;
        SetFromProperties_Int(iSource);
    }
    return *this;
}

// What a property lets go of may be the host's, and may call back into this set when it goes. It then finds an empty
// set; what it adds goes with the next round.
void ZrvPropertiesData::RemoveAllProperties_Int()
{
    bool hasRemoved = true;
    while (hasRemoved) {
        hasRemoved = false;
        m_propertyMap.TakeAll([&hasRemoved](PropertyMap::EntryHolder iEntry) {
            const std::unique_ptr<ZrvProperty> property(std::exchange(iEntry->value, nullptr));
            hasRemoved = true;
        });
    }
    m_propertyMap.RemoveAll();
}

ZrvProperty* ZrvPropertiesData::Find_Int(const KELUnicodeString& iPropertyName) const
{
    ZrvProperty* const* property = m_propertyMap.Locate(iPropertyName);
    return property ? *property : nullptr;
}

bool ZrvPropertiesData::Instantiate_Int(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                                        ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    NewProperty made{m_propertyMap.MakeEntry(iPropertyName, nullptr), nullptr};
    made.property = ZrvProperty::CreateIn(PropertyMap::RoomOf(*made.entry), iPropertyType, iPropertyPrototype);
    if (!made.property) {
        return false;
    }
    Insert_Int(made);
    return true;
}

void ZrvPropertiesData::Insert_Int(NewProperty& ioNew)
{
    ioNew.entry->value = ioNew.property.get();
    switch (m_propertyMap.InsertEntry(ioNew.entry)) {
    case 1:
        static_cast<void>(ioNew.property.release());
        break;
    case 0: // there is an entry, which may lack a property
        if (!Find_Int(ioNew.entry->key)) {
            std::unique_ptr<ZrvProperty> copy(ioNew.property->Duplicate());
            m_propertyMap.Insert(ioNew.entry->key, copy.get());
            static_cast<void>(copy.release());
        }
        break;
    default:
        break;
    }
}

ZrvProperties::PropertyAvailability ZrvPropertiesData::GetAvailability_Int(const KELUnicodeString& iPropertyName) const
{
    if (!CheckName(iPropertyName)) {
        return ZrvProperties::zrvPA_Unavailable;
    }
    if (ZrvProperty* const* property = m_propertyMap.Locate(iPropertyName)) {
        return *property ? ZrvProperties::zrvPA_Instantiated : ZrvProperties::zrvPA_Available;
    }
    return IsDeclared_Int(iPropertyName) ? ZrvProperties::zrvPA_Available : ZrvProperties::zrvPA_Unavailable;
}

bool ZrvPropertiesData::IsDeclared_Int(const KELUnicodeString& iPropertyName) const
{
    return !m_pPrototype || m_pPrototype->HasProperty(iPropertyName).IsValid();
}

ZrvRC ZrvPropertiesData::AddProperty_Int(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                                         ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    if (!g_check.Holds(!m_pPrototype, "!m_pPrototype")) {
        return Failure("AddProperty: Wrong call, should not have prototype.");
    }
    if (!CheckName(iPropertyName)) {
        return Failure("AddProperty: Missing propertyName");
    }
    if (!g_check.Holds(iPropertyType.GetLengthInChar() > 0, ZrvCheck_TypeNameIsThere)) {
        return Failure("AddProperty: Missing propertyType");
    }
    const ZrvProperties::PropertyAvailability propertyAvailability = GetAvailability_Int(iPropertyName);
    if (!g_check.Holds(propertyAvailability != ZrvProperties::zrvPA_Unavailable, g_isAvailable)) {
        return Failure("AddProperty: property not available");
    }
    if (propertyAvailability == ZrvProperties::zrvPA_Instantiated) {
        return ZrvRC::zrvEC_OK;
    }
    if (!Instantiate_Int(iPropertyName, iPropertyType, iPropertyPrototype)) {
        return Failure("AddProperty: property not instanciated");
    }
    if (!g_check.IsThere(m_propertyMap.Locate(iPropertyName) != nullptr, "ppProperty")) {
        return Failure("AddProperty: property not retrieved.");
    }
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvPropertiesData::AddProperty_Int(const KELUnicodeString& iPropertyName)
{
    if (!g_check.IsThere(static_cast<bool>(m_pPrototype), "m_pPrototype") || !CheckName(iPropertyName)) {
        return ZrvRC::zrvEC_Error;
    }
    const ZrvPropertyDefinition* definition = GetPlainDefinition_Int(iPropertyName);
    if (definition && definition->PeekType().GetLengthInChar() > 0 && !m_propertyMap.Contains(iPropertyName)) {
        return Instantiate_Int(iPropertyName, definition->PeekType(), definition->PeekPrototype()) ? ZrvRC::zrvEC_OK
                                                                                                   : ZrvRC::zrvEC_Error;
    }
    const ZrvProperties::PropertyAvailability propertyAvailability = GetAvailability_Int(iPropertyName);
    if (!g_check.Holds(propertyAvailability != ZrvProperties::zrvPA_Unavailable, g_isAvailable)) {
        return ZrvRC::zrvEC_Error;
    }
    if (propertyAvailability == ZrvProperties::zrvPA_Instantiated) {
        return ZrvRC::zrvEC_OK;
    }
    const KELUnicodeString propertyType = m_pPrototype->GetPropertyType(iPropertyName);
    if (!g_check.Holds(propertyType.GetLengthInChar() > 0, "propertyType.GetLengthInChar()>0")) {
        return ZrvRC::zrvEC_Error;
    }
    const auto propertyPrototype =
        KELReference<ZrvConstPropertiesPrototype>::Adopt(m_pPrototype->GetPropertyPrototype(iPropertyName));
    return Instantiate_Int(iPropertyName, propertyType, propertyPrototype.Get()) ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

const ZrvPropertyDefinition* ZrvPropertiesData::GetPlainDefinition_Int(const KELUnicodeString& iPropertyName) const
{
    const ZrvConstPropertiesPrototype& prototype = *m_pPrototype.Get();
    if (typeid(prototype) != typeid(ZrvPrototypeImpl)) {
        return nullptr;
    }
    const auto& definitions = static_cast<const ZrvPrototypeImpl&>(prototype).m_properties;
    return definitions ? std::as_const(*definitions).Locate(iPropertyName) : nullptr;
}

KELUnicodeString ZrvPropertiesData::GetPropertyType_Int(const KELUnicodeString& iPropertyName) const
{
    if (!CheckName(iPropertyName)) {
        return KELUnicodeString();
    }
    const ZrvProperty* property = Find_Int(iPropertyName);
    return property ? property->GetType() : KELUnicodeString();
}

ZrvRC ZrvPropertiesData::SetProperty_Int(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue)
{
    if (!CheckName(iPropertyName) || !g_check.Holds(iValue.GetType().GetLengthInChar() > 0, ZrvCheck_ValueHasType)) {
        return ZrvRC::zrvEC_Error;
    }
    ZrvProperty* property = Find_Int(iPropertyName);
    return property ? property->SetValue(iValue) : ZrvRC(ZrvRC::zrvEC_Error);
}

ZrvRC ZrvPropertiesData::SetFromProperties_Int(const ZrvPropertiesData& iSource)
{
    int index = 0;
    for (const PropertyMap::Entry& source : iSource.m_propertyMap.Entries()) {
        ZrvRC rc = CheckCopy_Int(source, m_propertyMap.LocateNear(index++, source.key));
        if (rc.IsError()) {
            return rc;
        }
    }
    ZrvRC result = ZrvRC::zrvEC_Error;
    index = 0;
    for (const PropertyMap::Entry& source : iSource.m_propertyMap.Entries()) {
        ZrvProperty* const* held = m_propertyMap.LocateNear(index++, source.key);
        if (source.value && source.value->GetValue()) {
            result = CopyProperty_Int(source, held);
            if (result.IsError()) {
                return result;
            }
        }
    }
    return result;
}

// Whether another set's property can be copied to where this one holds its name, as far as can be told without changing
// anything.
ZrvRC ZrvPropertiesData::CheckCopy_Int(const PropertyMap::Entry& iSource, ZrvProperty* const* iHeld) const
{
    if (!g_check.Holds(iSource.key.GetLengthInChar() > 0, "inputPropertyName.Compare(\"\")!=2")) {
        return Failure("Property without name.");
    }
    if (iHeld && *iHeld && iSource.value && (*iHeld)->IsPlainLike(*iSource.value)) {
        return ZrvRC::zrvEC_OK;
    }
    const KELUnicodeString propertyType = iSource.value ? iSource.value->GetType() : KELUnicodeString();
    if (!g_check.Holds(propertyType.GetLengthInChar() > 0, "inputPropertyType.GetLengthInChar()>0")) {
        return Failure("Property without type.");
    }
    if (!g_check.IsThere(iSource.value->GetValue() != nullptr, "pInputPropertyValue")) {
        return Failure("Property without value.");
    }
    if (!iHeld) {
        return IsDeclared_Int(iSource.key) ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
    }
    return *iHeld && propertyType.Compare((*iHeld)->GetType()) == 2 ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

ZrvRC ZrvPropertiesData::CopyProperty_Int(const PropertyMap::Entry& iSource, ZrvProperty* const* iHeld)
{
    const ZrvPropertyValueBase& value = *iSource.value->GetValue();
    if (iHeld && *iHeld && (*iHeld)->AssignPlain(value)) {
        return ZrvRC::zrvEC_OK;
    }
    if (!iHeld) {
        ZrvRC rc = m_pPrototype ? AddProperty_Int(iSource.key)
                                : AddProperty_Int(iSource.key, iSource.value->GetType(), nullptr);
        if (!g_check.Holds(!rc.IsError(), "!(rc.IsError())")) {
            return Failure(rc.Dump());
        }
    }
    const bool isSet = !SetProperty_Int(iSource.key, value).IsError();
    if (!g_check.Holds(isSet, "!( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() )")) {
        return ZrvRC::zrvEC_Error;
    }
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvPropertiesData::AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                                     ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    const ZrvLock lock(m_mutex);
    return AddProperty_Int(iPropertyName, iPropertyType, iPropertyPrototype);
}

ZrvRC ZrvPropertiesData::AddProperty(const KELUnicodeString& iPropertyName)
{
    const ZrvLock lock(m_mutex);
    return AddProperty_Int(iPropertyName);
}

ZrvProperties::PropertyAvailability ZrvPropertiesData::GetAvailability(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    return GetAvailability_Int(iPropertyName);
}

int ZrvPropertiesData::HasProperty(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    return m_propertyMap.Contains(iPropertyName);
}

int ZrvPropertiesData::GetListProperties(KELListValKELUnicodeString& ioList) const
{
    const ZrvLock lock(m_mutex);
    ioList.Reserve(ioList.Size() + m_propertyMap.Size());
    int count = 0;
    for (const PropertyMap::Entry& entry : m_propertyMap.Entries()) {
        if (entry.key.GetLengthInChar() > 0) {
            ioList.Append(entry.key);
            ++count;
        }
    }
    return count;
}

bool ZrvPropertiesData::HasNames() const
{
    const ZrvLock lock(m_mutex);
    for (const PropertyMap::Entry& entry : m_propertyMap.Entries()) {
        if (entry.key.GetLengthInChar() > 0) {
            return true;
        }
    }
    return false;
}

const ZrvPropertyValueBase* ZrvPropertiesData::GetProperty(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    if (!CheckName(iPropertyName)) {
        return nullptr;
    }
    const ZrvProperty* property = Find_Int(iPropertyName);
    return property ? property->GetValue() : nullptr;
}

KELUnicodeString ZrvPropertiesData::GetPropertyType(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    return GetPropertyType_Int(iPropertyName);
}

ZrvProperties* ZrvPropertiesData::GetPropertyParameters(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    if (!CheckName(iPropertyName)) {
        return nullptr;
    }
    ZrvProperty* const* property = m_propertyMap.Locate(iPropertyName);
    if (!g_check.IsThere(property != nullptr, "ppProperty") || !g_check.IsThere(*property != nullptr, "*ppProperty")) {
        return nullptr;
    }
    ZrvProperties* parameters = nullptr;
    return (*property)->GetParameters(&parameters).IsValid() ? parameters : nullptr;
}

ZrvConstPropertiesPrototype* ZrvPropertiesData::GetPrototype() const
{
    const ZrvLock lock(m_mutex);
    return m_pPrototype.Share();
}

ZrvRC ZrvPropertiesData::SetProperty(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue)
{
    const ZrvLock lock(m_mutex);
    return SetProperty_Int(iPropertyName, iValue);
}

bool ZrvPropertiesData::AssignPlain(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue)
{
    const ZrvLock lock(m_mutex);
    ZrvProperty* property = Find_Int(iPropertyName);
    return property && property->AssignPlain(iValue);
}

ZrvRC ZrvPropertiesData::SetFromProperties(const ZrvPropertiesData& iSource)
{
    const ZrvPairLock lock(m_mutex, iSource.m_mutex);
    return SetFromProperties_Int(iSource);
}
