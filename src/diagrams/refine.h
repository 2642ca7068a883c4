#pragma once

#include <cmath>
#include <optional>

#include "diagrams/curve_frame.h"

namespace quor::diagrams {

/// A place of a curve on the axes of its window, in displayed units.
struct CurvePlace {
    double x = 0, y = 0;
};

/// A curve between two values of what runs along it, in even parts that are halved until no chord
/// is further from the curve than a third of a pixel. What lies beyond one side of the window is
/// not refined. `place(t)` gives the place at t, or nothing; `add(t, place)` takes the vertices in
/// their order, both ends among them.
template <class Place, class Add>
void add_refined(const CurveFrame& c, double from, double to, int parts, Place place, Add add) {
    constexpr double kShare = 3e-4;  // 0.3 of 1000 pixels
    constexpr int kDeepest = 12;
    const double width = std::fabs(c.x_max - c.x_min), height = std::fabs(c.y_max - c.y_min);
    const auto beyond = [&](const CurvePlace& a, const CurvePlace& b) {
        return (a.x < c.x_min && b.x < c.x_min) || (a.x > c.x_max && b.x > c.x_max) ||
               (a.y < c.y_min && b.y < c.y_min) || (a.y > c.y_max && b.y > c.y_max);
    };
    // Distance of m from the chord a to b, in shares of the window.
    const auto deviation = [&](const CurvePlace& a, const CurvePlace& m, const CurvePlace& b) {
        const double ux = (b.x - a.x) / width, uy = (b.y - a.y) / height;
        const double wx = (m.x - a.x) / width, wy = (m.y - a.y) / height;
        const double length = std::hypot(ux, uy);
        return length > 0 ? std::fabs(ux * wy - uy * wx) / length : std::hypot(wx, wy);
    };
    // Vertices between two, without the ends.
    const auto between = [&](const auto& self, double t1, const CurvePlace& a, double t2,
                             const CurvePlace& b, int depth) -> void {
        if (depth == 0 || beyond(a, b)) return;
        const double middle = 0.5 * (t1 + t2);
        const std::optional<CurvePlace> m = place(middle);
        if (!m || !(deviation(a, *m, b) > kShare)) return;
        self(self, t1, a, middle, *m, depth - 1);
        add(middle, *m);
        self(self, middle, *m, t2, b, depth - 1);
    };
    double last_t = from;
    std::optional<CurvePlace> last = place(from);
    if (last) add(from, *last);
    for (int i = 1; i <= parts; ++i) {
        const double t = i == parts ? to : from + (to - from) * i / parts;
        const std::optional<CurvePlace> now = place(t);
        if (now && last) between(between, last_t, *last, t, *now, kDeepest);
        if (now) add(t, *now);
        last_t = t;
        last = now;
    }
}

}  // namespace quor::diagrams
