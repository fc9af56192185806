#include "OwnMemory.h"
#include "RandomUse.h"
#include "ZrvProperties.h"
#include "ZrvProperties_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <ostream>
#include <stdexcept>

// For the names of tests.
static void PrintTo(Memory iMemory, std::ostream* oStream)
{
    *oStream << (iMemory == Memory::FailsOnce ? "fails once" : "fails for good");
}

namespace {

long FromEnvironment(const char* iName, long iDefault)
{
    const char* const text = std::getenv(iName);
    return text ? std::atol(text) : iDefault;
}

// A longer run, or one from another seed, is asked for by the environment.
Counts UseForLong(long iOperations, Memory iMemory)
{
    const long ofOneUse = std::clamp(iOperations / 8, 1L, 16000L);
    Counts all;
    long seed = FromEnvironment("RANDOM_SEED", 1);
    for (long left = iOperations; left > 0; left -= ofOneUse, ++seed) {
        SeededChoices choices(static_cast<std::uint64_t>(seed), std::min(left, ofOneUse));
        try {
            const Counts counts = UseAtRandom(choices, iMemory);
            all.refused += counts.refused;
            all.failures += counts.failures;
        } catch (const std::logic_error& difference) {
            ADD_FAILURE() << "seed " << seed << ": " << difference.what();
            break;
        }
    }
    ::testing::Test::RecordProperty("refused", static_cast<int>(all.refused));
    ::testing::Test::RecordProperty("failures", static_cast<int>(all.failures));
    return all;
}

TEST(RandomUse, AnswersAsTheModelDoes)
{
    const long operations = FromEnvironment("RANDOM_OPERATIONS", 128000);
    const Counts counts = UseForLong(operations, Memory::Behaves);
    EXPECT_GT(counts.refused, operations / 8) << "both kinds of operations are met often";
    EXPECT_LT(counts.refused, operations / 2);
    EXPECT_EQ(counts.failures, 0);
}

class FailingMemory : public ::testing::TestWithParam<Memory> {};

TEST_P(FailingMemory, LeavesRandomUseIntact)
{
    const long operations = FromEnvironment("RANDOM_OPERATIONS", 4000);
    UseForLong(100, GetParam()); // what is allocated once and for all
    const long live = OwnMemory::Live();
    const Counts counts = UseForLong(operations, GetParam());
    EXPECT_EQ(OwnMemory::Live(), live) << "leaked";
    EXPECT_GT(counts.failures, operations) << "as many failures were seen";
}

// Parameters, which no operation fills, are copied with their property.
TEST_P(FailingMemory, LeavesParametersIntact)
{
    ZrvProperties set;
    static_cast<void>(set.AddProperty("a", "floatList", nullptr));
    static_cast<void>(set.AddProperty("b", "KELUnicodeString", nullptr));
    (*set.m_PropertiesData->m_propertyMap.Locate("a"))->m_pParameters = std::make_unique<ZrvProperties>(set);
    const long live = OwnMemory::Live();
    long allocation = 0;
    for (bool isCopied = false; !isCopied;) {
        OwnMemory::FailAt(++allocation, GetParam() == Memory::FailsForGood);
        try {
            const ZrvProperties copy(set);
            const std::unique_ptr<ZrvProperties> parameters(copy.GetPropertyParameters("a"));
            isCopied = OwnMemory::Behave() == 0;
            EXPECT_EQ(parameters->HasProperty("b"), 1);
        } catch (const std::bad_alloc&) {
            OwnMemory::Behave();
        }
        ASSERT_EQ(OwnMemory::Live(), live) << "leaked at allocation " << allocation;
    }
    EXPECT_GT(allocation, 8) << "as many were there to fail";
}

INSTANTIATE_TEST_SUITE_P(Memory, FailingMemory, ::testing::Values(Memory::FailsOnce, Memory::FailsForGood));

} // namespace
