#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "session/calculations.h"
#include "session/take_models.h"
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
        session.change()->substance = fluids::ReferencePropane();
        use_models({});
    }

    void use_models(const Models& m) {
        const models::Eos eos = codes::eos(m.eos);
        change([&](session::SessionState& s) {
            s.models.eos = eos;
            s.models.vapour_only = models::is_v_only(eos);
            s.models.vapour_pressure = models::VapourPressureEquation::wagner;
            s.models.eos_has_priority = m.priority && !s.models.vapour_only;
            s.models.vaporisation = codes::hlv(m.hlv);
            s.models.watson_n = 0.38F;
            s.models.cp_form = models::CpForm::sinhCosh;
        });
        session::compute_constants(session, eos);
    }

    const report::CalculationState& state() const { return session->calculation; }
    const report::Report& resultText() const { return session->results.current.report; }

    /// Calculates by a task's code at T and p, as typed.
    const report::TaskResult& calculate(int code, double T, double p) {
        session.change()->calculation.task = calculation::task_of_code(code);
        calculation::Request request;
        request.task = state().task;
        request.given.T = T;
        request.given.p = p;
        return session::calculate(session, request);
    }

    std::vector<std::string> lines() const {
        std::vector<std::string> all;
        for (const report::ListLine& line : resultText().lines) all.push_back(line.text);
        return all;
    }
    bool has_line(const std::string& line) const {
        const std::vector<std::string> all = lines();
        return std::find(all.begin(), all.end(), line) != all.end();
    }
};
