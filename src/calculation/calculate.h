#pragma once

#include "calculation/answer.h"
#include "calculation/request.h"
#include "models/caloric.h"
#include "models/fluid.h"
#include "models/reference_record.h"

namespace quor::calculation {

/// Calculations for a fluid with a reference state; the surroundings of the exergies are evaluated
/// once for all of them. Const calls may run in several threads.
class Calculator {
  public:
    Calculator(models::Fluid fluid, models::ReferenceState reference);

    /// Never throws: what cannot be calculated has a reason.
    Answer operator()(const Request& request) const;

    /// The functions at T/K, p/kPa and v in m^3/kmol: all but the volume are missing when the fluid
    /// has no ideal-gas cp or the equation no state there, the exergies without surroundings.
    FunctionValues functions_at(double T, double p, double v) const;
    /// Why some of them are missing.
    Missing missing_of(const FunctionValues& values, double T) const;

    const models::Fluid& fluid() const { return fluid_; }

  private:
    models::Fluid fluid_;
    models::ReferenceState reference_;
    std::optional<models::Surroundings> surroundings_;
};

/// A single calculation.
Answer calculate(const models::Fluid& fluid, const models::ReferenceState& reference,
                 const Request& request);

}  // namespace quor::calculation
