#include "report/result.h"

#include "common/faults.h"
#include "common/numbers.h"

namespace quor::report {

using calculation::Answer;
using calculation::Task;

namespace {

/// Values in the order of `models::function_label`.
std::array<double, 24> in_label_order(const calculation::PhaseDerivatives& d) {
    std::array<double, 24> z{};
    for (std::size_t i = 0; i < 6; ++i) z[i] = d.table.first[i + 1];
    for (std::size_t i = 0; i < 3; ++i) z[6 + i] = d.mechanical[i];
    z[9] = d.table.second[1];
    z[12] = d.table.second[2];
    z[13] = d.table.second[3];
    for (std::size_t i = 0; i < 7; ++i) z[14 + i] = d.table.residual[i];
    z[21] = d.table.residual[models::JouleThomson];
    z[22] = d.table.residual[models::Cv];
    z[23] = d.table.residual[models::Cp];
    return z;
}

void set_functions(const calculation::FunctionPair& pair, ResultRecord& r) {
    if (pair.liquid) r.liquid.caloric = pair.liquid->z;
    if (pair.vapour) r.vapour.caloric = pair.vapour->z;
}

void set_pages(const calculation::PageValues& pages, ResultRecord& r) {
    if (pages.liquid) r.liquid.extended = in_label_order(*pages.liquid);
    if (pages.vapour) r.vapour.extended = in_label_order(*pages.vapour);
    if (pages.functions) set_functions(*pages.functions, r);
}

/// True for the tasks whose T is calculated.
bool finds_t(Task task) {
    return task == Task::saturationAtP || task == Task::vaporisationAtP ||
           task == Task::temperature;
}

void tell_all(TaskResult& r) {
    r.report = report(r.made, r.request, r.answer);
    if (!r.report.fault.empty()) return;
    r.numbers = function_values(r.made, r.request, r.answer);
    r.record = record_of(r.answer);
}

models::Units possible_units(const models::UnitChoice& choice, const models::Fluid& fluid) {
    try {
        return models::make_units(choice, fluid);
    } catch (const faults::Fault&) {
        return models::make_units(models::possible_choice(choice, fluid), fluid);
    }
}

/// What failed shows no phase, and without its lines nothing to diagnose.
void forget_state_of_failure(TaskResult& r) {
    if (r.failed()) r.report.phases = "   ";
    if (!r.report.fault.empty()) r.report.diagnosis = {};
}

}  // namespace

ResultRecord record_of(const Answer& a) {
    ResultRecord r;
    if (!a.ok() || is_database_function(a.task) || a.task == Task::process ||
        a.task == Task::virial)
        return r;
    r.phases = state_text(a);
    if (a.phases.vapour) r.rhoV = numbers::to_single(a.phases.vapour->rho.value_or(0));
    if (a.phases.liquid) r.rhoL = numbers::to_single(a.phases.liquid->rho.value_or(0));
    r.p = numbers::to_single(a.p);
    if (finds_t(a.task)) r.T = numbers::to_single(a.T);
    if (a.hLV) r.hLV = static_cast<float>(*a.hLV);
    if (a.functions && a.task == Task::functions) set_functions(*a.functions, r);
    if (a.pages) set_pages(*a.pages, r);
    return r;
}

float fraction_of(const Answer& a) {
    if (is_tank(a.task)) return a.tank ? numbers::to_single(a.tank->level()) : 0.0F;
    return a.phases.vapour && !a.phases.liquid ? 100.0F : 0.0F;
}

TaskResult told_in(const TaskResult& result, const models::UnitChoice& choice) {
    if (result.answer.task == Task::none) return result;
    TaskResult told;
    told.made = result.made;
    told.request = result.request;
    told.answer = result.answer;
    told.data_set = result.data_set;
    try {
        told.made.units = possible_units(choice, told.made.fluid);
        tell_all(told);
    } catch (const faults::Fault& fault) {
        told.report.fault = fault.what();
        told.record = {};
    }
    forget_state_of_failure(told);
    return told;
}

TaskResult make_result(const models::Fluid& fluid, const models::ReferenceState& reference,
                       const models::UnitChoice& units, const calculation::Request& request) {
    TaskResult r;
    r.request = request;
    try {
        r.made = make_made(fluid, reference, units);
        r.answer = calculation::calculate(fluid, r.made.reference, request);
        tell_all(r);
    } catch (const faults::Fault& fault) {
        if (r.answer.task == Task::none) {
            r.answer.reason = calculation::Reason::arithmetic;
            r.answer.fault = fault.what();
        } else {
            r.report.fault = fault.what();
        }
        r.record = {};
    }
    forget_state_of_failure(r);
    return r;
}

std::vector<dialogs::Message> messages(const TaskResult& result, Tell tell) {
    std::vector<dialogs::Message> all =
        messages(result.answer, result.made.fluid.substance(), tell);
    if (!result.report.fault.empty())
        all.push_back(
            {.text = result.report.fault, .title = "WARNING", .icon = dialogs::Icon::Exclamation});
    return all;
}

}  // namespace quor::report
