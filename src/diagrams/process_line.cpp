#include "diagrams/process_line.h"
#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "diagrams/curve.h"
#include "diagrams/equilibrium.h"
#include "models/caloric.h"
#include "models/state_solver.h"
#include "session/module2.h"

namespace quor::diagrams {

using legacy::the_processLine;
using legacy::the_session;

namespace {

using constants::kPresent;

constexpr std::array<ProcessTexts, 9> kTexts = {{
    {"Adding a Straight Line (x1, y1)-(x2, y2)", "", "", ""},
    {"Adding an Isotherm", "", "estim. phase", " estimates phase for the initial point "},
    {"Adding an Isobar", "", "estim. phase", " estimates phase for the initial point   "},
    {"Adding an Isochore", "Adding an Isochore in the Heterogeneous Region V- L", "calc. v",
     " estimates volume and phase for the initial point "},
    {"Adding an Isentropic (= adiabatic reversible)",
     "Adding an Isentropic in the Heterogeneous Region V - L", "calc. s",
     " fixed value of the entropy  "},
    {"Adding an Isenthalpic", "Adding an Isenthalpic in the Heterogeneous Region V - L", "calc. h",
     " fixed value of the enthalpy "},
    {"Adding a Polytropic Line (for additional inform. => \"Calculation\")", "", "", ""},
    {"Parameter Input", "", "", ""},
    {"Adding a Line of Const. Vapour Fraction y(V)", "", "Specific. of y(V)", ""},
}};

constexpr auto kIncomplete = "Input incomplete or not valid";
constexpr auto kNotPositive = "specificated p and T have to be > 0";
constexpr auto kNoRange = "specification of the range is not valid ";

bool all_finite(const std::array<double, 4>& values) {
    return std::all_of(values.begin(), values.end(), [](double x) { return std::isfinite(x); });
}

/// The fields that an input asks for: T1 and p1, and the end of the range.
std::string refuse_fields(const ProcessInput& input, double end) {
    const bool needsT1 = !input.Heterogeneous || input.RangeIsT;
    const bool needsP1 = !input.Heterogeneous || !input.RangeIsT;
    const auto given = [](double x) { return std::isfinite(x) && x > 0; };
    if ((needsT1 && !given(input.par[0])) || (needsP1 && !given(input.par[1])) || !given(end))
        return kIncomplete;
    return {};
}

std::string refuse_polytropic(const ProcessInput& input) {
    if (input.Exponent == 1 && input.RangeIsT)
        return "The condition polytropic exp. n = 1 (=> isotherm) is in\n"
               "contradiction to your specification of \"T range\" ";
    if (!(input.Kappa >= kPresent))
        return "not yet a valid kappa available\n"
               "Input your value or click on the\n"
               "ComboBox to apply one of the offered values";
    return {};
}

/// The ends of a heterogeneous line must have an equilibrium.
std::string refuse_heterogeneous(double start, double end, bool rangeIsT) {
    const models::SubstanceRecord& s = legacy::the_substance;
    if (!rangeIsT) {
        if (end > s.pcrit)
            return "pressure for the final tie-line has to be p <= p(cr) = " +
                   numbers::General(s.pcrit) + " kPa";
        return {};
    }
    if (end > s.Tcrit)
        return "temperature for the final tie-line has to be <= T(cr) = " +
               numbers::General(s.Tcrit) + " K";
    if (start > s.Tcrit)
        return "temperature for the initial tie-line has to be <= T(cr) = " +
               numbers::General(s.Tcrit);
    return {};
}

std::string take_straight_line(const ProcessInput& input) {
    if (!all_finite(input.par)) return kIncomplete;
    const auto single = [](double x) { return numbers::to_single(x); };
    diagrams::ProcessLineRecord r = the_processLine;
    r.x1 = single(input.par[0]);
    r.y1 = single(input.par[1]);
    r.x2 = single(input.par[2]);
    r.y2 = single(input.par[3]);
    if (r.x1 == r.x2 && r.y1 == r.y2) return kNoRange;
    r.Kind = input.Kind;
    the_processLine = r;
    return {};
}

/// T1 and p1 of a heterogeneous line lie on the coexistence curve.
bool complete_saturated_start(diagrams::ProcessLineRecord& r) {
    const models::Fluid fluid = models::current_fluid();
    const Equilibrium e =
        r.RangeIsT != 0 ? equilibrium_at_T(fluid, r.T1) : equilibrium_at_p(fluid, r.p1);
    if (!e.found) return false;
    r.T1 = e.T;
    r.p1 = e.p;
    return true;
}

std::string take_states(const ProcessInput& input) {
    const double start = input.RangeIsT ? input.par[0] : input.par[1];
    const double end = input.RangeIsT ? input.par[2] : input.par[3];
    if (std::string text = refuse_fields(input, end); !text.empty()) return text;
    if (input.Heterogeneous)
        if (std::string text = refuse_heterogeneous(start, end, input.RangeIsT); !text.empty())
            return text;
    if (start == end) return kNoRange;
    if (input.Kind == ProcessKind::kPolytropic)
        if (std::string text = refuse_polytropic(input); !text.empty()) return text;

    diagrams::ProcessLineRecord r = the_processLine;
    r.Kind = input.Kind;
    r.Phase = input.Vapour ? 1 : 0;
    r.RangeIsT = input.RangeIsT ? 1 : 0;
    r.RangeStart = start;
    r.RangeEnd = end;
    r.T1 = std::isfinite(input.par[0]) ? input.par[0] : 0;
    r.p1 = std::isfinite(input.par[1]) ? input.par[1] : 0;
    r.EndToBegin = input.EndToBegin;
    r.Heterogeneous = input.Heterogeneous;
    r.IdealGasEquation = input.IdealGasEquation;
    r.PolytropicExponent = input.Exponent;
    r.Kappa = input.Kappa;
    if (r.Heterogeneous && !complete_saturated_start(r)) return kNotPositive;
    if (!(r.T1 > 0) || !(r.p1 > 0)) return kNotPositive;
    the_processLine = r;
    return {};
}

std::string take_fraction(const ProcessInput& input) {
    const double x = input.VapourFraction;
    if (!(x >= 0 && x <= 1)) return "Input not in the valid range";
    the_processLine.Kind = input.Kind;
    the_session.VapourFraction = x;
    return {};
}

}  // namespace

const ProcessTexts& texts_of_process(std::uint8_t Kind) {
    return kTexts[std::min<std::size_t>(Kind, kTexts.size() - 1)];
}

std::int16_t process_code(std::uint8_t Kind, std::int16_t DiagramType) {
    constexpr std::array<std::int16_t, 7> kCodes = {201, 202, 204, 206, 210, 210, 211};
    return Kind < kCodes.size() ? kCodes[Kind] : DiagramType;
}

ProcessInput continued_from(ProcessInput input) {
    input.par[0] = the_processLine.LastT;
    input.par[1] = the_processLine.LastP;
    return input;
}

std::string take_process_input(const ProcessInput& input) {
    if (input.Kind == ProcessKind::kStraightLine) return take_straight_line(input);
    if (input.Kind == ProcessKind::kVapourFraction) return take_fraction(input);
    return take_states(input);
}

namespace {

/// Session and request while a process line runs.
class Borrowed {
  public:
    explicit Borrowed(diagrams::DiagramRequest& request)
        : request_(request), T_(the_session.DiagramT), p_(the_session.DiagramP) {
        the_processLine.SavedDiagramType = the_processLine.BaseDiagramType = request.DiagramType;
        request.DiagramType = process_code(the_processLine.Kind, request.DiagramType);
        if (the_processLine.Kind == ProcessKind::kIsotherm)
            the_session.DiagramT = the_processLine.T1;
        if (the_processLine.Kind == ProcessKind::kIsobar) the_session.DiagramP = the_processLine.p1;
    }
    ~Borrowed() {
        request_.DiagramType = the_processLine.SavedDiagramType;
        the_session.DiagramT = T_;
        the_session.DiagramP = p_;
    }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;

  private:
    diagrams::DiagramRequest& request_;
    double T_, p_;
};

}  // namespace

void with_process_line(diagrams::DiagramRequest& request, const std::function<void()>& draw) {
    const Borrowed borrowed(request);
    draw();
}

std::string one_point_note(std::int16_t DiagramType, std::span<const float> x,
                           std::span<const float> y) {
    const bool listed = (DiagramType >= 13 && DiagramType <= 15) ||
                        (DiagramType >= 90 && DiagramType <= 99) || DiagramType == 183;
    if (!listed || x.empty()) return {};
    const auto same = [](std::span<const float> values) {
        return std::all_of(values.begin(), values.end(),
                           [&](float value) { return value == values.front(); });
    };
    if (!same(x) || !same(y)) return {};
    return "There is only one point drawn because this function is independent on pressure";
}

namespace {

std::string volume_text(const char* name, double v) {
    const bool specific = the_session.UnitMode == 1;
    const double M = static_cast<double>(legacy::the_substance.M);
    const double shown = specific && M > 0 ? v / M : v;
    return name + numbers::General(numbers::to_single(shown)) +
           (specific ? " m^3/kg" : " m^3/kmol");
}

std::string caloric_text(const char* name, double value, bool entropy) {
    constexpr std::int16_t kSpecific = 3;
    const bool specific = the_session.CaloricUnit == kSpecific;
    const double M = static_cast<double>(legacy::the_substance.M);
    const double shown = specific && M > 0 ? value / M : value;
    const char* unit =
        entropy ? (specific ? " kJ/(kg K)" : " kJ/(kmol K)") : (specific ? " kJ/kg" : " kJ/kmol");
    return name + numbers::General(numbers::to_single(shown)) + unit;
}

/// What a state at T and p is to a process: its phase, with both volumes in the equilibrium.
struct StartState {
    enum class Kind { none, vapour, liquid, twoPhase, critical, supercritical } kind = Kind::none;
    double vL = 0, vV = 0;
    std::int16_t region = 0;
};

StartState start_state(double T, double p) {
    using Kind = StartState::Kind;
    const models::SubstanceRecord& s = legacy::the_substance;
    const models::StateTP state = models::SolveStateTP(T, p);
    if (state.status != kSuccess) return {};
    StartState r{.vL = state.vL, .vV = state.vV, .region = state.PhaseRegion};
    if (legacy::the_models.EOSOnlyV) {
        r.kind = Kind::vapour;
    } else if (T == s.Tcrit && static_cast<float>(p) == static_cast<float>(s.pcrit)) {
        r.kind = Kind::critical;
    } else if (state.hasL && state.hasV) {
        r.kind = state.nRoots == 3 ? Kind::twoPhase : Kind::supercritical;
    } else {
        r.kind = state.hasV ? Kind::vapour : Kind::liquid;
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

std::string held_text(const StartState& state, std::uint8_t Kind, double T, double p) {
    const bool entropy = Kind == ProcessKind::kIsentropic;
    const auto value = [&](double v) {
        const models::StateValues z = models::StateFunctions(T, p, v);
        return entropy ? z.s : z.h;
    };
    if (state.kind != StartState::Kind::twoPhase)
        return caloric_text(entropy ? " s = " : " h = ", value(single_volume(state)), entropy);
    return caloric_text(entropy ? " s(L) = " : " h(L) = ", value(state.vL), entropy) +
           caloric_text(entropy ? " s(V) = " : " h(V) = ", value(state.vV), entropy);
}

}  // namespace

std::string start_state_text(std::uint8_t Kind, double T, double p) {
    const StartState state = start_state(T, p);
    if (state.kind == StartState::Kind::none) return {};
    std::string text = state.kind == StartState::Kind::twoPhase
                           ? volume_text(" v(L) = ", state.vL) + volume_text(" v(V) = ", state.vV)
                           : volume_text(" v = ", single_volume(state));
    text += phase_suffix(state);
    if (Kind == ProcessKind::kIsentropic || Kind == ProcessKind::kIsenthalpic)
        text += "\n" + held_text(state, Kind, T, p);
    return text;
}

std::string phase_text(double T, double p) {
    using Kind = StartState::Kind;
    switch (start_state(T, p).kind) {
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

std::array<KappaOffer, 2> kappa_offers(double T1) {
    const auto kappa = [](double T) {
        const models::CpResult ideal = models::IdealGasCp(T);
        const double cv = ideal.cp - constants::R;
        return ideal.status == kSuccess && cv > 0 ? ideal.cp / cv : 0;
    };
    const auto offer = [&](const char* name, double T) {
        const double value = kappa(T);
        return KappaOffer{name + numbers::General(numbers::to_single(value)) + " calculated",
                          value};
    };
    return {offer("aus T1 = ", T1),
            offer("aus T(ref) = ", static_cast<double>(legacy::the_reference.T0))};
}

std::string polytropic_error_text(double T, double p) {
    return "Error while the polytropic calculation\nT = " + numbers::General(T) +
           "\np = " + numbers::General(p);
}

}  // namespace quor::diagrams
