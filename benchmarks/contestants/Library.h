#ifndef Library_H
#define Library_H

#include "Declarations.h"
#include "Zorvel.h"

#if __has_include("ZrvPropertyAccess.h")
#include "ZrvPropertyAccess.h"
#endif

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#if !__has_include("ZrvPropertyAccess.h")
// Earlier states of the library leave the cast to their callers.
template <class T>
inline const KELUnicodeString g_typeName = ZrvPropertyValue<T>(T()).GetType();

template <class T>
const ZrvPropertyValue<T>* ZrvPropertyCast(const ZrvPropertyValueBase* iValue)
{
    return iValue && iValue->GetType() == g_typeName<T> ? static_cast<const ZrvPropertyValue<T>*>(iValue) : nullptr;
}
#endif

/// The library, used as its callers use it.
struct LibraryContestant {
    static constexpr char kName[] = "Zorvel";

    using String = KELUnicodeString; ///< names and texts at hand
    using Object = KELReference<KELSysTSBaseUnknown>;

    static String MakeString(const std::string& iText) { return KELUnicodeString(iText.c_str()); }
    static Object MakeObject();

    /// A call that succeeds and does nothing.
    static ZrvRC Succeed();

    /// What a set is bound to.
    class Schema {
    public:
        explicit Schema(const std::vector<Declaration>& iDeclarations);
        ZrvPrototypeImpl* Get() const { return m_prototype.Get(); }

    private:
        KELReference<ZrvPrototypeImpl> m_prototype = KELReference<ZrvPrototypeImpl>::Adopt(new ZrvPrototypeImpl);
    };

    class Set {
    public:
        /// A set without a schema, for `AddInt32`.
        Set() = default;

        explicit Set(const Schema& iSchema) : m_set(iSchema.Get()) {}

        /// Adds a declared property with its default value.
        bool Add(const String& iName) { return m_set.AddProperty(iName).IsValid(); }

        bool AddInt32(const String& iName) { return m_set.AddProperty(iName, g_int32, nullptr).IsValid(); }

        /// Gives a property some value that is not its default.
        bool Fill(const String& iName, Kind iKind);

        bool SetNumber(const String& iName, std::int32_t iValue) { return Put<KELINT32>(iName, iValue); }
        bool SetNumber(const String& iName, std::uint32_t iValue) { return Put<KELUINT32>(iName, iValue); }
        bool SetObject(const String& iName, const Object& iObject)
        {
            return Put<KELSysTSBaseUnknown*>(iName, iObject.Get());
        }

        template <class Text>
        bool SetText(const String& iName, const Text& iText)
        {
            return Put<KELUnicodeString>(iName, iText);
        }

        template <class T>
        bool Read(const String& iName, T& oValue) const
        {
            const auto* value = ZrvPropertyCast<T>(m_set.GetProperty(iName));
            oValue = value ? value->GetValue() : T();
            return value != nullptr;
        }

        /// Reads a number as README shows it.
        bool ReadWidth(std::uint32_t& oValue) const
        {
            oValue = ZrvReadProperty<KELUINT32>(m_set, "width");
            return oValue != 0;
        }

        /// The first byte of a text; 0 when there is no text of that name.
        char ReadText(const String& iName) const
        {
            const auto* value = ZrvPropertyCast<KELUnicodeString>(m_set.GetProperty(iName));
            return value ? *value->GetValue().ConvertToChar() : '\0';
        }

        bool Has(const String& iName) const { return m_set.HasProperty(iName) == 1; }

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
        static const KELUnicodeString g_int32;

        template <class T, class Given>
        bool Put(const String& iName, const Given& iValue)
        {
            return m_set.SetProperty(iName, ZrvPropertyValue<T>(iValue)).IsValid();
        }

        ZrvProperties m_set;
    };
};

#endif
