#ifndef ZrvProperty_H
#define ZrvProperty_H

#include "KELReference.h"
#include "KELUnicodeString.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvProperties.h"
#include "ZrvPropertyValueBase.h"
#include "ZrvRC.h"
#include "ZrvValueClass.h"

#include <memory>

/// One property of a set: its value, its nested set of parameters and a reference on its nested prototype.
///
/// The value is made once and then assigned in place, so its type and its address last as long as the property.
/// Thread-compatible.
class ZrvProperty {
public:
    using Prototype = KELReference<ZrvConstPropertiesPrototype>;

    /// A property with the default value of a class. Calls no host.
    explicit ZrvProperty(const ZrvValueClass& iClass);

    /// A property with a copy of another's value, but without what is counted: objects, the nested prototype and the
    /// parameters. Calls no host.
    ZrvProperty(const ZrvProperty& iOther);
    ZrvProperty& operator=(const ZrvProperty&) = delete;
    virtual ~ZrvProperty();

    /// The value's type name; empty, after a report, without a value.
    virtual KELUnicodeString GetType() const;

    /// Assigns a value of the same type; an error, after a report, for any other. A property without a value takes a
    /// duplicate, whatever its type.
    ZrvRC SetValue(const ZrvPropertyValueBase& iValue);

    /// Reports what `SetValue` reports for a value of another type.
    static ZrvRC RefuseValue();

    /// The class of the value if it is in the table of classes; else null.
    const ZrvValueClass* ValueClass() const { return m_value.Class(); }

    /// Whether a value is of exactly the same class as this one's. False says nothing.
    /// @{
    bool HasClassOf(const ZrvPropertyValueBase& iValue) const
    {
        return ValueClass() && ValueClass()->IsClassOf(iValue);
    }
    bool HasSameClass(const ZrvProperty& iOther) const { return ValueClass() && ValueClass() == iOther.ValueClass(); }
    /// @}

    /// Assigns a value of the same class, which has no objects. Calls no host.
    void Assign(const ZrvPropertyValueBase& iValue) { ValueClass()->assign(*m_value.get(), iValue); }

    /// Assigns the value of a property of the same class that has no other object. Calls no host.
    void Assign(const ZrvProperty& iOther)
    {
        if (!HasObject()) {
            Assign(*iOther.GetValue());
        }
    }

    /// The object, with a reference. Calls the host.
    KELReference<KELSysTSBaseUnknown> GetObject() const
    {
        return KELReference<KELSysTSBaseUnknown>::Adopt(ObjectValue().GetValue());
    }

    /// Exchanges the object for another. Calls no host.
    void SwapObject(KELReference<KELSysTSBaseUnknown>& ioObject)
    {
        static_cast<ZrvValueClass::ObjectValue&>(*m_value.get()).Swap(ioObject);
    }

    /// Whether the value refers to an object, so that copying it may call the host.
    bool HasObject() const { return ValueClass() && ValueClass()->hasObjects; }

    /// Whether the value refers to an object that a property of the same class does not refer to.
    bool HasOtherObject(const ZrvProperty& iOther) const
    {
        return HasObject() && !ObjectValue().HoldsSame(iOther.ObjectValue());
    }

    /// Whether a copy of the property counts anything, which may call the host.
    bool HasCounted() const { return m_pPropertyPrototype || m_pParameters || HasObject(); }

    /// Exchanges the value with one of the same class. Calls no host.
    void SwapValue(ZrvValueHolder& ioValue) { m_value.Swap(ioValue); }

    /// The value, owned by the property; null without one.
    const ZrvPropertyValueBase* GetValue() const { return m_value.get(); }
    const ZrvValueHolder& Value() const { return m_value; }

    /// The nested prototype, owned by the property; may be null.
    ZrvConstPropertiesPrototype* PeekPrototype() const { return m_pPropertyPrototype.Get(); }

    /// A copy of the nested set of parameters, or null.
    std::unique_ptr<ZrvProperties> CopyParameters() const;

    /// Give a new property its nested prototype and its parameters. Call no host.
    /// @{
    void SetPrototype(Prototype ioPrototype) noexcept { m_pPropertyPrototype = std::move(ioPrototype); }
    void SetParameters(std::unique_ptr<ZrvProperties> ioParameters) noexcept
    {
        m_pParameters = std::move(ioParameters);
    }
    /// @}

    /// Stores a copy of the nested set, which the caller deletes, or null when there is none. *opProperties must be
    /// null.
    ZrvRC GetParameters(ZrvProperties** opProperties) const;

    /// A property by itself, which the caller deletes: without a value, with the default of a type, or a copy with all
    /// that is counted. A set does not use these: its properties lie in its pool.
    /// \param iPropertyPrototype may be null; the property takes a reference
    /// @{
    explicit ZrvProperty(ZrvConstPropertiesPrototype* iPropertyPrototype);

    /// \param oProperty must be null; receives the property
    /// \return an error for an unknown type name
    static ZrvRC CreateProperty(const KELUnicodeString& iPropertyType, ZrvProperty*& oProperty,
                                ZrvConstPropertiesPrototype* iPropertyPrototype);

    /// Null, after a report, without a value.
    virtual ZrvProperty* Duplicate() const;
    /// @}

private:
    const ZrvValueClass::ObjectValue& ObjectValue() const
    {
        return static_cast<const ZrvValueClass::ObjectValue&>(*m_value.get());
    }

    // Last here and first to go: the value and the parameters go before the prototype that describes them.
    Prototype m_pPropertyPrototype;
    std::unique_ptr<ZrvProperties> m_pParameters;
    ZrvValueHolder m_value;
};

#endif
