#include "calculation/work.h"
#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_eos.h"
#include "models/density.h"
#include "models/vapour_pressure.h"

/// The vapour-liquid equilibrium at T or at p.
namespace quor::calculation {

using constants::kPresent;
using constants::R;

namespace {

bool given_T(const Work& work) {
    return work.request.task == Task::saturationAtT;
}

/// The given T or p, refused beyond the critical point.
bool fetch_given(Work& work) {
    const models::SubstanceRecord& s = work.substance();
    Answer& a = work.answer;
    a.phases = {Phase{}, Phase{}};
    if (given_T(work) ? !fetch_t(work) : !fetch_p(work)) return false;
    const bool beyond = given_T(work) ? a.T > s.Tcrit : a.p > s.pcrit;
    return !beyond || fail(work, Reason::aboveCritical);
}

/// p(LV) or T(LV) by the active vapour pressure equation.
bool solve_by_equation(Work& work) {
    const models::VapourPressureEquation code = work.models().vapour_pressure;
    Answer& a = work.answer;
    if (given_T(work)) {
        const auto r = models::vapour_pressure(work.substance(), a.T, code);
        if (!r) return fail(work, Reason::solver);
        a.p = r->p;
        note_range(work, Note::Kind::pressureRange, r->deviation);
        return true;
    }
    const auto r = models::boiling_temperature(work.substance(), a.p, code);
    if (!r) return fail(work, Reason::solver);
    a.T = r->T;
    note_range(work, Note::Kind::temperatureRange, r->deviation);
    return true;
}

/// Without a vapour pressure equation the other measured value stands in.
bool take_measured(Work& work) {
    Answer& a = work.answer;
    a.source = Source::dataSet;
    (given_T(work) ? a.p : a.T) = faults::finite(given_T(work) ? work.given.p : work.given.T);
    return (given_T(work) ? a.p : a.T) >= kPresent || fail(work, Reason::noStandIn);
}

bool find_partial_point(Work& work) {
    if (work.models().vapour_pressure == models::VapourPressureEquation::none)
        return take_measured(work);
    if (!solve_by_equation(work)) return false;
    work.answer.source = Source::vapourPressureEquation;
    return true;
}

/// The V volume at T and p; p need not be that of the EOS.
std::optional<double> partial_vapour_volume(Work& work) {
    const Answer& a = work.answer;
    if (work.models().vapour_only) return faults::finite(R * a.T / a.p + active_virial(work));
    const auto saturation = models::saturation_pressure(work.fluid(), a.T);
    const auto roots = models::solve_cubic(models::eos_at(work.fluid(), a.T), a.T, a.p);
    if (!roots) {
        if (saturation) work.roots = saturation->v;
        return std::nullopt;
    }
    work.roots = roots->v;
    if (saturation && a.p <= saturation->p)
        return roots->v[static_cast<std::size_t>(roots->count - 1)];
    return roots->count == 3 ? std::optional(roots->v[2]) : std::nullopt;
}

bool partial_equilibrium(Work& work) {
    if (!find_partial_point(work)) return false;
    const std::optional<double> vV = partial_vapour_volume(work);
    work.answer.roots = 3;
    if (!work.models().vapour_only) keep_last_state(work);
    add_partial_phases(work, vV);
    return true;
}

bool equilibrium_of_eos(Work& work) {
    Answer& a = work.answer;
    const auto r = given_T(work) ? models::saturation_pressure(work.fluid(), a.T)
                                 : models::saturation_temperature(work.fluid(), a.p);
    if (!r) return fail(work, Reason::solver);
    a.source = Source::cubicEos;
    (given_T(work) ? a.p : a.T) = given_T(work) ? r->p : r->T;
    const auto [vL, vV] = volumes_of(work.fluid(), *r);
    a.phases = {phase_at(work, vL), phase_at(work, vV)};
    a.roots = r->root_count;
    work.roots = r->v;
    keep_last_state(work);
    return true;
}

/// p(LV) or T(LV) alone; a vapour pressure equation knows no densities.
bool equilibrium_of_equation(Work& work) {
    if (!solve_by_equation(work)) return false;
    work.answer.source = Source::vapourPressureEquation;
    return true;
}

/// delta(LV)h by the cubic EOS, as a whole number of kJ/kmol.
void add_enthalpy_of_vaporisation(Work& work) {
    Answer& a = work.answer;
    const models::Vaporisation r =
        models::enthalpy_of_vaporisation(work.fluid(),
                                         {.model = models::VaporisationModel::cubicEos,
                                          .equation = work.models().vapour_pressure,
                                          .reference = {},
                                          .T = {},
                                          .p = {}},
                                         a.T, a.p);
    if (r.h) a.hLV = static_cast<double>(*r.h);
}

}  // namespace

void equilibrium_state(Work& work) {
    if (!fetch_given(work)) return;
    const bool global = work.request.method.global;
    const bool found = !global                          ? partial_equilibrium(work)
                       : work.models().eos_has_priority ? equilibrium_of_eos(work)
                                                        : equilibrium_of_equation(work);
    if (found && global) add_enthalpy_of_vaporisation(work);
}

}  // namespace quor::calculation
