#ifndef ZrvPropertyDefinition_H
#define ZrvPropertyDefinition_H

#include "KELReference.h"
#include "KELUnicodeString.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvPropertyType.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvRC.h"
#include "ZrvValueClass.h"

#include <utility>

/// What a prototype knows of one property: its value type's name and its nested prototype, if it has one.
///
/// Each of the two is set once, by the constructor or a setter; a setter refuses to replace what is set.
/// Thread-compatible.
class ZrvPropertyDefinition {
public:
    /// Keeps a copy of the type name and a reference of its own on the prototype, which may be null.
    ZrvPropertyDefinition(const KELUnicodeString& iType, ZrvConstPropertiesPrototype* iPropertyPrototype);
    ZrvPropertyDefinition(const ZrvPropertyDefinition&) = default;
    ZrvPropertyDefinition(ZrvPropertyDefinition&&) = default;
    ZrvPropertyDefinition& operator=(const ZrvPropertyDefinition&) = default;
    ZrvPropertyDefinition& operator=(ZrvPropertyDefinition&&) = default;
    virtual ~ZrvPropertyDefinition() = default;

    /// Sets the type name; an error for an empty name and, with a trace, for one that differs from the name that is
    /// set.
    ZrvRC SetType(const KELUnicodeString& iType);

    /// Sets the nested prototype; an error with a trace for null, which is also a failed check, and when one is set.
    ZrvRC SetPrototype(ZrvConstPropertiesPrototype* iPropertyPrototype);

    KELUnicodeString GetType() const { return m_type; }
    ZrvPropertyType GetAsType() const { return ZrvPropertyTypeConv::GetEnum(m_type); }

    /// The class of that type's values; null for a type name that is none of the library's. Says nothing in a
    /// definition that was moved from.
    const ZrvValueClass* ValueClass() const { return m_class; }

    /// The nested prototype with a reference added for the caller, who releases it, or null.
    ZrvConstPropertiesPrototype* GetPrototype() const { return m_pPropertyPrototype.Share(); }

    /// The same without a reference of the caller's own: valid as long as the definition.
    ZrvConstPropertiesPrototype* PeekPrototype() const { return m_pPropertyPrototype.Get(); }

    /// Gives the nested prototype up.
    KELReference<ZrvConstPropertiesPrototype> TakePrototype() noexcept { return std::move(m_pPropertyPrototype); }

private:
    KELUnicodeString m_type;
    KELReference<ZrvConstPropertiesPrototype> m_pPropertyPrototype;
    const ZrvValueClass* m_class; // of m_type, which is then not looked for again by each set
};

#endif
