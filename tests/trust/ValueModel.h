#ifndef ValueModel_H
#define ValueModel_H

#include "ZrvPropertyValue.h"

#include <string>
#include <type_traits>
#include <variant>
#include <vector>

/// A value in plain types, alternatives in the order of the nine types; the last one is a value without a type. Two of
/// them are equal, as variants, exactly when two values are identical.
using ValueModel = std::variant<unsigned char*, std::string, KELBoolean, KELINT32, KELUINT32, float, double,
                                std::vector<float>, KELSysTSBaseUnknown*, std::monostate>;

inline std::string Text(const KELUnicodeString& iText)
{
    return iText.ConvertToChar();
}

inline const char* const g_typeNames[] = {"bytePtr",  "KELUnicodeString", "KELBoolean",
                                          "KELINT32", "KELUINT32",        "float",
                                          "double",   "floatList",        "KELSysTSBaseUnknownPtr",
                                          ""};

inline std::string TypeOf(const ValueModel& iValue)
{
    return g_typeNames[iValue.index()];
}

/// A model's contents as a real value's.
template <class T>
auto ToReal(const T& iContents)
{
    if constexpr (std::is_same_v<T, std::string>) {
        return KELUnicodeString(iContents.c_str());
    } else if constexpr (std::is_same_v<T, std::vector<float>>) {
        KELRawCollfloat list(static_cast<int>(iContents.size()) - 2); // room for none, or for too few
        for (const float value : iContents) {
            list.Append(value);
        }
        return list;
    } else {
        return iContents;
    }
}

/// A real value's contents as a model's. Gives the reference back that reading an object has added.
template <class T>
ValueModel ToModel(const T& iContents)
{
    if constexpr (std::is_same_v<T, KELUnicodeString>) {
        return Text(iContents);
    } else if constexpr (std::is_same_v<T, KELRawCollfloat>) {
        std::vector<float> floats;
        for (int position = 1; position <= iContents.Size(); ++position) {
            floats.push_back(iContents[position]);
        }
        return floats;
    } else {
        if constexpr (std::is_same_v<T, KELSysTSBaseUnknown*>) {
            if (iContents) {
                iContents->Release();
            }
        }
        return iContents;
    }
}

inline ValueModel ReadValue(const ZrvPropertyValueBase& iValue)
{
    switch (ZrvPropertyTypeConv::GetEnum(iValue.GetType())) {
#define ZRV_READ(id, name, type)                                                                                       \
    case zrvPT_##id:                                                                                                   \
        return ToModel(static_cast<const ZrvPropertyValue<type>&>(iValue).GetValue());
        ZRV_PROPERTY_TYPES(ZRV_READ)
#undef ZRV_READ
    default:
        return std::monostate();
    }
}

/// The default value of a type; a value without a type for an unknown name.
inline ValueModel DefaultValue(const std::string& iType)
{
    unsigned char* const noByte = nullptr;
    KELSysTSBaseUnknown* const noObject = nullptr;
    const ValueModel defaults[] = {noByte, std::string(), KELBoolean{1}, KELINT32(),           KELUINT32(),
                                   0.0F,   0.0,           noObject,      std::vector<float>(3)};
    for (const ValueModel& value : defaults) {
        if (TypeOf(value) == iType) {
            return value;
        }
    }
    return std::monostate();
}

/// Type and contents to the last bit: two equal descriptions are the same value, a NaN too.
inline std::string Describe(const ValueModel& iValue)
{
    const auto bytes = [](const auto& iContents) -> std::string {
        using Contents = std::decay_t<decltype(iContents)>;
        if constexpr (std::is_same_v<Contents, std::monostate>) {
            return {};
        } else if constexpr (std::is_same_v<Contents, std::string>) {
            return iContents;
        } else if constexpr (std::is_same_v<Contents, std::vector<float>>) {
            return {reinterpret_cast<const char*>(iContents.data()), iContents.size() * sizeof(float)};
        } else {
            return {reinterpret_cast<const char*>(&iContents), sizeof(iContents)};
        }
    };
    return TypeOf(iValue) + ":" + std::visit(bytes, iValue);
}

#endif
