#include "estimation/linear_regression.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/faults.h"
#include "estimation/model_functions.h"

namespace quor::estimation {

namespace {

using Row = std::array<double, kMaxPar + 1>;
using NormalEquations = std::array<Row, kMaxPar>;

/// Parameters of the combi-expression whose basis needs x > 0.
constexpr std::array<std::size_t, 3> kNeedPositiveX{4, 5, 6};

bool x_must_be_positive(const FitProblem& problem, BasisFunction basis) {
    return basis == combi_basis && std::any_of(kNeedPositiveX.begin(), kNeedPositiveX.end(),
                                               [&](std::size_t i) { return !problem.fixed[i]; });
}

/// Basis functions at x, 0 for parameters that are left out.
Parameters basis_at(const FitProblem& problem, BasisFunction basis, double x) {
    Parameters b{};
    basis(x, b);
    for (std::size_t i = 0; i < kMaxPar; ++i)
        if (problem.fixed[i]) b[i] = 0;
    return b;
}

/// Gauss-Jordan elimination in place. A column without a pivot is left alone.
void eliminate(NormalEquations& m, std::size_t n) {
    for (std::size_t c = 0; c < n; ++c) {
        if (m[c][c] == 0) {
            std::size_t r = c + 1;
            while (r < n && m[r][c] == 0) ++r;
            if (r == n) continue;
            std::swap(m[c], m[r]);
        }
        const double pivot = m[c][c];
        for (std::size_t k = 0; k <= n; ++k) m[c][k] /= pivot;
        for (std::size_t r = 0; r < n; ++r) {
            if (r == c) continue;
            const double factor = m[r][c];
            for (std::size_t k = 0; k <= n; ++k) m[r][k] -= factor * m[c][k];
        }
    }
}

}  // namespace

Result<LinearResult> linear_regression_fit(const FitProblem& problem, BasisFunction basis) {
    const auto n = static_cast<std::size_t>(problem.parameter_count);
    const bool positive = x_must_be_positive(problem, basis);
    NormalEquations m{};
    for (const datafiles::FitPoint& point : problem.points) {
        if (!is_active(point)) continue;
        if (positive && !(point.x > 0))
            return Failure{
                "For this fitting model all actíve x-values have to be greater than zero."};
        const Parameters b = basis_at(problem, basis, static_cast<double>(point.x));
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = 0; j < n; ++j) m[i][j] += b[i] * b[j];
            m[i][n] += b[i] * static_cast<double>(point.y);
        }
    }
    eliminate(m, n);

    Parameters result{};
    for (std::size_t i = 0; i < n; ++i) result[i] = m[i][n];
    double sum = 0;
    for (const datafiles::FitPoint& point : problem.points) {
        if (!is_active(point)) continue;
        const Parameters b = basis_at(problem, basis, static_cast<double>(point.x));
        double residual = -static_cast<double>(point.y);
        for (std::size_t i = 0; i < n; ++i) residual += result[i] * b[i];
        sum += residual * residual;
    }
    if (!std::isfinite(sum)) return Failure{faults::kOverflow};
    return LinearResult{sum, result};
}

}  // namespace quor::estimation
