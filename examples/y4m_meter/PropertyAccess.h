#ifndef PropertyAccess_H
#define PropertyAccess_H

#include "ZrvProperties.h"
#include "ZrvPropertyValue.h"

/// Sets a property, and adds it first if the set lacks it. A failure is added to ioRC with the property's name.
template <class T>
void Publish(ZrvRC& ioRC, ZrvProperties& ioSet, const KELUnicodeString& iName, T iValue)
{
    ZrvRC rc = ioSet.AddProperty(iName);
    if (rc.IsValid()) {
        rc = ioSet.SetProperty(iName, ZrvPropertyValue<T>(std::move(iValue)));
    }
    if (rc.IsError()) {
        ioRC.Add(rc.AddTrace("can not publish ").AddTrace(iName));
    }
}

/// A property's value, with a reference added on an object; T() when the set holds no such property of that type.
template <class T>
T Read(const ZrvProperties& iSet, const KELUnicodeString& iName)
{
    const ZrvPropertyValueBase* value = iSet.GetProperty(iName);
    if (!value || value->GetType() != ZrvPropertyTypeConv::GetAsUnicode(ZrvPropertyValue<T>::kType)) {
        return T();
    }
    return static_cast<const ZrvPropertyValue<T>*>(value)->GetValue();
}

#endif
