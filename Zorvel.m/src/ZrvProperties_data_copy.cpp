#include "ZrvCheck.h"
#include "ZrvLock.h"
#include "ZrvProperties_data.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPrototypeImpl.h"

#include <cstddef>
#include <memory>
#include <utility>

// What copies between two sets.

namespace {

constexpr ZrvCheck g_check("ZrvProperties_data"); // reports do not tell the class's two sources apart

ZrvRC Failure(const char* iTrace)
{
    return ZrvRC(ZrvRC::zrvEC_Error, iTrace);
}

} // namespace

ZrvPropertiesData::ZrvPropertiesData(const ZrvPropertiesData& iSource)
{
    ZrvPropertiesContents copy;
    const ZrvPairLock lock(m_mutex, iSource.m_mutex);
    copy.prototype = iSource.m_pPrototype;
    iSource.CopyAllTo_Int(copy, false);
    TakeAll_Int(copy);
}

ZrvPropertiesData& ZrvPropertiesData::operator=(const ZrvPropertiesData& iSource)
{
    if (&iSource == this) {
        return *this;
    }
    ZrvGivenUp givenUp;
    ZrvPropertiesContents old;
    ZrvPropertiesContents copy;
    const ZrvPairLock lock(m_mutex, iSource.m_mutex);
    copy.prototype = iSource.m_pPrototype;
    const bool isCopied = iSource.IsAsDeclared_Int();
    if (isCopied) {
        iSource.CopyAllTo_Int(copy, true);
    }
    GiveUpAll_Int(old);
    TakeAll_Int(copy);
    if (!isCopied) {
        SetFromProperties_Int(iSource, givenUp);
    }
    return *this;
}

bool ZrvPropertiesData::IsAsDeclared_Int() const
{
    const ZrvPrototypeImpl* const prototype = PlainPrototype_Int();
    if (m_pPrototype && !prototype) {
        return false;
    }
    for (int i = 0; i < m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const entry = m_propertyMap.At(i);
        const ZrvValueClass* const valueClass = entry && entry->value ? entry->value->ValueClass() : nullptr;
        if (!valueClass || entry->key.GetLengthInChar() == 0) {
            return false;
        }
        const ZrvPropertyDefinition* const declared = prototype ? prototype->GetPropertyDefinition(entry->key) : nullptr;
        if (prototype && !(declared && declared->PeekType() == valueClass->TypeName())) {
            return false;
        }
    }
    return true;
}

void ZrvPropertiesData::CopyAllTo_Int(ZrvPropertiesContents& oCopy, bool iIsAssigned) const
{
    oCopy.map.Reserve(m_propertyMap.Size());
    oCopy.pool.Reserve(static_cast<std::size_t>(m_propertyMap.Size()));
    for (int i = 0; i < m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const entry = m_propertyMap.At(i);
        if (entry && entry->key.GetLengthInChar() > 0 && entry->value) {
            CopyEntryTo_Int(oCopy, i, iIsAssigned);
        }
    }
}

void ZrvPropertiesData::CopyEntryTo_Int(ZrvPropertiesContents& oCopy, int iIndex, bool iIsAssigned) const
{
    const PropertyMap::Entry* entry = m_propertyMap.At(iIndex);
    const KELUnicodeString name = entry->key;
    ZrvProperty::Prototype propertyPrototype;
    std::unique_ptr<ZrvProperties> parameters;
    if (!iIsAssigned) {
        propertyPrototype = entry->value->PeekPrototype();
        parameters = m_propertyMap.At(iIndex) == entry ? entry->value->CopyParameters() : nullptr;
    } else if (const ZrvPrototypeImpl* const prototype = PlainPrototype_Int()) {
        const ZrvPropertyDefinition* const declared = prototype->GetPropertyDefinition(name);
        propertyPrototype = declared ? declared->PeekPrototype() : nullptr;
    }
    if (propertyPrototype || parameters) { // the host may have been called
        entry = m_propertyMap.At(iIndex);
        if (!entry || entry->key != name || !entry->value) {
            return;
        }
    }
    ZrvPropertiesContents::Pool::Owner property = oCopy.pool.Make(entry->value->Value());
    property->SetPrototype(std::move(propertyPrototype));
    property->SetParameters(std::move(parameters));
    if (oCopy.map.Add(name, property.get()) == 1) {
        static_cast<void>(property.release());
    }
}

ZrvRC ZrvPropertiesData::SetFromProperties(const ZrvPropertiesData& iSource)
{
    ZrvGivenUp givenUp;
    const ZrvPairLock lock(m_mutex, iSource.m_mutex);
    return SetFromProperties_Int(iSource, givenUp);
}

ZrvProperty* ZrvPropertiesData::FindLike_Int(const PropertyMap::Entry& iSource, int iIndex) const
{
    // Sets that were filled alike have their names in the same places.
    const PropertyMap::Entry* const guessed = m_propertyMap.At(iIndex);
    ZrvProperty* const held = guessed && guessed->key == iSource.key ? guessed->value : Find_Int(iSource.key);
    return held && iSource.value && held->HasSameClass(*iSource.value) ? held : nullptr;
}

ZrvRC ZrvPropertiesData::SetFromProperties_Int(const ZrvPropertiesData& iSource, ZrvGivenUp& ioGivenUp)
{
    std::size_t objects = 0;
    for (int i = 0; i < iSource.m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const source = iSource.m_propertyMap.At(i);
        const ZrvProperty* const held = source ? FindLike_Int(*source, i) : nullptr;
        objects += held && held->ValueClass()->HasObjects() ? 1 : 0;
        if (source && !held) {
            ZrvRC rc = CheckCopy_Int(*source, ioGivenUp);
            if (rc.IsError()) {
                return rc;
            }
        }
    }
    ioGivenUp.MakeRoom(objects);
    // A source without entries copies nothing, which is no success.
    ZrvRC result = ZrvRC::zrvEC_Error;
    for (int i = 0; i < iSource.m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const source = iSource.m_propertyMap.At(i);
        if (!source || !source->value || !source->value->GetValue()) {
            continue;
        }
        ZrvProperty* const held = FindLike_Int(*source, i);
        if (held && !held->ValueClass()->HasObjects()) {
            held->Assign(*source->value->GetValue());
            result = ZrvRC::zrvEC_OK;
            continue;
        }
        result = CopyProperty_Int(*source, ioGivenUp);
        if (result.IsError()) {
            return result;
        }
    }
    return result;
}

// Whether another set's property can be copied into this one, as far as can be told without changing anything.
ZrvRC ZrvPropertiesData::CheckCopy_Int(const PropertyMap::Entry& iSource, ZrvGivenUp& ioGivenUp) const
{
    const KELUnicodeString name = iSource.key;
    if (!g_check.Holds(name.GetLengthInChar() > 0, "inputPropertyName.Compare(\"\")!=2")) {
        return Failure("Property without name.");
    }
    const KELUnicodeString propertyType = iSource.value ? iSource.value->GetType() : KELUnicodeString();
    if (!g_check.Holds(propertyType.GetLengthInChar() > 0, "inputPropertyType.GetLengthInChar()>0")) {
        return Failure("Property without type.");
    }
    if (!g_check.IsThere(iSource.value->GetValue() != nullptr, "pInputPropertyValue")) {
        return Failure("Property without value.");
    }
    if (GetAvailability_Int(name, ioGivenUp) == ZrvProperties::zrvPA_Unavailable) {
        return ZrvRC::zrvEC_Error;
    }
    const bool fits = !m_propertyMap.Contains(name) || propertyType == GetPropertyType_Int(name);
    return fits ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

ZrvRC ZrvPropertiesData::CopyProperty_Int(const PropertyMap::Entry& iSource, ZrvGivenUp& ioGivenUp)
{
    ioGivenUp.MakeRoom(1);
    const KELUnicodeString name = iSource.key;
    ZrvValueHolder value;
    value.MakeCopy(iSource.value->Value());
    ZrvRC rc = PutCopy_Int(name, value, ioGivenUp);
    ioGivenUp.Keep(value.TakeObject());
    return rc;
}

// Exchanges a copied value for the one under a name, which is added if it is missing.
ZrvRC ZrvPropertiesData::PutCopy_Int(const KELUnicodeString& iPropertyName, ZrvValueHolder& ioValue,
                                     ZrvGivenUp& ioGivenUp)
{
    if (!m_propertyMap.Contains(iPropertyName)) {
        ZrvProperty::Prototype none;
        ZrvRC rc = m_pPrototype ? AddProperty_Int(iPropertyName, ioGivenUp)
                                : AddProperty_Int(iPropertyName, ioValue->GetType(), none, ioGivenUp);
        if (!g_check.Holds(!rc.IsError(), "!(rc.IsError())")) {
            return Failure(rc.Dump());
        }
    }
    const bool isSet = !SwapValue_Int(iPropertyName, ioValue).IsError();
    return g_check.Holds(isSet, "!( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() )") ? ZrvRC::zrvEC_OK
                                                                                                   : ZrvRC::zrvEC_Error;
}
