#include "ZrvPrototypeImpl.h"

#include "KELReference.h"
#include "KELSYPHashMap.h"
#include "ZrvCheck.h"
#include "ZrvIsExactly.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPropertyTypeConv.h"

#include <utility>
#include <vector>

namespace {

constexpr ZrvCheck g_check("ZrvPrototypeImpl");

using DefinitionMap = KELSYPHashMap<KELUnicodeString, ZrvPropertyDefinition>;

bool HasMap(const std::unique_ptr<DefinitionMap>& iMap, int iLine = __builtin_LINE())
{
    return g_check.IsThere(iMap != nullptr, "m_properties", iLine);
}

// Prototypes on their way out, so that a chain of them goes by a loop and not by as many nested calls.
using Going = std::vector<KELReference<ZrvConstPropertiesPrototype>>;

// Moves nested prototypes out of a map that goes. Those of the host's own classes stay and go with it, since their
// destructors may look back at the prototype that declares them; and so do those that find no room.
void TakeNested(DefinitionMap& ioMap, Going& oGoing) noexcept
{
    try {
        for (int i = 0; i < ioMap.Size(); ++i) {
            DefinitionMap::Entry* const entry = ioMap.At(i);
            const ZrvConstPropertiesPrototype* const nested = entry ? entry->value.PeekPrototype() : nullptr;
            if (nested && ZrvIsExactly<ZrvPrototypeImpl>(*nested)) {
                oGoing.emplace_back();
                oGoing.back() = entry->value.TakePrototype();
            }
        }
    } catch (...) { // NOLINT(bugprone-empty-catch): as said above
    }
}

bool IsLastReference(ZrvPrototypeImpl& iPrototype)
{
    iPrototype.AddRef();
    return iPrototype.Release() == 1;
}

} // namespace

ZrvPrototypeImpl::ZrvPrototypeImpl() : m_properties(std::make_unique<DefinitionMap>()) {}

ZrvPrototypeImpl::~ZrvPrototypeImpl()
{
    Going going;
    TakeNested(*m_properties, going);
    while (!going.empty()) {
        const auto nested = std::move(going.back());
        going.pop_back();
        auto& prototype = static_cast<ZrvPrototypeImpl&>(*nested.Get());
        if (IsLastReference(prototype)) {
            TakeNested(*prototype.m_properties, going);
        }
    }
    m_properties->RemoveAll(); // while those that look back can still reach it
}

const ZrvPropertyDefinition* ZrvPrototypeImpl::Declared(const ZrvConstPropertiesPrototype& iPrototype,
                                                        const KELUnicodeString& iPropertyName)
{
    return ZrvIsExactly<ZrvPrototypeImpl>(iPrototype)
               ? static_cast<const ZrvPrototypeImpl&>(iPrototype).GetPropertyDefinition(iPropertyName)
               : nullptr;
}

ZrvRC ZrvPrototypeImpl::GetListProperties(KELListValKELUnicodeString& ioList) const
{
    for (int i = 0; i < m_properties->Size(); ++i) {
        if (const DefinitionMap::Entry* const entry = std::as_const(*m_properties).At(i)) {
            ioList.Append(entry->key);
        }
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
    if (!HasMap(m_properties)) {
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
    if (!HasMap(m_properties)) {
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
    return HasMap(m_properties) ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error;
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
    if (!HasMap(m_properties)) {
        return nullptr;
    }
    const DefinitionMap::Entry* const entry = std::as_const(*m_properties).Find(iPropertyName);
    return entry ? &entry->value : nullptr;
}
