#include "chart/palette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quor::chart {

namespace {

// Found by a random search over hue and chroma at eight fixed lightness levels: within a group the
// least distance in CIELAB over normal vision and the three dichromacies (matrices of Machado,
// Oliveira and Fernandes, IEEE Trans. Vis. Comput. Graph. 15 (2009) 1291, severity 1) is above 24.
constexpr std::array<std::uint32_t, kPaletteSize> kCurveColours{
    0x4426BE, 0xD77205, 0x21735C, 0xB10C13, 0x3697FE, 0xB656A6, 0x463056, 0xA7B26C,
    0x2B41D6, 0xFE6C03, 0x108890, 0x98004F, 0x848E51, 0x9BA6F9, 0x004600, 0x8C45AC,
    0x3927BE, 0xCE2202, 0x0C684D, 0x0B90F1, 0xCC449D, 0x83A75A, 0x720504, 0xE596A4};

constexpr std::array kPointSymbols{
    SymbolShape::Circle, SymbolShape::Box,       SymbolShape::Triangle2, SymbolShape::Diamond,
    SymbolShape::Cross,  SymbolShape::Square,    SymbolShape::Triangle1, SymbolShape::OpenDiamond,
    SymbolShape::Star,   SymbolShape::Triangle4, SymbolShape::Dot,       SymbolShape::Triangle3};

// Nodes of the scale for surfaces, equally spaced.
constexpr std::array<std::uint32_t, 7> kScaleNodes{0x2B2A6B, 0x2A4F9B, 0x1F78A8, 0x2A9D93,
                                                   0x66BF74, 0xB9D75B, 0xFBEB77};

double linear(std::uint8_t channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

std::uint8_t channel(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

std::uint8_t mix(std::uint8_t a, std::uint8_t b, double t) {
    return channel(a + (b - a) * t);
}

std::size_t wrapped(int index, std::size_t size) {
    const int n = static_cast<int>(size);
    return static_cast<std::size_t>((index % n + n) % n);
}

}  // namespace

Colour default_colour(int index) {
    return rgb(kCurveColours[wrapped(index, kPaletteSize)]);
}

LinePattern default_pattern(int index) {
    constexpr std::array kPatterns{LinePattern::Solid, LinePattern::Dashed,
                                   LinePattern::DashDotted};
    return kPatterns[wrapped(index, kPaletteSize) / 8];
}

SymbolShape default_symbol(int index) {
    return kPointSymbols[wrapped(index, kPointSymbols.size())];
}

Colour scale_colour(double fraction) {
    const double position = std::clamp(fraction, 0.0, 1.0) * (kScaleNodes.size() - 1);
    const auto node = std::min(static_cast<std::size_t>(position), kScaleNodes.size() - 2);
    const double t = position - static_cast<double>(node);
    const Colour a = rgb(kScaleNodes[node]), b = rgb(kScaleNodes[node + 1]);
    return {mix(a.r, b.r, t), mix(a.g, b.g, t), mix(a.b, b.b, t)};
}

double luminance(Colour colour) {
    return 0.2126 * linear(colour.r) + 0.7152 * linear(colour.g) + 0.0722 * linear(colour.b);
}

double lightness(Colour colour) {
    const double y = luminance(colour);
    // CIE 15: the linear piece holds below (6/29)^3.
    return y > 216.0 / 24389.0 ? 116.0 * std::cbrt(y) - 16.0 : 24389.0 / 27.0 * y;
}

Colour over(Colour colour, Colour paper) {
    const double t = colour.a / 255.0;
    return {mix(paper.r, colour.r, t), mix(paper.g, colour.g, t), mix(paper.b, colour.b, t)};
}

Colour scaled(Colour colour, double factor) {
    return {channel(colour.r * factor), channel(colour.g * factor), channel(colour.b * factor),
            colour.a};
}

}  // namespace quor::chart
