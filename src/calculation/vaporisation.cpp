#include "calculation/work.h"
#include "common/faults.h"

/// The enthalpy of vaporisation by the chosen method.
namespace quor::calculation {

using models::VaporisationModel;

namespace {

bool given_T(const Work& work) {
    return work.request.task == Task::vaporisationAtT;
}

bool fetch_given(Work& work) {
    const models::SubstanceRecord& s = work.substance();
    const Answer& a = work.answer;
    if (given_T(work) ? !fetch_t(work) : !fetch_p(work)) return false;
    const bool beyond = given_T(work) ? a.T >= s.Tcrit : a.p >= s.pcrit;
    return !beyond || fail(work, Reason::aboveCritical);
}

models::Vaporisation by_method(const Work& work, VaporisationModel model) {
    models::VaporisationMethod method{.model = model,
                                      .equation = work.models().vapour_pressure,
                                      .reference = work.request.method.reference,
                                      .T = {},
                                      .p = {}};
    if (work.request.measured) {
        method.T = work.given.T;
        method.p = work.given.p;
    }
    return models::enthalpy_of_vaporisation(work.fluid(), method, work.answer.T, work.answer.p);
}

/// The database equation beside any other method.
std::optional<double> database_value(const Work& work) {
    if (work.models().vaporisation == VaporisationModel::databaseEquation ||
        work.substance().hLV_T_high <= 0)
        return std::nullopt;
    const models::Vaporisation r = by_method(work, VaporisationModel::databaseEquation);
    return r.h ? std::optional(static_cast<double>(*r.h)) : std::nullopt;
}

void note_ranges(Work& work, const models::Vaporisation& r) {
    note_range(work, Note::Kind::pressureRange, r.pressure_deviation);
    note_range(work, Note::Kind::temperatureRange, r.temperature_deviation);
    note_range(work, Note::Kind::vaporisationRange, r.deviation);
    note_range(work, Note::Kind::densityRange, r.density_deviation);
}

Phase phase_of_density(const Work& work, std::optional<double> rho) {
    return rho ? Phase{work.M() / *rho, *rho} : Phase{};
}

}  // namespace

void enthalpy_of_vaporisation(Work& work) {
    if (!fetch_given(work)) return;
    Answer& a = work.answer;
    const models::Vaporisation r = by_method(work, work.models().vaporisation);
    note_ranges(work, r);
    a.vaporisation = VaporisationValues{r, {}};
    if (!r.h) {
        fail(work, Reason::noVaporisation);
        return;
    }
    a.T = r.T.value_or(0);
    a.p = r.p.value_or(0);
    a.phases = {phase_of_density(work, r.rhoL), phase_of_density(work, r.rhoV)};
    a.roots = 3;
    work.roots = r.v;
    if (!work.models().vapour_only) keep_last_state(work);
    a.hLV = static_cast<double>(*r.h);
    faults::divide(*a.hLV, a.T);
    a.vaporisation->database = database_value(work);
}

}  // namespace quor::calculation
