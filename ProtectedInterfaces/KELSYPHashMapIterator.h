#ifndef KELSYPHashMapIterator_H
#define KELSYPHashMapIterator_H

#include "KELSYPHashMapBaseIterator.h"
#include "KELSysSimpleHashTable.h"

#include <memory>

/// \file
/// What a reader sees of a keyed map: its entries, its iterators and its read-only interface.

/// One entry. The key comes first: a bare key can stand for an entry in a lookup.
template <class K, class V>
struct KELSYPHashMapPair {
    K key;
    V value;
};

/// What an iterator shows of the current entry.
template <class K, class V>
struct KELSYPHashMapItem {
    const K* pKey;
    V* pValue;
};

/// Walks over the entries of a map, which does not change meanwhile.
template <class K, class V>
class KELSYPHashMapIterator {
public:
    virtual ~KELSYPHashMapIterator() = default;

    /// Nonzero when the walk has passed the last entry.
    virtual int IsDone() = 0;

    /// Goes on to the next entry; does nothing past the last one.
    virtual void Next() = 0;

    /// The current entry, or null when there is none. It belongs to the iterator and is valid until the next `Next`.
    /// May throw `std::bad_alloc`.
    virtual KELSYPHashMapItem<K, V>* CurrentItem() = 0;
};

template <class K, class V>
class KELSYPHashMapIteratorImpl : public KELSYPHashMapIterator<K, V> {
public:
    explicit KELSYPHashMapIteratorImpl(const KELSysSimpleHashTable& iTable) : m_baseIterator(&iTable) {}

    int IsDone() override { return m_baseIterator.IsDone(); }

    void Next() override
    {
        m_pCurrentItem.reset();
        m_baseIterator.Next();
    }

    KELSYPHashMapItem<K, V>* CurrentItem() override
    {
        if (!m_pCurrentItem) {
            if (void* element = m_baseIterator.InternalCurrentItem()) {
                auto* entry = static_cast<KELSYPHashMapPair<K, V>*>(element);
                m_pCurrentItem.reset(new KELSYPHashMapItem<K, V>{&entry->key, &entry->value});
            }
        }
        return m_pCurrentItem.get();
    }

private:
    KELSYPHashMapBaseIterator m_baseIterator;
    std::unique_ptr<KELSYPHashMapItem<K, V>> m_pCurrentItem;
};

/// What a reader sees of a map.
template <class K, class V>
class KELSYPConstHashMap {
public:
    virtual ~KELSYPConstHashMap() = default;

    /// The value under iKey, owned by the map and valid until its entry is removed; null when there is none.
    virtual const V* Locate(const K& iKey) const = 0;

    /// 1 when there is an entry under iKey, else 0.
    virtual int Contains(const K& iKey) const = 0;

    /// Number of entries.
    virtual int Size() const = 0;

    /// A new iterator on the first entry, which the caller deletes.
    virtual KELSYPHashMapIterator<K, V>* CreateIterator() const = 0;
};

/// Owns the iterator of one walk.
template <class K, class V>
class KELSYPHashMapIteratorHolder {
public:
    explicit KELSYPHashMapIteratorHolder(const KELSYPConstHashMap<K, V>& iMap) : m_pIterator(iMap.CreateIterator()) {}

    virtual int IsDone() { return m_pIterator ? m_pIterator->IsDone() : 1; }

    virtual void Next()
    {
        if (m_pIterator) {
            m_pIterator->Next();
        }
    }

    virtual KELSYPHashMapItem<K, V>* CurrentItem() { return m_pIterator ? m_pIterator->CurrentItem() : nullptr; }

private:
    std::unique_ptr<KELSYPHashMapIterator<K, V>> m_pIterator;
};

#endif
