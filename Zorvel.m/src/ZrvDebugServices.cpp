#include "ZrvDebugServices.h"

KELUnicodeString ZrvDebugServices::GetTracesFromProperties(const ZrvProperties& /*iProperties*/)
{
    return KELUnicodeString();
}

ZrvDebugServices& ZrvDebugServices::operator=(const ZrvDebugServices& /*iOther*/)
{
    return *this;
}

ZrvDebugServices& ZrvDebugServices::operator=(ZrvDebugServices&& /*iOther*/) noexcept
{
    return *this;
}
