#pragma once

#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "legacy/declare.h"

/// Process lines: what the input asks for, refuses and hands to `calc_curve`.
namespace quor::diagrams {

/// `ProcessLineRecord::Kind`.
namespace ProcessKind {
inline constexpr std::uint8_t kStraightLine = 0, kIsotherm = 1, kIsobar = 2, kIsochore = 3,
                              kIsentropic = 4, kIsenthalpic = 5, kPolytropic = 6, kRange = 7,
                              kVapourFraction = 8;
}  // namespace ProcessKind

/// Title of the input and the command behind it, by kind.
struct ProcessTexts {
    std::string_view title, heterogeneousTitle;
    std::string_view command, commandTip;  ///< of `cmdVScalc`; empty: there is none
};
const ProcessTexts& texts_of_process(std::uint8_t Kind);

/// Code of the curve of a kind; the code of the diagram for kind 7 and any other.
std::int16_t process_code(std::uint8_t Kind, std::int16_t DiagramType);

/// What a user has typed, in K and kPa, for a straight line in displayed units. A field that is
/// empty or no number is not finite.
struct ProcessInput {
    std::uint8_t Kind = ProcessKind::kIsotherm;
    std::array<double, 4> par{};  ///< T1, p1, T2, p2; x1, y1, x2, y2 of a straight line
    bool RangeIsT = true;
    bool Vapour = true;  ///< `optPhase`
    bool Heterogeneous = false;
    bool IdealGasEquation = false;
    bool EndToBegin = false;
    double Kappa = 0, Exponent = 1;
    double VapourFraction = 1;
};

/// The input that continues the last line: its start is the last point.
ProcessInput continued_from(ProcessInput input);

/// Checks an input and takes it into `legacy::the_processLine`. Empty: taken; else the text of the
/// refusal, and the session is as it was.
std::string take_process_input(const ProcessInput& input);

/// Runs `draw` with the request and the state parameters of the session set for the process line
/// of `legacy::the_processLine`, and sets them back after it.
void with_process_line(diagrams::DiagramRequest& request, const std::function<void()>& draw);

/// Text of the note when a line has shrunk to one point because the function of the diagram does
/// not depend on pressure; empty otherwise.
std::string one_point_note(std::int16_t DiagramType, std::span<const float> x,
                           std::span<const float> y);

/// What `cmdVScalc` writes of the state T1, p1 of the form: volume and phase, entropy or enthalpy
/// by kind, in the units of the session.
std::string start_state_text(std::uint8_t Kind, double T, double p);
/// The line of the phase alone, for the polytropic input.
std::string phase_text(double T, double p);

/// The values that `cmbKappa` offers for cp/cV of the ideal gas.
struct KappaOffer {
    std::string text;
    double value;
};
std::array<KappaOffer, 2> kappa_offers(double T1);

/// The texts of a failed polytropic calculation, with the last state.
std::string polytropic_error_text(double T, double p);

}  // namespace quor::diagrams
