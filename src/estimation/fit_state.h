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

/// What a fit says beside its parameters, standard deviations and sums. Values that could not be
/// had are `kNoStdDev`.
struct FitReport {
    int failedEvaluations = 0;  ///< evaluations of the function that failed during the fit
    int failedPoints = 0;       ///< active points at which the fitted function fails
    bool endedAtLimit = false;  ///< of evaluations or matrices
    bool singular = false;      ///< the normal matrix
    bool endedAtStart = false;  ///< no step lowered the sum of squares
    Flags onBound{};            ///< parameters that rest on a bound
    Flags withoutInfluence{};   ///< free parameters that the function does not depend on

    int freedom = 0;         ///< degrees of freedom of the confidence intervals
    Parameters stdDev{};     ///< standard deviations from all active points
    Parameters halfWidth{};  ///< half width of the 95 % confidence interval of each parameter
    bool hasCorrelation = false;
    std::array<Parameters, kMaxPar> correlation{};  ///< of the adjusted parameters, else 0

    bool hasDeviations = false;
    double meanDeviation = 0;     ///< mean of |calc - exp|/|exp| over the active points, per cent
    double largestDeviation = 0;  ///< the largest of them with its sign, per cent
    double largestAt = 0;         ///< x of the largest deviation
};

/// What a fit stands on and how it is to be done: substance, points, model, start values. Arrays of
/// parameters start at A = element 0.
struct FitSettings {
    models::SubstanceRecord substance;  ///< that the fit belongs to, as it was when it was chosen
    std::int16_t FitModel = 0;          ///< number of the model, see fit_models.h
    std::int16_t NPar = 0;              ///< parameters of the model, at most 7
    std::int16_t NPoints = 0;           ///< size of `FitPoints`
    std::int16_t NInactive = 0;         ///< how many of them are inactive
    std::vector<datafiles::FitPoint> FitPoints;
    bool fromTpvEditor = false;  ///< where the points come from, else the XY editor

    Parameters FitStart{};  ///< the start fields
    Parameters FitScale{};  ///< scale of each parameter, fixed per model
    Flags FitFixed{};       ///< held at the start value (`chkFix`)
    bool FitLogSQ = false;  ///< residuals as difference of logarithms (`optLogFit`)
    bool lg = false;        ///< decadic form of a vapour pressure equation (`chkLg`)
    double Tcr = 0;         ///< K, field of the models that need it
    double pcr = 0;         ///< kPa
    CpPhase cpPhase = CpPhase::IdealGas;

    bool operator==(const FitSettings&) const = default;
};

/// A fit with all that it stands on, and its results.
struct FitState : FitSettings {
    bool fitted = false;     ///< results of a fit stand in the view
    Parameters FitPar{};     ///< results
    Parameters FitStdDev{};  ///< standard deviations
    double SQ = 0;           ///< sum of squares
    double sR = 0;           ///< residual standard deviation
    FitReport report;
};

/// True when two settings mean the same function of the same points: the results of a fit with one
/// of them stand beside the other. Start values, fixed marks, the kind of residuals and the phase
/// that parameters are meant for may differ.
bool is_same_function(const FitSettings& a, const FitSettings& b);

}  // namespace quor::estimation
