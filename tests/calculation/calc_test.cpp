#include "calc_test.h"

#include <algorithm>

#include "common/numbers.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/reference_state.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"
#include "support/fluids.h"

using namespace quor;

CalcTest::CalcTest() {
    numbers::set_decimal_mark('.');
}

CalcTest::~CalcTest() {
    numbers::set_decimal_mark('.');
}

void CalcTest::use_fluid(std::string_view name) {
    substance = name.empty() ? fluids::ReferencePropane() : fluids::Row(name);
}

void CalcTest::use_models(const Models& m) {
    selection.eos = codes::eos(m.eos);
    selection.vapour_only = models::is_v_only(selection.eos);
    selection.vapour_pressure = codes::vp(m.vp);
    selection.eos_has_priority = m.priority && !selection.vapour_only;
    selection.vaporisation = codes::hlv(m.hlv);
    selection.watson_n = 0.38F;
    selection.cp_form = codes::cp(m.cp);
    const models::EosConstants constants = models::eos_constants(substance, selection);
    eos_parameters = constants.power;
    jt = constants.ji_torvik;
    if (m.eos == 10) {
        eos_parameters.b0 = 0.09;
        eos_parameters.nb = 3.0e4;
        eos_parameters.nv = 2.0;
    }
}

void CalcTest::use_units(int mode) {
    units.system = static_cast<models::UnitSystem>(mode);
    units.caloric = mode == 1 ? models::CaloricUnit::specific : models::CaloricUnit::molar;
}

void CalcTest::use_benson_reference() {
    chosen.method.reference = models::propose_benson_reference(fluid()).point;
}

void CalcTest::use_input(const calculation::BatchDataSet& set, bool isMeasured) {
    input = set;
    measured = isMeasured;
}

CalcTest::Outcome CalcTest::calculate(int code, report::Tell tell) {
    calculation::Request request;
    request.task = calculation::task_of_code(code);
    request.given = input;
    request.measured = measured;
    // What is typed for a liquid stands in the one field of a density.
    if (!measured && input.rhoL == 0.0F) request.given.rhoL = input.rhoV;
    request.method = chosen.method;
    request.pages = chosen.pages;
    request.tank = tank;
    request.process = process;
    last = report::make_result(fluid(), reference, units, request);
    report::show(messages(last, tell));
    const calculation::Answer& a = last.answer;
    return {last.failed(), a.phases.liquid.has_value(), a.phases.vapour.has_value(),
            a.roots,       report::fraction_of(a),      a.p};
}

std::optional<models::StateValues> CalcTest::state_functions(double T, double p, double v) const {
    models::ReferenceState settled = reference;
    models::settle_reference(settled);
    const models::Fluid f = fluid();
    return models::state_functions(f, settled, models::surroundings_state(f, settled), T, p, v);
}

std::optional<models::PhaseTable> CalcTest::residual_functions(double T, double p, double v) const {
    const models::Fluid f = fluid();
    return models::residual_functions(f, models::eos_at(f, T), T, p, v);
}

std::vector<std::string> CalcTest::lines() const {
    std::vector<std::string> all;
    for (const report::ListLine& line : resultText.lines) all.push_back(line.text);
    return all;
}

bool CalcTest::has_line(const std::string& line) const {
    const std::vector<std::string> all = lines();
    return std::find(all.begin(), all.end(), line) != all.end();
}
