#include "chart/chart3d.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "chart/ticks.h"

namespace quor::chart {

namespace {

std::optional<Range> extent_of_z(const SurfaceGrid& grid) {
    Range range{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
    for (const float value : grid.z) {
        if (grid.is_hole(value)) continue;
        range.min = std::min<double>(range.min, value);
        range.max = std::max<double>(range.max, value);
    }
    if (range.min > range.max) return std::nullopt;
    return range;
}

Range shown_range(const Axis3D& axis, const std::optional<Range>& data, bool nice) {
    if (!axis.automatic && is_drawable(axis.min, axis.max, false)) return {axis.min, axis.max};
    if (!data) return {0, 1};
    if (!nice && is_drawable(data->min, data->max, false)) return *data;
    const NiceWindow window = make_nice_window(data->min, data->max, false);
    if (!is_drawable(window.min, window.max, false)) return {0, 1};
    return {window.min, window.max};
}

double or_default(double value, double fallback) {
    return std::isfinite(value) ? value : fallback;
}

}  // namespace

void SurfaceGrid::resize(int columns, int rows) {
    nx = std::clamp(columns, 0, kMaxNodes);
    ny = std::clamp(rows, 0, kMaxNodes);
    z.assign(static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny), hole);
    z_behind_holes.clear();
}

bool SurfaceGrid::is_complete() const {
    const auto nodes =
        static_cast<std::size_t>(std::max(nx, 0)) * static_cast<std::size_t>(std::max(ny, 0));
    return nx > 1 && ny > 1 && dx > 0 && dy > 0 && z.size() == nodes &&
           (z_behind_holes.empty() || z_behind_holes.size() == nodes);
}

Chart3D::Chart3D() {
    z.automatic = true;
    header.font = {{}, 13, true, false};
    subtitle.font = {{}, 10, false, false};
    footer.font = {{}, 9, false, false};
}

Box3D shown_box(const Chart3D& chart) {
    const SurfaceGrid& grid = chart.surface;
    std::optional<Range> x, y;
    if (grid.nx > 1) x = Range{grid.x(0), grid.x(grid.nx - 1)};
    if (grid.ny > 1) y = Range{grid.y(0), grid.y(grid.ny - 1)};
    return {shown_range(chart.x, x, false), shown_range(chart.y, y, false),
            shown_range(chart.z, extent_of_z(grid), true)};
}

void set_preset(View3D& view, PresetView preset) {
    const View3D start;
    view.zoom = 1;
    switch (preset) {
        case PresetView::Default:
            view.elevation = start.elevation;
            view.rotation = start.rotation;
            return;
        case PresetView::AlongX:
            view.elevation = 0;
            view.rotation = 0;
            return;
        case PresetView::AlongY:
            view.elevation = 0;
            view.rotation = -90;
            return;
        case PresetView::AlongZ:
            view.elevation = 90;
            view.rotation = -90;
            return;
    }
}

void turn(View3D& view, double rotation, double elevation) {
    view = sanitised(view);
    view.elevation = std::clamp(view.elevation + or_default(elevation, 0), -90.0, 90.0);
    view.rotation = std::remainder(view.rotation + or_default(rotation, 0), 360.0);
}

View3D sanitised(View3D view) {
    const View3D start;
    view.elevation = std::clamp(or_default(view.elevation, start.elevation), -90.0, 90.0);
    view.rotation = std::remainder(or_default(view.rotation, start.rotation), 360.0);
    view.zoom = std::clamp(or_default(view.zoom, start.zoom), 0.2, 8.0);
    return view;
}

std::vector<double> section_levels(const Chart3D& chart) {
    const Range z = shown_box(chart).z;
    const int number = std::clamp(chart.sections.number, 1, 200);
    std::vector<double> levels;
    for (int i = 1; i <= number; ++i) levels.push_back(z.min + (z.max - z.min) * i / (number + 1));
    return levels;
}

bool shows_zones(const Chart3D& chart) {
    const SurfaceStyle& s = chart.style;
    return s.zoned || s.ceiling_zones || s.floor_zones || s.projection_2d;
}

std::optional<double> value_at(const SurfaceGrid& grid, double x, double y) {
    if (!grid.is_complete()) return std::nullopt;
    const double u = (x - grid.x0) / grid.dx, v = (y - grid.y0) / grid.dy;
    constexpr double kSlack = 1e-9;
    if (!(u >= -kSlack && u <= grid.nx - 1 + kSlack && v >= -kSlack && v <= grid.ny - 1 + kSlack))
        return std::nullopt;
    const int i = std::clamp(static_cast<int>(u), 0, grid.nx - 2);
    const int j = std::clamp(static_cast<int>(v), 0, grid.ny - 2);
    const double s = u - i, t = v - j;
    const double corners[] = {grid.z[grid.at(i, j)], grid.z[grid.at(i + 1, j)],
                              grid.z[grid.at(i, j + 1)], grid.z[grid.at(i + 1, j + 1)]};
    for (const double corner : corners)
        if (grid.is_hole(static_cast<float>(corner))) return std::nullopt;
    return (1 - s) * (1 - t) * corners[0] + s * (1 - t) * corners[1] + (1 - s) * t * corners[2] +
           s * t * corners[3];
}

}  // namespace quor::chart
