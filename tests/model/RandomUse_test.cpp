#include "OwnMemory.h"
#include "RandomUse.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

namespace {

// A longer run, or one from another seed, is asked for by the environment.
long FromEnvironment(const char* iName, long iDefault)
{
    const char* const text = std::getenv(iName);
    return text ? std::atol(text) : iDefault;
}

class RandomUse : public ::testing::TestWithParam<Trouble> {};

TEST_P(RandomUse, AgreesWithTheModel)
{
    const bool failsOften = GetParam() == Trouble::MemoryFailsOnce || GetParam() == Trouble::MemoryFailsForGood;
    const long operations = FromEnvironment("RANDOM_OPERATIONS", failsOften ? 48000 : 64000) / 8;
    long troubles = 0;
    long seed = FromEnvironment("RANDOM_SEED", 1);
    for (const long end = seed + 8; seed < end && !HasFailure(); ++seed) {
        const long live = OwnMemory::s_liveBytes;
        try {
            troubles += UseAtRandom(SeededChoices(static_cast<std::uint64_t>(seed)), operations, GetParam());
        } catch (const std::logic_error& difference) {
            ADD_FAILURE() << "seed " << seed << ": " << difference.what();
        }
        EXPECT_EQ(OwnMemory::s_liveBytes, live) << "leaked by seed " << seed;
    }
    EXPECT_GE(troubles, failsOften ? operations * 4 : operations) << "were met";
}

constexpr const char* kNames[] = {"Refusals", "MemoryFailsOnce", "MemoryFailsForGood", "CallBacks"};
INSTANTIATE_TEST_SUITE_P(Trouble, RandomUse,
                         ::testing::Values(Trouble::Refusals, Trouble::MemoryFailsOnce, Trouble::MemoryFailsForGood,
                                           Trouble::CallBacks),
                         [](const auto& iInfo) { return kNames[static_cast<int>(iInfo.param)]; });

} // namespace
