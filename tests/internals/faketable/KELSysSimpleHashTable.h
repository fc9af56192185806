#ifndef FakeSimpleHashTable_H
#define FakeSimpleHashTable_H

#define KELSysSimpleHashTable KELSoundHashTable
#include "../../../Platform/include/KELSysSimpleHashTable.h"
#undef KELSysSimpleHashTable

/// The platform's table behind its plain interface, which a test can have refuse, not find, or hold one null.
class KELSysSimpleHashTable {
public:
    KELSysSimpleHashTable(int iExpected, KELSoundHashTable::HashFunction iHash, KELSoundHashTable::EqualFunction iEqual)
        : m_table(iExpected, iHash, iEqual)
    {
    }

    void* InsertAndReturn(void* iElement)
    {
        return s_isFull ? m_table.Locate(iElement) : m_table.InsertAndReturn(iElement);
    }
    void* Locate(void* iProbe) const { return s_isBlind ? nullptr : m_table.Locate(iProbe); }
    void* Remove(void* iProbe) { return m_table.Remove(iProbe); }
    void* Get(int iIndex) const { return m_table.Get(iIndex); }
    int Size() const { return m_table.Size() + (s_hasNull ? 1 : 0); }
    void RemoveAll() { m_table.RemoveAll(); }

    static inline bool s_isFull = false;
    static inline bool s_isBlind = false;
    static inline bool s_hasNull = false;

private:
    KELSoundHashTable m_table;
};

#endif
