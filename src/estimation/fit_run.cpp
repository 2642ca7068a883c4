#include "estimation/fit_run.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/progress.h"
#include "common/single.h"
#include "estimation/fit_start_values.h"
#include "estimation/fit_statistics.h"
#include "estimation/fit_worth.h"
#include "estimation/linear_regression.h"
#include "estimation/marquardt_nash.h"
#include "estimation/model_functions.h"

namespace quor::estimation {

namespace {

/// Points are counted with 16 bits.
constexpr std::size_t kMostPoints = std::numeric_limits<std::int16_t>::max();

/// Narrowing that keeps a value beyond 32 bits at their end.
float narrow(double value) {
    constexpr double most = static_cast<double>(std::numeric_limits<float>::max());
    return static_cast<float>(std::clamp(value, -most, most));
}

/// The engine takes its normal matrix from the first points of the list, as many as are active.
void put_active_points_first(std::vector<datafiles::FitPoint>& points) {
    std::stable_partition(points.begin(), points.end(), is_active);
}

/// The refusal of a fit in the order of the tests, empty when it may run.
std::string refusal(const FitState& state, const FitModelRow& row) {
    if (state.point_count == 0)
        return "data not yet available\nmanual data input or loading data via file necessary";
    if (row.needs_Tcr && state.Tcr < constants::kPresent)
        return row.computed >= 0 ? "Tcr is needed for the correlation of parameter D."
                                 : "Tcr needed";
    if (row.needs_pcr && state.pcr < constants::kPresent) return "pcr needed";
    if (state.point_count - state.inactive_count <= state.parameter_count)
        return "The number of the (active) measuring points has to be greater than the number of "
               "the "
               "parameters!\nDo complete the data in the data editor.";
    return {};
}

double finite_or(double value, double otherwise) {
    return std::isfinite(value) ? value : otherwise;
}

Result<void> run_linear(FitState& state, const FitModelRow& row, const FitProblem& problem) {
    const Result<LinearResult> result = linear_regression_fit(problem, row.basis);
    if (!result) return result.failure();
    state.report = {};
    state.parameters = result->par;
    state.sum_of_squares = result->sum_squares;
    return {};
}

/// A start on a bound that cannot leave it never takes the mark of resting there, and the last
/// probes of the search may move a value off its bound by a small step.
bool rests_on_bound(Mask mask, double value, const Bound& bound) {
    constexpr double kProbe = 4e-7;
    const auto near = [&](double end) { return std::fabs(value - end) <= kProbe * std::fabs(end); };
    return mask == Mask::AtLower || mask == Mask::AtUpper ||
           (mask == Mask::Free && (near(bound.lower) || near(bound.upper)));
}

void run_marquardt(FitState& state, FitProblem& problem) {
    const auto n = static_cast<std::size_t>(problem.parameter_count);
    Parameters par{};
    Parameters std_dev{};
    for (std::size_t i = 0; i < n; ++i) par[i] = state.start[i] / problem.scale[i];
    const auto active = static_cast<std::int16_t>(state.point_count - state.inactive_count);
    const MarquardtResult result = marquardt_nash_fitting(problem, active, par, std_dev);
    state.report = {};
    for (std::size_t i = 0; i < n; ++i) {
        state.parameters[i] = par[i] * problem.scale[i];
        // The mark of a missing standard deviation is not a value and takes no scale.
        const bool there = result.has_std_dev && std_dev[i] != kNoStdDev;
        state.std_dev[i] = there ? std_dev[i] * problem.scale[i] : kNoStdDev;
        state.report.on_bound[i] = rests_on_bound(result.mask[i], par[i], kBounds[i]);
    }
    state.report.failed_evaluations = problem.failed_evaluations;
    // The engine leaves the sum of its last probe, or none where a bound forbids that probe.
    std::int16_t evaluations = 0;
    calc_fqs_marquardt(problem, par, state.sum_of_squares, evaluations);
    state.sum_of_squares = std::fmin(state.sum_of_squares, std::numeric_limits<double>::max());
    state.report.ended_at_limit = result.failed;
    state.report.singular = result.singular;
    state.report.ended_at_start = any_free(problem) && result.accepted == 0;
}

/// A search may lose a parameter in a region where the function no longer depends on it.
bool has_idle_parameter(const FitState& state) {
    const Flags& idle = state.report.without_influence;
    return std::find(idle.begin(), idle.end(), true) != idle.end();
}

/// The direct solver gives no standard deviations of its own: they come with the statistics.
void complete_linear_result(FitState& state) {
    for (std::size_t i = 0; i < kMaxPar; ++i)
        state.std_dev[i] = state.fixed[i] ? 0 : state.report.std_dev[i];
    state.report.singular = state.report.freedom > 0 && !state.report.has_correlation;
}

std::string single_text(std::optional<double> value) {
    if (!value) return "---";
    return numbers::fits_single(*value) ? numbers::general(static_cast<float>(*value))
                                        : numbers::general(*value);
}

}  // namespace

std::vector<datafiles::FitPoint> fit_points(std::span<const datafiles::MeasuredPoint> data,
                                            int column) {
    std::vector<datafiles::FitPoint> points;
    for (const datafiles::MeasuredPoint& measured : data) {
        const double y = datafiles::fit_column_value(measured, column);
        if (y == 0) continue;
        points.push_back({narrow(measured.T), narrow(y), measured.skip != 0 ? kInactive : 0.0F});
    }
    return points;
}

std::optional<std::string> set_fit_points(FitState& state, std::vector<datafiles::FitPoint> points,
                                          bool from_measured_data) {
    std::optional<std::string> note;
    state.from_measured_data = from_measured_data;
    state.points = std::move(points);
    if (state.points.size() > kMostPoints) {
        state.points.resize(kMostPoints);
        note = "Only the first " + std::to_string(kMostPoints) + " points are used.";
    }
    state.point_count = static_cast<std::int16_t>(state.points.size());
    state.inactive_count = 0;
    for (datafiles::FitPoint& point : state.points) {
        if (point.x == 0 || !std::isfinite(point.x) || !std::isfinite(point.y))
            point.mark = kInactive;
        if (!is_active(point)) ++state.inactive_count;
    }
    put_active_points_first(state.points);
    return note;
}

std::string fit_title(const FitState& state) {
    if (state.point_count == 0) return " Fitting y = f(T) (data not yet loaded)";
    return " Fitting y = f(T) (" + std::to_string(state.point_count - state.inactive_count) +
           (state.from_measured_data ? " (active) sets of data loaded from T-p-V editor"
                                     : " (active) sets of data loaded from XY editor");
}

FitProblem make_problem(const FitState& state, const FitModelRow& row) {
    FitProblem problem;
    problem.model = row.model;
    problem.context = context_of(state);
    problem.points = state.points;
    problem.inactive_count = state.inactive_count;
    problem.parameter_count = row.parameter_count;
    problem.scale = row.scale;
    problem.fixed = state.fixed;
    if (row.computed >= 0) problem.fixed[static_cast<std::size_t>(row.computed)] = true;
    problem.logarithmic = state.logarithmic && row.basis == nullptr;
    return problem;
}

Result<FitState> fit_from_start(FitState state) {
    const FitModelRow* row = find_model(state.model);
    if (row == nullptr) return Failure{"There is no such model."};
    if (std::string reason = refusal(state, *row); !reason.empty())
        return Failure{std::move(reason)};
    put_active_points_first(state.points);
    FitProblem problem = make_problem(state, *row);
    if (row->basis != nullptr) {
        if (const Result<void> linear = run_linear(state, *row, problem); !linear)
            return linear.failure();
    } else {
        run_marquardt(state, problem);
    }
    if (row->computed >= 0)
        state.parameters[static_cast<std::size_t>(row->computed)] =
            thodos_d(state.parameters[1], problem.context);
    state.report.start = state.start;
    fill_statistics(state, *row, problem);
    if (row->basis != nullptr) complete_linear_result(state);
    state.residual_deviation =
        finite_or(std::sqrt(state.sum_of_squares /
                            (state.point_count - state.inactive_count - state.parameter_count)),
                  0);
    state.fitted = true;
    return state;
}

namespace {

Result<FitState> best_fit(FitState state) {
    Result<FitState> first = fit_from_start(state);
    if (!first || is_linear(*first)) return first;
    const bool worthless = is_worthless(*first);
    if (!worthless && !has_idle_parameter(*first)) return first;
    const Result<Parameters> proposal = proposed_start_values(*first);
    if (!proposal) return first;
    const Parameters shown = state.start;
    state.start = *proposal;
    Result<FitState> second = fit_from_start(std::move(state));
    if (!second || !is_better(*second, *first)) {
        if (worthless) first->report.second_try = SecondTry::NoBetter;
        return first;
    }
    second->start = shown;
    second->report.second_try = SecondTry::Better;
    return second;
}

}  // namespace

Result<FitState> run_fit(FitState state) {
    try {
        return best_fit(std::move(state));
    } catch (const progress::GivenUp&) {
        return Failure{"The fit was given up. Nothing has changed."};
    }
}

void take_result_as_start(FitState& state, int parameter) {
    if (!state.fitted || parameter < 0 || parameter >= state.parameter_count) return;
    const auto i = static_cast<std::size_t>(parameter);
    state.start[i] = state.parameters[i];
}

void take_all_results_as_start(FitState& state) {
    for (int i = 0; i < state.parameter_count; ++i) take_result_as_start(state, i);
}

QualityTexts quality_of(const FitState& state) {
    const FitModelRow* row = find_model(state.model);
    const bool pressure = row != nullptr && row->tab == FitTab::VapourPressure;
    const bool logarithmic = state.logarithmic && row != nullptr && row->basis == nullptr;
    const std::string y = pressure ? "p" : "y";
    QualityTexts texts;
    texts.caption =
        "Quality of the fitting (N = " + std::to_string(state.point_count - state.inactive_count) +
        ", NPar = " + std::to_string(state.parameter_count) + ")";
    texts.sum_of_squares = "SQ = " + single_text(sum_of_squares(state));
    texts.residual_deviation = "s(R) = " + single_text(residual_deviation(state));
    texts.explain_sum_of_squares =
        logarithmic ? "sum of squares SQ = sum[ln((" + y + "(i),calc) - ln(" + y + "(i),exp))^2]"
                    : "sum of squares SQ = sum[(" + y + "(i),calc - " + y + "(i),exp)^2]";
    texts.explain_residual_deviation = "resid. standard deviation s(R) = SQRT(FQS / (N -NPar))";
    texts.symbols =
        " SQRT = square root, N = number of measuring points, NPar = number of adjustable "
        "parameters ";
    return texts;
}

std::string log_fit_caption(bool logarithmic) {
    return logarithmic ? "SQ using ln(y) difference " : "SQ using y difference";
}

std::string equation_caption(const FitModelRow& row, bool lg) {
    return std::string(lg && !row.caption_lg.empty() ? row.caption_lg : row.caption);
}

std::string data_caption(FitTab tab) {
    return tab == FitTab::VapourPressure ? "p = f(T)" : "y = f(T)";
}

std::string target_caption(const std::string& substance) {
    return "... in the actually loaded data of " + substance +
           " (cf. editor \"Data / View/Edit Data of the Substance\")";
}

}  // namespace quor::estimation
