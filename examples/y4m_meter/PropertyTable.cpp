#include "PropertyTable.h"

#include "Y4mFormat.h"
#include "ZrvPropertyValue.h"

#include <iomanip>
#include <ostream>
#include <sstream>

namespace {

template <class T>
std::string ToText(const T& iNumber)
{
    std::ostringstream text;
    text << iNumber;
    return text.str();
}

std::string ToText(KELBoolean iValue)
{
    return iValue ? "true" : "false";
}

std::string ToText(const KELUnicodeString& iValue)
{
    return Y4mPrintable(iValue.ConvertToChar());
}

std::string ToText(const KELRawCollfloat& iValue)
{
    std::string text;
    for (int position = 1; position <= iValue.Size(); ++position) {
        text.append(position == 1 ? "" : " ").append(ToText(iValue[position]));
    }
    return text;
}

// Where bytes and objects lie tells a reader nothing.
std::string ToText(unsigned char* iBytes)
{
    return iBytes ? "there" : "none";
}

std::string ToText(KELSysTSBaseUnknown* iObject)
{
    const auto holder = KELReference<KELSysTSBaseUnknown>::Adopt(iObject);
    return holder ? "there" : "none";
}

std::string ToText(const ZrvPropertyValueBase& iValue)
{
    switch (ZrvPropertyTypeConv::GetEnum(iValue.GetType())) {
#define TEXT_OF(id, name, type)                                                                                        \
    case zrvPT_##id:                                                                                                   \
        return ToText(static_cast<const ZrvPropertyValue<type>&>(iValue).GetValue());
        ZRV_PROPERTY_TYPES(TEXT_OF)
#undef TEXT_OF
    default:
        return "?";
    }
}

} // namespace

void PropertyTable::Add(const ZrvProperties& iSet, const std::string& iPrefix)
{
    KELListValKELUnicodeString names;
    iSet.GetListProperties(names);
    for (int position = 1; position <= names.Size(); ++position) {
        const KELUnicodeString& name = names[position];
        if (const ZrvPropertyValueBase* value = iSet.GetProperty(name)) {
            m_rows[iPrefix + name.ConvertToChar()] = {value->GetType().ConvertToChar(), ToText(*value)};
        }
    }
}

void PropertyTable::Print(std::ostream& ioOutput) const
{
    const auto print = [&ioOutput](const std::string& iName, const Row& iRow) {
        ioOutput << std::left << std::setw(20) << iName << std::setw(24) << iRow.type << iRow.value << '\n';
    };
    print("name", {"type", "value"});
    for (const auto& [name, row] : m_rows) {
        print(name, row);
    }
}
