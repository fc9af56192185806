#ifndef ZrvProperties_H
#define ZrvProperties_H

#include "KELListValKELUnicodeString.h"
#include "KELSysTSListOfUnicodeString.h"
#include "KELUnicodeString.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvExport.h"
#include "ZrvPropertyValueBase.h"
#include "ZrvRC.h"

#include <memory>

class ZrvPropertiesData;

/// A set of properties: values by name.
///
/// A set that is bound to a prototype holds the names that the prototype declares, with the types that it declares; a
/// free set holds any name, with the type that its caller gives. A property exists once it has been added, with its
/// type's default value, and from then on as long as the set; values of its own type can be assigned to it.
///
/// \code
/// ZrvProperties set(prototype);                             // prototype declares "width" as KELUINT32
/// set.AddProperty("width");
/// ZrvRC rc = set.SetProperty("width", ZrvPropertyValue<KELUINT32>(1920));
/// rc = set.SetProperty("width", ZrvPropertyValue<float>(1.0F)); // an error: the value stays 1920
/// \endcode
///
/// Thread-safe: each operation locks the set while it reads or changes it (`SetProperty` may lock it twice). Assignment
/// and `SetFromProperties` hold the locks of both sets, taken in an order that all share; copy construction holds the
/// source's. Destruction excludes every other use. A value that `GetProperty` returned is read outside the lock; its
/// reader excludes writers by other means. After `fork` the child uses no set that another thread may have held at that
/// moment.
///
/// Every operation reports a broken precondition, such as an empty name, as a failed check. Return codes carry an empty
/// trace where nothing else is said; traces are part of the interface and stay as they are. An operation throws
/// `std::bad_alloc` when memory runs out. The set is then as it was, but for `SetFromProperties`, which may keep what
/// it had copied, and an assignment, which leaves the set as it was or with the new prototype and part of the copies.
///
/// Names are compared exactly and may contain bytes 0. Looking a name up takes constant time on average, also for names
/// that were chosen to have one hash.
///
/// Operations call code of the host's, on the calling thread:
///
/// | called | when | locks that the thread holds |
/// |---|---|---|
/// | the handler of failed checks | a precondition is broken | those of the operation that reports |
/// | a prototype of the host's class | something is added or copied; `GetAvailability` | the set's; in a copy both |
/// | a value of the host's class | it is set | none, then the set's |
/// | `AddRef` of objects and prototypes | a reference is taken | the set's or none; in a copy both |
/// | `Release` and the destructor behind it | a reference has been given up | none of the operation's |
/// | overrides of a set of the host's class | `SetFromProperties` lists what it copies | none |
///
/// Each may use, fill and assign any set. An operation looks up anew what it has asked about, and an object that goes
/// finds the set as the operation left it. Prototypes, values and overrides may throw; the handler, `AddRef` and
/// `Release` may not. None may destroy the set, leave by `longjmp`, or wait for a thread that uses the set. A handler
/// takes no mutex under which other threads use the set, and guards itself when its own calls can fail. A call-back
/// that uses another shared set takes that set's lock while it holds this one's: order them as you order mutexes.
class ZRV_API ZrvProperties {
public:
    /// How a set answers for a name.
    enum PropertyAvailability : KELINT32 {
        zrvPA_Unavailable = 0, ///< It cannot be added: empty, or not declared by the prototype.
        zrvPA_Available = 1,   ///< It can be added.
        zrvPA_Instantiated = 2 ///< The set holds it.
    };

    /// An empty set, bound to iPrototype, which it keeps with a reference of its own, or free when that is null.
    ZrvProperties(ZrvConstPropertiesPrototype* iPrototype = nullptr); // NOLINT(google-explicit-constructor)

    /// A set of its own with copies of all of the other's properties, and with the same prototype. Linear.
    ZrvProperties(const ZrvProperties& iOther);

    virtual ~ZrvProperties();

    /// Makes this set follow the other's prototype and hold copies of the other's properties, and nothing else. Stops
    /// at the first property that cannot be copied, and reports the failed check that adding or setting it would
    /// report. Linear.
    ZrvProperties& operator=(const ZrvProperties& iProperties);

    /// Stores the prototype in ioPrototype, which must be null, with a reference added for the caller; null for a free
    /// set. An error when ioPrototype is not null, which then stays as it is.
    virtual ZrvRC GetPrototype(ZrvConstPropertiesPrototype*& ioPrototype) const;

    /// 1 when the set holds a property of that name, else 0; an empty name is no failed check here.
    virtual int HasProperty(const KELUnicodeString& iPropertyName) const;

    /// Adds the names of all properties to the list, in no particular order, after what it holds; returns how many. In
    /// a list of KELSysTSUnicodeString a name ends in front of its first byte 0. Linear.
    /// @{
    virtual int GetListProperties(KELSysTSListOfUnicodeString& ioList) const;
    virtual int GetListProperties(KELListValKELUnicodeString& ioList) const;
    /// @}

    /// Whether the set holds a name, or could. `zrvPA_Unavailable` for an empty name, after a report.
    virtual PropertyAvailability GetAvailability(const KELUnicodeString& iPropertyName) const;

    /// The type name of a property that the set holds; empty for any other name.
    virtual KELUnicodeString GetPropertyType(const KELUnicodeString& iPropertyName) const;

    /// Adds a property to a free set. Adding one that the set holds succeeds and changes nothing, its type included.
    /// \param iPropertyType a type name of `ZRV_PROPERTY_TYPES`
    /// \param iPropertyPrototype the nested prototype or null; borrowed, and kept with a reference of its own
    /// \return an error for an empty name or type name; for a bound set, with the trace "AddProperty: Wrong call,
    /// should not have prototype."; for an unknown type name, with the trace "AddProperty: property not instanciated"
    virtual ZrvRC AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                              ZrvConstPropertiesPrototype* iPropertyPrototype);

    /// Adds a declared property to a bound set. Adding one that the set holds succeeds and changes nothing.
    /// \return an error for a free set, an empty name, a name that is not declared or one declared with an unknown type
    virtual ZrvRC AddProperty(const KELUnicodeString& iPropertyName);

    /// A copy of the nested set of parameters of a property, which the caller deletes; null when it has none and,
    /// after a report, for a name that the set does not hold. Linear in the parameters.
    virtual ZrvProperties* GetPropertyParameters(const KELUnicodeString& iPropertyName) const;

    /// Copies every property of the other set into this one: adds those that it lacks, assigns those that it holds, and
    /// keeps its others. All names and the types of held properties are checked before anything changes. Linear.
    /// \return an error for what this set cannot take, with the trace of the addition that failed; `zrvEC_NothingDone`
    /// for the set itself; a success for a set without properties
    virtual ZrvRC SetFromProperties(const ZrvProperties& iPropertiesValues);

    /// The value of a property, owned by the set and valid until the set is assigned to or destroyed; setting the
    /// property changes it in place. Null for a name that the set does not hold.
    const ZrvPropertyValueBase* GetProperty(const KELUnicodeString& iPropertyName) const;

    /// Assigns a value to a property that the set holds.
    /// \return an error for a name that it does not hold and, after a report, for a value of another type; the property
    /// then keeps its value
    ZrvRC SetProperty(const KELUnicodeString& iPropertyName, const ZrvPropertyValueBase& iValue);

private:
    std::unique_ptr<ZrvPropertiesData> m_PropertiesData;
};

#endif
