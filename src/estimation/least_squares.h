#pragma once

#include <span>

#include "estimation/fit_problem.h"

namespace quor::estimation {

/// A row of a linear least-squares problem: the coefficients and, behind them, the right-hand side.
using LeastSquaresRow = std::array<double, kMaxPar + 1>;

/// A least-squares problem reduced by Householder reflections, with columns scaled to unit length.
struct ReducedProblem {
    int columns = 0;
    std::array<LeastSquaresRow, kMaxPar> r{};  ///< upper triangle and right-hand side
    Parameters norm{};                         ///< length of each column
    double rest_squares = 0;                   ///< sum of the squares of the residuals
    bool regular = false;                      ///< no column depends on the others
    int dependent_column = -1;                 ///< the first that does
};

/// What must be left of a column of unit length, or it counts as dependent on those before it:
/// where coefficients come from differences, and where they are exact but for rounding.
inline constexpr double kDependent = 1e-8, kDependentExact = 1e-13;

/// Reduces rows. The right-hand side stands in the last element of each.
ReducedProblem reduce(std::span<const LeastSquaresRow> rows, int columns,
                      double dependent = kDependent);
/// Solution of a regular problem.
Parameters solution(const ReducedProblem& problem);
/// Inverse of the normal matrix of a regular problem.
std::array<Parameters, kMaxPar> inverse_normal_matrix(const ReducedProblem& problem);

}  // namespace quor::estimation
