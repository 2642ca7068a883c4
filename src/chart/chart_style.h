#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// What charts show, as plain records without a window, and the operations on them.
namespace quor::chart {

/// An opaque or translucent colour, 8 bits a channel.
struct Colour {
    std::uint8_t r = 0, g = 0, b = 0, a = 255;
    friend bool operator==(const Colour&, const Colour&) = default;
};

/// A colour from 0xRRGGBB.
constexpr Colour rgb(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value >> 16 & 0xFF),
            static_cast<std::uint8_t>(value >> 8 & 0xFF), static_cast<std::uint8_t>(value & 0xFF)};
}

inline constexpr Colour kWhite = rgb(0xFFFFFF);
inline constexpr Colour kInk = rgb(0x202124);        ///< texts and axes on the white sheet
inline constexpr Colour kGridGrey = rgb(0xD0D4D9);   ///< grid lines
inline constexpr Colour kFrameGrey = rgb(0x8A9099);  ///< frames of legends and labels

/// A face; an empty family is the program's sans serif face. Size in points (1/72 inch).
struct Font {
    std::string family;
    float size = 10;
    bool bold = false;
    bool italic = false;
    friend bool operator==(const Font&, const Font&) = default;
};

/// How a line is drawn. The order is that of `kLinePatternNames`.
enum class LinePattern : std::uint8_t { None, Solid, Dotted, Dashed, DashDotted };

inline constexpr std::array<std::string_view, 5> kLinePatternNames{
    "Single points only", "Curve solid", "Curve dotted", "Curve dashed", "Curve dash-dotted"};

/// Shapes of points. The order is that of `kSymbolNames`.
enum class SymbolShape : std::uint8_t {
    Dot,
    Box,
    Triangle1,
    Diamond,
    Star,
    VerticalLine,
    HorizontalLine,
    Cross,
    Circle,
    Square,
    Triangle2,
    Triangle3,
    OpenDiamond,
    Triangle4,
    Hidden
};

inline constexpr std::array<std::string_view, 15> kSymbolNames{
    "Dot",   "Box",    "Triangle 1", "Diamond",    "Star",       "Vertical line", "Horizontal line",
    "Cross", "Circle", "Square",     "Triangle 2", "Triangle 3", "Open Diamond",  "Triangle 4",
    "hidden"};

/// A line around a text, a legend or an area. Width in pixels of 1/96 inch.
struct Frame {
    bool shown = false;
    Colour colour = kFrameGrey;
    float width = 1;
    friend bool operator==(const Frame&, const Frame&) = default;
};

/// A line. Width in pixels of 1/96 inch.
struct LineStyle {
    LinePattern pattern = LinePattern::Solid;
    Colour colour = kInk;
    float width = 1.5F;
    friend bool operator==(const LineStyle&, const LineStyle&) = default;
};

/// A place on the sheet as fractions of its width and height, (0, 0) at the left top.
struct SheetPlace {
    double x = 0.5, y = 0.5;
    friend bool operator==(const SheetPlace&, const SheetPlace&) = default;
};

/// Header or footer. `automatic` centres it over or under the plot area, where room is kept for
/// it; else its centre is at `place`.
struct Caption {
    std::string text;
    Font font;
    Colour colour = kInk;
    bool automatic = true;
    SheetPlace place;
    friend bool operator==(const Caption&, const Caption&) = default;
};

/// Place and size of a printed picture on the page, in cm.
struct PrintPlace {
    double left = 2, top = 2, width = 16, height = 11;
    friend bool operator==(const PrintPlace&, const PrintPlace&) = default;
};

}  // namespace quor::chart
