#include "ZrvLock.h"
#include "ZrvProperties_data.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPrototypeImpl.h"

#include <cstddef>
#include <utility>

// What copies between two sets.

// Nobody knows the new set yet: its own lock is not needed. When the body throws, the source is unlocked first; then
// the destructor runs, since the other constructor has.
ZrvPropertiesData::ZrvPropertiesData(const ZrvPropertiesData& iSource) : ZrvPropertiesData(nullptr)
{
    const ZrvLock lock(iSource.m_mutex);
    m_pPrototype = iSource.m_pPrototype;
    if (iSource.IsWhole_Int()) {
        iSource.CopyAllTo_Int(m_propertyMap, m_propertyPool, false);
    } else {
        iSource.CopyOneByOneTo_Int(m_propertyMap, m_propertyPool, false);
    }
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
    const bool isCopied =
        copy.prototype == iSource.m_pPrototype.Get() && iSource.IsWhole_Int() && iSource.IsAsDeclared_Int();
    if (isCopied) {
        iSource.CopyAllTo_Int(copy.map, copy.pool, true);
    }
    MoveOut_Int(old);
    MoveIn_Int(copy);
    if (!isCopied) {
        static_cast<void>(SetFromProperties_Int(iSource, ZrvRC::zrvEC_Error, givenUp)); // an assignment has no result
    }
    return *this;
}

bool ZrvPropertiesData::IsWhole_Int() const
{
    for (int i = 0; i < m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const entry = m_propertyMap.At(i);
        if (!entry || entry->key.GetLengthInChar() == 0 || !entry->value || !entry->value->ValueClass()) {
            return false;
        }
    }
    return true;
}

bool ZrvPropertiesData::IsAsDeclared_Int() const
{
    for (int i = 0; m_pPrototype && i < m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry& entry = *m_propertyMap.At(i);
        const ZrvPropertyDefinition* const declared = Declared_Int(entry.key);
        if (!declared || declared->ValueClass() != entry.value->ValueClass()) {
            return false;
        }
    }
    return true;
}

// First all names and plain values, while no host is called that could change this set; then, one by one, what is
// counted. The copy is nobody else's yet.
void ZrvPropertiesData::CopyAllTo_Int(PropertyMap& oMap, PropertyPool& oPool, bool iIsAssigned) const
{
    oPool.Reserve(static_cast<std::size_t>(m_propertyMap.Size()));
    const auto copyValue = [&oPool](const PropertyMap::Entry& iEntry) { return oPool.Make(*iEntry.value).release(); };
    if (!oMap.CopyFrom(m_propertyMap, copyValue)) {
        CopyOneByOneTo_Int(oMap, oPool, iIsAssigned);
        return;
    }
    for (int i = 0; i < oMap.Size(); ++i) {
        const PropertyMap::Entry* const source = m_propertyMap.At(i);
        if (iIsAssigned || (source && source->value && source->value->HasCounted())) {
            CopyCounted_Int(i, *oMap.At(i), iIsAssigned);
        }
    }
}

// Leaves out entries that lack their name or their property. Works over any table.
void ZrvPropertiesData::CopyOneByOneTo_Int(PropertyMap& oMap, PropertyPool& oPool, bool iIsAssigned) const
{
    for (int i = 0; i < m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const source = m_propertyMap.At(i);
        if (!source || source->key.GetLengthInChar() == 0 || !source->value) {
            continue;
        }
        const KELUnicodeString name = source->key;
        PropertyPool::Owner property = oPool.Make(*source->value);
        if (oMap.Add(name, property.get()) == 1) {
            CopyCounted_Int(i, PropertyMap::Entry{name, property.release()}, iIsAssigned);
        }
    }
}

const ZrvProperty* ZrvPropertiesData::FindSource_Int(int iIndex, const PropertyMap::Entry& iCopy) const
{
    const PropertyMap::Entry* const entry = m_propertyMap.At(iIndex);
    const bool isSame =
        entry && entry->value && entry->key == iCopy.key && entry->value->ValueClass() == iCopy.value->ValueClass();
    return isSame ? entry->value : nullptr;
}

void ZrvPropertiesData::CopyCounted_Int(int iIndex, const PropertyMap::Entry& iCopy, bool iIsAssigned) const
{
    const ZrvProperty* source = FindSource_Int(iIndex, iCopy);
    if (source && source->HasObject()) {
        KELReference<KELSysTSBaseUnknown> object = source->GetObject();
        iCopy.value->SwapObject(object);
        source = FindSource_Int(iIndex, iCopy);
    }
    if (iIsAssigned) {
        const ZrvPropertyDefinition* const declared = Declared_Int(iCopy.key);
        if (declared && declared->PeekPrototype()) {
            iCopy.value->SetPrototype(ZrvProperty::Prototype(declared->PeekPrototype()));
        }
        return;
    }
    if (source && source->PeekPrototype()) {
        iCopy.value->SetPrototype(ZrvProperty::Prototype(source->PeekPrototype()));
        source = FindSource_Int(iIndex, iCopy);
    }
    if (source) {
        iCopy.value->SetParameters(source->CopyParameters());
    }
}

ZrvRC ZrvPropertiesData::SetFromProperties(const ZrvPropertiesData& iSource, ZrvRC::ErrorCode iOfNothing)
{
    ZrvGivenUp givenUp;
    const ZrvPairLock lock(m_mutex, iSource.m_mutex);
    return SetFromProperties_Int(iSource, iOfNothing, givenUp);
}

ZrvProperty* ZrvPropertiesData::FindLike_Int(const PropertyMap::Entry& iSource, int iIndex, bool& ioIsInPlace) const
{
    // Sets that were filled alike have their names in the same places.
    const PropertyMap::Entry* const guessed = m_propertyMap.At(iIndex);
    const bool isInPlace = guessed && guessed->key == iSource.key;
    ZrvProperty* const held = isInPlace ? guessed->value : Find_Int(iSource.key);
    const bool isLike = held && iSource.value && held->HasSameClass(*iSource.value);
    ioIsInPlace = ioIsInPlace && isInPlace && isLike;
    return isLike ? held : nullptr;
}

ZrvRC ZrvPropertiesData::SetFromProperties_Int(const ZrvPropertiesData& iSource, ZrvRC::ErrorCode iOfNothing,
                                               ZrvGivenUp& ioGivenUp)
{
    std::size_t objects = 0;
    bool areInPlace = true; // all names with their classes, until the host is called
    for (int i = 0; i < iSource.m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const source = iSource.m_propertyMap.At(i);
        const ZrvProperty* const held = source ? FindLike_Int(*source, i, areInPlace) : nullptr;
        objects += held && held->HasOtherObject(*source->value) ? 1U : 0U;
        if (source && !held) {
            ZrvRC rc = CheckCopy_Int(*source, ioGivenUp);
            if (rc.IsError()) {
                return rc;
            }
        }
    }
    ioGivenUp.MakeRoom(objects);
    ZrvRC::ErrorCode result = iOfNothing;
    for (int i = 0; i < iSource.m_propertyMap.Size(); ++i) {
        const PropertyMap::Entry* const source = iSource.m_propertyMap.At(i);
        if (!source || !source->value || !source->value->GetValue()) {
            continue;
        }
        ZrvProperty* const held = areInPlace ? m_propertyMap.At(i)->value : FindLike_Int(*source, i, areInPlace);
        if (held && !held->HasOtherObject(*source->value)) {
            held->Assign(*source->value);
            result = ZrvRC::zrvEC_OK;
            continue;
        }
        areInPlace = false;
        ZrvRC rc = CopyProperty_Int(*source, ioGivenUp);
        if (rc.IsError()) {
            return rc;
        }
        result = ZrvRC::zrvEC_OK;
    }
    return result;
}

// Whether another set's property can be copied into this one, as far as can be told without changing anything.
ZrvRC ZrvPropertiesData::CheckCopy_Int(const PropertyMap::Entry& iSource, ZrvGivenUp& ioGivenUp) const
{
    const KELUnicodeString name = iSource.key;
    if (!kCheck.Holds(name.GetLengthInChar() > 0, "inputPropertyName.Compare(\"\")!=2")) {
        return ZrvRC(ZrvRC::zrvEC_Error, "Property without name.");
    }
    const KELUnicodeString propertyType = iSource.value ? iSource.value->GetType() : KELUnicodeString();
    if (!kCheck.Holds(propertyType.GetLengthInChar() > 0, "inputPropertyType.GetLengthInChar()>0")) {
        return ZrvRC(ZrvRC::zrvEC_Error, "Property without type.");
    }
    if (!kCheck.IsThere(iSource.value && iSource.value->GetValue(), "pInputPropertyValue")) {
        return ZrvRC(ZrvRC::zrvEC_Error, "Property without value.");
    }
    if (GetAvailability_Int(name, ioGivenUp) == ZrvProperties::zrvPA_Unavailable) {
        return ZrvRC::zrvEC_Error;
    }
    const bool fits = !m_propertyMap.Contains(name) || propertyType == GetPropertyType_Int(name);
    return fits ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
}

ZrvRC ZrvPropertiesData::CopyProperty_Int(const PropertyMap::Entry& iSource, ZrvGivenUp& ioGivenUp)
{
    const KELUnicodeString name = iSource.key;
    ZrvValueHolder& value = ioGivenUp.value;
    value.MakeCopy(iSource.value->Value());
    ZrvRC rc = AddForCopy_Int(name, value, ioGivenUp);
    ioGivenUp.MakeRoom(1);
    if (!rc.IsError()) {
        const bool isSet = !SwapValue_Int(name, value).IsError();
        if (!kCheck.Holds(isSet, "!( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() )")) {
            rc = ZrvRC::zrvEC_Error;
        }
    }
    ioGivenUp.Keep(value.TakeObject());
    value.Reset();
    return rc;
}

// Adds a name that is missing, for a value to be copied.
ZrvRC ZrvPropertiesData::AddForCopy_Int(const KELUnicodeString& iPropertyName, const ZrvValueHolder& iValue,
                                        ZrvGivenUp& ioGivenUp)
{
    if (m_propertyMap.Contains(iPropertyName)) {
        return ZrvRC::zrvEC_OK;
    }
    ZrvProperty::Prototype none;
    ZrvRC rc = m_pPrototype ? AddProperty_Int(iPropertyName, ioGivenUp)
                            : AddProperty_Int(iPropertyName, iValue->GetType(), none, ioGivenUp);
    return kCheck.Holds(!rc.IsError(), "!(rc.IsError())") ? ZrvRC::zrvEC_OK : ZrvRC(ZrvRC::zrvEC_Error, rc.Dump());
}
