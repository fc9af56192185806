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

struct Case {
    const char* name;
    Trouble trouble;
    long operations;
    long troubles; // at least
};

class RandomUse : public ::testing::TestWithParam<Case> {};

TEST_P(RandomUse, AgreesWithTheModel)
{
    const long operations = FromEnvironment("RANDOM_OPERATIONS", GetParam().operations) / 8;
    long troubles = 0;
    long seed = FromEnvironment("RANDOM_SEED", 1);
    for (const long end = seed + 8; seed < end && !HasFailure(); ++seed) {
        const long live = OwnMemory::s_liveBlocks;
        try {
            troubles += UseAtRandom(SeededChoices(static_cast<std::uint64_t>(seed)), operations, GetParam().trouble);
        } catch (const std::logic_error& difference) {
            ADD_FAILURE() << "seed " << seed << ": " << difference.what();
        }
        EXPECT_EQ(OwnMemory::s_liveBlocks, live) << "leaked by seed " << seed;
    }
    RecordProperty("troubles", static_cast<int>(troubles));
    EXPECT_GE(troubles, GetParam().troubles) << "were met";
}

INSTANTIATE_TEST_SUITE_P(Trouble, RandomUse,
                         ::testing::Values(Case{"Refusals", Trouble::Refusals, 64000, 8000},
                                           Case{"MemoryFailsOnce", Trouble::MemoryFailsOnce, 4000, 2000},
                                           Case{"MemoryFailsForGood", Trouble::MemoryFailsForGood, 4000, 2000},
                                           Case{"CallBacks", Trouble::CallBacks, 64000, 8000}),
                         [](const auto& iInfo) { return iInfo.param.name; });

} // namespace
