// In this source the inline members of exported classes become functions of the library; see ZRV_INLINE in ZrvExport.h.
#if defined(ZRV_BUILDING) && defined(__GNUC__)
#define ZRV_INLINE
#include "Zorvel.h"
#endif

#include "ZrvPropertyValueBase.h"

#include "ZrvCheck.h"
#include "ZrvPropertyTypeConv.h"

namespace {
constexpr ZrvCheck g_check("ZrvPropertyValueBase");
}

KELUnicodeString ZrvPropertyValueBase::GetType() const
{
    return KELUnicodeString();
}

ZrvPropertyValueBase* ZrvPropertyValueBase::Duplicate() const
{
    return nullptr;
}

ZrvRC ZrvPropertyValueBase::SetValueFromProperty(const ZrvPropertyValueBase& /*iOther*/)
{
    if (g_check.Holds(GetType().GetLengthInChar() <= 0, "GetType().GetLengthInChar()<=0")) {
        g_check.Fail("Property value wihtout type cannot be set.");
    }
    return ZrvRC::zrvEC_Error;
}

bool ZrvPropertyValueBase::IsPurelyIdenticalTo(const ZrvPropertyValueBase& /*iOther*/) const
{
    return false;
}

KELUnicodeString ZrvPropertyValue_GetStringType()
{
    return ZrvPropertyTypeConv::GetAsUnicode(zrvPT_UnicodeString);
}

bool ZrvPropertyValue_StringComparator(const KELUnicodeString& iFirst, const KELUnicodeString& iSecond)
{
    return iFirst.Compare(iSecond) == 2;
}

bool ZrvPropertyValue_LstFloatComparator(const KELRawCollfloat& iFirst, const KELRawCollfloat& iSecond)
{
    return iFirst.Size() == iSecond.Size() && KELRawCollfloat::Compare(iFirst, iSecond) == 0;
}
