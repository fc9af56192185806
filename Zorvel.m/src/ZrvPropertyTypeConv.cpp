#include "ZrvPropertyTypeConv.h"

namespace {

static_assert(zrvPT_BytePtr == 0 && zrvPT_BaseUnknownPtr == 8,
              "built callers have these numbers: a new type comes last");

// Copied by value. Made at compile time, so that they are there before the first static initialiser and stay after the
// last destructor.
constexpr KELShortText g_typeNames[] = {
#define ZRV_TYPE_NAME(id, name, type) KELShortText(name),
    ZRV_PROPERTY_TYPES(ZRV_TYPE_NAME)
#undef ZRV_TYPE_NAME
};

} // namespace

KELUnicodeString ZrvPropertyTypeConv::GetAsUnicode(ZrvPropertyType iType)
{
    const auto type = static_cast<KELUINT32>(iType);
    return type < zrvPT_Undefined ? KELUnicodeString(g_typeNames[type]) : KELUnicodeString();
}

ZrvPropertyType ZrvPropertyTypeConv::GetEnum(const KELUnicodeString& iTypeName)
{
    KELINT32 type = 0;
    while (type < zrvPT_Undefined && !(iTypeName == g_typeNames[type])) {
        ++type;
    }
    return static_cast<ZrvPropertyType>(type);
}

ZrvPropertyTypeConv& ZrvPropertyTypeConv::operator=(const ZrvPropertyTypeConv&) = default;
ZrvPropertyTypeConv& ZrvPropertyTypeConv::operator=(ZrvPropertyTypeConv&&) noexcept = default;
