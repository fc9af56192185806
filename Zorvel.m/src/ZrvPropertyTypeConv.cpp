#include "ZrvPropertyTypeConv.h"

#include "KELText.h"

namespace {

// Texts rather than strings: they are there before the first static initialiser, stay after the last destructor, and
// are shown without counting.
#define ZRV_TYPE_NAME(id, name, type) constinit const KELText ZrvTypeName_##id(name);
ZRV_PROPERTY_TYPES(ZRV_TYPE_NAME)
#undef ZRV_TYPE_NAME

constexpr const KELText* g_typeNames[] = {
#define ZRV_TYPE_NAME(id, name, type) &ZrvTypeName_##id,
    ZRV_PROPERTY_TYPES(ZRV_TYPE_NAME)
#undef ZRV_TYPE_NAME
};

} // namespace

KELUnicodeString ZrvPropertyTypeConv::GetAsUnicode(ZrvPropertyType iType)
{
    const auto type = static_cast<KELUINT32>(iType);
    return type < zrvPT_Undefined ? KELUnicodeString(*g_typeNames[type]) : KELUnicodeString();
}

ZrvPropertyType ZrvPropertyTypeConv::GetEnum(const KELUnicodeString& iTypeName)
{
    for (KELINT32 type = 0; type < zrvPT_Undefined; ++type) {
        if (iTypeName == KELUnicodeString(*g_typeNames[type])) {
            return static_cast<ZrvPropertyType>(type);
        }
    }
    return zrvPT_Undefined;
}

// Exported operations, so written out.
// NOLINTBEGIN(modernize-use-equals-default)
ZrvPropertyTypeConv& ZrvPropertyTypeConv::operator=(const ZrvPropertyTypeConv& /*iOther*/)
{
    return *this;
}

ZrvPropertyTypeConv& ZrvPropertyTypeConv::operator=(ZrvPropertyTypeConv&& /*iOther*/)
{
    return *this;
}
// NOLINTEND(modernize-use-equals-default)
