#ifndef HandWrittenSet_H
#define HandWrittenSet_H

#include "Declarations.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

/// \file
/// What a good engineer writes who needs typed, schema-checked properties and has no library for them. The kind of map
/// is a parameter.

/// An object that sets share.
struct HandWrittenObject {
    virtual ~HandWrittenObject() = default;
};

/// The alternatives are in the order of `Kind`.
using HandWrittenValue = std::variant<unsigned char*, std::string, bool, std::int32_t, std::uint32_t, float, double,
                                      std::vector<float>, std::shared_ptr<HandWrittenObject>>;

/// The default value of a kind, or some other value of it.
HandWrittenValue MakeHandWrittenValue(Kind iKind, bool iIsDefault);

/// What one writes for a return code: a code and a text.
struct HandWrittenCode {
    std::uint32_t code = 1;
    std::string trace;

    bool IsError() const { return code > 1; }
};

/// A call that succeeds and does nothing.
HandWrittenCode SucceedByHand();

/// Hashes names so that a look-up needs no string of its own.
struct TransparentHash {
    using is_transparent = void;
    // Not noexcept, which makes the standard library keep each name's hash: looking up and growing compute fewer.
    std::size_t operator()(std::string_view iText) const { return std::hash<std::string_view>()(iText); }
};

struct StandardMap {
    template <class T>
    using Map = std::unordered_map<std::string, T, TransparentHash, std::equal_to<>>;
};

/// Values by name under a lock.
///
/// Setters are typed: no variant is built to pass a value, and a text is written into the room of the old one. The
/// getter hands out a pointer to the value, which lives as long as the set; its reader excludes writers by other means.
/// Operations are not inlined, as those of a library are not.
template <class Maps>
class HandWrittenSet {
    using Lock = std::lock_guard<std::recursive_mutex>;
    using Values = typename Maps::template Map<HandWrittenValue>;

public:
    /// Which names a set may hold, with the values that they start with, whose types they keep.
    struct Schema {
        explicit Schema(const std::vector<Declaration>& iDeclarations)
        {
            Values values;
            for (const Declaration& declaration : iDeclarations) {
                values.emplace(declaration.name, MakeHandWrittenValue(declaration.kind, true));
            }
            defaults = std::make_shared<const Values>(std::move(values));
        }

        std::shared_ptr<const Values> defaults;
    };

    /// A set without a schema.
    HandWrittenSet() = default;

    [[gnu::noinline]] explicit HandWrittenSet(const Schema& iSchema) : m_schema(iSchema.defaults)
    {
        m_values.reserve(m_schema->size());
    }

    [[gnu::noinline]] HandWrittenSet(const HandWrittenSet& iOther) : HandWrittenSet(iOther, Lock(iOther.m_mutex)) {}

    HandWrittenSet& operator=(const HandWrittenSet&) = delete;

    [[gnu::noinline]] ~HandWrittenSet() {} // NOLINT: not inlined either

    /// Adds a property that the schema declares.
    [[gnu::noinline]] bool Add(std::string_view iName)
    {
        const Lock lock(m_mutex);
        if (!m_schema) {
            return false;
        }
        const auto declared = m_schema->find(iName);
        if (declared == m_schema->end()) {
            return false;
        }
        m_values.try_emplace(declared->first, declared->second);
        return true;
    }

    /// Adds a number to a set without a schema.
    [[gnu::noinline]] bool AddInt32(std::string_view iName)
    {
        const Lock lock(m_mutex);
        if (m_schema) {
            return false;
        }
        m_values.try_emplace(std::string(iName), std::in_place_type<std::int32_t>);
        return true;
    }

    /// Gives a property some value that is not its default.
    bool Fill(std::string_view iName, Kind iKind)
    {
        return std::visit([&](const auto& iValue) { return SetTo(iName, iValue); }, MakeHandWrittenValue(iKind, false));
    }

    /// Give a property a value of its own type.
    /// @{
    [[gnu::noinline]] bool SetNumber(std::string_view iName, std::int32_t iValue) { return SetTo(iName, iValue); }
    [[gnu::noinline]] bool SetNumber(std::string_view iName, std::uint32_t iValue) { return SetTo(iName, iValue); }
    [[gnu::noinline]] bool SetText(std::string_view iName, const std::string& iText) { return SetTo(iName, iText); }
    [[gnu::noinline]] bool SetText(std::string_view iName, std::string_view iText) { return SetTo(iName, iText); }
    [[gnu::noinline]] bool SetObject(std::string_view iName, const std::shared_ptr<HandWrittenObject>& iObject)
    {
        return SetTo(iName, iObject);
    }
    /// @}

    /// The same for a literal, whose length the compiler knows.
    template <std::size_t N>
    bool SetText(std::string_view iName, const char (&iText)[N])
    {
        return SetText(iName, std::string_view(iText, N - 1));
    }

    /// The value of a property or null.
    [[gnu::noinline]] const HandWrittenValue* Get(std::string_view iName) const
    {
        const Lock lock(m_mutex);
        const auto found = m_values.find(iName);
        return found == m_values.end() ? nullptr : &found->second;
    }

    [[gnu::noinline]] bool Has(std::string_view iName) const
    {
        const Lock lock(m_mutex);
        return m_values.find(iName) != m_values.end();
    }

    /// Takes over the other's values for the properties that both hold, and adds those that this one lacks. Checks all
    /// names and types before anything changes, as the library does, and looks each name up once.
    [[gnu::noinline]] bool CopyFrom(const HandWrittenSet& iOther)
    {
        if (&iOther == this) {
            return true;
        }
        const std::scoped_lock lock(m_mutex, iOther.m_mutex);
        std::vector<HandWrittenValue*> held; // beside the other's values; null for those that this one lacks
        held.reserve(iOther.m_values.size());
        for (const auto& [name, value] : iOther.m_values) {
            const auto found = m_values.find(name);
            if (found != m_values.end() ? found->second.index() != value.index() : !Declares(name, value.index())) {
                return false;
            }
            held.push_back(found != m_values.end() ? &found->second : nullptr);
        }
        auto next = held.begin();
        for (const auto& [name, value] : iOther.m_values) {
            if (HandWrittenValue* own = *next++) {
                *own = value;
            } else {
                m_values.try_emplace(name, value);
            }
        }
        return true;
    }

    [[gnu::noinline]] std::vector<std::string> List() const
    {
        const Lock lock(m_mutex);
        std::vector<std::string> names;
        names.reserve(m_values.size());
        for (const auto& entry : m_values) {
            names.push_back(entry.first);
        }
        return names;
    }

    // What a caller does with a value:

    template <class T>
    const T* GetTyped(std::string_view iName) const
    {
        const HandWrittenValue* value = Get(iName);
        return value ? std::get_if<T>(value) : nullptr;
    }

    template <class T>
    bool Read(std::string_view iName, T& oValue) const
    {
        const T* value = GetTyped<T>(iName);
        oValue = value ? *value : T();
        return value != nullptr;
    }

    /// The first byte of a text, read in place; 0 when there is no text of that name.
    char ReadText(std::string_view iName) const
    {
        const auto* text = GetTyped<std::string>(iName);
        return text ? *text->c_str() : '\0';
    }

private:
    HandWrittenSet(const HandWrittenSet& iOther, const Lock& /*iLockOfOther*/)
        : m_schema(iOther.m_schema), m_values(iOther.m_values)
    {
    }

    bool Declares(std::string_view iName, std::size_t iAlternative) const
    {
        if (!m_schema) {
            return true;
        }
        const auto declared = m_schema->find(iName);
        return declared != m_schema->end() && declared->second.index() == iAlternative;
    }

    template <class Value>
    bool SetTo(std::string_view iName, const Value& iValue)
    {
        using Held = std::conditional_t<std::is_same_v<Value, std::string_view>, std::string, Value>;
        const Lock lock(m_mutex);
        const auto found = m_values.find(iName);
        Held* value = found == m_values.end() ? nullptr : std::get_if<Held>(&found->second);
        if (!value) {
            return false;
        }
        *value = iValue;
        return true;
    }

    mutable std::recursive_mutex m_mutex;
    std::shared_ptr<const Values> m_schema;
    Values m_values;
};

extern template class HandWrittenSet<StandardMap>;

/// A hand-written set on some kind of map.
template <class Maps>
struct HandWrittenContestant {
    using String = std::string;
    using Object = std::shared_ptr<HandWrittenObject>;
    using Set = HandWrittenSet<Maps>;
    using Schema = typename Set::Schema;

    static String MakeString(const std::string& iText) { return iText; }
    static Object MakeObject() { return std::make_shared<HandWrittenObject>(); }
};

#endif
