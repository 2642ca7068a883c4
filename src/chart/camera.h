#pragma once

#include <array>

#include "chart/chart3d.h"

namespace quor::chart {

/// A place in the box of a 3D chart: x and y from -1 to 1, z from -height to height.
struct Point3 {
    double x = 0, y = 0, z = 0;
};

/// A place on the picture, y down.
struct Point2 {
    double x = 0, y = 0;
    friend bool operator==(const Point2&, const Point2&) = default;
};

/// Maps the box onto the picture. `scale` is the number of pixels of a unit of the box at its
/// centre, `centre` the pixel of that centre.
class Camera {
  public:
    Camera(const View3D& view, double scale, Point2 centre);

    /// A flat map: x to the right and y upwards with scales of their own, seen from above.
    static Camera map(double x_scale, double y_scale, Point2 centre);

    Point2 project(Point3 p) const;

    /// True when the half space on the side `normal` of the plane through `p` holds the viewer.
    bool sees(Point3 p, Point3 normal) const;

    /// Distance along the line of sight, growing towards the viewer.
    double nearness(Point3 p) const { return dot(to_viewer_, p); }

    /// What divides lengths at `p` compared with lengths at the box's centre: 1 without
    /// perspective, smaller for near places.
    double depth_factor(Point3 p) const {
        return perspective_ ? (kDistance - nearness(p)) / kDistance : 1;
    }

    /// Position on the x-y plane from which the surface is seen: the viewer's place with
    /// perspective, else a place far away in his direction.
    Point2 viewer_in_plan() const {
        const double reach = perspective_ ? kDistance : 1e6;
        return {to_viewer_.x * reach, to_viewer_.y * reach};
    }

    /// Light from the left above behind the viewer's shoulder: 0 (dark) to 1 for a unit normal.
    double light(Point3 normal) const;

    static double dot(const Point3& a, const Point3& b) {
        return a.x * b.x + a.y * b.y + a.z * b.z;
    }

  private:
    /// From the box's centre to the viewer; the farthest corner of the highest box is at 5.2.
    static constexpr double kDistance = 7.0;

    Point3 right_, up_, to_viewer_, light_;
    bool perspective_;
    double x_scale_, y_scale_;
    Point2 centre_;
};

}  // namespace quor::chart
