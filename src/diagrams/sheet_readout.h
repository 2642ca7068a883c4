#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "diagrams/diagram_sheet.h"

namespace quor::diagrams {

/// What lies under the pointer.
enum class Under : std::uint8_t { Nothing, Curve, PointSet, Text, Legend, Axis };

/// Name of the parameter that the points of a curve carry, " T/K" and the like; empty for none.
std::string parameter_caption(const DiagramSheet& sheet, int place);

/// The parameter of a point of a drawn curve, in the unit that the caption names.
float shown_parameter_at(const DiagramSheet& sheet, int place, std::size_t point);

/// Text of the status line for a point of the chart: X, Y and the curve's parameter there.
std::string readout(const DiagramSheet& sheet, const chart::NearPoint& near);

/// Text for a place without a point near by, in data coordinates.
std::string place_text(double x, double y);

/// What a right click would do.
std::string hint(Under what);

/// What `cmdLegendInfo` and `cmdMsgDelPoint` explain.
void explain_legend();
void explain_point_deletion();

/// Where the user is led who wants a legend although nothing has a legend text.
enum class LegendAnswer : std::uint8_t { Shown, DesignCurve, DesignPoints };
/// `mnuAddLegend`: shows the legend, or says why there is none.
LegendAnswer add_legend(DiagramSheet& sheet);

}  // namespace quor::diagrams
