#include "estimation/fit_statistics.h"

#include <algorithm>
#include <cmath>

#include "estimation/least_squares.h"
#include "estimation/student_t.h"

namespace quor::estimation {

namespace {

constexpr double kConfidence = 0.95;
/// Relative step of central differences, the cube root of the machine precision, and its least
/// value.
constexpr double kStep = 6e-6;
constexpr double kLeastScale = 1e-3;
/// Share of the sum of squares that a step may still take away at a minimum. Derivatives by
/// differences turn nearly dependent columns by a hundredth.
constexpr double kLeastGain = 1e-2;
constexpr double kSingleRounding = 1e-7;

/// Residual of a point and its derivatives with respect to all parameters; false where they cannot
/// be had.
bool residual_row(FitProblem& problem, BasisFunction basis, const Parameters& par, int point,
                  Parameters& derivative, double& r) {
    if (!calc_residuals(problem, par, point, r)) return false;
    if (basis != nullptr) {
        basis(static_cast<double>(problem.points[static_cast<std::size_t>(point)].x), derivative);
        return true;
    }
    Parameters moved = par;
    for (std::size_t j = 0; j < static_cast<std::size_t>(problem.parameter_count); ++j) {
        if (problem.fixed[j]) continue;
        const double h = kStep * std::fmax(std::fabs(par[j]), kLeastScale);
        double above = 0;
        double below = 0;
        moved[j] = par[j] + h;
        if (!calc_residuals(problem, moved, point, above)) return false;
        moved[j] = par[j] - h;
        if (!calc_residuals(problem, moved, point, below)) return false;
        moved[j] = par[j];
        derivative[j] = (above - below) / (2 * h);
    }
    return true;
}

void fill_deviations(FitState& state, const FitProblem& problem, const Parameters& par) {
    FitReport& report = state.report;
    double sum = 0;
    int count = 0;
    for (const datafiles::FitPoint& point : problem.points) {
        if (!is_active(point)) continue;
        const double measured = static_cast<double>(point.y);
        double y = 0;
        const bool there = evaluate_model(problem, par, static_cast<double>(point.x), y);
        if (!there || (problem.logarithmic && !(y > 0 && measured > 0))) ++report.failed_points;
        if (!there || measured == 0) continue;
        const double deviation = 100 * (y - measured) / std::fabs(measured);
        if (!std::isfinite(deviation)) continue;
        sum += std::fabs(deviation);
        ++count;
        if (std::fabs(deviation) > std::fabs(report.largest_deviation) || count == 1) {
            report.largest_deviation = deviation;
            report.largest_at = static_cast<double>(point.x);
        }
    }
    report.has_deviations = count > 0 && std::isfinite(sum);
    if (report.has_deviations) report.mean_deviation = sum / count;
}

/// Residuals and their derivatives at the points where both can be had.
struct Sensitivities {
    std::vector<Parameters> derivatives;
    std::vector<double> residuals;
};

Sensitivities sensitivities_at(const Parameters& par, FitProblem problem, BasisFunction basis) {
    Sensitivities result;
    for (int i = 0; i < static_cast<int>(problem.points.size()); ++i) {
        Parameters d{};
        double r = 0;
        if (!is_active(problem.points[static_cast<std::size_t>(i)])) continue;
        if (!residual_row(problem, basis, par, i, d, r)) continue;
        result.derivatives.push_back(d);
        result.residuals.push_back(r);
    }
    return result;
}

/// The free parameters that the function depends on; the others are marked in the report.
std::vector<std::size_t> influential_parameters(const FitProblem& problem,
                                                const std::vector<Parameters>& derivatives,
                                                FitReport& report) {
    std::vector<std::size_t> influential;
    for (std::size_t j = 0; j < static_cast<std::size_t>(problem.parameter_count); ++j) {
        if (problem.fixed[j]) continue;
        const bool influence = std::any_of(derivatives.begin(), derivatives.end(),
                                           [j](const Parameters& d) { return d[j] != 0; });
        report.without_influence[j] = !influence && !derivatives.empty() && !report.on_bound[j];
        if (influence) influential.push_back(j);
    }
    return influential;
}

/// The linear problem of a step from the parameters: derivatives of the adjusted ones, residuals.
ReducedProblem reduced_step(const Sensitivities& found, const std::vector<std::size_t>& adjusted,
                            double dependent) {
    std::vector<LeastSquaresRow> rows(found.residuals.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t k = 0; k < adjusted.size(); ++k)
            rows[i][k] = found.derivatives[i][adjusted[k]];
        rows[i][kMaxPar] = found.residuals[i];
    }
    return reduce(rows, static_cast<int>(adjusted.size()), dependent);
}

double squares_of(const Sensitivities& found) {
    double squares = 0;
    for (const double r : found.residuals) squares += r * r;
    return squares;
}

/// The sum of squares that rounding of the points to 32 bits leaves of any function.
double rounding_of(const FitProblem& problem) {
    double squares = 0;
    for (const datafiles::FitPoint& point : problem.points) {
        if (!is_active(point)) continue;
        const double size = problem.logarithmic ? 1 : static_cast<double>(point.y);
        squares += size * size;
    }
    return squares * kSingleRounding * kSingleRounding;
}

/// True when the residuals stand upright on the derivatives, as at a minimum: a step would take
/// away next to nothing of their squares (D. M. Bates and D. G. Watts, Technometrics 23 (1981)
/// 179).
bool is_minimum(const ReducedProblem& step, double squares, double rounding) {
    return squares <= rounding || squares - step.rest_squares <= kLeastGain * squares;
}

void fill_intervals(FitReport& report, const ReducedProblem& reduced, double squares,
                    const Parameters& scale, const std::vector<std::size_t>& adjusted) {
    if (!reduced.regular || !std::isfinite(squares)) return;
    const std::array<Parameters, kMaxPar> inverse = inverse_normal_matrix(reduced);
    const double t = student_t_quantile(0.5 * (1 + kConfidence), report.freedom);
    const double variance = squares / report.freedom;
    for (std::size_t a = 0; a < adjusted.size(); ++a) {
        const std::size_t i = adjusted[a];
        const double deviation = std::sqrt(variance * inverse[a][a]) * scale[i];
        if (std::isfinite(t * deviation)) {
            report.std_dev[i] = deviation;
            report.half_width[i] = t * deviation;
        }
        for (std::size_t b = 0; b < adjusted.size(); ++b)
            report.correlation[i][adjusted[b]] =
                a == b ? 1 : inverse[a][b] / std::sqrt(inverse[a][a] * inverse[b][b]);
    }
    report.has_correlation = true;
}

}  // namespace

void fill_statistics(FitState& state, const FitModelRow& row, const FitProblem& problem) {
    FitReport& report = state.report;
    report.std_dev.fill(kNoStdDev);
    report.half_width.fill(kNoStdDev);
    Parameters par{};
    for (std::size_t i = 0; i < static_cast<std::size_t>(problem.parameter_count); ++i)
        par[i] = state.parameters[i] / problem.scale[i];
    fill_deviations(state, problem, par);

    const Sensitivities found = sensitivities_at(par, problem, row.basis);
    const std::vector<std::size_t> influential =
        influential_parameters(problem, found.derivatives, report);
    std::vector<std::size_t> adjusted = influential;
    std::erase_if(adjusted, [&](std::size_t i) { return report.on_bound[i]; });
    report.freedom = static_cast<int>(found.residuals.size()) - static_cast<int>(adjusted.size());
    const double squares = squares_of(found);
    const double rounding = rounding_of(problem);
    if (influential.size() > adjusted.size()) {
        const ReducedProblem beyond = reduced_step(found, influential, kDependent);
        report.bound_costs = !beyond.regular || !is_minimum(beyond, squares, rounding);
    }
    if (adjusted.empty()) report.at_minimum = !any_free(problem) || !influential.empty();
    if (adjusted.empty() || report.freedom <= 0) return;
    const ReducedProblem step =
        reduced_step(found, adjusted, row.basis != nullptr ? kDependentExact : kDependent);
    report.undetermined = !step.regular;
    // The direct solver knows no other end than the minimum.
    if (row.basis == nullptr)
        report.at_minimum =
            step.regular ? is_minimum(step, squares, rounding) : !report.ended_at_start;
    fill_intervals(report, step, squares, problem.scale, adjusted);
}

}  // namespace quor::estimation
