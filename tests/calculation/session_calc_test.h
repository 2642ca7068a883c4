#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "legacy/wrappers.h"
#include "session/calculations.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

/// Base of the tests of what the calculation views ask of the session.
class SessionCalcTest : public SessionTest {
  protected:
    /// A list of task codes.
    using Codes = std::initializer_list<int>;

    struct Models {
        int eos = 6;
        bool priority = true;
        int hlv = 7;
    };

    SessionCalcTest() {
        legacy::the_substance = fluids::ReferencePropane();
        use_models({});
    }

    static void use_models(const Models& m) {
        models::ModelSelection& models = legacy::the_models;
        models.EOSModel = codes::eos(m.eos);
        models.EOSOnlyV = models::is_v_only(models.EOSModel);
        models.VPModel = models::VapourPressureEquation::wagner;
        models.PriorityCEOS = m.priority && !models.EOSOnlyV;
        models.HLVModel = codes::hlv(m.hlv);
        models.WatsonN = 0.38F;
        models.CpModel = models::CpForm::sinhCosh;
        models::calc_eos_parameters(models.EOSModel);
    }

    static report::CalculationState& state() { return legacy::the_session.calculation; }
    static const report::Report& resultText() { return legacy::the_results.current.report; }

    /// Calculates by a task's code at T and p, as typed.
    static const report::TaskResult& calculate(int code, double T, double p) {
        state().task = calculation::task_of_code(code);
        calculation::Request request;
        request.task = state().task;
        request.given.T = T;
        request.given.p = p;
        return session::calculate(request);
    }

    static std::vector<std::string> lines() {
        std::vector<std::string> all;
        for (const report::ListLine& line : resultText().Liste) all.push_back(line.text);
        return all;
    }
    static bool has_line(const std::string& line) {
        const std::vector<std::string> all = lines();
        return std::find(all.begin(), all.end(), line) != all.end();
    }
};
