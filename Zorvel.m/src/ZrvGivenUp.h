#ifndef ZrvGivenUp_H
#define ZrvGivenUp_H

#include "KELReference.h"
#include "KELSYPHashMap.h"
#include "KELSYPPool.h"
#include "KELSysTSBaseUnknown.h"
#include "KELUnicodeString.h"
#include "ZrvConstPropertiesPrototype.h"
#include "ZrvProperty.h"

#include <cstddef>
#include <vector>

/// \file
/// Destroying what leaves a set may run the host's code, which may take locks of its own and use any set. So an
/// operation moves it into one of these, declared before the lock, and it is destroyed after the unlock.

/// Objects and prototypes that an operation gives up, or holds while the host is asked.
class ZrvGivenUp {
public:
    ZrvGivenUp() = default;
    ZrvGivenUp(const ZrvGivenUp&) = delete;
    ZrvGivenUp& operator=(const ZrvGivenUp&) = delete;
    ~ZrvGivenUp() = default;

    /// Makes room for iCount more from now on, so that giving them up does not fail. Throws `std::bad_alloc`.
    void MakeRoom(std::size_t iCount);

    /// Keeps a reference in the room made.
    void Keep(KELReference<KELSysTSBaseUnknown> iObject) noexcept
    {
        if (!m_first) {
            m_first = std::move(iObject);
        } else if (iObject) {
            m_objects.push_back(std::move(iObject));
        }
    }

    /// Takes a reference of its own on a prototype, so that it lives while it is asked; returns the prototype.
    ZrvConstPropertiesPrototype* Hold(ZrvConstPropertiesPrototype* iPrototype);

    /// The value that is being copied: it, too, goes after the locks when something throws.
    ZrvValueHolder value;

private:
    KELReference<KELSysTSBaseUnknown> m_first; // most operations give up one at most, which then costs no allocation
    std::vector<KELReference<KELSysTSBaseUnknown>> m_objects;
};

/// The prototype and the properties of a set, with the memory that they lie in: on their way out of it, or into it.
struct ZrvPropertiesContents {
    using Map = KELSYPHashMap<KELUnicodeString, ZrvProperty*>;
    using Pool = KELSYPPool<ZrvProperty>;

    ZrvPropertiesContents() = default;
    ZrvPropertiesContents(const ZrvPropertiesContents&) = delete;
    ZrvPropertiesContents& operator=(const ZrvPropertiesContents&) = delete;
    ~ZrvPropertiesContents();

    /// Destroys the properties that a map refers to. What they let go of may look at the map: it has forgotten them.
    static void DestroyAll(Map& ioMap, Pool& ioPool);

    Pool pool;
    Map map;
    KELReference<ZrvConstPropertiesPrototype> prototype;
};

#endif
