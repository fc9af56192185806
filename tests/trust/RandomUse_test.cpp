#include "RandomUse.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(RandomUse, AnswersAsTheModelDoes)
{
    for (std::uint64_t seed = 1; seed <= 8; ++seed) {
        SeededChoices choices(seed);
        RandomUse use(choices);
        try {
            while (use.Steps() < 16000) {
                use.Step();
            }
            use.CheckState();
        } catch (const std::logic_error& difference) {
            FAIL() << "seed " << seed << ": " << difference.what();
        }
        // Both kinds of operations were met often.
        EXPECT_GT(use.Refused(), use.Steps() / 8);
        EXPECT_LT(use.Refused(), use.Steps() / 2);
    }
    EXPECT_EQ(WatchedPrototype::s_alive, 0);
}
