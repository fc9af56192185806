#include "ZrvPropertyDefinition.h"

#include "ZrvCheck.h"

namespace {
constexpr ZrvCheck g_check("ZrvPropertyDefinition");
}

ZrvPropertyDefinition::ZrvPropertyDefinition(const KELUnicodeString& iType,
                                             ZrvConstPropertiesPrototype* iPropertyPrototype)
    : m_type(iType), m_pPropertyPrototype(iPropertyPrototype), m_class(ZrvValueClass::Find(iType))
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
    m_class = ZrvValueClass::Find(iType);
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
