#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "datafiles/xy_points.h"

/// Parameter estimation: the fitting engines, the correlations that can be fitted, the application
/// of results to the substance, and group contribution methods.
namespace quor::estimation {

inline constexpr int kMaxPar = 7;  ///< parameters of a model at most

using Parameters = std::array<double, kMaxPar>;
using Flags = std::array<bool, kMaxPar>;

/// Mark of a point that takes no part in a fit.
inline constexpr float kInactive = datafiles::kInactiveMark;
/// A standard deviation that could not be had.
inline constexpr double kNoStdDev = -9999.0;

using datafiles::is_active;

/// What a model needs beside its parameters.
struct ModelContext {
    double L = 1.0;    ///< 1 for the natural form, ln 10 for the decadic one
    double Tcr = 0.0;  ///< K
    double pcr = 0.0;  ///< kPa
};

/// y(x) of a model with its parameters in their own units. False on a failure (overflow, logarithm
/// of a negative number, division by zero, outside of the model's range); y is then meaningless.
using ModelFunction = bool (*)(double x, const Parameters& par, const ModelContext& context,
                               double& y);

/// One least-squares problem as the engines see it. Parameters are handed to the engines in scaled
/// form: the model sees them times their scale. The points must outlive the problem.
struct FitProblem {
    ModelFunction model = nullptr;
    ModelContext context;
    std::span<const datafiles::FitPoint> points;
    std::int16_t inactive_count = 0;  ///< how many of the points are inactive
    std::int16_t parameter_count = 0;
    Parameters scale{1, 1, 1, 1, 1, 1, 1};
    Flags fixed{};               ///< held at the start value
    bool logarithmic = false;    ///< residuals are differences of logarithms
    int failed_evaluations = 0;  ///< counted up by every evaluation that fails
};

/// True when at least one parameter is adjusted.
bool any_free(const FitProblem& problem);

/// y(calc) of one x with scaled parameters; false on a failure.
bool evaluate_model(const FitProblem& problem, const Parameters& par, double x, double& y);

/// Residual y(calc) - y(exp), or ln y(calc) - ln y(exp), of the point with that index from 0. When
/// the evaluation fails `res` keeps the value that it had, and the result is false.
bool calc_residuals(FitProblem& problem, const Parameters& par, int point_index, double& res);

/// Sum of the squares of the residuals of all active points at `par`; counts `eval_count` up by
/// one. The sum may be infinite, never NaN.
void calc_fqs_marquardt(FitProblem& problem, const Parameters& par, double& sum_squares,
                        std::int16_t& eval_count);

/// Residual of a point and its forward differences with respect to all parameters, the fixed ones
/// included. `res` keeps its value when the evaluation fails.
void calc_ableitungen(FitProblem& problem, const Parameters& par, int point_index, double& res,
                      Parameters& derivatives);

}  // namespace quor::estimation
