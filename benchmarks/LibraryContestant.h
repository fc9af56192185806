#ifndef LibraryContestant_H
#define LibraryContestant_H

#include "Declarations.h"
#include "Zorvel.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// The library, used as its callers use it.
struct LibraryContestant {
    static constexpr char kName[] = "Zorvel";

    using Key = KELUnicodeString;  ///< what properties are added and looked up with
    using Text = KELUnicodeString; ///< a string at hand, and what a caller gets back as his own

    static Key MakeKey(const std::string& iName) { return KELUnicodeString(iName.c_str()); }
    static Text MakeText(const std::string& iText) { return KELUnicodeString(iText.c_str()); }

    /// What a set is bound to.
    class Schema {
    public:
        explicit Schema(const std::vector<Declaration>& iDeclarations)
        {
            for (const Declaration& declaration : iDeclarations) {
                m_prototype->AddProperty(MakeKey(declaration.name), TypeOf(declaration.kind), nullptr);
            }
        }
        Schema(const Schema&) = delete;
        Schema& operator=(const Schema&) = delete;
        ~Schema() { m_prototype->Release(); }

        ZrvPrototypeImpl* Get() const { return m_prototype; }

    private:
        ZrvPrototypeImpl* m_prototype = new ZrvPrototypeImpl;
    };

    class Set {
    public:
        /// A set without a schema, for `AddInt32`.
        Set() = default;

        explicit Set(const Schema& iSchema) : m_set(iSchema.Get()) {}

        /// Adds a declared property with its default value.
        bool Add(const Key& iKey) { return m_set.AddProperty(iKey).IsValid(); }

        bool AddInt32(const Key& iKey) { return m_set.AddProperty(iKey, TypeName<KELINT32>(), nullptr).IsValid(); }

        /// Gives a property some value that is not its default.
        void Fill(const Key& iKey, Kind iKind);

        bool SetInt32(const Key& iKey, std::int32_t iValue)
        {
            return m_set.SetProperty(iKey, ZrvPropertyValue<KELINT32>(iValue)).IsValid();
        }

        bool GetInt32(const Key& iKey, std::int32_t& oValue) const
        {
            const auto* value = Find<KELINT32>(iKey);
            oValue = value ? value->GetValue() : 0;
            return value != nullptr;
        }

        bool SetText(const Key& iKey, const Text& iText)
        {
            return m_set.SetProperty(iKey, ZrvPropertyValue<KELUnicodeString>(iText)).IsValid();
        }

        Text GetText(const Key& iKey) const
        {
            const auto* value = Find<KELUnicodeString>(iKey);
            return value ? value->GetValue() : KELUnicodeString();
        }

        bool Has(const Key& iKey) const { return m_set.HasProperty(iKey) == 1; }

        /// Copies all values of another set.
        bool CopyFrom(const Set& iOther) { return m_set.SetFromProperties(iOther.m_set).IsValid(); }

        /// The names of all properties.
        KELListValKELUnicodeString List() const
        {
            KELListValKELUnicodeString names;
            m_set.GetListProperties(names);
            return names;
        }

    private:
        template <class T>
        static const KELUnicodeString& TypeName()
        {
            static const KELUnicodeString name = ZrvPropertyTypeConv::GetAsUnicode(ZrvPropertyTypeOf<T>::kType);
            return name;
        }

        template <class T>
        const ZrvPropertyValue<T>* Find(const Key& iKey) const
        {
            const ZrvPropertyValueBase* value = m_set.GetProperty(iKey);
            return value && value->GetType() == TypeName<T>() ? static_cast<const ZrvPropertyValue<T>*>(value)
                                                              : nullptr;
        }

        ZrvProperties m_set;
    };

private:
    static ZrvPropertyType TypeOf(Kind iKind) { return static_cast<ZrvPropertyType>(iKind); }
};

#endif
