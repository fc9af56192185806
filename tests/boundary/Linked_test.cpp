#include "Module.h"
#include "Side.h"

#include <gtest/gtest.h>

namespace {

/// This program, linked with the library, on one side and a module that it loads on the other.
class LinkedBoundary : public ::testing::TestWithParam<int> {};

TEST_P(LinkedBoundary, Holds)
{
    const Module other(SIDE_MODULE);
    EXPECT_STREQ(BoundarySide()->Check(GetParam(), *other.Function<Side*()>("BoundarySide")()), "");
}

INSTANTIATE_TEST_SUITE_P(, LinkedBoundary, ::testing::Range(0, kSideCheckCount),
                         [](const auto& iInfo) { return kSideChecks[iInfo.param]; });

} // namespace
