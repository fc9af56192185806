#include "KELSysTSBaseUnknown.h"

KELSysTSBaseUnknown::KELSysTSBaseUnknown(int iReferences) : m_references(static_cast<KELUINT32>(iReferences)) {}

KELSysTSBaseUnknown::~KELSysTSBaseUnknown() = default;

HRESULT KELSysTSBaseUnknown::QueryInterface(const void* /*iInterfaceId*/, void** oObject)
{
    constexpr KELUINT32 kNoInterface = 0x80004002;
    if (oObject) {
        *oObject = nullptr;
    }
    return static_cast<HRESULT>(kNoInterface);
}

KELUINT32 KELSysTSBaseUnknown::AddRef()
{
    return m_references.Increment();
}

KELUINT32 KELSysTSBaseUnknown::Release()
{
    const KELUINT32 left = m_references.Decrement();
    if (left == 0) {
        delete this;
    }
    return left;
}

const void* KELSysTSBaseUnknown::GetMetaObject() const
{
    return nullptr;
}
