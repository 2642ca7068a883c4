#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "datafiles/fit_point.h"
#include "estimation/fit_problem.h"
#include "models/substance_record.h"

namespace quor::estimation {

/// The phase that a fitted heat capacity belongs to (`optcpPhase`).
enum class CpPhase : std::uint8_t { IdealGas, Liquid, Solid };

/// Whether a fit began again from proposed start values, and what came of it.
enum class SecondTry : std::uint8_t {
    None,      ///< the start values led to a fit
    Better,    ///< they did not; the parameters are those of the second fit
    NoBetter,  ///< they did not, nor did the proposed ones
};

/// What a fit says beside its parameters, standard deviations and sums. Values that could not be
/// had are `kNoStdDev`. What is wrong with a fit, in words and as a verdict, tells fit_worth.h.
struct FitReport {
    SecondTry second_try = SecondTry::None;
    Parameters start{};           ///< the start values of the parameters that are shown
    int failed_evaluations = 0;   ///< evaluations of the function that failed during the fit
    int failed_points = 0;        ///< active points at which there is no residual
    bool ended_at_limit = false;  ///< of evaluations or matrices
    bool singular = false;        ///< the normal matrix
    bool undetermined = false;    ///< the points cannot tell the adjusted parameters apart
    bool ended_at_start = false;  ///< no step lowered the sum of squares
    bool at_minimum = true;       ///< no small step would lower it by a share worth mentioning
    Flags on_bound{};             ///< parameters that rest on a bound
    bool bound_costs = false;     ///< beyond it the sum of squares would be less
    Flags without_influence{};    ///< free parameters that the function does not depend on

    int freedom = 0;          ///< degrees of freedom of the confidence intervals
    Parameters std_dev{};     ///< standard deviations from all active points
    Parameters half_width{};  ///< half width of the 95 % confidence interval of each parameter
    bool has_correlation = false;
    std::array<Parameters, kMaxPar> correlation{};  ///< of the adjusted parameters, else 0

    bool has_deviations = false;
    double mean_deviation = 0;     ///< mean of |calc - exp|/|exp| over the active points, per cent
    double largest_deviation = 0;  ///< the largest of them with its sign, per cent
    double largest_at = 0;         ///< x of the largest deviation
};

/// What a fit stands on and how it is to be done: substance, points, model, start values. Arrays of
/// parameters start at A = element 0.
struct FitSettings {
    models::SubstanceRecord substance;  ///< that the fit belongs to, as it was when it was chosen
    std::int16_t model = 0;             ///< number of the model, see fit_models.h
    std::int16_t parameter_count = 0;   ///< parameters of the model, at most 7
    std::int16_t point_count = 0;       ///< size of `points`
    std::int16_t inactive_count = 0;    ///< how many of them are inactive
    std::vector<datafiles::FitPoint> points;  ///< the active ones first
    bool from_measured_data = false;          ///< where the points come from, else the XY editor

    Parameters start{};        ///< the start fields
    Parameters scale{};        ///< scale of each parameter, fixed per model
    Flags fixed{};             ///< held at the start value (`chkFix`)
    bool logarithmic = false;  ///< residuals as difference of logarithms (`optLogFit`)
    bool lg = false;           ///< decadic form of a vapour pressure equation (`chkLg`)
    double Tcr = 0;            ///< K, field of the models that need it
    double pcr = 0;            ///< kPa
    CpPhase cp_phase = CpPhase::IdealGas;

    bool operator==(const FitSettings&) const = default;
};

/// A fit with all that it stands on, and its results.
struct FitState : FitSettings {
    bool fitted = false;            ///< results of a fit stand in the view
    Parameters parameters{};        ///< results
    Parameters std_dev{};           ///< standard deviations
    double sum_of_squares = 0;      ///< sum of squares at the parameters
    double residual_deviation = 0;  ///< residual standard deviation
    FitReport report;
};

/// True when two settings mean the same function of the same points: the results of a fit with one
/// of them stand beside the other. Start values, fixed marks, the kind of residuals and the phase
/// that parameters are meant for may differ.
bool is_same_function(const FitSettings& a, const FitSettings& b);

}  // namespace quor::estimation
