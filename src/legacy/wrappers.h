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
void eval_eos_at_t(double T);
DensityResult density_l(float T, bool warn);
DensityResult density_s(float T, bool warn);
CpResult IdealGasCp(double T);
CpResult cp_liquid(double T);
CpResult cp_solid(double T);
IdealGasState IdealGasFunctions(double T, double p);
Inflexion InflexionPoints(double T);
PhaseTable ResidualFunctions(double T, double p, double v);
Saturation SaturationPressure(double T);
Saturation SaturationTemperature(double p, double Tstart = 0);
StateValues StateFunctions(double T, double p, double v);
SaturationValues SaturationFunctions(double T);
PressureResult pressure_from_tv(double T, double v);
CubicRoots SolveCubic(double T, double p);
StateTP SolveStateTP(double T, double p);
Areas AreaRatio(double T, double p);
TemperatureResult TemperatureFromPRho(double p, double rho, bool singlePhaseOnly);
VapourPressureResult VapourPressure(double T, VapourPressureEquation code, bool warn);
BoilingTemperatureResult BoilingTemperature(double p, VapourPressureEquation code,
                                            bool warn = true);
SlopeResult VapourPressureSlope(double T, VapourPressureEquation code);
void CorrelateVapourPressure(VapourPressureEquation index, double Tcrit, double pcrit,
                             double Tboil);
void CorrelateAugust();
double SecondVirial(Eos eos, double T);
EnthalpyOfVaporisationResult enthalpy_of_vaporisation(VaporisationModel method, double T, double p,
                                                      VapourPressureEquation vpCode, bool warn,
                                                      std::int16_t dataSet = 0);
EnthalpyEquationResult EnthalpyEquationValue(double T);
ReferenceBase ReferenceValues(double p);
BensonProposal propose_benson_reference();
Status obtain_ji_torvik_parameters(Eos eos);
/// The parameters of Ji/Torvik are those of the records; the program is not asked.
void give_ji_torvik_parameters(bool given);
void set_ji_torvik_wait(std::chrono::milliseconds wait);

}  // namespace quor::models
