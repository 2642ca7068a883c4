#include "diagrams/coordinates.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "diagrams/database_functions.h"
#include "models/caloric.h"

namespace quor::diagrams {

namespace {

using constants::kPresent;

float single(double value) {
    return numbers::to_single(value);
}

void set_function_limits(CoordinateDefaults& d, std::int16_t mode, double factor) {
    // Values of view, of conventional states and of formation lie in different regions.
    if (mode == 1) {
        d.funcMax = single(50000 * factor);
        d.funcMin = single(-50000 * factor);
        d.entropyMax = single(250 * factor);
        d.entropyMin = single(-250 * factor);
    } else if (mode == 2 || mode == 10) {
        d.funcMax = 0;
        d.funcMin = single(-300000 * factor);
        d.entropyMax = single(200 * factor);
        d.entropyMin = single(-250 * factor);
    }
}

void set_temperature_limits(CoordinateDefaults& d, const models::Fluid& fluid, double TF,
                            bool renewed) {
    const double Tcrit = fluid.substance().Tcrit;
    const auto Ttriple = static_cast<double>(fluid.substance().Ttriple);
    if (d.TMax == 0 || renewed) d.TMax = single(TF * Tcrit * 1.1);
    if (d.TMin == 0 || renewed)
        d.TMin = single(TF * Ttriple * (fluid.models().EOSOnlyV ? 0.3 : 1.0));
    if (static_cast<double>(d.TMin) < kPresent) d.TMin = single(0.5 * Tcrit * TF);
    d.TMaxResidual = std::max(d.TMax, single(300 * TF));

    // 5 K below the triple point; below 5 K there is nothing left of it.
    const double low = Ttriple - 5;
    d.invTMax = single(Ttriple > kPresent && low > 0 ? 1 / (TF * low) : 2.3 / (TF * Tcrit));
    d.invTMin = single(1 / (TF * (Tcrit + 10)));
}

double molar_cp_limit(const models::Fluid& fluid) {
    constexpr double kWithoutForm = 50;  // kJ/(kmol K)
    const models::SubstanceRecord& s = fluid.substance();
    const models::CpResult ideal = models::ideal_gas_cp(s, fluid.models().CpModel, s.Tcrit);
    return ideal.status == kSuccess ? ideal.cp : kWithoutForm;
}

void widen(double& low, double& high) {
    constexpr double kMargin = 0.05;
    const double margin = kMargin * (high - low);
    low -= margin;
    high += margin;
}

ProposedWindow database_window(const Diagram& diagram, const Basis& basis) {
    const Validity validity = validity_of(diagram, basis.fluid);
    const ValueRange values = value_range_of(diagram, basis);
    double xLow = validity.low, xHigh = validity.high;
    double yLow = values.low, yHigh = values.high;
    widen(xLow, xHigh);
    widen(yLow, yHigh);
    const double TF = basis.TF();
    return {{single(xLow * TF), single(xHigh * TF), single(yLow), single(yHigh)}, validity};
}

}  // namespace

CoordinateDefaults coordinate_defaults(const Basis& basis, const CoordinateDefaults& previous,
                                       bool renewed) {
    CoordinateDefaults d = previous;
    const models::Fluid& fluid = basis.fluid;
    const models::SubstanceRecord& s = fluid.substance();
    const double PF = basis.PF(), TF = basis.TF(), VF = basis.VF();
    const double CF = basis.units.caloric;
    if (!(s.Tcrit > 0) || !(s.pcrit > 0)) return d;

    const double vcrit = fluid.models().EOSOnlyV ? s.vcritExp : fluid.eos().vcritCalc;
    d.vMin = 0;
    d.vMax = single(VF * 7 * vcrit);
    if (d.vMax == 0) d.vMax = 1.5F;
    d.vMaxReserve = single(VF * s.vcritExp * 1.4);
    d.vMinReserve = single(VF * 0.01);
    d.rhoMin = 0;
    d.rhoMax = single(3.5 * s.rhocrit);

    if (d.pMax == 0 || renewed) d.pMax = single(PF * s.pcrit * 1.4);
    d.pMin = 0.001F;
    d.pvMin = 0;
    d.pvMax = single(PF * s.pcrit * static_cast<double>(d.vMax));
    d.lnpMin = -5;
    const bool reduced = basis.units.choice.system == models::UnitSystem::reduced;
    d.lnpMax = single(reduced ? 0.5 : 1.1 * std::log(PF * s.pcrit));
    d.dlnpMax = -500;
    d.dlnpMin = -6000;

    set_temperature_limits(d, fluid, TF, renewed);
    set_function_limits(d, basis.reference.RefMode, CF);
    d.cpMin = -10;
    d.cpMax = single(2 * molar_cp_limit(fluid) * CF);
    d.vaporisationMin = 0;
    d.vaporisationMax = single(50000 * CF);
    d.jtMin = -0.005F;
    d.jtMax = 0.04F;
    d.resEntropyMin = single(-498.8706 * CF);  // -60 R
    d.resEntropyMax = single(20 * CF);
    d.resEnthalpyMin = single(-49887.06 * CF);  // -6000 R
    d.resEnthalpyMax = single(1000 * CF);
    return d;
}

ProposedWindow proposed_window(const Diagram& diagram, const Basis& basis,
                               const CoordinateDefaults& d) {
    const Diagram& row = diagram.xLimits.low == nullptr ? home_of(diagram) : diagram;
    if (row.database != DatabaseFunction::none) return database_window(row, basis);
    if (row.xLimits.low == nullptr) return {{d.TMin, d.TMax, 0, 0}, {}};
    return {{d.*row.xLimits.low, d.*row.xLimits.high, d.*row.yLimits.low, d.*row.yLimits.high}, {}};
}

}  // namespace quor::diagrams
