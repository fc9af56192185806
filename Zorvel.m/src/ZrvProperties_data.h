#ifndef ZrvProperties_data_H
#define ZrvProperties_data_H

#include "KELInline.h"
#include "KELListValKELUnicodeString.h"
#include "KELMutex.h"
#include "KELReference.h"
#include "KELThreadSafety.h"
#include "KELUnicodeString.h"
#include "ZrvCheck.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvGivenUp.h"
#include "ZrvProperties.h"
#include "ZrvProperty.h"
#include "ZrvPropertyValueBase.h"
#include "ZrvRC.h"

class ZrvPropertyDefinition;

/// The data behind one property set: the properties by name, the prototype and the lock.
///
/// Owns the properties; an entry of the map may be without one, and its name is then held but not instantiated. The
/// operations answer as those of `ZrvProperties` do, which checks the arguments before them. Thread-safe: each
/// operation holds the lock for its whole run; an assignment and `SetFromProperties` hold the locks of both sets, a
/// copy constructor the source's. Those that end in `_Int` run with the lock held.
///
/// What an operation asks of the host (prototypes, values, counts of objects, the handler of failed checks) may change
/// this set meanwhile. So an operation asks first and looks up afterwards: no pointer into the map is used after a
/// call to the host. What leaves the set goes after the lock, in a `ZrvGivenUp` or a `ZrvPropertiesContents`.
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
    const ZrvPropertyValueBase* GetProperty(const KELUnicodeString& iPropertyName) const;
    KELUnicodeString GetPropertyType(const KELUnicodeString& iPropertyName) const;
    ZrvProperties* GetPropertyParameters(const KELUnicodeString& iPropertyName) const;
    ZrvConstPropertiesPrototype* GetPrototype() const;
    ZrvRC SetProperty(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue);

    /// Does what `SetProperty` does, if the set holds the name with a value of exactly that class; else
    /// `zrvEC_NothingDone`. The short cut of nearly all calls: such a value passes every check on the long way.
    ZrvRC::ErrorCode AssignIfSameClass(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue);

    /// \param iOfNothing what it returns when there is nothing to copy: an error where the source has listed names,
    /// which are then not there
    ZrvRC SetFromProperties(const ZrvPropertiesData& iSource, ZrvRC::ErrorCode iOfNothing = ZrvRC::zrvEC_Error);

private:
    using PropertyMap = ZrvPropertiesContents::Map;
    using PropertyPool = ZrvPropertiesContents::Pool;

    static constexpr ZrvCheck kCheck{"ZrvProperties_data"}; // the file that reports name, for both sources

    ZrvRC AddProperty_Int(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                          ZrvProperty::Prototype& ioPropertyPrototype, ZrvGivenUp& ioGivenUp) KEL_REQUIRES(m_mutex);
    ZrvRC AddProperty_Int(const KELUnicodeString& iPropertyName, ZrvGivenUp& ioGivenUp) KEL_REQUIRES(m_mutex);
    ZrvRC AddAsAnswered_Int(const KELUnicodeString& iPropertyName, ZrvGivenUp& ioGivenUp) KEL_REQUIRES(m_mutex);
    ZrvProperties::PropertyAvailability GetAvailability_Int(const KELUnicodeString& iPropertyName,
                                                            ZrvGivenUp& ioGivenUp) const KEL_REQUIRES(m_mutex);

    /// The same, and reports a name that is not available.
    ZrvProperties::PropertyAvailability CheckAvailability_Int(const KELUnicodeString& iPropertyName,
                                                              ZrvGivenUp& ioGivenUp) const KEL_REQUIRES(m_mutex);
    KELUnicodeString GetPropertyType_Int(const KELUnicodeString& iPropertyName) const KEL_REQUIRES(m_mutex);
    ZrvRC SetProperty_Int(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue,
                          ZrvValueHolder& oGivenUp) KEL_REQUIRES(m_mutex);

    /// Exchanges a property's value with one of the same class; an error for a name that is not held and, after a
    /// report, for any other class.
    ZrvRC SwapValue_Int(const KELUnicodeString& iPropertyName, ZrvValueHolder& ioValue) KEL_REQUIRES(m_mutex);

    ZrvRC SetFromProperties_Int(const ZrvPropertiesData& iSource, ZrvRC::ErrorCode iOfNothing, ZrvGivenUp& ioGivenUp)
        KEL_REQUIRES(m_mutex, iSource.m_mutex);
    ZrvRC CheckCopy_Int(const PropertyMap::Entry& iSource, ZrvGivenUp& ioGivenUp) const KEL_REQUIRES(m_mutex);
    ZrvRC CopyProperty_Int(const PropertyMap::Entry& iSource, ZrvGivenUp& ioGivenUp) KEL_REQUIRES(m_mutex);
    ZrvRC AddForCopy_Int(const KELUnicodeString& iPropertyName, const ZrvValueHolder& iValue, ZrvGivenUp& ioGivenUp)
        KEL_REQUIRES(m_mutex);

    /// Copies of all properties: of all at once, where the set is whole, or one by one. An assigned one has the nested
    /// prototype that is declared, and no parameters.
    /// @{
    void CopyAllTo_Int(PropertyMap& oMap, PropertyPool& oPool, bool iIsAssigned) const KEL_REQUIRES(m_mutex);
    void CopyOneByOneTo_Int(PropertyMap& oMap, PropertyPool& oPool, bool iIsAssigned) const KEL_REQUIRES(m_mutex);
    /// @}

    /// Adds what is counted to a copy of the entry at a position; and the property there, looked up anew each time
    /// since counting may call the host: null when it is another one by now.
    /// @{
    void CopyCounted_Int(int iIndex, const PropertyMap::Entry& iCopy, bool iIsAssigned) const KEL_REQUIRES(m_mutex);
    const ZrvProperty* FindSource_Int(int iIndex, const PropertyMap::Entry& iCopy) const KEL_REQUIRES(m_mutex);
    /// @}

    /// Whether each entry has a name and a value of a class in the table of classes, so that all can be copied at once;
    /// and whether, then, each has the type that `Declared_Int` gives, so that an assignment may do so.
    /// @{
    bool IsWhole_Int() const KEL_REQUIRES(m_mutex);
    bool IsAsDeclared_Int() const KEL_REQUIRES(m_mutex);
    /// @}

    /// Move everything out of the set, which is then free and empty, or into such a set. Call no host.
    /// @{
    void MoveOut_Int(ZrvPropertiesContents& oGivenUp) KEL_REQUIRES(m_mutex);
    void MoveIn_Int(ZrvPropertiesContents& ioContents) KEL_REQUIRES(m_mutex);
    /// @}

    /// The property of that name, or null.
    ZrvProperty* Find_Int(const KELUnicodeString& iPropertyName) const KEL_REQUIRES(m_mutex);

    /// The property with the name of another set's entry, if it has the same class of value. iIndex guesses where;
    /// when it is not there, ioIsInPlace becomes false.
    KEL_ALWAYS_INLINE ZrvProperty* FindLike_Int(const PropertyMap::Entry& iSource, int iIndex, bool& ioIsInPlace) const
        KEL_REQUIRES(m_mutex);

    /// What the prototype declares under a name, if it is of exactly the library's class: this needs no call to the
    /// host. Null says nothing.
    const ZrvPropertyDefinition* Declared_Int(const KELUnicodeString& iPropertyName) const KEL_REQUIRES(m_mutex);

    /// Whether the prototype allows the name; a free set allows any. May call the host.
    bool IsDeclared_Int(const KELUnicodeString& iPropertyName, ZrvGivenUp& ioGivenUp) const KEL_REQUIRES(m_mutex);

    /// Makes a default property and puts it under a name, unless there is one; false for no class and none.
    /// Calls no host. A map that takes no more entries, which reports that itself, leaves no property behind.
    /// \param ioPropertyPrototype is given to the property; stays as it is when there is no new one
    bool Instantiate_Int(const KELUnicodeString& iPropertyName, const ZrvValueClass* iClass,
                         ZrvProperty::Prototype& ioPropertyPrototype) KEL_REQUIRES(m_mutex);

    PropertyPool m_propertyPool KEL_GUARDED_BY(m_mutex); // where the properties lie, and stay
    PropertyMap m_propertyMap KEL_GUARDED_BY(m_mutex);
    KELReference<ZrvConstPropertiesPrototype> m_pPrototype KEL_GUARDED_BY(m_mutex);
    mutable KELMutex m_mutex{0, 1, 0};
};

#endif
