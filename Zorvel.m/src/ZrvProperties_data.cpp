#include "ZrvProperties_data.h"

#include "ZrvIsExactly.h"
#include "ZrvLock.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPrototypeImpl.h"

#include <utility>

namespace {

ZrvRC OkIf(bool iSucceeded)
{
    return iSucceeded ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

} // namespace

ZrvPropertiesData::ZrvPropertiesData(ZrvConstPropertiesPrototype* iPrototype) : m_pPrototype(iPrototype) {}

ZrvPropertiesData::~ZrvPropertiesData()
{
    // What goes may use this set. It finds an empty one; what it adds goes with the next round.
    while (m_pPrototype || m_propertyMap.Size() > 0) {
        ZrvPropertiesContents contents;
        MoveOut_Int(contents);
    }
}

void ZrvPropertiesData::MoveOut_Int(ZrvPropertiesContents& oGivenUp)
{
    oGivenUp.prototype = std::move(m_pPrototype);
    if (m_propertyMap.MoveAllTo(oGivenUp.map)) {
        m_propertyPool.Swap(oGivenUp.pool);
    } else {
        ZrvPropertiesContents::DestroyAll(m_propertyMap, m_propertyPool);
    }
}

void ZrvPropertiesData::MoveIn_Int(ZrvPropertiesContents& ioContents)
{
    m_pPrototype = std::move(ioContents.prototype);
    if (ioContents.map.MoveAllTo(m_propertyMap)) {
        m_propertyPool.Swap(ioContents.pool);
    }
}

ZrvProperty* ZrvPropertiesData::Find_Int(const KELUnicodeString& iPropertyName) const
{
    const PropertyMap::Entry* const entry = m_propertyMap.Find(iPropertyName);
    return entry ? entry->value : nullptr;
}

const ZrvPropertyDefinition* ZrvPropertiesData::Declared_Int(const KELUnicodeString& iPropertyName) const
{
    return m_pPrototype ? ZrvPrototypeImpl::Declared(*m_pPrototype.Get(), iPropertyName) : nullptr;
}

bool ZrvPropertiesData::IsDeclared_Int(const KELUnicodeString& iPropertyName, ZrvGivenUp& ioGivenUp) const
{
    if (!m_pPrototype) {
        return true;
    }
    if (ZrvIsExactly<ZrvPrototypeImpl>(*m_pPrototype.Get())) {
        return Declared_Int(iPropertyName) != nullptr;
    }
    return ioGivenUp.Hold(m_pPrototype.Get())->HasProperty(iPropertyName).IsValid();
}

bool ZrvPropertiesData::Instantiate_Int(const KELUnicodeString& iPropertyName, const ZrvValueClass* iClass,
                                        ZrvProperty::Prototype& ioPropertyPrototype)
{
    if (!iClass) {
        return Find_Int(iPropertyName) != nullptr;
    }
    PropertyPool::Owner property = m_propertyPool.Make(*iClass);
    const int added = m_propertyMap.Add(iPropertyName, property.get());
    if (added == 0) { // there is an entry, which may lack a property
        ZrvProperty** const held = m_propertyMap.Locate(iPropertyName);
        if (*held) {
            return true;
        }
        *held = property.get();
    }
    if (added >= 0) {
        property->SetPrototype(ZrvProperty::Prototype::Adopt(ioPropertyPrototype.Detach()));
        static_cast<void>(property.release());
    }
    return true;
}

ZrvProperties::PropertyAvailability ZrvPropertiesData::GetAvailability_Int(const KELUnicodeString& iPropertyName,
                                                                           ZrvGivenUp& ioGivenUp) const
{
    if (!kCheck.HasName(iPropertyName)) {
        return ZrvProperties::zrvPA_Unavailable;
    }
    if (ZrvProperty* const* property = m_propertyMap.Locate(iPropertyName)) {
        return *property ? ZrvProperties::zrvPA_Instantiated : ZrvProperties::zrvPA_Available;
    }
    return IsDeclared_Int(iPropertyName, ioGivenUp) ? ZrvProperties::zrvPA_Available : ZrvProperties::zrvPA_Unavailable;
}

ZrvProperties::PropertyAvailability ZrvPropertiesData::CheckAvailability_Int(const KELUnicodeString& iPropertyName,
                                                                             ZrvGivenUp& ioGivenUp) const
{
    const ZrvProperties::PropertyAvailability propertyAvailability = GetAvailability_Int(iPropertyName, ioGivenUp);
    kCheck.Holds(propertyAvailability != ZrvProperties::zrvPA_Unavailable,
                 "ZrvProperties::zrvPA_Unavailable!=propertyAvailability");
    return propertyAvailability;
}

ZrvRC ZrvPropertiesData::AddProperty_Int(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                                         ZrvProperty::Prototype& ioPropertyPrototype, ZrvGivenUp& ioGivenUp)
{
    if (!kCheck.Holds(!m_pPrototype, "!m_pPrototype")) {
        return ZrvRC(ZrvRC::zrvEC_Error, "AddProperty: Wrong call, should not have prototype.");
    }
    if (!kCheck.HasName(iPropertyName)) {
        return ZrvRC(ZrvRC::zrvEC_Error, "AddProperty: Missing propertyName");
    }
    if (!kCheck.HasTypeName(iPropertyType)) {
        return ZrvRC(ZrvRC::zrvEC_Error, "AddProperty: Missing propertyType");
    }
    const ZrvProperties::PropertyAvailability propertyAvailability = CheckAvailability_Int(iPropertyName, ioGivenUp);
    if (propertyAvailability == ZrvProperties::zrvPA_Unavailable) {
        return ZrvRC(ZrvRC::zrvEC_Error, "AddProperty: property not available");
    }
    if (propertyAvailability == ZrvProperties::zrvPA_Instantiated) {
        return ZrvRC::zrvEC_OK;
    }
    if (!Instantiate_Int(iPropertyName, ZrvValueClass::Find(iPropertyType), ioPropertyPrototype)) {
        return ZrvRC(ZrvRC::zrvEC_Error, "AddProperty: property not instanciated");
    }
    if (!kCheck.IsThere(m_propertyMap.Locate(iPropertyName) != nullptr, "ppProperty")) {
        return ZrvRC(ZrvRC::zrvEC_Error, "AddProperty: property not retrieved.");
    }
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvPropertiesData::AddProperty_Int(const KELUnicodeString& iPropertyName, ZrvGivenUp& ioGivenUp)
{
    if (!kCheck.IsThere(static_cast<bool>(m_pPrototype), "m_pPrototype") || !kCheck.HasName(iPropertyName)) {
        return ZrvRC::zrvEC_Error;
    }
    const ZrvPropertyDefinition* const declared = Declared_Int(iPropertyName);
    if (declared && !declared->PeekPrototype()) {
        ZrvProperty::Prototype none;
        return OkIf(Instantiate_Int(iPropertyName, declared->ValueClass(), none));
    }
    return AddAsAnswered_Int(iPropertyName, ioGivenUp);
}

ZrvRC ZrvPropertiesData::AddAsAnswered_Int(const KELUnicodeString& iPropertyName, ZrvGivenUp& ioGivenUp)
{
    ZrvConstPropertiesPrototype* const prototype = ioGivenUp.Hold(m_pPrototype.Get());
    const ZrvProperties::PropertyAvailability propertyAvailability = CheckAvailability_Int(iPropertyName, ioGivenUp);
    if (propertyAvailability == ZrvProperties::zrvPA_Unavailable) {
        return ZrvRC::zrvEC_Error;
    }
    if (propertyAvailability == ZrvProperties::zrvPA_Instantiated) {
        return ZrvRC::zrvEC_OK;
    }
    const KELUnicodeString propertyType = prototype->GetPropertyType(iPropertyName);
    if (!kCheck.Holds(propertyType.GetLengthInChar() > 0, "propertyType.GetLengthInChar()>0")) {
        return ZrvRC::zrvEC_Error;
    }
    ioGivenUp.MakeRoom(2);
    ZrvConstPropertiesPrototype* const nested = prototype->GetPropertyPrototype(iPropertyName);
    ioGivenUp.Keep(KELReference<KELSysTSBaseUnknown>::Adopt(nested));
    ZrvProperty::Prototype propertyPrototype(nested);
    // What has been answered counts no more if the set follows another prototype by now.
    const bool isAdded = m_pPrototype == prototype &&
                         Instantiate_Int(iPropertyName, ZrvValueClass::Find(propertyType), propertyPrototype);
    ioGivenUp.Keep(KELReference<KELSysTSBaseUnknown>::Adopt(propertyPrototype.Detach()));
    return OkIf(isAdded);
}

KELUnicodeString ZrvPropertiesData::GetPropertyType_Int(const KELUnicodeString& iPropertyName) const
{
    if (!kCheck.HasName(iPropertyName)) {
        return KELUnicodeString();
    }
    const ZrvProperty* property = Find_Int(iPropertyName);
    return property ? property->GetType() : KELUnicodeString();
}

ZrvRC ZrvPropertiesData::SetProperty_Int(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue,
                                         ZrvValueHolder& oGivenUp)
{
    if (!kCheck.HasName(iPropertyName) || !kCheck.HasType(iValue)) {
        return ZrvRC::zrvEC_Error;
    }
    const KELUnicodeString valueType = iValue.GetType();
    ZrvProperty* const property = Find_Int(iPropertyName);
    if (!property) {
        return ZrvRC::zrvEC_Error;
    }
    const ZrvValueClass* const valueClass = property->ValueClass();
    if (!valueClass) {
        return property->SetValue(iValue);
    }
    if (valueType == valueClass->TypeName()) {
        oGivenUp.MakeAnswer(*valueClass, iValue);
    }
    return SwapValue_Int(iPropertyName, oGivenUp);
}

ZrvRC ZrvPropertiesData::SwapValue_Int(const KELUnicodeString& iPropertyName, ZrvValueHolder& ioValue)
{
    ZrvProperty* const property = Find_Int(iPropertyName);
    if (!property) {
        return ZrvRC::zrvEC_Error;
    }
    if (!ioValue.Class() || property->ValueClass() != ioValue.Class()) {
        return ZrvProperty::RefuseValue();
    }
    property->SwapValue(ioValue);
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvPropertiesData::AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                                     ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    ZrvProperty::Prototype propertyPrototype(iPropertyPrototype);
    ZrvGivenUp givenUp;
    const ZrvLock lock(m_mutex);
    return AddProperty_Int(iPropertyName, iPropertyType, propertyPrototype, givenUp);
}

ZrvRC ZrvPropertiesData::AddProperty(const KELUnicodeString& iPropertyName)
{
    ZrvGivenUp givenUp;
    const ZrvLock lock(m_mutex);
    return AddProperty_Int(iPropertyName, givenUp);
}

ZrvProperties::PropertyAvailability ZrvPropertiesData::GetAvailability(const KELUnicodeString& iPropertyName) const
{
    ZrvGivenUp givenUp;
    const ZrvLock lock(m_mutex);
    return GetAvailability_Int(iPropertyName, givenUp);
}

int ZrvPropertiesData::HasProperty(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    return m_propertyMap.Find(iPropertyName) ? 1 : 0;
}

int ZrvPropertiesData::GetListProperties(KELListValKELUnicodeString& ioList) const
{
    const ZrvLock lock(m_mutex);
    ioList.Reserve(ioList.Size() + m_propertyMap.Size());
    int count = 0;
    for (int i = 0; i < m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const entry = m_propertyMap.At(i);
        if (entry && entry->key.GetLengthInChar() > 0) {
            ioList.Append(entry->key);
            ++count;
        }
    }
    return count;
}

const ZrvPropertyValueBase* ZrvPropertiesData::GetProperty(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    if (!kCheck.HasName(iPropertyName)) {
        return nullptr;
    }
    const PropertyMap::Entry* const entry = m_propertyMap.Find(iPropertyName);
    return entry && entry->value ? entry->value->GetValue() : nullptr;
}

KELUnicodeString ZrvPropertiesData::GetPropertyType(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    return GetPropertyType_Int(iPropertyName);
}

ZrvProperties* ZrvPropertiesData::GetPropertyParameters(const KELUnicodeString& iPropertyName) const
{
    const ZrvLock lock(m_mutex);
    if (!kCheck.HasName(iPropertyName)) {
        return nullptr;
    }
    ZrvProperty* const* property = m_propertyMap.Locate(iPropertyName);
    if (!kCheck.IsThere(property != nullptr, "ppProperty") || !kCheck.IsThere(*property != nullptr, "*ppProperty")) {
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
    ZrvValueHolder givenUp;
    const ZrvLock lock(m_mutex);
    return SetProperty_Int(iPropertyName, iValue, givenUp);
}

ZrvRC::ErrorCode ZrvPropertiesData::AssignIfSameClass(const KELUnicodeString& iPropertyName,
                                                      const ZrvPropertyValueBase& iValue)
{
    KELReference<KELSysTSBaseUnknown> object; // the new one, then the old one
    const ZrvLock lock(m_mutex);
    const PropertyMap::Entry* const entry = m_propertyMap.Find(iPropertyName);
    ZrvProperty* property = entry ? entry->value : nullptr;
    if (!property || !property->HasClassOf(iValue)) {
        return ZrvRC::zrvEC_NothingDone;
    }
    if (!property->HasObject()) [[likely]] {
        property->Assign(iValue);
        return ZrvRC::zrvEC_OK;
    }
    using ObjectValue = ZrvValueClass::ObjectValue;
    object = KELReference<KELSysTSBaseUnknown>::Adopt(static_cast<const ObjectValue&>(iValue).ObjectValue::GetValue());
    property = Find_Int(iPropertyName); // counting an object may call the host; the value may be gone, too
    if (!property || !property->HasObject()) {
        return property ? ZrvProperty::RefuseValue().GetRC() : ZrvRC::zrvEC_Error;
    }
    property->SwapObject(object);
    return ZrvRC::zrvEC_OK;
}
