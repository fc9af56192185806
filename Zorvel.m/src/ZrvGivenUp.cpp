#include "ZrvGivenUp.h"

#include <algorithm>
#include <utility>

void ZrvGivenUp::MakeRoom(std::size_t iCount)
{
    const std::size_t needed = m_objects.size() + iCount;
    if (needed > m_objects.capacity()) {
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
    DestroyAll(map, pool);
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
