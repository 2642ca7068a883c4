#include "calculation/work.h"
#include "common/faults.h"
#include "models/cubic_eos.h"

/// The pages of derivatives, residual functions and caloric functions.
namespace quor::calculation {

namespace {

std::optional<PhaseDerivatives> derivatives_of(const Work& work,
                                               const std::optional<Phase>& phase) {
    if (!phase || !(phase->v > 0.0)) return std::nullopt;
    const double T = work.answer.T, p = work.answer.p;
    const models::EosState state = models::eos_at(work.fluid(), T);
    const auto table = models::residual_functions(work.fluid(), state, T, p, *phase->v);
    if (!table) return std::nullopt;
    return PhaseDerivatives{.table = *table,
                            .mechanical = {faults::divide(table->first[4], *phase->v),
                                           -faults::divide(table->first[3], *phase->v),
                                           faults::divide(table->first[2], p)}};
}

/// The phases of a fresh solution. An equilibrium keeps both of its phases even when the rounding
/// of p(LV) puts the state to one side of the phase boundary.
std::optional<Phases> solve_again(const Work& work) {
    const Answer& a = work.answer;
    const auto state = models::solve_state_tp(work.fluid(), a.T, a.p);
    if (!state) return std::nullopt;
    const bool equilibrium = a.phases.both() && state->root_count == 3;
    Phases phases;
    if (equilibrium || state->has_L) phases.liquid = liquid_of(*state);
    if (equilibrium || state->has_V) phases.vapour = vapour_of(*state);
    return phases;
}

bool ends_in_a_state(Task task) {
    return task != Task::none && task != Task::virial && task != Task::process &&
           !is_vaporisation(task) && !is_database_function(task);
}

}  // namespace

void add_pages(Work& work) {
    const Pages& wanted = work.request.pages;
    Answer& a = work.answer;
    if (!wanted.tables() && !wanted.functions) return;
    if (!ends_in_a_state(work.request.task) || !(a.T > 0) || !(a.p > 0)) return;
    const std::optional<Phases> phases = solve_again(work);
    if (!phases) return;
    PageValues values;
    values.phases = *phases;
    if (wanted.tables()) {
        values.liquid = derivatives_of(work, phases->liquid);
        values.vapour = derivatives_of(work, phases->vapour);
        values.has_heat_capacity =
            models::ideal_gas_cp(work.substance(), work.models().cp_form, a.T).has_value();
    }
    if (wanted.derivatives) values.inflexion = models::inflexion_points(work.fluid(), a.T);
    if (wanted.functions) values.functions = functions_of(work, *phases);
    a.pages = std::move(values);
}

}  // namespace quor::calculation
