#include "report/tank_picture.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/single.h"
#include "report/quantity_text.h"

namespace quor::report {

using calculation::Reason;

namespace {

/// What went wrong, in the place of the pressure.
const char* error_text(Reason reason) {
    switch (reason) {
        case Reason::belowVirial:
            return " Error: v < B";
        case Reason::belowCovolume:
            return " Error: v <= b";
        case Reason::noVapourPressure:
            return " Error: no p(LV)";
        case Reason::noVapourDensity:
            return " Error: no rho_V";
        case Reason::noTankLiquidDensity:
            return " Error: no rho_L";
        case Reason::noTank:
            return " Error: no tank";
        default:
            return " Error: no state found";
    }
}

void tell_error(TankPicture& picture, Reason reason) {
    picture.error = true;
    picture.level_text = "Error";
    picture.p_text = error_text(reason);
    picture.hint = "cf. help \"Tank\"";
    // What is denser than its equation allows leaves no room for a V phase.
    picture.level = reason == Reason::belowCovolume ? 100.0 : 0.0;
    picture.empty = reason != Reason::belowCovolume;
}

void tell_content(TankPicture& picture, const TankState& tank) {
    constexpr double kLargePressure = 10000.0;
    picture.level = std::clamp(tank.level, 0.0, 100.0);
    picture.supercritical = tank.T >= tank.Tcrit;
    picture.level_text =
        "Filling level " + numbers::format_point(picture.level, "##0.0#") + "vol.-%";
    picture.lower_text = picture.supercritical ? " supercritical" : "  L-phase";
    picture.upper_text = picture.supercritical ? "" : "  V-phase";
    picture.p_text = "p = " +
                     by_mask(tank.units, Dimension::pressure, tank.p,
                             tank.p < kLargePressure ? "###0.0##" : "######0.0#") +
                     " " + unit_name(tank.units, Dimension::pressure);
}

}  // namespace

std::string given_text(const calculation::Tank& tank, const models::Units& units) {
    const auto line = [&](const char* symbol, Dimension dimension, float value) {
        const double z = shown(units, dimension, digits_of(value));
        return symbol +
               (numbers::fits_single(z) ? numbers::general(static_cast<float>(z))
                                        : numbers::general(z)) +
               " " + unit_name(units, dimension);
    };
    return line("V = ", Dimension::tankVolume, tank.V) + '\n' +
           line("m = ", Dimension::mass, tank.m) + '\n' +
           line("T = ", Dimension::temperature, tank.T);
}

TankState tank_state_of(const TaskResult& result) {
    const calculation::Answer& a = result.answer;
    TankState state{.global = result.request.method.global,
                    .T = static_cast<double>(result.request.tank.T),
                    .Tcrit = result.made.fluid.substance().Tcrit,
                    .p = 0,
                    .level = 0,
                    .reason = a.reason,
                    .units = result.made.units};
    // Without a failure of its own: a number of the result that cannot be written.
    if (a.ok() && (result.failed() || !a.tank)) state.reason = Reason::arithmetic;
    if (state.reason != Reason::none) return state;
    state.p = static_cast<double>(static_cast<float>(a.p));
    state.level = static_cast<double>(static_cast<float>(a.tank->level()));
    return state;
}

TankPicture describe_tank(const TankState& tank) {
    constexpr double kHalf = 50.0, kLargestMirrored = 99.85, kLargest = 49.8, kSmallest = 1e-6;
    TankPicture picture;
    picture.title =
        tank.global ? "Tank Calculation (global method) " : "Tank Calculation (partial method)";
    picture.caption = "Cylinder shaped tank";
    if (tank.reason == Reason::none)
        tell_content(picture, tank);
    else
        tell_error(picture, tank.reason);

    picture.mirrored = picture.level > kHalf && picture.level <= kLargestMirrored;
    picture.section =
        std::clamp(picture.mirrored ? 100.0 - picture.level : picture.level, kSmallest, kLargest);
    return picture;
}

}  // namespace quor::report
