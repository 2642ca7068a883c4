#include "diagrams/parameter_input.h"
#include "legacy/current_fluid.h"

#include <cmath>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/catalogue.h"
#include "legacy/declare.h"
#include "models/state_solver.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using legacy::the_session;

constexpr double kMostTOrP = 1000000, kMostV = 100000;
constexpr double kLeastT = 0.9, kLeastP = 0.001;  // K, kPa
constexpr double kNearCovolume = 1.03;
constexpr std::int16_t kReduced = 2;

double TF() {
    return static_cast<double>(the_session.TemperatureFactor);
}
double PF() {
    return static_cast<double>(the_session.PressureFactor);
}

/// Co-volume of a cubic EOS at the diagram's T, m^3/kmol; 0 for the others.
double covolume() {
    if (legacy::the_models.EOSOnlyV) return 0;
    const models::StateTP state = models::solve_state_tp(
        models::current_fluid(), the_session.DiagramT, legacy::the_substance.pcrit);
    return state.state.eosB;
}

bool take_T(double typed) {
    if (!(typed > 0 && typed > kLeastT * TF() && typed <= kMostTOrP)) return false;
    the_session.DiagramT = typed / TF();
    return true;
}

bool take_p(double typed) {
    if (!(typed > kLeastP * PF() && typed <= kMostTOrP)) return false;
    the_session.DiagramP = typed / PF();
    return true;
}

ParameterAnswer take_v(double typed) {
    if (!(typed > 0 && typed <= kMostV)) return ParameterAnswer::Invalid;
    const double v = typed / the_session.VolumeFactor;
    const double b = covolume();
    if (b > 0 && v <= b) {
        dialogs::tell("v < b not possible", "Execution not possible");
        return ParameterAnswer::Refused;
    }
    if (b > 0 && v < kNearCovolume * b)
        dialogs::tell("There are possibly problems during calculation", "WARNING");
    the_session.DiagramV = v;
    return ParameterAnswer::Taken;
}

std::string shown(double value, const char* plain, const std::string& unit) {
    const bool reduced = the_session.UnitMode == kReduced;
    return numbers::Format(value, reduced ? "######0.00" : plain) +
           (reduced ? std::string() : " " + unit);
}

}  // namespace

ParameterField field_of(std::int16_t sectionKind) {
    switch (sectionKind) {
        case kIsobaric:
            return {"Isobar", "p = ", the_session.PressureLabel, the_session.DiagramP * PF()};
        case kIsochoric:
            return {"Isochore", "v = ", the_session.VolumeLabel,
                    the_session.DiagramV * the_session.VolumeFactor};
        default:
            return {"Isotherm", "T = ", the_session.TemperatureLabel, the_session.DiagramT * TF()};
    }
}

std::string shown_parameter(std::int16_t sectionKind) {
    switch (sectionKind) {
        case kIsothermal:
            return "T = " + shown(the_session.DiagramT * TF(), "####0.0", "K");
        case kIsobaric:
            return "p = " + shown(the_session.DiagramP * PF(), "#####0.0##", "kPa");
        case kIsochoric:
            return "v = " + shown(the_session.DiagramV * the_session.VolumeFactor, "####0.0####",
                                  the_session.VolumeLabel);
        default:
            return {};
    }
}

ParameterAnswer take_parameter(std::int16_t sectionKind, double typed) {
    if (!std::isfinite(typed)) return ParameterAnswer::Invalid;
    if (sectionKind == kIsochoric) {
        const ParameterAnswer answer = take_v(typed);
        if (answer != ParameterAnswer::Taken) return answer;
    } else if (sectionKind == kIsobaric ? !take_p(typed) : !take_T(typed)) {
        return ParameterAnswer::Invalid;
    }
    the_session.CaloricFactor =
        session::caloric_factor_of(the_session.CaloricUnit, the_session.DiagramT);
    return ParameterAnswer::Taken;
}

std::string take_range(std::int16_t sectionKind, double fixed, double start, double end) {
    const bool runsInT = sectionKind == kIsobaric;
    for (const double value : {fixed, start, end}) {
        if (!std::isfinite(value)) return "Input incomplete or not valid";
        if (!(value > 0)) return "specificated p and T have to be > 0";
        if (value > kMostTOrP) return "Input incomplete or not valid";
    }
    if (start == end) return "specification of the range is not valid ";
    const double factor = runsInT ? TF() : PF();
    const bool taken = runsInT ? take_p(fixed) : take_T(fixed);
    if (!taken) return "Input incomplete or not valid";
    legacy::the_processLine.RangeIsT = runsInT ? 1 : 0;
    legacy::the_processLine.RangeStart = start / factor;
    legacy::the_processLine.RangeEnd = end / factor;
    the_session.CaloricFactor =
        session::caloric_factor_of(the_session.CaloricUnit, the_session.DiagramT);
    return {};
}

bool is_vapour_fraction(double fraction) {
    return std::isfinite(fraction) && fraction >= 0 && fraction <= 1;
}

}  // namespace quor::Module9
