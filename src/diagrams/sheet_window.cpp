#include "diagrams/sheet_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "chart/sheet2d.h"
#include "common/dialogs.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_places.h"

namespace quor::diagrams {

namespace {

/// Lines that cross the whole window reach its new end.
void stretch_reference_lines(DiagramSheet& sheet) {
    auto& curves = sheet.chart.curves;
    for (std::size_t i = at(first_reference_line(sheet)); i < curves.size(); ++i) {
        chart::Series& line = curves[i];
        if (!line.is_reference || line.x.size() != 2) continue;
        const bool vertical = line.x[0] == line.x[1];
        float& end = vertical ? line.y[1] : line.x[1];
        const double limit = vertical ? sheet.chart.y.max : sheet.chart.x.max;
        end = std::max(end, static_cast<float>(limit));
    }
}

bool is_range(const chart::Range& range) {
    const auto is_single = [](double value) {
        return std::isfinite(value) && std::fabs(value) <= 3e38;
    };
    // The limits have to differ as 32-bit numbers, in which the coordinates are kept.
    return is_single(range.min) && is_single(range.max) &&
           static_cast<float>(range.min) < static_cast<float>(range.max);
}

CurveWindow in_single_precision(const chart::Window& w) {
    return {static_cast<float>(w.x.min), static_cast<float>(w.x.max), static_cast<float>(w.y.min),
            static_cast<float>(w.y.max)};
}

void swap_window(CurveWindow& w) {
    std::swap(w.x_min, w.y_min);
    std::swap(w.x_max, w.y_max);
}

}  // namespace

chart::Window as_chart_window(const CurveWindow& w) {
    return {{static_cast<double>(w.x_min), static_cast<double>(w.x_max)},
            {static_cast<double>(w.y_min), static_cast<double>(w.y_max)}};
}

void show_window(DiagramSheet& sheet, const chart::Window& window) {
    sheet.chart.x.min = window.x.min;
    sheet.chart.x.max = window.x.max;
    sheet.chart.y.min = window.y.min;
    sheet.chart.y.max = window.y.max;
    sheet.chart.x.automatic = sheet.chart.y.automatic = false;
    stretch_reference_lines(sheet);
}

bool set_coordinates(DiagramSheet& sheet, const chart::Window& window) {
    if (!is_range(window.x) || !is_range(window.y)) {
        dialogs::tell("Lower limit has to smaller than upper limit.", "INPUT ERROR");
        return false;
    }
    sheet.request.window = in_single_precision(window);
    show_window(sheet, window);
    return true;
}

void follow_window(DiagramSheet& sheet) {
    stretch_reference_lines(sheet);
}

bool fit_window(DiagramSheet& sheet) {
    const std::optional<chart::Window> window = chart::fitting_window(sheet.chart);
    if (!window || !is_range(window->x) || !is_range(window->y)) return false;
    sheet.request.window = in_single_precision(*window);
    show_window(sheet, *window);
    return true;
}

void default_coordinates(DiagramSheet& sheet) {
    const chart::Window window = as_chart_window(sheet.request.proposed);
    if (is_range(window.x) && is_range(window.y)) set_coordinates(sheet, window);
}

namespace {

/// The texts of markers run along their lines, on the same side of them.
void turn(chart::Chart2D& chart) {
    chart::swap_axes(chart);
    for (chart::Label& label : chart.labels) {
        if (kind_of(label) != LabelKind::marker) continue;
        label.rotation = (450 - label.rotation) % 360;
        label.dx = -std::exchange(label.dy, -label.dx);
    }
}

}  // namespace

void change_xy(DiagramSheet& sheet) {
    turn(sheet.chart);
    swap_window(sheet.request.window);
    swap_window(sheet.request.proposed);
    std::swap(sheet.request.texts.x, sheet.request.texts.y);
    // What can be taken back, or made again, keeps to the axes as they stand.
    for (auto* steps : {&sheet.undo, &sheet.redo})
        for (UndoStep& kept : *steps) turn(kept.before.chart);
}

void set_logarithmic(DiagramSheet& sheet, bool x_axis, bool on) {
    (x_axis ? sheet.chart.x : sheet.chart.y).logarithmic = on;
}

void set_scaling(DiagramSheet& sheet, int index, const Scaling& values) {
    sheet.manual_scaling = index == 1;
    const Scaling scaling = sheet.manual_scaling ? values : Scaling{};
    const auto positive = [](double value) {
        return std::isfinite(value) && value > 0 ? value : 0;
    };
    const auto digits = [](int value) { return value < 0 ? -1 : std::min(value, 15); };
    chart::Axis& x = sheet.chart.x;
    chart::Axis& y = sheet.chart.y;
    x.tick_spacing = positive(scaling.x_tick);
    y.tick_spacing = positive(scaling.y_tick);
    x.grid_spacing = positive(scaling.x_grid);
    y.grid_spacing = positive(scaling.y_grid);
    x.decimals = digits(scaling.x_digits);
    y.decimals = digits(scaling.y_digits);
}

}  // namespace quor::diagrams
