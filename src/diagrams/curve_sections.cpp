#include <cmath>

#include "common/constants.h"
#include "diagrams/curve_kinds.h"
#include "models/cubic_eos.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"

namespace quor::diagrams {

using constants::R;

namespace {

constexpr int kVolumeSteps = 20000;  // of a metastable branch between v(L) and v(V)
constexpr double kLowestPressure = 1e-10;
constexpr double kLowestSubcritical = 0.01;

/// Is a volume of a subcritical isotherm part of the curve? The S-shaped curve takes all, the
/// stable one those outside of the dome, the metastable one those inside.
bool takes_volume(const CurveFrame& c, const Equilibrium& e, double v) {
    if (c.options.s_without_tie_line) return true;
    const bool stable = v <= e.vL || v >= e.vV;
    return stable != c.metastable();
}

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
    const Equilibrium& e = c.at_T;
    if (!e.found) return;
    Steps loop = Steps::plain(c.x_min, c.x_max, c.dx);
    for (double x; loop.next(x);) {
        const double p = std::fmax(x / c.p_factor, kLowestSubcritical);
        const auto roots = models::solve_cubic(e.state, c.T, p);
        if (!roots) continue;
        const bool vapour = roots->count == 3 && p <= e.p;
        add_over_p(c, p, vapour ? roots->v[2] : roots->v[0]);
    }
    add_over_p(c, e.p, e.vV);
    add_over_p(c, e.p, e.vL);
    c.sort_by_x();
}

/// The isotherm inside the dome, from the vapour to the liquid.
void metastable_isotherm_over_p(CurveFrame& c) {
    constexpr double kMoved = 0.5;  // of a step in x
    const Equilibrium& e = c.at_T;
    if (!e.found) return;
    double last = 0;
    bool first = true;
    Steps loop = Steps::plain(e.vV, e.vL, (e.vL - e.vV) / kVolumeSteps);
    for (double v; loop.next(v);) {
        const double p = models::cubic_pressure(e.state, c.T, v);
        if (!first && std::fabs(p - last) * c.p_factor < kMoved * c.dx) continue;
        add_over_p(c, p, v);
        last = p;
        first = false;
    }
    add_over_p(c, e.p, e.vL);
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
    const bool vapour = c.at_p.found && T > c.at_p.T && roots->count == 3;
    return vapour ? roots->v[2] : roots->v[0];
}

void metastable_isobar(CurveFrame& c) {
    const Equilibrium& e = c.at_p;
    if (!e.found) return;
    double last = 0;
    bool first = true;
    Steps loop = Steps::plain(e.vL, e.vV, (e.vV - e.vL) / kVolumeSteps);
    for (double v; loop.next(v);) {
        const double x = isobar_x(c, v);
        if (!first && std::fabs(x - last) < c.dx) continue;
        const auto T = models::temperature_from_p_rho(c.fluid, c.p, c.M / v, true);
        if (!T) continue;
        add_on_isobar(c, *T, v);
        last = x;
        first = false;
    }
    add_on_isobar(c, e.T, e.vV);
}

}  // namespace

void isotherm_p_v(CurveFrame& c) {
    const bool simple = c.vapour_only() || !c.subcritical_T();
    const Equilibrium& e = c.at_T;
    if (!simple && !e.found) return;
    Steps loop = Steps::plain(c.x_min, c.x_max, c.dx);
    for (double x; loop.next(x);) {
        const double v = x / c.v_factor;
        if (!simple && (v <= e.state.b || !takes_volume(c, e, v))) continue;
        if (const auto p = c.pressure(c.T, v)) c.add(x, *p * c.p_factor, c.T);
    }
    if (simple) return;
    c.add(e.vL * c.v_factor, e.p * c.p_factor, c.T);
    c.add(e.vV * c.v_factor, e.p * c.p_factor, c.T);
    c.sort_by_x();
}

void isotherm_over_p(CurveFrame& c) {
    if (c.vapour_only()) return virial_isotherm_over_p(c);
    if (!c.subcritical_T()) return supercritical_isotherm_over_p(c);
    if (c.metastable()) return metastable_isotherm_over_p(c);
    subcritical_isotherm_over_p(c);
}

void isobar_T_v(CurveFrame& c) {
    const bool has_dome = !c.vapour_only() && c.subcritical_p();
    if (has_dome && !c.at_p.found) return;
    if (has_dome && c.metastable()) return metastable_isobar(c);
    Steps loop = Steps::plain(c.y_min, c.y_max, c.dy);
    for (double y; loop.next(y);) {
        const double T = y / c.T_factor;
        if (!(T > 0) || !c.is_real_at_T(T)) continue;
        const auto v = isobar_volume(c, T);
        if (v > 0.0) add_on_isobar(c, T, *v);
    }
    if (has_dome) {
        add_on_isobar(c, c.at_p.T, c.at_p.vL);
        add_on_isobar(c, c.at_p.T, c.at_p.vV);
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
        pLV = by_eos ? equilibrium_at_T(c.fluid, T, pLV).p : correlated ? correlated->p : 0;
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
