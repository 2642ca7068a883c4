#pragma once

#include <string>

#include "models/fluid.h"
#include "models/reference_record.h"

/// Caloric and residual functions, reference state.
namespace quor::models {

struct ReferenceBase {
    double h = 0;  ///< kJ/kmol
    double s = 0;  ///< kJ/(kmol K), corrected to the pressure
};

/// Modes 2 and 10 fix T0 and p0 of the record; a p0 of 0 becomes 101.325.
void settle_reference(ReferenceState& reference);
/// Reference enthalpy and entropy of a settled record by its mode (1 zero, 2 conventional, 10
/// quantities of formation), s corrected from p0 to p/kPa; p <= 0 leaves s as it is.
ReferenceBase reference_base(const SubstanceRecord& substance, const ReferenceState& reference,
                             double p);

struct BensonProposal {
    BensonPoint point;
    std::string text;  ///< lines joined by '\n'; empty when there is no proposal
};
/// The second reference point of Benson's method as far as the data allow; zeros when they do not.
BensonProposal propose_benson_reference(const Fluid& fluid);

}  // namespace quor::models
