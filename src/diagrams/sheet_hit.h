#pragma once

#include <cstdint>

#include "diagrams/chart/sheet2d.h"
#include "diagrams/diagram_sheet.h"
#include "diagrams/sheet_readout.h"

namespace Module9 {

/// A part of the drawn sheet.
enum class Part : std::uint8_t {
    Sheet,
    Plot,
    Curve,
    ReferenceLine,
    PointSet,
    Label,
    Legend,
    Header,
    Footer,
    XTitle,
    YTitle,
    XAxis,
    YAxis
};

/// What lies at a pixel: `index` is the slot of a curve or point set, or the place of a label in
/// the chart's list.
struct Hit {
    Part part = Part::Sheet;
    int index = -1;
    int point = -1;  ///< nearest point of a curve or set
};

/// The part at a pixel of the laid-out sheet; lines and points count within `reach` pixels.
Hit HitAt(const DiagramSheet& sheet, const chart::Sheet2D& laidOut, double x, double y,
          double reach);

/// The kind of thing for the hint of the status line.
Under UnderOf(Part part);

/// True for what the mouse can move: legend, header, footer, labels that no curve places.
bool IsMovable(const DiagramSheet& sheet, const Hit& hit);

/// Moves such a part by pixels of the laid-out sheet.
void MovePart(DiagramSheet& sheet, const chart::Sheet2D& laidOut, const Hit& hit, double dx,
              double dy);

/// The place of a pixel in the plot area, y upwards as the chart's search wants it.
chart::PlotPixel PlotPixelOf(const chart::Sheet2D& laidOut, double x, double y);

}  // namespace Module9
