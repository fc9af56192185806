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
#include <unordered_map>
#include <variant>
#include <vector>

/// \file
/// What an engineer writes who needs typed, schema-checked properties and has no library for them: a map from names to
/// a variant, a map for the schema and a re-entrant lock. The kind of map is a parameter.

/// An object that sets share.
class HandWrittenObject {
public:
    HandWrittenObject() = default;
    HandWrittenObject(const HandWrittenObject&) = delete;
    HandWrittenObject& operator=(const HandWrittenObject&) = delete;
    virtual ~HandWrittenObject() = default;
};

/// The alternatives are in the order of `Kind`.
using HandWrittenValue = std::variant<unsigned char*, std::string, bool, std::int32_t, std::uint32_t, float, double,
                                      std::vector<float>, std::shared_ptr<HandWrittenObject>>;

/// Hashes names so that a look-up needs no string of its own.
struct TransparentHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view iText) const noexcept { return std::hash<std::string_view>()(iText); }
};

struct StandardMap {
    template <class T>
    using Map = std::unordered_map<std::string, T, TransparentHash, std::equal_to<>>;
};

template <class Maps>
class HandWrittenSet {
public:
    using Schema = typename Maps::template Map<std::size_t>; ///< names to the numbers of alternatives

    HandWrittenSet() = default;
    explicit HandWrittenSet(std::shared_ptr<const Schema> iSchema);
    HandWrittenSet(const HandWrittenSet& iOther);
    HandWrittenSet& operator=(const HandWrittenSet&) = delete;
    ~HandWrittenSet();

    /// Adds a property that the schema declares.
    bool Add(std::string_view iName);

    /// Adds a property to a set without a schema.
    bool Add(std::string_view iName, const HandWrittenValue& iValue);

    /// Gives a property a value of its own type.
    bool Set(std::string_view iName, HandWrittenValue iValue);

    /// The same for one type, without a variant in between.
    template <class T>
    bool Assign(std::string_view iName, const T& iValue);

    /// The value, if the property is there and has that type.
    /// @{
    bool Get(std::string_view iName, std::int32_t& oValue) const;
    std::string GetText(std::string_view iName) const;
    /// @}

    bool Has(std::string_view iName) const;

    /// Takes over the other's values for the properties that both hold; adds those that this one lacks.
    bool SetFrom(const HandWrittenSet& iOther);

    std::vector<std::string> List() const;

private:
    using Values = typename Maps::template Map<HandWrittenValue>;

    bool AddLocked(std::string_view iName);

    mutable std::recursive_mutex m_mutex;
    std::shared_ptr<const Schema> m_schema;
    Values m_values;
};

extern template class HandWrittenSet<StandardMap>;

#endif
