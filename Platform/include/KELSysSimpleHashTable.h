// Not for callers: what the platform's own headers and the library stand on.
#ifndef KELSysSimpleHashTable_H
#define KELSysSimpleHashTable_H

#include "KELHashSalt.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

/// An untyped hash table of element pointers, with hash and equality functions of the caller's.
///
/// The table owns no element. Its elements lie densely, in an order that removals change and lookups do not, so that
/// `Get(i)` and traversal cost what an array costs. Buckets are added two by two as elements arrive and only the chain
/// that is split moves: no insertion ever rehashes the whole table, and growing is what growing an array costs.
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
            MakeFirstRoom((std::max)(static_cast<std::size_t>(iExpected), kFirstElements));
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
    void* LocateHashed(void* iProbe, unsigned int iHash, const IsProbe& iIsProbe) const
    {
        const int index = Find(iProbe, iHash, iIsProbe);
        return index == kNone ? nullptr : At(index).element;
    }

    /// Takes the stored element that is equal to the probe out of the table and returns it, or null.
    void* Remove(void* iProbe);

    /// The element at iIndex, from 0 to `Size() - 1`; null for any other index.
    void* Get(int iIndex) const { return iIndex >= 0 && iIndex < Size() ? At(iIndex).element : nullptr; }

    int Size() const { return static_cast<int>(m_elements.size()); }

    /// Makes an empty table a copy of another with the same functions: with its order, hashes and chains, and with an
    /// element that iReplace makes of each. Throws what iReplace throws, with the elements made before.
    template <class Replace>
    void CopyFrom(const KELSysSimpleHashTable& iOther, const Replace& iReplace);

    /// Exchanges the elements of two tables that have the same functions.
    void Swap(KELSysSimpleHashTable& ioOther) noexcept
    {
        m_elements.swap(ioOther.m_elements);
        m_heads.swap(ioOther.m_heads);
        std::swap(m_mask, ioOther.m_mask);
        std::swap(m_isSalted, ioOther.m_isSalted);
        std::swap(m_salt, ioOther.m_salt);
    }

    /// Forgets every element and gives the memory back.
    void RemoveAll() { KELSysSimpleHashTable(0, m_hash, m_equal, m_saltedHash).Swap(*this); }

private:
    static constexpr int kNone = -1;
    static constexpr std::size_t kFirstElements = 16;
    static constexpr std::size_t kBucketsPerElement = 2;
    static constexpr int kLongestChain = 32; // that honest hashes can make, with two buckets for each element

    struct Element {
        void* element;
        unsigned int hash; // salted in a salted table
        int next;          // index of the next element of the same bucket
    };

    const Element& At(int iIndex) const { return m_elements[static_cast<std::size_t>(iIndex)]; }
    Element& At(int iIndex) { return m_elements[static_cast<std::size_t>(iIndex)]; }

    // Buckets beyond the last power of two exist only as far as they have been split off.
    std::size_t Bucket(unsigned int iHash) const
    {
        const std::size_t bucket = iHash & m_mask;
        return bucket < m_heads.size() ? bucket : bucket & (m_mask >> 1U);
    }

    template <class IsProbe>
    int FindInChain(unsigned int iHash, const IsProbe& iIsProbe) const
    {
        int index = m_heads[Bucket(iHash)];
        while (index != kNone && !(At(index).hash == iHash && iIsProbe(At(index).element))) {
            index = At(index).next;
        }
        return index;
    }

    // A salted table is tried with the plain hash first, so that a hit in any other table costs nothing more.
    template <class IsProbe>
    int Find(void* iProbe, unsigned int iHash, const IsProbe& iIsProbe) const
    {
        if (m_heads.empty()) {
            return kNone;
        }
        const int index = FindInChain(iHash, iIsProbe);
        return index == kNone && m_isSalted ? FindInChain(m_saltedHash(iProbe, m_salt), iIsProbe) : index;
    }

    void Link(int iIndex)
    {
        int& head = m_heads[Bucket(At(iIndex).hash)];
        At(iIndex).next = head;
        head = iIndex;
    }

    void MakeFirstRoom(std::size_t iElements);
    void MakeRoom();
    void AddBucket();
    void AddSalt();
    void LinkAll();
    int& LinkTo(int iIndex);

    HashFunction m_hash;
    EqualFunction m_equal;
    SaltedHashFunction m_saltedHash;
    std::vector<Element> m_elements;
    std::vector<int> m_heads; // per bucket the index of its first element
    std::size_t m_mask = 0;   // the least 2^n - 1 that covers every bucket
    bool m_isSalted = false;
    KELHashSalt m_salt;
};

template <class IsElement>
void* KELSysSimpleHashTable::InsertHashed(void* iElement, unsigned int iHash, const IsElement& iIsElement)
{
    unsigned int hash = m_isSalted ? m_saltedHash(iElement, m_salt) : iHash;
    int length = 0;
    for (int i = m_heads.empty() ? kNone : m_heads[Bucket(hash)]; i != kNone; i = At(i).next, ++length) {
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
    if (m_elements.size() == m_elements.capacity() || m_heads.size() < (m_elements.size() + 1) * kBucketsPerElement) {
        MakeRoom();
    }
    m_elements.push_back({iElement, hash, kNone});
    Link(Size() - 1);
    return iElement;
}

template <class Replace>
void KELSysSimpleHashTable::CopyFrom(const KELSysSimpleHashTable& iOther, const Replace& iReplace)
{
    m_elements.reserve(iOther.m_elements.size());
    m_heads = iOther.m_heads;
    m_mask = iOther.m_mask;
    m_isSalted = iOther.m_isSalted;
    m_salt = iOther.m_salt;
    try {
        for (const Element& element : iOther.m_elements) {
            m_elements.push_back({iReplace(element.element), element.hash, element.next});
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
        At(index) = At(last);
    }
    m_elements.pop_back();
    if (m_elements.empty() && m_elements.capacity() > kFirstElements) {
        RemoveAll();
    }
    return removed;
}

inline void KELSysSimpleHashTable::MakeFirstRoom(std::size_t iElements)
{
    const std::size_t buckets = iElements * kBucketsPerElement;
    m_elements.reserve(iElements);
    m_heads.reserve(buckets * 3 / 2); // never grows together with the elements
    m_heads.assign(buckets, kNone);
    m_mask = 1;
    while (m_mask < buckets - 1) {
        m_mask = m_mask * 2 + 1;
    }
}

// Everything that an insertion allocates, so that it can be refused before anything has changed.
inline void KELSysSimpleHashTable::MakeRoom()
{
    if (m_heads.empty()) {
        MakeFirstRoom(kFirstElements);
    }
    if (m_elements.size() == m_elements.capacity()) {
        m_elements.reserve((std::max)(kFirstElements, m_elements.capacity() * 2));
    }
    while (m_heads.size() < (m_elements.size() + 1) * kBucketsPerElement) {
        AddBucket();
    }
}

// Splits the bucket that has stood in for the new one.
inline void KELSysSimpleHashTable::AddBucket()
{
    const std::size_t added = m_heads.size();
    m_heads.push_back(kNone);
    if (added > m_mask) {
        m_mask = m_mask * 2 + 1;
    }
    int* link = &m_heads[added & (m_mask >> 1U)];
    while (*link != kNone) {
        const int index = *link;
        if ((At(index).hash & m_mask) == added) {
            *link = At(index).next;
            At(index).next = m_heads[added];
            m_heads[added] = index;
        } else {
            link = &At(index).next;
        }
    }
}

inline void KELSysSimpleHashTable::AddSalt()
{
    m_salt = KELHashSalt::Make();
    m_isSalted = true;
    for (Element& element : m_elements) {
        element.hash = m_saltedHash(element.element, m_salt);
    }
    LinkAll();
}

inline void KELSysSimpleHashTable::LinkAll()
{
    std::fill(m_heads.begin(), m_heads.end(), kNone);
    for (int i = 0; i < Size(); ++i) {
        Link(i);
    }
}

// The link, in a bucket or in another element, that leads to the element at iIndex.
inline int& KELSysSimpleHashTable::LinkTo(int iIndex)
{
    int* link = &m_heads[Bucket(At(iIndex).hash)];
    while (*link != iIndex) {
        link = &At(*link).next;
    }
    return *link;
}

#endif
