#include "diagrams/coordinates.h"
#include "legacy/wrappers.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "diagrams/catalogue.h"
#include "diagrams/database_functions.h"
#include "models/caloric.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using constants::kPresent;
using diagrams::CoordinateDefaults;
using diagrams::DiagramRequest;
using legacy::the_session;

float single(double value) {
    return numbers::to_single(value);
}

void set_function_limits(CoordinateDefaults& d, double factor) {
    // Values of view, of conventional states and of formation lie in different regions.
    const std::int16_t mode = legacy::the_reference.RefMode;
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

void set_temperature_limits(CoordinateDefaults& d, double Tcrit, double Ttriple, double TF) {
    const bool renewed = the_session.UnitsChanged;
    if (d.TMax == 0 || renewed) d.TMax = single(TF * Tcrit * 1.1);
    if (d.TMin == 0 || renewed)
        d.TMin = single(TF * Ttriple * (legacy::the_models.EOSOnlyV ? 0.3 : 1.0));
    if (static_cast<double>(d.TMin) < kPresent) d.TMin = single(0.5 * Tcrit * TF);
    d.TMaxResidual = std::max(d.TMax, single(300 * TF));

    // 5 K below the triple point; below 5 K there is nothing left of it.
    const double low = Ttriple - 5;
    d.invTMax = single(Ttriple > kPresent && low > 0 ? 1 / (TF * low) : 2.3 / (TF * Tcrit));
    d.invTMin = single(1 / (TF * (Tcrit + 10)));
}

double molar_cp_limit(double Tcrit) {
    constexpr double kWithoutForm = 50;  // kJ/(kmol K)
    const models::CpResult ideal = models::IdealGasCp(Tcrit);
    return ideal.status == kSuccess ? ideal.cp : kWithoutForm;
}

void widen(double& low, double& high) {
    constexpr double kMargin = 0.05;
    const double margin = kMargin * (high - low);
    low -= margin;
    high += margin;
}

void set_database_window(DiagramRequest& request) {
    const Validity validity = validity_of(request.DiagramType);
    const ValueRange values = value_range_of(request.DiagramType);
    request.validityLow = single(validity.low);
    request.validityHigh = single(validity.high);

    double xLow = validity.low, xHigh = validity.high;
    double yLow = values.low, yHigh = values.high;
    widen(xLow, xHigh);
    widen(yLow, yHigh);
    const auto TF = static_cast<double>(the_session.TemperatureFactor);
    request.xMin = single(xLow * TF);
    request.xMax = single(xHigh * TF);
    request.yMin = single(yLow);
    request.yMax = single(yHigh);
}

}  // namespace

void calc_coordinate_defaults(CoordinateDefaults& d) {
    session::refresh_units();
    the_session.CaloricFactor =
        session::caloric_factor_of(the_session.CaloricUnit, the_session.DiagramT);

    const models::SubstanceRecord& s = legacy::the_substance;
    const auto PF = static_cast<double>(the_session.PressureFactor);
    const auto TF = static_cast<double>(the_session.TemperatureFactor);
    const double VF = the_session.VolumeFactor;
    const double CF = the_session.CaloricFactor;
    if (!(s.Tcrit > 0) || !(s.pcrit > 0)) return;

    const double vcrit =
        legacy::the_models.EOSOnlyV ? s.vcritExp : legacy::the_eosParameters.vcritCalc;
    d.vMin = 0;
    d.vMax = single(VF * 7 * vcrit);
    if (d.vMax == 0) d.vMax = 1.5F;
    d.vMaxReserve = single(VF * s.vcritExp * 1.4);
    d.vMinReserve = single(VF * 0.01);
    d.rhoMin = 0;
    d.rhoMax = single(3.5 * s.rhocrit);

    if (d.pMax == 0 || the_session.UnitsChanged) d.pMax = single(PF * s.pcrit * 1.4);
    d.pMin = 0.001F;
    d.pvMin = 0;
    d.pvMax = single(PF * s.pcrit * static_cast<double>(d.vMax));
    d.lnpMin = -5;
    d.lnpMax = single(the_session.UnitMode == 2 ? 0.5 : 1.1 * std::log(PF * s.pcrit));
    d.dlnpMax = -500;
    d.dlnpMin = -6000;

    set_temperature_limits(d, s.Tcrit, static_cast<double>(s.Ttriple), TF);
    set_function_limits(d, CF);
    d.cpMin = -10;
    d.cpMax = single(2 * molar_cp_limit(s.Tcrit) * CF);
    d.vaporisationMin = 0;
    d.vaporisationMax = single(50000 * CF);
    d.jtMin = -0.005F;
    d.jtMax = 0.04F;
    d.resEntropyMin = single(-498.8706 * CF);  // -60 R
    d.resEntropyMax = single(20 * CF);
    d.resEnthalpyMin = single(-49887.06 * CF);  // -6000 R
    d.resEnthalpyMax = single(1000 * CF);
}

void fill_diagram_window(const CoordinateDefaults& d, DiagramRequest& request) {
    request.xMin = d.TMin;
    request.xMax = d.TMax;
    if (const CatalogueRow* row = find_row(diagram_of_curve(request.DiagramType))) {
        if (row->xLimits.low != nullptr) {
            request.xMin = d.*row->xLimits.low;
            request.xMax = d.*row->xLimits.high;
            request.yMin = d.*row->yLimits.low;
            request.yMax = d.*row->yLimits.high;
        } else {
            set_database_window(request);
        }
    }
    request.xMinDefault = request.xMin;
    request.yMinDefault = request.yMin;
    request.xMaxDefault = request.xMax;
    request.yMaxDefault = request.yMax;
}

}  // namespace quor::Module9
