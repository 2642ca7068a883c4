#include "datafiles/xy_points.h"

#include <algorithm>
#include <cmath>

#include "common/numbers.h"
#include "common/single.h"
#include "common/text_parts.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/table_text.h"

namespace quor::datafiles {

namespace {

/// The changed point; NaN stands for a value that does not exist or that 32 bits cannot hold.
FitPoint changed(FitPoint p, XyManipulation what, double W) {
    const double x = static_cast<double>(p.x), y = static_cast<double>(p.y);
    const auto single = [](double value) {
        return numbers::fits_single(value) ? static_cast<float>(value) : NAN;
    };
    switch (what) {
        case XyManipulation::OneMinusX:
            p.x = single(1.0 - x);
            break;
        case XyManipulation::InverseY:
            p.y = single(1.0 / y);
            break;
        case XyManipulation::AddToY:
            p.y = single(y + W);
            break;
        case XyManipulation::MultiplyY:
            p.y = single(y * W);
            break;
        case XyManipulation::LogarithmY:
            p.y = single(std::log(y));
            break;
        case XyManipulation::ExponentialY:
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

bool is_active(const FitPoint& point) {
    return point.mark != kInactiveMark;
}

Result<std::vector<FitPoint>> manipulated_xy(std::span<const FitPoint> points, XyManipulation what,
                                             double W) {
    std::vector<FitPoint> result;
    result.reserve(points.size());
    for (const FitPoint& p : points) {
        result.push_back(changed(p, what, W));
        if (!std::isfinite(result.back().x) || !std::isfinite(result.back().y))
            return Failure{"Line " + std::to_string(result.size()) +
                           " (x = " + numbers::general(p.x) + ", y = " + numbers::general(p.y) +
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
        p.mark = is_active(p) ? kInactiveMark : 0.0F;
    }
}

void insert_xy(std::vector<FitPoint>& points, int position, std::span<const FitPoint> more) {
    const auto at =
        std::clamp<std::ptrdiff_t>(position - 1, 0, static_cast<std::ptrdiff_t>(points.size()));
    points.insert(points.begin() + at, more.begin(), more.end());
}

void add_xy(ReadPoints<FitPoint>& read, std::string_view x, std::string_view y) {
    const std::optional<float> at = single(numbers::typed_number(x));
    const std::optional<float> value = single(numbers::typed_number(y));
    const bool right = at && value;
    read.add({at.value_or(0.0F), value.value_or(0.0F), right ? 0.0F : kInactiveMark}, right);
}

ReadPoints<FitPoint> xy_from_clipboard(std::string_view table) {
    ReadPoints<FitPoint> read;
    for (const std::string_view line : data_lines(table)) {
        text::CellCursor cells(line, '\t');
        const std::string_view x = cells.next().value_or("");
        add_xy(read, x, cells.next().value_or(""));
    }
    return read;
}

std::string xy_for_clipboard(std::span<const FitPoint> points, int first, int last) {
    const Lines lines = in_list(points.size(), first, last);
    std::string table;
    for (std::ptrdiff_t i = lines.first; i < lines.last; ++i) {
        const FitPoint& p = points[static_cast<std::size_t>(i)];
        table += numbers::general(p.x) + "\t" + numbers::general(p.y) + "\r\n";
    }
    return table;
}

std::string xy_list_text(std::span<const FitPoint> points) {
    std::vector<std::vector<std::string>> rows{{"#", "x", "y"}};
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        rows.push_back({is_active(points[i]) ? number : "(" + number + ")",
                        numbers::general(points[i].x), numbers::general(points[i].y)});
    }
    return aligned_columns(rows);
}

std::vector<FitPoint> active_points(std::span<const FitPoint> points) {
    std::vector<FitPoint> active;
    std::copy_if(points.begin(), points.end(), std::back_inserter(active), is_active);
    return active;
}

Result<void> check_active_points(std::span<const FitPoint> points, bool as_points) {
    const auto active = std::count_if(points.begin(), points.end(), is_active);
    if (active >= (as_points ? 1 : 2)) return {};
    return Failure{as_points ? "at least one active point!" : "at least two active points!"};
}

XyRange range_of_active(std::span<const FitPoint> points) {
    XyRange range;
    for (const FitPoint& p : points) {
        if (!is_active(p)) continue;
        range.x_min = std::min(range.x_min, p.x);
        range.x_max = std::max(range.x_max, p.x);
        range.y_min = std::min(range.y_min, p.y);
        range.y_max = std::max(range.y_max, p.y);
    }
    return range;
}

XyGraph make_xy_graph(std::span<const FitPoint> points, bool as_points) {
    return {.title = "Experimental points y(T)",
            .x_title = "T / K",
            .y_title = "y",
            .points = active_points(points),
            .range = range_of_active(points),
            .as_points = as_points};
}

}  // namespace quor::datafiles
