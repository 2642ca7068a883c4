#include "calculation/calculate.h"

#include <exception>

#include "calculation/work.h"
#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/reference_state.h"

namespace quor::calculation {

namespace {

using TaskFunction = void (*)(Work&);

TaskFunction function_of(Task task) {
    switch (task) {
        case Task::none:
            return nullptr;
        case Task::pressureOfVapour:
        case Task::pressureOfLiquid:
        case Task::globalTank:
        case Task::partialTank:
            return given_t_rho;
        case Task::state:
            return given_tp;
        case Task::temperature:
            return given_p_rho;
        case Task::saturationAtT:
        case Task::saturationAtP:
            return equilibrium_state;
        case Task::vaporisationAtT:
        case Task::vaporisationAtP:
            return enthalpy_of_vaporisation;
        case Task::functions:
            return caloric_functions;
        case Task::virial:
            return virial_coefficients;
        case Task::process:
            return polytropic_process;
        case Task::temperatureOnly:
            return [](Work& work) { fetch_t(work); };
        default:
            return database_function;
    }
}

/// Region of T and p; nothing on a boundary that no rule names.
std::optional<Region> region_of(const models::SubstanceRecord& s, double T, double p) {
    if (T == s.Tcrit && p == s.pcrit) return Region::critical;
    if (p < s.pcrit && T < s.Tcrit) return Region::subcritical;
    if (p > s.pcrit && T > s.Tcrit) return Region::supercritical;
    if (p > s.pcrit && T <= s.Tcrit) return Region::liquid;
    if (T > s.Tcrit) return Region::vapour;
    return std::nullopt;
}

/// A function of the database belongs to no state, so that it has no region.
void set_region(Work& work) {
    Answer& a = work.answer;
    const std::optional<Region> solver = a.region;
    a.region.reset();
    if (work.models().vapour_only || is_database_function(work.request.task) ||
        a.T < constants::kPresent)
        return;
    a.region = region_of(work.substance(), a.T, a.p);
    const std::optional<Region> known = a.region ? a.region : solver;
    a.same_density = known == Region::supercritical || known == Region::critical;
}

bool is_cubic(const models::ModelSelection& models) {
    return models::is_cubic(models.eos) && !models.vapour_only;
}

/// True for the tasks that end in a state of the equation of state.
bool is_of_the_equation(const Work& work) {
    const Task task = work.request.task;
    if (task == Task::process || is_database_function(task)) return false;
    return !is_vaporisation(task) ||
           work.models().vaporisation == models::VaporisationModel::cubicEos;
}

/// a, b, c and d, or the fault "Overflow".
models::EosState finite(const models::EosState& s) {
    for (const double x : {s.a, s.b, s.c, s.d}) faults::finite(x);
    return s;
}

void add_equation(Work& work) {
    Answer& a = work.answer;
    const Task task = work.request.task;
    if (!(a.T > constants::kPresent)) return;
    if (is_cubic(work.models()) && is_of_the_equation(work))
        a.parameters = finite(models::eos_at(work.fluid(), a.T));
    if (work.models().vapour_only && task != Task::none && task != Task::virial &&
        task != Task::process && !is_database_function(task))
        a.B = active_virial(work);
}

/// The diagnosis needs a state that the cubic EOS itself has found.
bool can_diagnose(const Work& work) {
    const Task task = work.request.task;
    if (!work.answer.ok() || !is_cubic(work.models()) || !work.request.method.global) return false;
    if (task == Task::virial || !is_of_the_equation(work)) return false;
    return !is_equilibrium(task) || work.models().eos_has_priority;
}

void run(Work& work) {
    if (const TaskFunction function = function_of(work.request.task)) function(work);
    const Reason reason = work.answer.reason;
    if (reason == Reason::noTank || reason == Reason::tankAboveCritical) return;
    set_region(work);
    if (work.answer.ok()) {
        add_pages(work);
        add_equation(work);
    }
    work.answer.diagnosable = can_diagnose(work);
}

models::ReferenceState settled(models::ReferenceState reference) {
    models::settle_reference(reference);
    return reference;
}

}  // namespace

Calculator::Calculator(models::Fluid fluid, models::ReferenceState reference)
    : fluid_(std::move(fluid)),
      reference_(settled(reference)),
      surroundings_(models::surroundings_state(fluid_, reference_)) {}

Answer Calculator::operator()(const Request& request) const {
    Work work{.calculator = *this, .request = request};
    work.answer.task = request.task;
    try {
        run(work);
    } catch (const std::exception& fault) {
        fail(work, Reason::arithmetic);
        work.answer.fault = fault.what();
        work.answer.diagnosable = false;
    }
    return std::move(work.answer);
}

FunctionValues Calculator::functions_at(double T, double p, double v) const {
    const auto s = models::state_functions(fluid_, reference_, surroundings_, T, p, v);
    FunctionValues f;
    f.z[kVolume] = v;
    if (!s) return f;
    f.z = {v, s->h, s->s, s->g, s->u, s->a, {}, {}, s->cp, s->cv, s->w};
    if (s->exergies) {
        f.z[kExergyH] = s->exergies->H;
        f.z[kExergyU] = s->exergies->U;
    }
    return f;
}

Missing Calculator::missing_of(const FunctionValues& values, double T) const {
    if (values.z[kH] && values.z[kExergyH]) return Missing::nothing;
    if (values.z[kH]) return Missing::surroundings;
    const bool has_cp =
        models::ideal_gas_cp(fluid_.substance(), fluid_.models().cp_form, T).has_value();
    return has_cp ? Missing::state : Missing::heatCapacity;
}

Answer calculate(const models::Fluid& fluid, const models::ReferenceState& reference,
                 const Request& request) {
    return Calculator(fluid, reference)(request);
}

}  // namespace quor::calculation
