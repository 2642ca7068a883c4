#include <numeric>

#include "estimation/fit_support.h"

using namespace quor;

namespace {

using namespace fit_support;
using estimation::factorise_packed;
using estimation::kBounds;
using estimation::kNoStdDev;
using estimation::marquardt_nash_fitting;
using estimation::MarquardtResult;
using estimation::Mask;
using estimation::packed_index;
using estimation::PackedMatrix;
using estimation::solve_packed;

std::int16_t Active(const FitProblem& problem) {
    return static_cast<std::int16_t>(static_cast<int>(problem.points.size()) -
                                     problem.inactive_count);
}

/// Step of the post analysis round a value.
double ProbeStep(double x) {
    const double h0 = 10 * std::sqrt(3e-16);
    return (std::fabs(x) + h0) * h0;
}

TEST(Marquardt, AStraightLineIsTheClosedFormOne) {
    const auto points = Points({{1, 2.1}, {2, 3.9}, {3, 6.2}, {4, 7.8}, {5, 10.1}, {6, 11.7}});
    double n = 6, sx = 0, sy = 0, sxx = 0, sxy = 0;
    for (const auto& p : points) {
        const double x = static_cast<double>(p.x), y = static_cast<double>(p.y);
        sx += x, sy += y, sxx += x * x, sxy += x * y;
    }
    const double determinant = n * sxx - sx * sx;
    const double slope = (n * sxy - sx * sy) / determinant;
    const double intercept = (sy - slope * sx) / n;
    double squares = 0;
    for (const auto& p : points)
        squares +=
            std::pow(intercept + slope * static_cast<double>(p.x) - static_cast<double>(p.y), 2);

    FitProblem problem = Problem(Line, 2, points);
    Parameters par{100, -50}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, Active(problem), par, std_dev);
    EXPECT_FALSE(r.failed);
    EXPECT_NEAR(par[0], intercept, 1e-6);
    EXPECT_NEAR(par[1], slope, 1e-6);
    EXPECT_NEAR(r.minimum, squares, 1e-9);
    EXPECT_NEAR(std_dev[0], std::sqrt(squares / 4 * sxx / determinant), 1e-6);
    EXPECT_NEAR(std_dev[1], std::sqrt(squares / 4 * n / determinant), 1e-6);
}

TEST(Marquardt, AllParametersFixedEndsAtTheStart) {
    const auto points = Points({{1, 1}, {2, 5}, {3, 2}});
    FitProblem problem = Problem(Line, 2, points);
    problem.fixed = {true, true};
    Parameters par{0.25, 2}, std_dev{7, 7};
    const MarquardtResult r = marquardt_nash_fitting(problem, 3, par, std_dev);
    EXPECT_FALSE(r.failed);
    EXPECT_EQ(par[0], 0.25);
    EXPECT_EQ(par[1], 2);
    EXPECT_EQ(r.evaluations, 1);
    EXPECT_EQ(std_dev[0], 0);
    const double squares = 1.25 * 1.25 + 0.75 * 0.75 + 4.25 * 4.25;
    EXPECT_DOUBLE_EQ(r.sum_squares, squares);
}

TEST(Marquardt, AFixedParameterKeepsItsValue) {
    const auto points = Points({{1, 5}, {2, 7}, {3, 9}, {4, 11}});
    FitProblem problem = Problem(Line, 2, points);
    problem.fixed = {true, false};
    Parameters par{1, 0}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, 4, par, std_dev);
    // Through (0, 1): slope = sum x (y - 1) / sum x^2.
    EXPECT_EQ(par[0], 1);
    EXPECT_NEAR(par[1], (4 + 12 + 24 + 40) / 30.0, 1e-7);
    EXPECT_EQ(r.mask[0], Mask::Fixed);
    EXPECT_EQ(std_dev[0], 0);
    EXPECT_GT(std_dev[1], 0);
}

TEST(Marquardt, AStartBeyondABoundMovesOntoItAndLeavesItInwards) {
    const auto points = Points({{1, 3}, {2, 3}, {3, 3}});
    FitProblem problem = Problem(Constant, 1, points);
    for (const double start : {9000.0, -9000.0}) {
        Parameters par{start}, std_dev{};
        const MarquardtResult r = marquardt_nash_fitting(problem, 3, par, std_dev);
        EXPECT_FALSE(r.failed);
        EXPECT_NEAR(par[0], 3, 1e-6);
        EXPECT_EQ(r.mask[0], Mask::Free);
    }
}

TEST(Marquardt, AParameterRestsOnItsBoundWhenTheGradientLeadsOut) {
    // The best constant would be 7000.
    const auto points = Points({{1, 7000}, {2, 7000}, {3, 7000}});
    FitProblem problem = Problem(Constant, 1, points);
    Parameters par{6000}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, 3, par, std_dev);
    EXPECT_EQ(par[0], 5000);
    EXPECT_EQ(r.mask[0], Mask::AtUpper);
    EXPECT_EQ(std_dev[0], 0);
    // The last probe, beyond the bound, is forbidden.
    EXPECT_EQ(r.sum_squares, 0);
}

TEST(Marquardt, AStepIsCutShortAtABoundAndTheOthersGoOn) {
    // Best line: intercept 6000 and slope 2; with the intercept held at 5000 the slope is larger.
    const auto points = Points({{1, 6002}, {2, 6004}, {3, 6006}, {4, 6008}});
    FitProblem problem = Problem(Line, 2, points);
    Parameters par{1, 1}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, 4, par, std_dev);
    EXPECT_FALSE(r.failed);
    EXPECT_NEAR(par[0], 5000, 1e-9);
    EXPECT_EQ(r.mask[0], Mask::AtUpper);
    EXPECT_NEAR(par[1], (1 * 1002 + 2 * 1004 + 3 * 1006 + 4 * 1008) / 30.0, 1e-5);
}

TEST(Marquardt, AStartExactlyOnABoundWithAnOutwardGradientStays) {
    const auto points = Points({{1, -7000}, {2, -7000}, {3, -7000}});
    FitProblem problem = Problem(Constant, 1, points);
    Parameters par{-5000}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, 3, par, std_dev);
    EXPECT_FALSE(r.failed);
    EXPECT_EQ(par[0], -5000);
    EXPECT_EQ(r.accepted, 0);
}

TEST(Marquardt, BoundsAreThoseOfEachParameter) {
    const double half[] = {5000, 2000, 2000, 10000, 2000, 2000, 2000};
    for (std::size_t i = 0; i < 7; ++i) {
        EXPECT_EQ(kBounds[i].lower, -half[i]);
        EXPECT_EQ(kBounds[i].upper, half[i]);
    }
}

/// Ten points of which 7 and 8 are inactive: the matrix sees the points 1 to 6, the sum also 9
/// and 10.
std::vector<datafiles::FitPoint> TwoInactive(double first, double last) {
    auto points = Points(std::vector<double>(10, 1.0),
                         {first, first, first, first, first, first, 55, 55, last, last});
    points[6].mark = points[7].mark = estimation::kInactive;
    return points;
}

TEST(Marquardt, LastPointsBehindInactiveOnesDoNotEnterTheMatrix) {
    const auto points = TwoInactive(0, 100);
    FitProblem problem = Problem(Constant, 1, points);
    Parameters par{0}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, Active(problem), par, std_dev);
    // The matrix sees only zeros: no gradient, although 25 would have the least sum of squares.
    EXPECT_NEAR(par[0], 0, 1e-12);
    EXPECT_DOUBLE_EQ(r.minimum, 20000);
    EXPECT_NEAR(std_dev[0], std::sqrt(20000.0 / 7 / 6), 1e-6);
}

TEST(Marquardt, StepsThatOnlyTheMatrixLikesAreRejected) {
    const auto points = TwoInactive(0, 100);
    FitProblem problem = Problem(Constant, 1, points);
    Parameters par{25}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, Active(problem), par, std_dev);
    EXPECT_GT(r.evaluations, 5);
    EXPECT_NEAR(par[0], 25, 1e-5);
}

TEST(Marquardt, NoDegreeOfFreedomGivesNoStandardDeviation) {
    const auto points = Points({{1, 2}, {2, 4}, {3, 7}});
    FitProblem problem = Problem(Line, 2, points);
    problem.inactive_count = 0;
    Parameters par{0, 0}, std_dev{};
    marquardt_nash_fitting(problem, 2, par, std_dev);
    EXPECT_EQ(std_dev[0], kNoStdDev);
    EXPECT_EQ(std_dev[1], kNoStdDev);
    // One parameter fixed leaves a degree of freedom.
    problem.fixed = {true, false};
    marquardt_nash_fitting(problem, 2, par, std_dev);
    EXPECT_GT(std_dev[1], 0);
}

bool SecondWithoutInfluence(double x, const Parameters& par, const ModelContext&, double& y) {
    y = par[0] * x;
    return true;
}

TEST(Marquardt, ASingularMatrixGivesNoStandardDeviationButAFit) {
    const auto points = Points({{1, 2}, {2, 4.1}, {3, 5.9}, {4, 8}});
    FitProblem problem = Problem(SecondWithoutInfluence, 2, points);
    Parameters par{0, 42}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, 4, par, std_dev);
    EXPECT_FALSE(r.failed);
    EXPECT_TRUE(r.singular);
    EXPECT_NEAR(par[0], (2 + 8.2 + 17.7 + 32) / 30, 1e-6);
    EXPECT_EQ(par[1], 42);
    EXPECT_EQ(std_dev[0], kNoStdDev);
    EXPECT_EQ(std_dev[1], kNoStdDev);
}

TEST(Marquardt, TheSumReturnedIsTheOneOfTheLastProbe) {
    const auto points = Points({{1, 1}, {2, 2}, {3, 6}});
    FitProblem problem = Problem(Constant, 1, points);
    Parameters par{0}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, 3, par, std_dev);
    const double probe = par[0] + ProbeStep(par[0]);
    const double squares = std::pow(probe - 1, 2) + std::pow(probe - 2, 2) + std::pow(probe - 6, 2);
    EXPECT_NEAR(par[0], 3, 1e-6);
    EXPECT_DOUBLE_EQ(r.sum_squares, squares);
    EXPECT_NEAR(r.minimum, 14, 1e-11);
}

int calls = 0;

/// A function that comes closer to the data at every call, whatever its parameters are.
bool EverBetter(double, const Parameters& par, const ModelContext&, double& y) {
    ++calls;
    y = 1000.0 / calls + 1e-3 * (par[0] + par[1]);
    return true;
}

TEST(Marquardt, TheLimitOfMatricesEndsTheFit) {
    calls = 0;
    const auto points = Points({{1, 0}, {2, 0}, {3, 0}, {4, 0}});
    FitProblem problem = Problem(EverBetter, 2, points);
    Parameters par{1, 1}, std_dev{5, 5};
    const MarquardtResult r = marquardt_nash_fitting(problem, 4, par, std_dev);
    EXPECT_TRUE(r.failed);
    EXPECT_EQ(r.matrices, 251);
    EXPECT_FALSE(r.has_std_dev);
    EXPECT_EQ(std_dev[0], 5);
}

TEST(Marquardt, TheLimitOfEvaluationsEndsTheFit) {
    calls = 0;
    const auto points = Points({{1, 0}, {2, 0}, {3, 0}, {4, 0}});
    FitProblem problem = Problem(EverBetter, 1, points);
    Parameters par{1}, std_dev{5};
    const MarquardtResult r = marquardt_nash_fitting(problem, 4, par, std_dev);
    EXPECT_TRUE(r.failed);
    EXPECT_EQ(r.evaluations, 201);
    EXPECT_EQ(std_dev[0], 5);
}

bool BeyondEveryNumber(double, const Parameters& par, const ModelContext&, double& y) {
    y = 1e300 * (1 + par[0]);
    return true;
}

TEST(Marquardt, SumsBeyondEveryNumberEndTheFit) {
    const auto points = Points({{1, 0}, {2, 0}, {3, 0}});
    FitProblem problem = Problem(BeyondEveryNumber, 1, points);
    Parameters par{1}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, 3, par, std_dev);
    EXPECT_TRUE(r.failed);
    EXPECT_TRUE(std::isfinite(r.sum_squares));
    EXPECT_TRUE(std::isfinite(par[0]));
}

bool FailsBelowTwo(double x, const Parameters& par, const ModelContext&, double& y) {
    y = par[0] * x;
    return x >= 2;
}

TEST(Marquardt, AFailedEvaluationLeavesTheResidualAsItWas) {
    const auto points = Points({{1, 10}, {3, 1}, {1.5, 20}, {4, 2}});
    FitProblem problem = Problem(FailsBelowTwo, 1, points);
    double res = 0.125;
    EXPECT_FALSE(calc_residuals(problem, {2}, 0, res));
    EXPECT_EQ(res, 0.125);
    EXPECT_TRUE(calc_residuals(problem, {2}, 1, res));
    EXPECT_EQ(res, 5);
    EXPECT_EQ(problem.failed_evaluations, 1);

    // The first point counts 0, the third repeats the residual of the second.
    double sum = 0;
    std::int16_t count = 41;
    calc_fqs_marquardt(problem, {2}, sum, count);
    EXPECT_EQ(sum, 0 + 25 + 25 + 36);
    EXPECT_EQ(count, 42);
    EXPECT_EQ(problem.failed_evaluations, 3);
}

TEST(Marquardt, LogarithmicResidualsFailForValuesThatAreNotPositive) {
    const auto points = Points({{1, 2}, {1, 0}, {1, -1}});
    FitProblem problem = Problem(Constant, 1, points);
    problem.logarithmic = true;
    double res = 7;
    EXPECT_TRUE(calc_residuals(problem, {3}, 0, res));
    EXPECT_DOUBLE_EQ(res, std::log(3.0) - std::log(2.0));
    EXPECT_FALSE(calc_residuals(problem, {3}, 1, res));
    EXPECT_FALSE(calc_residuals(problem, {3}, 2, res));
    EXPECT_FALSE(calc_residuals(problem, {-3}, 0, res));
    EXPECT_FALSE(calc_residuals(problem, {0}, 0, res));
    EXPECT_DOUBLE_EQ(res, std::log(3.0) - std::log(2.0));
}

bool Exponential(double x, const Parameters& par, const ModelContext&, double& y) {
    y = par[0] * std::exp(par[1] * x);
    return true;
}

TEST(Marquardt, DerivativesAreForwardDifferencesOfAllParameters) {
    const auto points = Points({{2, 5}});
    FitProblem problem = Problem(Exponential, 2, points);
    problem.fixed = {false, true};
    problem.scale = {10, 0.5, 1, 1, 1, 1, 1};
    const Parameters par{0.3, -0.7};
    double res = 0;
    Parameters d{};
    calc_ableitungen(problem, par, 0, res, d);
    const auto f = [](double a, double b) { return 10 * a * std::exp(0.5 * b * 2) - 5; };
    EXPECT_DOUBLE_EQ(res, f(0.3, -0.7));
    const double h0 = (0.3 + 1.7e-7) * 1.7e-7, h1 = (0.7 + 1.7e-7) * 1.7e-7;
    EXPECT_NEAR(d[0], (f(0.3 + h0, -0.7) - f(0.3, -0.7)) / h0, 1e-6);
    EXPECT_NEAR(d[1], (f(0.3, -0.7 + h1) - f(0.3, -0.7)) / h1, 1e-6);
    EXPECT_NEAR(d[0], 10 * std::exp(-0.7), 1e-5);
    EXPECT_NEAR(d[1], 3 * std::exp(-0.7), 1e-5);
}

TEST(Marquardt, AStepFromZeroIsLostInLargeValues) {
    // From p = 0 the step is 1.7E-7 squared: too small to be seen beside 6000.
    const auto points = Points({{1, 6000}, {2, 6000}, {3, 6000}});
    FitProblem problem = Problem(Constant, 1, points);
    Parameters par{0}, std_dev{};
    const MarquardtResult r = marquardt_nash_fitting(problem, 3, par, std_dev);
    EXPECT_EQ(r.accepted, 0);
    EXPECT_NEAR(par[0], 0, 1e-12);
}

TEST(Marquardt, APointOutsideOfTheModelsRangeHasNoDerivative) {
    const auto points = Points({{1, 10}});
    FitProblem problem = Problem(FailsBelowTwo, 1, points);
    double res = 3;
    Parameters d{9};
    calc_ableitungen(problem, {2}, 0, res, d);
    EXPECT_EQ(res, 3);
    EXPECT_EQ(d[0], 0);
}

TEST(Marquardt, PackedCholeskySolvesWithAMask) {
    // A symmetric positive matrix; the second parameter is held.
    const double full[3][3] = {{4, 2, 1}, {2, 5, 3}, {1, 3, 6}};
    PackedMatrix a{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j <= i; ++j) a[packed_index(i, j)] = full[i][j];
    std::array<Mask, 7> mask{Mask::Free, Mask::Fixed, Mask::Free};
    ASSERT_TRUE(factorise_packed(a, 3, mask));
    Parameters x{9, 100, 8};
    solve_packed(a, 3, mask, x);
    // [4 1; 1 6] x = [9; 8] has the determinant 23.
    EXPECT_NEAR(x[0], (9 * 6 - 8) / 23.0, 1e-14);
    EXPECT_EQ(x[1], 0);
    EXPECT_NEAR(x[2], (4 * 8 - 9) / 23.0, 1e-14);
}

TEST(Marquardt, PackedCholeskyRefusesAPivotThatIsNotPositive) {
    PackedMatrix a{};
    a[packed_index(0, 0)] = 1;
    a[packed_index(1, 0)] = 2;
    a[packed_index(1, 1)] = 4;
    EXPECT_FALSE(factorise_packed(a, 2, {Mask::Free, Mask::Free}));
    PackedMatrix held = a;
    EXPECT_TRUE(factorise_packed(held, 2, {Mask::Free, Mask::AtUpper}));
    PackedMatrix infinite{};
    infinite[0] = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(factorise_packed(infinite, 1, {Mask::Free}));
}

}  // namespace
