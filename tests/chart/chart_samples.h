#pragma once

#include <cmath>
#include <string>

#include "chart/chart2d.h"
#include "chart/chart3d.h"
#include "chart/text_measure.h"

using namespace quor;

/// Charts and measures for the tests of the chart layer.
namespace samples {

/// A face in which every character is as wide as 0.6 of its height; enough for layouts.
inline chart::MeasureText plainMeasure() {
    return [](const std::string& text, const chart::Font& font) {
        const double height = static_cast<double>(font.size) * 96 / 72;
        return chart::TextSize{0.6 * height * static_cast<double>(text.size()), 1.2 * height};
    };
}

/// A curve through the points of a function.
template <class Function>
chart::Series curveOf(Function f, double from, double to, int points) {
    chart::Series series = chart::default_curve(0);
    for (int i = 0; i < points; ++i) {
        const double x = from + (to - from) * i / (points - 1);
        series.x.push_back(static_cast<float>(x));
        series.y.push_back(static_cast<float>(f(x)));
    }
    return series;
}

/// A surface over [-1, 1] x [-1, 1]; nodes for which `hole(x, y)` is true have none.
template <class Function, class Hole>
chart::Chart3D surfaceOf(Function f, Hole hole, int nx, int ny) {
    chart::Chart3D c;
    c.surface.resize(nx, ny);
    c.surface.x0 = c.surface.y0 = -1;
    c.surface.dx = 2.0 / (nx - 1);
    c.surface.dy = 2.0 / (ny - 1);
    for (int i = 0; i < nx; ++i)
        for (int j = 0; j < ny; ++j)
            if (const double x = c.surface.x(i), y = c.surface.y(j); !hole(x, y))
                c.surface.z[c.surface.at(i, j)] = static_cast<float>(f(x, y));
    c.x.automatic = c.y.automatic = true;
    c.x.title = "v / (m^3/kmol)";
    c.y.title = "T / K";
    c.z.title = "p / kPa";
    c.header.text = "Pressure p(v, T)";
    return c;
}

inline bool noHole(double, double) {
    return false;
}

inline bool twoHoles(double x, double y) {
    return std::hypot(x - 0.4, y + 0.3) < 0.3 || std::hypot(x + 0.5, y - 0.5) < 0.2;
}

/// A saddle with bumps, so that it hides parts of itself from every side.
inline double bumps(double x, double y) {
    return x * x - y * y + 0.6 * std::sin(5 * x) * std::cos(4 * y);
}

}  // namespace samples
