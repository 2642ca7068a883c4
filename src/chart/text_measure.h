#pragma once

#include <functional>
#include <optional>
#include <string>

#include "chart/chart_style.h"

namespace quor::chart {

/// Size of a text in pixels of 1/96 inch.
struct TextSize {
    double width = 0, height = 0;
};

/// Measures texts; the views supply it, so that layouts need no window.
using MeasureText = std::function<TextSize(const std::string&, const Font&)>;

/// The same measure, which measures each text once; for one layout, in which many are asked for
/// again and again.
MeasureText measured_once(const MeasureText& measure);

/// A number in power form, "-2.5e6": drawn as mantissa, a dot, ten and a raised exponent.
struct PowerText {
    std::string mantissa;  ///< empty for 1, of which only the power is drawn
    std::string exponent;
    friend bool operator==(const PowerText&, const PowerText&) = default;
};

/// The parts of a text that is a number in power form, else nothing.
std::optional<PowerText> as_power(const std::string& text);

}  // namespace quor::chart
