#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "models/caloric.h"
#include "models/density.h"
#include "report/batch_list.h"
#include "report/result.h"
#include "support/scripted_dialogs.h"

using namespace quor;

/// What a calculation is made with, as values that a test may change one by one.
struct Setting {
    models::SubstanceRecord substance;
    models::ModelSelection selection;
    models::EosParameters eos_parameters;
    models::JiTorvikParameters jt;
    models::ReferenceState reference;
    models::UnitChoice units;
    report::CalculationState chosen;

    models::Fluid fluid() const { return {substance, selection, eos_parameters, jt}; }
};

/// Base of the tests of calculations: a fluid, its models, and calls of `make_result`.
class CalcTest : public testing::Test, protected Setting {
  protected:
    CalcTest();
    ~CalcTest() override;

    /// A list of task or model codes.
    using Codes = std::initializer_list<int>;

    /// The models of a calculation; the defaults are those of most tests.
    struct Models {
        int eos = 6;
        std::string vp = "WAG";
        bool priority = true;
        int hlv = 7;
        int cp = 2;
    };

    /// The fluid: the reference propane (empty name) or a row of the substance table.
    void use_fluid(std::string_view name = {});
    /// Chooses models for the present fluid.
    void use_models(const Models& models);
    /// 0 molar, 1 specific, 2 reduced.
    void use_units(int mode);
    /// A second reference point: the proposal for the present fluid.
    void use_benson_reference();

    /// One data set as direct input or as a measured one.
    void use_input(const calculation::BatchDataSet& set, bool measured = false);

    /// How a calculation ended.
    struct Outcome {
        bool Failed, has_L, has_V;
        int root_count;
        float FractionV;
        double Pressure;
    };
    /// Calculates by a task's code on the present input, and shows its boxes.
    Outcome calculate(int code, report::Tell tell = report::Tell::remarks);

    /// Functions at T, p, v of the present fluid.
    std::optional<models::StateValues> state_functions(double T, double p, double v) const;
    std::optional<models::PhaseTable> residual_functions(double T, double p, double v) const;

    /// Lines of the list.
    std::vector<std::string> lines() const;
    /// True when the list has that line.
    bool has_line(const std::string& line) const;

    const Setting& setting() const { return *this; }

    ScriptedDialogs user;
    calculation::BatchDataSet input;
    bool measured = false;
    calculation::Tank tank;
    calculation::Process process;
    report::TaskResult last;  ///< of the last calculation
    const report::Report& resultText = last.report;
    const report::ResultNumbers& numbers = last.numbers;
    const report::ResultRecord& lastRecord = last.record;
};
