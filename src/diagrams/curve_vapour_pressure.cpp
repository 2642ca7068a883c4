#include "models/vapour_pressure.h"

#include <array>
#include <cmath>

#include "common/constants.h"
#include "diagrams/curve_kinds.h"
#include "models/enthalpy_of_vaporisation.h"

namespace quor::diagrams {

using constants::kPresent;

namespace {

/// p(LV) at T/K by the EOS or by the equation; 0 where there is none. `near` is a close pressure.
double saturation_pressure(const CurveFrame& c, double T, double near) {
    const models::ModelSelection& m = c.fluid.models();
    if (m.eos_has_priority && !m.vapour_only) {
        const auto e = equilibrium_at_T(c.fluid, T, near);
        return e ? e->p : 0;
    }
    const auto r = models::vapour_pressure(c.substance, T, m.vapour_pressure);
    return r ? r->p : 0;
}

/// Passes over 1/T from the critical point; gives T/K to the body.
template <class Body>
void over_inverse_T(CurveFrame& c, Body body) {
    const double start = 1 / (c.T_factor * c.substance.Tcrit);
    Steps loop = Steps::plain(start, c.x_max, c.dx).within(c.x_min, c.x_max);
    bool first = true;
    for (double x; loop.next(x);) {
        // The first pass is the critical temperature itself, not its rounded reciprocal.
        const double T = first && x == start ? c.substance.Tcrit : 1 / (c.T_factor * x);
        first = false;
        body(x, T);
    }
}

}  // namespace

void vapour_pressure_p_T(CurveFrame& c) {
    double p = 0;
    const double start = c.substance.Tcrit * c.T_factor;
    Steps loop = Steps::plain(start, c.x_min, -c.dx).within(c.x_min, c.x_max);
    for (double x; loop.next(x);) {
        const double T = x == start ? c.substance.Tcrit : x / c.T_factor;
        if (!(T > 0)) break;
        p = saturation_pressure(c, T, p);
        if (p > kPresent) c.add(x, p * c.p_factor, 0);
    }
    c.sort_by_x();
}

void vapour_pressure_logarithmic(CurveFrame& c) {
    constexpr double kLowest = 0.01;  // kPa
    double p = 0;
    over_inverse_T(c, [&](double x, double T) {
        p = saturation_pressure(c, T, p);
        if (p > kLowest) c.add(x, std::log(p * c.p_factor), 0);
    });
}

void vapour_pressure_slope(CurveFrame& c) {
    constexpr double kBelowAll = -37000;
    using enum models::VapourPressureEquation;
    constexpr std::array kWithMaximum = {frostKalkwarf, wagner, frostVanDerWaals,
                                         frostRedlichKwong};
    const models::VapourPressureEquation code = c.fluid.models().vapour_pressure;

    double largest = kBelowAll, x_largest = 0;
    over_inverse_T(c, [&](double x, double T) {
        const auto slope = models::vapour_pressure_slope(c.substance, T, code);
        if (!slope) return;
        c.add(x, *slope, 0);
        if (*slope <= largest) return;
        largest = *slope;
        x_largest = x;
    });

    const bool told =
        std::find(kWithMaximum.begin(), kWithMaximum.end(), code) != kWithMaximum.end();
    if (!told || !(x_largest > c.x_min) || largest > c.y_max) return;
    c.result.T_of_maximum = 1 / (c.T_factor * x_largest);
}

void heat_of_vaporisation(CurveFrame& c) {
    const models::ModelSelection& m = c.fluid.models();
    const models::VaporisationMethod method{
        .model = m.vaporisation, .equation = m.vapour_pressure, .reference = c.basis.benson};
    bool has_pressure = false;
    Steps loop = Steps::plain(c.x_max, c.x_min, -c.dx);
    for (double x; loop.next(x);) {
        const double T = x / c.T_factor;
        if (!(T > 0) || T > c.substance.Tcrit || !c.is_real_at_T(T)) continue;
        const auto r = models::enthalpy_of_vaporisation(c.fluid, method, T, {});
        if (!r.h) continue;
        has_pressure = has_pressure || r.p;
        c.add(x, *r.h * c.caloric(T), r.p.value_or(0));
    }
    c.result.parameter = has_pressure ? Parameter::p : Parameter::none;
    c.sort_by_x();
}

}  // namespace quor::diagrams
