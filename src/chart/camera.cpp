#include "chart/camera.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quor::chart {

namespace {

constexpr double kEdgeOn = 1e-9;  // a plane seen from its edge shows no side

Point3 scaled(const Point3& p, double factor) {
    return {p.x * factor, p.y * factor, p.z * factor};
}

Point3 sum(const Point3& a, const Point3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Point3 unit(const Point3& p) {
    return scaled(p, 1 / std::sqrt(Camera::dot(p, p)));
}

}  // namespace

Camera::Camera(const View3D& view, double scale, Point2 centre)
    : perspective_(view.perspective), x_scale_(scale), y_scale_(scale), centre_(centre) {
    const View3D v = sanitised(view);
    const double elevation = v.elevation * std::numbers::pi / 180;
    const double rotation = v.rotation * std::numbers::pi / 180;
    const double ce = std::cos(elevation), se = std::sin(elevation);
    const double cr = std::cos(rotation), sr = std::sin(rotation);
    to_viewer_ = {ce * cr, ce * sr, se};
    right_ = {-sr, cr, 0};
    up_ = {-se * cr, -se * sr, ce};
    light_ = unit(sum(sum(scaled(to_viewer_, 0.6), scaled(right_, -0.45)), scaled(up_, 0.6)));
}

Camera Camera::map(double x_scale, double y_scale, Point2 centre) {
    View3D view;
    set_preset(view, PresetView::AlongZ);
    view.perspective = false;
    Camera camera(view, x_scale, centre);
    camera.y_scale_ = y_scale;
    return camera;
}

Point2 Camera::project(Point3 p) const {
    const double factor = 1 / depth_factor(p);
    return {centre_.x + factor * x_scale_ * dot(right_, p),
            centre_.y - factor * y_scale_ * dot(up_, p)};
}

bool Camera::sees(Point3 p, Point3 normal) const {
    if (!perspective_) return dot(to_viewer_, normal) > kEdgeOn;
    const Point3 viewer = scaled(to_viewer_, kDistance);
    return dot(sum(viewer, scaled(p, -1)), normal) > kEdgeOn;
}

double Camera::light(Point3 normal) const {
    return std::clamp(dot(light_, normal), 0.0, 1.0);
}

}  // namespace quor::chart
