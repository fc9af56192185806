#include "ZrvPropertyDefinition.h"

#include "ZrvCheck.h"
#include "ZrvPropertyTypeConv.h"

namespace {
constexpr ZrvCheck g_check("ZrvPropertyDefinition");
}

ZrvPropertyDefinition::ZrvPropertyDefinition(const KELUnicodeString& iType,
                                             ZrvConstPropertiesPrototype* iPropertyPrototype)
    : m_type(iType), m_pPropertyPrototype(iPropertyPrototype)
{
}

ZrvRC ZrvPropertyDefinition::SetType(const KELUnicodeString& iType)
{
    if (iType.GetLengthInChar() < 1) {
        return ZrvRC::zrvEC_Error;
    }
    if (m_type.GetLengthInChar() > 0 && iType != m_type) {
        return ZrvRC(ZrvRC::zrvEC_Error, "Value type of property is already defined.");
    }
    m_type = iType;
    return ZrvRC::zrvEC_OK;
}

ZrvRC ZrvPropertyDefinition::SetPrototype(ZrvConstPropertiesPrototype* iPropertyPrototype)
{
    if (!g_check.IsThere(iPropertyPrototype, "iPropertyPrototype")) {
        return ZrvRC(ZrvRC::zrvEC_Error, "Trying to unset prototype of property.");
    }
    if (m_pPropertyPrototype) {
        return ZrvRC(ZrvRC::zrvEC_Error, "Prototype of property is already defined.");
    }
    m_pPropertyPrototype = iPropertyPrototype;
    return ZrvRC::zrvEC_OK;
}

ZrvPropertyType ZrvPropertyDefinition::GetAsType() const
{
    return ZrvPropertyTypeConv::GetEnum(m_type);
}
