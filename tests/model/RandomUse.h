#ifndef RandomUse_H
#define RandomUse_H

#include "Maker.h"

#include <cstdint>
#include <functional>
#include <random>

/// Where a random use takes its decisions from: a number below iCount, which is at least 1.
using Choices = std::function<std::size_t(std::size_t iCount)>;

/// The same choices on every machine for the same seed.
inline Choices SeededChoices(std::uint64_t iSeed)
{
    return [random = std::mt19937_64(iSeed)](std::size_t n) mutable { return static_cast<std::size_t>(random() % n); };
}

/// What a random use meets.
enum class Trouble {
    Refusals,           ///< This alone: half of the operations get bad arguments on purpose.
    MemoryFailsOnce,    ///< Every allocation of an operation fails, one at a time, until the operation runs through.
    MemoryFailsForGood, ///< The same, and all later allocations of the attempt fail with it.
    CallBacks           ///< What is the host's own uses the sets, too, or throws, when the library calls it.
};

/// Does one operation after the other on a few sets and prototypes, and the same on models of them. Throws
/// std::logic_error at the first difference in a result, a report, the references on objects or what is held. What a
/// failure of memory stops is compared with the models as they were, and then done again.
/// \param ioOther makes every other thing that is used, if not null
/// \return how often there was trouble
long UseAtRandom(const Choices& iChoices, long iOperations, Trouble iTrouble = Trouble::Refusals,
                 Maker* ioOther = nullptr);

#endif
