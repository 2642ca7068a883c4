#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quor::chart {

/// A tick of an axis: its value and its number as text, empty for a tick without a number.
struct Tick {
    double value = 0;
    std::string text;
    friend bool operator==(const Tick&, const Tick&) = default;
};

/// What the ticks of one axis are made from.
struct TickRequest {
    double min = 0, max = 1;  ///< the window; as `is_drawable` tells; others have no ticks
    bool logarithmic = false;
    double spacing = 0;    ///< wanted distance of ticks, 0 automatic
    int decimals = -1;     ///< digits behind the decimal mark, -1 automatic
    double length = 400;   ///< length of the axis in pixels
    double distance = 55;  ///< comfortable distance of numbers in pixels
    /// Room that a number takes along the axis in pixels, with its gap to the next one.
    std::function<double(const std::string&)> room;
};

struct Ticks {
    std::vector<Tick> major;    ///< ascending, inside the window; numbers never overlap
    std::vector<double> minor;  ///< between them, without numbers
};

/// True for a window in which values have a place: finite limits in their order whose distance is
/// finite, on a logarithmic axis both above 0 and with a finite ratio.
bool is_drawable(double min, double max, bool logarithmic);

/// Ticks at multiples of 1, 2 or 5 times a power of ten, or of the wanted spacing; on a
/// logarithmic axis over more than a decade at powers of ten. Never more than some hundred: a
/// spacing too small for the window falls back to the automatic one.
Ticks make_ticks(const TickRequest& request);

/// Least of 1, 2, 5 times a power of ten that is not below `rough` > 0.
double nice_step(double rough);

/// Multiples of `step` in the window, those within a millionth of a step of its ends included;
/// empty when they were more than 2000, or when the window is so narrow, or the step so small, that
/// doubles cannot tell them apart.
std::vector<double> multiples(double min, double max, double step);

/// The number of an axis: `decimals` digits, or as many as multiples of `step` need when it is
/// negative. Powers ("2e6") where the largest number of the axis, `largest`, is from 1e6 up, or
/// where more than 5 digits behind the mark are needed. With the locale's decimal mark.
std::string axis_number(double value, double step, double largest, int decimals);

/// A window of round numbers around [min, max]. Equal limits are set apart.
struct NiceWindow {
    double min, max;
};
NiceWindow make_nice_window(double min, double max, bool logarithmic);

}  // namespace quor::chart
