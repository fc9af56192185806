#ifndef ZrvConstPropertiesPrototype_H
#define ZrvConstPropertiesPrototype_H

#include "KELListValKELUnicodeString.h"
#include "KELSysTSBaseUnknown.h"
#include "KELUnicodeString.h"
#include "ZrvExport.h"
#include "ZrvPropertyType.h"
#include "ZrvRC.h"

/// What a reader sees of a prototype: the names that a property set may hold, each with a value type and, for a
/// structured property, a nested prototype.
///
/// A counted object, which starts with one reference for its creator. Whoever keeps a prototype takes a reference of
/// its own; a prototype passed as an argument is only borrowed. Looking a name up takes constant time on average.
/// Thread-compatible: a prototype does not lock.
class ZRV_API ZrvConstPropertiesPrototype : public KELSysTSBaseUnknown {
public:
    ZrvConstPropertiesPrototype& operator=(const ZrvConstPropertiesPrototype&) = delete;
    ~ZrvConstPropertiesPrototype() override;

    /// Adds every declared name to the list, in no particular order, after what it holds; always succeeds. Linear.
    virtual ZrvRC GetListProperties(KELListValKELUnicodeString& ioList) const = 0;

    /// A success when the name is declared, else an error.
    virtual ZrvRC HasProperty(const KELUnicodeString& iPropertyName) const = 0;

    /// The declared type name; empty for a name that is not declared.
    virtual const KELUnicodeString GetPropertyType(const KELUnicodeString& iPropertyName) const = 0;

    /// The declared type; `zrvPT_Undefined` for a name that is not declared and for an unknown type name.
    virtual ZrvPropertyType GetPropertyAsType(const KELUnicodeString& iPropertyName) const = 0;

    /// The nested prototype with a reference added for the caller, who releases it; null when there is none and for a
    /// name that is not declared.
    virtual ZrvConstPropertiesPrototype* GetPropertyPrototype(const KELUnicodeString& iPropertyName) const = 0;

protected:
    ZrvConstPropertiesPrototype();

    /// A new object with one reference of its own; there is nothing to copy.
    ZrvConstPropertiesPrototype(const ZrvConstPropertiesPrototype& iOther);
};

#endif
