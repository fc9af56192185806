#ifndef KELSYPHashMap_H
#define KELSYPHashMap_H

#include "KELCheckFailure.h"
#include "KELInline.h"
#include "KELSYPHashMapIterator.h"
#include "KELSYPPool.h"
#include "KELSYPTableAccess.h"
#include "KELSysSimpleHashTable.h"
#include "KELUnicodeString.h"

#include <cstddef>
#include <utility>

/// \file
/// The keyed map: values by string key, over the platform's untyped hash table.
///
/// \code
/// KELSYPHashMap<KELUnicodeString, int> lengths;
/// lengths.Insert("width", 16);
/// for (KELSYPHashMapIteratorHolder<KELUnicodeString, int> it(lengths); !it.IsDone(); it.Next()) {
///     Use(*it.CurrentItem()->pKey, *it.CurrentItem()->pValue);
/// }
/// \endcode

/// Values by key.
///
/// A map owns its entries and their keys and values, but never what a pointer value points to. Keys match when the
/// string comparison finds them identical. Order is the table's own. What leaves the map is destroyed when the map has
/// forgotten it, so that a destructor of a value meets a whole map. Throws `std::bad_alloc` and what copying a value
/// throws, with the map as it was. Thread-compatible.
template <class K, class V>
class KELSYPHashMap : public KELSYPConstHashMap<K, V> {
public:
    using Entry = KELSYPHashMapPair<K, V>;

    KELSYPHashMap() : m_table(Access::Make(&HashElement, &CompareElements, &HashSalted)) {}
    KELSYPHashMap(const KELSYPHashMap&) = delete;
    KELSYPHashMap& operator=(const KELSYPHashMap&) = delete;
    ~KELSYPHashMap() override { KELSYPHashMap::RemoveAll(); }

    const V* Locate(const K& iKey) const override
    {
        const Entry* entry = Find(iKey);
        return entry ? &entry->value : nullptr;
    }

    int Contains(const K& iKey) const override { return Find(iKey) ? 1 : 0; }

    int Size() const override { return m_table.Size(); }

    KELSYPHashMapIterator<K, V>* CreateIterator() const override
    {
        return new KELSYPHashMapIteratorImpl<K, V>(m_table);
    }

    virtual V* Locate(const K& iKey)
    {
        Entry* entry = Find(iKey);
        return entry ? &entry->value : nullptr;
    }

    /// The entry under iKey, or null. In line, for where each instruction counts.
    /// @{
    KEL_ALWAYS_INLINE const Entry* Find(const K& iKey) const
    {
        const auto isKey = [&iKey](void* iElement) { return KeyOf(iElement) == iKey; };
        return static_cast<Entry*>(Access::Locate(m_table, AsElement(iKey), iKey.ComputeHashKey(), isKey));
    }
    KEL_ALWAYS_INLINE Entry* Find(const K& iKey) { return const_cast<Entry*>(std::as_const(*this).Find(iKey)); }
    /// @}

    /// Stores a copy of iValue under a copy of iKey, or assigns it to the value that is there.
    /// \return 1 for a new entry, 0 for an assigned value, -1 (after a report) when the table takes no more.
    virtual int Insert(const K& iKey, const V& iValue)
    {
        typename Pool::Owner entry = m_pool.Make(iKey, iValue);
        Entry* const stored = Offer(entry);
        if (entry && stored) {
            std::swap(stored->value, entry->value);
        }
        return !entry ? 1 : stored ? 0 : -1;
    }

    /// The same, but for a value that is there, which stays.
    int Add(const K& iKey, const V& iValue)
    {
        typename Pool::Owner entry = m_pool.Make(iKey, iValue);
        const Entry* const stored = Offer(entry);
        return !entry ? 1 : stored ? 0 : -1;
    }

    /// Destroys the entry under iKey; returns 1, or 0 when there is none.
    virtual int Remove(const K& iKey) { return Own(m_table.Remove(AsElement(iKey))) ? 1 : 0; }

    /// Destroys every entry and gives the memory back. Linear.
    virtual void RemoveAll()
    {
        Table removed(Access::Make(&HashElement, &CompareElements, &HashSalted));
        Destroy(Access::MoveAll(m_table, removed) ? removed : m_table);
    }

    virtual KELSYPHashMapIterator<K, V>* CreateIterator() { return std::as_const(*this).CreateIterator(); }

    /// The entry at a position of the traversal, from 0 to `Size() - 1`; null for any other position and where the
    /// table has none. It is owned by the map and valid until it is removed.
    Entry* At(int iIndex) { return static_cast<Entry*>(m_table.Get(iIndex)); }
    const Entry* At(int iIndex) const { return static_cast<const Entry*>(m_table.Get(iIndex)); }

    /// Makes an empty map a copy of another: the same keys in the same order, each with a value that iCopy makes of the
    /// other's entry. Neither map is changed meanwhile. False, and nothing happens, over a table that is not ours.
    /// Throws what iCopy throws, with the entries made before. Linear.
    template <class Copy>
    bool CopyFrom(const KELSYPHashMap& iOther, const Copy& iCopy)
    {
        m_pool.Reserve(static_cast<std::size_t>(iOther.Size()));
        return Access::CopyAll(iOther.m_table, m_table, [this, &iCopy](void* iElement) -> void* {
            const Entry& entry = *static_cast<const Entry*>(iElement);
            typename Pool::Owner copy = m_pool.Make(entry.key, V()); // first: nothing owns what iCopy makes
            copy->value = iCopy(entry);
            return copy.release();
        });
    }

    /// Moves all entries to an empty map. Neither allocates nor throws; false, and nothing moves, when a table that is
    /// not ours does not allow it.
    bool MoveAllTo(KELSYPHashMap& oEmpty) noexcept
    {
        if (!Access::MoveAll(m_table, oEmpty.m_table)) {
            return false;
        }
        m_pool.Swap(oEmpty.m_pool);
        return true;
    }

    /// The hash of an element's key, for the table.
    static unsigned int HashElement(void* i_elem)
    {
        if (!i_elem) {
            Check_Pointer_Failed__("i_elem", "KELSYPHashMap", __LINE__, nullptr);
            return 0;
        }
        return KeyOf(i_elem).ComputeHashKey();
    }

    /// Nonzero when both elements have the same key, for the table.
    static int CompareElements(void* i_elem1, void* i_elem2)
    {
        if (!i_elem1) {
            Check_Pointer_Failed__("i_elem1", "KELSYPHashMap", __LINE__, nullptr);
            return 0;
        }
        if (!i_elem2) {
            Check_Pointer_Failed__("i_elem2", "KELSYPHashMap", __LINE__, nullptr);
            return 0;
        }
        return KeyOf(i_elem1).Compare(KeyOf(i_elem2)) == 2 ? 1 : 0;
    }

private:
    using Table = KELSysSimpleHashTable;
    using Access = KELSYPTableAccess<Table>;
    using Pool = KELSYPPool<Entry>;

    static unsigned int HashSalted(void* iElement, const KELHashSalt& iSalt)
    {
        return KeyOf(iElement).ComputeHashKey(iSalt);
    }

    static const K& KeyOf(void* iElement) { return *static_cast<const K*>(iElement); }

    // The table reads the key of an element and changes nothing, so the caller's own key serves as the probe.
    static void* AsElement(const K& iKey) { return const_cast<K*>(&iKey); }

    // Gives an entry to the table, unless one of that key is there; returns the one that is then, or null after a
    // report when the table takes no more.
    Entry* Offer(typename Pool::Owner& ioEntry)
    {
        Entry* const entry = ioEntry.get();
        const auto isSame = [entry](void* iElement) { return KeyOf(iElement) == entry->key; };
        void* const stored = Access::Insert(m_table, entry, entry->key.ComputeHashKey(), isSame);
        if (stored == entry) {
            static_cast<void>(ioEntry.release());
        } else if (!stored) {
            CheckFailure__("Failed to add the element", "KELSYPHashMap", __LINE__, nullptr);
        }
        return static_cast<Entry*>(stored);
    }

    typename Pool::Owner Own(void* iElement) { return m_pool.Own(static_cast<Entry*>(iElement)); }

    // Destroys the entries of a table and forgets them.
    void Destroy(Table& ioTable)
    {
        for (int i = 0; i < ioTable.Size(); ++i) {
            if (!Own(ioTable.Get(i))) {
                CheckFailure__("NULL pair?", "KELSYPHashMap", __LINE__, nullptr);
            }
        }
        ioTable.RemoveAll();
    }

    Pool m_pool;
    Table m_table;
};

#endif
