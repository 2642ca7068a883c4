#include <cmath>

#include "models/caloric.h"
#include "models/equilibrium.h"
#include "models/reference_state.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/virial.h"

namespace quor::models {

namespace {

bool finite(const StateValues& z) {
    for (const double x : {z.h, z.u, z.s, z.g, z.a, z.cp, z.cv, z.w})
        if (!std::isfinite(x)) return false;
    return true;
}

}  // namespace

std::optional<Surroundings> surroundings_state(const Fluid& fluid,
                                               const ReferenceState& reference) {
    const double T = reference.Tenv;
    const double p = reference.penv;
    const std::optional<IdealGasState> ideal =
        ideal_gas_functions(fluid.substance(), fluid.models().cp_form, reference, T, p);
    if (!ideal) return std::nullopt;
    Surroundings z;
    if (fluid.models().vapour_only) {
        if (!(p > 0.0)) return std::nullopt;
        // Where a heavy fluid is liquid in the surroundings the volume may be negative; the virial
        // form still gives a zero for the exergies, which are then right but for a constant.
        const Virial b = virial(fluid, T);
        z.v = constants::R * T / p + b.B;
        z.h = ideal->h + p * (b.B - T * b.dB);
        z.s = ideal->s - p * b.dB;
        z.u = z.h - p * z.v;
        return std::isfinite(z.u) && std::isfinite(z.s) ? std::optional(z) : std::nullopt;
    }
    const auto state = solve_state_tp(fluid, T, p);
    if (!state) return std::nullopt;
    const std::optional<double> v = state->has_L && !state->has_V ? state->vL : state->vV;
    if (!v) return std::nullopt;
    const std::optional<PhaseTable> table = residual_functions(fluid, state->state, T, p, *v);
    if (!table) return std::nullopt;

    z.v = *v;
    z.h = ideal->h + constants::R * table->residual[ResH];
    z.u = z.h - p * z.v;
    z.s = ideal->s + constants::R * table->residual[ResS];
    return z;
}

std::optional<StateValues> state_functions(const Fluid& fluid, const ReferenceState& reference,
                                           const std::optional<Surroundings>& surroundings,
                                           double T, double p, double v) {
    const std::optional<IdealGasState> ideal =
        ideal_gas_functions(fluid.substance(), fluid.models().cp_form, reference, T, p);
    if (!ideal) return std::nullopt;
    const std::optional<PhaseTable> table = residual_functions(fluid, eos_at(fluid, T), T, p, v);
    if (!table) return std::nullopt;

    StateValues z;
    z.table = *table;
    const auto& residual = z.table.residual;
    z.h = ideal->h + constants::R * residual[ResH];
    z.u = z.h - p * v;
    z.s = ideal->s + constants::R * residual[ResS];
    z.g = z.h - T * z.s;
    z.a = z.g - p * v;
    z.cp = residual[Cp];
    z.cv = residual[Cv];
    z.w = residual[SpeedOfSound];
    if (!finite(z)) return std::nullopt;

    if (surroundings) {
        const double lost = reference.Tenv * (z.s - surroundings->s);
        const Exergies e{(z.h - surroundings->h) - lost,
                         (z.u - surroundings->u) - lost + reference.penv * (v - surroundings->v)};
        if (std::isfinite(e.H) && std::isfinite(e.U)) z.exergies = e;
    }
    return z;
}

std::optional<SaturationValues> saturation_functions(
    const Fluid& fluid, const ReferenceState& reference,
    const std::optional<Surroundings>& surroundings, double T) {
    const SubstanceRecord& s = fluid.substance();
    if (fluid.models().vapour_only) return std::nullopt;
    SaturationValues r;
    if (T == s.Tcrit) {
        const double rho = fluid.eos().rhocrit_calculated;
        if (!(rho > 0.0)) return std::nullopt;
        r.p = s.pcrit;
        r.vV = r.vL = static_cast<double>(s.M) / rho;
    } else {
        const std::optional<Saturation> sat = saturation_pressure(fluid, T);
        if (!sat) return std::nullopt;
        const auto volumes = equilibrium_volumes(fluid, solve_state_tp(fluid, T, sat->p), T);
        if (!volumes) return std::nullopt;
        r.p = sat->p;
        r.vV = volumes->vV;
        r.vL = volumes->vL;
    }
    const auto V = state_functions(fluid, reference, surroundings, T, r.p, r.vV);
    const auto L = r.vL == r.vV ? V : state_functions(fluid, reference, surroundings, T, r.p, r.vL);
    if (!V || !V->exergies || !L || !L->exergies) return std::nullopt;
    r.V = *V;
    r.L = *L;
    return r;
}

}  // namespace quor::models
