#pragma once

#include "chart/chart_style.h"

namespace quor::chart {

inline constexpr int kPaletteSize = 24;

/// Colour of the curve with this index (0, 1, ...), repeating after 24. Three groups of eight; in
/// a group all colours stay apart for readers with protanopia, deuteranopia and tritanopia, and
/// have eight different grey values. The groups differ by `default_pattern`.
Colour default_colour(int index);

/// Line pattern that goes with `default_colour`: solid, dashed, dash-dotted by groups of eight.
LinePattern default_pattern(int index);

/// Symbol of the point set with this index (0, 1, ...): filled and open shapes in turn.
SymbolShape default_symbol(int index);

/// Colour at a fraction 0..1 of the scale for surfaces: dark blue over green to light yellow, with
/// lightness that rises all the way, so that it also reads in grey.
Colour scale_colour(double fraction);

/// Relative luminance of sRGB, 0 (black) to 1 (white), IEC 61966-2-1.
double luminance(Colour colour);

/// Lightness L* of CIE 1976 for the D65 white, 0 to 100.
double lightness(Colour colour);

/// `colour` laid with its alpha over `paper`; the result is opaque.
Colour over(Colour colour, Colour paper);

/// Channels multiplied by `factor` >= 0 and cut at white; alpha stays.
Colour scaled(Colour colour, double factor);

}  // namespace quor::chart
