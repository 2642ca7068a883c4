#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "estimation/fit_models.h"

/// What a fit is worth: the one place that decides it, for views, lists, files and exit statuses.
namespace quor::estimation {

/// What there may be to tell of a fit.
enum class FitFlaw : std::uint8_t {
    EndedAtLimit,      ///< of evaluations or matrices
    OnBound,           ///< a parameter rests on a bound of its range
    BoundCosts,        ///< beyond the bound the sum of squares would be less
    WithoutInfluence,  ///< the function does not depend on a free parameter
    Singular,          ///< the normal matrix: no standard deviations
    Undetermined,      ///< the points cannot tell the parameters apart
    EndedAtStart,      ///< no step lowered the sum of squares, although it is no minimum
    NotLeast,          ///< the search ended before a minimum
    FailedEvaluations,
    PointsWithoutValue,  ///< the fitted function fails at active points, or has no logarithm
    Contradiction,       ///< between standard deviation and confidence interval
    SecondTry,           ///< the start values failed, the proposed ones were tried
};

/// A name without blanks, for files: "endedAtLimit".
std::string_view name_of(FitFlaw flaw);

struct FitNote {
    FitFlaw flaw;
    std::string text;  ///< a whole sentence for the user
};

/// What a user should know of a fit that did not go as it should; empty for a fit without anything
/// to tell.
std::vector<FitNote> fit_notes(const FitState& state);

/// True when the parameters of a fit are not those of a least sum of squares over its points.
bool is_worthless(const FitState& state);
/// What a user is told of a worthless fit, one line a reason; empty for any other.
std::string worthless_text(const FitState& state);
/// True when fit `a` is worth more than fit `b` of the same points.
bool is_better(const FitState& a, const FitState& b);

/// Sum of squares of the residuals at the parameters and residual standard deviation; nothing where
/// a point has no residual.
std::optional<double> sum_of_squares(const FitState& state);
std::optional<double> residual_deviation(const FitState& state);
/// Standard deviation of a parameter, 0 for a fixed one. Nothing where there is none: for a
/// computed parameter or one on a bound, for a worthless fit, and where it contradicts the
/// confidence interval.
std::optional<double> standard_deviation(const FitState& state, std::size_t parameter);
/// Half width of the 95 % confidence interval of an adjusted parameter, under the same conditions.
std::optional<double> interval95(const FitState& state, std::size_t parameter);
/// Correlation of two adjusted parameters, -1 to 1; nothing where it could not be had.
std::optional<double> correlation(const FitState& state, std::size_t a, std::size_t b);

}  // namespace quor::estimation
