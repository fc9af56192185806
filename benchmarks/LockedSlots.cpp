#include "LockedSlots.h"

void LockedSlots::Add(std::size_t iHash)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    m_slots[iHash % m_slots.size()].hash = iHash;
}

bool LockedSlots::Set(std::size_t iHash, std::int32_t iValue)
{
    const std::lock_guard<std::recursive_mutex> lock(m_mutex);
    Slot& slot = m_slots[iHash % m_slots.size()];
    if (slot.hash != iHash) {
        return false;
    }
    slot.value = iValue;
    return true;
}
