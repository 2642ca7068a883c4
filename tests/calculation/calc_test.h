#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "calculation/calc_batch.h"
#include "calculation/result_text.h"
#include "support/session_test.h"

using namespace quor;

/// Base of the tests of the calculation engine: a fluid, its models, and calls of `CalcBatch`.
class CalcTest : public SessionTest {
  protected:
    /// A list of `CalcMode` or model codes.
    using Codes = std::initializer_list<std::int16_t>;

    /// The models of a calculation; the defaults are those of most tests.
    struct Models {
        std::int16_t eos = 6;
        std::string vp = "WAG";
        bool priority = true;
        std::int16_t hlv = 7;
        std::int16_t cp = 2;
    };

    /// The active fluid: the reference propane (empty name) or a row of the substance table.
    static void use_fluid(std::string_view name = {});
    /// Makes models active for the present fluid.
    static void use_models(const Models& models);
    /// 0 molar, 1 specific, 2 reduced.
    static void use_units(int mode);
    /// A second reference point: the proposal for the present fluid.
    static void use_benson_reference();

    /// One data set as direct input (element 0) or as the only experimental one (element 1).
    static void use_input(const calculation::BatchDataSet& set, bool batch = false);
    /// Calculates in `mode` on the present input.
    static calculation::CalcCall calculate(std::int16_t mode, bool quiet = false,
                                           bool interactive = true);

    /// Lines of the list.
    static std::vector<std::string> lines();
    /// True when the list has that line.
    static bool has_line(const std::string& line);
};
