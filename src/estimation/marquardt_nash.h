#pragma once

#include <array>
#include <cstdint>

#include "estimation/fit_problem.h"

namespace quor::estimation {

/// Where a parameter stands during a fit.
enum class Mask : std::int8_t { Free = 1, Fixed = 0, AtUpper = -1, AtLower = -2 };

/// Lower and upper bound of a parameter in scaled units.
struct Bound {
    double lower, upper;
};
inline constexpr std::array<Bound, kMaxPar> kBounds{{{-5000, 5000},
                                                     {-2000, 2000},
                                                     {-2000, 2000},
                                                     {-10000, 10000},
                                                     {-2000, 2000},
                                                     {-2000, 2000},
                                                     {-2000, 2000}}};

inline constexpr int kMatrixLimit = 250;              ///< matrix evaluations of one fit
inline constexpr int kEvaluationsPerParameter = 200;  ///< evaluations of the sum per parameter

/// How a fit went, beside its parameters.
struct MarquardtResult {
    double sum_squares = 0;  ///< the sum left by the last evaluation, or 0 after a forbidden probe
    double minimum = 0;      ///< sum of squares at the point where the search converged
    bool failed = false;     ///< a limit was passed, or the sums went beyond every number
    bool has_std_dev = false;  ///< `std_dev` was written
    bool singular = false;     ///< the normal matrix of the statistics was singular
    std::int16_t evaluations = 0;
    std::int16_t matrices = 0;
    int accepted = 0;  ///< steps that lowered the sum
    std::array<Mask, kMaxPar> mask{};
};

/// Damped Gauss-Newton search in the compact form of Nash's Marquardt algorithm (J. C. Nash,
/// Compact Numerical Methods for Computers, 2nd ed. 1990, algorithm 23), with bounds and fixed
/// parameters. `par` holds scaled start values and takes the result; `std_dev` takes the standard
/// deviations in scaled units, -9999 where there are none, and stays as it was when the fit fails.
/// `active_count` is the number of active points. Throws `progress::GivenUp` when its user gives
/// up.
MarquardtResult marquardt_nash_fitting(FitProblem& problem, std::int16_t active_count,
                                       Parameters& par, Parameters& std_dev);

/// A lower triangle packed by rows.
inline constexpr std::size_t kPacked = kMaxPar * (kMaxPar + 1) / 2;
using PackedMatrix = std::array<double, kPacked>;

/// Index of row `i`, column `j` <= i, both from 0.
constexpr std::size_t packed_index(std::size_t i, std::size_t j) {
    return i * (i + 1) / 2 + j;
}

/// Packed Cholesky factorisation in place of the rows and columns whose mask is free; all others
/// become 0. False when a pivot is not positive.
bool factorise_packed(PackedMatrix& a, int n, const std::array<Mask, kMaxPar>& mask);
/// Solves with a factor of `factorise_packed`; parameters that are not free get 0.
void solve_packed(const PackedMatrix& factor, int n, const std::array<Mask, kMaxPar>& mask,
                  Parameters& rhs);

}  // namespace quor::estimation
