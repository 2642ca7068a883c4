#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chart/chart2d.h"
#include "chart/chart_style.h"

namespace quor::chart {

/// A surface over a regular grid: node (i, j) stands at x0 + i dx, y0 + j dy and has the value
/// z[i * ny + j].
struct SurfaceGrid {
    int nx = 0, ny = 0;  ///< nodes in each direction, up to `kMaxNodes`
    double x0 = 0, dx = 1, y0 = 0, dy = 1;
    float hole = kHole;    ///< stands in `z` where there is no surface
    std::vector<float> z;  ///< nx * ny values
    /// Empty, or nx * ny values: the value behind a hole where the surface goes on but was cut off
    /// at a limit of the z axis, `hole` where nothing is known. It lets the edge of the surface be
    /// cut exactly at that limit instead of at the last node.
    std::vector<float> z_behind_holes;

    static constexpr int kMaxNodes = 201;

    /// Sizes the grid and fills it with holes.
    void resize(int columns, int rows);
    /// True for a grid of at least 2 x 2 nodes whose arrays have its size and whose steps are above
    /// 0; no other is drawn.
    bool is_complete() const;
    std::size_t at(int i, int j) const {
        return static_cast<std::size_t>(i) * static_cast<std::size_t>(ny) +
               static_cast<std::size_t>(j);
    }
    double x(int i) const { return x0 + i * dx; }
    double y(int j) const { return y0 + j * dy; }
    bool is_hole(float value) const { return value == hole || !is_shown(value); }
    friend bool operator==(const SurfaceGrid&, const SurfaceGrid&) = default;
};

/// One axis of a surface. The grid flags name the planes of the box that carry its lines; a plane
/// without this axis ignores them.
struct Axis3D {
    double min = 0, max = 1;
    bool automatic = false;  ///< the limits follow the data
    std::string title;
    int decimals = -1;  ///< digits behind the decimal mark, -1 automatic
    bool grid_xy = true, grid_xz = true, grid_yz = true;
    friend bool operator==(const Axis3D&, const Axis3D&) = default;
};

/// From where the surface is seen.
struct View3D {
    double elevation = 25;  ///< degrees above the x-y plane, -90 to 90
    double rotation = -60;  ///< degrees of the viewer about the z axis, 0 in front of the y-z plane
    bool perspective = true;
    double zoom = 1;  ///< 0.2 to 8
    friend bool operator==(const View3D&, const View3D&) = default;
};

/// Views along the axes and the one at the start.
enum class PresetView : std::uint8_t { Default, AlongX, AlongY, AlongZ };

/// Lines of the grid on the surface; `halved` draws every second one.
struct Mesh3D {
    bool x = true, y = true;  ///< lines of constant x, of constant y
    bool halved_x = false, halved_y = false;
    Colour colour = {0x20, 0x24, 0x30, 190};
    float width = 0.8F;
    friend bool operator==(const Mesh3D&, const Mesh3D&) = default;
};

/// How the surface is drawn. Any mixture is possible.
struct SurfaceStyle {
    bool solid = true;         ///< filled, hides what is behind; else only its lines are drawn
    bool shaded = true;        ///< light and shade
    bool transparent = false;  ///< a filled surface lets things behind shine through
    bool contoured = false;    ///< lines of constant z
    bool zoned = false;        ///< coloured by bands of z
    bool ceiling_contours = false, ceiling_zones = false;  ///< projected onto the top of the box
    bool floor_contours = false, floor_zones = false;      ///< projected onto its bottom
    bool projection_2d = false;                            ///< a flat map of x and y, coloured by z
    Colour top = rgb(0x7FB2D9), bottom = rgb(0xE0B27A);    ///< sides of a surface without zones
    friend bool operator==(const SurfaceStyle&, const SurfaceStyle&) = default;
};

/// Sections z = const at equal steps between the limits of the z axis.
struct Sections3D {
    int number = 9;  ///< 1 to 200
    LineStyle line{LinePattern::Solid, kInk, 1.2F};
    friend bool operator==(const Sections3D&, const Sections3D&) = default;
};

/// A marked point, such as the critical point "CrP".
struct Marker3D {
    double x = 0, y = 0, z = 0;
    std::string text;
    Colour colour = rgb(0xC00000);
    float size = 8;  ///< pixels of 1/96 inch
    bool shown = true;
    friend bool operator==(const Marker3D&, const Marker3D&) = default;
};

/// All that a 3D chart shows.
struct Chart3D {
    SurfaceGrid surface;
    Axis3D x, y, z;
    View3D view;
    Mesh3D mesh;
    SurfaceStyle style;
    Sections3D sections;
    std::vector<Marker3D> markers;
    Caption header, footer;
    Caption subtitle;                       ///< below the header
    Font title_font;                        ///< titles of the axes
    Font number_font{{}, 9, false, false};  ///< numbers of the axes and the scale, texts of markers
    bool scale_shown = true;                ///< the legend of colours, where colours stand for z
    double height_ratio = 0.8;              ///< height of the box over its sides, 0.1 to 5
    Colour sheet = kWhite;
    Colour planes = rgb(0xF5F6F8);  ///< back planes of the box
    LineStyle grid{LinePattern::Solid, rgb(0xC4C9D0), 0.8F};
    PrintPlace print;
    Chart3D();
    friend bool operator==(const Chart3D&, const Chart3D&) = default;
};

/// The limits of x, y and z that are shown.
struct Box3D {
    Range x, y, z;
    friend bool operator==(const Box3D&, const Box3D&) = default;
};

/// The limits of the axes; automatic ones, and limits that cannot be drawn, follow the data.
Box3D shown_box(const Chart3D& chart);

/// Sets elevation and rotation to a preset and the zoom to 1.
void set_preset(View3D& view, PresetView preset);

/// Turns by degrees: elevation stays within -90 to 90, rotation within -180 to 180.
void turn(View3D& view, double rotation, double elevation);

/// Elevation, rotation and zoom brought into their ranges; what is not a number becomes default.
View3D sanitised(View3D view);

/// The z of the sections, ascending: `number` levels that divide the shown z range into number + 1
/// equal bands.
std::vector<double> section_levels(const Chart3D& chart);

/// True when colours stand for z somewhere in the chart, so that the scale is of use.
bool shows_zones(const Chart3D& chart);

/// Value of the surface at a place between the nodes (bilinear), empty outside and in holes.
std::optional<double> value_at(const SurfaceGrid& grid, double x, double y);

}  // namespace quor::chart
