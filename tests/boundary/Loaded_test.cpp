#include "Module.h"
#include "Side.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

// A sanitizer keeps memory of its own for what has been freed.
constexpr bool kCanMeasureMemory = CAN_MEASURE_MEMORY;

Side& SideOf(const Module& iModule)
{
    return *iModule.Function<Side*()>("BoundarySide")();
}

/// A program that is linked with nothing, and loads a module for each side.
class LoadedBoundary : public ::testing::TestWithParam<int> {};

TEST_P(LoadedBoundary, Holds)
{
    const Module here(SIDE_MODULE);
    const Module there(OTHER_SIDE_MODULE);
    EXPECT_STREQ(SideOf(here).Check(GetParam(), SideOf(there)), "");
}

INSTANTIATE_TEST_SUITE_P(, LoadedBoundary, ::testing::Range(0, kSideCheckCount),
                         [](const auto& iInfo) { return kSideChecks[iInfo.param]; });

void LoadAndUse()
{
    const Module library(ZORVEL_MODULE);
    ASSERT_EQ(library.Function<int()>("QUORVEL_INTERNAL_Zorvel")(), 1);
    const Module here(SIDE_MODULE);
    const Module there(OTHER_SIDE_MODULE);
    // On Windows, each module in which a failure is thrown or caught leaves its run time's thread-local slot behind:
    // the last check does that.
    for (int check = 0; check < kSideCheckCount - 1; ++check) {
        ASSERT_STREQ(SideOf(here).Check(check, SideOf(there)), "");
    }
}

// The loader and the heap settle in some loads first. What then stays behind of each load may be no more than a
// fraction of a page, far less than a module's data or what its run time allocates at its start.
TEST(LoadedLibrary, IsLoadedUsedAndUnloadedWithoutGrowth)
{
    constexpr int kSettling = 20;
    constexpr int kLoads = 100;
    constexpr std::size_t kAllowedPerLoad = 512;
    std::size_t settled = 0;
    for (int i = 0; i < kSettling + kLoads; ++i) {
        if (i == kSettling) {
            settled = PrivateMemory();
        }
        ASSERT_NO_FATAL_FAILURE(LoadAndUse());
        for (const char* module : {SIDE_MODULE, OTHER_SIDE_MODULE, ZORVEL_MODULE, PLATFORM_MODULE}) {
            ASSERT_FALSE(Module::IsLoaded(module)) << module << " stays loaded";
        }
    }
    if (kCanMeasureMemory) {
        EXPECT_LT(PrivateMemory(), settled + kLoads * kAllowedPerLoad);
    }
}

} // namespace
