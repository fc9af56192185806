// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELSysSimpleHashTable_H
#define KELSysSimpleHashTable_H

#include "KELHashSalt.h"
#include "KELInline.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

/// An untyped hash table of element pointers, with hash and equality functions of the caller's.
///
/// The table owns no element. Its elements lie densely, in an order that removals change and lookups do not, so that
/// `Get(i)` and traversal cost what an array costs. Buckets are added two by two as elements arrive and only the chain
/// that is split moves: growing is what growing an array costs.
///
/// A table that is given a salted hash function defends itself against elements that were made to have one hash: an
/// insertion that meets a chain longer than honest hashes can make gives the table a random salt and links its elements
/// anew, without allocating. From then on an element whose plain hash does not lead to it is looked for once more by
/// its salted one.
///
/// Thread-compatible.
class KELSysSimpleHashTable {
public:
    using HashFunction = unsigned int (*)(void*);
    using EqualFunction = int (*)(void*, void*);
    using SaltedHashFunction = unsigned int (*)(void*, const KELHashSalt&);

    /// An empty table.
    /// \param iExpected how many elements to make room for ahead; 0 makes room when the first one comes
    /// \param iHash gives an element's hash; equal elements have equal hashes
    /// \param iEqual nonzero for two equal elements; called with a stored element first and the probe second
    /// \param iSaltedHash the same as iHash with a salt; null for a table that does not defend itself
    KELSysSimpleHashTable(int iExpected, HashFunction iHash, EqualFunction iEqual,
                          SaltedHashFunction iSaltedHash = nullptr)
        : m_hash(iHash), m_equal(iEqual), m_saltedHash(iSaltedHash)
    {
        if (iExpected > 0) {
            MakeFirstRoom((std::max)(static_cast<std::size_t>(iExpected), kFirstSlots));
        }
    }

    KELSysSimpleHashTable(const KELSysSimpleHashTable&) = delete;
    KELSysSimpleHashTable& operator=(const KELSysSimpleHashTable&) = delete;
    ~KELSysSimpleHashTable() = default;

    /// Stores iElement unless an equal element is stored, and returns the element that is now stored. Null when it
    /// could store nothing: for a null element and in a full table. Throws `std::bad_alloc`; nothing changes then.
    void* InsertAndReturn(void* iElement)
    {
        return iElement ? InsertHashed(iElement, m_hash(iElement),
                                       [this, iElement](void* iStored) { return m_equal(iStored, iElement) != 0; })
                        : nullptr;
    }

    /// The same for a caller that has the element's hash at hand and compares elements in its own way, in line.
    template <class IsElement>
    void* InsertHashed(void* iElement, unsigned int iHash, const IsElement& iIsElement);

    /// The stored element that is equal to the probe, or null.
    void* Locate(void* iProbe) const
    {
        return LocateHashed(iProbe, m_hash(iProbe),
                            [this, iProbe](void* iElement) { return m_equal(iElement, iProbe) != 0; });
    }

    /// The same for a caller that has the probe's hash at hand and compares elements in its own way, in line.
    template <class IsProbe>
    KEL_ALWAYS_INLINE void* LocateHashed(void* iProbe, unsigned int iHash, const IsProbe& iIsProbe) const
    {
        const int index = Find(iProbe, iHash, iIsProbe);
        return index == kNone ? nullptr : At(index).element;
    }

    /// Takes the stored element that is equal to the probe out of the table and returns it, or null.
    void* Remove(void* iProbe);

    /// The element at iIndex, from 0 to `Size() - 1`; null for any other index.
    void* Get(int iIndex) const { return iIndex >= 0 && iIndex < Size() ? At(iIndex).element : nullptr; }

    /// Number of elements.
    int Size() const { return m_size; }

    /// Makes an empty table a copy of another with the same functions: with its order, hashes and chains, and with an
    /// element that iReplace makes of each. Throws what iReplace throws, with the elements made before.
    template <class Replace>
    void CopyFrom(const KELSysSimpleHashTable& iOther, const Replace& iReplace);

    /// Exchanges the elements of two tables that have the same functions.
    void Swap(KELSysSimpleHashTable& ioOther) noexcept
    {
        m_slots.swap(ioOther.m_slots);
        std::swap(m_size, ioOther.m_size);
        std::swap(m_buckets, ioOther.m_buckets);
        std::swap(m_mask, ioOther.m_mask);
        std::swap(m_isSalted, ioOther.m_isSalted);
        std::swap(m_salt, ioOther.m_salt);
    }

    /// Forgets every element and gives the memory back.
    void RemoveAll() { KELSysSimpleHashTable(0, m_hash, m_equal, m_saltedHash).Swap(*this); }

private:
    static constexpr int kNone = -1;
    static constexpr std::size_t kFirstSlots = 16;
    static constexpr std::size_t kBucketsPerSlot = 2;
    static constexpr int kLongestChain = 32; // that honest hashes can make, with two buckets for each element

    // Room for an element, and two buckets, which have nothing to do with it: so all lies in one array.
    struct Slot {
        void* element;
        unsigned int hash;          // salted in a salted table
        int next;                   // index of the next element of the same bucket
        int heads[kBucketsPerSlot]; // of each bucket the index of its first element
    };

    const Slot& At(int iIndex) const { return m_slots[static_cast<std::size_t>(iIndex)]; }
    Slot& At(int iIndex) { return m_slots[static_cast<std::size_t>(iIndex)]; }

    int& Head(std::size_t iBucket) { return m_slots[iBucket / kBucketsPerSlot].heads[iBucket % kBucketsPerSlot]; }

    // The first element of a hash's bucket. Buckets beyond the last power of two exist only as far as they have been
    // split off.
    const int& HeadOf(unsigned int iHash) const
    {
        const std::size_t own = iHash & m_mask;
        const std::size_t bucket = own < m_buckets ? own : own & (m_mask >> 1U);
        return m_slots[bucket / kBucketsPerSlot].heads[bucket % kBucketsPerSlot];
    }
    int& HeadOf(unsigned int iHash) { return const_cast<int&>(std::as_const(*this).HeadOf(iHash)); }

    template <class IsProbe>
    KEL_ALWAYS_INLINE int FindInChain(unsigned int iHash, const IsProbe& iIsProbe) const
    {
        int index = HeadOf(iHash);
        while (index != kNone && !(At(index).hash == iHash && iIsProbe(At(index).element))) {
            index = At(index).next;
        }
        return index;
    }

    // A salted table is tried with the plain hash first, so that a hit in any other table costs nothing more.
    template <class IsProbe>
    KEL_ALWAYS_INLINE int Find(void* iProbe, unsigned int iHash, const IsProbe& iIsProbe) const
    {
        if (m_buckets == 0) {
            return kNone;
        }
        const int index = FindInChain(iHash, iIsProbe);
        return index == kNone && m_isSalted ? FindInChain(m_saltedHash(iProbe, m_salt), iIsProbe) : index;
    }

    void Link(int iIndex)
    {
        int& head = HeadOf(At(iIndex).hash);
        At(iIndex).next = head;
        head = iIndex;
    }

    void MakeFirstRoom(std::size_t iSlots);
    void MakeRoom();
    void FillBucket(std::size_t iBucket);
    void AddSalt();
    void LinkAll();
    int& LinkTo(int iIndex);

    HashFunction m_hash;
    EqualFunction m_equal;
    SaltedHashFunction m_saltedHash;
    std::vector<Slot> m_slots; // the elements first, then room
    int m_size = 0;            // in elements
    std::size_t m_buckets = 0; // of all slots: kept, since a look-up would have to divide for it
    std::size_t m_mask = 0;    // the least 2^n - 1 that covers every bucket
    bool m_isSalted = false;
    KELHashSalt m_salt;
};

template <class IsElement>
void* KELSysSimpleHashTable::InsertHashed(void* iElement, unsigned int iHash, const IsElement& iIsElement)
{
    unsigned int hash = m_isSalted ? m_saltedHash(iElement, m_salt) : iHash;
    int length = 0;
    for (int i = m_buckets == 0 ? kNone : HeadOf(hash); i != kNone; i = At(i).next, ++length) {
        if (At(i).hash == hash && iIsElement(At(i).element)) {
            return At(i).element;
        }
    }
    if (length >= kLongestChain && m_saltedHash && !m_isSalted) {
        AddSalt();
        hash = m_saltedHash(iElement, m_salt);
    }
    if (Size() == (std::numeric_limits<int>::max)()) {
        return nullptr;
    }
    if (static_cast<std::size_t>(m_size) == m_slots.size()) {
        MakeRoom();
    }
    At(m_size).element = iElement;
    At(m_size).hash = hash;
    Link(m_size++);
    return iElement;
}

template <class Replace>
void KELSysSimpleHashTable::CopyFrom(const KELSysSimpleHashTable& iOther, const Replace& iReplace)
{
    m_slots = iOther.m_slots;
    m_buckets = iOther.m_buckets;
    m_mask = iOther.m_mask;
    m_isSalted = iOther.m_isSalted;
    m_salt = iOther.m_salt;
    try {
        while (m_size < iOther.m_size) {
            At(m_size).element = iReplace(At(m_size).element);
            ++m_size;
        }
    } catch (...) {
        LinkAll(); // no chain leads to an element that is not there
        throw;
    }
}

inline void* KELSysSimpleHashTable::Remove(void* iProbe)
{
    const int index =
        Find(iProbe, m_hash(iProbe), [this, iProbe](void* iElement) { return m_equal(iElement, iProbe) != 0; });
    if (index == kNone) {
        return nullptr;
    }
    void* const removed = At(index).element;
    LinkTo(index) = At(index).next;
    const int last = Size() - 1;
    if (index != last) {
        LinkTo(last) = index;
        At(index).element = At(last).element;
        At(index).hash = At(last).hash;
        At(index).next = At(last).next;
    }
    m_size = last;
    if (m_size == 0 && m_slots.size() > kFirstSlots) {
        RemoveAll();
    }
    return removed;
}

inline void KELSysSimpleHashTable::MakeFirstRoom(std::size_t iSlots)
{
    m_slots.resize(iSlots, {nullptr, 0, kNone, {kNone, kNone}});
    m_buckets = iSlots * kBucketsPerSlot;
    while (m_mask < m_buckets - 1) {
        m_mask = m_mask * 2 + 1;
    }
}

// All that an insertion allocates, so that it can be refused before anything has changed.
inline void KELSysSimpleHashTable::MakeRoom()
{
    if (m_slots.empty()) {
        MakeFirstRoom(kFirstSlots);
        return;
    }
    m_slots.push_back({nullptr, 0, kNone, {kNone, kNone}});
    for (std::size_t i = 0; i < kBucketsPerSlot; ++i) {
        FillBucket(m_buckets++);
    }
}

// Splits the bucket that has stood in for the new one.
inline void KELSysSimpleHashTable::FillBucket(std::size_t iBucket)
{
    if (iBucket > m_mask) {
        m_mask = m_mask * 2 + 1;
    }
    int* link = &Head(iBucket & (m_mask >> 1U));
    while (*link != kNone) {
        const int index = *link;
        if ((At(index).hash & m_mask) == iBucket) {
            *link = At(index).next;
            At(index).next = Head(iBucket);
            Head(iBucket) = index;
        } else {
            link = &At(index).next;
        }
    }
}

inline void KELSysSimpleHashTable::AddSalt()
{
    m_salt = KELHashSalt::Make();
    m_isSalted = true;
    for (int i = 0; i < m_size; ++i) {
        At(i).hash = m_saltedHash(At(i).element, m_salt);
    }
    LinkAll();
}

inline void KELSysSimpleHashTable::LinkAll()
{
    for (Slot& slot : m_slots) {
        std::fill(std::begin(slot.heads), std::end(slot.heads), kNone);
    }
    for (int i = 0; i < m_size; ++i) {
        Link(i);
    }
}

// The link, in a bucket or in another element, that leads to the element at iIndex.
inline int& KELSysSimpleHashTable::LinkTo(int iIndex)
{
    int* link = &HeadOf(At(iIndex).hash);
    while (*link != iIndex) {
        link = &At(*link).next;
    }
    return *link;
}

#endif
