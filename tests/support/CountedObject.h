#ifndef CountedObject_H
#define CountedObject_H

#include "KELSysTSBaseUnknown.h"

#include <functional>
#include <utility>

/// A counted object that does something when it goes.
class CountedObject : public KELSysTSBaseUnknown {
public:
    explicit CountedObject(std::function<void()> iFarewell = [] {})
        : KELSysTSBaseUnknown(1), m_farewell(std::move(iFarewell))
    {
    }
    ~CountedObject() override { m_farewell(); }

private:
    std::function<void()> m_farewell;
};

/// The references on an object, the caller's included.
inline KELUINT32 CountOf(KELSysTSBaseUnknown& ioObject)
{
    ioObject.AddRef();
    return ioObject.Release();
}

#endif
