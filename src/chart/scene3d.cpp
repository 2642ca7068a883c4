#include "chart/scene3d.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "chart/scene_parts.h"
#include "chart/ticks.h"

namespace quor::chart {

namespace scene {

namespace {

constexpr double kBarWidth = 16;
constexpr double kGap = 6;
constexpr double kEdge = 10;  // free at the rim of the sheet

/// Digits that tell levels apart which are no round numbers.
int decimals_of_levels(const Chart3D& chart, const Box3D& box) {
    if (chart.z.decimals >= 0) return chart.z.decimals;
    const double step = (box.z.max - box.z.min) / (chart.sections.number + 1);
    const double digits = std::ceil(-std::log10(step) + 1);
    return static_cast<int>(std::clamp(digits, 0.0, 12.0));
}

std::string level_text(const Chart3D& chart, const Box3D& box, double level) {
    const double largest = std::max(std::abs(box.z.min), std::abs(box.z.max));
    const int decimals = decimals_of_levels(chart, box);
    // Where the axis shows powers, two digits of the mantissa tell the levels apart.
    return axis_number(level, 1, largest, largest >= 1e6 ? 2 : decimals);
}

}  // namespace

void Pen::add(std::span<const Point2> corners, SceneShape shape) {
    // What lies behind the viewer, or has no place at all, cannot be painted.
    constexpr double kFarthest = 1e7;
    const auto has_place = [](const Point2& p) {
        return std::abs(p.x) <= kFarthest && std::abs(p.y) <= kFarthest;
    };
    if (!std::all_of(corners.begin(), corners.end(), has_place)) return;
    shape.first = static_cast<std::uint32_t>(scene_.points.size());
    shape.count = static_cast<std::uint32_t>(corners.size());
    scene_.points.insert(scene_.points.end(), corners.begin(), corners.end());
    scene_.shapes.push_back(shape);
}

void Pen::fill(std::span<const Point2> corners, Colour colour, bool surface) {
    SceneShape shape;
    shape.kind = SceneShape::Kind::Fill;
    shape.surface = surface;
    shape.colour = colour;
    add(corners, shape);
}

void Pen::line(std::span<const Point2> corners, const LineStyle& style, bool surface) {
    if (style.pattern == LinePattern::None) return;
    SceneShape shape;
    shape.kind = SceneShape::Kind::Line;
    shape.surface = surface;
    shape.colour = style.colour;
    shape.width = style.width;
    shape.pattern = style.pattern;
    add(corners, shape);
}

void Pen::text(Point2 centre, const std::string& text, const Font& font, Colour colour,
               double rotation) {
    const bool has_place = std::isfinite(centre.x) && std::isfinite(centre.y);
    if (!text.empty() && has_place) scene_.texts.push_back({centre, text, font, colour, rotation});
}

double scale_width(const Chart3D& chart, const Box3D& box, const std::vector<double>& levels,
                   const MeasureText& measure) {
    if (!chart.scale_shown || !shows_zones(chart)) return 0;
    double widest = 0;
    for (const double level : levels)
        widest = std::max(widest, measure(level_text(chart, box, level), chart.number_font).width);
    const double title = measure(chart.z.title, chart.title_font).width;
    return std::max(kBarWidth + kGap + widest + 2 * kEdge, title + kEdge + kGap);
}

void paint_scale(const Context& c, Pen& pen) {
    if (!c.chart.scale_shown || !shows_zones(c.chart)) return;
    const auto& levels = c.layout.levels;
    const double room = c.layout.bottom - c.layout.top;
    const double bar_height = 0.62 * room;
    const double left = c.layout.right + kEdge;
    const double bottom = c.layout.top + room / 2 + bar_height / 2;
    const double step = bar_height / static_cast<double>(levels.size() + 1);
    for (std::size_t band = 0; band <= levels.size(); ++band) {
        const double low = bottom - step * static_cast<double>(band), high = low - step;
        const std::array corners{Point2{left, low}, Point2{left + kBarWidth, low},
                                 Point2{left + kBarWidth, high}, Point2{left, high}};
        pen.fill(corners, band_colour(c.layout, band));
    }
    const double top = bottom - bar_height;
    const std::array rim{Point2{left, bottom}, Point2{left + kBarWidth, bottom},
                         Point2{left + kBarWidth, top}, Point2{left, top}, Point2{left, bottom}};
    pen.line(rim, {LinePattern::Solid, kInk, 0.8F});
    const double text_height = c.measure("0", c.chart.number_font).height;
    const auto every = static_cast<std::size_t>(std::ceil((text_height + 1) / step));
    for (std::size_t k = 0; k < levels.size(); k += every) {
        const double y = bottom - step * static_cast<double>(k + 1);
        const std::string text = level_text(c.chart, c.layout.box, levels[k]);
        const double width = c.measure(text, c.chart.number_font).width;
        pen.line(std::array{Point2{left + kBarWidth, y}, Point2{left + kBarWidth + 3, y}},
                 {LinePattern::Solid, kInk, 0.8F});
        pen.text({left + kBarWidth + kGap + width / 2, y}, text, c.chart.number_font, kInk);
    }
    const TextSize title = c.measure(c.chart.z.title, c.chart.title_font);
    const double middle = std::min(left + kBarWidth / 2, c.width - title.width / 2 - kGap);
    pen.text({std::max(middle, c.layout.right + title.width / 2), top - title.height},
             c.chart.z.title, c.chart.title_font, kInk);
}

double caption_height(const Caption& caption, const MeasureText& measure) {
    if (caption.text.empty() || !caption.automatic) return 0;
    return measure(caption.text, caption.font).height + kEdge;
}

void paint_captions(const Context& c, Pen& pen) {
    const auto paint = [&](const Caption& caption, double automatic_y) {
        const Point2 centre = caption.automatic
                                  ? Point2{c.width / 2, automatic_y}
                                  : Point2{caption.place.x * c.width, caption.place.y * c.height};
        pen.text(centre, caption.text, caption.font, caption.colour);
    };
    const double header = caption_height(c.chart.header, c.measure);
    const double subtitle = caption_height(c.chart.subtitle, c.measure);
    paint(c.chart.header, (kEdge + header) / 2);
    // The two stand close together: the free edge of the subtitle lies below it.
    paint(c.chart.subtitle, header + (subtitle - kEdge) / 2 + (header > 0 ? 2 : kEdge));
    paint(c.chart.footer, c.height - (kEdge + caption_height(c.chart.footer, c.measure)) / 2);
}

namespace {

void paint_markers(const Context& c, Pen& pen) {
    for (const Marker3D& marker : c.chart.markers) {
        if (!marker.shown) continue;
        const Point3 at = c.surface.to_box(marker.x, marker.y, marker.z);
        const double limit = 1 + 1e-6;
        const bool inside = std::abs(at.x) <= limit && std::abs(at.y) <= limit &&
                            std::abs(at.z) <= c.surface.height() * limit;
        if (!inside) continue;
        const Point2 pixel = c.layout.camera.project(at);
        // A marker lies on the surface, though not between nodes where that is sharply bent, so
        // that only what is clearly nearer hides it.
        constexpr double kOnSurface = 0.1;
        const auto surface = c.surface.pick(pixel);
        const bool hidden = !c.chart.style.projection_2d && c.chart.style.solid && surface &&
                            surface->nearness > c.layout.camera.nearness(at) + kOnSurface;
        pen.scene().markers.push_back({pixel, marker.size / 2, marker.colour, hidden});
        const TextSize size = c.measure(marker.text, c.chart.number_font);
        const double reach = marker.size / 2 + 3;
        const Point2 centre{pixel.x + reach + size.width / 2, pixel.y - reach - size.height / 3};
        if (marker.text.empty()) continue;
        // Light ground, so that the text can be read on every part of the surface.
        const double left = centre.x - size.width / 2 - 2, right = centre.x + size.width / 2 + 2;
        const double top = centre.y - size.height / 2, bottom = centre.y + size.height / 2;
        pen.fill(std::array{Point2{left, top}, Point2{right, top}, Point2{right, bottom},
                            Point2{left, bottom}},
                 {255, 255, 255, 200});
        pen.text(centre, marker.text, c.chart.number_font, marker.colour);
    }
}

/// Floor and ceiling: those behind the body before it, those in front of it after it.
void paint_projections(const Context& c, bool behind_body, Pen& pen) {
    const SurfaceStyle& s = c.chart.style;
    const double h = c.surface.height();
    const auto paint = [&](double z, bool zones, bool contours) {
        const bool front = c.layout.camera.sees({0, 0, z}, {0, 0, z > 0 ? 1.0 : -1.0});
        if (front == behind_body || !(zones || contours)) return;
        paint_flat(c, z, {zones, contours, front}, pen);
    };
    paint(-h, s.floor_zones, s.floor_contours);
    paint(h, s.ceiling_zones, s.ceiling_contours);
}

}  // namespace

}  // namespace scene

namespace {

/// How far the box reaches from its centre, in units of the box.
struct Outline {
    double side = 0, up = 0, down = 0;
};

/// The outline at this elevation from all rotations, so that the body does not swell and shrink
/// while it turns about the z axis.
Outline outline_of(View3D view, double height) {
    constexpr int kRotations = 36;  // of a quarter turn; the box repeats itself after that
    Outline outline;
    for (int k = 0; k < kRotations; ++k) {
        view.rotation = 90.0 * k / kRotations;
        const Camera camera(view, 1, {0, 0});
        for (const double x : {-1.0, 1.0})
            for (const double y : {-1.0, 1.0})
                for (const double z : {-height, height}) {
                    const Point2 p = camera.project({x, y, z});
                    outline.side = std::max(outline.side, std::abs(p.x));
                    outline.up = std::max(outline.up, -p.y);
                    outline.down = std::max(outline.down, p.y);
                }
    }
    return outline;
}

}  // namespace

Layout3D make_layout(const Chart3D& chart, double width, double height,
                     const MeasureText& measure) {
    constexpr double kLeastScale = 5;  // pixels a unit of the box
    const Box3D box = shown_box(chart);
    std::vector<double> levels = section_levels(chart);
    const double right = width - scene::scale_width(chart, box, levels, measure);
    const double top = scene::caption_height(chart.header, measure) +
                       scene::caption_height(chart.subtitle, measure);
    const double bottom = height - scene::caption_height(chart.footer, measure);
    const double numbers = measure("00000", chart.number_font).width;
    const double line = measure("0", chart.title_font).height;
    const View3D view = sanitised(chart.view);
    if (chart.style.projection_2d) {
        const double left = numbers + 2 * line + 20, below = 2.5 * line + 20;
        const double w = std::max(right - 20 - left, 4 * kLeastScale);
        const double h = std::max(bottom - below - (top + 12), 4 * kLeastScale);
        const Point2 centre{left + w / 2, top + 12 + h / 2};
        return {box, Camera::map(w / 2, h / 2, centre), std::move(levels), right, top, bottom};
    }
    const Outline outline = outline_of(view, chart.height_ratio);
    const double sides = 2 * numbers + 2.5 * line, above = 1.2 * line, below = 4.2 * line;
    const double w = (right - sides) / (2 * outline.side);
    const double h = (bottom - top - above - below) / (outline.up + outline.down);
    const double scale = std::max(std::min(w, h), kLeastScale);
    // The room that is left over goes half above and half below.
    const double spare = bottom - top - above - below - scale * (outline.up + outline.down);
    const Point2 centre{right / 2, top + above + spare / 2 + scale * outline.up};
    return {box, Camera(view, scale * view.zoom, centre), std::move(levels), right, top, bottom};
}

namespace {

bool has_flat_parts(const SurfaceStyle& style) {
    return style.projection_2d || style.ceiling_contours || style.ceiling_zones ||
           style.floor_contours || style.floor_zones;
}

Scene3D scene_of(const Chart3D& chart, const Layout3D& layout, double width, double height,
                 const MeasureText& measure) {
    const SurfaceStyle& style = chart.style;
    const bool cells = style.zoned || style.contoured, flat = has_flat_parts(style);
    const SurfaceView surface(chart, layout.box, layout.camera,
                              cells ? layout.levels : std::vector<double>{});
    const SurfaceView levelled(chart, layout.box, layout.camera,
                               flat ? layout.levels : std::vector<double>{});
    const scene::Context body{chart, layout, surface, measure, width, height};
    const scene::Context plane{chart, layout, levelled, measure, width, height};
    Scene3D result;
    scene::Pen pen(result);
    scene::paint_planes(body, pen);
    if (style.projection_2d) {
        scene::paint_flat(plane, surface.height(), {true, style.contoured, false}, pen);
    } else {
        scene::paint_projections(plane, true, pen);
        scene::paint_body(body, pen);
        scene::paint_projections(plane, false, pen);
    }
    scene::paint_axes(body, pen);
    scene::paint_markers(body, pen);
    scene::paint_scale(body, pen);
    scene::paint_captions(body, pen);
    return result;
}

/// The surface by every `every`-th node of its grid.
Chart3D coarser(const Chart3D& chart, int every) {
    const SurfaceGrid& from = chart.surface;
    Chart3D result = chart;
    SurfaceGrid& to = result.surface;
    to.resize((from.nx - 1) / every + 1, (from.ny - 1) / every + 1);
    to.dx *= every;
    to.dy *= every;
    if (!from.z_behind_holes.empty()) to.z_behind_holes = to.z;
    for (int i = 0; i < to.nx; ++i)
        for (int j = 0; j < to.ny; ++j) {
            const std::size_t at = from.at(i * every, j * every);
            to.z[to.at(i, j)] = from.z[at];
            if (!from.z_behind_holes.empty())
                to.z_behind_holes[to.at(i, j)] = from.z_behind_holes[at];
        }
    return result;
}

/// About how many shapes a surface has: a cell is cut at every level that runs through it.
double shapes_of(const Chart3D& chart, const std::vector<double>& levels) {
    const SurfaceGrid& grid = chart.surface;
    if (!grid.is_complete()) return 0;
    const SurfaceStyle& s = chart.style;
    const auto parts = [](std::initializer_list<bool> wanted) {
        return static_cast<double>(std::count(wanted.begin(), wanted.end(), true));
    };
    const double cut = parts({s.zoned, s.contoured, s.ceiling_zones, s.ceiling_contours,
                              s.floor_zones, s.floor_contours, s.projection_2d});
    double shapes = 0;
    for (int i = 0; i + 1 < grid.nx; ++i)
        for (int j = 0; j + 1 < grid.ny; ++j) {
            const auto [low, high] =
                std::minmax({grid.z[grid.at(i, j)], grid.z[grid.at(i + 1, j)],
                             grid.z[grid.at(i, j + 1)], grid.z[grid.at(i + 1, j + 1)]});
            const auto first = std::upper_bound(levels.begin(), levels.end(), low);
            const auto last = std::upper_bound(first, levels.end(), high);
            shapes += 2 + cut * static_cast<double>(last - first);
        }
    return shapes;
}

/// The time in microseconds that painting a scene takes, about: of each shape, and of what it
/// covers of the sheet.
double time_of(const Scene3D& scene, double width, double height) {
    constexpr double kShape = 0.6, kPixel = 0.001;
    double time = 0;
    for (const SceneShape& shape : scene.shapes) {
        double left = width, right = 0, top = height, bottom = 0;
        for (std::uint32_t k = 0; k < shape.count; ++k) {
            const Point2& p = scene.points[shape.first + k];
            left = std::min(left, p.x);
            right = std::max(right, p.x);
            top = std::min(top, p.y);
            bottom = std::max(bottom, p.y);
        }
        const double w = std::min(right, width) - std::max(left, 0.0);
        const double h = std::min(bottom, height) - std::max(top, 0.0);
        time += kShape + (w > 0 && h > 0 ? kPixel * w * h : 0);
    }
    return time;
}

}  // namespace

Scene3D build_scene(const Chart3D& chart, double width, double height, const MeasureText& measure) {
    constexpr double kMostShapes = 120000, kMostTime = 90000;
    constexpr int kCoarsest = 32;
    const MeasureText once = measured_once(measure);
    const Layout3D layout = make_layout(chart, width, height, once);
    for (int every = 1; every < kCoarsest; every *= 2) {
        const Chart3D coarse = every > 1 ? coarser(chart, every) : Chart3D();
        const Chart3D& drawn = every > 1 ? coarse : chart;
        if (shapes_of(drawn, layout.levels) > kMostShapes) continue;
        Scene3D scene = scene_of(drawn, layout, width, height, once);
        if (time_of(scene, width, height) > kMostTime) continue;
        if (every == 1) return scene;
        // What is missing is said: a picture must not pretend to show all.
        const Font font{{}, 8, false, true};
        const std::string remark =
            "drawn with one of " + std::to_string(every) + " lines of the mesh";
        const TextSize size = once(remark, font);
        scene.texts.push_back(
            {{size.width / 2 + 2, height - size.height / 2 - 1}, remark, font, kInk, 0});
        return scene;
    }
    return scene_of(coarser(chart, kCoarsest), layout, width, height, once);
}

std::optional<PickedPlace> pick_surface(const Chart3D& chart, double width, double height,
                                        const MeasureText& measure, Point2 pixel) {
    const Layout3D layout = make_layout(chart, width, height, measure);
    if (!chart.style.projection_2d)
        return SurfaceView(chart, layout.box, layout.camera, {}).pick(pixel);
    // The flat map has no height: the place is found on the plane of the map.
    const Point2 low = layout.camera.project({-1, -1, 0}), high = layout.camera.project({1, 1, 0});
    const double u = (pixel.x - low.x) / (high.x - low.x);
    const double v = (pixel.y - low.y) / (high.y - low.y);
    const auto value = [](double t, const Range& r) { return r.min + t * (r.max - r.min); };
    const double x = value(u, layout.box.x), y = value(v, layout.box.y);
    const auto z = value_at(chart.surface, x, y);
    if (!z) return std::nullopt;
    return PickedPlace{x, y, *z, 0};
}

}  // namespace quor::chart
