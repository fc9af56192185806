#include "Module.h"
#include "Side.h"

#include <gtest/gtest.h>

namespace {

/// A program that is linked with nothing, and two modules that it loads.
struct TwoSides {
    const Module hereModule{SIDE_MODULE};
    const Module thereModule{OTHER_SIDE_MODULE};
    Side& here = *hereModule.Function<Side*()>("BoundarySide")();
    Side& there = *thereModule.Function<Side*()>("BoundarySide")();
};

TEST(LoadedBoundary, ValuesAndFailuresPass)
{
    const TwoSides sides;
    EXPECT_STREQ(sides.here.PassValues(sides.there.Own()), "");
    EXPECT_STREQ(sides.here.UseAtRandom(sides.there.Own(), 1, true), "");
}

// On Windows each module in which a failure is thrown or caught leaves its run time's thread-local slot behind; so none
// is here.
void LoadAndUse(int iSeed)
{
    const Module library(ZORVEL_MODULE);
    ASSERT_EQ(library.Function<int()>("QUORVEL_INTERNAL_Zorvel")(), 1);
    const TwoSides sides;
    ASSERT_STREQ(sides.here.UseAtRandom(sides.there.Own(), iSeed, false), "") << "seed " << iSeed;
}

// The loader and the heap settle in some loads first. What then stays behind of each load may be no more than a
// fraction of a page, far less than a module's data or what its run time allocates at its start.
TEST(LoadedLibrary, IsLoadedUsedAndUnloadedWithoutGrowth)
{
    constexpr int kSettling = 20, kLoads = 100;
    std::size_t settled = 0;
    for (int i = 0; i < kSettling + kLoads; ++i) {
        if (i == kSettling) {
            settled = PrivateMemory();
        }
        ASSERT_NO_FATAL_FAILURE(LoadAndUse(1 + i % 8));
        for (const char* module : {SIDE_MODULE, OTHER_SIDE_MODULE, ZORVEL_MODULE, PLATFORM_MODULE}) {
            ASSERT_FALSE(Module::IsLoaded(module)) << module << " stays loaded";
        }
    }
    // A sanitizer keeps memory of its own for what has been freed.
    EXPECT_LT(CAN_MEASURE_MEMORY ? PrivateMemory() : 0, settled + kLoads * std::size_t{512});
}

} // namespace
