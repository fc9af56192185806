#ifndef KELValueList_H
#define KELValueList_H

#include <KELPositions.h>

#include <algorithm>
#include <cstddef>
#include <vector>

/// A list of values with positions from 1, the common part of the platform's lists of strings.
///
/// Not changed by one thread while another uses it. Growing throws the standard allocation failure and leaves the list
/// as it was.
template <class T>
class KELValueList {
public:
    int Size() const noexcept { return static_cast<int>(m_elements.size()); }

    /// The element at iPosition, from 1 to `Size()`; valid until the list changes. Any other position is reported as a
    /// failed check and gives an empty element.
    const T& operator[](int iPosition) const
    {
        return KELHasPosition(iPosition, Size()) ? m_elements[static_cast<std::size_t>(iPosition) - 1] : s_empty;
    }

    /// Makes room for iCount elements in all.
    void Reserve(int iCount)
    {
        const auto count = static_cast<std::size_t>(iCount > 0 ? iCount : 0);
        if (count > m_elements.capacity()) {
            m_elements.reserve(std::max(count, 2 * m_elements.capacity())); // doubled, as repeated calls need it
        }
    }

protected:
    void Add(const T& iElement) { m_elements.push_back(iElement); }

private:
    // Not within the operation: entering a guarded initialisation costs a library for Windows a thread-local slot,
    // which is not given back when it is unloaded.
    static inline const T s_empty{};

    std::vector<T> m_elements;
};

#endif
