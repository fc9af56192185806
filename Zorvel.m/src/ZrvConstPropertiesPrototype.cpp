#include "ZrvConstPropertiesPrototype.h"

ZrvConstPropertiesPrototype::ZrvConstPropertiesPrototype() : KELSysTSBaseUnknown(1) {}

ZrvConstPropertiesPrototype::ZrvConstPropertiesPrototype(const ZrvConstPropertiesPrototype& /*iOther*/)
    : KELSysTSBaseUnknown(1)
{
}

ZrvConstPropertiesPrototype::~ZrvConstPropertiesPrototype() = default;
