#include "gui/estimation/fit_chart.h"

#include "common/numbers.h"
#include "datafiles/cell_numbers.h"

namespace quor::estimation {

namespace {

void fill(chart::Series& series, const std::vector<GraphPoint>& points) {
    for (const GraphPoint& p : points) {
        series.x.push_back(datafiles::single_or_zero(p.x));
        series.y.push_back(datafiles::single_or_zero(p.y));
    }
}

void setAxis(chart::Axis& axis, const std::string& title, double min, double max) {
    axis.title = title;
    axis.min = min;
    axis.max = max;
    axis.automatic = !(min < max);
}

}  // namespace

chart::Chart2D chartOf(const FitGraph& graph, bool zeroLine) {
    chart::Chart2D chart;
    chart.header.text = graph.title;
    setAxis(chart.x, graph.x_title, graph.x_min, graph.x_max);
    setAxis(chart.y, graph.y_title, graph.y_min, graph.y_max);
    chart.points.push_back(chart::default_point_set(0));
    fill(chart.points.back(), graph.points);
    if (zeroLine) {
        chart.curves.push_back(chart::default_curve(0));
        chart.curves.back().is_reference = true;
        fill(chart.curves.back(), {{graph.x_min, 0}, {graph.x_max, 0}});
    } else {
        chart.curves.push_back(chart::default_curve(1));
        fill(chart.curves.back(), graph.curve);
    }
    return chart;
}

}  // namespace quor::estimation
