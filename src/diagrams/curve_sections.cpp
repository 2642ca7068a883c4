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
    if (c.options.sWithoutTieLine) return true;
    const bool stable = v <= e.vL || v >= e.vV;
    return stable != c.metastable();
}

/// The two ordinates of an isotherm over p: pv and rho.
void add_over_p(CurveFrame& c, double p, double v) {
    const bool isProduct = c.axes.y == Axis::pv;
    c.add(p * c.PF, isProduct ? p * c.PF * v * c.VF : c.M / v, c.T);
}

double upper_pressure(const CurveFrame& c) {
    const bool ends = c.partial_gas() && c.subcritical_T() && c.pLVCorr > 0;
    return ends ? c.pLVCorr * c.PF : c.xMax;
}

void virial_isotherm_over_p(CurveFrame& c) {
    models::EOSState state;
    const double B = models::second_virial(c.fluid, c.T, state);
    Steps loop = Steps::clamped(c.xMin, upper_pressure(c), c.dX);
    for (double x; loop.next(x);) {
        const double p = std::fmax(x / c.PF, kLowestPressure);
        const double v = R * c.T / p + B;
        if (v > 0) add_over_p(c, p, v);
    }
}

void supercritical_isotherm_over_p(CurveFrame& c) {
    const models::EOSState state = models::eos_at(c.fluid, c.T);
    Steps loop = Steps::plain(c.xMin, c.xMax, c.dX);
    for (double x; loop.next(x);) {
        const double p = std::fmax(x / c.PF, kLowestPressure);
        const models::CubicRoots roots = models::solve_cubic(state, c.T, p);
        if (roots.status == kSuccess) add_over_p(c, p, roots.v[0]);
    }
}

void subcritical_isotherm_over_p(CurveFrame& c) {
    const Equilibrium& e = c.atT;
    if (!e.found) return;
    Steps loop = Steps::plain(c.xMin, c.xMax, c.dX);
    for (double x; loop.next(x);) {
        const double p = std::fmax(x / c.PF, kLowestSubcritical);
        const models::CubicRoots roots = models::solve_cubic(e.state, c.T, p);
        if (roots.status != kSuccess) continue;
        const bool vapour = roots.count == 3 && p <= e.p;
        add_over_p(c, p, vapour ? roots.v[2] : roots.v[0]);
    }
    add_over_p(c, e.p, e.vV);
    add_over_p(c, e.p, e.vL);
    c.sort_by_x();
}

/// The isotherm inside the dome, from the vapour to the liquid.
void metastable_isotherm_over_p(CurveFrame& c) {
    constexpr double kMoved = 0.5;  // of a step in x
    const Equilibrium& e = c.atT;
    if (!e.found) return;
    double last = 0;
    bool first = true;
    Steps loop = Steps::plain(e.vV, e.vL, (e.vL - e.vV) / kVolumeSteps);
    for (double v; loop.next(v);) {
        const double p = models::cubic_pressure(e.state, c.T, v);
        if (!first && std::fabs(p - last) * c.PF < kMoved * c.dX) continue;
        add_over_p(c, p, v);
        last = p;
        first = false;
    }
    add_over_p(c, e.p, e.vL);
}

/// The abscissa of an isobar: v or rho.
double isobar_x(const CurveFrame& c, double v) {
    return c.axes.x == Axis::v ? v * c.VF : c.M / v;
}

void add_on_isobar(CurveFrame& c, double T, double v) {
    c.add_tested_by_x(isobar_x(c, v), T * c.TF, c.p);
}

/// Volume of a stable state on the isobar; 0 where there is none.
double isobar_volume(const CurveFrame& c, double T) {
    if (c.vapour_only()) {
        models::EOSState state;
        return R * T / c.p + models::second_virial(c.fluid, T, state);
    }
    const models::CubicRoots roots = models::solve_cubic(models::eos_at(c.fluid, T), T, c.p);
    if (roots.status != kSuccess) return 0;
    const bool vapour = c.atP.found && T > c.atP.T && roots.count == 3;
    return vapour ? roots.v[2] : roots.v[0];
}

void metastable_isobar(CurveFrame& c) {
    const Equilibrium& e = c.atP;
    if (!e.found) return;
    double last = 0;
    bool first = true;
    Steps loop = Steps::plain(e.vL, e.vV, (e.vV - e.vL) / kVolumeSteps);
    for (double v; loop.next(v);) {
        const double x = isobar_x(c, v);
        if (!first && std::fabs(x - last) < c.dX) continue;
        const models::TemperatureResult r =
            models::temperature_from_p_rho(c.fluid, c.p, c.M / v, true);
        if (!(r.T > 0)) continue;
        add_on_isobar(c, r.T, v);
        last = x;
        first = false;
    }
    add_on_isobar(c, e.T, e.vV);
}

}  // namespace

void isotherm_p_v(CurveFrame& c) {
    const bool simple = c.vapour_only() || !c.subcritical_T();
    const Equilibrium& e = c.atT;
    if (!simple && !e.found) return;
    Steps loop = Steps::plain(c.xMin, c.xMax, c.dX);
    for (double x; loop.next(x);) {
        const double v = x / c.VF;
        if (!simple && (v <= e.state.eosB || !takes_volume(c, e, v))) continue;
        if (const auto p = c.pressure(c.T, v)) c.add(x, *p * c.PF, c.T);
    }
    if (simple) return;
    c.add(e.vL * c.VF, e.p * c.PF, c.T);
    c.add(e.vV * c.VF, e.p * c.PF, c.T);
    c.sort_by_x();
}

void isotherm_over_p(CurveFrame& c) {
    if (c.vapour_only()) return virial_isotherm_over_p(c);
    if (!c.subcritical_T()) return supercritical_isotherm_over_p(c);
    if (c.metastable()) return metastable_isotherm_over_p(c);
    subcritical_isotherm_over_p(c);
}

void isobar_T_v(CurveFrame& c) {
    const bool hasDome = !c.vapour_only() && c.subcritical_p();
    if (hasDome && !c.atP.found) return;
    if (hasDome && c.metastable()) return metastable_isobar(c);
    Steps loop = Steps::plain(c.yMin, c.yMax, c.dY);
    for (double y; loop.next(y);) {
        const double T = y / c.TF;
        if (!(T > 0) || !c.is_real_at_T(T)) continue;
        const double v = isobar_volume(c, T);
        if (v > 0) add_on_isobar(c, T, v);
    }
    if (hasDome) {
        add_on_isobar(c, c.atP.T, c.atP.vL);
        add_on_isobar(c, c.atP.T, c.atP.vV);
    }
    c.sort_by_x();
}

void isochore_p_T(CurveFrame& c) {
    const double vcrit = c.fluid.eos().vcritCalc;
    const bool byEOS = c.fluid.models().PriorityCEOS;
    double pLV = 0;
    Steps loop = Steps::clamped(c.xMax, c.xMin, -c.dX);
    for (double x; loop.next(x);) {
        const double T = x / c.TF;
        if (!(T > 0)) break;
        if (!c.is_real_at_T(T)) break;
        const auto p = c.pressure(T, c.v);
        if (!p) continue;
        pLV = byEOS ? equilibrium_at_T(c.fluid, T, pLV).p
                    : models::vapour_pressure(c.substance, T, c.fluid.models().VPModel).p;
        const bool reached = c.options.realRangeOnly && pLV > 0 &&
                             ((c.v > vcrit && *p > pLV) || (c.v < vcrit && *p < pLV));
        if (reached) {
            c.add(x, pLV * c.PF, c.v);
            break;
        }
        if (*p > constants::kPresent) c.add(x, *p * c.PF, c.v);
    }
}

}  // namespace quor::diagrams
