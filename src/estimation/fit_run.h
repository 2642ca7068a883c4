#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "common/result.h"
#include "datafiles/measured_table.h"
#include "estimation/fit_models.h"

namespace quor::estimation {

/// The points of a column of experimental data (1 p, 2 rhoL, 3 rhoV, 4 hLV, 5 cp). Lines without a
/// value in that column are no points; those that are switched off are inactive.
std::vector<datafiles::FitPoint> fit_points(std::span<const datafiles::MeasuredPoint> data,
                                            int column);
/// Takes points from the T-p-V editor or the XY editor. Points at x = 0 count as inactive; all
/// inactive ones are put behind the others. Gives a note when there are more than can be used.
std::optional<std::string> set_fit_points(FitState& state, std::vector<datafiles::FitPoint> points,
                                          bool from_measured_data);

/// Title line of the fitting view.
std::string fit_title(const FitState& state);

/// The problem of the chosen model and the points of a state, which must outlive it.
FitProblem make_problem(const FitState& state, const FitModelRow& row);

/// Validates, runs the engine once from the start values and gives the state with its results.
Result<FitState> fit_from_start(FitState state);
/// The same (`cmdStart`), and where the start values fail once more from the proposed ones: the
/// better fit is given, and its report says so. The start fields stay as they were. Refused when
/// its user gives it up.
Result<FitState> run_fit(FitState state);

/// Copies a result, or all of them, to the start fields.
void take_result_as_start(FitState& state, int parameter);
void take_all_results_as_start(FitState& state);

/// Texts of the frame of quality figures.
struct QualityTexts {
    std::string caption;  ///< "Quality of the fitting (N = .., NPar = ..)"
    std::string sum_of_squares, residual_deviation;  ///< "SQ = ..", "s(R) = .."
    std::string explain_sum_of_squares;              ///< what SQ is
    std::string explain_residual_deviation;          ///< what s(R) is
    std::string symbols;                             ///< the symbols in both
};
QualityTexts quality_of(const FitState& state);

/// Caption of the choice between the two sums of squares.
std::string log_fit_caption(bool logarithmic);
/// Caption of the equation of a model, of its decadic form with `lg`.
std::string equation_caption(const FitModelRow& row, bool lg);
/// Caption of the data of a tab: "y = f(T)" or "p = f(T)".
std::string data_caption(FitTab tab);
/// Where the parameters of a fit go.
std::string target_caption(const std::string& substance);

}  // namespace quor::estimation
