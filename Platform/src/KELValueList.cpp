#include "KELValueList.h"

#include "KELPositions.h"
#include "KELSysTSUnicodeString.h"
#include "KELUnicodeString.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>

namespace {

constexpr int kMostElements = std::numeric_limits<int>::max();

// There before any code runs and never destroyed, without a guard: nothing of it is thread-local, which would outlive
// the library on Windows, and any initialiser and destructor may use it.
template <class T>
union Empty {
    constexpr Empty() noexcept : element() {}
    ~Empty() {} // NOLINT(modernize-use-equals-default): would be deleted
    T element;
};

template <class T>
constinit const Empty<T> g_empty;

} // namespace

template <class T>
KELValueList<T>::KELValueList(const KELValueList& iOther)
{
    static_assert(std::is_nothrow_copy_constructible_v<T> && std::is_nothrow_move_constructible_v<T>,
                  "only allocating an array may throw");
    if (iOther.m_size != 0) {
        m_elements = Allocate(iOther.m_size);
        std::uninitialized_copy_n(iOther.m_elements, iOther.m_size, m_elements);
        m_size = m_capacity = iOther.m_size;
    }
}

template <class T>
KELValueList<T>::~KELValueList()
{
    std::destroy_n(m_elements, m_size);
    ::operator delete(m_elements);
}

template <class T>
void KELValueList<T>::Reserve(int iCount)
{
    if (iCount > m_capacity) {
        const int count = std::max(iCount, m_capacity <= kMostElements / 2 ? 2 * m_capacity : kMostElements);
        MoveTo(Allocate(count), count);
    }
}

template <class T>
void KELValueList<T>::AddToFull(T iElement)
{
    if (m_size == kMostElements) {
        throw std::bad_alloc();
    }
    Reserve(m_size + 1);
    ::new (m_elements + m_size) T(std::move(iElement));
    ++m_size;
}

template <class T>
T* KELValueList<T>::Allocate(int iCount)
{
    return static_cast<T*>(::operator new(static_cast<std::size_t>(iCount) * sizeof(T)));
}

template <class T>
const T& KELValueList<T>::NoElement(int iPosition) const
{
    KELHasPosition(iPosition, m_size);
    return g_empty<T>.element;
}

template <class T>
void KELValueList<T>::MoveTo(T* iElements, int iCapacity) noexcept
{
    std::uninitialized_move_n(m_elements, m_size, iElements);
    std::destroy_n(m_elements, m_size);
    ::operator delete(m_elements);
    m_elements = iElements;
    m_capacity = iCapacity;
}

template class KELValueList<KELUnicodeString>;
template class KELValueList<KELSysTSUnicodeString>;
