#pragma once

#include <chrono>

#include "legacy/current_fluid.h"
#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/reference_state.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"

/// The models over the process-level records.
namespace quor::models {

Status calc_eos_parameters(Eos eos);
DensityResult density_l(float T, bool warn);
DensityResult density_s(float T, bool warn);
CpResult IdealGasCp(double T);
CpResult cp_liquid(double T);
CpResult cp_solid(double T);
Saturation SaturationPressure(double T);
Saturation SaturationTemperature(double p, double Tstart = 0);
VapourPressureResult VapourPressure(double T, VapourPressureEquation code, bool warn);
BoilingTemperatureResult BoilingTemperature(double p, VapourPressureEquation code,
                                            bool warn = true);
void CorrelateVapourPressure(VapourPressureEquation index, double Tcrit, double pcrit,
                             double Tboil);
void CorrelateAugust();
EnthalpyOfVaporisationResult enthalpy_of_vaporisation(VaporisationModel method, double T, double p,
                                                      VapourPressureEquation vpCode, bool warn,
                                                      std::int16_t dataSet = 0);
EnthalpyEquationResult EnthalpyEquationValue(double T);
Status obtain_ji_torvik_parameters(Eos eos);
/// The parameters of Ji/Torvik are those of the records; the program is not asked.
void give_ji_torvik_parameters(bool given);

}  // namespace quor::models
