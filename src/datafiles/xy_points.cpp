#include "datafiles/xy_points.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/table_text.h"

namespace quor::datafiles {

namespace {

/// The changed point; NaN stands for a value that does not exist or that 32 bits cannot hold.
FitPoint changed(FitPoint p, XYManipulation what, double W) {
    const double x = static_cast<double>(p.x), y = static_cast<double>(p.y);
    const auto single = [](double value) {
        constexpr auto largest = static_cast<double>(std::numeric_limits<float>::max());
        return std::fabs(value) <= largest ? static_cast<float>(value) : NAN;
    };
    switch (what) {
        case XYManipulation::OneMinusX:
            p.x = single(1.0 - x);
            break;
        case XYManipulation::InverseY:
            p.y = single(1.0 / y);
            break;
        case XYManipulation::AddToY:
            p.y = single(y + W);
            break;
        case XYManipulation::MultiplyY:
            p.y = single(y * W);
            break;
        case XYManipulation::LogarithmY:
            p.y = single(std::log(y));
            break;
        case XYManipulation::ExponentialY:
            p.y = single(std::exp(y));
            break;
    }
    return p;
}

struct Lines {
    std::ptrdiff_t first, last;  ///< from 0; `last` is behind the last line
};
Lines in_list(std::size_t size, int first, int last) {
    const auto count = static_cast<std::ptrdiff_t>(size);
    const std::ptrdiff_t from = std::clamp<std::ptrdiff_t>(first - 1, 0, count);
    return {from, std::clamp<std::ptrdiff_t>(last, from, count)};
}

}  // namespace

bool IsActive(const FitPoint& point) {
    return point.mark != kInactiveMark;
}

Result<std::vector<FitPoint>> manipulated_xy(std::span<const FitPoint> points, XYManipulation what,
                                             double W) {
    std::vector<FitPoint> result;
    result.reserve(points.size());
    for (const FitPoint& p : points) {
        result.push_back(changed(p, what, W));
        if (!std::isfinite(result.back().x) || !std::isfinite(result.back().y))
            return Failure{"Line " + std::to_string(result.size()) +
                           " (x = " + numbers::General(p.x) + ", y = " + numbers::General(p.y) +
                           ") has no such value; nothing was changed."};
    }
    return result;
}

void swap_xy(std::span<FitPoint> points) {
    for (FitPoint& p : points) std::swap(p.x, p.y);
}

void sort_by_x(std::span<FitPoint> points) {
    std::stable_sort(points.begin(), points.end(),
                     [](const FitPoint& a, const FitPoint& b) { return a.x < b.x; });
}

void sort_by_y(std::span<FitPoint> points) {
    std::stable_sort(points.begin(), points.end(),
                     [](const FitPoint& a, const FitPoint& b) { return a.y < b.y; });
}

void remove_xy(std::vector<FitPoint>& points, int first, int last) {
    const Lines lines = in_list(points.size(), first, last);
    points.erase(points.begin() + lines.first, points.begin() + lines.last);
}

void toggle_xy(std::span<FitPoint> points, int first, int last) {
    const Lines lines = in_list(points.size(), first, last);
    for (std::ptrdiff_t i = lines.first; i < lines.last; ++i) {
        FitPoint& p = points[static_cast<std::size_t>(i)];
        p.mark = IsActive(p) ? kInactiveMark : 0.0F;
    }
}

void insert_xy(std::vector<FitPoint>& points, int position, std::span<const FitPoint> more) {
    const auto at =
        std::clamp<std::ptrdiff_t>(position - 1, 0, static_cast<std::ptrdiff_t>(points.size()));
    points.insert(points.begin() + at, more.begin(), more.end());
}

std::vector<FitPoint> xy_from_clipboard(std::string_view table) {
    std::vector<FitPoint> points;
    for (const std::string& line : data_lines(table)) {
        const std::vector<std::string> cells = text::split(line, '\t');
        points.push_back({cell_single_input(cells[0]),
                          cells.size() > 1 ? cell_single_input(cells[1]) : 0.0F, 0.0F});
    }
    return points;
}

std::string xy_for_clipboard(std::span<const FitPoint> points, int first, int last) {
    const Lines lines = in_list(points.size(), first, last);
    std::string table;
    for (std::ptrdiff_t i = lines.first; i < lines.last; ++i) {
        const FitPoint& p = points[static_cast<std::size_t>(i)];
        table += numbers::General(p.x) + "\t" + numbers::General(p.y) + "\r\n";
    }
    return table;
}

std::string xy_list_text(std::span<const FitPoint> points) {
    std::vector<std::vector<std::string>> rows{{"#", "x", "y"}};
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        rows.push_back({IsActive(points[i]) ? number : "(" + number + ")",
                        numbers::General(points[i].x), numbers::General(points[i].y)});
    }
    return aligned_columns(rows);
}

std::vector<FitPoint> active_points(std::span<const FitPoint> points) {
    std::vector<FitPoint> active;
    std::copy_if(points.begin(), points.end(), std::back_inserter(active), IsActive);
    return active;
}

Result<void> check_active_points(std::span<const FitPoint> points, bool asPoints) {
    const auto active = std::count_if(points.begin(), points.end(), IsActive);
    if (active >= (asPoints ? 1 : 2)) return {};
    return Failure{asPoints ? "at least one active point!" : "at least two active points!"};
}

XYRange range_of_active(std::span<const FitPoint> points) {
    XYRange range;
    for (const FitPoint& p : points) {
        if (!IsActive(p)) continue;
        range.xMin = std::min(range.xMin, p.x);
        range.xMax = std::max(range.xMax, p.x);
        range.yMin = std::min(range.yMin, p.y);
        range.yMax = std::max(range.yMax, p.y);
    }
    return range;
}

XYGraph make_xy_graph(std::span<const FitPoint> points, bool asPoints) {
    return {.title = "Experimental points y(T)",
            .xTitle = "T / K",
            .yTitle = "y",
            .points = active_points(points),
            .range = range_of_active(points),
            .asPoints = asPoints};
}

}  // namespace quor::datafiles
