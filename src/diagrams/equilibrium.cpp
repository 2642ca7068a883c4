#include "diagrams/equilibrium.h"

#include <algorithm>
#include <cmath>

#include "models/cubic_eos.h"
#include "models/maxwell.h"
#include "models/saturation.h"

namespace quor::diagrams {

using models::Fluid;

namespace {

/// Closer to Tcrit than this share of it the loop of the isotherm drowns in rounding.
constexpr double kCriticalShare = 1e-5;

bool has_equilibrium(const Fluid& f) {
    return models::is_real_gas(f.models().eos) && !f.models().vapour_only &&
           f.substance().Tcrit > 0 && f.substance().pcrit > 0 && f.eos().vcrit_calculated > 0;
}

/// Newton steps on ln p towards equal areas: d(area)/d(ln p) = -p (vV - vL). False when p leaves
/// the loop of the isotherm.
bool refine(Equilibrium& e) {
    constexpr int kSteps = 30;
    constexpr double kTolerance = 1e-13;
    for (int i = 0; i < kSteps; ++i) {
        const auto roots = models::solve_cubic(e.state, e.T, e.p);
        if (!roots || roots->count != 3) return false;
        e.vL = roots->v[0];
        e.vV = roots->v[2];
        if (!(e.vL > e.state.b) || !(e.vV > e.vL)) return false;
        const auto areas = models::area_ratio(e.state, roots->v, e.T, e.p);
        if (!areas) return false;
        const double step = (areas->V + areas->L) / (e.p * (e.vV - e.vL));
        if (!(std::fabs(step) < 1.0)) return false;
        e.p *= std::exp(step);
        if (std::fabs(step) < kTolerance) return e.p > 0;
    }
    // Rounding keeps the last digits moving close to the critical point.
    return e.p > 0;
}

Equilibrium from_search(const Fluid& f, double T) {
    Equilibrium e;
    if (const auto found = models::saturation_pressure(f, T)) {
        e = {.T = T, .p = found->p, .state = found->state};
        if (e.p > 0 && refine(e)) {
            e.found = true;
            return e;
        }
    }
    const auto exact = models::maxwell_pressure(f, T);
    if (!exact) return {};
    return {T, exact->p, exact->v[0], exact->v[2], exact->state, true};
}

/// The end of the dome by the law that every cubic EOS follows there: the half width goes with the
/// root of Tcrit - T, its middle and p are linear in T.
Equilibrium near_critical(const Fluid& f, double T) {
    const double Tcrit = f.substance().Tcrit;
    const Equilibrium edge = from_search(f, Tcrit * (1 - kCriticalShare));
    if (!edge.found) return {};
    const double share = (1 - T / Tcrit) / kCriticalShare;
    const double vcrit = f.eos().vcrit_calculated;
    const double middle = vcrit + (0.5 * (edge.vL + edge.vV) - vcrit) * share;
    const double half = 0.5 * (edge.vV - edge.vL) * std::sqrt(share);
    const double p = f.substance().pcrit + (edge.p - f.substance().pcrit) * share;
    return {T, p, middle - half, middle + half, models::eos_at(f, T), true};
}

}  // namespace

Equilibrium critical_point(const Fluid& f) {
    if (!has_equilibrium(f)) return {};
    const double T = f.substance().Tcrit;
    return {T,
            f.substance().pcrit,
            f.eos().vcrit_calculated,
            f.eos().vcrit_calculated,
            models::eos_at(f, T),
            true};
}

Equilibrium equilibrium_at_T(const Fluid& f, double T, double p_start) {
    const double Tcrit = f.substance().Tcrit;
    if (!has_equilibrium(f) || !(T > 0) || T > Tcrit) return {};
    if (T == Tcrit) return critical_point(f);
    if (1 - T / Tcrit < kCriticalShare) return near_critical(f, T);
    if (p_start > 0) {
        Equilibrium e{.T = T, .p = p_start, .state = models::eos_at(f, T)};
        if (refine(e)) {
            e.found = true;
            return e;
        }
    }
    return from_search(f, T);
}

Equilibrium equilibrium_at_p(const Fluid& f, double p, double T_start) {
    constexpr int kSteps = 60;
    constexpr double kTolerance = 1e-13;
    const double Tcrit = f.substance().Tcrit;
    const double pcrit = f.substance().pcrit;
    if (!has_equilibrium(f) || !(p > 0) || p > pcrit) return {};
    if (p == pcrit) return critical_point(f);

    double T = T_start;
    if (!(T > 0) || T >= Tcrit) {
        const auto found = models::saturation_temperature(f, p);
        T = found ? found->T : 0;
    }
    if (!(T > 0) || T >= Tcrit) T = Tcrit * (1 - kCriticalShare);

    // ln p over 1/T is nearly straight, and steepest towards the critical point.
    double x = 1 / T;
    double slope = 0, x_last = 0, f_last = 0;
    Equilibrium e;
    for (int i = 0; i < kSteps; ++i) {
        e = equilibrium_at_T(f, 1 / x, p);
        if (!e.found) return {};
        const double excess = std::log(e.p / p);
        if (std::fabs(excess) < kTolerance) break;
        if (i == 0) {
            const double span = x - 1 / Tcrit;
            slope = span > 0 ? std::log(e.p / pcrit) / span : -7 * Tcrit;
        } else if (x != x_last && excess != f_last) {
            slope = (excess - f_last) / (x - x_last);
        }
        if (!(slope < 0)) return {};
        x_last = x;
        f_last = excess;
        x = std::clamp(x - excess / slope, 1 / Tcrit, 1.5 * x);
        if (x == x_last) break;
    }
    if (std::fabs(e.p / p - 1) > 1e-9) return {};
    e.p = p;
    return e;
}

}  // namespace quor::diagrams
