#ifndef FakeSimpleHashTable_H
#define FakeSimpleHashTable_H

#define KELSysSimpleHashTable KELSoundHashTable
#include "../../../Platform/include/KELSysSimpleHashTable.h"
#undef KELSysSimpleHashTable

/// The platform's table behind its plain interface, which a test can have refuse, not find, or hold one null.
class KELSysSimpleHashTable : KELSoundHashTable {
public:
    using KELSoundHashTable::Get;
    using KELSoundHashTable::KELSoundHashTable;
    using KELSoundHashTable::Remove;
    using KELSoundHashTable::RemoveAll;

    void* InsertAndReturn(void* iElement)
    {
        return s_isFull ? KELSoundHashTable::Locate(iElement) : KELSoundHashTable::InsertAndReturn(iElement);
    }
    void* Locate(void* iProbe) const { return s_isBlind ? nullptr : KELSoundHashTable::Locate(iProbe); }
    int Size() const { return KELSoundHashTable::Size() + (s_hasNull ? 1 : 0); }

    static inline bool s_isFull = false;
    static inline bool s_isBlind = false;
    static inline bool s_hasNull = false;
};

#endif
