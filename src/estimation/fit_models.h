#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "estimation/fit_state.h"
#include "models/substance_record.h"

namespace quor::estimation {

enum class FitTab : std::uint8_t { General, VapourPressure, LDensity, Vaporisation, HeatCapacity };
/// Caption of a tab of the fitting view.
std::string_view tab_caption(FitTab tab);

/// Basis functions of a linear model at x.
using BasisFunction = void (*)(double x, Parameters& basis);

/// One point in linearised form: coefficients of the parameters and what they add up to. The
/// parameters that enter non-linearly are taken from `par`. False where the point does not serve.
struct LinearisedPoint {
    Parameters coefficient{};
    double target = 0;
};
using Linearisation = bool (*)(double x, double y, const Parameters& par,
                               const ModelContext& context, LinearisedPoint& row);

/// Range of values that is searched for a parameter that enters non-linearly.
struct SearchRange {
    int parameter = -1;  ///< index of the parameter, -1 for none
    double from = 0, to = 0;
};

/// What an application of results needs beside the parameters.
struct AppliedRange {
    std::int16_t T_low = 0, T_high = 0;  ///< K
    double Tcr = 0, pcr = 0;
    CpPhase phase = CpPhase::IdealGas;
};
/// Writes parameters (vapour pressure equations in decadic form) into a record.
using Application = void (*)(const Parameters& par, const AppliedRange& range,
                             models::SubstanceRecord& substance);

/// One correlation that can be fitted.
struct FitModelRow {
    std::int16_t number = 0;
    FitTab tab = FitTab::General;
    std::string_view name{};  ///< caption of the option
    std::int16_t parameter_count = 0;
    Parameters start{};     ///< natural form
    Parameters start_lg{};  ///< decadic form
    Parameters scale{1, 1, 1, 1, 1, 1, 1};
    Flags fixed{};  ///< held when the model is chosen
    std::array<std::string_view, kMaxPar> labels{
        "A = ", "B = ", "C = ", "D = ", "E = ", "F = ", "G = "};
    std::string_view caption{};     ///< of the equation
    std::string_view caption_lg{};  ///< empty: there is no decadic form
    std::string_view remark{};      ///< second line of the caption
    bool needs_Tcr = false, needs_pcr = false;
    int computed = -1;  ///< parameter that follows from the others
    ModelFunction model = nullptr;
    BasisFunction basis = nullptr;  ///< linear models only
    Linearisation linearised = nullptr;
    Flags logged{};  ///< parameters whose logarithm is the linear one
    std::array<SearchRange, 2> search{};
    Application apply = nullptr;    ///< nullptr: results have no place in the record
    Flags logarithmic{};            ///< parameters divided by ln 10 for the decadic form
    std::string_view applied_to{};  ///< last line of the message of a vapour pressure set
    std::string_view extended{};    ///< the line before it
};

/// All models in the order of the view.
std::span<const FitModelRow> fit_models();
/// The row of a model number, nullptr for a number that is never fitted.
const FitModelRow* find_model(std::int16_t number);

/// Start values of a model. `Tcr` is the critical temperature in K that two of them follow.
Parameters start_values(const FitModelRow& row, bool lg, double Tcr);
/// The line of units that belongs to the models of a tab, empty for none.
std::string_view unit_text(FitTab tab);

/// Sets model, number of parameters, start values, scales, fixed marks and the fields of Tcr and
/// pcr by the substance of the fit; results of earlier fits are dropped. False, with nothing
/// changed, for a number without a model.
bool choose_model(FitState& state, std::int16_t number);

/// Sets Tcr; start values that follow it, and that nobody has changed, go with it.
void change_Tcr(FitState& state, double Tcr);

/// True for a model that is linear in its parameters: it is solved directly.
bool is_linear(const FitState& state);
/// L, Tcr and pcr of a state.
ModelContext context_of(const FitState& state);
/// The function with the parameters of a state; false on a failure.
bool evaluate_fit(const FitState& state, double x, double& y);

}  // namespace quor::estimation
