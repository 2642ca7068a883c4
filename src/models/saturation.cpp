#include "models/saturation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/equal_fugacity.h"
#include "models/maxwell.h"
#include "models/vapour_pressure.h"

namespace quor::models {

namespace {

bool equal_as_single(double a, double b) {
    return static_cast<float>(a) == static_cast<float>(b);
}

/// The critical point as a saturation state. The volume slots carry 1/rhocritCalc, the reciprocal
/// of a mass density, on purpose: callers there read T and p only.
Saturation critical_state(const Fluid& f) {
    Saturation r;
    r.T = f.substance().Tcrit;
    r.p = f.substance().pcrit;
    r.root_count = 3;
    if (f.eos().rhocrit_calculated > 0)
        r.v = {1 / f.eos().rhocrit_calculated, 0, 1 / f.eos().rhocrit_calculated};
    r.state = eos_at(f, r.T);
    return r;
}

bool has_no_equilibrium(const Fluid& f) {
    return f.equation().eos == Eos::none || f.models().vapour_only;
}

/// One trial of a search: the roots and, with three of them, the areas.
struct Trial {
    CubicRoots roots;
    Areas areas;
};

std::optional<Trial> try_state(const EosState& s, double T, double p) {
    const std::optional<CubicRoots> roots = solve_cubic(s, T, p);
    if (!roots || !(roots->v[0] > s.b)) return std::nullopt;
    if (roots->count != 3) return Trial{*roots, {}};
    const std::optional<Areas> areas = area_ratio(s, roots->v, T, p);
    return areas ? std::optional(Trial{*roots, *areas}) : std::nullopt;
}

void take(Saturation& r, const Trial& t) {
    r.v = t.roots.v;
    r.root_count = t.roots.count;
    r.areas = t.areas;
}

double start_pressure(const Fluid& f, double T) {
    double p = 0;
    if (const auto correlated = vapour_pressure(f.substance(), T, f.models().vapour_pressure))
        p = correlated->p;
    if (p < 1e-6) p = std::exp(T * std::log(f.substance().pcrit) / f.substance().Tcrit);
    return p;
}

/// What differs between the searches for p at T and for T at p.
struct SecantConstants {
    int cap;                        ///< of the rounds
    double area_tolerance;          ///< of the area ratio
    double smallest_relative_step;  ///< below it the search stands still
    double smallest_step;           ///< a first step below it becomes `kFirstStep` of the unknown
    double slope_guard;             ///< area ratios that differ by less give no secant
    double passed;                  ///< a product of two sides below it: the loop was passed
    double longest_step;            ///< of a secant, of the unknown
    double towards;                 ///< sign of the step that a positive area ratio asks for
    bool forgets_single_roots;      ///< three roots end a run of single ones
};
constexpr SecantConstants kForPressure{.cap = 300,
                                       .area_tolerance = 1e-5,
                                       .smallest_relative_step = 1e-10,
                                       .smallest_step = 1e-5,
                                       .slope_guard = 1e-11,
                                       .passed = 1e-6,
                                       .longest_step = std::numeric_limits<double>::infinity(),
                                       .towards = 1,
                                       .forgets_single_roots = false};
constexpr SecantConstants kForTemperature{.cap = 200,
                                          .area_tolerance = 5e-5,
                                          .smallest_relative_step = 1e-12,
                                          .smallest_step = 1e-9,
                                          .slope_guard = 1e-7,
                                          .passed = 0,
                                          .longest_step = 0.01,
                                          .towards = -1,
                                          .forgets_single_roots = true};
constexpr double kRestart = 0.01;
constexpr double kFirstStep = 0.01;  // of the unknown
constexpr double kDamping = 0.1;
constexpr double kLost = 1e-10;

/// The unknown of a search and its next step.
class Secant {
  public:
    Secant(const SecantConstants& constants, double start) : k_(constants), x_(start) {}

    double x() const { return x_; }
    bool is_at(double ratio) const {
        return three_roots_ > 0 && std::fabs(ratio) < k_.area_tolerance;
    }

    /// A trial with the single root v lies outside the loop of the isotherm: towards it.
    void aim_at_loop(double v, double vcrit) {
        const bool liquid_like = v < vcrit;
        const double side = liquid_like ? -1 : v;
        if (++one_root_ == 1) {
            step_ *= kDamping;
            if (std::fabs(step_) < k_.smallest_step) step_ = kFirstStep * x_;
        } else if (side * previous_side_ < k_.passed) {
            step_ *= kDamping;
        }
        step_ = (liquid_like ? -k_.towards : k_.towards) * std::fabs(step_);
        previous_side_ = side;
    }

    /// By the areas between three roots. False when the search stands still.
    bool aim_at_equal_areas(double ratio) {
        if (k_.forgets_single_roots) one_root_ = 0;
        if (++three_roots_ == 1) {
            set_first_step(ratio);
        } else {
            set_secant_step(ratio);
            if (std::fabs(step_ / x_) < k_.smallest_relative_step) return false;
        }
        previous_x_ = x_;
        previous_ratio_ = ratio;
        return true;
    }

    /// Takes the step. False where it leads nowhere.
    bool advance() {
        x_ += step_;
        return std::isfinite(x_);
    }

    /// Begins anew at a small value where the steps led below zero.
    void restart_if_lost() {
        if (x_ >= kLost) return;
        x_ = kRestart / ++restarts_;
        step_ = kDamping * (previous_x_ - x_);
    }

  private:
    void set_first_step(double ratio) {
        if (std::fabs(step_) < k_.smallest_step) step_ = kFirstStep * x_;
        if (ratio < 0) step_ = -k_.towards * std::fabs(step_);
        if (ratio > 0) step_ = k_.towards * std::fabs(step_);
    }
    void set_secant_step(double ratio) {
        const double change = ratio - previous_ratio_;
        if (std::fabs(change) > k_.slope_guard) {
            step_ = -(x_ - previous_x_) * ratio / change;
            const double limit = k_.longest_step * x_;
            if (std::fabs(step_) > limit) step_ = std::copysign(limit, step_);
        } else {
            step_ = change * k_.towards < 0 ? -kFirstStep * x_ : kFirstStep * x_;
        }
    }

    const SecantConstants& k_;
    double x_, step_ = 0;
    double previous_x_ = 0, previous_ratio_ = 0, previous_side_ = 0;
    int one_root_ = 0, three_roots_ = 0, restarts_ = 0;
};

/// A search that has ended: where it stood, and whether that is the equilibrium.
struct Searched {
    Saturation at;
    bool found = false;
};

Searched found_at(Saturation r, double Saturation::*unknown, double x) {
    r.*unknown = x;
    return {r, true};
}

std::optional<Saturation> if_found(const Searched& s) {
    return s.found ? std::optional(s.at) : std::nullopt;
}

/// The search for `unknown`, T or p, from a start; `r` holds the other of the two, and a, b, c, d
/// where T is given. `critical` is the critical value of the unknown.
Searched search_by_secant(const Fluid& f, const SecantConstants& k, Saturation r,
                          double Saturation::*unknown, double start, double critical) {
    const bool seeks_T = unknown == &Saturation::T;
    Secant secant(k, start);
    while (++r.rounds <= k.cap) {
        const double x = secant.x();
        if (seeks_T) r.state = eos_at(f, x, r.state);
        const std::optional<Trial> t =
            seeks_T ? try_state(r.state, x, r.p) : try_state(r.state, r.T, x);
        if (!t) return {r};
        take(r, *t);
        if (t->roots.count == 1) {
            secant.aim_at_loop(t->roots.v[0], f.eos().vcrit_calculated);
        } else {
            if (secant.is_at(t->areas.ratio)) return found_at(r, unknown, x);
            if (!secant.aim_at_equal_areas(t->areas.ratio)) return {r};
        }
        if (!secant.advance()) return {r};
        if (equal_as_single(secant.x(), critical)) return found_at(r, unknown, secant.x());
        secant.restart_if_lost();
    }
    return {r};
}

Searched search_pressure(const Fluid& f, double T) {
    if (T == f.substance().Tcrit) return {critical_state(f), true};
    Saturation r;
    r.T = T;
    r.state = eos_at(f, T);
    if (T >= f.substance().Tcrit || has_no_equilibrium(f)) return {r};
    return search_by_secant(f, kForPressure, r, &Saturation::p, start_pressure(f, T),
                            f.substance().pcrit);
}

double start_temperature(const Fluid& f, double p) {
    return std::log(p) * f.substance().Tcrit / std::log(f.substance().pcrit);
}

/// At small pressures the isotherms are too steep for the secant: march down in T and turn round
/// with a tenth of the step at each change of the stable phase.
Searched search_temperature_by_marching(const Fluid& f, double p) {
    constexpr int kCap = 100000;
    constexpr double kAreaTolerance = 0.0002;
    constexpr double kSmallestStep = 0.0005;

    Saturation r;
    r.p = p;
    double step = (f.substance().pcrit - p) / 100;
    double T = f.substance().Tcrit + step;
    double previous_ratio = p;
    while (++r.rounds <= kCap) {
        T -= step;
        if (T <= 0) {
            T += step;
            step *= 0.1;
            continue;
        }
        r.state = eos_at(f, T, r.state);
        const std::optional<Trial> t = try_state(r.state, T, p);
        if (!t) return {r};
        take(r, *t);
        if (t->roots.count == 1) continue;
        const double ratio = t->areas.ratio;
        const bool same_sign = (ratio < 0) == (previous_ratio < 0);
        previous_ratio = ratio;
        if (same_sign) continue;
        step *= -0.1;
        if (std::fabs(ratio) < kAreaTolerance || std::fabs(step) < kSmallestStep) {
            if (T < constants::kPresent) return {r};
            return found_at(r, &Saturation::T, T);
        }
    }
    return {r};
}

Searched search_temperature(const Fluid& f, double p, double Tstart) {
    constexpr double kSteepIsotherms = 0.02;  // of pcrit
    if (!has_no_equilibrium(f) && p == f.substance().pcrit) return {critical_state(f), true};
    Saturation r;
    r.p = p;
    if (!(p > 0) || p > f.substance().pcrit || has_no_equilibrium(f)) return {r};
    if (p / f.substance().pcrit < kSteepIsotherms) return search_temperature_by_marching(f, p);
    const double start = Tstart != 0 ? Tstart : start_temperature(f, p);
    return search_by_secant(f, kForTemperature, r, &Saturation::T, start, f.substance().Tcrit);
}

/// An equilibrium to the last digits, with the rounds of the search before it.
/// Nothing for a search that ran into constants that are no numbers.
std::optional<Saturation> if_finite(const Saturation& s) {
    const bool finite =
        std::isfinite(s.T) && std::isfinite(s.p) &&
        std::all_of(s.v.begin(), s.v.end(), [](double v) { return std::isfinite(v); });
    return finite ? std::optional(s) : std::nullopt;
}

std::optional<Saturation> of_search(std::optional<Saturation> exact, const Searched& search) {
    if (exact) exact = if_finite(*exact);
    if (!exact) return exact;
    exact->rounds = search.at.rounds;
    exact->fallback = !search.found;
    return exact;
}

}  // namespace

std::optional<Saturation> search_saturation_pressure(const Fluid& f, double T) {
    return if_found(search_pressure(f, T));
}

std::optional<Saturation> search_saturation_temperature(const Fluid& f, double p, double Tstart) {
    return if_found(search_temperature(f, p, Tstart));
}

std::optional<Saturation> saturation_pressure(const Fluid& f, double T) {
    const Searched r = search_pressure(f, T);
    if (T == f.substance().Tcrit) return if_finite(r.at);
    if (has_no_equilibrium(f) || !(T > 0) || !(T < f.substance().Tcrit)) return std::nullopt;
    std::optional<Saturation> exact;
    if (r.found) exact = equilibrium_near_p(f, T, r.at.p);
    if (!exact) exact = maxwell_pressure(f, T);
    return of_search(exact, r);
}

std::optional<Saturation> saturation_temperature(const Fluid& f, double p, double Tstart) {
    const Searched r = search_temperature(f, p, Tstart);
    if (has_no_equilibrium(f) || !(p > 0) || p > f.substance().pcrit) return std::nullopt;
    if (p == f.substance().pcrit) return if_finite(r.at);
    std::optional<Saturation> exact;
    if (r.found) exact = equilibrium_near_T(f, p, r.at.T);
    if (!exact) exact = maxwell_temperature(f, p);
    return of_search(exact, r);
}

}  // namespace quor::models
