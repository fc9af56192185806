#ifndef NineTypes_H
#define NineTypes_H

#include "CountedObject.h"
#include "ZrvPropertyValue.h"

#include <type_traits>

/// The nine types as a list of types, such as a typed test's parameters.
template <template <class...> class List>
using NineTypes = List<unsigned char*, KELUnicodeString, KELBoolean, KELINT32, KELUINT32, float, double,
                       KELRawCollfloat, KELSysTSBaseUnknown*>;

/// Two different values of a type, neither of them its default; the objects among them live as long as the samples.
template <class T>
struct Samples {
    T first = static_cast<T>(41);
    T second = static_cast<T>(42);
};

template <>
struct Samples<unsigned char*> {
    unsigned char bytes[2] = {};
    unsigned char* first = &bytes[0];
    unsigned char* second = &bytes[1];
};

template <>
struct Samples<KELUnicodeString> {
    KELUnicodeString first = "first";
    KELUnicodeString second = "second";
};

template <>
struct Samples<KELRawCollfloat> {
    Samples()
    {
        first.Append(1.5F);
        second.Size(4, 2.5F);
    }
    KELRawCollfloat first;
    KELRawCollfloat second;
};

template <>
struct Samples<KELSysTSBaseUnknown*> {
    CountedObject objects[2];
    KELSysTSBaseUnknown* first = &objects[0];
    KELSysTSBaseUnknown* second = &objects[1];
};

/// Reads a value that is known to hold a T; gives an object's reference back at once.
template <class T>
T Read(const ZrvPropertyValueBase* iValue)
{
    T value = static_cast<const ZrvPropertyValue<T>*>(iValue)->GetValue();
    if constexpr (std::is_same_v<T, KELSysTSBaseUnknown*>) {
        if (value) {
            value->Release();
        }
    }
    return value;
}

#endif
