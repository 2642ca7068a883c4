#include "calculation/direct_input.h"

#include "calculation/calc_batch.h"
#include "calculation/calc_modes.h"
#include "calculation/start_calculation.h"
#include "calculation/tank.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "session/module2.h"

namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

constexpr std::int16_t kReferenceInput = 4, kTankInput = 33;
constexpr std::size_t kT = 0, kP = 1, kRho = 2, kRhoL = 3;

using Values = std::array<double, 4>;

/// Label of a volume field and text of its frame by `UnitMode`.
struct VolumeLabels {
    const char* frame;
    const char* label;
};
constexpr VolumeLabels kVolumeLabels[] = {
    {" Input molar volume, cf. \"Options\" ", " V/m^3/kmol = "},
    {" Input specif. volume, cf. Options ", "  V/m^3/kg  = "},
    {" Input red. volume, cf. Options ", "  V/(m^3/m^3)= "}};

/// The unit of volume; reduced volumes need a critical volume of the model.
std::size_t volume_unit() {
    if (the_session.UnitMode == 1) return 1;
    return the_session.UnitMode == 2 && legacy::the_eosParameters.vcritCalc > 0 ? 2 : 0;
}

DirectInput reference_input() {
    return {"Input: Reference Point",
            "OK",
            {{{true, "        T/K = "},
              {true, "  p(LV)/kPa = "},
              {true, "rho_L/kg/m^3= "},
              {true, "rho_V/kg/m^3= "}}},
            false,
            {},
            false};
}

DirectInput tank_input(bool amount) {
    return {"Tank Calculation",
            "&Calculate",
            {{{true, "      V/m^3   "},
              {true, amount ? "      n/kmol  " : "      m/kg    "},
              {true, "      T/K     "},
              {}}},
            false,
            {},
            true};
}

DirectInput state_input() {
    DirectInput input{"Input \"Direct calculation\" ", "&Calculate", {}, false, {}, false};
    const unsigned asks = mode_of(the_session.CalcMode).asks;
    if ((asks & kAsksT) != 0) input.fields[kT] = {true, "      T/K     "};
    if ((asks & kAsksP) != 0) input.fields[kP] = {true, "      p/kPa = "};
    if ((asks & kAsksRho) == 0) return input;
    const VolumeLabels& labels = kVolumeLabels[volume_unit()];
    input.volumeFrameVisible = true;
    input.volumeFrame = the_session.VolumeInput ? labels.frame : " Input density kg/m^3 ";
    input.fields[kRho] = {true, the_session.VolumeInput ? labels.label : " rho/kg/m^3 = "};
    return input;
}

/// What is typed in the visible fields; a hidden field counts as 0.
Values values_of(const DirectInput& input, const std::array<std::string, 4>& texts) {
    Values values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        if (input.fields[i].visible) values[i] = numbers::val_input(texts[i]);
    return values;
}

double product(const DirectInput& input, const Values& values) {
    double p = 1.0;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (input.fields[i].visible) p *= values[i];
    return p;
}

double sum(const Values& values) {
    double s = 0;
    for (const double v : values) s += v;
    return s;
}

InputResult refuse() {
    dialogs::tell("no valid input", "Execution not possible");
    return InputResult::Refused;
}

InputResult store_reference(const Values& v) {
    the_session.BensonReference = {numbers::to_single(v[0]), numbers::to_single(v[1]),
                                   numbers::to_single(v[2]), numbers::to_single(v[3])};
    return InputResult::ReferenceStored;
}

InputResult calculate_tank(const Values& v, bool amount) {
    const float V = numbers::to_single(v[0]), T = numbers::to_single(v[2]);
    const float m =
        numbers::to_single(amount ? v[1] * static_cast<double>(legacy::the_substance.M) : v[1]);
    the_session.tank.V = V;
    the_session.tank.m = m;
    the_session.tank.T = T;
    return CalculateTank() == "EXIT" ? InputResult::TankExit : InputResult::TankCalculated;
}

double density_of(double typed) {
    if (typed == 0.0 || !the_session.VolumeInput) return typed;
    session::refresh_units();
    const auto M = static_cast<double>(legacy::the_substance.M);
    return faults::divide(M, typed / the_session.VolumeFactor);
}

InputResult calculate_state(const Values& v) {
    const float rho = numbers::to_single(density_of(v[kRho]));
    const float rhoL = numbers::to_single(v[kRhoL]);
    calculation::BatchDataSet& input = legacy::the_BatchData.front();
    input.T = v[kT];
    input.p = v[kP];
    input.rhoV = rho;
    input.rhoL = rhoL;
    CalcCall call{
        .Mode = the_session.CalcMode, .Index = 0, .Text = mode_title(the_session.CalcMode)};
    CalcBatch(call);
    return InputResult::Calculated;
}

}  // namespace

DirectInput describe_direct_input(bool amount) {
    if (the_session.InputSituation == kReferenceInput) return reference_input();
    if (the_session.InputSituation == kTankInput) return tank_input(amount);
    return state_input();
}

void choose_volume_input(int index) {
    the_session.VolumeInput = index == 1;
}

InputResult accept_input(const std::array<std::string, 4>& texts, bool amount) {
    try {
        const DirectInput input = describe_direct_input(amount);
        const Values values = values_of(input, texts);
        const bool direct = the_session.InputSituation != kReferenceInput &&
                            the_session.InputSituation != kTankInput;
        if (!((direct ? sum(values) : product(input, values)) > kPresent)) return refuse();
        if (the_session.InputSituation == kReferenceInput) return store_reference(values);
        return direct ? calculate_state(values) : calculate_tank(values, amount);
    } catch (const faults::Fault&) {
        // A number beyond the range of its field.
        return refuse();
    }
}

std::string CalculateTank() {
    CalcCall call{.Mode = the_session.CalcMode,
                  .Index = 0,
                  .Interactive = false,
                  .Text = mode_title(the_session.CalcMode)};
    CalcBatch(call);
    the_session.tank.p = 0;
    the_session.tank.level = 0;
    the_session.tank.answer = call.Text;
    if (call.Text == "EXIT") return call.Text;
    the_session.tank.p = static_cast<float>(call.Pressure);
    the_session.tank.level = static_cast<double>(call.FractionV);
    return call.Text;
}

void cancel_input() {
    views().closeParinput();
    views().closeResultView();
}

}  // namespace quor::calculation
