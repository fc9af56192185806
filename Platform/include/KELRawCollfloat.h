#ifndef KELRawCollfloat_H
#define KELRawCollfloat_H

#include "KELExport.h"
#include "KELReferenceCount.h"

#include <utility>

/// A list of floats, positions from 1, whose elements are shared between copies until one of them is changed.
///
/// Copying shares the elements and does not allocate, unless an element was handed out for writing; then it copies
/// them, as the first change of a shared list does. Moving never allocates. Whatever allocates throws `std::bad_alloc`
/// and then leaves the list as it was. A growing list doubles its room. The memory belongs to the platform library, so
/// that a list may outlive the module that made it.
///
/// Thread-compatible; lists that share their elements may be used by different threads.
class KEL_API KELRawCollfloat {
    // What lists share. The values lie behind it in the same allocation.
    struct Elements {
        float* Values() noexcept { return reinterpret_cast<float*>(this + 1); }

        KELReferenceCount holders;
        int size;
        int capacity;
        bool isLent;   // a caller may still write through a reference into it, so that it is not shared any more
        float nowhere; // what a position outside gives; thread-local, it would outlive the module on Windows
    };

public:
    /// An empty list with room for iReserved elements.
    explicit KELRawCollfloat(int iReserved = 0);

    /// A copy shares the elements. Assigning a list that shares them already does nothing. Move construction leaves the
    /// source empty; move assignment exchanges the two.
    /// @{
    KELRawCollfloat(const KELRawCollfloat& iOther);
    inline KELRawCollfloat(KELRawCollfloat&& ioOther) noexcept;
    inline KELRawCollfloat& operator=(const KELRawCollfloat& iOther);
    inline KELRawCollfloat& operator=(KELRawCollfloat&& ioOther) noexcept;
    /// @}

    inline ~KELRawCollfloat();

    /// Number of elements.
    inline int Size() const noexcept;

    /// Makes the list iCount elements long (0 for a negative count): keeps the first ones, fills new ones with iFill.
    /// Linear in what it adds.
    void Size(int iCount, float iFill);

    /// Adds iValue at the end.
    void Append(float iValue);

    /// The element at iPosition, from 1 to `Size()`. Any other position is reported as a failed check and gives 0.
    float operator[](int iPosition) const;

    /// The same for writing; valid until the list is next changed, assigned or destroyed. Any other position is
    /// reported as a failed check and gives a 0 to write to that is no element.
    float& operator[](int iPosition);

    /// 0 when both lists have the same number of elements and all are equal (a NaN equals nothing, 0.0 equals -0.0);
    /// else -1 or 1, which order lists by their first difference. Linear.
    static int Compare(const KELRawCollfloat& iLeft, const KELRawCollfloat& iRight);

private:
    static Elements* CopyElements(Elements* iElements, int iCapacity);
    void RemoveHolder() noexcept;
    void MakeWritable(int iCapacity);
    void Grow(int iCount);

    Elements* m_elements = nullptr;
};

// The inline members.

KELRawCollfloat::KELRawCollfloat(KELRawCollfloat&& ioOther) noexcept
    : m_elements(std::exchange(ioOther.m_elements, nullptr))
{
}
KELRawCollfloat::~KELRawCollfloat()
{
    RemoveHolder();
}

KELRawCollfloat& KELRawCollfloat::operator=(const KELRawCollfloat& iOther)
{
    if (m_elements != iOther.m_elements) {
        *this = KELRawCollfloat(iOther);
    }
    return *this;
}
KELRawCollfloat& KELRawCollfloat::operator=(KELRawCollfloat&& ioOther) noexcept
{
    std::swap(m_elements, ioOther.m_elements);
    return *this;
}

int KELRawCollfloat::Size() const noexcept
{
    return m_elements ? m_elements->size : 0;
}

#endif
