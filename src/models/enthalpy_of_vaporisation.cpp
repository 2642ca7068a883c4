#include "models/enthalpy_of_vaporisation.h"

#include <cmath>

#include "common/constants.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/equilibrium.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/validity.h"
#include "models/vapour_pressure.h"

namespace quor::models {

using constants::kLn10;
using constants::kPresent;
using constants::R;
using Result = EnthalpyOfVaporisationResult;

namespace {

/// What an evaluation works on.
struct Request {
    const Fluid& fluid;
    const VaporisationMethod& method;
    bool paired;  ///< T or p was not given and had to be found

    const SubstanceRecord& substance() const { return fluid.substance(); }
};

bool given(double value) {
    return value > kPresent;
}

bool fail(Result& r, const char* explanation) {
    r.explanation = explanation;
    r.status = kFailure;
    return false;
}

/// p from T, for the methods that need it.
bool pair_pressure(const Request& q, Result& r) {
    if (q.method.model == VaporisationModel::cubicEos) {
        const Saturation sat = saturation_pressure(q.fluid, r.T);
        r.p = sat.p;
        if (sat.status != kSuccess || !given(sat.p)) return fail(r, "p(LV) by EOS: Error ");
        r.explanation = "p = p(LV) by using cubic EOS";
        return true;
    }
    if (q.method.model != VaporisationModel::chen &&
        q.method.model != VaporisationModel::databaseDensity &&
        q.method.model != VaporisationModel::benson)
        return true;
    const VapourPressureResult found = vapour_pressure(q.substance(), r.T, q.method.equation);
    r.p = found.p;
    if (found.status == kSuccess) r.pressure_deviation = found.deviation;
    r.explanation = "p = p(LV) by using vapour pressure equation:";
    if (given(r.p)) return true;
    r.p = q.method.p;
    r.explanation = "p(LV) = p from actual data set";
    return given(r.p) || fail(r, "No p available");
}

/// T from p.
bool pair_temperature(const Request& q, Result& r) {
    if (q.method.model == VaporisationModel::cubicEos) {
        const Saturation sat = saturation_temperature(q.fluid, r.p);
        r.T = sat.T;
        if (sat.status != kSuccess || !given(sat.T)) return fail(r, "T(LV) by using EOS: Error ");
        r.explanation = "T = T(LV) from cubic  EOS";
        return true;
    }
    const BoilingTemperatureResult found =
        boiling_temperature(q.substance(), r.p, q.method.equation);
    r.T = found.T;
    if (found.status == kSuccess) r.temperature_deviation = found.deviation;
    r.explanation = "T = T(LV) from vapour pressure equation:";
    if (given(r.T)) return true;
    r.T = q.method.T;
    r.explanation = "(T(LV) from actual data set)";
    return given(r.T) || fail(r, "no T available");
}

bool below_critical(const Request& q, Result& r) {
    return r.T <= q.substance().Tcrit || fail(r, "T > T(cr)!");
}

/// The fitted equation of the database.
double database_equation(const SubstanceRecord& s, Result& r) {
    const EnthalpyEquationResult value = enthalpy_equation(s, r.T);
    if (value.status != kSuccess || s.hLV_T_high <= 0)
        throw faults::Fault(faults::kInvalidArgument);
    r.deviation = deviation_of(r.T, {s.hLV_T_low, s.hLV_T_high});
    r.explanation = "delta(LV)h = Fu(T) (by using database equation)";
    return value.h;
}

/// N. H. Chen, J. Chem. Eng. Data 10 (1965) 207.
double chen(const SubstanceRecord& s, double T, double p) {
    const double Tr = T / s.Tcrit;
    const double lgp = faults::log(p / s.pcrit) / kLn10;
    return faults::divide(T * (33.08 * Tr - 32.74 - 29.77 * lgp), 1.07 - Tr);
}

/// G. F. Carruth, R. Kobayashi, Ind. Eng. Chem. Fundam. 11 (1972) 509.
double carruth_kobayashi(const SubstanceRecord& s, double T) {
    const double t = 1.0 - T / s.Tcrit;
    return R * s.Tcrit * (7.08 * std::pow(t, 0.354) + 10.95 * s.omega * std::pow(t, 0.456));
}

/// K. M. Watson, Ind. Eng. Chem. 35 (1943) 398.
double watson(const SubstanceRecord& s, double exponent, double T) {
    const auto h = static_cast<double>(s.watson_hLV);
    const auto known = static_cast<double>(s.watson_T);
    if (!(h * known > kPresent)) throw faults::Fault(faults::kInvalidArgument);
    const double ratio = faults::divide(s.Tcrit - T, s.Tcrit - known);
    if (ratio < 0.0) throw faults::Fault(faults::kInvalidArgument);
    return h * std::pow(ratio, exponent);
}

void set_compressibilities(const Request& q, Result& r) {
    if (!(r.rhoL * r.rhoV > kPresent)) throw faults::Fault(faults::kDivisionByZero);
    const double ideal = static_cast<double>(q.substance().M) * r.p / (R * r.T);
    r.zV = ideal / r.rhoV;
    r.zL = ideal / r.rhoL;
}

double benson_density(const Request& q, const Result& r) {
    const SubstanceRecord& s = q.substance();
    const BensonPoint& reference = q.method.reference;
    return is_known(reference) ? density_l_benson(r.T, s.Tcrit, s.rhocrit, r.rhoV, reference) : 0.0;
}

/// Clausius and Clapeyron with the slope of the vapour pressure equation, the V density of the EOS
/// and the L density of the method.
double clausius_clapeyron(const Request& q, Result& r) {
    const StateTP state = solve_state_tp(q.fluid, r.T, r.p);
    r.v = state.v;
    r.rhoV = state.rhoV;
    if (q.method.model == VaporisationModel::databaseDensity) {
        const DensityResult liquid = density_liquid(q.substance(), static_cast<float>(r.T));
        r.rhoL = liquid.rho;
        r.density_deviation = liquid.deviation;
    } else {
        r.rhoL = benson_density(q, r);
    }
    set_compressibilities(q, r);
    const SlopeResult slope = vapour_pressure_slope(q.substance(), r.T, q.method.equation);
    if (slope.status != kSuccess) throw faults::Fault(faults::kInvalidArgument);
    r.explanation = "actual vapour pressure equation";
    return -R * slope.slope * (r.zV - r.zL);
}

/// Residual enthalpies of both phases of the cubic EOS. Where T or p was found here both phases
/// exist; a given pair may lie beside the equilibrium and then has one of them.
double cubic_eos(const Request& q, Result& r) {
    const Fluid& fluid = q.fluid;
    const StateTP state = solve_state_tp(fluid, r.T, r.p);
    r.v = state.v;
    const PhaseVolumes v =
        q.paired ? equilibrium_volumes(fluid, state, r.T) : PhaseVolumes{state.vV, state.vL};
    const auto M = static_cast<double>(fluid.substance().M);
    r.rhoV = v.vV > 0 ? M / v.vV : 0;
    r.rhoL = v.vL > 0 ? M / v.vL : 0;
    set_compressibilities(q, r);
    const EosState eos = eos_at(fluid, r.T);
    const auto residual = [&](double volume) {
        const PhaseTable table = residual_functions(fluid, eos, r.T, r.p, volume);
        if (!table.filled) throw faults::Fault(faults::kInvalidArgument);
        return table.residual[ResH];
    };
    return R * (residual(v.vV) - residual(v.vL));
}

double evaluate(const Request& q, Result& r) {
    const SubstanceRecord& s = q.substance();
    const float exponent = q.fluid.models().watson_n;
    switch (q.method.model) {
        case VaporisationModel::databaseEquation:
            return database_equation(s, r);
        case VaporisationModel::chen:
            r.explanation = "Chen-correlation";
            return chen(s, r.T, r.p);
        case VaporisationModel::carruthKobayashi:
            r.explanation = "Carruth/Kobayashi-correlation";
            return carruth_kobayashi(s, r.T);
        case VaporisationModel::watson:
            r.explanation = "WATSON-correlation, n =" + numbers::general(exponent);
            return watson(s, static_cast<double>(exponent), r.T);
        case VaporisationModel::cubicEos:
            return cubic_eos(q, r);
        default:
            return clausius_clapeyron(q, r);
    }
}

}  // namespace

EnthalpyOfVaporisationResult enthalpy_of_vaporisation(const Fluid& fluid,
                                                      const VaporisationMethod& method, double T,
                                                      double p) {
    const Request request{fluid, method, !given(T) || !given(p)};
    Result r;
    r.T = T;
    r.p = p;
    if (method.model == VaporisationModel::none) {
        r.status = kFailure;
        return r;
    }
    if (!below_critical(request, r)) return r;
    if (!given(p) && !pair_pressure(request, r)) return r;
    if (!given(T) && (!pair_temperature(request, r) || !below_critical(request, r))) return r;
    try {
        r.raw = faults::finite(evaluate(request, r));
        r.h = numbers::to_int32(r.raw);
    } catch (const faults::Fault&) {
        r.raw = 0;
        r.h = 0;
        r.status = kFailure;
    }
    return r;
}

EnthalpyEquationResult enthalpy_equation(const SubstanceRecord& s, double T) {
    const auto Tc = static_cast<double>(s.hLV_Tc);
    const EnthalpyEquationResult failure{0.0, kFailure};
    if (!(Tc > kPresent) || !(T <= std::fmax(Tc, s.Tcrit))) return failure;
    // At the critical point of the set, a 32-bit value, and from there to that of the substance.
    if (static_cast<float>(T) >= s.hLV_Tc) return {};

    const double Tr = T / Tc;
    const auto a = [&](std::size_t i) { return static_cast<double>(s.hLV_coefficients[i]); };
    const double exponent = a(2) + Tr * (a(3) + Tr * (a(4) + Tr * a(5)));
    const double h = a(0) * std::exp(-a(1) * Tr) * std::pow(1.0 - Tr, exponent);
    if (!std::isfinite(h)) return failure;
    return {h, kSuccess};
}

}  // namespace quor::models
