#ifndef CountedObject_H
#define CountedObject_H

#include "KELSysTSBaseUnknown.h"

/// A counted object that tells its count and, when it goes, says so.
class CountedObject : public KELSysTSBaseUnknown {
public:
    /// \param oIsGone set to true by the destructor, when not null
    explicit CountedObject(bool* oIsGone = nullptr) : KELSysTSBaseUnknown(1), m_isGone(oIsGone) {}
    ~CountedObject() override
    {
        if (m_isGone) {
            *m_isGone = true;
        }
    }

private:
    bool* m_isGone;
};

/// The references on an object, the caller's included.
inline KELUINT32 CountOf(KELSysTSBaseUnknown& ioObject)
{
    ioObject.AddRef();
    return ioObject.Release();
}

#endif
