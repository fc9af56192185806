#ifndef ZrvProperty_H
#define ZrvProperty_H

#include "KELReference.h"
#include "KELUnicodeString.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvProperties.h"
#include "ZrvPropertyValueBase.h"
#include "ZrvRC.h"

#include <cstddef>
#include <memory>
#include <new>

struct ZrvValueMaker;

/// Destroys a value: one that a maker placed into its property's room, or one with memory of its own.
struct ZrvValueDeleter {
    void operator()(ZrvPropertyValueBase* iValue) const noexcept;

    const ZrvValueMaker* placedBy = nullptr;
};

/// One property of a set: its value, its nested set of parameters and a reference on its nested prototype.
///
/// The value is made once and then assigned in place, so its type and its address last as long as the property. A
/// default value lies inside the property and the property, if its maker offers the room, inside a larger allocation;
/// `delete` does what is right for each. Not changed by one thread while another uses it.
class ZrvProperty {
public:
    /// Bytes for the largest of the nine values.
    static constexpr std::size_t kValueRoom = 2 * sizeof(void*);

    /// A property without a value; takes a reference on the prototype, which may be null.
    explicit ZrvProperty(ZrvConstPropertiesPrototype* iPropertyPrototype);
    ZrvProperty(const ZrvProperty&) = delete;
    ZrvProperty& operator=(const ZrvProperty&) = delete;
    virtual ~ZrvProperty();

    /// The value's type name; empty, after a report, without a value.
    virtual KELUnicodeString GetType() const;

    /// A new property with copies of the value and the parameters, which the caller deletes; null, after a report,
    /// without a value.
    virtual ZrvProperty* Duplicate() const;

    /// Assigns a value of the same type; an error, after a report, for any other. A property without a value takes a
    /// duplicate, whatever its type.
    ZrvRC SetValue(const ZrvPropertyValueBase& iValue);

    /// Assigns a value of exactly the class that the property made for itself, which needs no question about types.
    /// Whatever is not recognised as such changes nothing and gives false: it is for `SetValue`, after all checks.
    bool AssignPlain(const ZrvPropertyValueBase& iValue);

    /// Whether both properties made their values themselves, of the same type. False says nothing.
    bool IsPlainLike(const ZrvProperty& iOther) const { return Maker() && Maker() == iOther.Maker(); }

    /// The value, owned by the property; null without one.
    const ZrvPropertyValueBase* GetValue() const { return m_value.get(); }

    /// Stores a copy of the nested set, which the caller deletes, or null when there is none. *opProperties must be
    /// null.
    ZrvRC GetParameters(ZrvProperties** opProperties) const;

    /// Makes a property with the default value of a type.
    /// \param oProperty must be null; receives the property, which the caller deletes
    /// \return an error for a type name that is none of the nine
    static ZrvRC CreateProperty(const KELUnicodeString& iPropertyType, ZrvProperty*& oProperty,
                                ZrvConstPropertiesPrototype* iPropertyPrototype);

    /// The same, and the same as `Duplicate`, in sizeof(ZrvProperty) bytes that the caller owns and keeps until the
    /// property is deleted. Null for an unknown type name and for a property without a value.
    /// @{
    static std::unique_ptr<ZrvProperty> CreateIn(void* iRoom, const KELUnicodeString& iPropertyType,
                                                 ZrvConstPropertiesPrototype* iPropertyPrototype);
    std::unique_ptr<ZrvProperty> DuplicateIn(void* iRoom) const;
    /// @}

    /// Destroys a property, and frees its memory unless it lies in somebody else's.
    static void operator delete(ZrvProperty* iProperty, std::destroying_delete_t);

private:
    static std::unique_ptr<ZrvProperty> MakeIn(void* iRoom, ZrvConstPropertiesPrototype* iPropertyPrototype);
    void CopyValue(const ZrvProperty& iOther);

    /// What placed the value into this property; null for a value with memory of its own and without one.
    const ZrvValueMaker* Maker() const { return m_value ? m_value.get_deleter().placedBy : nullptr; }

    std::unique_ptr<ZrvPropertyValueBase, ZrvValueDeleter> m_value;
    std::unique_ptr<ZrvProperties> m_pParameters;
    KELReference<ZrvConstPropertiesPrototype> m_pPropertyPrototype;
    bool m_isInRoom = false;
    alignas(void*) std::byte m_valueRoom[kValueRoom];
};

#endif
