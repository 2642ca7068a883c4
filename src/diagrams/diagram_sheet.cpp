#include "diagrams/diagram_sheet.h"

#include <algorithm>
#include <utility>

#include "chart/sheet2d.h"
#include "common/faults.h"
#include "diagrams/sheet_names.h"
#include "diagrams/sheet_places.h"
#include "diagrams/sheet_undo.h"
#include "diagrams/sheet_window.h"

namespace quor::diagrams {

namespace {

using chart::Group;
using chart::Series;

// The chart keeps at least these places before its reference lines and critical points, so that
// these stand where every version of the program looks for them.
constexpr int kLeastCurves = 24, kLeastPointSets = 12;

int lowest_free(const std::vector<SheetCurve>& curves) {
    const auto free =
        std::find_if(curves.begin(), curves.end(), [](const SheetCurve& c) { return !c.drawn; });
    return static_cast<int>(free - curves.begin());
}

int lowest_free(const std::vector<bool>& sets) {
    return static_cast<int>(std::find(sets.begin(), sets.end(), false) - sets.begin());
}

/// Where the line between two points reaches an x that lies between theirs.
CurvePoint point_at_x(const CurvePoint& a, const CurvePoint& b, float x) {
    const double part = (static_cast<double>(x) - static_cast<double>(a.x)) /
                        (static_cast<double>(b.x) - static_cast<double>(a.x));
    const double y =
        static_cast<double>(a.y) + part * (static_cast<double>(b.y) - static_cast<double>(a.y));
    return {x, static_cast<float>(y), a.z};
}

/// Makes room for one more place of a group before what stands behind its places.
void add_place(DiagramSheet& sheet, Group group, int place) {
    auto& all = chart::series_of(sheet.chart, group);
    const int least = group == Group::Curves ? kLeastCurves : kLeastPointSets;
    if (place < least || static_cast<int>(all.size()) <= place) return;
    all.insert(all.begin() + place, group == Group::Curves ? chart::default_curve(place)
                                                           : chart::default_point_set(place));
    for (chart::Label& label : sheet.chart.labels)
        if (label.on_point && label.group == group && label.series >= place) ++label.series;
}

}  // namespace

DiagramSheet open_sheet(const DiagramRequest& request, const Basis& basis,
                        const StateParameters& parameters) {
    DiagramSheet sheet;
    sheet.request = request;
    sheet.units = basis.units.choice;
    sheet.basis = basis;
    sheet.at = parameters;
    show_texts(sheet, basis);
    show_window(sheet, as_chart_window(request.window));
    return sheet;
}

Basis in_units_of(const DiagramSheet& sheet, const Basis& basis) {
    Basis own = basis;
    models::UnitChoice choice = sheet.units;
    choice.T_of_RT = basis.units.choice.T_of_RT;
    own.units = models::make_units(choice, basis.fluid);
    if (own.units.choice.system != sheet.units.system)
        throw faults::Fault("The fluid has no critical volume for the units of this diagram");
    return own;
}

bool is_drawn(const DiagramSheet& sheet, int place) {
    return place >= 0 && at(place) < sheet.curves.size() && sheet.curves[at(place)].drawn;
}

bool has_point_set(const DiagramSheet& sheet, int place) {
    return place >= 0 && at(place) < sheet.point_sets.size() && sheet.point_sets[at(place)];
}

int curve_count(const DiagramSheet& sheet) {
    return static_cast<int>(std::count_if(sheet.curves.begin(), sheet.curves.end(),
                                          [](const SheetCurve& c) { return c.drawn; }));
}

int point_set_count(const DiagramSheet& sheet) {
    return static_cast<int>(std::count(sheet.point_sets.begin(), sheet.point_sets.end(), true));
}

int first_reference_line(const DiagramSheet& sheet) {
    return std::max(kLeastCurves, static_cast<int>(sheet.curves.size()));
}

int critical_point_place(const DiagramSheet& sheet, bool experimental) {
    return std::max(kLeastPointSets, static_cast<int>(sheet.point_sets.size())) +
           (experimental ? 0 : 1);
}

int store_curve(DiagramSheet& sheet, NewCurve curve, float x_max) {
    remember(sheet, "Draw curve");
    const int place = lowest_free(sheet.curves);
    if (at(place) == sheet.curves.size()) {
        add_place(sheet, Group::Curves, place);
        sheet.curves.emplace_back();
    }
    const CurvePoints& points = curve.points;
    std::size_t end = points.size();
    while (end > 0 && points[end - 1].x >= x_max) --end;
    if (end == 0) end = points.size();

    Series& series = chart::series_at(sheet.chart, Group::Curves, place);
    series.x.clear();
    series.y.clear();
    series.visible = true;
    series.label = {};
    SheetCurve& stored = sheet.curves[at(place)];
    stored = {};
    const auto add = [&](const CurvePoint& point) {
        series.x.push_back(point.x);
        series.y.push_back(point.y);
        if (stored.z.size() < kMaxParameters) stored.z.push_back(point.z);
    };
    for (std::size_t i = 0; i < end; ++i) add(points[i]);
    if (end > 0 && end < points.size()) add(point_at_x(points[end - 1], points[end], x_max));
    stored.parameter = curve.parameter;
    stored.basis = std::move(curve.basis);
    stored.source = std::move(curve.source);
    stored.held = curve.held;
    stored.drawn = true;
    sheet.current_place = place;
    name_curve(sheet, place, curve.name);
    name_fluids(sheet);
    return place;
}

int store_points(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                 const std::string& legend) {
    NewCurve curve{.name = {legend, ""}};
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i)
        curve.points.push_back({x[i], y[i], 0});
    return store_curve(sheet, std::move(curve), sheet.request.window.x_max);
}

int store_point_set(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                    const std::string& legend) {
    remember(sheet, "Add points");
    const int place = lowest_free(sheet.point_sets);
    if (at(place) == sheet.point_sets.size()) {
        add_place(sheet, Group::Points, place);
        sheet.point_sets.push_back(false);
    }
    Series& series = chart::series_at(sheet.chart, Group::Points, place);
    series.x = std::move(x);
    series.y = std::move(y);
    series.legend = legend;
    series.visible = true;
    sheet.point_sets[at(place)] = true;
    return place;
}

}  // namespace quor::diagrams
