#include "estimation/fit_run.h"

#include <numeric>

#include "common/numbers.h"
#include "estimation/fit_graphs.h"
#include "estimation/fit_worth.h"
#include "estimation/linear_regression.h"
#include "estimation/model_functions.h"
#include "estimation/student_t.h"
#include "estimation/synthetic.h"

using namespace quor;

namespace {

using namespace fit_support;
using estimation::FitGraph;
using estimation::kInactive;
using estimation::kNoStdDev;

class FitRun : public testing::Test {
  protected:
    static void expectRefusal(const FitState& state, const std::string& text) {
        const Result<FitState> result = estimation::run_fit(state);
        ASSERT_FALSE(result);
        EXPECT_EQ(result.reason(), text);
    }
    /// Experimental data with all columns told apart.
    static std::vector<datafiles::MeasuredPoint> three_lines() {
        std::vector<datafiles::MeasuredPoint> data;
        for (int i = 1; i < 4; ++i) {
            const auto k = static_cast<float>(i);
            data.push_back({.T = 300.0 + i,
                            .p = 100.0 * i,
                            .rhoV = 8 + k,
                            .rhoL = 800 + k,
                            .hLV = 20000 + k,
                            .cp = 75 + k});
        }
        return data;
    }
    static FitState of_data(const std::vector<datafiles::MeasuredPoint>& data, int column = 1) {
        FitState state;
        EXPECT_EQ(estimation::set_fit_points(state, estimation::fit_points(data, column), true),
                  std::nullopt);
        return state;
    }
    static FitState of_points(std::vector<datafiles::FitPoint> points) {
        FitState state;
        EXPECT_EQ(estimation::set_fit_points(state, std::move(points), false), std::nullopt);
        return state;
    }
};

TEST_F(FitRun, PointsComeFromTheColumnOfTheTpvEditor) {
    const std::vector<std::pair<int, float>> columns{
        {1, 100.0F}, {2, 801.0F}, {3, 9.0F}, {4, 20001.0F}, {5, 76.0F}};
    for (const auto& [column, y] : columns) {
        const FitState state = of_data(three_lines(), column);
        EXPECT_EQ(state.point_count, 3);
        EXPECT_EQ(state.inactive_count, 0);
        EXPECT_EQ(state.points[0].x, 301.0F);
        EXPECT_EQ(state.points[0].y, y);
        EXPECT_EQ(fit_title(state),
                  " Fitting y = f(T) (3 (active) sets of data loaded from T-p-V editor");
    }
}

TEST_F(FitRun, LinesWithoutTemperatureOrSwitchedOffAreInactive) {
    auto data = three_lines();
    data[0].skip = -1;
    data[1].T = 0;
    const FitState state = of_data(data);
    EXPECT_EQ(state.point_count, 3);
    EXPECT_EQ(state.inactive_count, 2);
    EXPECT_NE(state.points[0].mark, kInactive);
    EXPECT_EQ(state.points[0].x, 303.0F) << "the active ones stand first";
    EXPECT_EQ(state.points[1].mark, kInactive);
    EXPECT_EQ(state.points[2].mark, kInactive);
}

TEST_F(FitRun, LinesWithoutAValueInTheColumnAreNoPoints) {
    auto data = three_lines();
    data[1].cp = 0;
    const FitState state = of_data(data, 5);
    EXPECT_EQ(state.inactive_count, 0);
    ASSERT_EQ(state.point_count, 2);
    EXPECT_EQ(state.points[0].x, 301.0F);
    EXPECT_EQ(state.points[1].x, 303.0F);
}

TEST_F(FitRun, PointsComeFromTheXyEditor) {
    const FitState state = of_points({{1, 2, 0}, {0, 5, 0}, {3, 0, 0}, {4, 1, kInactive}});
    EXPECT_EQ(state.point_count, 4);
    EXPECT_EQ(state.inactive_count, 2);
    EXPECT_EQ(state.points[0].x, 1.0F);
    EXPECT_EQ(state.points[1].x, 3.0F);
    EXPECT_EQ(state.points[2].x, 0.0F);
    EXPECT_EQ(state.points[2].mark, kInactive);
    EXPECT_EQ(state.points[3].mark, kInactive);
    EXPECT_EQ(fit_title(state), " Fitting y = f(T) (2 (active) sets of data loaded from XY editor");
    EXPECT_EQ(fit_title(of_points({})), " Fitting y = f(T) (data not yet loaded)");
}

TEST_F(FitRun, PointsThatAreNoNumbersAreInactive) {
    const float infinite = std::numeric_limits<float>::infinity();
    const FitState state =
        of_points({{1, infinite, 0}, {2, std::nanf(""), 0}, {infinite, 1, 0}, {4, 1, 0}});
    EXPECT_EQ(state.inactive_count, 3);
    // Even an active one never brings a result that is no number.
    FitState raw = State(11, Points({{1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}}));
    raw.points[2].y = std::nanf("");
    ASSERT_TRUE(start_fit(raw));
    for (const double p : raw.parameters) EXPECT_TRUE(std::isfinite(p));
    EXPECT_TRUE(std::isfinite(raw.sum_of_squares));
    EXPECT_TRUE(std::isfinite(raw.residual_deviation));
}

TEST_F(FitRun, MorePointsThanSixteenBitsCountAreCutAndTold) {
    FitState state;
    const auto note = estimation::set_fit_points(
        state, std::vector<datafiles::FitPoint>(40000, {1, 1, 0}), false);
    EXPECT_EQ(state.point_count, 32767);
    EXPECT_EQ(note, "Only the first 32767 points are used.");
}

TEST_F(FitRun, RefusalsComeInTheirOrder) {
    FitState state = State(6, {});
    expectRefusal(state,
                  "data not yet available\nmanual data input or loading data via file necessary");
    const auto few = Points({{300, 1}, {310, 2}});
    state = State(6, few);
    expectRefusal(state, "Tcr is needed for the correlation of parameter D.");
    for (const int model : {8, 9, 10, 14, 15}) {
        state = State(static_cast<std::int16_t>(model), few);
        expectRefusal(state, "Tcr needed");
    }
    state = State(8, few);
    state.Tcr = 500;
    expectRefusal(state, "pcr needed");
    state.pcr = 3000;
    const std::string tooFew =
        "The number of the (active) measuring points has to be greater than the number of the "
        "parameters!\nDo complete the data in the data editor.";
    expectRefusal(state, tooFew);
    // Exactly as many active points as parameters are too few, one more is enough.
    state = State(3, Points({{300, 3}, {320, 10}, {340, 30}, {360, 70}}));
    state.points[2].mark = kInactive;
    state.inactive_count = 1;
    expectRefusal(state, tooFew);
    state.points[2].mark = 0;
    state.inactive_count = 0;
    EXPECT_TRUE(start_fit(state));
}

TEST_F(FitRun, StartsAndResultsAreInTheirOwnUnits) {
    // The scale of A is 10: a fixed A of 620 must come back as 620.
    FitState state = SyntheticState({11, false, {620, 3.2, -0.0072, 3.1e-6}, 280, 450}, 20);
    state.start = {620, 1, 0, 0};
    state.fixed = {true, false, false, false};
    ASSERT_TRUE(start_fit(state));
    EXPECT_DOUBLE_EQ(state.parameters[0], 620);
    EXPECT_NEAR(state.parameters[1], 3.2, 1e-4);
    EXPECT_EQ(state.std_dev[0], 0);
}

TEST_F(FitRun, MissingStandardDeviationsTakeNoScale) {
    FitState state =
        SyntheticState({16, false, {32.2, 0.0019, 1.055e-5, -3.6e-9, 0}, 280, 1000}, 20);
    ASSERT_TRUE(start_fit(state));
    for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(state.std_dev[i], kNoStdDev);
    EXPECT_TRUE(state.report.singular);
    EXPECT_TRUE(state.report.without_influence[4]);
    // The intervals of the other parameters can be had all the same.
    EXPECT_GT(state.report.half_width[0], 0);
    EXPECT_EQ(state.report.half_width[4], kNoStdDev);
}

TEST_F(FitRun, ThodosShowsDAndNoDeviationForIt) {
    FitState state = SyntheticState({6, true, {23.55, -2980, 273.15, 0, 3.5}, 300, 620}, 30);
    state.fixed[3] = false;  // a computed parameter is never adjusted
    state.start = {23, -2900, 273.15, 5, 4};
    state.logarithmic = true;
    ASSERT_TRUE(start_fit(state));
    EXPECT_NEAR(state.parameters[3], 1.8 * state.parameters[1] / 647.096 + 2.67, 1e-9);
    EXPECT_EQ(state.std_dev[3], 0);
    EXPECT_FALSE(state.report.singular);
}

TEST_F(FitRun, ResultsBecomeStarts) {
    FitState state = SyntheticState({11, false, {620, 3.2, -0.0072, 3.1e-6}, 280, 450}, 20);
    const Parameters start = state.start;
    take_all_results_as_start(state);  // nothing is fitted yet
    EXPECT_EQ(state.start, start);
    ASSERT_TRUE(start_fit(state));
    take_result_as_start(state, 1);
    EXPECT_EQ(state.start[0], start[0]);
    EXPECT_EQ(state.start[1], state.parameters[1]);
    take_all_results_as_start(state);
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(state.start[i], state.parameters[i]);
    take_result_as_start(state, 7);
    take_result_as_start(state, -1);
}

TEST_F(FitRun, AFixedParameterOfALinearModelIsLeftOut) {
    FitState state = State(0, Points({{1, 2}, {2, 4}, {3, 7}, {4, 8}, {5, 9}, {6, 13}, {7, 15}}));
    state.fixed = {true, false, true, true, true, true};
    state.start = {100, 100, 100, 100, 100, 100};
    ASSERT_TRUE(start_fit(state));
    EXPECT_EQ(state.parameters[0], 0);
    EXPECT_NEAR(state.parameters[1], (2 + 8 + 21 + 32 + 45 + 78 + 105) / 140.0, 1e-12);
    EXPECT_EQ(state.std_dev[0], 0);
}

TEST_F(FitRun, CombiExpressionNeedsPositiveXForItsLastTerms) {
    const auto points =
        Points({{-1, 1}, {1, 2}, {2, 3}, {3, 5}, {4, 8}, {5, 13}, {6, 21}, {7, 34}, {8, 55}});
    FitState state = State(1, points);
    expectRefusal(state,
                  "For this fitting model all actíve x-values have to be greater than zero.");
    state.fixed = {false, false, false, false, true, true, true};
    EXPECT_TRUE(start_fit(state));
    // A point at x = 0 as the engine may meet it.
    auto zero = points;
    zero[0].x = 0;
    FitProblem problem = make_problem(state, *estimation::find_model(1));
    problem.points = zero;
    EXPECT_TRUE(linear_regression_fit(problem, estimation::combi_basis));
    problem.fixed[6] = false;
    EXPECT_FALSE(linear_regression_fit(problem, estimation::combi_basis));
    // An inactive point does not count.
    zero[0].mark = kInactive;
    problem.points = zero;
    EXPECT_TRUE(linear_regression_fit(problem, estimation::combi_basis));
}

TEST_F(FitRun, DependentTermsOfALinearModelAreLeftAlone) {
    // At x = 1 and x = -1 alone, x^2 is 1 and x^3 is x: only A and B can be found.
    FitState state =
        State(0, Points({{1, 5}, {1, 7}, {1, 6}, {1, 6}, {-1, 1}, {-1, 3}, {-1, 2}, {-1, 2}}));
    state.fixed = {false, false, false, false, true, true};
    ASSERT_TRUE(start_fit(state));
    EXPECT_DOUBLE_EQ(state.parameters[0], 4);
    EXPECT_DOUBLE_EQ(state.parameters[1], 2);
    EXPECT_EQ(state.parameters[2], 0);
    EXPECT_EQ(state.parameters[3], 0);
    EXPECT_DOUBLE_EQ(state.sum_of_squares, 4);
    EXPECT_TRUE(state.report.singular);
    EXPECT_EQ(state.std_dev[0], kNoStdDev);
}

TEST_F(FitRun, ALinearOverflowIsTold) {
    FitState state = State(
        0, Points({{1e35, 1}, {2e35, 2}, {3e35, 3}, {4e35, 4}, {5e35, 5}, {6e35, 6}, {7e35, 7}}));
    state.fixed = {};
    expectRefusal(state, "Overflow");
    EXPECT_EQ(state.parameters, Parameters{});
}

TEST_F(FitRun, QualityTextsAreThoseOfTheModel) {
    FitState state =
        State(4, Points({{300, 3.5}, {320, 10.5}, {340, 27}, {360, 62}, {373.15, 101}}));
    state.points[1].mark = kInactive;
    state.inactive_count = 1;
    state.sum_of_squares = 0.0123456789;
    state.residual_deviation = 0.25;
    const estimation::QualityTexts texts = quality_of(state);
    EXPECT_EQ(texts.caption, "Quality of the fitting (N = 4, NPar = 3)");
    EXPECT_EQ(texts.sum_of_squares, "SQ = 0.01234568");
    EXPECT_EQ(texts.residual_deviation, "s(R) = 0.25");
    EXPECT_EQ(texts.explain_sum_of_squares, "sum of squares SQ = sum[(p(i),calc - p(i),exp)^2]");
    EXPECT_EQ(texts.explain_residual_deviation,
              "resid. standard deviation s(R) = SQRT(FQS / (N -NPar))");
    EXPECT_EQ(texts.symbols,
              " SQRT = square root, N = number of measuring points, NPar = number of adjustable "
              "parameters ");
    state.logarithmic = true;
    EXPECT_EQ(quality_of(state).explain_sum_of_squares,
              "sum of squares SQ = sum[ln((p(i),calc) - ln(p(i),exp))^2]");
    EXPECT_EQ(quality_of(State(9, {})).explain_sum_of_squares,
              "sum of squares SQ = sum[(y(i),calc - y(i),exp)^2]");
    EXPECT_EQ(estimation::log_fit_caption(true), "SQ using ln(y) difference ");
    EXPECT_EQ(estimation::log_fit_caption(false), "SQ using y difference");
    numbers::set_decimal_mark(',');
    EXPECT_EQ(quality_of(state).sum_of_squares, "SQ = 0,01234568");
}

TEST_F(FitRun, ResidualDeviationDividesByAllParameters) {
    FitState state = State(
        0,
        Points({{1, 2}, {2, 4.2}, {3, 5.9}, {4, 8.1}, {5, 9.8}, {6, 12.3}, {7, 13.9}, {8, 16.2}}));
    state.fixed = {false, false, true, true, true, true};
    ASSERT_TRUE(start_fit(state));
    // 8 points, 6 parameters although four of them are fixed.
    EXPECT_NEAR(state.residual_deviation, std::sqrt(state.sum_of_squares / 2), 1e-12);
}

TEST_F(FitRun, CaptionsFollowTabAndSubstance) {
    EXPECT_EQ(estimation::data_caption(estimation::FitTab::VapourPressure), "p = f(T)");
    EXPECT_EQ(estimation::data_caption(estimation::FitTab::General), "y = f(T)");
    EXPECT_EQ(
        estimation::target_caption("Propane"),
        "... in the actually loaded data of Propane (cf. editor \"Data / View/Edit Data of the "
        "Substance\")");
}

TEST_F(FitRun, ConfidenceIntervalsOfALineAreTheClosedFormOnes) {
    const auto points =
        Points({{1, 2.1}, {2, 3.9}, {3, 6.2}, {4, 7.8}, {5, 10.1}, {6, 11.7}, {7, 14.2}});
    double n = 0, sx = 0, sxx = 0, sy = 0, sxy = 0;
    for (const auto& p : points) {
        const double x = static_cast<double>(p.x), y = static_cast<double>(p.y);
        ++n, sx += x, sxx += x * x, sy += y, sxy += x * y;
    }
    const double det = n * sxx - sx * sx;
    const double b = (n * sxy - sx * sy) / det, a = (sy - b * sx) / n;
    double squares = 0, worst = 0, worstAt = 0, sum = 0;
    for (const auto& p : points) {
        const double x = static_cast<double>(p.x), y = static_cast<double>(p.y);
        const double d = 100 * (a + b * x - y) / y;
        squares += std::pow(a + b * x - y, 2);
        sum += std::fabs(d);
        if (std::fabs(d) > std::fabs(worst)) worst = d, worstAt = x;
    }
    FitState state = State(0, points);
    state.fixed = {false, false, true, true, true, true};
    ASSERT_TRUE(start_fit(state));
    const double t5 = 2.570581836;  // two-sided 95 % point at 5 degrees of freedom
    EXPECT_EQ(state.report.freedom, 5);
    EXPECT_NEAR(state.report.half_width[0], t5 * std::sqrt(squares / 5 * sxx / det), 1e-8);
    EXPECT_NEAR(state.report.half_width[1], t5 * std::sqrt(squares / 5 * n / det), 1e-8);
    EXPECT_NEAR(state.report.correlation[0][1], -sx / std::sqrt(n * sxx), 1e-10);
    EXPECT_EQ(state.report.correlation[0][1], state.report.correlation[1][0]);
    EXPECT_NEAR(state.std_dev[1], std::sqrt(squares / 5 * n / det), 1e-9);
    EXPECT_NEAR(state.report.mean_deviation, sum / n, 1e-9);
    EXPECT_NEAR(state.report.largest_deviation, worst, 1e-9);
    EXPECT_EQ(state.report.largest_at, worstAt);
}

TEST_F(FitRun, ConfidenceIntervalsTakeAllActivePoints) {
    auto points = Points({{1, 2.1}, {2, 3.9}, {3, 6.2}, {4, 7.8}, {5, 10.1}, {6, 11.7}, {7, 14.2}});
    FitState full = State(11, points);
    full.fixed = {false, false, true, true};
    full.start = {1, 1, 0, 0};
    ASSERT_TRUE(start_fit(full));
    points.insert(points.begin(), {9, 99, kInactive});
    FitState gap = State(11, points);
    gap.fixed = full.fixed;
    gap.start = {1, 1, 0, 0};
    ASSERT_TRUE(start_fit(gap));
    EXPECT_NEAR(gap.parameters[1], full.parameters[1], 1e-9);
    EXPECT_EQ(gap.report.freedom, 5);
    EXPECT_NEAR(gap.report.half_width[1] / full.report.half_width[1], 1, 1e-9);
    EXPECT_NEAR(gap.std_dev[1] / full.std_dev[1], 1, 1e-9);
}

TEST_F(FitRun, NotesTellWhatHappened) {
    FitState state = State(4, Points({{300, 3.5}, {320, 10.5}, {340, 27}, {360, 62}, {373, 101}}));
    EXPECT_TRUE(fit_notes(state).empty());
    state.fitted = true;
    EXPECT_TRUE(fit_notes(state).empty());
    state.report.ended_at_limit = true;
    state.report.on_bound[1] = true;
    state.report.on_bound[2] = true;
    state.report.singular = true;
    state.report.ended_at_start = true;
    state.report.at_minimum = false;
    state.report.failed_evaluations = 12;
    state.report.failed_points = 2;
    state.report.without_influence[0] = true;
    const std::vector<estimation::FitNote> notes = fit_notes(state);
    ASSERT_EQ(notes.size(), 7U);
    EXPECT_EQ(notes[1].text, "On a bound of its range: B, C.");
    EXPECT_EQ(notes[2].text, "Without influence on the function: A.");
    EXPECT_EQ(notes[5].text, "12 evaluations of the function failed.");
}

TEST_F(FitRun, AFitThatCannotMoveSaysSo) {
    // Far away the exponential vanishes: no derivative can be seen.
    FitState state = SyntheticState({6, true, {23.55, -2980, 273.15, 0, 3.5}, 300, 620}, 30);
    ASSERT_TRUE(fit_once(state));
    EXPECT_TRUE(state.report.ended_at_start);
    EXPECT_FALSE(state.report.ended_at_limit);
}

TEST_F(FitRun, AParameterOnItsBoundIsToldAndHasNoInterval) {
    // The line needs an intercept of 60000, its bound is 5000 times the scale of 10.
    std::vector<std::pair<double, double>> xy;
    for (int i = 1; i <= 8; ++i) xy.emplace_back(i, 60000.0 + i);
    FitState state = State(11, Points(xy));
    state.fixed = {false, false, true, true};
    state.start = {10, 1, 0, 0};
    ASSERT_TRUE(start_fit(state));
    EXPECT_DOUBLE_EQ(state.parameters[0], 50000);
    EXPECT_TRUE(state.report.on_bound[0]);
    EXPECT_EQ(state.report.half_width[0], kNoStdDev);
    EXPECT_FALSE(state.report.on_bound[1]);
    EXPECT_GT(state.report.half_width[1], 0);
}

TEST_F(FitRun, TheGraphOfTheFunctionHoldsPointsAndCurve) {
    FitState state = SyntheticState({4, true, {7.1962, 1730.63, 233.426}, 300, 400}, 11);
    state.parameters = {7.1962, 1730.63, 233.426};
    state.fitted = true;
    state.points[4].mark = kInactive;
    const FitGraph graph = function_graph(state);
    EXPECT_EQ(graph.title, "fitted function y(T)");
    EXPECT_EQ(graph.y_title, "p/ kPa");
    EXPECT_EQ(graph.x_title, "T / K");
    EXPECT_EQ(graph.points.size(), 10U);
    EXPECT_NEAR(graph.x_min, 295, 1e-9);
    EXPECT_NEAR(graph.x_max, 405, 1e-9);
    const double low = graph.points.front().y, high = graph.points.back().y;
    EXPECT_NEAR(graph.y_min, low - 0.05 * (high - low), 1e-9);
    EXPECT_NEAR(graph.y_max, high + 0.05 * (high - low), 1e-9);
    ASSERT_GT(graph.curve.size(), 100U);
    for (const auto& p : graph.curve)
        EXPECT_NEAR(std::log10(p.y), 7.1962 - 1730.63 / (p.x - 273.15 + 233.426), 1e-9);
    EXPECT_EQ(graph.curve.front().x, graph.x_min);
    EXPECT_NEAR(graph.curve.back().x, graph.x_max, 1e-9);

    EXPECT_EQ(function_graph(SyntheticState(AllSynthetic()[0], 9)).x_title, "x");
    EXPECT_EQ(function_graph(SyntheticState(AllSynthetic()[0], 9)).y_title, "y");
    const FitGraph density =
        function_graph(SyntheticState({11, false, {620, 3.2, 0, 0}, 280, 450}, 9));
    EXPECT_EQ(density.x_title, "T / K");
    EXPECT_EQ(density.y_title, "y");
}

TEST_F(FitRun, TheGraphOfResidualsIsCalcMinusExp) {
    FitState state = State(11, Points({{10, 5}, {20, 9}, {30, 16}}));
    state.parameters = {0, 0.5, 0, 0};
    const FitGraph graph = residual_graph(state);
    EXPECT_EQ(graph.title, "residuals of the fitting, absolute");
    EXPECT_EQ(graph.y_title, "(y(calc) - y(exp))");
    EXPECT_EQ(graph.x_title, "T / K");
    ASSERT_EQ(graph.points.size(), 3U);
    EXPECT_DOUBLE_EQ(graph.points[1].y, 1);
    EXPECT_DOUBLE_EQ(graph.points[2].y, -1);
    EXPECT_TRUE(graph.curve.empty());
    EXPECT_EQ(residual_graph(State(4, {})).y_title, "(p(calc) - p(exp)) / kPa");
}

TEST_F(FitRun, TheLogarithmicGraphNeedsPositiveValues) {
    FitState state = SyntheticState({4, true, {7.1962, 1730.63, 233.426}, 300, 400}, 11);
    state.parameters = {7.1962, 1730.63, 233.426};
    const auto graph = lnp_graph(state);
    ASSERT_TRUE(graph);
    EXPECT_EQ(graph->title, "fitted function ln{p} = f(1/T))");
    EXPECT_EQ(graph->y_title, "ln (p/kPa)");
    EXPECT_EQ(graph->x_title, "1/ (T/K)");
    EXPECT_NEAR(graph->points[0].x, 1 / 300.0, 1e-12);
    for (const auto& p : graph->curve)
        EXPECT_NEAR(p.y / std::log(10.0), 7.1962 - 1730.63 / (1 / p.x - 273.15 + 233.426), 1e-9);
    for (const bool zeroT : {true, false}) {
        FitState bad = state;
        (zeroT ? bad.points[3].x : bad.points[3].y) = 0;
        EXPECT_EQ(lnp_graph(bad).reason(), "T- and p-column may not contain zero values!");
    }
}

TEST_F(FitRun, SingleValuesGoBothWays) {
    for (const Synthetic& set : AllSynthetic()) {
        SCOPED_TRACE(name_of(set));
        FitState state = SyntheticState(set, 30);
        state.parameters = set.truth;
        const double x = set.from + 0.37 * (set.to - set.from);
        const auto y = fitted_y(state, x);
        ASSERT_TRUE(y);
        const auto back = fitted_x(state, *y);
        ASSERT_TRUE(back);
        double again = 0;
        ASSERT_TRUE(evaluate_fit(state, *back, again));
        EXPECT_NEAR(again, *y, 1e-9 * std::fabs(*y));
        if (set.model <= 1) continue;  // those are not monotonous
        EXPECT_NEAR(*back, x, 1e-5 * x);
    }
}

TEST_F(FitRun, SingleValuesThatDoNotExistAreTold) {
    FitState state = SyntheticState({8, false, {-7.77, 1.48, -2.77, -1.3}, 300, 640}, 20);
    state.parameters = {-7.77, 1.48, -2.77, -1.3};
    constexpr const char* none = "The fitted function has no result for this value.";
    EXPECT_EQ(fitted_y(state, 700).reason(), none);
    EXPECT_EQ(fitted_x(state, 30000).reason(), none);
    EXPECT_EQ(fitted_x(State(11, {}), 1).reason(), none);
}

TEST_F(FitRun, APoleIsNoResult) {
    // 1/x jumps from minus to plus infinity at 0: it is nowhere 0.
    FitState state = State(1, Points({{1, 1}, {2, 0.5}, {3, 1 / 3.0}, {4, 0.25}}));
    state.parameters = {0, 0, 0, 0, 1, 0, 0};
    EXPECT_FALSE(fitted_x(state, 0));
    const auto x = fitted_x(state, 0.8);
    ASSERT_TRUE(x);
    EXPECT_NEAR(*x, 1.25, 1e-9);
}

}  // namespace
