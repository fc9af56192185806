#ifndef ZrvProperties_data_H
#define ZrvProperties_data_H

#include "KELListValKELUnicodeString.h"
#include "KELMutex.h"
#include "KELReference.h"
#include "KELSYPHashMap.h"
#include "KELThreadSafety.h"
#include "KELUnicodeString.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvProperties.h"
#include "ZrvProperty.h"
#include "ZrvPropertyValueBase.h"
#include "ZrvRC.h"

#include <memory>

class ZrvPropertyDefinition;

/// The data behind one property set: the properties by name, the prototype and the lock.
///
/// Owns the properties; an entry of the map may be without one, and its name is then held but not instantiated. The
/// operations answer as those of `ZrvProperties` do, which checks the arguments before them. Thread-safe: each
/// operation holds the lock for its whole run, a copy the locks of both sets. Those that end in `_Int` run with the
/// lock held.
class ZrvPropertiesData {
public:
    /// An empty set; takes a reference on the prototype, which may be null.
    explicit ZrvPropertiesData(ZrvConstPropertiesPrototype* iPrototype);

    /// Copies of all properties; shares the prototype.
    ZrvPropertiesData(const ZrvPropertiesData& iSource);
    virtual ~ZrvPropertiesData();

    ZrvPropertiesData& operator=(const ZrvPropertiesData& iSource);

    ZrvRC AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                      ZrvConstPropertiesPrototype* iPropertyPrototype);
    ZrvRC AddProperty(const KELUnicodeString& iPropertyName);
    ZrvProperties::PropertyAvailability GetAvailability(const KELUnicodeString& iPropertyName) const;
    int HasProperty(const KELUnicodeString& iPropertyName) const;
    int GetListProperties(KELListValKELUnicodeString& ioList) const;

    /// Whether `GetListProperties` would add any.
    bool HasNames() const;
    const ZrvPropertyValueBase* GetProperty(const KELUnicodeString& iPropertyName) const;
    KELUnicodeString GetPropertyType(const KELUnicodeString& iPropertyName) const;
    ZrvProperties* GetPropertyParameters(const KELUnicodeString& iPropertyName) const;
    ZrvConstPropertiesPrototype* GetPrototype() const;
    ZrvRC SetProperty(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue);

    /// Does what `SetProperty` does, if the set holds the name with a value of the same plain class; else nothing, and
    /// gives false. The short cut of nearly all calls: such a value passes every check on the long way.
    bool AssignPlain(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue);
    ZrvRC SetFromProperties(const ZrvPropertiesData& iSource);

private:
    using PropertyMap = KELSYPHashMap<KELUnicodeString, ZrvProperty*>;

    /// A property on its way into the map. It lies in the room behind the entry, and so is destroyed before it.
    struct NewProperty {
        PropertyMap::EntryHolder entry;
        std::unique_ptr<ZrvProperty> property;
    };

    ZrvRC AddProperty_Int(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                          ZrvConstPropertiesPrototype* iPropertyPrototype) KEL_REQUIRES(m_mutex);
    ZrvRC AddProperty_Int(const KELUnicodeString& iPropertyName) KEL_REQUIRES(m_mutex);
    ZrvProperties::PropertyAvailability GetAvailability_Int(const KELUnicodeString& iPropertyName) const
        KEL_REQUIRES(m_mutex);
    KELUnicodeString GetPropertyType_Int(const KELUnicodeString& iPropertyName) const KEL_REQUIRES(m_mutex);
    ZrvRC SetProperty_Int(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue)
        KEL_REQUIRES(m_mutex);
    ZrvRC SetFromProperties_Int(const ZrvPropertiesData& iSource) KEL_REQUIRES(m_mutex, iSource.m_mutex);
    ZrvRC CheckCopy_Int(const PropertyMap::Entry& iSource, ZrvProperty* const* iHeld) const KEL_REQUIRES(m_mutex);
    ZrvRC CopyProperty_Int(const PropertyMap::Entry& iSource, ZrvProperty* const* iHeld) KEL_REQUIRES(m_mutex);
    void RemoveAllProperties_Int() KEL_REQUIRES(m_mutex);

    /// The property of that name, or null.
    ZrvProperty* Find_Int(const KELUnicodeString& iPropertyName) const KEL_REQUIRES(m_mutex);

    /// Whether the prototype allows the name; a free set allows any.
    bool IsDeclared_Int(const KELUnicodeString& iPropertyName) const KEL_REQUIRES(m_mutex);

    /// What a prototype of exactly the library's class declares of the name, which saves three questions; null for any
    /// other prototype, which has answers of its own, and for a name that is not declared.
    const ZrvPropertyDefinition* GetPlainDefinition_Int(const KELUnicodeString& iPropertyName) const
        KEL_REQUIRES(m_mutex);

    /// Makes a default property and puts it under the name; false for an unknown type name. A map that takes no more
    /// entries, which reports that itself, leaves no property behind.
    bool Instantiate_Int(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                         ZrvConstPropertiesPrototype* iPropertyPrototype) KEL_REQUIRES(m_mutex);

    /// Gives a property to the map; a map that has one of that name, or takes no more, leaves it where it is.
    void Insert_Int(NewProperty& ioNew) KEL_REQUIRES(m_mutex);

    PropertyMap m_propertyMap KEL_GUARDED_BY(m_mutex){sizeof(ZrvProperty)}; // each property behind its entry
    KELReference<ZrvConstPropertiesPrototype> m_pPrototype KEL_GUARDED_BY(m_mutex);
    mutable KELMutex m_mutex{0, 1, 0};
};

#endif
