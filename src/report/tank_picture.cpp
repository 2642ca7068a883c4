#include "report/tank_picture.h"

#include <algorithm>

#include "common/numbers.h"

namespace quor::report {

using calculation::Reason;

TankState tank_state_of(const TaskResult& result) {
    const calculation::Answer& a = result.answer;
    TankState state{.global = result.request.method.global,
                    .T = static_cast<double>(result.request.tank.T),
                    .Tcrit = result.made.fluid.substance().Tcrit,
                    .p = static_cast<double>(static_cast<float>(a.p)),
                    .level = 0,
                    .end = TankEnd::ok};
    if (a.tank) state.level = static_cast<double>(static_cast<float>(a.tank->level()));
    if (a.reason == Reason::belowCovolume && state.global) state.end = TankEnd::belowCovolume;
    if (a.reason == Reason::noVapourPressure) state.end = TankEnd::noPressure;
    if (a.reason == Reason::belowVirial) state.end = TankEnd::belowVirial;
    return state;
}

TankPicture describe_tank(const TankState& tank) {
    constexpr double kHalf = 50.0, kLargestMirrored = 99.85, kLargest = 49.8, kSmallest = 1e-6;
    constexpr double kLargePressure = 10000.0;
    TankPicture picture;
    picture.title =
        tank.global ? "Tank Calculation (global method) " : "Tank Calculation (partial method)";
    picture.caption = "Cylinder shaped tank";
    picture.error = tank.end == TankEnd::belowVirial;
    const bool full = tank.end == TankEnd::belowCovolume || tank.end == TankEnd::noPressure;
    picture.level = full ? 100.0 : std::clamp(tank.level, 0.0, 100.0);
    picture.supercritical = tank.T >= tank.Tcrit;

    if (picture.error) {
        picture.level_text = "Error";
    } else {
        picture.level_text =
            "Filling level " + numbers::format_point(picture.level, "##0.0#") + "vol.-%";
        picture.lower_text = picture.supercritical ? " supercritical" : "  L-phase";
        picture.upper_text = picture.supercritical ? "" : "  V-phase";
    }

    const double p = tank.p;
    if (picture.error) {
        picture.p_text = " Error: v < B";
        picture.hint = "cf. help \"Tank\"";
    } else if (!full) {
        picture.p_text =
            "p = " + numbers::format(p, p < kLargePressure ? "###0.0## kPa" : "######0.0# kPa");
    }

    picture.mirrored = picture.level > kHalf && picture.level <= kLargestMirrored;
    picture.section =
        std::clamp(picture.mirrored ? 100.0 - picture.level : picture.level, kSmallest, kLargest);
    return picture;
}

}  // namespace quor::report
