#include "diagrams/equilibrium.h"

#include <cmath>

#include "models/cubic_eos.h"
#include "models/equal_fugacity.h"
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

std::optional<Equilibrium> equilibrium_of(const std::optional<models::Saturation>& s) {
    if (!s || !(s->p > 0)) return std::nullopt;
    return Equilibrium{s->T, s->p, s->v[0], s->v[2], s->state};
}

/// Where the law of the end of the dome takes over.
std::optional<Equilibrium> edge_of_law(const Fluid& f) {
    return equilibrium_of(
        models::saturation_pressure(f, f.substance().Tcrit * (1 - kCriticalShare)));
}

/// The end of the dome by the law that every cubic EOS follows there: the half width goes with the
/// root of Tcrit - T, its middle and p are linear in T.
std::optional<Equilibrium> near_critical(const Fluid& f, double T) {
    const double Tcrit = f.substance().Tcrit;
    const auto edge = edge_of_law(f);
    if (!edge) return std::nullopt;
    const double share = (1 - T / Tcrit) / kCriticalShare;
    const double vcrit = f.eos().vcrit_calculated;
    const double middle = vcrit + (0.5 * (edge->vL + edge->vV) - vcrit) * share;
    const double half = 0.5 * (edge->vV - edge->vL) * std::sqrt(share);
    const double p = f.substance().pcrit + (edge->p - f.substance().pcrit) * share;
    return Equilibrium{T, p, middle - half, middle + half, models::eos_at(f, T)};
}

}  // namespace

std::optional<Equilibrium> critical_point(const Fluid& f) {
    if (!has_equilibrium(f)) return std::nullopt;
    const double T = f.substance().Tcrit;
    return Equilibrium{T, f.substance().pcrit, f.eos().vcrit_calculated, f.eos().vcrit_calculated,
                       models::eos_at(f, T)};
}

std::optional<Equilibrium> equilibrium_at_T(const Fluid& f, double T, double p_start) {
    const double Tcrit = f.substance().Tcrit;
    if (!has_equilibrium(f) || !(T > 0) || T > Tcrit) return std::nullopt;
    if (T == Tcrit) return critical_point(f);
    if (1 - T / Tcrit < kCriticalShare) return near_critical(f, T);
    if (p_start > 0)
        if (const auto near = models::equilibrium_near_p(f, T, p_start))
            return equilibrium_of(near);
    return equilibrium_of(models::saturation_pressure(f, T));
}

std::optional<Equilibrium> equilibrium_at_p(const Fluid& f, double p, double T_start) {
    const double Tcrit = f.substance().Tcrit;
    const double pcrit = f.substance().pcrit;
    if (!has_equilibrium(f) || !(p > 0) || p > pcrit) return std::nullopt;
    if (p == pcrit) return critical_point(f);
    // In front of the law p changes by some seven times the share of T.
    if (p > (1 - 20 * kCriticalShare) * pcrit) {
        const auto edge = edge_of_law(f);
        if (edge && p > edge->p) {
            auto e =
                near_critical(f, Tcrit * (1 - kCriticalShare * (pcrit - p) / (pcrit - edge->p)));
            if (e) e->p = p;
            return e;
        }
    }
    if (T_start > 0 && T_start < Tcrit)
        if (const auto near = models::equilibrium_near_T(f, p, T_start))
            return equilibrium_of(near);
    return equilibrium_of(models::saturation_temperature(f, p));
}

}  // namespace quor::diagrams
