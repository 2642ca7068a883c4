#pragma once

#include <string>

#include "session/declare.h"

/// Caloric and residual functions, reference state.
namespace thermo {

struct ReferenceBase {
    double h = 0;  ///< kJ/kmol
    double s = 0;  ///< kJ/(kmol K), corrected to the pressure
};
/// Reference enthalpy and entropy by the mode of `Declare::reference`, s corrected to p/kPa.
/// Modes 2 and 10 set T0 and p0 of the record; a p0 of 0 becomes 101.325.
ReferenceBase ReferenceValues(double p);

struct BensonProposal {
    Declare::BensonPoint point;
    std::string text;  ///< lines joined by '\n'; empty when there is no proposal
};
/// The second reference point of Benson's method as far as the data allow; zeros when they do not.
BensonProposal ProposeBensonReference();

}  // namespace thermo
