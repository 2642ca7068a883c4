#pragma once

#include <cstddef>
#include <string>

#include "calculation/iso_search.h"
#include "calculation/request.h"
#include "models/fluid.h"

namespace quor::report {

/// What the input view asks for.
enum class InputKind { state, tank, reference };

/// The typed values of a direct calculation, and the substance that they were typed for.
struct DirectValues {
    double T = 0;   ///< K
    double p = 0;   ///< kPa
    float rho = 0;  ///< kg/m^3
    std::string substance;
};

/// What the calculation views work on.
struct CalculationState {
    calculation::Task task = calculation::Task::none;
    calculation::Method method;
    calculation::Pages pages;
    DirectValues direct;
    InputKind input = InputKind::state;
    std::size_t data_set = 0;   ///< number of the measured data set in view, from 1 on; 0 direct
    bool volume_input = false;  ///< a volume is typed instead of a density
    calculation::IsoFunction iso_function = calculation::IsoFunction::V;
    calculation::IsoGiven iso_given = calculation::IsoGiven::p;
};

/// What names a substance in `DirectValues`.
std::string substance_key(const models::Fluid& fluid);

/// The request of a direct calculation.
calculation::Request direct_request(const CalculationState& state, const calculation::Tank& tank);
/// The request of a measured data set.
calculation::Request measured_request(const CalculationState& state,
                                      const calculation::BatchDataSet& set);

}  // namespace quor::report
