#ifndef ValueModel_H
#define ValueModel_H

#include "Zorvel.h"

#include <array>
#include <variant>

inline bool operator==(const KELRawCollfloat& iLeft, const KELRawCollfloat& iRight)
{
    return KELRawCollfloat::Compare(iLeft, iRight) == 0;
}

#define ZRV_NAME(id, name, type) name,
inline const KELUnicodeString g_typeNames[] = {ZRV_PROPERTY_TYPES(ZRV_NAME) ""};
#undef ZRV_NAME

/// The contents of a value, alternatives in the order of the types; the last one is a value without a type. An
/// object is not counted.
#define ZRV_CONTENTS(id, name, type) type,
using ValueModel = std::variant<ZRV_PROPERTY_TYPES(ZRV_CONTENTS) std::monostate>;
#undef ZRV_CONTENTS

inline const KELUnicodeString& TypeOf(const ValueModel& iValue)
{
    return g_typeNames[iValue.index()];
}

template <std::size_t Type = 0>
ValueModel ReadValue(const ZrvPropertyValueBase& iValue)
{
    if constexpr (Type == zrvPT_Undefined) {
        return std::monostate();
    } else {
        using T = std::variant_alternative_t<Type, ValueModel>;
        const ZrvPropertyValue<T>* const value = ZrvPropertyCast<T>(&iValue);
        if (!value) {
            return ReadValue<Type + 1>(iValue);
        }
        const T contents = value->GetValue();
        if constexpr (Type == zrvPT_BaseUnknownPtr) {
            contents ? contents->Release() : 0; // the reference that reading has added
        }
        return ValueModel(std::in_place_index<Type>, contents);
    }
}

/// The value of one type out of one for each, the one without a type last.
template <class... Values>
ValueModel Chosen(std::ptrdiff_t iType, const Values&... iValues)
{
    static_assert(sizeof...(Values) == std::variant_size_v<ValueModel>);
    return std::array<ValueModel, sizeof...(Values)>{iValues...}[static_cast<std::size_t>(iType)];
}

/// The default value of a type; a value without a type for an unknown name.
inline ValueModel DefaultValue(const KELUnicodeString& iType)
{
    KELRawCollfloat zeros;
    zeros.Size(3, 0.0F);
    return Chosen(std::find(g_typeNames, g_typeNames + zrvPT_Undefined, iType) - g_typeNames,
                  static_cast<unsigned char*>(nullptr), KELUnicodeString(), KELBoolean(1), KELINT32(0), KELUINT32(0),
                  0.0F, 0.0, zeros, static_cast<KELSysTSBaseUnknown*>(nullptr), std::monostate());
}

#endif
