#include <cmath>

#include "calculation/work.h"
#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_eos.h"

/// The state at T and p, or at p and a density, and the states of a process.
namespace quor::calculation {

namespace {

constexpr double kNearTcrit = 0.05;  // K
constexpr double kNearPcrit = 0.02;  // kPa

bool is_critical_point(const Work& work) {
    return std::fabs(work.answer.T - work.substance().Tcrit) < kNearTcrit &&
           std::fabs(work.answer.p - work.substance().pcrit) < kNearPcrit;
}

/// A given volume well between the outer roots is a mixture of both phases, even when the
/// tolerance of T(LV) puts the state to one side of the phase boundary.
void keep_both_phases(Work& work, const models::StateTP& state) {
    constexpr double kMargin = 1e-3;
    if (state.root_count != 3) return;
    const double v = work.M() / work.rho();
    if (!(v > *state.vL * (1 + kMargin)) || !(v < *state.vV * (1 - kMargin))) return;
    work.answer.phases = {liquid_of(state), vapour_of(state)};
}

/// A cubic EOS has no state at or below its covolume.
bool is_denser_than_possible(const Work& work) {
    if (work.models().vapour_only) return false;
    return work.M() / work.rho() <= models::eos_at(work.fluid(), work.substance().Tcrit).b;
}

ProcessState state_of_process(const Work& work, const ProcessPoint& point) {
    ProcessState s{.T = point.T, .p = point.p, .v = {}, .functions = {}};
    const auto state = models::solve_state_tp(work.fluid(), point.T, point.p);
    if (!state) return s;
    const bool liquid = state->has_L && (!state->has_V || work.request.process.liquid);
    s.v = liquid ? state->vL : state->vV;
    if (s.v) s.functions = work.calculator.functions_at(point.T, point.p, *s.v);
    return s;
}

}  // namespace

void given_tp(Work& work) {
    if (!fetch_t(work) || !fetch_p(work)) return;
    Answer& a = work.answer;
    a.critical_point = is_critical_point(work);
    if (work.models().vapour_only) a.B = active_virial(work);
    const auto state = solve_state(work);
    if (!state) return;
    keep_last_state(work);
    if (work.request.method.assumed_vle) add_partial_phases(work, state->vV);
}

void given_p_rho(Work& work) {
    if (!fetch_p(work) || !fetch_rho(work)) return;
    Answer& a = work.answer;
    const auto T = models::temperature_from_p_rho(work.fluid(), a.p, work.rho(), false);
    if (!T) {
        fail(work, is_denser_than_possible(work) ? Reason::belowCovolume : Reason::noTemperature);
        return;
    }
    a.T = *T;
    const auto state = solve_state(work);
    if (!state) return;
    keep_both_phases(work, *state);
    keep_last_state(work);
}

void caloric_functions(Work& work) {
    if (!fetch_t(work) || !fetch_p(work)) return;
    if (!solve_state(work)) return;
    keep_last_state(work);
    work.answer.functions = functions_of(work, work.answer.phases);
}

void polytropic_process(Work& work) {
    faults::finite(work.request.process.exponent);
    faults::finite(work.request.process.kappa);
    work.given.T = work.request.process.T1;
    work.given.p = work.request.process.p1;
    if (!fetch_t(work) || !fetch_p(work)) return;
    for (const ProcessPoint& point : work.request.process.points)
        work.answer.process.push_back(state_of_process(work, point));
}

}  // namespace quor::calculation
