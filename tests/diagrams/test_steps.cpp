#include "diagrams/steps.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using namespace quor;

namespace {

using diagrams::Steps;

std::vector<double> values(Steps loop) {
    std::vector<double> passes;
    for (double x; loop.next(x);) passes.push_back(x);
    return passes;
}

TEST(Steps, PassesLieAtStartPlusWholeSteps) {
    const auto passes = values(Steps::plain(0, 1, 0.1));
    ASSERT_EQ(passes.size(), 11U) << "the end belongs to the loop whatever the sums round to";
    for (std::size_t i = 0; i < passes.size(); ++i)
        EXPECT_EQ(passes[i], static_cast<double>(i) * 0.1);
    EXPECT_EQ(values(Steps::plain(5, 1, -1)), (std::vector<double>{5, 4, 3, 2, 1}));
}

TEST(Steps, TheEndBelongsToTheLoopWithinAMillionthOfAStep) {
    EXPECT_EQ(values(Steps::plain(0, 3 - 0.9e-6, 1)).size(), 4U);
    EXPECT_EQ(values(Steps::plain(0, 3 - 1.1e-6, 1)).size(), 3U);
    EXPECT_EQ(values(Steps::plain(0, 3.5, 1)).size(), 4U);
}

TEST(Steps, AClampedLoopAlwaysEndsOnItsEnd) {
    for (const double end : {3.0, 3.05, 3.5, 3.95, 3.0 - 1e-7, 3.0 + 1e-7}) {
        const auto passes = values(Steps::clamped(0, end, 1));
        EXPECT_EQ(passes.back(), end);
        EXPECT_EQ(passes.size(), end > 3.01 ? 5U : 4U) << end;
    }
    EXPECT_EQ(values(Steps::clamped(7, 5.5, -1)), (std::vector<double>{7, 6, 5.5}));
    EXPECT_EQ(values(Steps::clamped(7, 7, -1)), (std::vector<double>{7}));
}

TEST(Steps, AStepOfNothingOrInTheWrongDirectionGivesNoPass) {
    EXPECT_TRUE(values(Steps::plain(0, 1, 0)).empty());
    EXPECT_TRUE(values(Steps::plain(0, 1, -1)).empty());
    EXPECT_TRUE(values(Steps::clamped(0, 1, -1)).empty());
    EXPECT_TRUE(values(Steps::plain(0, 1, std::nan(""))).empty());
    EXPECT_TRUE(values(Steps::plain(0, 0, 0)).empty());
}

TEST(Steps, ALoopThatWouldRunForEverKeepsToTheWindow) {
    const auto passes = values(Steps::plain(1e6, 0, -1).within(500, 600));
    EXPECT_LE(passes.size(), 110U);
    EXPECT_GE(passes.front(), 600);
    EXPECT_LE(passes.back(), 500);
    EXPECT_EQ(values(Steps::plain(0, 100, 1).within(10, 20)).size(), 101U);
}

TEST(Steps, ALoopWithoutAWindowRunsABoundedNumberOfPassesToItsEnd) {
    for (const Steps& loop : {Steps::clamped(0, 1000, 1e-12), Steps::plain(0, 1000, 1e-12),
                              Steps::clamped(1000, 0, -1e-12)}) {
        const auto passes = values(loop);
        EXPECT_LE(passes.size(), 50001U);
        EXPECT_GT(passes.size(), 10000U);
    }
    EXPECT_EQ(values(Steps::clamped(0, 1000, 1e-12)).back(), 1000);
    EXPECT_NEAR(values(Steps::plain(0, 1000, 1e-12)).back(), 1000, 1e-9);
    EXPECT_EQ(values(Steps::plain(0, 50000, 1)).size(), 50001U / 2 + 1);
    EXPECT_EQ(values(Steps::plain(0, 49999, 1)).size(), 50000U) << "not yet too many";
}

}  // namespace
