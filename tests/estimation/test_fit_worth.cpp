#include "estimation/fit_worth.h"

#include <filesystem>
#include <functional>
#include <numeric>

#include "common/whole_file.h"
#include "datafiles/measured_data.h"
#include "datafiles/xy_file.h"
#include "estimation/fit_apply.h"
#include "estimation/fit_start_values.h"
#include "estimation/linear_regression.h"
#include "estimation/model_functions.h"
#include "estimation/synthetic.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using namespace fit_support;
using estimation::FitFlaw;
using estimation::FitNote;
using estimation::is_worthless;
using estimation::kInactive;
using estimation::kNoStdDev;
using estimation::SecondTry;

std::string sample_text(const std::string& name) {
    return files::read_whole(std::filesystem::path(QUOR_SOURCE_DATA) / "samples" / name).value();
}

std::vector<datafiles::FitPoint> xy_sample(const std::string& name) {
    return datafiles::read_xy_text(sample_text(name), ';').data.points;
}

/// A model chosen for a substance with points as they come from an editor.
FitState with_points(std::int16_t model, std::vector<datafiles::FitPoint> points,
                     const models::SubstanceRecord& substance = {}) {
    FitState state;
    state.substance = substance;
    estimation::choose_model(state, model);
    EXPECT_EQ(estimation::set_fit_points(state, std::move(points), false), std::nullopt);
    EXPECT_GT(state.point_count, 0);
    return state;
}

bool tells(const FitState& state, FitFlaw flaw) {
    const std::vector<FitNote> notes = fit_notes(state);
    return std::any_of(notes.begin(), notes.end(),
                       [flaw](const FitNote& note) { return note.flaw == flaw; });
}

// --------------------------------------------------------------------------- points of a fit

TEST(FitPoints, MeasuredRowsWithoutAValueDoNotPushValidOnesOutOfTheFit) {
    const auto file =
        datafiles::read_measured_data(sample_text("diethyl_ether_saturation.BAQ"), "sample");
    ASSERT_TRUE(file);
    const auto& lines = file->data.points;
    std::vector<datafiles::FitPoint> measured;
    for (const auto& line : lines)
        if (line.rhoV != 0) measured.push_back({static_cast<float>(line.T), line.rhoV, 0});
    ASSERT_EQ(lines.size(), 16U);
    ASSERT_EQ(measured.size(), 5U);
    EXPECT_EQ(estimation::fit_points(lines, 3), measured);

    // The rows without a value stand first: the engine took its matrix from none of the others.
    FitState state;
    estimation::choose_model(state, 11);
    estimation::set_fit_points(state, estimation::fit_points(lines, 3), true);
    state.fixed = {false, false, true, true};
    state.start = {600, 1, 0, 0};
    ASSERT_TRUE(fit_once(state));
    EXPECT_FALSE(tells(state, FitFlaw::EndedAtStart));
    double n = 0, sx = 0, sy = 0, sxx = 0, sxy = 0;
    for (const auto& p : measured) {
        const double x = static_cast<double>(p.x), y = static_cast<double>(p.y);
        ++n, sx += x, sy += y, sxx += x * x, sxy += x * y;
    }
    const double slope = (n * sxy - sx * sy) / (n * sxx - sx * sx);
    EXPECT_NEAR(state.parameters[1], slope, 1e-4 * std::fabs(slope));
}

TEST(FitPoints, PointsSwitchedOffDoNotPushOthersOutOfTheMatrix) {
    auto points = xy_sample("benzene_vapour_pressure.XY");
    for (std::size_t i = 0; i < 3; ++i) points[i].mark = kInactive;
    FitState gap = with_points(4, points);
    EXPECT_EQ(gap.inactive_count, 3);
    ASSERT_TRUE(fit_once(gap));
    points.erase(points.begin(), points.begin() + 3);
    FitState without = with_points(4, points);
    ASSERT_TRUE(fit_once(without));
    EXPECT_EQ(gap.parameters, without.parameters);
    EXPECT_NEAR(gap.sum_of_squares, 18.63, 0.005);
    EXPECT_EQ(gap.sum_of_squares, without.sum_of_squares);
}

TEST(FitPoints, AFitOfPointsInAnyOrderTakesAllActiveOnes) {
    auto points = xy_sample("benzene_vapour_pressure.XY");
    FitState state = State(4, points);
    for (std::size_t i = 0; i < 3; ++i) state.points[i].mark = kInactive;
    state.inactive_count = 3;
    ASSERT_TRUE(start_fit(state));
    EXPECT_NEAR(state.sum_of_squares, 18.63, 0.005);
}

TEST(FitPoints, TheAppliedRangeIsThatOfActivePoints) {
    auto points = xy_sample("benzene_vapour_pressure.XY");
    ASSERT_GT(points.size(), 8U);
    points.front().mark = points.back().mark = kInactive;
    FitState state = with_points(4, points, fluids::Row("Benzene"));
    ASSERT_TRUE(start_fit(state));
    const auto applied = estimation::apply_fit(state, fluids::Row("Benzene"));
    ASSERT_TRUE(applied);
    EXPECT_EQ(applied->substance.antoine_low.T_low, std::lround(points[1].x));
    EXPECT_EQ(applied->substance.antoine_low.T_high, std::lround(points[points.size() - 2].x));
}

// ----------------------------------------------------------------------------- worth of a fit

TEST(FitWorth, ASearchThatWentNowhereIsWorthless) {
    FitState state =
        with_points(5, xy_sample("propane_vapour_pressure.XY"), fluids::Row("Propane"));
    ASSERT_TRUE(fit_once(state));
    EXPECT_TRUE(tells(state, FitFlaw::EndedAtStart));
    EXPECT_TRUE(is_worthless(state));
    EXPECT_FALSE(worthless_text(state).empty());
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(interval95(state, i), std::nullopt) << i;
        if (!state.fixed[i]) {
            EXPECT_EQ(standard_deviation(state, i), std::nullopt) << i;
        }
    }
}

TEST(FitWorth, AFitThatBeginsAtItsOwnResultIsAGoodOne) {
    FitState state = with_points(4, xy_sample("benzene_vapour_pressure.XY"));
    ASSERT_TRUE(fit_once(state));
    ASSERT_FALSE(is_worthless(state));
    const double least = state.sum_of_squares;
    for (int i = 0; i < 5; ++i) {
        take_all_results_as_start(state);
        ASSERT_TRUE(fit_once(state));
        EXPECT_FALSE(is_worthless(state)) << worthless_text(state);
    }
    EXPECT_TRUE(state.report.ended_at_start) << "there was nothing left to gain";
    EXPECT_NEAR(state.sum_of_squares, least, 1e-9 * least);
}

TEST(FitWorth, TheSumOfSquaresIsThatOfTheShownParametersAlsoOnABound) {
    // The intercept cannot be more than 50000; the forbidden probe left a sum of 0.
    std::vector<std::pair<double, double>> xy;
    for (int i = 1; i <= 8; ++i) xy.emplace_back(i, 60000.0 + i);
    FitState state = State(11, Points(xy));
    state.fixed = {false, true, true, true};
    state.start = {10, 0, 0, 0};
    ASSERT_TRUE(fit_once(state));
    double squares = 0;
    for (const auto& [x, y] : xy) squares += (50000 - y) * (50000 - y);
    EXPECT_DOUBLE_EQ(state.parameters[0], 50000);
    EXPECT_NEAR(*sum_of_squares(state) / squares, 1, 1e-12);
    EXPECT_TRUE(tells(state, FitFlaw::OnBound));
    EXPECT_TRUE(tells(state, FitFlaw::BoundCosts));
    EXPECT_TRUE(is_worthless(state));
    EXPECT_EQ(standard_deviation(state, 0), std::nullopt) << "not 0, as of a fixed parameter";
    EXPECT_EQ(standard_deviation(state, 1), 0);
}

TEST(FitWorth, AParameterThatTheLastProbeNudgedOffItsBoundIsStillOnIt) {
    // The best A lies a hair below the bound of 50000: the last probes find it there.
    for (const double best : {49999.999, 49999.9999, 50000.0, 50000.001}) {
        SCOPED_TRACE(best);
        std::vector<datafiles::FitPoint> points;
        for (int i = 1; i <= 8; ++i) points.push_back({static_cast<float>(i), 50000.0F, 0});
        FitState state = State(11, points);
        state.fixed = {false, true, true, true};
        state.start = {60000, (best - 50000) / -4.5, 0, 0};
        ASSERT_TRUE(fit_once(state));
        EXPECT_NEAR(state.parameters[0], 50000, 0.02);
        EXPECT_TRUE(tells(state, FitFlaw::OnBound));
    }
}

TEST(FitWorth, PointsWithoutAValueLeaveNoSumOfSquares) {
    // The line is below 0 at the first points, where its logarithm does not exist.
    FitState state = State(11, Points({{1, 1}, {2, 1}, {3, 2}, {4, 3}, {5, 4}, {6, 5}}));
    state.fixed = {true, true, true, false};
    state.start = {-30, 10, 0, 0};
    state.logarithmic = true;
    ASSERT_TRUE(fit_once(state));
    EXPECT_EQ(state.report.failed_points, 3);
    EXPECT_TRUE(tells(state, FitFlaw::PointsWithoutValue));
    EXPECT_TRUE(is_worthless(state));
    EXPECT_EQ(sum_of_squares(state), std::nullopt);
    EXPECT_EQ(residual_deviation(state), std::nullopt);
    EXPECT_EQ(quality_of(state).sum_of_squares, "SQ = ---");
}

TEST(FitWorth, PointsThatCannotTellTheParametersApartAreTold) {
    FitState state =
        State(0, Points({{1, 5}, {1, 7}, {1, 6}, {1, 6}, {-1, 1}, {-1, 3}, {-1, 2}, {-1, 2}}));
    state.fixed = {false, false, false, false, true, true};
    ASSERT_TRUE(start_fit(state));
    EXPECT_TRUE(tells(state, FitFlaw::Undetermined));
    EXPECT_TRUE(is_worthless(state));
    EXPECT_EQ(standard_deviation(state, 0), std::nullopt);
    EXPECT_EQ(correlation(state, 0, 1), std::nullopt);
}

TEST(FitWorth, AnIdleParameterAloneDoesNotSpoilAFit) {
    FitState state =
        SyntheticState({16, false, {32.2, 0.0019, 1.055e-5, -3.6e-9, 0}, 280, 1000}, 20);
    ASSERT_TRUE(start_fit(state));
    EXPECT_TRUE(tells(state, FitFlaw::WithoutInfluence));
    EXPECT_FALSE(is_worthless(state));
    EXPECT_EQ(standard_deviation(state, 0), std::nullopt) << "the told one is missing";
    EXPECT_GT(interval95(state, 0).value_or(0), 0);
    EXPECT_EQ(correlation(state, 0, 4), std::nullopt);
    EXPECT_EQ(correlation(state, 0, 0), 1);
}

TEST(FitWorth, AStandardDeviationThatContradictsItsIntervalIsNotShown) {
    FitState state = with_points(4, xy_sample("benzene_vapour_pressure.XY"));
    ASSERT_TRUE(start_fit(state));
    ASSERT_FALSE(tells(state, FitFlaw::Contradiction));
    EXPECT_EQ(standard_deviation(state, 1), state.std_dev[1]);
    const double t = *interval95(state, 1) / state.report.std_dev[1];
    EXPECT_GT(t, 2);  // Student's t at 13 degrees of freedom is 2.16
    EXPECT_LT(t, 2.3);

    state.std_dev[1] *= 3;
    EXPECT_TRUE(tells(state, FitFlaw::Contradiction));
    EXPECT_EQ(standard_deviation(state, 1), std::nullopt);
    EXPECT_EQ(interval95(state, 1), std::nullopt);
    EXPECT_NE(standard_deviation(state, 0), std::nullopt);
    EXPECT_EQ(fit_notes(state).back().text,
              "Standard deviation and 95 % interval contradict each other: B.");
}

TEST(FitWorth, AFitThatPassedItsLimitsHasNoStandardDeviationsOfAnEarlierOne) {
    FitState state = with_points(15, xy_sample("water_vapour_pressure.XY"), fluids::Row("Water"));
    state.std_dev = {1, 2, 3, 4, 5};
    ASSERT_TRUE(fit_once(state));
    ASSERT_TRUE(state.report.ended_at_limit);
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(state.std_dev[i], kNoStdDev);
    EXPECT_TRUE(is_worthless(state));
}

// ------------------------------------------------------------------------- start values that fail

struct Sample {
    const char* file;
    const char* substance;
    double Tcr;
};

TEST(FitStarts, FrostThodosAndAntoineFindTheirFitOnTheVapourPressureSamples) {
    int failed_starts = 0;
    for (const Sample& sample : {Sample{"benzene_vapour_pressure.XY", "Benzene", 0},
                                 {"propane_vapour_pressure.XY", "Propane", 0},
                                 {"water_vapour_pressure.XY", "Water", 0},
                                 {"r161_vapour_pressure.XY", "R161", 375.25}}) {
        for (const int model : {4, 5, 6}) {
            for (const bool lg : {false, true}) {
                SCOPED_TRACE(std::string(sample.file) + " " + std::to_string(model) +
                             (lg ? " lg" : " ln"));
                models::SubstanceRecord substance;
                if (sample.Tcr == 0)
                    substance = fluids::Row(sample.substance);
                else
                    substance.Tcrit = sample.Tcr;
                FitState state;
                state.lg = lg;
                state.substance = substance;
                ASSERT_TRUE(estimation::choose_model(state, static_cast<std::int16_t>(model)));
                estimation::set_fit_points(state, xy_sample(sample.file), false);
                const Parameters start = state.start;
                FitState once = state;
                ASSERT_TRUE(fit_once(once));
                FitState proposed = state;
                const auto proposal = estimation::proposed_start_values(state);
                ASSERT_TRUE(proposal);
                proposed.start = *proposal;
                ASSERT_TRUE(fit_once(proposed));

                ASSERT_TRUE(start_fit(state));
                EXPECT_FALSE(is_worthless(state)) << worthless_text(state);
                EXPECT_EQ(state.start, start) << "the fields stay as they were";
                // Both forms of an equation, and both starts, have the one minimum.
                EXPECT_NEAR(state.sum_of_squares, proposed.sum_of_squares,
                            1e-5 * proposed.sum_of_squares);
                if (!is_worthless(once)) {
                    EXPECT_EQ(state.report.second_try, SecondTry::None);
                    continue;
                }
                ++failed_starts;
                EXPECT_EQ(state.report.second_try, SecondTry::Better);
                EXPECT_EQ(state.report.start, *proposal);
                EXPECT_EQ(fit_notes(state).front().flaw, FitFlaw::SecondTry);
            }
        }
    }
    EXPECT_GE(failed_starts, 12) << "the samples no longer show the fault";
}

TEST(FitStarts, WhereTheProposedOnesAreNoBetterTheFirstFitStays) {
    FitState state =
        with_points(10, xy_sample("benzene_liquid_density.XY"), fluids::Row("Benzene"));
    FitState once = state;
    ASSERT_TRUE(fit_once(once));
    ASSERT_TRUE(is_worthless(once));
    ASSERT_TRUE(start_fit(state));
    EXPECT_EQ(state.report.second_try, SecondTry::NoBetter);
    EXPECT_EQ(state.parameters, once.parameters);
    EXPECT_TRUE(tells(state, FitFlaw::SecondTry));
}

// --------------------------------------------------------------------------------- linear models

/// The least sum of squares over a span of functions: modified Gram-Schmidt, done twice, in
/// extended precision.
double least_squares(const std::vector<datafiles::FitPoint>& points,
                     const std::vector<std::function<long double(long double)>>& span) {
    std::vector<std::vector<long double>> basis;
    std::vector<long double> rest;
    for (const auto& p : points) rest.push_back(static_cast<long double>(p.y));
    const auto dot = [](const auto& a, const auto& b) {
        return std::inner_product(a.begin(), a.end(), b.begin(), 0.0L);
    };
    const auto take_away = [&](std::vector<long double>& v, const std::vector<long double>& unit) {
        const long double share = dot(v, unit);
        for (std::size_t i = 0; i < v.size(); ++i) v[i] -= share * unit[i];
    };
    for (const auto& f : span) {
        std::vector<long double> v;
        for (const auto& p : points) v.push_back(f(static_cast<long double>(p.x)));
        for (int pass = 0; pass < 2; ++pass)
            for (const auto& unit : basis) take_away(v, unit);
        const long double length = std::sqrt(dot(v, v));
        for (auto& value : v) value /= length;
        basis.push_back(v);
    }
    for (int pass = 0; pass < 2; ++pass)
        for (const auto& unit : basis) take_away(rest, unit);
    return static_cast<double>(dot(rest, rest));
}

/// Points about a smooth function over a narrow range, with an error that changes from one to the
/// next.
std::vector<datafiles::FitPoint> narrow_points(double from, double to) {
    std::vector<datafiles::FitPoint> points;
    for (int i = 0; i < 30; ++i) {
        const double x = from + (to - from) * i / 29;
        const double error = 0.01 * std::sin(7.3 * i * i + i);
        points.push_back(
            {static_cast<float>(x),
             static_cast<float>(80 + 0.2 * x + std::exp((x - from) / (to - from)) + error), 0});
    }
    return points;
}

TEST(LinearModels, ANarrowRangeGetsItsLeastSumOfSquares) {
    for (const auto& [from, to] : {std::pair{300.0, 310.0}, {295.0, 345.0}, {1000.0, 1020.0}}) {
        SCOPED_TRACE(from);
        const auto points = narrow_points(from, to);
        std::vector<std::function<long double(long double)>> powers;
        for (int k = 0; k <= 5; ++k)
            powers.push_back([k, middle = static_cast<long double>(0.5 * (from + to))](
                                 long double x) { return std::pow(x - middle, k); });
        FitState polynomial = State(0, points);
        polynomial.fixed = {};
        ASSERT_TRUE(start_fit(polynomial));
        EXPECT_NEAR(polynomial.sum_of_squares / least_squares(points, powers), 1, 1e-4);

        std::vector<std::function<long double(long double)>> combi(powers.begin(),
                                                                   powers.begin() + 4);
        const auto middle = static_cast<long double>(0.5 * (from + to));
        combi.push_back([middle](long double x) { return 1 / x - 1 / middle; });
        FitState mixed = State(1, points);
        mixed.fixed = {false, false, false, false, false, true, true};
        ASSERT_TRUE(start_fit(mixed));
        EXPECT_NEAR(mixed.sum_of_squares / least_squares(points, combi), 1, 1e-4);
    }
}

TEST(LinearModels, TheSumOfSquaresIsThatOfTheShownFunction) {
    const auto points = narrow_points(300, 310);
    for (const int model : {0, 1}) {
        FitState state = State(static_cast<std::int16_t>(model), points);
        state.fixed = {};
        ASSERT_TRUE(start_fit(state));
        double squares = 0;
        for (const auto& p : points) {
            double y = 0;
            ASSERT_TRUE(evaluate_fit(state, static_cast<double>(p.x), y));
            squares += (y - static_cast<double>(p.y)) * (y - static_cast<double>(p.y));
        }
        EXPECT_DOUBLE_EQ(state.sum_of_squares, squares);
    }
}

}  // namespace
