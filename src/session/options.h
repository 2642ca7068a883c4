#pragma once

#include "session/session.h"

namespace quor::session {

/// What the options view shows and sets.
struct OptionChoice {
    bool batch = false;  ///< batch calculation instead of direct calculation
    models::UnitChoice units;
    bool real_range = true;  ///< only T > T(trip) or p > p(trip)
    bool s_without_tie_line = false;
    bool partial_gas = false;
    int points = 300;              ///< points per curve, kMinPoints to kMaxPoints
    bool reduced_possible = true;  ///< critical data are there
    bool s_curve_possible = true;  ///< the EOS is cubic
};

inline constexpr int kMinPoints = 50;
inline constexpr int kMaxPoints = 800;

/// The session's settings as the view opens. Without critical data the unit mode falls back to
/// molar.
OptionChoice open_options(Session& session);

/// Takes other units over, with the limits of diagrams. False when the substance has not what they
/// need (no molar mass): a message tells it and nothing changes.
bool apply_units(Session& session, const models::UnitChoice& units);

/// Takes a choice over: units and their factors, curve options, the mode of the Calculation menu.
/// `units_changed` of the session tells whether a unit changed; the limits of diagrams follow.
/// False when the units cannot be had (no molar mass): a message tells it and nothing changes.
bool apply_options(Session& session, const OptionChoice& choice);

}  // namespace quor::session
