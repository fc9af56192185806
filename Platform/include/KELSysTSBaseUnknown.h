#ifndef KELSysTSBaseUnknown_H
#define KELSysTSBaseUnknown_H

#include "KELExport.h"
#include "KELReferenceCount.h"
#include "KELTypes.h"

/// The reference-counted base of the platform's objects.
///
/// An object starts with the count that its class gives the constructor, usually 1 for its creator; the `Release` that
/// takes the last reference deletes it. `AddRef` and `Release` are thread-safe.
class KEL_API KELSysTSBaseUnknown {
public:
    /// \param iReferences the count to start with
    explicit KELSysTSBaseUnknown(int iReferences);
    KELSysTSBaseUnknown(const KELSysTSBaseUnknown&) = delete;
    KELSysTSBaseUnknown& operator=(const KELSysTSBaseUnknown&) = delete;

    /// Asks for another interface of the object. This base knows none: it answers with the "no such interface" failure
    /// (0x80004002) and sets *oObject, when oObject is not null, to null.
    virtual HRESULT QueryInterface(const void* iInterfaceId, void** oObject);

    /// Adds a reference; returns the new count.
    virtual KELUINT32 AddRef();

    /// Gives a reference back; returns the new count. At 0 the object has been deleted.
    virtual KELUINT32 Release();

    /// The description of the object's class, or null: this base registers none.
    virtual const void* GetMetaObject() const;

    virtual ~KELSysTSBaseUnknown();

private:
    KELReferenceCount m_references;
};

#endif
