#pragma once

#include <initializer_list>
#include <span>

#include "chart/scene3d.h"

/// The parts of which a 3D picture is put together; for the scene builder only.
namespace quor::chart::scene {

/// Writes shapes into a scene.
class Pen {
  public:
    explicit Pen(Scene3D& scene) : scene_(scene) {}

    void fill(std::span<const Point2> corners, Colour colour, bool surface = false);
    void line(std::span<const Point2> corners, const LineStyle& style, bool surface = false);
    void text(Point2 centre, const std::string& text, const Font& font, Colour colour,
              double rotation = 0);
    Scene3D& scene() { return scene_; }

  private:
    void add(std::span<const Point2> corners, SceneShape shape);
    Scene3D& scene_;
};

/// What all parts need.
struct Context {
    const Chart3D& chart;
    const Layout3D& layout;
    const SurfaceView& surface;
    const MeasureText& measure;
    double width, height;  ///< of the sheet
};

/// Colour of the band of z with this number, 0 below the first level.
Colour band_colour(const Layout3D& layout, std::size_t band);

/// The surface with its mesh, bands and contour lines.
void paint_body(const Context& context, Pen& pen);

/// The flat picture of the surface on the plane at `box_z`, with the parts that are wanted;
/// translucent when it stands before the surface.
struct FlatParts {
    bool zones, contours, translucent;
};
void paint_flat(const Context& context, double box_z, const FlatParts& parts, Pen& pen);

/// Back planes of the box with their grids.
void paint_planes(const Context& context, Pen& pen);

/// Axes with ticks, numbers and titles on edges of the box's outline.
void paint_axes(const Context& context, Pen& pen);

/// The legend of colours at the right, and the width it takes.
void paint_scale(const Context& context, Pen& pen);
double scale_width(const Chart3D& chart, const Box3D& box, const std::vector<double>& levels,
                   const MeasureText& measure);

/// Header, subtitle and footer, and the height that each keeps free.
void paint_captions(const Context& context, Pen& pen);
double caption_height(const Caption& caption, const MeasureText& measure);

}  // namespace quor::chart::scene
