#ifndef ValueModel_H
#define ValueModel_H

#include "ZrvPropertyValue.h"

#include <cstring>
#include <memory>
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

inline std::string TypeOf(const ValueModel& iValue)
{
    return Text(ZrvPropertyTypeConv::GetAsUnicode(static_cast<ZrvPropertyType>(iValue.index())));
}

/// Between a model's contents and a real value's.
/// @{
template <class T>
T ToReal(const T& iContents)
{
    return iContents;
}
inline KELUnicodeString ToReal(const std::string& iText)
{
    return KELUnicodeString(iText.c_str());
}
inline KELRawCollfloat ToReal(const std::vector<float>& iFloats)
{
    KELRawCollfloat list;
    for (const float value : iFloats) {
        list.Append(value);
    }
    return list;
}

template <class T>
T ToModel(const T& iContents)
{
    return iContents;
}
inline std::string ToModel(const KELUnicodeString& iText)
{
    return Text(iText);
}
inline std::vector<float> ToModel(const KELRawCollfloat& iList)
{
    std::vector<float> floats;
    for (int position = 1; position <= iList.Size(); ++position) {
        floats.push_back(iList[position]);
    }
    return floats;
}
inline KELSysTSBaseUnknown* ToModel(KELSysTSBaseUnknown* iObject)
{
    if (iObject) {
        iObject->Release(); // the reference that reading added
    }
    return iObject;
}
/// @}

/// A value as a caller may derive one.
template <class T>
class DerivedValue : public ZrvPropertyValue<T> {
public:
    using ZrvPropertyValue<T>::ZrvPropertyValue;
};

/// \param iIsDerived makes a value of a derived class, for which the library has no short cuts
inline std::unique_ptr<ZrvPropertyValueBase> MakeValue(const ValueModel& iValue, bool iIsDerived = false)
{
    return std::visit(
        [iIsDerived](const auto& iContents) -> std::unique_ptr<ZrvPropertyValueBase> {
            if constexpr (std::is_same_v<std::decay_t<decltype(iContents)>, std::monostate>) {
                return std::make_unique<ZrvPropertyValueBase>();
            } else if (iIsDerived) {
                return std::make_unique<DerivedValue<decltype(ToReal(iContents))>>(ToReal(iContents));
            } else {
                return std::make_unique<ZrvPropertyValue<decltype(ToReal(iContents))>>(ToReal(iContents));
            }
        },
        iValue);
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
    const ValueModel defaults[] = {static_cast<unsigned char*>(nullptr),
                                   std::string(),
                                   KELBoolean{1},
                                   KELINT32{0},
                                   KELUINT32{0},
                                   0.0F,
                                   0.0,
                                   std::vector<float>(3, 0.0F),
                                   static_cast<KELSysTSBaseUnknown*>(nullptr),
                                   std::monostate()};
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
    const auto bytes = [](const auto* iFirst, std::size_t iCount) {
        std::string text(iCount * sizeof(*iFirst), '\0');
        if (iCount > 0) {
            std::memcpy(text.data(), iFirst, text.size());
        }
        return text;
    };
    return TypeOf(iValue) + ":" +
           std::visit(
               [bytes](const auto& iContents) {
                   using Contents = std::decay_t<decltype(iContents)>;
                   if constexpr (std::is_same_v<Contents, std::monostate>) {
                       return std::string();
                   } else if constexpr (std::is_class_v<Contents>) {
                       return bytes(iContents.data(), iContents.size());
                   } else {
                       return bytes(&iContents, 1);
                   }
               },
               iValue);
}

#endif
