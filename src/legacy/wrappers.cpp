#include "legacy/wrappers.h"

#include <cstdlib>

#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "models/equilibrium.h"
#include "models/parameter_program.h"
#include "session/module2.h"

namespace quor::models {

namespace {

constexpr int kSilentDeviation = 5;
void warn_of_range(std::int16_t deviation, const char* beginning) {
    if (std::abs(deviation) <= 10) return;
    dialogs::tell(beginning + numbers::Format(deviation, "0") +
                      " K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)",
                  "Warning concerning vapour pressure equation");
}

std::chrono::milliseconds parameterWait{100000};
bool parametersGiven = false;

Saturation publish(const Saturation& r) {
    legacy::the_vRoots = r.v;
    legacy::the_eosState = r.state;
    return r;
}

/// The last surroundings and what they were evaluated for.
const Surroundings& current_surroundings() {
    static Fluid fluid;
    static ReferenceState reference;
    static Surroundings last;
    const Fluid now = current_fluid();
    if (!(now == fluid) || !(legacy::the_reference == reference)) {
        last = surroundings_state(now, legacy::the_reference);
        fluid = now;
        reference = legacy::the_reference;
    }
    return last;
}

void tell_range(const std::string& text, const char* equation) {
    dialogs::tell(text, std::string("Warning concerning ") + equation);
}

/// Boxes on temperatures far outside the ranges of the equations used.
void tell_ranges(const EnthalpyOfVaporisationResult& r) {
    constexpr int kSilent = 5, kSilentPressure = 10;
    constexpr auto kPressure = "vapour pressure equation";
    constexpr auto kPressureRange =
        " K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)";
    if (std::abs(r.pressureDeviation) > kSilentPressure)
        tell_range(" temperature" + numbers::Format(r.pressureDeviation, "0") + kPressureRange,
                   kPressure);
    if (std::abs(r.temperatureDeviation) > kSilentPressure)
        tell_range("Temperature " + numbers::Format(r.temperatureDeviation, "0") + kPressureRange,
                   kPressure);
    if (std::abs(r.deviation) > kSilent)
        tell_range("Temperature " + std::to_string(r.deviation) +
                       " K outside parameter validity\n(cf. Data/Parameters delta(LV)h = Fu(T))",
                   "equation delta(LV)h = Fu(T)");
    if (std::abs(r.densityDeviation) > kSilent)
        tell_range(" temperature" + std::to_string(r.densityDeviation) +
                       " K outside parameter validity\n"
                       "(for temperature range cf. window \"Models\")",
                   "the equation rho_L = Fu(T)");
}

}  // namespace

Fluid current_fluid() {
    using namespace legacy;
    static Fluid last;
    const bool same = last.models() == the_models && last.eos() == the_eosParameters &&
                      last.jt() == the_jiTorvik && last.substance() == the_substance;
    if (!same) last = Fluid(the_substance, the_models, the_eosParameters, the_jiTorvik);
    return last;
}

Status obtain_ji_torvik_parameters(Eos eos) {
    if (parametersGiven) return kSuccess;
    legacy::the_jiTorvik = {};
    const session::BusyPointer busy;
    const bool present = session::file_exists("djipar.exe");
    const auto answer = ask_parameter_program(
        {present ? session::find_file("djipar.exe") : "", session::write_folder(), parameterWait},
        legacy::the_substance, legacy::the_models.VPModel, eos);
    if (answer) {
        legacy::the_jiTorvik = *answer;
        return kSuccess;
    }
    if (answer.reason() != "No parameter-file generated.") return 2;
    dialogs::tell(answer.reason(), "Execution not possible");
    return 1;
}

Status calc_eos_parameters(Eos eos) {
    EOSParameters& e = legacy::the_eosParameters;
    if (eos == Eos::manualVirial) legacy::the_models.manualVirial = {e.eosB0, e.eosNB, e.eosNV};
    e = {};
    if (eos == Eos::jiTorvik1 || eos == Eos::jiTorvik2) {
        if (obtain_ji_torvik_parameters(eos) > 0) {
            dialogs::tell("Error during EOS-parameter calculation", "Execution not possible",
                          dialogs::Icon::Stop);
            return 1;
        }
    }
    try {
        ModelSelection models = legacy::the_models;
        models.EOSModel = eos;
        models.jiTorvik = legacy::the_jiTorvik;
        const EosConstants k = eos_constants(legacy::the_substance, models);
        e = k.power;
        legacy::the_jiTorvik = k.jiTorvik;
    } catch (const faults::Fault&) {
        e = {};
        return 1;
    }
    return kSuccess;
}

void eval_eos_at_t(double T) {
    legacy::the_eosState = eos_at(current_fluid(), T, legacy::the_eosState);
}

DensityResult density_l(float T, bool warn) {
    const DensityResult r = density_liquid(legacy::the_substance, T);
    if (warn && std::abs(r.deviation) > kSilentDeviation) {
        dialogs::tell(" temperature" + std::to_string(r.deviation) +
                          " K outside parameter validity\n"
                          "(for temperature range cf. window \"Models\")",
                      "Warning concerning the equation rho_L = Fu(T)");
    }
    return r;
}

DensityResult density_s(float T, bool warn) {
    const SubstanceRecord& s = legacy::the_substance;
    const DensityResult r = density_solid(s, T);
    if (warn && std::abs(r.deviation) > kSilentDeviation) {
        dialogs::tell(" Temperature" + std::to_string(r.deviation) +
                          " K outside T-range of the parameters\n(range of validity: " +
                          std::to_string(s.rhoSTLo) + " ... " + std::to_string(s.rhoSTHi) + ")",
                      "Warning concerning the function rho(S) = Fu(T)");
    }
    return r;
}

CpResult IdealGasCp(double T) {
    return ideal_gas_cp(legacy::the_substance, legacy::the_models.CpModel, T);
}

CpResult cp_liquid(double T) {
    return polynomial_cp(legacy::the_substance.cpL, T);
}

CpResult cp_solid(double T) {
    return polynomial_cp(legacy::the_substance.cpS, T);
}

IdealGasState IdealGasFunctions(double T, double p) {
    settle_reference(legacy::the_reference);
    return ideal_gas_functions(legacy::the_substance, legacy::the_models.CpModel,
                               legacy::the_reference, T, p);
}

Inflexion InflexionPoints(double T) {
    return inflexion_points(current_fluid(), T);
}

PhaseTable ResidualFunctions(double T, double p, double v) {
    models::eval_eos_at_t(T);
    return residual_functions(models::current_fluid(), legacy::the_eosState, T, p, v);
}

Saturation SaturationPressure(double T) {
    return publish(saturation_pressure(current_fluid(), T));
}

Saturation SaturationTemperature(double p, double Tstart) {
    return publish(saturation_temperature(current_fluid(), p, Tstart));
}

StateValues StateFunctions(double T, double p, double v) {
    settle_reference(legacy::the_reference);
    return state_functions(models::current_fluid(), legacy::the_reference, current_surroundings(),
                           T, p, v);
}

SaturationValues SaturationFunctions(double T) {
    settle_reference(legacy::the_reference);
    return saturation_functions(current_fluid(), legacy::the_reference, current_surroundings(), T);
}

PressureResult pressure_from_tv(double T, double v) {
    return pressure_from_Tv(current_fluid(), T, v, legacy::the_eosState);
}

CubicRoots SolveCubic(double T, double p) {
    const CubicRoots r = solve_cubic(legacy::the_eosState, T, p);
    if (r.status == kSuccess) legacy::the_vRoots = r.v;
    return r;
}

StateTP SolveStateTP(double T, double p) {
    const StateTP r = solve_state_tp(current_fluid(), T, p, legacy::the_PhaseRegion);
    legacy::the_PhaseRegion = r.PhaseRegion;
    legacy::the_eosState = r.state;
    if (legacy::the_models.EOSOnlyV) {
        legacy::the_Bvirial = r.Bvirial;
    } else {
        legacy::the_vRoots = r.v;
    }
    return r;
}

Areas AreaRatio(double T, double p) {
    return area_ratio(legacy::the_eosState, legacy::the_vRoots, T, p);
}

TemperatureResult TemperatureFromPRho(double p, double rho, bool singlePhaseOnly) {
    const TemperatureResult r = temperature_from_p_rho(current_fluid(), p, rho, singlePhaseOnly);
    if (r.T > 0) eval_eos_at_t(r.T);
    return r;
}

VapourPressureResult VapourPressure(double T, VapourPressureEquation code, bool warn) {
    const VapourPressureResult r = vapour_pressure(legacy::the_substance, T, code);
    if (warn && r.status == kSuccess) warn_of_range(r.deviation, " temperature");
    return r;
}

BoilingTemperatureResult BoilingTemperature(double p, VapourPressureEquation code, bool warn) {
    const BoilingTemperatureResult r = boiling_temperature(legacy::the_substance, p, code);
    if (warn && r.status == kSuccess) warn_of_range(r.deviation, "Temperature ");
    return r;
}

SlopeResult VapourPressureSlope(double T, VapourPressureEquation code) {
    return vapour_pressure_slope(legacy::the_substance, T, code);
}

void CorrelateVapourPressure(VapourPressureEquation index, double Tcrit, double pcrit,
                             double Tboil) {
    correlate_vapour_pressure(legacy::the_substance, index, Tcrit, pcrit, Tboil);
}

void CorrelateAugust() {
    correlate_august(legacy::the_substance);
}

double SecondVirial(Eos eos, double T) {
    ModelSelection models = legacy::the_models;
    models.EOSModel = eos;
    const Fluid fluid(legacy::the_substance, models, legacy::the_eosParameters,
                      legacy::the_jiTorvik);
    return second_virial(fluid, T, legacy::the_eosState);
}

EnthalpyOfVaporisationResult enthalpy_of_vaporisation(VaporisationModel method, double T, double p,
                                                      VapourPressureEquation vpCode, bool warn,
                                                      std::int16_t dataSet) {
    const auto i = static_cast<std::size_t>(dataSet);
    const bool known = dataSet > 0 && i < legacy::the_BatchData.size();
    const calculation::BatchDataSet row =
        known ? legacy::the_BatchData[i] : calculation::BatchDataSet{};
    const EnthalpyOfVaporisationResult r = enthalpy_of_vaporisation(
        current_fluid(),
        {method, vpCode, legacy::the_session.calculation.method.reference, row.T, row.p}, T, p);
    if (warn) tell_ranges(r);
    return r;
}

EnthalpyEquationResult EnthalpyEquationValue(double T) {
    return enthalpy_equation(legacy::the_substance, T);
}

ReferenceBase ReferenceValues(double p) {
    settle_reference(legacy::the_reference);
    return reference_base(legacy::the_substance, legacy::the_reference, p);
}

BensonProposal propose_benson_reference() {
    return propose_benson_reference(current_fluid());
}

void give_ji_torvik_parameters(bool given) {
    parametersGiven = given;
}
void set_ji_torvik_wait(std::chrono::milliseconds wait) {
    parameterWait = wait;
}

}  // namespace quor::models
