#pragma once

#include "models/equation_of_state.h"

/// The rows of the equations of state, each defined in the file of its equation.
namespace quor::models {

extern const EquationOfState kIdealGas, kPitzerCurl, kManualVirial;
extern const EquationOfState kVanDerWaals, kVirialVanDerWaals;
extern const EquationOfState kBerthelot, kVirialBerthelot;
extern const EquationOfState kRedlichKwong, kVirialRedlichKwong;
extern const EquationOfState kSoave, kVirialSoave;
extern const EquationOfState kPengRobinson, kVirialPengRobinson;
extern const EquationOfState kJiTorvik1, kJiTorvik2;

}  // namespace quor::models
