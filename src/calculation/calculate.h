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

    /// All functions at T/K, p/kPa and v in m^3/kmol. Nothing when the fluid has no ideal-gas cp,
    /// the equation no state there, or the surroundings none.
    std::optional<FunctionValues> functions_at(double T, double p, double v) const;

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
