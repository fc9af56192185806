#include "ZrvDebugServices.h"

KELUnicodeString ZrvDebugServices::GetTracesFromProperties(const ZrvProperties& /*iProperties*/)
{
    return KELUnicodeString();
}

ZrvDebugServices& ZrvDebugServices::operator=(const ZrvDebugServices&) = default;
ZrvDebugServices& ZrvDebugServices::operator=(ZrvDebugServices&&) noexcept = default;
