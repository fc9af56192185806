#ifndef CountedObject_H
#define CountedObject_H

#include "KELSysTSBaseUnknown.h"

#include <algorithm>
#include <functional>

/// A counted object that does something when it goes.
struct CountedObject : KELSysTSBaseUnknown {
    explicit CountedObject(std::function<void()> iEnd = [] {}) : KELSysTSBaseUnknown(1), atEnd(std::move(iEnd)) {}
    ~CountedObject() override { atEnd(); }
    std::function<void()> atEnd;
};

/// The references on an object, the caller's included.
inline KELUINT32 CountOf(KELSysTSBaseUnknown& ioObject)
{
    const KELUINT32 added = ioObject.AddRef();
    return std::min(added - 1, ioObject.Release());
}

#endif
