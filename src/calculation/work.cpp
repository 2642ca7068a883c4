#include "calculation/work.h"

#include <cstdlib>

#include "common/constants.h"
#include "common/faults.h"
#include "models/density.h"
#include "models/virial.h"

namespace quor::calculation {

using constants::kPresent;

namespace {

/// The triple point says nothing about the heat capacity of the solid or of the ideal gas, nor
/// about the density of the solid.
bool remarks_on_triple_point(Task task) {
    return task != Task::idealGasCp && task != Task::solidCp && task != Task::solidDensity;
}

}  // namespace

bool fail(Work& work, Reason reason) {
    work.answer.reason = reason;
    return false;
}

bool fetch_t(Work& work) {
    if (!(work.given.T >= kPresent)) return fail(work, Reason::noT);
    work.answer.T = faults::finite(work.given.T);
    if (work.answer.T < static_cast<double>(work.substance().Ttriple) &&
        !work.models().vapour_only && remarks_on_triple_point(work.request.task))
        work.answer.notes.push_back({.kind = Note::Kind::belowTriplePoint});
    return true;
}

bool fetch_p(Work& work) {
    if (!(work.given.p >= kPresent)) return fail(work, Reason::noP);
    work.answer.p = faults::finite(work.given.p);
    return true;
}

bool fetch_rho(Work& work) {
    if (!(work.rho() >= kPresent)) return fail(work, Reason::noRho);
    faults::finite(work.rho());
    return true;
}

void note_range(Work& work, Note::Kind kind, int deviation) {
    const bool pressure = kind == Note::Kind::pressureRange || kind == Note::Kind::temperatureRange;
    const int silent = pressure ? 10 : 5;
    if (std::abs(deviation) > silent)
        work.answer.notes.push_back(
            {.kind = kind, .deviation = static_cast<std::int16_t>(deviation)});
}

void take_state(Work& work, const models::StateTP& state) {
    Answer& a = work.answer;
    a.phases = {};
    if (state.has_L) a.phases.liquid = liquid_of(state);
    if (state.has_V) a.phases.vapour = vapour_of(state);
    a.roots = state.root_count;
    a.solver = state.text;
    a.region = static_cast<Region>(state.region);
    if (!work.models().vapour_only) work.roots = state.v;
}

std::optional<models::StateTP> solve_state(Work& work) {
    const auto state = models::solve_state_tp(work.fluid(), work.answer.T, work.answer.p);
    if (!state) {
        fail(work, Reason::solver);
        return std::nullopt;
    }
    take_state(work, *state);
    return *state;
}

SaturationVolumes volumes_of(const models::Fluid& fluid, const models::Saturation& saturation) {
    if (saturation.T == fluid.substance().Tcrit)
        return {fluid.eos().vcrit_calculated, fluid.eos().vcrit_calculated};
    return {saturation.v[0], saturation.root_count == 3 ? saturation.v[2] : saturation.v[0]};
}

Phase phase_at(const Work& work, double v) {
    return v > kPresent ? Phase{v, work.M() / v} : Phase{};
}

Phase liquid_of(const models::StateTP& state) {
    return {state.vL, state.rhoL};
}

Phase vapour_of(const models::StateTP& state) {
    return {state.vV, state.rhoV};
}

void add_partial_phases(Work& work, std::optional<double> vV) {
    const Method& method = work.request.method;
    if (!models::is_known(method.reference) || !(vV > kPresent)) return;
    const models::SubstanceRecord& s = work.substance();
    Answer& a = work.answer;
    a.phases.vapour = phase_at(work, *vV);
    a.phases.liquid = Phase{};
    std::optional<double> rhoL;
    if (method.liquid_by_benson) {
        rhoL = models::density_l_benson(a.T, s.Tcrit, s.rhocrit, work.M() / *vV, method.reference);
    } else if (const auto r = models::density_liquid(s, static_cast<float>(a.T))) {
        note_range(work, Note::Kind::densityRange, r->deviation);
        rhoL = r->rho;
    }
    if (rhoL > kPresent) a.phases.liquid = Phase{work.M() / *rhoL, *rhoL};
    a.other_liquid = true;
}

void keep_last_state(Work& work) {
    const Answer& a = work.answer;
    work.answer.last = {a.T,
                        a.p,
                        work.roots,
                        a.phases.liquid.has_value(),
                        a.phases.vapour.has_value(),
                        a.roots,
                        a.region.value_or(Region::subcritical)};
}

FunctionPair functions_of(const Work& work, const Phases& phases) {
    FunctionPair pair;
    const auto at = [&](const std::optional<Phase>& phase) -> std::optional<FunctionValues> {
        if (!phase || !(phase->v > 0.0)) return std::nullopt;
        const FunctionValues values =
            work.calculator.functions_at(work.answer.T, work.answer.p, *phase->v);
        const Missing missing = work.calculator.missing_of(values, work.answer.T);
        if (missing != Missing::nothing) pair.missing = missing;
        return values;
    };
    pair.liquid = at(phases.liquid);
    pair.vapour = at(phases.vapour);
    return pair;
}

double active_virial(const Work& work) {
    models::EosState state;
    return faults::finite(models::second_virial(work.fluid(), work.answer.T, state));
}

}  // namespace quor::calculation
