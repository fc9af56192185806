#ifndef FakeSimpleHashTable_H
#define FakeSimpleHashTable_H

#include <algorithm>
#include <vector>

/// A table that offers the plain interface and nothing else, as a platform's own may.
class KELSysSimpleHashTable {
public:
    KELSysSimpleHashTable(int, unsigned int (*)(void*), int (*iEqual)(void*, void*)) : m_equal(iEqual) {}
    void* InsertAndReturn(void* iElement)
    {
        const int index = Find(iElement);
        return index < Size() ? Get(index) : (m_elements.push_back(iElement), iElement);
    }
    void* Locate(void* iProbe) const { return Get(Find(iProbe)); }
    void* Remove(void* iProbe)
    {
        void* const removed = Locate(iProbe);
        std::erase(m_elements, removed);
        return removed;
    }
    void* Get(int iIndex) const { return iIndex < Size() ? m_elements[static_cast<std::size_t>(iIndex)] : nullptr; }
    int Size() const { return static_cast<int>(m_elements.size()); }
    void RemoveAll() { m_elements.clear(); }

private:
    int Find(void* iProbe) const
    {
        const auto isEqual = [&](void* iElement) { return m_equal(iElement, iProbe) != 0; };
        return static_cast<int>(std::find_if(m_elements.begin(), m_elements.end(), isEqual) - m_elements.begin());
    }
    int (*m_equal)(void*, void*);
    std::vector<void*> m_elements;
};

#endif
