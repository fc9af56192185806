#include "ZrvPropertyTypeConv.h"

#include "KELText.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

// Texts rather than strings: they are there before the first static initialiser, stay after the last destructor, and
// are shown without counting. All of one size, so that finding one is a calculation.
constexpr KELLiteralText<24> g_typeNames[] = {
#define ZRV_TYPE_NAME(id, name, type) KELLiteralText<24>(name),
    ZRV_PROPERTY_TYPES(ZRV_TYPE_NAME)
#undef ZRV_TYPE_NAME
};

// The types by the hashes of their names, each in a slot of its own, so that one comparison finds a name.
constexpr std::size_t g_slots = 47;

constexpr std::size_t SlotOf(KELUINT32 iHash)
{
    return iHash % g_slots;
}

constexpr std::array<ZrvPropertyType, g_slots> g_byHash = [] {
    std::array<ZrvPropertyType, g_slots> types{};
    types.fill(zrvPT_Undefined);
    for (KELINT32 type = 0; type < zrvPT_Undefined; ++type) {
        types[SlotOf(g_typeNames[type].Hash())] = static_cast<ZrvPropertyType>(type);
    }
    return types;
}();

static_assert(std::count(g_byHash.begin(), g_byHash.end(), zrvPT_Undefined) == g_slots - zrvPT_Undefined,
              "two names share a slot: choose another number of slots");

} // namespace

KELUnicodeString ZrvPropertyTypeConv::GetAsUnicode(ZrvPropertyType iType)
{
    const auto type = static_cast<KELUINT32>(iType);
    return type < zrvPT_Undefined ? KELUnicodeString(g_typeNames[type]) : KELUnicodeString();
}

ZrvPropertyType ZrvPropertyTypeConv::GetEnum(const KELUnicodeString& iTypeName)
{
    const ZrvPropertyType type = g_byHash[SlotOf(iTypeName.ComputeHashKey())];
    return type != zrvPT_Undefined && iTypeName == GetAsUnicode(type) ? type : zrvPT_Undefined;
}

ZrvPropertyTypeConv& ZrvPropertyTypeConv::operator=(const ZrvPropertyTypeConv& /*iOther*/)
{
    return *this;
}

ZrvPropertyTypeConv& ZrvPropertyTypeConv::operator=(ZrvPropertyTypeConv&& /*iOther*/) noexcept
{
    return *this;
}
