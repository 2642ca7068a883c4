#pragma once

#include "chart/chart_style.h"

namespace quor::chart {

inline constexpr int kPaletteSize = 24;

/// Colour of the curve with this index (0, 1, ...), repeating after 24. Three groups of eight; in
/// a group all colours stay apart for readers with protanopia, deuteranopia and tritanopia, and
/// have eight different grey values. The groups differ by `DefaultPattern`.
Colour DefaultColour(int index);

/// Line pattern that goes with `DefaultColour`: solid, dashed, dash-dotted by groups of eight.
LinePattern DefaultPattern(int index);

/// Symbol of the point set with this index (0, 1, ...): filled and open shapes in turn.
SymbolShape DefaultSymbol(int index);

/// Colour at a fraction 0..1 of the scale for surfaces: dark blue over green to light yellow, with
/// lightness that rises all the way, so that it also reads in grey.
Colour ScaleColour(double fraction);

/// Relative luminance of sRGB, 0 (black) to 1 (white), IEC 61966-2-1.
double Luminance(Colour colour);

/// Lightness L* of CIE 1976 for the D65 white, 0 to 100.
double Lightness(Colour colour);

/// `colour` laid with its alpha over `paper`; the result is opaque.
Colour Over(Colour colour, Colour paper);

/// Channels multiplied by `factor` >= 0 and cut at white; alpha stays.
Colour Scaled(Colour colour, double factor);

}  // namespace quor::chart
