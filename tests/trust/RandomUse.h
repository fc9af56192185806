#ifndef RandomUse_H
#define RandomUse_H

#include <cstddef>
#include <cstdint>
#include <random>

class Maker;

/// Where a random use takes its decisions from.
class Choices {
public:
    virtual ~Choices() = default;

    /// A number below iCount, which is at least 1.
    virtual std::size_t Below(std::size_t iCount) = 0;

    /// Whether there is to be another operation.
    virtual bool AreLeft() = 0;
};

/// The same choices on every machine for the same seed, for so many operations.
class SeededChoices : public Choices {
public:
    SeededChoices(std::uint64_t iSeed, long iOperations) : m_generator(iSeed), m_left(iOperations) {}
    std::size_t Below(std::size_t iCount) override { return static_cast<std::size_t>(m_generator() % iCount); }
    bool AreLeft() override { return m_left-- > 0; }

private:
    std::mt19937_64 m_generator;
    long m_left;
};

/// What memory does during a random use.
enum class Memory {
    Behaves,
    FailsOnce,   ///< Every allocation of an operation fails, one at a time, until the operation runs through.
    FailsForGood ///< The same, and all later allocations of the attempt fail with it.
};

/// What a random use has met.
struct Counts {
    long refused = 0;  ///< operations that answered with an error or a report
    long failures = 0; ///< attempts that memory ended
};

/// Does one operation after the other on a few sets, prototypes, values, lists, one map and one return code, and the
/// same on models of them. Half of the operations get bad arguments on purpose. Throws std::logic_error at the first
/// difference in a result, a report, a reference count or what is held. What a failure of memory stops is compared with
/// the models as they were, and then done again.
///
/// \param ioOther makes every other thing that is used, if not null
Counts UseAtRandom(Choices& ioChoices, Memory iMemory = Memory::Behaves, Maker* ioOther = nullptr);

#endif
