#include "diagrams/sheet_delete.h"

#include <algorithm>
#include <string>
#include <vector>

#include "chart/sheet2d.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_names.h"
#include "diagrams/sheet_places.h"
#include "diagrams/sheet_undo.h"

namespace quor::diagrams {

namespace {

using chart::Group;
using chart::Series;

template <class Belongs>
void erase_labels(DiagramSheet& sheet, Belongs belongs) {
    std::erase_if(sheet.chart.labels, belongs);
}

template <class Belongs>
bool has_labels(const DiagramSheet& sheet, Belongs belongs) {
    return std::any_of(sheet.chart.labels.begin(), sheet.chart.labels.end(), belongs);
}

auto is_kind(LabelKind kind) {
    return [kind](const chart::Label& l) { return kind_of(l) == kind; };
}

LabelKind critical(bool experimental) {
    return experimental ? LabelKind::criticalEx : LabelKind::criticalCalc;
}

void clear_curve(DiagramSheet& sheet, int place) {
    chart::clear_series(sheet.chart, Group::Curves, place);
    erase_labels(sheet, [&](const chart::Label& l) { return curve_place_of(l) == place; });
    sheet.curves[at(place)] = {};
}

void clear_point_set(DiagramSheet& sheet, int place) {
    chart::clear_series(sheet.chart, Group::Points, place);
    sheet.point_sets[at(place)] = false;
}

void clear_reference_lines(DiagramSheet& sheet) {
    auto& curves = sheet.chart.curves;
    if (static_cast<int>(curves.size()) > first_reference_line(sheet))
        curves.resize(at(first_reference_line(sheet)));
}

void clear_critical_point(DiagramSheet& sheet, bool experimental) {
    chart::clear_series(sheet.chart, Group::Points, critical_point_place(sheet, experimental));
    erase_labels(sheet, is_kind(critical(experimental)));
}

/// The places that a number of the menu means and that are in use.
std::vector<int> chosen(const DiagramSheet& sheet, int number, std::size_t places,
                        bool (*used)(const DiagramSheet&, int)) {
    std::vector<int> all;
    for (int place = 0; at(place) < places; ++place)
        if ((number == 0 || place == number - 1) && used(sheet, place)) all.push_back(place);
    return all;
}

}  // namespace

void delete_curve(DiagramSheet& sheet, int number) {
    const std::vector<int> places = chosen(sheet, number, sheet.curves.size(), is_drawn);
    if (places.empty()) return;
    remember(sheet, number == 0 ? "Delete curves" : "Delete curve");
    for (const int place : places) clear_curve(sheet, place);
    name_fluids(sheet);
}

void delete_point_set(DiagramSheet& sheet, int number) {
    const std::vector<int> places = chosen(sheet, number, sheet.point_sets.size(), has_point_set);
    if (places.empty()) return;
    remember(sheet, "Delete points");
    for (const int place : places) clear_point_set(sheet, place);
}

void delete_total(DiagramSheet& sheet) {
    if (!has_anything(sheet) && !sheet.chart.legend.shown) return;
    remember(sheet, "Delete everything");
    for (std::size_t i = 0; i < sheet.curves.size(); ++i)
        if (sheet.curves[i].drawn) clear_curve(sheet, static_cast<int>(i));
    for (std::size_t i = 0; i < sheet.point_sets.size(); ++i)
        if (sheet.point_sets[i]) clear_point_set(sheet, static_cast<int>(i));
    clear_reference_lines(sheet);
    clear_critical_point(sheet, true);
    clear_critical_point(sheet, false);
    sheet.chart.labels.clear();
    sheet.chart.legend.shown = false;
}

void delete_reference_lines(DiagramSheet& sheet) {
    if (!has_reference_lines(sheet)) return;
    remember(sheet, "Delete markers");
    clear_reference_lines(sheet);
}

void delete_marker_labels(DiagramSheet& sheet) {
    if (!has_marker_labels(sheet)) return;
    remember(sheet, "Delete texts of the markers");
    erase_labels(sheet, is_kind(LabelKind::marker));
}

void delete_critical_point(DiagramSheet& sheet, bool experimental) {
    if (!has_critical_point(sheet, experimental)) return;
    remember(sheet, "Delete critical point");
    clear_critical_point(sheet, experimental);
}

void delete_curve_labels(DiagramSheet& sheet) {
    remember(sheet, "Delete curve labels");
    show_curve_labels(sheet, false);
    for (chart::Label& label : sheet.chart.labels)
        if (kind_of(label) == LabelKind::curve) label.shown = false;
}

void delete_texts(DiagramSheet& sheet) {
    if (!has_texts(sheet)) return;
    remember(sheet, "Delete texts");
    erase_labels(sheet, is_kind(LabelKind::text));
}

void delete_legend(DiagramSheet& sheet) {
    if (!sheet.chart.legend.shown) return;
    remember(sheet, "Delete legend");
    sheet.chart.legend.shown = false;
}

bool delete_single_point(DiagramSheet& sheet, int place, int point) {
    if (!is_drawn(sheet, place)) return false;
    const Series& series = chart::series_at(sheet.chart, Group::Curves, place);
    if (series.line.pattern != chart::LinePattern::None) return false;
    if (point < 0 || point >= static_cast<int>(series.x.size())) return false;
    const std::string question = "point x =" + numbers::general(series.x[at(point)]) +
                                 ",  y =" + numbers::general(series.y[at(point)]) +
                                 " Really delete?";
    if (!dialogs::ask(question, "Delete a Curve Point")) return false;
    remember(sheet, "Delete point");
    chart::delete_point(sheet.chart, Group::Curves, place, point);
    auto& z = sheet.curves[at(place)].z;
    if (at(point) < z.size()) z.erase(z.begin() + point);
    return true;
}

bool has_reference_lines(const DiagramSheet& sheet) {
    const auto& curves = sheet.chart.curves;
    return std::any_of(curves.begin(), curves.end(),
                       [](const Series& s) { return s.is_reference && !s.x.empty(); });
}

bool has_marker_labels(const DiagramSheet& sheet) {
    return has_labels(sheet, is_kind(LabelKind::marker));
}

bool has_critical_point(const DiagramSheet& sheet, bool experimental) {
    return has_labels(sheet, is_kind(critical(experimental)));
}

bool has_curve_labels(const DiagramSheet& sheet) {
    return has_labels(sheet, [&](const chart::Label& l) {
        const int place = curve_place_of(l);
        return place >= 0 && at(place) < sheet.chart.curves.size() &&
               sheet.chart.curves[at(place)].label.shown;
    });
}

bool has_texts(const DiagramSheet& sheet) {
    return has_labels(sheet, is_kind(LabelKind::text));
}

bool has_anything(const DiagramSheet& sheet) {
    return curve_count(sheet) > 0 || point_set_count(sheet) > 0 || has_reference_lines(sheet) ||
           !sheet.chart.labels.empty();
}

}  // namespace quor::diagrams
