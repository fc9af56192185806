#ifndef HandWrittenSetImpl_H
#define HandWrittenSetImpl_H

/// \file
/// The definitions of `HandWrittenSet`. Only the source that instantiates it for a map includes them: like the library,
/// it lies behind a boundary that calls are not inlined across.

#include "HandWrittenSet.h"

#include <utility>

using Lock = std::lock_guard<std::recursive_mutex>;

/// A default value of the alternative of that number.
HandWrittenValue DefaultValue(std::size_t iAlternative);

template <class Maps>
HandWrittenSet<Maps>::HandWrittenSet(std::shared_ptr<const Schema> iSchema) : m_schema(std::move(iSchema))
{
    m_values.reserve(m_schema->size());
}

template <class Maps>
HandWrittenSet<Maps>::HandWrittenSet(const HandWrittenSet& iOther)
{
    const Lock lock(iOther.m_mutex);
    m_schema = iOther.m_schema;
    m_values = iOther.m_values;
}

template <class Maps>
HandWrittenSet<Maps>::~HandWrittenSet() = default;

template <class Maps>
bool HandWrittenSet<Maps>::AddLocked(std::string_view iName)
{
    const auto declaration = m_schema->find(iName);
    if (declaration == m_schema->end()) {
        return false;
    }
    m_values.try_emplace(declaration->first, DefaultValue(declaration->second));
    return true;
}

template <class Maps>
bool HandWrittenSet<Maps>::Add(std::string_view iName)
{
    const Lock lock(m_mutex);
    return m_schema && AddLocked(iName);
}

template <class Maps>
bool HandWrittenSet<Maps>::Add(std::string_view iName, const HandWrittenValue& iValue)
{
    const Lock lock(m_mutex);
    if (m_schema) {
        return false;
    }
    m_values.try_emplace(std::string(iName), iValue);
    return true;
}

template <class Maps>
// NOLINTNEXTLINE(performance-unnecessary-value-param): moved from, once the type of the map is known
bool HandWrittenSet<Maps>::Set(std::string_view iName, HandWrittenValue iValue)
{
    const Lock lock(m_mutex);
    const auto found = m_values.find(iName);
    if (found == m_values.end() || found->second.index() != iValue.index()) {
        return false;
    }
    found->second = std::move(iValue);
    return true;
}

template <class Maps>
template <class T>
bool HandWrittenSet<Maps>::Assign(std::string_view iName, const T& iValue)
{
    const Lock lock(m_mutex);
    const auto found = m_values.find(iName);
    T* value = found == m_values.end() ? nullptr : std::get_if<T>(&found->second);
    if (!value) {
        return false;
    }
    *value = iValue;
    return true;
}

template <class Maps>
bool HandWrittenSet<Maps>::Get(std::string_view iName, std::int32_t& oValue) const
{
    const Lock lock(m_mutex);
    const auto found = m_values.find(iName);
    const auto* value = found == m_values.end() ? nullptr : std::get_if<std::int32_t>(&found->second);
    if (!value) {
        return false;
    }
    oValue = *value;
    return true;
}

template <class Maps>
std::string HandWrittenSet<Maps>::GetText(std::string_view iName) const
{
    const Lock lock(m_mutex);
    const auto found = m_values.find(iName);
    const auto* value = found == m_values.end() ? nullptr : std::get_if<std::string>(&found->second);
    return value ? *value : std::string();
}

template <class Maps>
bool HandWrittenSet<Maps>::Has(std::string_view iName) const
{
    const Lock lock(m_mutex);
    return m_values.find(iName) != m_values.end();
}

template <class Maps>
bool HandWrittenSet<Maps>::SetFrom(const HandWrittenSet& iOther)
{
    if (&iOther == this) {
        return true;
    }
    const std::scoped_lock lock(m_mutex, iOther.m_mutex);
    for (const auto& [name, value] : iOther.m_values) {
        auto found = m_values.find(name);
        if (found == m_values.end()) {
            if (m_schema && !AddLocked(name)) {
                return false;
            }
            found = m_values.try_emplace(name, value).first;
        }
        if (found->second.index() != value.index()) {
            return false;
        }
        found->second = value;
    }
    return true;
}

template <class Maps>
std::vector<std::string> HandWrittenSet<Maps>::List() const
{
    const Lock lock(m_mutex);
    std::vector<std::string> names;
    names.reserve(m_values.size());
    for (const auto& entry : m_values) {
        names.push_back(entry.first);
    }
    return names;
}

#endif
