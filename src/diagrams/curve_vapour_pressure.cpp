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
    if (m.PriorityCEOS && !m.EOSOnlyV) return equilibrium_at_T(c.fluid, T, near).p;
    return models::vapour_pressure(c.substance, T, m.VPModel).p;
}

/// Passes over 1/T from the critical point; gives T/K to the body.
template <class Body>
void over_inverse_T(CurveFrame& c, Body body) {
    const double start = 1 / (c.TF * c.substance.Tcrit);
    Steps loop = Steps::plain(start, c.xMax, c.dX).within(c.xMin, c.xMax);
    bool first = true;
    for (double x; loop.next(x);) {
        // The first pass is the critical temperature itself, not its rounded reciprocal.
        const double T = first && x == start ? c.substance.Tcrit : 1 / (c.TF * x);
        first = false;
        body(x, T);
    }
}

}  // namespace

void vapour_pressure_p_T(CurveFrame& c) {
    double p = 0;
    const double start = c.substance.Tcrit * c.TF;
    Steps loop = Steps::plain(start, c.xMin, -c.dX).within(c.xMin, c.xMax);
    for (double x; loop.next(x);) {
        const double T = x == start ? c.substance.Tcrit : x / c.TF;
        if (!(T > 0)) break;
        p = saturation_pressure(c, T, p);
        if (p > kPresent) c.add(x, p * c.PF, 0);
    }
    c.sort_by_x();
}

void vapour_pressure_logarithmic(CurveFrame& c) {
    constexpr double kLowest = 0.01;  // kPa
    double p = 0;
    over_inverse_T(c, [&](double x, double T) {
        p = saturation_pressure(c, T, p);
        if (p > kLowest) c.add(x, std::log(p * c.PF), 0);
    });
}

void vapour_pressure_slope(CurveFrame& c) {
    constexpr double kBelowAll = -37000;
    using enum models::VapourPressureEquation;
    constexpr std::array kWithMaximum = {frostKalkwarf, wagner, frostVanDerWaals,
                                         frostRedlichKwong};
    const models::VapourPressureEquation code = c.fluid.models().VPModel;

    double largest = kBelowAll, xLargest = 0;
    over_inverse_T(c, [&](double x, double T) {
        const models::SlopeResult r = models::vapour_pressure_slope(c.substance, T, code);
        if (r.status != kSuccess) return;
        c.add(x, r.slope, 0);
        if (r.slope <= largest) return;
        largest = r.slope;
        xLargest = x;
    });

    const bool told =
        std::find(kWithMaximum.begin(), kWithMaximum.end(), code) != kWithMaximum.end();
    if (!told || !(xLargest > c.xMin) || largest > c.yMax) return;
    c.result.TOfMaximum = 1 / (c.TF * xLargest);
}

void heat_of_vaporisation(CurveFrame& c) {
    const models::ModelSelection& m = c.fluid.models();
    const models::VaporisationMethod method{
        .model = m.HLVModel, .vpCode = m.VPModel, .reference = c.basis.benson};
    bool hasPressure = false;
    Steps loop = Steps::plain(c.xMax, c.xMin, -c.dX);
    for (double x; loop.next(x);) {
        const double T = x / c.TF;
        if (!(T > 0) || T > c.substance.Tcrit || !c.is_real_at_T(T)) continue;
        const auto r = models::enthalpy_of_vaporisation(c.fluid, method, T, 0);
        if (r.status != kSuccess) continue;
        hasPressure = hasPressure || r.p > 0;
        c.add(x, r.h * c.caloric(T), r.p > 0 ? r.p : 0);
    }
    c.result.parameter = hasPressure ? Parameter::p : Parameter::none;
    c.sort_by_x();
}

}  // namespace quor::diagrams
