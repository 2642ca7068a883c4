#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "diagrams/curve_kinds.h"
#include "diagrams/refine.h"
#include "models/cubic_eos.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"

namespace quor::diagrams {

using constants::R;

namespace {

constexpr int kVolumeSteps = 20000;  // of a metastable branch between v(L) and v(V)
constexpr double kLowestPressure = 1e-10;
constexpr double kLowestSubcritical = 0.01;
constexpr double kLowestT = 0.1;  // K, of an isobar

/// The two ordinates of an isotherm over p: pv and rho.
void add_over_p(CurveFrame& c, double p, double v) {
    const bool is_product = c.axes.y == Axis::pv;
    c.add(p * c.p_factor, is_product ? p * c.p_factor * v * c.v_factor : c.M / v, c.T);
}

double upper_pressure(const CurveFrame& c) {
    const bool ends = c.partial_gas() && c.subcritical_T() && c.pLV_correlated;
    return ends ? *c.pLV_correlated * c.p_factor : c.x_max;
}

void virial_isotherm_over_p(CurveFrame& c) {
    models::EosState state;
    const double B = models::second_virial(c.fluid, c.T, state);
    Steps loop = Steps::clamped(c.x_min, upper_pressure(c), c.dx);
    for (double x; loop.next(x);) {
        const double p = std::fmax(x / c.p_factor, kLowestPressure);
        const double v = R * c.T / p + B;
        if (v > 0) add_over_p(c, p, v);
    }
}

void supercritical_isotherm_over_p(CurveFrame& c) {
    const models::EosState state = models::eos_at(c.fluid, c.T);
    Steps loop = Steps::plain(c.x_min, c.x_max, c.dx);
    for (double x; loop.next(x);) {
        const double p = std::fmax(x / c.p_factor, kLowestPressure);
        if (const auto roots = models::solve_cubic(state, c.T, p)) add_over_p(c, p, roots->v[0]);
    }
}

void subcritical_isotherm_over_p(CurveFrame& c) {
    const std::optional<Equilibrium>& e = c.at_T;
    if (!e) return;
    Steps loop = Steps::plain(c.x_min, c.x_max, c.dx);
    for (double x; loop.next(x);) {
        const double p = std::fmax(x / c.p_factor, kLowestSubcritical);
        const auto roots = models::solve_cubic(e->state, c.T, p);
        if (!roots) continue;
        const bool vapour = roots->count == 3 && p <= e->p;
        add_over_p(c, p, vapour ? roots->v[2] : roots->v[0]);
    }
    add_over_p(c, e->p, e->vV);
    add_over_p(c, e->p, e->vL);
    c.sort_by_x();
}

/// The isotherm inside the dome, from the vapour to the liquid.
void metastable_isotherm_over_p(CurveFrame& c) {
    constexpr double kMoved = 0.5;  // of a step in x
    const std::optional<Equilibrium>& e = c.at_T;
    if (!e) return;
    double last = 0;
    bool first = true;
    Steps loop = Steps::plain(e->vV, e->vL, (e->vL - e->vV) / kVolumeSteps);
    for (double v; loop.next(v);) {
        const double p = models::cubic_pressure(e->state, c.T, v);
        if (!first && std::fabs(p - last) * c.p_factor < kMoved * c.dx) continue;
        add_over_p(c, p, v);
        last = p;
        first = false;
    }
    add_over_p(c, e->p, e->vL);
}

/// The abscissa of an isobar: v or rho.
double isobar_x(const CurveFrame& c, double v) {
    return c.axes.x == Axis::v ? v * c.v_factor : c.M / v;
}

void add_on_isobar(CurveFrame& c, double T, double v) {
    c.add_tested_by_x(isobar_x(c, v), T * c.T_factor, c.p);
}

/// Volume of a stable state on the isobar; nothing where there is none.
std::optional<double> isobar_volume(const CurveFrame& c, double T) {
    if (c.vapour_only()) {
        models::EosState state;
        return R * T / c.p + models::second_virial(c.fluid, T, state);
    }
    const auto roots = models::solve_cubic(models::eos_at(c.fluid, T), T, c.p);
    if (!roots) return std::nullopt;
    const bool vapour = c.at_p && T > c.at_p->T && roots->count == 3;
    return vapour ? roots->v[2] : roots->v[0];
}

void metastable_isobar(CurveFrame& c) {
    const std::optional<Equilibrium>& e = c.at_p;
    if (!e) return;
    double last = 0;
    bool first = true;
    Steps loop = Steps::plain(e->vL, e->vV, (e->vV - e->vL) / kVolumeSteps);
    for (double v; loop.next(v);) {
        const double x = isobar_x(c, v);
        if (!first && std::fabs(x - last) < c.dx) continue;
        const auto T = models::temperature_from_p_rho(c.fluid, c.p, c.M / v, true);
        if (!T) continue;
        add_on_isobar(c, *T, v);
        last = x;
        first = false;
    }
    add_on_isobar(c, e->T, e->vV);
}

/// The volume at which an isotherm comes into the window from above; 0 where that has no state.
double volume_at_top(const CurveFrame& c) {
    const double p = c.y_max / c.p_factor;
    if (!(p > 0)) return 0;
    if (c.vapour_only()) {
        models::EosState state;
        return std::fmax(0.0, R * c.T / p + models::second_virial(c.fluid, c.T, state));
    }
    const models::EosState state = models::eos_at(c.fluid, c.T);
    const auto roots = models::solve_cubic(state, c.T, p);
    return roots && roots->v[0] > state.b ? roots->v[0] : state.b;
}

/// Parts of a piece of curve that takes a share of the window, which it may leave by far.
int parts_of(const CurveFrame& c, double share) {
    const int fewest = std::min(8, c.steps);
    return share < 1 ? std::max(static_cast<int>(c.steps * share), fewest) : c.steps;
}

/// The part of the isotherm in p-v between two volumes, in steps that follow its bend.
void add_isotherm(CurveFrame& c, double low, double high) {
    if (!(high > low)) return;
    const double window = (c.x_max - c.x_min) / c.v_factor;
    const int parts = parts_of(c, (high - low) / window);
    const auto place = [&](double v) -> std::optional<CurvePlace> {
        // On a steep liquid branch p would show the last digits of v.
        const bool end = c.at_T && (v == c.at_T->vL || v == c.at_T->vV);
        const auto p = end ? std::optional(c.at_T->p) : c.pressure(c.T, v);
        if (!p) return std::nullopt;
        return CurvePlace{v * c.v_factor, *p * c.p_factor};
    };
    add_refined(c, low, high, parts, place, [&](double, const CurvePlace& at) {
        // Two parts share the end between them.
        const bool again = !c.points.empty() && c.points.back().x == numbers::to_single(at.x) &&
                           c.points.back().y == numbers::to_single(at.y);
        if (!again) c.add(at.x, at.y, c.T);
    });
}

/// The part of the isobar between two temperatures, in steps that follow its bend.
template <class Volume>
void add_isobar(CurveFrame& c, double low, double high, Volume volume) {
    if (!(high > low)) return;
    const double window = (c.y_max - c.y_min) / c.T_factor;
    const int parts = parts_of(c, (high - low) / window);
    const auto place = [&](double T) -> std::optional<CurvePlace> {
        const std::optional<double> v = volume(T);
        if (!(v > 0.0)) return std::nullopt;
        return CurvePlace{isobar_x(c, *v), T * c.T_factor};
    };
    add_refined(c, low, high, parts, place, [&](double T, const CurvePlace& at) {
        if (c.is_real_at_T(T)) c.add_tested_by_x(at.x, at.y, c.p);
    });
}

}  // namespace

void isotherm_p_v(CurveFrame& c) {
    const bool simple = c.vapour_only() || !c.subcritical_T();
    const std::optional<Equilibrium>& e = c.at_T;
    if (!simple && !e) return;
    const double low = std::fmax(c.x_min / c.v_factor, volume_at_top(c));
    const double high = c.x_max / c.v_factor;
    if (simple) return add_isotherm(c, low, high);
    if (c.options.s_without_tie_line) {
        add_isotherm(c, low, std::fmin(e->vL, high));
        add_isotherm(c, std::fmax(e->vL, low), std::fmin(e->vV, high));
        add_isotherm(c, std::fmax(e->vV, low), high);
    } else if (c.metastable()) {
        add_isotherm(c, e->vL, e->vV);
    } else {
        if (low < e->vL) add_isotherm(c, low, e->vL);
        if (!(low < e->vL)) c.add(e->vL * c.v_factor, e->p * c.p_factor, c.T);
        if (!(e->vV < high)) c.add(e->vV * c.v_factor, e->p * c.p_factor, c.T);
        if (e->vV < high) add_isotherm(c, e->vV, high);
    }
}

void isotherm_over_p(CurveFrame& c) {
    if (c.vapour_only()) return virial_isotherm_over_p(c);
    if (!c.subcritical_T()) return supercritical_isotherm_over_p(c);
    if (c.metastable()) return metastable_isotherm_over_p(c);
    subcritical_isotherm_over_p(c);
}

void isobar_T_v(CurveFrame& c) {
    const bool has_dome = !c.vapour_only() && c.subcritical_p();
    if (has_dome && !c.at_p) return;
    if (has_dome && c.metastable()) return metastable_isobar(c);
    double low = std::fmax(c.y_min / c.T_factor, kLowestT);
    if (c.real_range_only()) low = std::fmax(low, static_cast<double>(c.substance.Ttriple));
    const double high = c.y_max / c.T_factor;
    const auto volume = [&](double T) { return isobar_volume(c, T); };
    if (!has_dome) {
        add_isobar(c, low, high, volume);
    } else {
        const std::optional<Equilibrium>& e = c.at_p;
        add_isobar(c, low, std::fmin(e->T, high),
                   [&](double T) { return T == e->T ? std::optional(e->vL) : volume(T); });
        if (!(low < e->T)) add_on_isobar(c, e->T, e->vL);
        if (!(e->T < high)) add_on_isobar(c, e->T, e->vV);
        add_isobar(c, std::fmax(e->T, low), high,
                   [&](double T) { return T == e->T ? std::optional(e->vV) : volume(T); });
    }
    c.sort_by_x();
}

void isochore_p_T(CurveFrame& c) {
    const double vcrit = c.fluid.eos().vcrit_calculated;
    const bool by_eos = c.fluid.models().eos_has_priority;
    double pLV = 0;
    Steps loop = Steps::clamped(c.x_max, c.x_min, -c.dx);
    for (double x; loop.next(x);) {
        const double T = x / c.T_factor;
        if (!(T > 0)) break;
        if (!c.is_real_at_T(T)) break;
        const auto p = c.pressure(T, c.v);
        if (!p) continue;
        const auto correlated =
            by_eos ? std::nullopt
                   : models::vapour_pressure(c.substance, T, c.fluid.models().vapour_pressure);
        const auto e = by_eos ? equilibrium_at_T(c.fluid, T, pLV) : std::nullopt;
        pLV = e ? e->p : correlated ? correlated->p : 0;
        const bool reached = c.options.real_range_only && pLV > 0 &&
                             ((c.v > vcrit && *p > pLV) || (c.v < vcrit && *p < pLV));
        if (reached) {
            c.add(x, pLV * c.p_factor, c.v);
            break;
        }
        if (*p > constants::kPresent) c.add(x, *p * c.p_factor, c.v);
    }
}

}  // namespace quor::diagrams
