#include <cmath>

#include "models/caloric.h"
#include "models/equilibrium.h"
#include "models/reference_state.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/virial.h"

namespace quor::models {

namespace {

StateValues no_values() {
    StateValues failure;
    failure.status = kFailure;
    return failure;
}

bool finite(const StateValues& z) {
    for (const double x : {z.h, z.u, z.s, z.g, z.a, z.cp, z.cv, z.w})
        if (!std::isfinite(x)) return false;
    return true;
}

}  // namespace

Surroundings surroundings_state(const Fluid& fluid, const ReferenceState& reference) {
    const double T = reference.Tenv;
    const double p = reference.penv;
    const IdealGasState ideal =
        ideal_gas_functions(fluid.substance(), fluid.models().cp_form, reference, T, p);
    if (ideal.status != kSuccess) return {};
    Surroundings z;
    z.status = kSuccess;
    if (fluid.models().vapour_only) {
        if (!(p > 0.0)) return {};
        // Where a heavy fluid is liquid in the surroundings the volume may be negative; the virial
        // form still gives a zero for the exergies, which are then right but for a constant.
        const Virial b = virial(fluid, T);
        z.v = constants::R * T / p + b.B;
        z.h = ideal.h + p * (b.B - T * b.dB);
        z.s = ideal.s - p * b.dB;
        z.u = z.h - p * z.v;
        return std::isfinite(z.u) && std::isfinite(z.s) ? z : Surroundings{};
    }
    const StateTP state = solve_state_tp(fluid, T, p);
    if (state.status != kSuccess) return {};
    const double v = state.has_L && !state.has_V ? state.vL : state.vV;
    const PhaseTable table = residual_functions(fluid, state.state, T, p, v);
    if (!table.filled) return {};

    z.v = v;
    z.h = ideal.h + constants::R * table.residual[ResH];
    z.u = z.h - p * v;
    z.s = ideal.s + constants::R * table.residual[ResS];
    return z;
}

StateValues state_functions(const Fluid& fluid, const ReferenceState& reference,
                            const Surroundings& surroundings, double T, double p, double v) {
    const IdealGasState ideal =
        ideal_gas_functions(fluid.substance(), fluid.models().cp_form, reference, T, p);
    if (ideal.status != kSuccess) return no_values();

    StateValues z;
    z.table = residual_functions(fluid, eos_at(fluid, T), T, p, v);
    if (!z.table.filled) return no_values();
    const auto& residual = z.table.residual;
    z.h = ideal.h + constants::R * residual[ResH];
    z.u = z.h - p * v;
    z.s = ideal.s + constants::R * residual[ResS];
    z.g = z.h - T * z.s;
    z.a = z.g - p * v;
    z.cp = residual[Cp];
    z.cv = residual[Cv];
    z.w = residual[SpeedOfSound];
    if (!finite(z)) return no_values();

    if (surroundings.status != kSuccess) {
        z.status = kFailure;
        return z;
    }
    const double lost = reference.Tenv * (z.s - surroundings.s);
    z.eH = (z.h - surroundings.h) - lost;
    z.eU = (z.u - surroundings.u) - lost + reference.penv * (v - surroundings.v);
    return z;
}

SaturationValues saturation_functions(const Fluid& fluid, const ReferenceState& reference,
                                      const Surroundings& surroundings, double T) {
    const SubstanceRecord& s = fluid.substance();
    SaturationValues r;
    r.status = kFailure;
    if (fluid.models().vapour_only) return r;
    if (T == s.Tcrit) {
        const double rho = fluid.eos().rhocrit_calculated;
        if (!(rho > 0.0)) return r;
        r.p = s.pcrit;
        r.vV = r.vL = static_cast<double>(s.M) / rho;
    } else {
        const Saturation sat = saturation_pressure(fluid, T);
        if (sat.status != kSuccess) return r;
        const StateTP state = solve_state_tp(fluid, T, sat.p);
        r.p = sat.p;
        const PhaseVolumes volumes = equilibrium_volumes(fluid, state, T);
        r.vV = volumes.vV;
        r.vL = volumes.vL;
        if (!(r.vV > 0.0) || !(r.vL > 0.0)) return r;
    }
    r.V = state_functions(fluid, reference, surroundings, T, r.p, r.vV);
    r.L = r.vL == r.vV ? r.V : state_functions(fluid, reference, surroundings, T, r.p, r.vL);
    r.status = r.V.status == kSuccess && r.L.status == kSuccess ? kSuccess : kFailure;
    return r;
}

}  // namespace quor::models
