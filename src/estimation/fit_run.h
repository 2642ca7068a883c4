#pragma once

#include <string>

#include "estimation/fit_models.h"

namespace quor::estimation {

/// Builds the points from the T-p-V editor (the session's fit source is 1) or the XY editor. Lines
/// that are switched off, points at x = 0, and lines of the T-p-V editor without a value count as
/// inactive.
void LoadFitPoints(FitState& state);

/// Title line of the fitting view.
std::string FitTitle(const FitState& state);

/// The problem of the chosen model and the points of a state, which must outlive it.
FitProblem MakeProblem(const FitState& state, const FitModelRow& row);

/// Validates, runs the engine and fills the results of the state (`cmdStart`). False after a
/// message, with the state as it was.
bool StartFit(FitState& state);

/// Copies a result, or all of them, to the start fields.
void TakeResultAsStart(FitState& state, int parameter);
void TakeAllResultsAsStart(FitState& state);

/// Texts of the frame of quality figures.
struct QualityTexts {
    std::string caption;    ///< "Quality of the fitting (N = .., NPar = ..)"
    std::string SQ, sR;     ///< "SQ = ..", "s(R) = .."
    std::string explainSQ;  ///< what SQ is
    std::string explainSR;  ///< what s(R) is
    std::string symbols;    ///< the symbols in both
};
QualityTexts QualityOf(const FitState& state);

/// Caption of the choice between the two sums of squares.
std::string LogFitCaption(bool logarithmic);
/// Caption of the equation of a model, of its decadic form with `lg`.
std::string EquationCaption(const FitModelRow& row, bool lg);
/// Caption of the data of a tab: "y = f(T)" or "p = f(T)".
std::string DataCaption(FitTab tab);
/// Where the parameters of a fit go.
std::string TargetCaption(const std::string& substance);

}  // namespace quor::estimation
