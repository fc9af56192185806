#ifndef KELSysSimpleHashTable_H
#define KELSysSimpleHashTable_H

#include <cstddef>
#include <utility>
#include <vector>

/// A table with the platform's interface and no hashing, which can be full, lose what it stored and hold nulls.
class KELSysSimpleHashTable {
public:
    KELSysSimpleHashTable(int, unsigned int (*)(void*), int (*iEqual)(void*, void*)) : m_equal(iEqual) {}

    void* InsertAndReturn(void* iElement)
    {
        if (void* stored = Locate(iElement)) {
            return stored;
        }
        return s_isFull ? nullptr : m_elements.emplace_back(iElement);
    }
    void* Locate(void* iProbe) const
    {
        for (void* element : m_elements) {
            if (element && !s_isBlind && m_equal(element, iProbe)) {
                return element;
            }
        }
        return nullptr;
    }
    void* Remove(void* iProbe)
    {
        for (void*& element : m_elements) {
            if (element && m_equal(element, iProbe)) {
                return std::exchange(element, nullptr);
            }
        }
        return nullptr;
    }
    void* Get(int iIndex) const { return m_elements[static_cast<std::size_t>(iIndex)]; }
    int Size() const { return static_cast<int>(m_elements.size()); }
    void RemoveAll() { m_elements.clear(); }

    static inline bool s_isFull = false;
    static inline bool s_isBlind = false;

private:
    int (*m_equal)(void*, void*);
    std::vector<void*> m_elements;
};

#endif
