// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELSYPHashMapBaseIterator_H
#define KELSYPHashMapBaseIterator_H

#include <KELSysSimpleHashTable.h> // not from this folder: a table that is put in front of it counts here, too

/// Walks over the elements of a table in the table's own order. The table outlives the iterator and does not change
/// meanwhile; a null table has no elements.
class KELSYPHashMapBaseIterator {
public:
    explicit KELSYPHashMapBaseIterator(const KELSysSimpleHashTable* iTable) : m_table(iTable) {}

    /// Nonzero when the walk has passed the last element.
    int IsDone() { return !m_table || m_index >= m_table->Size() ? 1 : 0; }

    /// Goes on to the next element; does nothing past the last one.
    void Next()
    {
        if (!IsDone()) {
            ++m_index;
        }
    }

    /// The current element, or null when there is none.
    void* InternalCurrentItem() { return IsDone() ? nullptr : m_table->Get(m_index); }

private:
    const KELSysSimpleHashTable* m_table;
    int m_index = 0;
};

#endif
