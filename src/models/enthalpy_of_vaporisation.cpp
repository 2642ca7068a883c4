#include "models/enthalpy_of_vaporisation.h"

#include <cmath>
#include <cstdlib>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/validity.h"
#include "models/vapour_pressure.h"

namespace Calc {

using constants::kLn10;
using constants::kPresent;
using constants::R;
using Declare::SubstanceRecord;
using Result = EnthalpyOfVaporisationResult;

namespace {

/// What an evaluation works on, beside the process-level records.
struct Request {
    std::int16_t method;
    std::string_view vpCode;
    bool warn;
    std::int16_t dataSet;
};

constexpr std::int16_t kDatabaseEquation = 1;
constexpr std::int16_t kChen = 2;
constexpr std::int16_t kCarruthKobayashi = 3;
constexpr std::int16_t kWatson = 4;
constexpr std::int16_t kDatabaseDensity = 5;
constexpr std::int16_t kBenson = 6;
constexpr std::int16_t kCubicEOS = 7;

bool given(double value) {
    return value > kPresent;
}

bool fail(Result& r, const char* explanation) {
    r.explanation = explanation;
    r.status = kFailure;
    return false;
}

/// The row of experimental data that may stand in for a missing T or p.
Declare::BatchDataSet data_row(std::int16_t index) {
    const auto i = static_cast<std::size_t>(index);
    return index > 0 && i < Declare::BatchData.size() ? Declare::BatchData[i]
                                                      : Declare::BatchDataSet{};
}

/// p from T, for the methods that need it.
bool pair_pressure(const Request& q, Result& r) {
    if (q.method == kCubicEOS) {
        const Saturation sat = SaturationPressure(r.T);
        r.p = sat.p;
        if (sat.status != kSuccess || !given(sat.p)) return fail(r, "p(LV) by EOS: Error ");
        r.explanation = "p = p(LV) by using cubic EOS";
        return true;
    }
    if (q.method != kChen && q.method != kDatabaseDensity && q.method != kBenson) return true;
    r.p = VapourPressure(r.T, q.vpCode, q.warn).p;
    r.explanation = "p = p(LV) by using vapour pressure equation:";
    if (given(r.p)) return true;
    r.p = data_row(q.dataSet).p;
    r.explanation = "p(LV) = p from actual data set";
    return given(r.p) || fail(r, "No p available");
}

/// T from p.
bool pair_temperature(const Request& q, Result& r) {
    if (q.method == kCubicEOS) {
        const Saturation sat = SaturationTemperature(r.p);
        r.T = sat.T;
        if (sat.status != kSuccess || !given(sat.T)) return fail(r, "T(LV) by using EOS: Error ");
        r.explanation = "T = T(LV) from cubic  EOS";
        return true;
    }
    r.T = BoilingTemperature(r.p, q.vpCode, q.warn).T;
    r.explanation = "T = T(LV) from vapour pressure equation:";
    if (given(r.T)) return true;
    r.T = data_row(q.dataSet).T;
    r.explanation = "(T(LV) from actual data set)";
    return given(r.T) || fail(r, "no T available");
}

bool below_critical(Result& r) {
    return r.T <= Declare::substance.Tcrit || fail(r, "T > T(cr)!");
}

double database_equation(const Request& q, Result& r) {
    const SubstanceRecord& s = Declare::substance;
    const EnthalpyEquationResult value = EnthalpyEquationValue(r.T);
    if (value.status != kSuccess || s.hLVTHi <= 0) throw faults::Fault(faults::kInvalidArgument);
    r.deviation = deviation_of(r.T, {s.hLVTLo, s.hLVTHi});
    constexpr int kSilentDeviation = 5;
    if (q.warn && std::abs(r.deviation) > kSilentDeviation) {
        dialogs::Tell("Temperature " + std::to_string(r.deviation) +
                          " K outside parameter validity\n"
                          "(cf. Data/Parameters delta(LV)h = Fu(T))",
                      "Warning concerning equation delta(LV)h = Fu(T)");
    }
    r.explanation = "delta(LV)h = Fu(T) (by using database equation)";
    return value.h;
}

/// N. H. Chen, J. Chem. Eng. Data 10 (1965) 207.
double chen(Result& r) {
    const double Tr = r.T / Declare::substance.Tcrit;
    const double lgp = faults::log(r.p / Declare::substance.pcrit) / kLn10;
    r.explanation = "Chen-correlation";
    return faults::divide(r.T * (33.08 * Tr - 32.74 - 29.77 * lgp), 1.07 - Tr);
}

/// G. F. Carruth, R. Kobayashi, Ind. Eng. Chem. Fundam. 11 (1972) 509.
double carruth_kobayashi(Result& r) {
    const SubstanceRecord& s = Declare::substance;
    const double t = 1.0 - r.T / s.Tcrit;
    r.explanation = "Carruth/Kobayashi-correlation";
    return R * s.Tcrit * (7.08 * std::pow(t, 0.354) + 10.95 * s.omega * std::pow(t, 0.456));
}

/// K. M. Watson, Ind. Eng. Chem. 35 (1943) 398.
double watson(Result& r) {
    const SubstanceRecord& s = Declare::substance;
    const auto h = static_cast<double>(s.WatsonH);
    const auto T = static_cast<double>(s.WatsonT);
    if (!(h * T > kPresent)) throw faults::Fault(faults::kInvalidArgument);
    const double ratio = faults::divide(s.Tcrit - r.T, s.Tcrit - T);
    if (ratio < 0.0) throw faults::Fault(faults::kInvalidArgument);
    r.explanation = "WATSON-correlation, n =" + numbers::General(Declare::models.WatsonN);
    return h * std::pow(ratio, static_cast<double>(Declare::models.WatsonN));
}

void set_compressibilities(Result& r) {
    if (!(r.rhoL * r.rhoV > kPresent)) throw faults::Fault(faults::kDivisionByZero);
    const double ideal = static_cast<double>(Declare::substance.M) * r.p / (R * r.T);
    r.zV = ideal / r.rhoV;
    r.zL = ideal / r.rhoL;
}

double benson_density(const Result& r) {
    const SubstanceRecord& s = Declare::substance;
    const Declare::BensonPoint& reference = Declare::session.BensonReference;
    return IsKnown(reference) ? DensityLBenson(r.T, s.Tcrit, s.rhocrit, r.rhoV, reference) : 0.0;
}

/// Clausius and Clapeyron with the slope of the vapour pressure equation, the V density of the EOS
/// and the L density of the method.
double clausius_clapeyron(const Request& q, Result& r) {
    r.rhoV = SolveStateTP(r.T, r.p).rhoV;
    r.rhoL = q.method == kDatabaseDensity ? DensityL(static_cast<float>(r.T), q.warn).rho
                                          : benson_density(r);
    set_compressibilities(r);
    const SlopeResult slope = VapourPressureSlope(r.T, q.vpCode);
    if (slope.status != kSuccess) throw faults::Fault(faults::kInvalidArgument);
    r.explanation = "actual vapour pressure equation";
    return -R * slope.slope * (r.zV - r.zL);
}

/// Residual enthalpies of both phases of the cubic EOS.
double cubic_eos(Result& r) {
    const StateTP state = SolveStateTP(r.T, r.p);
    r.rhoV = state.rhoV;
    r.rhoL = state.rhoL;
    set_compressibilities(r);
    const Fluid fluid = CurrentFluid();
    const auto residual = [&](double v) {
        const thermo::PhaseTable table =
            thermo::residual_functions(fluid, state.state, r.T, r.p, v);
        if (!table.filled) throw faults::Fault(faults::kInvalidArgument);
        return table.residual[thermo::ResH];
    };
    return R * (residual(state.vV) - residual(state.vL));
}

double evaluate(const Request& q, Result& r) {
    switch (q.method) {
        case kDatabaseEquation:
            return database_equation(q, r);
        case kChen:
            return chen(r);
        case kCarruthKobayashi:
            return carruth_kobayashi(r);
        case kWatson:
            return watson(r);
        case kCubicEOS:
            return cubic_eos(r);
        default:
            return clausius_clapeyron(q, r);
    }
}

}  // namespace

EnthalpyOfVaporisationResult EnthalpyOfVaporisation(std::int16_t method, double T, double p,
                                                    std::string_view vpCode, bool warn,
                                                    std::int16_t dataSet) {
    const Request request{method, vpCode, warn, dataSet};
    Result r;
    r.T = T;
    r.p = p;
    if (method < kDatabaseEquation || method > kCubicEOS) {
        r.status = kFailure;
        return r;
    }
    if (!below_critical(r)) return r;
    if (!given(p) && !pair_pressure(request, r)) return r;
    if (!given(T) && (!pair_temperature(request, r) || !below_critical(r))) return r;
    try {
        r.raw = faults::finite(evaluate(request, r));
        r.h = numbers::ToInt32(r.raw);
    } catch (const faults::Fault&) {
        r.raw = 0;
        r.h = 0;
        r.status = kFailure;
    }
    return r;
}

EnthalpyEquationResult EnthalpyEquationValue(double T) {
    const SubstanceRecord& s = Declare::substance;
    const auto Tc = static_cast<double>(s.hLVTc);
    const EnthalpyEquationResult failure{0.0, kFailure};
    if (!(Tc > kPresent)) return failure;
    // At the critical point of its set, a 32-bit value, and from there to that of the substance the
    // value is 0.
    if (static_cast<float>(T) >= s.hLVTc)
        return T <= std::fmax(Tc, s.Tcrit) ? EnthalpyEquationResult{} : failure;
    const double Tr = T / Tc;

    const auto a = [&](std::size_t i) { return static_cast<double>(s.hLVPar[i]); };
    const double exponent = a(2) + Tr * (a(3) + Tr * (a(4) + Tr * a(5)));
    const double h = a(0) * std::exp(-a(1) * Tr) * std::pow(1.0 - Tr, exponent);
    if (!std::isfinite(h)) return failure;
    return {h, kSuccess};
}

}  // namespace Calc
