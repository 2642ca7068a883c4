#include "estimation/fit_graphs.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quor::estimation {

namespace {

constexpr double kMargin = 0.05;  // of the width of the points, on both sides
constexpr int kCurveIntervals = 300;
constexpr int kSearchIntervals = 400;  // of the points' range, when x is sought
constexpr int kSearchWidths = 10;      // how far beyond the points x is sought, in their width
constexpr int kBisections = 200;

bool is_pressure(const FitModelRow& row) {
    return row.tab == FitTab::VapourPressure;
}

/// Calls `use` with x and y of every active point.
template <class Use>
void for_active(const FitState& state, Use use) {
    for (const datafiles::FitPoint& point : state.points)
        if (is_active(point)) use(static_cast<double>(point.x), static_cast<double>(point.y));
}

struct Range {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void include(double v) {
        low = std::min(low, v);
        high = std::max(high, v);
    }
    bool empty() const { return !(low <= high); }
    double width() const { return high - low; }
    Range widened() const { return {low - kMargin * width(), high + kMargin * width()}; }
};

/// Axis ranges from the points alone.
void set_axes(FitGraph& graph) {
    Range x;
    Range y;
    for (const GraphPoint& p : graph.points) {
        x.include(p.x);
        y.include(p.y);
    }
    if (x.empty()) return;
    x = x.widened();
    y = y.widened();
    graph.x_min = x.low;
    graph.x_max = x.high;
    graph.y_min = y.low;
    graph.y_max = y.high;
}

const FitModelRow* row_of(const FitState& state) {
    return find_model(state.model);
}

/// f(x) - y of the fitted function, NaN where it has no value.
double difference(const FitState& state, double x, double y) {
    double value = 0;
    if (!evaluate_fit(state, x, value) || !std::isfinite(value)) return std::nan("");
    return value - y;
}

/// The zero of the difference between two x where it changes sign.
double bisect(const FitState& state, double low, double high, double y) {
    const bool rising = difference(state, high, y) > 0;
    for (int i = 0; i < kBisections; ++i) {
        const double middle = 0.5 * (low + high);
        if (!(middle > low && middle < high)) break;
        ((difference(state, middle, y) > 0) == rising ? high : low) = middle;
    }
    return std::fabs(difference(state, low, y)) < std::fabs(difference(state, high, y)) ? low
                                                                                        : high;
}

Failure no_value() {
    return {"The fitted function has no result for this value."};
}

}  // namespace

FitGraph residual_graph(const FitState& state, Residuals kind) {
    FitGraph graph;
    const FitModelRow* row = row_of(state);
    if (row == nullptr) return graph;
    const bool relative = kind == Residuals::Relative;
    const bool pressure = is_pressure(*row);
    graph.title =
        relative ? "residuals of the fitting, relative" : "residuals of the fitting, absolute";
    if (relative)
        graph.y_title = pressure ? "(p(calc) / p(exp) - 1) / %" : "(y(calc) / y(exp) - 1) / %";
    else
        graph.y_title = pressure ? "(p(calc) - p(exp)) / kPa" : "(y(calc) - y(exp))";
    graph.x_title = "T / K";
    for_active(state, [&](double x, double y) {
        const double residual = difference(state, x, y) * (relative ? 100 / y : 1);
        if (std::isfinite(residual)) graph.points.push_back({x, residual});
    });
    set_axes(graph);
    return graph;
}

FitGraph function_graph(const FitState& state) {
    FitGraph graph;
    const FitModelRow* row = row_of(state);
    if (row == nullptr) return graph;
    graph.title = "fitted function y(T)";
    graph.y_title = is_pressure(*row) ? "p/ kPa" : "y";
    graph.x_title = row->tab == FitTab::General ? "x" : "T / K";
    for_active(state, [&](double x, double y) { graph.points.push_back({x, y}); });
    set_axes(graph);
    for (int i = 0; i <= kCurveIntervals && !graph.points.empty(); ++i) {
        const double x = graph.x_min + (graph.x_max - graph.x_min) * i / kCurveIntervals;
        const double y = difference(state, x, 0);
        if (std::isfinite(y)) graph.curve.push_back({x, y});
    }
    return graph;
}

Result<FitGraph> lnp_graph(const FitState& state) {
    const bool positive = std::all_of(state.points.begin(), state.points.end(),
                                      [](const auto& p) { return p.x > 0 && p.y > 0; });
    if (!positive) return Failure{"T- and p-column may not contain zero values!"};
    FitGraph graph;
    graph.title = "fitted function ln{p} = f(1/T))";
    graph.y_title = "ln (p/kPa)";
    graph.x_title = "1/ (T/K)";
    for_active(state, [&](double T, double p) { graph.points.push_back({1 / T, std::log(p)}); });
    set_axes(graph);
    for (int i = 0; i <= kCurveIntervals && !graph.points.empty(); ++i) {
        const double x = graph.x_min + (graph.x_max - graph.x_min) * i / kCurveIntervals;
        const double p = x > 0 ? difference(state, 1 / x, 0) : 0;
        if (p > 0) graph.curve.push_back({x, std::log(p)});
    }
    return graph;
}

Result<double> fitted_y(const FitState& state, double x) {
    const double y = difference(state, x, 0);
    return std::isfinite(y) ? Result<double>(y) : no_value();
}

Result<double> fitted_x(const FitState& state, double y) {
    Range range;
    for_active(state, [&](double x, double) { range.include(x); });
    if (range.empty() || !std::isfinite(y)) return no_value();
    const double middle = 0.5 * (range.low + range.high);
    const double width = range.width() > 0 ? range.width() : std::fmax(std::fabs(middle), 1.0);
    const double step = width / kSearchIntervals;

    // Outwards from the middle of the points, both ways at once, so that the closest x is found.
    std::array<double, 2> edge{middle, middle};
    std::array<double, 2> value{difference(state, middle, y), difference(state, middle, y)};
    if (value[0] == 0) return middle;
    for (int i = 1; i <= kSearchIntervals * kSearchWidths; ++i) {
        for (const std::size_t side : {0U, 1U}) {
            const double x = middle + (side == 0 ? i : -i) * step;
            const double d = difference(state, x, y);
            if (d == 0) return x;
            if (std::isfinite(d) && std::isfinite(value[side]) && (d > 0) != (value[side] > 0)) {
                const double root =
                    bisect(state, std::min(x, edge[side]), std::max(x, edge[side]), y);
                // At a pole the difference grows where at a root it vanishes.
                const double rest = std::fabs(difference(state, root, y));
                if (rest <= std::fabs(d) && rest <= std::fabs(value[side])) return root;
            }
            edge[side] = x;
            value[side] = d;
        }
    }
    return no_value();
}

}  // namespace quor::estimation
