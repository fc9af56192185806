#ifndef ZrvListIterator_H
#define ZrvListIterator_H

#include "KELListValKELUnicodeString.h"
#include "KELRawCollfloat.h"
#include "KELSysTSListOfUnicodeString.h"

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

/// Walks over a list of the platform by its positions.
template <class List>
class ZrvListIterator {
public:
    /// What the standard algorithms ask of an iterator.
    /// @{
    using iterator_category = std::input_iterator_tag;
    using reference = decltype(std::declval<const List&>()[1]);
    using value_type = std::decay_t<reference>;
    using pointer = void;
    using difference_type = std::ptrdiff_t;
    /// @}

    ZrvListIterator() = default;

    /// Refers to the element at a position, counted from 1. Valid while the list exists.
    /// @{
    ZrvListIterator(const List& iList, int iPosition) noexcept : m_list(&iList), m_position(iPosition) {}

    reference operator*() const { return (*m_list)[m_position]; }

    ZrvListIterator& operator++() noexcept
    {
        ++m_position;
        return *this;
    }

    ZrvListIterator operator++(int) noexcept
    {
        const ZrvListIterator before = *this;
        ++m_position;
        return before;
    }

    friend bool operator==(const ZrvListIterator& iLeft, const ZrvListIterator& iRight) noexcept
    {
        return iLeft.m_position == iRight.m_position;
    }

    friend bool operator!=(const ZrvListIterator& iLeft, const ZrvListIterator& iRight) noexcept
    {
        return iLeft.m_position != iRight.m_position;
    }
    /// @}

private:
    const List* m_list = nullptr;
    int m_position = 1;
};

/// The elements of a list of the platform, for a range-for and the standard algorithms. Elements that are added during
/// the loop are not visited.
/// \code
/// KELListValKELUnicodeString names;
/// set.GetListProperties(names);
/// for (const KELUnicodeString& name : names) { ... }
/// \endcode
/// @{
inline ZrvListIterator<KELListValKELUnicodeString> begin(const KELListValKELUnicodeString& iList) noexcept
{
    return {iList, 1};
}

inline ZrvListIterator<KELListValKELUnicodeString> end(const KELListValKELUnicodeString& iList) noexcept
{
    return {iList, iList.Size() + 1};
}

inline ZrvListIterator<KELSysTSListOfUnicodeString> begin(const KELSysTSListOfUnicodeString& iList) noexcept
{
    return {iList, 1};
}

inline ZrvListIterator<KELSysTSListOfUnicodeString> end(const KELSysTSListOfUnicodeString& iList) noexcept
{
    return {iList, iList.Size() + 1};
}

inline ZrvListIterator<KELRawCollfloat> begin(const KELRawCollfloat& iList) noexcept
{
    return {iList, 1};
}

inline ZrvListIterator<KELRawCollfloat> end(const KELRawCollfloat& iList) noexcept
{
    return {iList, iList.Size() + 1};
}
/// @}

#endif
