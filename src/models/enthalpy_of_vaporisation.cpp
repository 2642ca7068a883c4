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

namespace {

/// What an evaluation works on.
struct Request {
    const Fluid& fluid;
    const VaporisationMethod& method;
    bool paired;  ///< T or p was not given and had to be found

    const SubstanceRecord& substance() const { return fluid.substance(); }
};

std::optional<double> if_given(std::optional<double> value) {
    return value > kPresent ? value : std::nullopt;
}

bool fail(Vaporisation& r, const char* explanation) {
    r.explanation = explanation;
    return false;
}

/// p from T, for the methods that need it.
bool pair_pressure(const Request& q, Vaporisation& r) {
    if (q.method.model == VaporisationModel::cubicEos) {
        const std::optional<Saturation> sat = saturation_pressure(q.fluid, r.T.value_or(0));
        if (sat) r.p = if_given(sat->p);
        if (!r.p) return fail(r, "p(LV) by EOS: Error ");
        r.explanation = "p = p(LV) by using cubic EOS";
        return true;
    }
    if (q.method.model != VaporisationModel::chen &&
        q.method.model != VaporisationModel::databaseDensity &&
        q.method.model != VaporisationModel::benson)
        return true;
    if (const auto found = vapour_pressure(q.substance(), r.T.value_or(0), q.method.equation)) {
        r.p = if_given(found->p);
        r.pressure_deviation = found->deviation;
    }
    r.explanation = "p = p(LV) by using vapour pressure equation:";
    if (r.p) return true;
    r.p = if_given(q.method.p);
    r.explanation = "p(LV) = p from actual data set";
    return r.p || fail(r, "No p available");
}

/// T from p.
bool pair_temperature(const Request& q, Vaporisation& r) {
    if (q.method.model == VaporisationModel::cubicEos) {
        const std::optional<Saturation> sat = saturation_temperature(q.fluid, r.p.value_or(0));
        if (sat) r.T = if_given(sat->T);
        if (!r.T) return fail(r, "T(LV) by using EOS: Error ");
        r.explanation = "T = T(LV) from cubic  EOS";
        return true;
    }
    if (const auto found = boiling_temperature(q.substance(), r.p.value_or(0), q.method.equation)) {
        r.T = if_given(found->T);
        r.temperature_deviation = found->deviation;
    }
    r.explanation = "T = T(LV) from vapour pressure equation:";
    if (r.T) return true;
    r.T = if_given(q.method.T);
    r.explanation = "(T(LV) from actual data set)";
    return r.T || fail(r, "no T available");
}

bool below_critical(const Request& q, Vaporisation& r) {
    return !r.T || *r.T <= q.substance().Tcrit || fail(r, "T > T(cr)!");
}

/// The fitted equation of the database.
double database_equation(const SubstanceRecord& s, Vaporisation& r) {
    const std::optional<double> value = enthalpy_equation(s, *r.T);
    if (!value || s.hLV_T_high <= 0) throw faults::Fault(faults::kInvalidArgument);
    r.deviation = deviation_of(*r.T, {s.hLV_T_low, s.hLV_T_high});
    r.explanation = "delta(LV)h = Fu(T) (by using database equation)";
    return *value;
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

void set_compressibilities(const Request& q, Vaporisation& r) {
    if (!r.rhoL || !r.rhoV || !(*r.rhoL * *r.rhoV > kPresent))
        throw faults::Fault(faults::kDivisionByZero);
    const double ideal = static_cast<double>(q.substance().M) * *r.p / (R * *r.T);
    r.zV = ideal / *r.rhoV;
    r.zL = ideal / *r.rhoL;
}

std::optional<double> benson_density(const Request& q, const Vaporisation& r) {
    const SubstanceRecord& s = q.substance();
    const BensonPoint& reference = q.method.reference;
    if (!r.rhoV || !is_known(reference)) return std::nullopt;
    return density_l_benson(*r.T, s.Tcrit, s.rhocrit, *r.rhoV, reference);
}

/// Clausius and Clapeyron with the slope of the vapour pressure equation, the V density of the EOS
/// and the L density of the method.
double clausius_clapeyron(const Request& q, Vaporisation& r) {
    if (const auto state = solve_state_tp(q.fluid, *r.T, *r.p)) {
        r.v = state->v;
        r.rhoV = state->rhoV;
    }
    if (q.method.model == VaporisationModel::databaseDensity) {
        if (const auto liquid = density_liquid(q.substance(), static_cast<float>(*r.T))) {
            r.rhoL = liquid->rho;
            r.density_deviation = liquid->deviation;
        }
    } else {
        r.rhoL = benson_density(q, r);
    }
    set_compressibilities(q, r);
    const std::optional<double> slope =
        vapour_pressure_slope(q.substance(), *r.T, q.method.equation);
    if (!slope) throw faults::Fault(faults::kInvalidArgument);
    r.explanation = "actual vapour pressure equation";
    return -R * *slope * (*r.zV - *r.zL);
}

std::optional<PhaseVolumes> both_volumes(const StateTP& state) {
    if (!state.vV || !state.vL) return std::nullopt;
    return PhaseVolumes{*state.vV, *state.vL};
}

/// Residual enthalpies of both phases of the cubic EOS. Where T or p was found here both phases
/// exist; a given pair may lie beside the equilibrium and then has one of them.
double cubic_eos(const Request& q, Vaporisation& r) {
    const Fluid& fluid = q.fluid;
    const auto state = solve_state_tp(fluid, *r.T, *r.p);
    const std::optional<PhaseVolumes> v = q.paired ? equilibrium_volumes(fluid, state, *r.T)
                                          : state  ? both_volumes(*state)
                                                   : std::nullopt;
    if (state) r.v = state->v;
    if (!v) throw faults::Fault(faults::kDivisionByZero);
    const auto M = static_cast<double>(fluid.substance().M);
    r.rhoV = M / v->vV;
    r.rhoL = M / v->vL;
    set_compressibilities(q, r);
    const EosState eos = eos_at(fluid, *r.T);
    const auto residual = [&](double volume) {
        const std::optional<PhaseTable> table = residual_functions(fluid, eos, *r.T, *r.p, volume);
        if (!table) throw faults::Fault(faults::kInvalidArgument);
        return table->residual[ResH];
    };
    return R * (residual(v->vV) - residual(v->vL));
}

double evaluate(const Request& q, Vaporisation& r) {
    const SubstanceRecord& s = q.substance();
    const float exponent = q.fluid.models().watson_n;
    switch (q.method.model) {
        case VaporisationModel::databaseEquation:
            return database_equation(s, r);
        case VaporisationModel::chen:
            r.explanation = "Chen-correlation";
            return chen(s, *r.T, *r.p);
        case VaporisationModel::carruthKobayashi:
            r.explanation = "Carruth/Kobayashi-correlation";
            return carruth_kobayashi(s, *r.T);
        case VaporisationModel::watson:
            r.explanation = "WATSON-correlation, n =" + numbers::general(exponent);
            return watson(s, static_cast<double>(exponent), *r.T);
        case VaporisationModel::cubicEos:
            return cubic_eos(q, r);
        default:
            return clausius_clapeyron(q, r);
    }
}

}  // namespace

Vaporisation enthalpy_of_vaporisation(const Fluid& fluid, const VaporisationMethod& method,
                                      std::optional<double> T, std::optional<double> p) {
    Vaporisation r;
    r.T = if_given(T);
    r.p = if_given(p);
    const Request request{fluid, method, !r.T || !r.p};
    if (method.model == VaporisationModel::none) return r;
    if (!below_critical(request, r)) return r;
    if (!r.p && !pair_pressure(request, r)) return r;
    if (!r.T && (!pair_temperature(request, r) || !below_critical(request, r))) return r;
    try {
        r.raw = faults::finite(evaluate(request, r));
        r.h = numbers::to_int32(r.raw);
    } catch (const faults::Fault&) {
        r.raw = 0;
    }
    return r;
}

std::optional<double> enthalpy_equation(const SubstanceRecord& s, double T) {
    const auto Tc = static_cast<double>(s.hLV_Tc);
    if (!(Tc > kPresent) || !(T <= std::fmax(Tc, s.Tcrit))) return std::nullopt;
    // At the critical point of the set, a 32-bit value, and from there to that of the substance.
    if (static_cast<float>(T) >= s.hLV_Tc) return 0.0;

    const double Tr = T / Tc;
    const auto a = [&](std::size_t i) { return static_cast<double>(s.hLV_coefficients[i]); };
    const double exponent = a(2) + Tr * (a(3) + Tr * (a(4) + Tr * a(5)));
    const double h = a(0) * std::exp(-a(1) * Tr) * std::pow(1.0 - Tr, exponent);
    return std::isfinite(h) ? std::optional(h) : std::nullopt;
}

}  // namespace quor::models
