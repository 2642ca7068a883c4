#include <array>
#include <cmath>
#include <limits>

#include "diagrams/curve_kinds.h"
#include "diagrams/isoline_search.h"
#include "diagrams/process_line.h"
#include "diagrams/project_state.h"
#include "models/cubic_eos.h"

namespace quor::diagrams {

using models::StateValues;

namespace {

/// Adds a state to the line on the axes of the diagram and keeps it as the last one.
void add_state(CurveFrame& c, double T, double p, double v,
               const std::optional<StateValues>& functions) {
    const auto at = project_state(c.axes, c.basis, {T, p, v}, functions);
    if (!at) return;
    c.add(at->x, at->y, at->z);
    c.result.last = {T, p};
}

void add_state(CurveFrame& c, double T, double p, double v) {
    const bool needed = shows_caloric_values(c.axes);
    add_state(c, T, p, v, needed ? c.functions(T, p, v) : std::nullopt);
}

/// Volume at T and p of the phase of the line; with one root it is that one.
double volume_of_phase(const CurveFrame& c, double T, double p) {
    const auto state = models::solve_state_tp(c.fluid, T, p);
    if (!state) return 0;
    if (c.vapour_only()) return state->vV.value_or(0);
    const bool vapour = c.request.line.vapour;
    return state->root_count == 3 && vapour ? state->v[2] : state->v[0];
}

Steps range(const CurveFrame& c, double share) {
    const double from = c.request.line.range_start, to = c.request.line.range_end;
    return Steps::clamped(from, to, share * (to - from) / c.steps);
}

/// What a line that was cut short ends with.
void end_line(CurveFrame& c, bool stopped) {
    if (c.points.size() <= 1) {
        c.set_status(CurveStatus::noResult);
    } else if (stopped && c.points.size() > 2) {
        c.set_status(CurveStatus::endedEarly);
    }
}

// ---- inside the dome

/// The mixture of both phases at a vapour fraction; what has no meaning for it is not finite.
StateValues mixture(const StateValues& L, const StateValues& V, double x) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    StateValues z = V;
    for (const auto member :
         {&StateValues::h, &StateValues::u, &StateValues::s, &StateValues::g, &StateValues::a})
        z.*member = at_fraction(L.*member, V.*member, x);
    z.exergies.reset();
    if (L.exergies && V.exergies)
        z.exergies = {at_fraction(L.exergies->H, V.exergies->H, x),
                      at_fraction(L.exergies->U, V.exergies->U, x)};
    z.cp = z.cv = z.w = kNone;
    auto& residual = z.table.residual;
    for (const models::Residual column : {models::ResS, models::ResH, models::ResG})
        residual[column] = at_fraction(L.table.residual[column], V.table.residual[column], x);
    residual[models::ResCp] = residual[models::JouleThomson] = kNone;
    return z;
}

/// The quantity that a line holds: its molar volume, entropy or enthalpy.
enum class Held { volume, entropy, enthalpy };

std::optional<double> held_value(Held held, double v, const std::optional<StateValues>& functions) {
    if (held == Held::volume) return v;
    return value_of(functions, held == Held::entropy ? Function::s : Function::h);
}

/// Over the tie-lines of the range, from a saturated state at its start: the vapour fraction
/// follows from the quantity that the line holds.
void heterogeneous_line(CurveFrame& c, Held held) {
    const bool over_T = c.request.line.range_is_T;
    const auto equilibrium = [&](double running, double near) {
        return over_T ? equilibrium_at_T(c.fluid, running, near)
                      : equilibrium_at_p(c.fluid, running, near);
    };
    const auto sides = [&](const Equilibrium& e) {
        return std::array{c.functions(e.T, e.p, e.vL), c.functions(e.T, e.p, e.vV)};
    };
    const auto start = equilibrium(over_T ? c.request.line.T1 : c.request.line.p1, 0);
    if (!start) return end_line(c, true);
    const bool vapour = c.request.line.vapour;
    const std::optional<double> fixed =
        held_value(held, vapour ? start->vV : start->vL, sides(*start)[vapour ? 1 : 0]);
    if (!fixed) return end_line(c, true);

    bool stopped = false;
    double near = 0;
    Steps loop = range(c, 1.0);
    for (double running; loop.next(running);) {
        const auto e = equilibrium(running, near);
        if (!e) {
            stopped = true;
            break;
        }
        near = over_T ? e->p : e->T;
        const auto [L, V] = sides(*e);
        const auto low = held_value(held, e->vL, L), high = held_value(held, e->vV, V);
        if (!low || !high) {
            stopped = true;
            break;
        }
        // At the start the state lies on the edge of the dome, within rounding.
        constexpr double kRounding = 1e-9;
        const double x = *high != *low ? (*fixed - *low) / (*high - *low) : (vapour ? 1 : 0);
        if (!(x >= -kRounding && x <= 1 + kRounding)) {
            stopped = true;
            break;
        }
        add_state(c, e->T, e->p, at_fraction(e->vL, e->vV, x),
                  L && V ? std::optional(mixture(*L, *V, x)) : std::nullopt);
    }
    end_line(c, stopped);
}

}  // namespace

void straight_line(CurveFrame& c) {
    constexpr int kParts = 50;
    const auto x1 = static_cast<double>(c.request.line.x1),
               y1 = static_cast<double>(c.request.line.y1);
    const auto x2 = static_cast<double>(c.request.line.x2),
               y2 = static_cast<double>(c.request.line.y2);
    if (x1 == x2 && y1 == y2) {
        c.set_status(CurveStatus::noResult);
        return;
    }
    for (int i = 0; i <= kParts; ++i) {
        const double t = static_cast<double>(i) / kParts;
        c.add(x1 + t * (x2 - x1), y1 + t * (y2 - y1), 0);
    }
}

namespace {

/// True for a state on the phase boundary within the tolerance of the state solver.
bool has_both_phases(const CurveFrame& c, double T, double p) {
    const auto state = models::solve_state_tp(c.fluid, T, p);
    return state && state->root_count == 3 && state->has_L && state->has_V;
}

/// An isotherm or an isobar. At the equilibrium it goes over the tie-line into the other phase,
/// unless its phase is to be continued. It starts in the phase asked for where both exist.
void line_over_equilibrium(CurveFrame& c, const std::optional<Equilibrium>& e, bool isobar) {
    const bool changes = e && !c.request.line.metastable;
    std::optional<bool> vapour;
    Steps loop = range(c, 1.0);
    for (double running; loop.next(running);) {
        if (!(running > 0)) continue;
        const double T = isobar ? running : c.T, p = isobar ? c.p : running;
        if (!changes) {
            const double v = volume_of_phase(c, T, p);
            if (v > 0) add_state(c, T, p, v);
            continue;
        }
        constexpr double kRounding = 1e-9;
        const double towards_vapour = isobar ? T / e->T - 1 : 1 - p / e->p;
        bool now = towards_vapour > 0;
        // A line that ends on the equilibrium stays in its phase.
        if (vapour && std::fabs(towards_vapour) < kRounding) now = *vapour;
        if (!vapour && has_both_phases(c, T, p)) now = c.request.line.vapour;
        if (vapour && *vapour != now) {
            add_state(c, e->T, e->p, now ? e->vL : e->vV);
            add_state(c, e->T, e->p, now ? e->vV : e->vL);
        }
        vapour = now;
        if (const auto v = volume_near(c, T, p, now ? e->vV : e->vL)) add_state(c, T, p, *v);
    }
    end_line(c, false);
}

}  // namespace

void process_isotherm(CurveFrame& c) {
    line_over_equilibrium(c, c.at_T, false);
}

void process_isobar(CurveFrame& c) {
    line_over_equilibrium(c, c.at_p, true);
}

void process_isochore(CurveFrame& c) {
    if (c.request.line.heterogeneous) return heterogeneous_line(c, Held::volume);
    const double v = volume_of_phase(c, c.request.line.T1, c.request.line.p1);
    if (!(v > 0)) return end_line(c, true);
    bool stopped = false;
    Steps loop = range(c, 1.0);
    for (double running; loop.next(running);) {
        if (c.request.line.range_is_T) {
            const auto p = c.pressure(running, v);
            if (p && *p > 0) add_state(c, running, *p, v);
            continue;
        }
        const auto T = models::temperature_from_p_rho(c.fluid, running, c.M / v, true);
        if (!T) {
            stopped = true;
            break;
        }
        add_state(c, *T, running, v);
    }
    end_line(c, stopped);
}

namespace {

/// A line of constant entropy or enthalpy, state by state.
class Isoline {
  public:
    Isoline(const CurveFrame& c, Function function, double value, double v)
        : c_(c), function_(function), value_(value), v_(v) {}

    double T() const { return T_; }
    double p() const { return p_; }
    double v() const { return v_; }

    /// Goes to the next value of what the range runs over; false where the line ends: no state has
    /// the value, or its phase is no more stable and is not to be continued.
    bool advance(double running) {
        if (const auto next = followed(running); next && is_allowed(*next)) return take(*next);
        const auto other = stable(running);
        return other && take(*other);
    }

    /// Goes to the end of the phase between the last value and one that it did not reach.
    bool advance_to_edge(double reached, double beyond) {
        constexpr int kHalvings = 40;
        std::optional<State> last;
        for (int i = 0; i < kHalvings; ++i) {
            const double middle = 0.5 * (reached + beyond);
            const auto next = followed(middle);
            const bool inside = next && is_allowed(*next, 0);
            if (inside) last = next;
            (inside ? reached : beyond) = middle;
        }
        return last && take(*last);
    }

  private:
    struct State {
        double T, p, v;
    };
    bool over_T() const { return c_.request.line.range_is_T; }

    bool take(const State& s) {
        T_ = s.T;
        p_ = s.p;
        v_ = s.v;
        return true;
    }

    std::optional<State> followed(double running) const {
        const auto found = over_T()
                               ? follow_isoline_pressure(c_, function_, running, value_, p_, v_)
                               : follow_isoline(c_, function_, running, value_, T_, v_);
        if (!found) return std::nullopt;
        const double T = over_T() ? running : *found, p = over_T() ? *found : running;
        const auto v = volume_near(c_, T, p, v_);
        return v ? std::optional(State{T, p, *v}) : std::nullopt;
    }

    std::optional<State> stable(double running) const {
        const auto found = over_T() ? solve_isoline_pressure(c_, function_, running, value_, p_)
                                    : solve_isoline(c_, function_, running, value_, T_);
        if (!found) return std::nullopt;
        const double T = over_T() ? running : *found, p = over_T() ? *found : running;
        // The volume is that of the phase in which the search found the value.
        const auto v = c_.stable_volume(T, p);
        return v ? std::optional(State{T, p, *v}) : std::nullopt;
    }

    /// Stable, if only within a tolerance of the area ratio, or to be continued.
    bool is_allowed(const State& s, double tolerance = 0.001) const {
        if (c_.request.line.metastable) return true;
        const auto state = models::solve_state_tp(c_.fluid, s.T, s.p);
        if (!state || state->root_count != 3) return state.operator bool();
        const double ratio = state->areas.ratio;
        return s.v > state->v[1] ? ratio > -tolerance : ratio < tolerance;
    }

    const CurveFrame& c_;
    Function function_;
    double value_, v_;
    double T_ = c_.request.line.T1, p_ = c_.request.line.p1;
};

}  // namespace

void process_isoline(CurveFrame& c) {
    const bool entropy = c.request.line.kind == ProcessKind::isentropic;
    if (c.request.line.heterogeneous)
        return heterogeneous_line(c, entropy ? Held::entropy : Held::enthalpy);

    const double T1 = c.request.line.T1, p1 = c.request.line.p1;
    const double v1 = volume_of_phase(c, T1, p1);
    const Function function = entropy ? Function::s : Function::h;
    const auto fixed = v1 > 0 ? value_of(c.functions(T1, p1, v1), function) : std::nullopt;
    if (!fixed) return end_line(c, true);

    const bool over_T = c.request.line.range_is_T;
    Isoline line(c, function, *fixed, v1);
    double reached = over_T ? T1 : p1;
    bool stopped = false;
    Steps loop = range(c, over_T ? 0.4 : 0.8);
    for (double running; loop.next(running);) {
        if (!line.advance(running)) {
            stopped = true;
            if (line.advance_to_edge(reached, running)) add_state(c, line.T(), line.p(), line.v());
            break;
        }
        add_state(c, line.T(), line.p(), line.v());
        reached = running;
    }
    end_line(c, stopped);
}

namespace {

/// The states that the polytropic program has given.
void draw_answer(CurveFrame& c) {
    for (const PolytropicPoint& point : c.request.line.polytropic_points) {
        if (!std::isfinite(point.T) || !std::isfinite(point.p)) continue;
        const double v = volume_of_phase(c, point.T, point.p);
        if (v > 0) add_state(c, point.T, point.p, v);
    }
    end_line(c, false);
}

}  // namespace

/// p v^n = const from the start state: the points of the polytropic program where it has been
/// asked, else the same line by the EOS itself.
void process_polytropic(CurveFrame& c) {
    constexpr double kRatioOfOne = 1.00001, kRatioOfNone = 0.00001;
    if (!c.request.line.polytropic_points.empty()) return draw_answer(c);

    const double n = c.request.line.polytropic_exponent;
    const double T1 = c.request.line.T1, p1 = c.request.line.p1;
    const double v1 = volume_of_phase(c, T1, p1);
    if (!(v1 > 0)) return end_line(c, true);
    const bool over_T = c.request.line.range_is_T;

    // Over T the exponent fixes v by one equation in v alone, between neighbouring volumes.
    const auto volume_at_T = [&](double T, double near) {
        double v = near;
        for (int i = 0; i < 100; ++i) {
            const auto p = c.pressure(T, v);
            const auto p_next = c.pressure(T, v * kRatioOfOne);
            if (!p || !p_next || !(*p > 0) || !(*p_next > 0)) return 0.0;
            const double f = std::log(*p / p1) + n * std::log(v / v1);
            const double f_next = std::log(*p_next / p1) + n * std::log(v * kRatioOfOne / v1);
            const double slope = (f_next - f) / std::log(kRatioOfOne);
            if (std::fabs(slope) < kRatioOfNone) return 0.0;
            const double step = -f / slope;
            if (!(std::fabs(step) < 1)) return 0.0;
            v *= std::exp(step);
            if (std::fabs(step) < 1e-12) return v;
        }
        return 0.0;
    };
    double v = v1;
    bool stopped = false;
    Steps loop = range(c, 1.5);
    for (double running; loop.next(running);) {
        double T = running, p = running;
        if (over_T) {
            v = volume_at_T(T, v);
            p = v > 0 ? c.pressure(T, v).value_or(0) : 0;
        } else {
            // n = 0 is the isobar; over p it has no second point.
            v = std::fabs(n) > kRatioOfNone ? v1 * std::pow(p1 / p, 1 / n) : 0;
            T = v > 0 ? models::temperature_from_p_rho(c.fluid, p, c.M / v, true).value_or(0) : 0;
        }
        if (!(T > 0) || !(p > 0) || !(v > 0)) {
            stopped = true;
            break;
        }
        add_state(c, T, p, v);
    }
    end_line(c, stopped);
}

}  // namespace quor::diagrams
