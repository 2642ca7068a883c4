#pragma once

#include <string>

#include "report/result.h"

namespace quor::report {

/// A calculated tank; after a failure it has no figures.
struct TankState {
    bool global = true;
    double T = 0, Tcrit = 0;                                 ///< K
    double p = 0;                                            ///< kPa
    double level = 0;                                        ///< filling level, per cent by volume
    calculation::Reason reason = calculation::Reason::none;  ///< why there is no result
    models::Units units{};                                   ///< of the result
};
/// "V = 0.5 m^3" and so on: what a tank was calculated from.
std::string given_text(const calculation::Tank& tank, const models::Units& units);
/// The tank of a result.
TankState tank_state_of(const TaskResult& result);

/// What `TankView` shows.
struct TankPicture {
    std::string title;    ///< of the view
    std::string caption;  ///< of the frame
    double level = 0;     ///< filling level, per cent of the volume, 0 to 100
    std::string level_text;
    std::string p_text;
    std::string hint;            ///< where help on an error is, else empty
    std::string lower_text;      ///< in the filled part
    std::string upper_text;      ///< in the rest
    bool supercritical = false;  ///< one colour
    bool error = false;          ///< red
    bool empty = false;          ///< no phase is drawn
    /// The smaller of the two parts for the section of the cylinder, per cent; `mirrored` when that
    /// is the V part.
    double section = 0;
    bool mirrored = false;
};

/// The picture of a tank.
TankPicture describe_tank(const TankState& tank);

}  // namespace quor::report
