#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "diagrams/curve.h"

/// Process lines: what the input asks for, refuses and hands to `curve`.
namespace quor::diagrams {

/// Title of the input and the command behind it, by kind.
struct ProcessTexts {
    std::string_view title, heterogeneous_title;
    std::string_view command, command_tip;  ///< of `cmdVScalc`; empty: there is none
    std::string_view name;                  ///< of the line in the legend
};
const ProcessTexts& texts_of_process(ProcessKind kind);

/// A kind whose lines can leave their phase, and be continued beyond.
bool may_be_metastable(ProcessKind kind);

/// The row of the curve of a kind; nullptr for the inputs that are no process lines.
const Diagram* process_curve(ProcessKind kind);

/// What a user has typed, in K and kPa, for a straight line in displayed units. A field that is
/// empty or no number is not finite.
struct ProcessInput {
    ProcessKind kind = ProcessKind::isotherm;
    std::array<double, 4> par{};  ///< T1, p1, T2, p2; x1, y1, x2, y2 of a straight line
    bool range_is_T = true;
    bool vapour = true;  ///< `optPhase`
    bool heterogeneous = false;
    bool metastable = false;  ///< beyond the coexistence curve the phase of the start goes on
    bool ideal_gas_equation = false;
    bool end_to_begin = false;
    double kappa = 0, exponent = 1;
    double vapour_fraction = 1;
};

/// The input that continues a line: its start is the last point.
ProcessInput continued_from(const ProcessLine& last, ProcessInput input);

/// A checked input, or why it is refused.
struct ProcessAnswer {
    ProcessLine line;     ///< the line before where the input is refused
    std::string refusal;  ///< empty: taken
};
/// Checks an input; what it does not tell stays as in `before`.
ProcessAnswer take_process_input(const ProcessLine& before, const models::Fluid& fluid,
                                 const ProcessInput& input);

/// The request of a process line in a diagram; an isotherm or isobar holds T or p of its start.
CurveRequest process_request(const Diagram& on, const ProcessLine& line, StateParameters at);

/// Text of the note when a line has shrunk to one point because the function of the diagram does
/// not depend on pressure; empty otherwise.
std::string one_point_note(const Diagram& diagram, std::span<const float> x,
                           std::span<const float> y);

/// What `cmdVScalc` writes of the state T1, p1 of the form: volume and phase, entropy or enthalpy
/// by kind, in the units of the basis.
std::string start_state_text(const Basis& basis, ProcessKind kind, double T, double p);
/// The line of the phase alone, for the polytropic input.
std::string phase_text(const models::Fluid& fluid, double T, double p);

/// The values that `cmbKappa` offers for cp/cV of the ideal gas: at T1 and at the reference.
struct KappaOffer {
    std::string text;
    double value;
};
std::array<KappaOffer, 2> kappa_offers(const Basis& basis, double T1);

/// The texts of a failed polytropic calculation, with the last state.
std::string polytropic_error_text(double T, double p);

}  // namespace quor::diagrams
