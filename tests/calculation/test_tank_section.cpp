#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "calculation/tank_section.h"

using namespace quor;

namespace {

// Share of a circle below a height of h diameters, by the textbook formula of the segment.
double share_below(double h) {
    const double x = 1.0 - 2.0 * h;
    return (std::acos(x) - x * std::sqrt(1.0 - x * x)) / std::numbers::pi;
}

TEST(TankSection, LevelHeightInvertsTheAreaOfASegment) {
    for (double h = 0.001; h < 1.0; h += 0.001)
        EXPECT_NEAR(calculation::level_height(share_below(h)), h, 1e-9) << h;
}

TEST(TankSection, HalfFullIsHalfHigh) {
    EXPECT_NEAR(calculation::level_height(0.5), 0.5, 1e-12);
}

TEST(TankSection, HeightsOfAShareAndOfTheRestMakeTheDiameter) {
    for (const double share : {1e-8, 0.01, 0.123, 0.4, 0.498})
        EXPECT_NEAR(calculation::level_height(share) + calculation::level_height(1.0 - share), 1.0,
                    1e-9);
}

TEST(TankSection, SharesBeyondTheLimitsAreEmptyOrFull) {
    for (const double empty : {0.0, -0.5, -1e300, std::nan("")})
        EXPECT_EQ(calculation::level_height(empty), 0.0);
    for (const double full : {1.0, 1.5, 1e300}) EXPECT_EQ(calculation::level_height(full), 1.0);
}

}  // namespace
