#ifndef ZrvPropertiesPrototype_H
#define ZrvPropertiesPrototype_H

#include "ZrvConstPropertiesPrototype.h"
#include "ZrvExport.h"

/// What a builder sees of a prototype: the operations that declare properties and take declarations back.
class ZrvPropertiesPrototype : public ZrvConstPropertiesPrototype {
public:
    ZrvPropertiesPrototype(const ZrvPropertiesPrototype&) = delete;
    ZrvPropertiesPrototype& operator=(const ZrvPropertiesPrototype&) = delete;
    ~ZrvPropertiesPrototype() override = default;

    /// Declares a property.
    ///
    /// Declaring it again succeeds with the same type, and may then add the nested prototype that it had not; another
    /// type or a second nested prototype is refused and changes nothing.
    /// \param iPropertyType a type name; any text but the empty one
    /// \param iPropertyPrototype the nested prototype or null; borrowed, and kept with a reference of its own
    /// \return an error with an empty trace for a refusal, an empty name or an empty type name
    virtual ZrvRC AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                              ZrvConstPropertiesPrototype* iPropertyPrototype) = 0;

    /// The same by enumerator; one without a type name is an error.
    virtual ZrvRC AddProperty(const KELUnicodeString& iPropertyName, ZrvPropertyType iPropertyType,
                              ZrvConstPropertiesPrototype* iPropertyPrototype) = 0;

    /// Takes a declaration back; an error with an empty trace for a name that is empty or not declared.
    virtual ZrvRC RemoveProperty(const KELUnicodeString& iPropertyName) = 0;

protected:
    ZrvPropertiesPrototype() = default;
};

#endif
