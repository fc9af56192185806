#ifndef ZrvPrototypeImpl_H
#define ZrvPrototypeImpl_H

#include "ZrvExport.h"
#include "ZrvPropertiesPrototype.h"

#include <memory>

class ZrvPropertyDefinition;
template <class K, class V>
class KELSYPHashMap;

/// A prototype that callers build: empty at first, with one reference for its creator.
///
/// \code
/// ZrvPrototypeImpl* prototype = new ZrvPrototypeImpl;
/// prototype->AddProperty("width", zrvPT_UINT32, nullptr);
/// ZrvProperties set(prototype);
/// prototype->Release(); // the set keeps its own reference
/// \endcode
///
/// Names are compared exactly. Declaring a property may throw `std::bad_alloc`, and declares nothing then. What a
/// prototype lets go of finds it whole. Chains of nested prototypes of any length go without deep recursion.
/// Thread-compatible; sets lock themselves, but not their prototype.
class ZRV_API ZrvPrototypeImpl : public ZrvPropertiesPrototype {
public:
    ZrvPrototypeImpl();
    ZrvPrototypeImpl(const ZrvPrototypeImpl&) = delete;
    ZrvPrototypeImpl& operator=(const ZrvPrototypeImpl&) = delete;
    ~ZrvPrototypeImpl() override;

    ZrvRC GetListProperties(KELListValKELUnicodeString& ioList) const override;
    ZrvRC HasProperty(const KELUnicodeString& iPropertyName) const override;
    const KELUnicodeString GetPropertyType(const KELUnicodeString& iPropertyName) const override;
    ZrvPropertyType GetPropertyAsType(const KELUnicodeString& iPropertyName) const override;
    ZrvConstPropertiesPrototype* GetPropertyPrototype(const KELUnicodeString& iPropertyName) const override;

    ZrvRC AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                      ZrvConstPropertiesPrototype* iPropertyPrototype) override;
    ZrvRC AddProperty(const KELUnicodeString& iPropertyName, ZrvPropertyType iPropertyType,
                      ZrvConstPropertiesPrototype* iPropertyPrototype) override;
    ZrvRC RemoveProperty(const KELUnicodeString& iPropertyName) override;

    /// Stores the nested prototype of a declared property in oPropertyPrototype, with a reference added for the caller,
    /// or null when it has none. What oPropertyPrototype held is overwritten and not released. A name that is not
    /// declared is an error with an empty trace and leaves it as it was.
    virtual ZrvRC GetPropertyPrototype(const KELUnicodeString& iPropertyName,
                                       ZrvConstPropertiesPrototype*& oPropertyPrototype);

    /// Whether the prototype can hold declarations: a success from construction to destruction.
    ZrvRC IsValid();

protected:
    /// 1 for a name (a type name) of at least one character, else 0.
    /// @{
    int CheckPropertyNameValidity(const KELUnicodeString& iPropertyName) const;
    int CheckPropertyTypeValidity(const KELUnicodeString& iPropertyType) const;
    /// @}

    /// The definition under a name, owned by the prototype and valid until it is removed; null when there is none.
    const ZrvPropertyDefinition* GetPropertyDefinition(const KELUnicodeString& iPropertyName) const;

private:
    friend class ZrvPropertiesData; // reads a declaration at once where others ask three questions

    // What a prototype of exactly this class declares under a name; null for a name that it does not declare, and for
    // any other prototype, which has answers of its own.
    static const ZrvPropertyDefinition* Declared(const ZrvConstPropertiesPrototype& iPrototype,
                                                 const KELUnicodeString& iPropertyName);

    std::unique_ptr<KELSYPHashMap<KELUnicodeString, ZrvPropertyDefinition>> m_properties;
};

#endif
