#pragma once

#include <vector>

#include "chart/picture2d.h"

/// Keeps the painting of a picture within a time that nobody waits for, whatever a chart holds; for
/// the picture maker only. Times are microseconds as a usual desktop machine needs them.
namespace quor::chart::work {

inline constexpr double kLineTime = 22000;          ///< for the lines of all series
inline constexpr double kSymbolTime = 15000;        ///< for the symbols of all series
inline constexpr double kTextTime = 8000;           ///< for the labels and the legend, each
inline constexpr std::size_t kMostPoints = 200000;  ///< that are looked at, of all series

/// Leaves out the points of a line that lie on the way between others, to a tenth of a pixel.
void straighten(std::vector<SheetPoint>& points);

/// Makes lines fine, then leaves out points evenly, until the lines are painted within
/// `kLineTime`. True when points were left out.
bool lighten(std::vector<PictureLine>& lines);

/// Leaves out symbols of which another one of the same series stands near, no further apart than it
/// takes to paint them within `kSymbolTime`.
void lighten(std::vector<PictureSymbols>& symbols);

/// The time that a text takes.
double time_of(const std::string& text, const Font& font, int rotation);

}  // namespace quor::chart::work
