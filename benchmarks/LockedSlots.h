#ifndef LockedSlots_H
#define LockedSlots_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>

/// The floor under every access by name: a re-entrant lock, one probe with a hash at hand, one store.
class LockedSlots {
public:
    /// Takes the slot of that hash.
    void Add(std::size_t iHash);

    /// Stores a value in the slot of that hash, if it is taken by just that.
    bool Set(std::size_t iHash, std::int32_t iValue);

private:
    struct Slot {
        std::size_t hash = 0;
        std::int32_t value = 0;
    };

    std::recursive_mutex m_mutex;
    std::array<Slot, 32> m_slots;
};

#endif
