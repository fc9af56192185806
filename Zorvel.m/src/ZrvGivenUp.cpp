#include "ZrvGivenUp.h"

#include <algorithm>
#include <utility>

void ZrvGivenUp::MakeRoom(std::size_t iCount)
{
    const std::size_t needed = m_objects.size() + iCount;
    const bool fitsFirst = !m_first && needed <= 1;
    if (!fitsFirst && needed > m_objects.capacity()) {
        m_objects.reserve(std::max(needed, 2 * m_objects.capacity()));
    }
}

ZrvConstPropertiesPrototype* ZrvGivenUp::Hold(ZrvConstPropertiesPrototype* iPrototype)
{
    MakeRoom(1);
    Keep(KELReference<KELSysTSBaseUnknown>(iPrototype));
    return iPrototype;
}

ZrvPropertiesContents::~ZrvPropertiesContents()
{
    prototype = nullptr;
    for (int i = 0; i < map.Size(); ++i) {
        if (const Map::Entry* const entry = map.At(i)) {
            Pool::Destroy(entry->value);
        }
    }
}

void ZrvPropertiesContents::DestroyAll(Map& ioMap, Pool& ioPool)
{
    for (int i = 0; i < ioMap.Size(); ++i) {
        if (Map::Entry* const entry = ioMap.At(i)) {
            ioPool.Own(std::exchange(entry->value, nullptr));
        }
    }
    ioMap.RemoveAll();
}
