#include "models/named_reference.h"

#include <algorithm>
#include <array>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/caloric.h"
#include "models/equilibrium.h"
#include "models/model_tables.h"
#include "models/saturation.h"
#include "models/state_solver.h"

namespace quor::models {

namespace {

constexpr std::array<NamedReference, 5> kStates{{
    {NamedState::iir, "iir", "IIR",
     "h = 200 kJ/kg, s = 1 kJ/(kg K) of the saturated liquid at 273.15 K"},
    {NamedState::ashrae, "ashrae", "ASHRAE", "h = 0, s = 0 of the saturated liquid at 233.15 K"},
    {NamedState::boilingPoint, "nbp", "normal boiling point",
     "h = 0, s = 0 of the saturated liquid at 101.325 kPa"},
    {NamedState::water, "water", "triple point",
     "u = 0, s = 0 of the saturated liquid at the triple point"},
    {NamedState::own, "own", "own state", "h and s of a state of your own"},
}};

constexpr double kNormalPressure = 101.325;    // kPa
constexpr double kAshraeTemperature = 233.15;  // K, -40 degrees Celsius
constexpr float kIdealTemperature = 298.15F;   // K, where the ideal gas gets its values
constexpr float kIdealPressure = 101.325F;     // kPa
constexpr double kIirEnthalpy = 200;           // kJ/kg
constexpr double kIirEntropy = 1;              // kJ/(kg K)

/// A state of the fluid and what it shall have there.
struct Anchor {
    double T = 0, p = 0, v = 0;  ///< K, kPa, m^3/kmol
    double h = 0, s = 0;         ///< kJ/kmol, kJ/(kmol K)
};

std::string number(double value) {
    return numbers::general(value, 7);
}

/// "Propane has no saturated liquid at 500 K by CEOS Peng / Robinson".
Failure without(const Fluid& fluid, const std::string& what) {
    return {text::trim(fluid.substance().name) + " has " + what + " by " +
            text::trim(fluid.equation().name) + "."};
}

Result<Anchor> saturated_liquid(const Fluid& fluid, double T) {
    const auto saturation =
        T < fluid.substance().Tcrit ? saturation_pressure(fluid, T) : std::nullopt;
    const auto volumes =
        saturation ? equilibrium_volumes(fluid, solve_state_tp(fluid, T, saturation->p), T)
                   : std::nullopt;
    if (!volumes) return without(fluid, "no saturated liquid at " + number(T) + " K");
    return Anchor{.T = T, .p = saturation->p, .v = volumes->vL};
}

Result<Anchor> boiling_liquid(const Fluid& fluid) {
    const auto saturation = kNormalPressure < fluid.substance().pcrit
                                ? saturation_temperature(fluid, kNormalPressure)
                                : std::nullopt;
    const auto volumes =
        saturation
            ? equilibrium_volumes(fluid, solve_state_tp(fluid, saturation->T, kNormalPressure),
                                  saturation->T)
            : std::nullopt;
    if (!volumes)
        return without(fluid, "no saturated liquid at " + number(kNormalPressure) + " kPa");
    return Anchor{.T = saturation->T, .p = kNormalPressure, .v = volumes->vL};
}

Result<Anchor> own_state(const Fluid& fluid, const OwnState& own) {
    const auto state = solve_state_tp(fluid, own.T, own.p);
    const std::optional<double> v = !state ? std::nullopt : own.vapour ? state->vV : state->vL;
    if (!v)
        return without(fluid, std::string(own.vapour ? "no vapour" : "no liquid") + " at " +
                                  number(own.T) + " K and " + number(own.p) + " kPa");
    return Anchor{.T = own.T, .p = own.p, .v = *v, .h = own.h, .s = own.s};
}

/// The saturated liquid of a refrigeration table, h in kJ/kg, s in kJ/(kg K).
Result<Anchor> per_mass(const Fluid& fluid, double T, double h, double s) {
    Result<Anchor> anchor = saturated_liquid(fluid, T);
    const auto M = static_cast<double>(fluid.substance().M);
    if (anchor && !(M > 0))
        return Failure{text::trim(fluid.substance().name) + " has no molar mass."};
    if (anchor) {
        anchor->h = h * M;
        anchor->s = s * M;
    }
    return anchor;
}

Result<Anchor> anchor_of(const Fluid& fluid, const ReferenceState& reference) {
    switch (reference.named) {
        case NamedState::iir:
            return per_mass(fluid, constants::kZeroCelsius, kIirEnthalpy, kIirEntropy);
        case NamedState::ashrae:
            return saturated_liquid(fluid, kAshraeTemperature);
        case NamedState::boilingPoint:
            return boiling_liquid(fluid);
        case NamedState::water: {
            const auto T = static_cast<double>(fluid.substance().Ttriple);
            if (!(T > constants::kPresent))
                return Failure{"The triple point of " + text::trim(fluid.substance().name) +
                               " is not known."};
            Result<Anchor> anchor = saturated_liquid(fluid, T);
            if (anchor) anchor->h = anchor->p * anchor->v;
            return anchor;
        }
        case NamedState::own:
        case NamedState::none:
            break;
    }
    return own_state(fluid, reference.own);
}

}  // namespace

std::span<const NamedReference> named_references() {
    return kStates;
}

const NamedReference* named_reference(NamedState state) {
    const auto* const row = std::ranges::find(kStates, state, &NamedReference::state);
    return row == kStates.end() ? nullptr : row;
}

std::optional<NamedState> named_state_of(std::string_view code) {
    const std::string upper = text::to_upper(code);
    for (const NamedReference& row : kStates)
        if (text::to_upper(row.code) == upper) return row.state;
    return std::nullopt;
}

Result<ReferenceState> resolved_reference(const Fluid& fluid, const ReferenceState& reference) {
    if (reference.named == NamedState::none) return reference;
    const Result<Anchor> anchor = anchor_of(fluid, reference);
    if (!anchor) return anchor.failure();
    ReferenceState zero = reference;
    zero.mode = 1;
    zero.href = zero.sref = 0;
    zero.T0 = kIdealTemperature;
    zero.p0 = kIdealPressure;
    const auto there = state_functions(fluid, zero, std::nullopt, anchor->T, anchor->p, anchor->v);
    if (!there)
        return Failure{"h and s of " + text::trim(fluid.substance().name) + " at " +
                       number(anchor->T) + " K cannot be calculated: there is no cp there."};
    zero.href = anchor->h - there->h;
    zero.sref = anchor->s - there->s;
    return zero;
}

NamedState proposed_reference(const Fluid& fluid) {
    for (const NamedState state :
         {NamedState::boilingPoint, NamedState::ashrae, NamedState::iir, NamedState::water})
        if (resolved_reference(fluid, {.named = state})) return state;
    return NamedState::none;
}

}  // namespace quor::models
