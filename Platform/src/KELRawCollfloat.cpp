#include "KELRawCollfloat.h"

#include "KELPositions.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

KELRawCollfloat::Elements* KELRawCollfloat::CopyElements(const Elements* iElements, int iCapacity)
{
    const std::size_t room = static_cast<std::size_t>(iCapacity) * sizeof(float);
    void* const memory = ::operator new(sizeof(Elements) + room);
    auto* const values = reinterpret_cast<float*>(static_cast<Elements*>(memory) + 1);
    const int size = iElements ? std::min(iElements->size, iCapacity) : 0;
    if (iElements) {
        std::uninitialized_copy_n(iElements->values, size, values);
    }
    return ::new (memory) Elements{KELReferenceCount(1), size, iCapacity, false, 0.0F, values};
}

KELRawCollfloat::KELRawCollfloat(int iReserved) : m_elements(iReserved > 0 ? CopyElements(nullptr, iReserved) : nullptr)
{
}

KELRawCollfloat::KELRawCollfloat(const KELRawCollfloat& iOther)
{
    if (!iOther.m_elements) {
        return;
    }
    if (iOther.m_elements->isLent) {
        m_elements = CopyElements(iOther.m_elements, iOther.Size());
        return;
    }
    if (!iOther.m_elements->holders.IsImmortal()) {
        iOther.m_elements->holders.Increment();
    }
    m_elements = iOther.m_elements;
}

void KELRawCollfloat::RemoveHolder() noexcept
{
    if (m_elements && !m_elements->holders.IsImmortal() && m_elements->holders.Decrement() == 0) {
        m_elements->~Elements();
        ::operator delete(m_elements);
    }
}

void KELRawCollfloat::MakeWritable(int iCapacity)
{
    if (!m_elements || !m_elements->holders.IsUnique() || m_elements->capacity < iCapacity) {
        Elements* const writable = CopyElements(m_elements, std::max(iCapacity, Size()));
        RemoveHolder();
        m_elements = writable;
    }
    m_elements->isLent = false;
}

void KELRawCollfloat::Size(int iCount, float iFill)
{
    const int count = std::max(iCount, 0);
    MakeWritable(count);
    if (count > m_elements->size) {
        std::uninitialized_fill_n(m_elements->values + m_elements->size, count - m_elements->size, iFill);
    }
    m_elements->size = count;
}

void KELRawCollfloat::Append(float iValue)
{
    const int size = Size();
    if (size == std::numeric_limits<int>::max()) {
        throw std::bad_alloc();
    }
    const bool isFull = !m_elements || size == m_elements->capacity;
    const int doubled = size < std::numeric_limits<int>::max() / 2 ? size * 2 : std::numeric_limits<int>::max();
    MakeWritable(isFull ? std::max(4, doubled) : size + 1);
    ::new (m_elements->values + size) float(iValue);
    m_elements->size = size + 1;
}

float KELRawCollfloat::operator[](int iPosition) const
{
    return KELHasPosition(iPosition, Size()) ? m_elements->values[iPosition - 1] : 0.0F;
}

float& KELRawCollfloat::operator[](int iPosition)
{
    const bool isThere = KELHasPosition(iPosition, Size());
    MakeWritable(Size());
    m_elements->isLent = true;
    return isThere ? m_elements->values[iPosition - 1] : (m_elements->nowhere = 0.0F);
}

int KELRawCollfloat::Compare(const KELRawCollfloat& iLeft, const KELRawCollfloat& iRight)
{
    const int shorter = std::min(iLeft.Size(), iRight.Size());
    for (int i = 0; i < shorter; ++i) {
        const float left = iLeft.m_elements->values[i];
        const float right = iRight.m_elements->values[i];
        if (!(left == right)) {
            return left < right ? -1 : 1;
        }
    }
    return iLeft.Size() == iRight.Size() ? 0 : iLeft.Size() < iRight.Size() ? -1 : 1;
}
