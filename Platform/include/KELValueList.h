#ifndef KELValueList_H
#define KELValueList_H

#include "KELExport.h"

#include <new>
#include <utility>

/// A list of values with positions from 1, the common part of the platform's lists of strings.
///
/// Its array belongs to the platform library, which alone makes, grows and frees it: a list passes between modules
/// whose standard libraries, or modes of one, differ. Whatever allocates throws `std::bad_alloc`, also for more than
/// 2^31 - 1 elements, and then leaves the list as it was. A growing list doubles its room.
///
/// Thread-compatible.
/// \tparam T KELUnicodeString or KELSysTSUnicodeString; the library has the list of no other type
template <class T>
class KEL_API KELValueList {
public:
    /// An empty list.
    KELValueList() noexcept = default;

    /// A copy of all elements. Linear.
    KELValueList(const KELValueList& iOther);

    /// Takes the other's elements over; the other is empty then.
    inline KELValueList(KELValueList&& ioOther) noexcept;

    /// Takes the elements of a copy, or of what was moved, over. Linear in a copy.
    inline KELValueList& operator=(KELValueList iOther) noexcept;

    ~KELValueList();

    /// Number of elements.
    inline int Size() const noexcept;

    /// The element at iPosition, from 1 to `Size()`; valid until the list changes. Any other position is reported as a
    /// failed check and gives an empty element, which is there as long as the platform library is.
    inline const T& operator[](int iPosition) const;

    /// Makes room for iCount elements in all, or for twice as many as there was room for, if that is more.
    void Reserve(int iCount);

protected:
    /// Adds a copy at the end.
    inline void Add(const T& iElement);

private:
    static T* Allocate(int iCount);
    void AddToFull(T iElement); // by value: it may be one of the list's own

    const T& NoElement(int iPosition) const;
    void MoveTo(T* iElements, int iCapacity) noexcept;

    inline void Swap(KELValueList& ioOther) noexcept;

    T* m_elements = nullptr;
    int m_size = 0;
    int m_capacity = 0;
};

// The inline members.

template <class T>
KELValueList<T>::KELValueList(KELValueList&& ioOther) noexcept
{
    Swap(ioOther);
}
template <class T>
KELValueList<T>& KELValueList<T>::operator=(KELValueList iOther) noexcept
{
    Swap(iOther);
    return *this;
}

template <class T>
int KELValueList<T>::Size() const noexcept
{
    return m_size;
}
template <class T>
const T& KELValueList<T>::operator[](int iPosition) const
{
    return iPosition >= 1 && iPosition <= m_size ? m_elements[iPosition - 1] : NoElement(iPosition);
}

template <class T>
void KELValueList<T>::Add(const T& iElement)
{
    if (m_size == m_capacity) {
        AddToFull(iElement);
        return;
    }
    ::new (m_elements + m_size) T(iElement);
    ++m_size;
}
template <class T>
void KELValueList<T>::Swap(KELValueList& ioOther) noexcept
{
    std::swap(m_elements, ioOther.m_elements);
    std::swap(m_size, ioOther.m_size);
    std::swap(m_capacity, ioOther.m_capacity);
}

#endif
