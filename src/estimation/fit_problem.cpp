#include "estimation/fit_problem.h"

#include <algorithm>
#include <cmath>

namespace quor::estimation {

namespace {

/// Relative and absolute step of the forward differences.
constexpr double kDerivativeStep = 1.7e-7;

}  // namespace

bool any_free(const FitProblem& problem) {
    return std::any_of(problem.fixed.begin(), problem.fixed.begin() + problem.parameter_count,
                       [](bool fixed) { return !fixed; });
}

bool evaluate_model(const FitProblem& problem, const Parameters& par, double x, double& y) {
    Parameters own{};
    const auto n = static_cast<std::size_t>(problem.parameter_count);
    for (std::size_t i = 0; i < n; ++i) own[i] = par[i] * problem.scale[i];
    return problem.model(x, own, problem.context, y) && std::isfinite(y);
}

bool calc_residuals(FitProblem& problem, const Parameters& par, int point_index, double& res) {
    const datafiles::FitPoint& point = problem.points[static_cast<std::size_t>(point_index)];
    const double measured = static_cast<double>(point.y);
    double y = 0;
    double residual = std::nan("");
    if (evaluate_model(problem, par, static_cast<double>(point.x), y)) {
        if (!problem.logarithmic) {
            residual = y - measured;
        } else if (y > 0 && measured > 0) {
            residual = std::log(y) - std::log(measured);
        }
    }
    if (!std::isfinite(residual)) {
        ++problem.failed_evaluations;
        return false;
    }
    res = residual;
    return true;
}

void calc_fqs_marquardt(FitProblem& problem, const Parameters& par, double& sum_squares,
                        std::int16_t& eval_count) {
    ++eval_count;
    sum_squares = 0;
    double res = 0;
    const int count = static_cast<int>(problem.points.size());
    for (int i = 0; i < count; ++i) {
        if (!is_active(problem.points[static_cast<std::size_t>(i)])) continue;
        calc_residuals(problem, par, i, res);
        sum_squares += res * res;
    }
}

void calc_ableitungen(FitProblem& problem, const Parameters& par, int point_index, double& res,
                      Parameters& derivatives) {
    Parameters moved = par;
    double r1 = 0;
    for (std::size_t j = 0; j < static_cast<std::size_t>(problem.parameter_count); ++j) {
        const double h = (std::fabs(par[j]) + kDerivativeStep) * kDerivativeStep;
        calc_residuals(problem, par, point_index, res);
        // Where already the first step fails it shows the base residual, so that a point outside of
        // the model's range has no derivative rather than a senseless one.
        if (j == 0) r1 = res;
        moved[j] = par[j] + h;
        calc_residuals(problem, moved, point_index, r1);
        derivatives[j] = (r1 - res) / h;
        moved[j] = par[j];
    }
}

}  // namespace quor::estimation
