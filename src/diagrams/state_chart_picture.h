#pragma once

#include <optional>
#include <string>

#include "chart/chart2d.h"
#include "diagrams/basis.h"
#include "diagrams/state_chart.h"
#include "models/flash.h"

/// State charts as charts that are painted and saved, and the states under their points.
namespace quor::diagrams {

/// The chart of a computed one: dome, critical point, lines of vapour fraction, and families with a
/// colour each whose values stand on their lines. Header and footer name substance, model,
/// reference state and, with exergies, the surroundings.
chart::Chart2D chart_of(const StateChart& values, const Basis& basis);

/// The state that a point of a chart of this kind stands for; nothing where there is none, and for
/// charts over Z and exergy.
std::optional<models::FlashState> state_at(const models::Flash& flash, ChartKind kind, double x,
                                           double y, const models::Units& units);

/// "two phases, x = 0.25   T = 300 K   p = 997.4 kPa   v = ...", in the units of users.
std::string state_text(const models::FlashState& state, const models::Units& units);

}  // namespace quor::diagrams
