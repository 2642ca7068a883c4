#include "calculation/work.h"
#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_eos.h"

/// p and phases from T and a density, of a state or of a tank.
namespace quor::calculation {

using constants::kPresent;
using constants::R;

namespace {

/// The density of a liquid stands in its own column.
bool fetch_liquid_density(Work& work) {
    if (!(work.given.rhoL >= kPresent)) return fail(work, Reason::noLiquidDensity);
    faults::finite(static_cast<double>(work.given.rhoL));
    work.given.rhoV = work.given.rhoL;
    return true;
}

bool fetch_input(Work& work) {
    if (is_tank(work.request.task)) return fetch_tank(work);
    if (!fetch_t(work)) return false;
    return work.request.task == Task::pressureOfLiquid ? fetch_liquid_density(work)
                                                       : fetch_rho(work);
}

bool vapour_only_pressure(Work& work, double v) {
    const double B = active_virial(work);
    if (v <= B) return fail(work, Reason::belowVirial);
    work.answer.p = faults::finite(R * work.answer.T / (v - B));
    work.answer.phases.vapour = phase_at(work, v);
    return true;
}

/// p on the isotherm of a cubic EOS at the given volume.
bool pressure_on_isotherm(Work& work, double v) {
    models::EosState state = models::eos_at(work.fluid(), work.answer.T);
    const auto p = models::pressure_from_Tv(work.fluid(), work.answer.T, v, state);
    if (!p) return fail(work, Reason::belowCovolume);
    work.answer.p = *p;
    return true;
}

/// Below Tcrit of a cubic EOS: p(LV) divides the isotherm into L, L and V, and V.
bool subcritical_pressure(Work& work, double v) {
    Answer& a = work.answer;
    const auto saturation = models::saturation_pressure(work.fluid(), a.T);
    if (!saturation || saturation->p < kPresent) return fail(work, Reason::solver);
    a.pLV = saturation->p;
    a.roots = 3;
    work.roots = saturation->v;
    const auto [vL, vV] = volumes_of(work.fluid(), *saturation);
    if (v > vV) {
        a.phases.vapour = phase_at(work, v);
        return pressure_on_isotherm(work, v);
    }
    if (v < vL) {
        a.phases.liquid = phase_at(work, v);
        a.y = 0;
        return pressure_on_isotherm(work, v);
    }
    a.phases = {phase_at(work, vL), phase_at(work, vV)};
    a.p = a.pLV;
    a.two_phase = vV > vL;
    if (a.two_phase) a.y = (v - vL) / (vV - vL);
    return true;
}

bool find_pressure(Work& work, double v) {
    if (work.models().vapour_only) return vapour_only_pressure(work, v);
    if (work.answer.T < work.substance().Tcrit) return subcritical_pressure(work, v);
    work.answer.phases.vapour = phase_at(work, v);
    return pressure_on_isotherm(work, v);
}

/// Outside the two-phase region the solver names the phases at T and p; inside it they are known.
bool confirm_phases(Work& work) {
    if (work.answer.two_phase) return true;
    if (!(work.answer.p > 0)) return fail(work, Reason::solver);
    return solve_state(work).has_value();
}

}  // namespace

void given_t_rho(Work& work) {
    if (!fetch_input(work)) return;
    if (work.request.task == Task::partialTank) {
        partial_tank(work);
        return;
    }
    if (!find_pressure(work, work.M() / work.rho())) return;
    Answer& a = work.answer;
    if (work.request.task == Task::globalTank) a.tank = content_of_tank(work);
    if (!confirm_phases(work)) return;
    if (!work.models().vapour_only) keep_last_state(work);
    a.mixture = a.phases.both() && a.T < work.substance().Tcrit && a.p < work.substance().pcrit;
    if (a.mixture) a.functions = functions_of(work, a.phases);
}

}  // namespace quor::calculation
