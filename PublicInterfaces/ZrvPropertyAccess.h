#ifndef ZrvPropertyAccess_H
#define ZrvPropertyAccess_H

#include "KELListValKELUnicodeString.h"
#include "KELReference.h"
#include "KELUnicodeString.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvListIterator.h"
#include "ZrvProperties.h"
#include "ZrvPropertiesPrototype.h"
#include "ZrvPropertyCast.h"
#include "ZrvPropertyPrint.h"
#include "ZrvPropertyType.h"
#include "ZrvPropertyTypeConv.h"
#include "ZrvPropertyValue.h"
#include "ZrvRC.h"

#include <initializer_list>
#include <type_traits>
#include <utility>

/// \file
/// What callers do with property sets every day, in one call each: declare, add, publish, read, visit, cast
/// (`ZrvPropertyCast.h`), loop over lists (`ZrvListIterator.h`) and print (`ZrvPropertyPrint.h`).
///
/// All of it is inline and made of the exported interface.
///
/// \code
/// const KELUnicodeString kWidth("width"); // kept: making a name copies and hashes its text
///
/// ZrvProperties set;
/// ZrvRC rc = ZrvPublishProperty(set, kWidth, KELUINT32(1920));
/// if (rc.IsError()) {
///     std::cerr << rc << '\n';
/// }
/// const auto width = ZrvReadProperty<KELUINT32>(set, kWidth, 640);
/// std::cout << width << '\n' << set;
/// \endcode
///
/// Names are taken by reference, and nothing allocates where the library does not, but for printing and for failures,
/// which compose a text. Whatever allocates throws std::bad_alloc.
///
/// The functions that take a set may be called by any number of threads at once, as its own operations may. As with
/// those, the set is locked for each operation that a function makes of it, not from its first to its last, and a value
/// is read outside the lock: whoever reads a value excludes threads that set the same property.

/// A copy of a property's value; the default when the set does not hold the name as a T.
///
/// An object comes in a `KELReference`, which owns a reference on it. An empty name is also a failed check.
/// \code
/// const auto width = ZrvReadProperty<KELUINT32>(set, kWidth);                      // 0 when missing
/// const auto title = ZrvReadProperty<KELUnicodeString>(set, kTitle, "untitled");
/// const KELReference<KELSysTSBaseUnknown> stream = ZrvReadProperty<KELSysTSBaseUnknown*>(set, kStream);
/// \endcode
/// \tparam T the type to read, one of `ZRV_PROPERTY_TYPES`; it is not deduced from the default, whose type may differ
template <class T>
typename ZrvPropertyReader<T>::Result
ZrvReadProperty(const ZrvProperties& iSet, const KELUnicodeString& iPropertyName,
                const typename ZrvPropertyReader<T>::Result& iDefault = typename ZrvPropertyReader<T>::Result())
{
    const ZrvPropertyValue<T>* value = ZrvPropertyCast<T>(iSet.GetProperty(iPropertyName));
    return value ? ZrvPropertyReader<T>::Read(*value) : iDefault;
}

/// Calls iVisitor(name, value) with each property of the set, in no particular order. Linear.
///
/// The visitor may use and change the set: properties that are added meanwhile are not visited, and those that have
/// gone are left out. What it throws ends the visit.
/// \code
/// ZrvVisitProperties(set, [](const KELUnicodeString& iName, const ZrvPropertyValueBase& iValue) {
///     std::cout << iName << '=' << iValue << '\n';
/// });
/// \endcode
template <class Visitor>
void ZrvVisitProperties(const ZrvProperties& iSet, Visitor&& iVisitor)
{
    KELListValKELUnicodeString names;
    iSet.GetListProperties(names);
    for (const KELUnicodeString& name : names) {
        if (const ZrvPropertyValueBase* value = iSet.GetProperty(name)) {
            iVisitor(name, *value);
        }
    }
}

/// What the functions of this header are made of; nothing that a caller needs.
namespace ZrvPropertyAccess {

inline KELReference<ZrvConstPropertiesPrototype> PrototypeOf(const ZrvProperties& iSet)
{
    ZrvConstPropertiesPrototype* prototype = nullptr;
    const ZrvRC rc = iSet.GetPrototype(prototype);
    static_cast<void>(rc); // an error leaves null, as a free set does
    return KELReference<ZrvConstPropertiesPrototype>::Adopt(prototype);
}

/// The code of iRC and its trace after one that names the property.
inline ZrvRC Explain(const ZrvRC& iRC, const KELUnicodeString& iPropertyName, const KELUnicodeString& iReason)
{
    ZrvRC result(ZrvGetRC(iRC), KELUnicodeString(iPropertyName).Append(": ").Append(iReason));
    return result.Add(iRC);
}

inline KELUnicodeString Mismatch(const char* iVerb, const KELUnicodeString& iType, const KELUnicodeString& iGivenType)
{
    KELUnicodeString text(iVerb);
    text.Append(" a ").Append(iType);
    if (iGivenType == iType) {
        return text.Append(", and was given a value that only names that type");
    }
    return text.Append(", not a ").Append(iGivenType);
}

/// Adds a property that the set lacks, provided that it is declared for values of that type.
inline ZrvRC AddFor(ZrvProperties& ioSet, const KELUnicodeString& iPropertyName, const KELUnicodeString& iType)
{
    const auto prototype = PrototypeOf(ioSet);
    if (!prototype) {
        ZrvRC rc = ioSet.AddProperty(iPropertyName, iType, nullptr);
        return rc.IsError() ? Explain(rc, iPropertyName, "cannot be added") : rc;
    }
    const KELUnicodeString declared = prototype->GetPropertyType(iPropertyName);
    if (declared.GetLengthInChar() == 0) {
        return Explain(ZrvRC::zrvEC_Error, iPropertyName, "is not declared by the set's prototype");
    }
    if (declared != iType) {
        return Explain(ZrvRC::zrvEC_Error, iPropertyName, Mismatch("is declared as", declared, iType));
    }
    ZrvRC rc = ioSet.AddProperty(iPropertyName);
    return rc.IsError() ? Explain(rc, iPropertyName, "cannot be added") : rc;
}

/// What `ZrvPublishProperty` does with a property that could not be set at once. Apart, so that the usual case stays
/// small where it is inlined.
inline ZrvRC PublishSlowly(ZrvRC iFailure, ZrvProperties& ioSet, const KELUnicodeString& iPropertyName,
                           const ZrvPropertyValueBase& iValue)
{
    if (iPropertyName.GetLengthInChar() == 0) {
        return iFailure.AddTrace("a property needs a name");
    }
    if (iValue.GetType().GetLengthInChar() == 0) {
        return Explain(iFailure, iPropertyName, "was given a value of no type");
    }
    if (ioSet.HasProperty(iPropertyName) == 0) {
        ZrvRC rc = AddFor(ioSet, iPropertyName, iValue.GetType());
        if (rc.IsError()) {
            return rc;
        }
        iFailure = ioSet.SetProperty(iPropertyName, iValue);
        if (!iFailure.IsError()) {
            return iFailure;
        }
    }
    return Explain(iFailure, iPropertyName, Mismatch("holds", ioSet.GetPropertyType(iPropertyName), iValue.GetType()));
}

} // namespace ZrvPropertyAccess

/// Sets a property, and adds it first when the set lacks it: a bound set adds what its prototype declares, a free set
/// anything, with the type of the value.
///
/// A failure changes no value, and its trace says which property it was, what it holds and what was given. A set that
/// holds the name with another type also reports a failed check, and so does an empty name.
/// \code
/// ZrvRC rc = ZrvPublishProperty(set, kWidth, 0.5F);
/// std::cerr << rc << '\n'; // zrvEC_Error: width: holds a KELUINT32, not a float
///
/// rc = ZrvPublishProperty<KELUINT32>(set, kWidth, 1920); // where the number alone would be a KELINT32
/// rc = ZrvPublishProperty(set, kTitle, "Clip");
/// rc = ZrvPublishProperty<KELSysTSBaseUnknown*>(set, kStream, stream); // the set takes a reference of its own
/// \endcode
/// @{
inline ZrvRC ZrvPublishProperty(ZrvProperties& ioSet, const KELUnicodeString& iPropertyName,
                                const ZrvPropertyValueBase& iValue)
{
    ZrvRC rc = ioSet.SetProperty(iPropertyName, iValue);
    if (rc.IsError()) {
        rc = ZrvPropertyAccess::PublishSlowly(rc, ioSet, iPropertyName, iValue);
    }
    return rc;
}

template <class T, class = std::enable_if_t<!std::is_base_of_v<ZrvPropertyValueBase, T>>>
ZrvRC ZrvPublishProperty(ZrvProperties& ioSet, const KELUnicodeString& iPropertyName, T iValue)
{
    const ZrvPropertyValue<T> value(std::move(iValue));
    return ZrvPublishProperty(ioSet, iPropertyName, static_cast<const ZrvPropertyValueBase&>(value));
}

inline ZrvRC ZrvPublishProperty(ZrvProperties& ioSet, const KELUnicodeString& iPropertyName, const char* iText)
{
    return ZrvPublishProperty(ioSet, iPropertyName, KELUnicodeString(iText));
}
/// @}

/// One declaration: a name, a type and, for a structured property, its nested prototype, which is borrowed.
struct ZrvPropertyDeclaration {
    KELUnicodeString name;                            ///< The property's name.
    ZrvPropertyType type;                             ///< The type of its value.
    ZrvConstPropertiesPrototype* prototype = nullptr; ///< The nested prototype, or null.
};

/// Declares properties. Linear.
///
/// \return an error when something is refused, such as a name that is declared with another type: the trace has a line
/// for each such property, all others are declared
/// \code
/// const auto prototype = KELReference<ZrvPrototypeImpl>::Adopt(new ZrvPrototypeImpl);
/// ZrvRC rc = ZrvDeclareProperties(*prototype.Get(), {{kWidth, zrvPT_UINT32}, {kTitle, zrvPT_UnicodeString}});
/// \endcode
inline ZrvRC ZrvDeclareProperties(ZrvPropertiesPrototype& ioPrototype,
                                  std::initializer_list<ZrvPropertyDeclaration> iDeclarations)
{
    ZrvRC result;
    for (const ZrvPropertyDeclaration& declaration : iDeclarations) {
        ZrvRC rc = ioPrototype.AddProperty(declaration.name, declaration.type, declaration.prototype);
        if (rc.IsError()) {
            KELUnicodeString reason("cannot be declared as a ");
            reason.Append(ZrvPropertyTypeConv::GetAsUnicode(declaration.type));
            result.Add(ZrvPropertyAccess::Explain(rc, declaration.name, reason));
        }
    }
    return result;
}

/// Adds everything that the set's prototype declares, with the default values of its types. What the set holds stays as
/// it is. Linear.
///
/// \return an error for a free set, and when something could not be added: the trace has a line for each such property,
/// all others have been added
/// \code
/// ZrvProperties set(prototype);
/// ZrvRC rc = ZrvAddDeclaredProperties(set);
/// \endcode
inline ZrvRC ZrvAddDeclaredProperties(ZrvProperties& ioSet)
{
    const auto prototype = ZrvPropertyAccess::PrototypeOf(ioSet);
    if (!prototype) {
        return ZrvRC(ZrvRC::zrvEC_Error, "the set has no prototype");
    }
    KELListValKELUnicodeString names;
    ZrvRC result = prototype->GetListProperties(names);
    for (const KELUnicodeString& name : names) {
        ZrvRC rc = ioSet.AddProperty(name);
        if (rc.IsError()) {
            KELUnicodeString reason("cannot be added as a ");
            result.Add(ZrvPropertyAccess::Explain(rc, name, reason.Append(prototype->GetPropertyType(name))));
        }
    }
    return result;
}

#endif
