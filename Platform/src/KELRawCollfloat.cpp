#include "KELRawCollfloat.h"

#include "KELPositions.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

KELRawCollfloat::Elements* KELRawCollfloat::CopyElements(Elements* iElements, int iCapacity)
{
    const std::size_t room = static_cast<std::size_t>(iCapacity) * sizeof(float);
    const int size = iElements ? std::min(iElements->size, iCapacity) : 0;
    void* const memory = ::operator new(sizeof(Elements) + room);
    auto* const elements = ::new (memory) Elements{KELReferenceCount(1), size, iCapacity, false, 0.0F};
    if (iElements) {
        std::uninitialized_copy_n(iElements->Values(), size, elements->Values());
    }
    return elements;
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
    iOther.m_elements->holders.Increment();
    m_elements = iOther.m_elements;
}

void KELRawCollfloat::RemoveHolder() noexcept
{
    if (m_elements && m_elements->holders.Decrement() == 0) {
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

// Makes room for iCount elements, and for as many again when the list has to grow.
void KELRawCollfloat::Grow(int iCount)
{
    constexpr int kMost = std::numeric_limits<int>::max();
    const int capacity = m_elements ? m_elements->capacity : 0;
    const int doubled = capacity < kMost / 2 ? capacity * 2 : kMost;
    MakeWritable(iCount > capacity ? std::max(iCount, doubled) : iCount);
}

void KELRawCollfloat::Size(int iCount, float iFill)
{
    const int count = std::max(iCount, 0);
    Grow(count);
    std::uninitialized_fill(m_elements->Values() + m_elements->size,
                            m_elements->Values() + std::max(count, m_elements->size), iFill);
    m_elements->size = count;
}

void KELRawCollfloat::Append(float iValue)
{
    const int size = Size();
    if (size == std::numeric_limits<int>::max()) {
        throw std::bad_alloc();
    }
    constexpr int kFirst = 4;
    Grow(std::max(size + 1, kFirst));
    ::new (m_elements->Values() + size) float(iValue);
    m_elements->size = size + 1;
}

float KELRawCollfloat::operator[](int iPosition) const
{
    return KELHasPosition(iPosition, Size()) ? m_elements->Values()[iPosition - 1] : 0.0F;
}

float& KELRawCollfloat::operator[](int iPosition)
{
    const bool isThere = KELHasPosition(iPosition, Size());
    MakeWritable(Size());
    m_elements->isLent = true;
    return isThere ? m_elements->Values()[iPosition - 1] : (m_elements->nowhere = 0.0F);
}

int KELRawCollfloat::Compare(const KELRawCollfloat& iLeft, const KELRawCollfloat& iRight)
{
    const int shorter = std::min(iLeft.Size(), iRight.Size());
    for (int i = 0; i < shorter; ++i) {
        const float left = iLeft.m_elements->Values()[i];
        const float right = iRight.m_elements->Values()[i];
        if (!(left == right)) {
            return left < right ? -1 : 1;
        }
    }
    return (shorter < iLeft.Size() ? 1 : 0) - (shorter < iRight.Size() ? 1 : 0);
}
