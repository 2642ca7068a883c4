#include "gui/estimation/fit_chart.h"

#include "common/numbers.h"
#include "datafiles/cell_numbers.h"

namespace quor::estimation {

namespace {

void Fill(chart::Series& series, const std::vector<GraphPoint>& points) {
    for (const GraphPoint& p : points) {
        series.x.push_back(datafiles::single_or_zero(p.x));
        series.y.push_back(datafiles::single_or_zero(p.y));
    }
}

void SetAxis(chart::Axis& axis, const std::string& title, double min, double max) {
    axis.title = title;
    axis.min = min;
    axis.max = max;
    axis.automatic = !(min < max);
}

}  // namespace

chart::Chart2D chartOf(const FitGraph& graph, bool zeroLine) {
    chart::Chart2D chart;
    chart.header.text = graph.title;
    SetAxis(chart.x, graph.xTitle, graph.xMin, graph.xMax);
    SetAxis(chart.y, graph.yTitle, graph.yMin, graph.yMax);
    chart.points.push_back(chart::default_point_set(0));
    Fill(chart.points.back(), graph.points);
    if (zeroLine) {
        chart.curves.push_back(chart::default_curve(0));
        chart.curves.back().isReference = true;
        Fill(chart.curves.back(), {{graph.xMin, 0}, {graph.xMax, 0}});
    } else {
        chart.curves.push_back(chart::default_curve(1));
        Fill(chart.curves.back(), graph.curve);
    }
    return chart;
}

}  // namespace quor::estimation
