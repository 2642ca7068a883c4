#pragma once

#include <optional>
#include <string>
#include <vector>

#include "chart/camera.h"
#include "chart/chart3d.h"
#include "chart/surface_view.h"
#include "chart/text_measure.h"

namespace quor::chart {

/// A polygon or line of the picture; its corners are `count` points from `first`.
struct SceneShape {
    enum class Kind : std::uint8_t { Fill, Line } kind = Kind::Fill;
    bool surface = false;  ///< belongs to the surface, of which there are many
    std::uint32_t first = 0, count = 0;
    Colour colour;
    float width = 1;  ///< of a line
    LinePattern pattern = LinePattern::Solid;
};

/// A text with its centre and turn (degrees counter-clockwise).
struct SceneText {
    Point2 centre;
    std::string text;
    Font font;
    Colour colour;
    double rotation = 0;
};

/// A marked point: a disc with a rim, hollow where the surface hides it.
struct SceneMarker {
    Point2 centre;
    double radius;
    Colour colour;
    bool hidden;
};

/// All of a 3D picture in the order of painting: shapes, then markers, then texts.
struct Scene3D {
    std::vector<Point2> points;
    std::vector<SceneShape> shapes;
    std::vector<SceneMarker> markers;
    std::vector<SceneText> texts;
};

/// Where things stand on a picture of a given size.
struct Layout3D {
    Box3D box;
    Camera camera;
    std::vector<double> levels;  ///< of the sections
    double right;  ///< right edge of the room for the box; the scale of colours stands beyond it
    double top, bottom;  ///< edges of the room between header and footer
};
Layout3D make_layout(const Chart3D& chart, double width, double height, const MeasureText& measure);

/// The picture of a chart on a sheet of `width` x `height` pixels of 1/96 inch. Of a surface that
/// would take longer than a tenth of a second to paint, such as one that rises and falls through
/// all its sections at every node, a coarser mesh is drawn, which a remark says.
Scene3D build_scene(const Chart3D& chart, double width, double height, const MeasureText& measure);

/// x, y and z of the surface at a pixel of that picture.
std::optional<PickedPlace> pick_surface(const Chart3D& chart, double width, double height,
                                        const MeasureText& measure, Point2 pixel);

}  // namespace quor::chart
