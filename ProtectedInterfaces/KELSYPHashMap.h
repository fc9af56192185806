#ifndef KELSYPHashMap_H
#define KELSYPHashMap_H

#include "KELCheckFailure.h"
#include "KELSYPEntryPool.h"
#include "KELSYPHashMapBaseIterator.h"
#include "KELSysSimpleHashTable.h"
#include "KELUnicodeString.h"

#include <cstddef>
#include <memory>
#include <new>
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
///
/// A map owns its entries and their keys and values, but never what a pointer value points to. Keys match when the
/// string comparison finds them identical. Order is the table's own. Nothing here locks: readers may share a map, a
/// change excludes every other use. Memory running out leaves an operation as the standard allocation failure, with the
/// map as it was.

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

    virtual void Next() = 0;

    /// The current entry, or null when there is none. It belongs to the iterator and lives until the next `Next`.
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

template <class K, class V>
class KELSYPHashMap : public KELSYPConstHashMap<K, V> {
public:
    using Entry = KELSYPHashMapPair<K, V>;

    /// An empty map.
    /// \param iRoom bytes behind each entry, for the use of whoever makes entries with `MakeEntry`
    explicit KELSYPHashMap(std::size_t iRoom = 0)
        : m_pool(sizeof(Entry) + iRoom), m_table(0, &HashElement, &CompareElements)
    {
    }
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

    /// Stores a copy of iValue under a copy of iKey, or assigns it to the value that is there.
    /// \return 1 for a new entry, 0 for an assigned value, -1 (after a report) when the table takes no more.
    virtual int Insert(const K& iKey, const V& iValue)
    {
        EntryHolder entry = MakeEntry(iKey, iValue);
        Entry* const stored = Offer(entry);
        if (!entry) {
            return 1;
        }
        entry.reset();
        if (!stored) {
            return Refuse();
        }
        stored->value = iValue;
        return 0;
    }

    /// Destroys the entry under iKey; returns 1, or 0 when there is none.
    virtual int Remove(const K& iKey) { return Hold(m_table.Remove(AsElement(iKey))) ? 1 : 0; }

    virtual void RemoveAll()
    {
        for (int i = 0; i < m_table.Size(); ++i) {
            if (!Hold(m_table.Get(i))) {
                CheckFailure__("NULL pair?", "KELSYPHashMap", __LINE__, nullptr);
            }
        }
        m_table.RemoveAll();
    }

    virtual KELSYPHashMapIterator<K, V>* CreateIterator() { return std::as_const(*this).CreateIterator(); }

    /// Destroys an entry and gives its memory back.
    struct EntryDeleter {
        void operator()(Entry* iEntry) const noexcept
        {
            iEntry->~Entry();
            pool->Give(iEntry);
        }

        KELSYPEntryPool* pool;
    };

    /// Owns an entry that is not in the map it was made by. The map outlives it.
    using EntryHolder = std::unique_ptr<Entry, EntryDeleter>;

    /// An entry that is not in the map yet, with the map's room behind it, at `RoomOf`: what a pointer value points to
    /// can lie there and costs no allocation of its own.
    EntryHolder MakeEntry(const K& iKey, const V& iValue)
    {
        const auto giveBack = [this](void* iBlock) { m_pool.Give(iBlock); };
        std::unique_ptr<void, decltype(giveBack)> block(m_pool.Take(), giveBack);
        EntryHolder entry(::new (block.get()) Entry{iKey, iValue}, EntryDeleter{&m_pool});
        static_cast<void>(block.release());
        return entry;
    }

    static void* RoomOf(Entry& iEntry) noexcept { return &iEntry + 1; }

    /// Takes a prepared entry over; `Insert` without an assignment.
    /// \return 1 when the map owns the entry now. Else the caller still does: 0 when there is an entry of that key, -1
    /// (after a report) when the table takes no more.
    int InsertEntry(EntryHolder& ioEntry)
    {
        const Entry* const stored = Offer(ioEntry);
        return !ioEntry ? 1 : stored ? 0 : Refuse();
    }

    /// Takes all entries out of the map and then gives them to iUse, one `EntryHolder` after the other. The map is
    /// empty meanwhile and can be used as ever: what iUse adds stays. Neither allocates nor throws if iUse does not.
    template <class Use>
    void TakeAll(const Use& iUse)
    {
        TakeAllFrom(m_table, iUse);
    }

    /// The entries in the order of traversal, for a loop that neither allocates nor calls. What a loop adds is met by
    /// the same loop; nothing may be removed meanwhile.
    class EntryRange {
    public:
        class Position {
        public:
            Position(const KELSysSimpleHashTable& iTable, int iIndex) : m_table(&iTable), m_index(iIndex)
            {
                SkipNulls();
            }

            Entry& operator*() const { return *static_cast<Entry*>(m_table->Get(m_index)); }
            Position& operator++()
            {
                ++m_index;
                SkipNulls();
                return *this;
            }
            bool operator!=(std::nullptr_t) const { return m_index < m_table->Size(); }

        private:
            void SkipNulls()
            {
                while (m_index < m_table->Size() && !m_table->Get(m_index)) {
                    ++m_index;
                }
            }

            const KELSysSimpleHashTable* m_table;
            int m_index;
        };

        explicit EntryRange(const KELSysSimpleHashTable& iTable) : m_table(iTable) {}
        Position begin() const { return Position(m_table, 0); }
        std::nullptr_t end() const { return nullptr; }

    private:
        const KELSysSimpleHashTable& m_table;
    };

    EntryRange Entries() const { return EntryRange(m_table); }

    /// The same as `Locate` for a caller who guesses that the entry is the iIndex-th in the order of traversal: maps
    /// that were filled alike have their keys in the same places.
    V* LocateNear(int iIndex, const K& iKey) const
    {
        auto* const guessed = iIndex < m_table.Size() ? static_cast<Entry*>(m_table.Get(iIndex)) : nullptr;
        Entry* const entry = guessed && guessed->key.Compare(iKey) == 2 ? guessed : Find(iKey);
        return entry ? &entry->value : nullptr;
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
    static const K& KeyOf(void* iElement) { return *static_cast<const K*>(iElement); }

    // The table reads the key of an element and changes nothing, so the caller's own key serves as the probe: copying
    // it would count holders of a text that other threads look up too.
    static void* AsElement(const K& iKey) { return const_cast<K*>(&iKey); }

    // The platform's table takes the hash at hand and compares in line; another table is asked through its functions.
    template <class Table>
    static void* LocateIn(const Table& iTable, const K& iKey)
    {
        const auto isKey = [&iKey](void* iElement) { return KeyOf(iElement).Compare(iKey) == 2; };
        if constexpr (requires { iTable.LocateHashed(0U, isKey); }) {
            return iTable.LocateHashed(iKey.ComputeHashKey(), isKey);
        } else {
            return iTable.Locate(AsElement(iKey));
        }
    }

    template <class Table>
    static void* InsertInto(Table& ioTable, Entry* iEntry)
    {
        const auto isSame = [iEntry](void* iElement) { return KeyOf(iElement).Compare(iEntry->key) == 2; };
        if constexpr (requires { ioTable.InsertHashed(iEntry, 0U, isSame); }) {
            return ioTable.InsertHashed(iEntry, iEntry->key.ComputeHashKey(), isSame);
        } else {
            return ioTable.InsertAndReturn(iEntry);
        }
    }

    // The platform's table is taken over whole, from another table the entries are taken one by one.
    template <class Table, class Use>
    void TakeAllFrom(Table& ioTable, const Use& iUse)
    {
        Table taken(0, &HashElement, &CompareElements);
        if constexpr (requires { taken.Swap(ioTable); }) {
            taken.Swap(ioTable);
            for (int i = 0; i < taken.Size(); ++i) {
                iUse(Hold(taken.Get(i)));
            }
        } else {
            for (int i = ioTable.Size(); i-- > 0;) {
                void* const element = i < ioTable.Size() ? ioTable.Get(i) : nullptr;
                if (element) {
                    iUse(Hold(ioTable.Remove(element)));
                }
            }
        }
    }

    Entry* Find(const K& iKey) const { return static_cast<Entry*>(LocateIn(m_table, iKey)); }

    // Gives the entry away if the table stores it; returns what the table now stores under its key.
    Entry* Offer(EntryHolder& ioEntry)
    {
        auto* const stored = static_cast<Entry*>(InsertInto(m_table, ioEntry.get()));
        if (stored == ioEntry.get()) {
            static_cast<void>(ioEntry.release());
        }
        return stored;
    }

    static int Refuse()
    {
        CheckFailure__("Failed to add the element", "KELSYPHashMap", __LINE__, nullptr);
        return -1;
    }

    EntryHolder Hold(void* iElement) { return EntryHolder(static_cast<Entry*>(iElement), EntryDeleter{&m_pool}); }

    KELSYPEntryPool m_pool;
    KELSysSimpleHashTable m_table;
};

#endif
