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
        if (!evaluate_model(problem, par, static_cast<double>(point.x), y)) {
            ++report.failed_points;
            continue;
        }
        if (measured == 0) continue;
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

/// The parameters that the points determine; free ones without influence are marked in the report.
std::vector<std::size_t> adjusted_parameters(const FitProblem& problem,
                                             const std::vector<Parameters>& derivatives,
                                             FitReport& report) {
    std::vector<std::size_t> adjusted;
    for (std::size_t j = 0; j < static_cast<std::size_t>(problem.parameter_count); ++j) {
        if (problem.fixed[j] || report.on_bound[j]) continue;
        const bool influence = std::any_of(derivatives.begin(), derivatives.end(),
                                           [j](const Parameters& d) { return d[j] != 0; });
        report.without_influence[j] = !influence && !derivatives.empty();
        if (influence) adjusted.push_back(j);
    }
    return adjusted;
}

void fill_intervals(FitReport& report, const Sensitivities& found, const Parameters& scale,
                    const std::vector<std::size_t>& adjusted) {
    std::vector<LeastSquaresRow> rows(found.residuals.size());
    double squares = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t k = 0; k < adjusted.size(); ++k)
            rows[i][k] = found.derivatives[i][adjusted[k]];
        squares += found.residuals[i] * found.residuals[i];
    }
    const ReducedProblem reduced = reduce(rows, static_cast<int>(adjusted.size()));
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
    const std::vector<std::size_t> adjusted =
        adjusted_parameters(problem, found.derivatives, report);
    report.freedom = static_cast<int>(found.residuals.size()) - static_cast<int>(adjusted.size());
    if (!adjusted.empty() && report.freedom > 0)
        fill_intervals(report, found, problem.scale, adjusted);
}

std::vector<std::string> fit_notes(const FitState& state) {
    std::vector<std::string> notes;
    const FitModelRow* row = find_model(state.model);
    if (row == nullptr || !state.fitted) return notes;
    const FitReport& report = state.report;
    const auto named = [&](const Flags& flags) {
        std::string names;
        for (std::size_t i = 0; i < static_cast<std::size_t>(row->parameter_count); ++i) {
            if (!flags[i]) continue;
            const std::string label(row->labels[i]);
            names += (names.empty() ? "" : ", ") + label.substr(0, label.find(' '));
        }
        return names;
    };
    if (report.ended_at_limit)
        notes.emplace_back(
            "The fit ended at its limit of evaluations: the parameters may not be the best ones.");
    if (const std::string names = named(report.on_bound); !names.empty())
        notes.emplace_back("On a bound of its range: " + names + ".");
    if (const std::string names = named(report.without_influence); !names.empty())
        notes.emplace_back("Without influence on the function: " + names + ".");
    if (report.singular)
        notes.emplace_back("The normal matrix was singular: there are no standard deviations.");
    if (report.ended_at_start) notes.emplace_back("The fit ended where it started.");
    if (report.failed_evaluations > 0)
        notes.emplace_back(std::to_string(report.failed_evaluations) +
                           " evaluations of the function failed.");
    if (report.failed_points > 0)
        notes.emplace_back("The fitted function has no value at " +
                           std::to_string(report.failed_points) + " of the active points.");
    return notes;
}

}  // namespace quor::estimation
