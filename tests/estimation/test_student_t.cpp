#include "estimation/student_t.h"

#include <numbers>

using namespace quor;

namespace {

using estimation::student_t_quantile;

TEST(StudentT, QuantilesAreThoseOfTheTables) {
    // Two-sided 95 % and 99 % points, as in every table of the distribution.
    const struct {
        double freedom, t95, t99;
    } table[] = {{1, 12.7062047, 63.6567412},  {2, 4.30265273, 9.92484320},
                 {3, 3.18244631, 5.84090931},  {4, 2.77644511, 4.60409487},
                 {5, 2.57058184, 4.03214298},  {10, 2.22813885, 3.16927267},
                 {20, 2.08596345, 2.84533971}, {30, 2.04227246, 2.74999565},
                 {60, 2.00029782, 2.66028303}, {120, 1.97993041, 2.61742114}};
    for (const auto& row : table) {
        EXPECT_NEAR(student_t_quantile(0.975, row.freedom), row.t95, 6e-9 * row.t95) << row.freedom;
        EXPECT_NEAR(student_t_quantile(0.995, row.freedom), row.t99, 6e-9 * row.t99) << row.freedom;
    }
}

TEST(StudentT, OneAndTwoDegreesOfFreedomFollowTheirClosedForms) {
    for (const double p : {0.5001, 0.6, 0.75, 0.9, 0.99, 0.9999, 1 - 1e-9}) {
        const double cauchy = std::tan(std::numbers::pi * (p - 0.5));
        EXPECT_NEAR(student_t_quantile(p, 1) / cauchy, 1, 2e-7) << p;
        const double two = (2 * p - 1) / std::sqrt(2 * p * (1 - p));
        EXPECT_NEAR(student_t_quantile(p, 2) / two, 1, 2e-7) << p;
    }
}

TEST(StudentT, LargeFreedomApproachesTheNormalDistribution) {
    EXPECT_NEAR(student_t_quantile(0.975, 1e6),
                1.959963985 + (1.959963985 + std::pow(1.959963985, 3)) / 4e6, 1e-8);
}

TEST(StudentT, LowerQuantilesMirrorTheUpperOnes) {
    EXPECT_DOUBLE_EQ(student_t_quantile(0.5, 7), 0);
    for (const double p : {0.51, 0.7, 0.975})
        EXPECT_NEAR(student_t_quantile(1 - p, 7), -student_t_quantile(p, 7), 1e-9);
}

}  // namespace
