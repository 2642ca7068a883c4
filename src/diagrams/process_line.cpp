#include "diagrams/process_line.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "diagrams/axis_units.h"
#include "diagrams/caloric_functions.h"
#include "diagrams/curve_frame.h"
#include "diagrams/equilibrium.h"
#include "diagrams/parameter_input.h"
#include "models/caloric.h"
#include "models/state_solver.h"
#include "models/unit_text.h"

namespace quor::diagrams {

namespace {

using constants::kPresent;

constexpr std::array<ProcessTexts, 9> kTexts = {{
    {"Adding a Straight Line (x1, y1)-(x2, y2)", "", "", "", "free straight line"},
    {"Adding an Isotherm", "", "estim. phase", " estimates phase for the initial point ",
     "Isotherm"},
    {"Adding an Isobar", "", "estim. phase", " estimates phase for the initial point   ", "Isobar"},
    {"Adding an Isochore", "Adding an Isochore in the Heterogeneous Region V- L", "calc. v",
     " estimates volume and phase for the initial point ", "Isochore "},
    {"Adding an Isentropic (= adiabatic reversible)",
     "Adding an Isentropic in the Heterogeneous Region V - L", "calc. s",
     " fixed value of the entropy  ", "Isentropic"},
    {"Adding an Isenthalpic", "Adding an Isenthalpic in the Heterogeneous Region V - L", "calc. h",
     " fixed value of the enthalpy ", "Isenthalpic"},
    {"Adding a Polytropic Line (for additional inform. => \"Calculation\")", "", "", "",
     "Polytropic"},
    {"Parameter Input", "", "", "", ""},
    {"Adding a Line of Const. Vapour Fraction y(V)", "", "Specific. of y(V)", "", ""},
}};

/// Codes of the curves of the kinds.
constexpr std::array<std::int16_t, 7> kCodes = {201, 202, 204, 206, 210, 210, 211};

constexpr auto kIncomplete = "Input incomplete or not valid";
constexpr auto kNotPositive = "specificated p and T have to be > 0";
constexpr auto kNoRange = "specification of the range is not valid ";

bool all_finite(const std::array<double, 4>& values) {
    return std::all_of(values.begin(), values.end(), [](double x) { return std::isfinite(x); });
}

/// The fields that an input asks for: T1 and p1, and the end of the range.
std::string refuse_fields(const ProcessInput& input, double end) {
    const bool needs_T1 = !input.heterogeneous || input.range_is_T;
    const bool needs_p1 = !input.heterogeneous || !input.range_is_T;
    const auto given = [](double x) { return std::isfinite(x) && x > 0; };
    if ((needs_T1 && !given(input.par[0])) || (needs_p1 && !given(input.par[1])) || !given(end))
        return kIncomplete;
    return {};
}

std::string refuse_polytropic(const ProcessInput& input) {
    if (input.exponent == 1 && input.range_is_T)
        return "The condition polytropic exp. n = 1 (=> isotherm) is in\n"
               "contradiction to your specification of \"T range\" ";
    if (!(input.kappa >= kPresent))
        return "not yet a valid kappa available\n"
               "Input your value or click on the\n"
               "ComboBox to apply one of the offered values";
    return {};
}

/// The ends of a heterogeneous line must have an equilibrium.
std::string refuse_heterogeneous(const models::SubstanceRecord& s, double start, double end,
                                 bool range_is_T) {
    if (!range_is_T) {
        if (end > s.pcrit)
            return "pressure for the final tie-line has to be p <= p(cr) = " +
                   numbers::general(s.pcrit) + " kPa";
        return {};
    }
    if (end > s.Tcrit)
        return "temperature for the final tie-line has to be <= T(cr) = " +
               numbers::general(s.Tcrit) + " K";
    if (start > s.Tcrit)
        return "temperature for the initial tie-line has to be <= T(cr) = " +
               numbers::general(s.Tcrit);
    return {};
}

ProcessAnswer refused(const ProcessLine& before, std::string refusal) {
    return {before, std::move(refusal)};
}

ProcessAnswer take_straight_line(const ProcessLine& before, const ProcessInput& input) {
    if (!all_finite(input.par)) return refused(before, kIncomplete);
    const auto single = [](double x) { return numbers::to_single(x); };
    ProcessLine r = before;
    r.x1 = single(input.par[0]);
    r.y1 = single(input.par[1]);
    r.x2 = single(input.par[2]);
    r.y2 = single(input.par[3]);
    if (r.x1 == r.x2 && r.y1 == r.y2) return refused(before, kNoRange);
    r.kind = input.kind;
    return {r, {}};
}

/// T1 and p1 of a heterogeneous line lie on the coexistence curve.
bool complete_saturated_start(ProcessLine& r, const models::Fluid& fluid) {
    const auto e = r.range_is_T ? equilibrium_at_T(fluid, r.T1) : equilibrium_at_p(fluid, r.p1);
    if (!e) return false;
    r.T1 = e->T;
    r.p1 = e->p;
    return true;
}

std::string refuse_states(const models::Fluid& fluid, const ProcessInput& input) {
    const double start = input.range_is_T ? input.par[0] : input.par[1];
    const double end = input.range_is_T ? input.par[2] : input.par[3];
    if (std::string text = refuse_fields(input, end); !text.empty()) return text;
    if (input.heterogeneous) {
        std::string text = refuse_heterogeneous(fluid.substance(), start, end, input.range_is_T);
        if (!text.empty()) return text;
    }
    if (start == end) return kNoRange;
    return input.kind == ProcessKind::polytropic ? refuse_polytropic(input) : std::string();
}

ProcessAnswer take_states(const ProcessLine& before, const models::Fluid& fluid,
                          const ProcessInput& input) {
    if (std::string text = refuse_states(fluid, input); !text.empty())
        return refused(before, std::move(text));
    ProcessLine r = before;
    r.kind = input.kind;
    r.vapour = input.vapour;
    r.range_is_T = input.range_is_T;
    r.range_start = input.range_is_T ? input.par[0] : input.par[1];
    r.range_end = input.range_is_T ? input.par[2] : input.par[3];
    r.T1 = std::isfinite(input.par[0]) ? input.par[0] : 0;
    r.p1 = std::isfinite(input.par[1]) ? input.par[1] : 0;
    r.end_to_begin = input.end_to_begin;
    r.heterogeneous = input.heterogeneous;
    r.metastable = input.metastable && !input.heterogeneous && may_be_metastable(input.kind);
    r.ideal_gas_equation = input.ideal_gas_equation;
    r.polytropic_exponent = input.exponent;
    r.kappa = input.kappa;
    if (r.heterogeneous && !complete_saturated_start(r, fluid))
        return refused(before, kNotPositive);
    if (!(r.T1 > 0) || !(r.p1 > 0)) return refused(before, kNotPositive);
    return {r, {}};
}

ProcessAnswer take_fraction(const ProcessLine& before, const ProcessInput& input) {
    if (!is_vapour_fraction(input.vapour_fraction))
        return refused(before, "Input not in the valid range");
    ProcessLine r = before;
    r.kind = input.kind;
    r.vapour_fraction = input.vapour_fraction;
    return {r, {}};
}

}  // namespace

const ProcessTexts& texts_of_process(ProcessKind kind) {
    return kTexts[static_cast<std::size_t>(kind)];
}

bool may_be_metastable(ProcessKind kind) {
    return kind == ProcessKind::isotherm || kind == ProcessKind::isobar ||
           kind == ProcessKind::isentropic || kind == ProcessKind::isenthalpic;
}

const Diagram* process_curve(ProcessKind kind) {
    const auto index = static_cast<std::size_t>(kind);
    return index < kCodes.size() ? &diagram_of(kCodes[index]) : nullptr;
}

ProcessInput continued_from(const ProcessLine& last, ProcessInput input) {
    input.par[0] = last.last.T;
    input.par[1] = last.last.p;
    return input;
}

ProcessAnswer take_process_input(const ProcessLine& before, const models::Fluid& fluid,
                                 const ProcessInput& input) {
    if (input.kind == ProcessKind::straightLine) return take_straight_line(before, input);
    if (input.kind == ProcessKind::vapourFraction) return take_fraction(before, input);
    return take_states(before, fluid, input);
}

CurveRequest process_request(const Diagram& on, const ProcessLine& line, StateParameters at) {
    const Diagram* curve = process_curve(line.kind);
    if (line.kind == ProcessKind::isotherm) at.T = line.T1;
    if (line.kind == ProcessKind::isobar) at.p = line.p1;
    return {.curve = curve != nullptr ? curve : &on, .on = &on, .at = at, .line = line};
}

std::string one_point_note(const Diagram& diagram, std::span<const float> x,
                           std::span<const float> y) {
    if (!diagram.may_shrink_to_a_point || x.empty()) return {};
    const auto same = [](std::span<const float> values) {
        return std::all_of(values.begin(), values.end(),
                           [&](float value) { return value == values.front(); });
    };
    if (!same(x) || !same(y)) return {};
    return "There is only one point drawn because this function is independent on pressure";
}

namespace {

std::string with_unit(const models::Scale& scale, double value) {
    return numbers::general(numbers::to_single(scale.shown(value))) + " " +
           models::pretty_unit(scale.name);
}

std::string volume_text(const Basis& basis, const char* name, double v) {
    if (const models::Scale* own = own_scale(Parameter::v, basis.units))
        return name + with_unit(*own, v);
    const bool specific = basis.units.choice.system == models::UnitSystem::specific;
    const double M = basis.M();
    const double shown = specific && M > 0 ? v / M : v;
    return name + numbers::general(numbers::to_single(shown)) +
           (specific ? " m^3/kg" : " m^3/kmol");
}

/// Empty where there is no value.
std::string caloric_text(const Basis& basis, const char* name, std::optional<double> value,
                         bool entropy) {
    if (!value) return {};
    const models::Dimension dimension =
        entropy ? models::Dimension::entropy : models::Dimension::energy;
    if (basis.units.has_own(dimension)) return name + with_unit(basis.units.of(dimension), *value);
    const bool specific = basis.units.choice.caloric == models::CaloricUnit::specific;
    const double M = basis.M();
    const double shown = specific && M > 0 ? *value / M : *value;
    const char* unit =
        entropy ? (specific ? " kJ/(kg K)" : " kJ/(kmol K)") : (specific ? " kJ/kg" : " kJ/kmol");
    return name + numbers::general(numbers::to_single(shown)) + unit;
}

/// What a state at T and p is to a process: its phase, with both volumes in the equilibrium.
struct StartState {
    enum class Kind { none, vapour, liquid, twoPhase, critical, supercritical } kind = Kind::none;
    double vL = 0, vV = 0;  ///< of the phases that it has
    std::int16_t region = 0;
};

StartState start_state(const models::Fluid& fluid, double T, double p) {
    using Kind = StartState::Kind;
    const models::SubstanceRecord& s = fluid.substance();
    const auto state = models::solve_state_tp(fluid, T, p);
    if (!state) return {};
    StartState r{.vL = state->vL.value_or(0), .vV = state->vV.value_or(0), .region = state->region};
    if (fluid.models().vapour_only) {
        r.kind = Kind::vapour;
    } else if (T == s.Tcrit && static_cast<float>(p) == static_cast<float>(s.pcrit)) {
        r.kind = Kind::critical;
    } else if (state->has_L && state->has_V) {
        r.kind = state->root_count == 3 ? Kind::twoPhase : Kind::supercritical;
    } else {
        r.kind = state->has_V ? Kind::vapour : Kind::liquid;
    }
    return r;
}

const char* supercritical_text(std::int16_t region) {
    if (region == 1) return "    supercritical (L)";
    if (region == 3) return "    supercritical (V)";
    return "supercritical (L = V)";
}

std::string phase_suffix(const StartState& state) {
    using Kind = StartState::Kind;
    switch (state.kind) {
        case Kind::vapour:
            return " V-Phase";
        case Kind::liquid:
            return " L-Phase";
        case Kind::twoPhase:
            return " heterogen. L + V";
        case Kind::critical:
            return "critical point";
        case Kind::supercritical:
            return supercritical_text(state.region);
        default:
            return {};
    }
}

double single_volume(const StartState& state) {
    return state.kind == StartState::Kind::liquid ? state.vL : state.vV;
}

std::string held_text(const Basis& basis, const StartState& state, bool entropy, double T,
                      double p) {
    const CaloricFunctions functions(basis);
    const auto value = [&](double v) {
        return value_of(functions(T, p, v), entropy ? Function::s : Function::h);
    };
    if (state.kind != StartState::Kind::twoPhase)
        return caloric_text(basis, entropy ? " s = " : " h = ", value(single_volume(state)),
                            entropy);
    return caloric_text(basis, entropy ? " s(L) = " : " h(L) = ", value(state.vL), entropy) +
           caloric_text(basis, entropy ? " s(V) = " : " h(V) = ", value(state.vV), entropy);
}

}  // namespace

std::string start_state_text(const Basis& basis, ProcessKind kind, double T, double p) {
    const StartState state = start_state(basis.fluid, T, p);
    if (state.kind == StartState::Kind::none) return {};
    std::string text =
        state.kind == StartState::Kind::twoPhase
            ? volume_text(basis, " v(L) = ", state.vL) + volume_text(basis, " v(V) = ", state.vV)
            : volume_text(basis, " v = ", single_volume(state));
    text += phase_suffix(state);
    if (kind == ProcessKind::isentropic || kind == ProcessKind::isenthalpic)
        text += "\n" + held_text(basis, state, kind == ProcessKind::isentropic, T, p);
    return text;
}

std::string phase_text(const models::Fluid& fluid, double T, double p) {
    using Kind = StartState::Kind;
    switch (start_state(fluid, T, p).kind) {
        case Kind::none:
            return {};
        case Kind::liquid:
            return "    L-Phase";
        case Kind::twoPhase:
            return "    phase equilibr. V-L";
        case Kind::critical:
            return "    critical point";
        default:
            return "    V-Phase";
    }
}

std::array<KappaOffer, 2> kappa_offers(const Basis& basis, double T1) {
    const auto kappa = [&](double T) {
        const double cp =
            models::ideal_gas_cp(basis.fluid.substance(), basis.fluid.models().cp_form, T)
                .value_or(0);
        const double cv = cp - constants::R;
        return cv > 0 ? cp / cv : 0;
    };
    const auto offer = [&](const char* name, double T) {
        const double value = kappa(T);
        return KappaOffer{name + numbers::general(numbers::to_single(value)) + " calculated",
                          value};
    };
    return {offer("aus T1 = ", T1),
            offer("aus T(ref) = ", static_cast<double>(basis.reference.T0))};
}

std::string polytropic_error_text(double T, double p) {
    return "Error while the polytropic calculation\nT = " + numbers::general(T) +
           "\np = " + numbers::general(p);
}

}  // namespace quor::diagrams
