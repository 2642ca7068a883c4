#include "diagrams/sheet_file.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "chart/chart_file.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/text.h"
#include "diagrams/chart_saving.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_places.h"
#include "diagrams/sheet_readout.h"
#include "diagrams/sheet_window.h"

namespace quor::diagrams {

namespace {

using chart::Series;

constexpr auto kFilter = "picture file (*.oc2)|*.oc2";
constexpr auto kExtension = ".oc2";

const Series* used_curve(const DiagramSheet& sheet, int place) {
    return is_drawn(sheet, place) ? &sheet.chart.curves[at(place)] : nullptr;
}

/// The places of a group that something was drawn in: all but the empty ones at the end.
template <class IsElse>
std::size_t used_places(const std::vector<Series>& group, IsElse is_else) {
    std::size_t used = 0;
    for (std::size_t i = 0; i < group.size(); ++i)
        if (!is_else(i) && !group[i].x.empty()) used = i + 1;
    return used;
}

/// The critical point of a chart, found by its label.
std::optional<Series> take_critical_point(chart::Chart2D& chart, LabelKind kind) {
    for (const chart::Label& label : chart.labels) {
        if (kind_of(label) != kind || label.series < 0) continue;
        if (at(label.series) >= chart.points.size()) continue;
        Series& found = chart.points[at(label.series)];
        return std::exchange(found, chart::default_point_set(label.series));
    }
    return std::nullopt;
}

void place_critical_point(DiagramSheet& sheet, bool experimental, std::optional<Series> series) {
    if (!series) return;
    const int place = critical_point_place(sheet, experimental);
    chart::series_at(sheet.chart, chart::Group::Points, place) = std::move(*series);
    const LabelKind kind = experimental ? LabelKind::criticalEx : LabelKind::criticalCalc;
    for (chart::Label& label : sheet.chart.labels)
        if (kind_of(label) == kind) label.series = place;
}

/// Older files hold the labels of curves only where they are shown, as they are placed.
void take_placed_label(const chart::Chart2D& chart, int place, chart::CurveLabel& label) {
    label.shown = false;
    for (const chart::Label& placed : chart.labels)
        if (curve_place_of(placed) == place) label = {.text = placed.text, .shown = true};
}

/// Reference lines stand behind the curves, however many of these a file holds.
void take_curves(DiagramSheet& sheet) {
    auto& curves = sheet.chart.curves;
    std::vector<Series> lines;
    const auto is_reference = [&](std::size_t i) { return curves[i].is_reference; };
    const std::size_t used = used_places(curves, is_reference);
    for (std::size_t i = used; i < curves.size(); ++i)
        if (curves[i].is_reference) lines.push_back(std::move(curves[i]));
    std::erase_if(curves, [](const Series& s) { return s.is_reference && s.x.empty(); });
    sheet.curves.resize(used);
    const std::size_t first = at(first_reference_line(sheet));
    if (curves.size() > first || !lines.empty()) {
        curves.resize(std::min(curves.size(), std::max(used, first)));
        std::erase_if(curves, [](const Series& s) { return s.is_reference; });
        if (!lines.empty())
            chart::series_at(sheet.chart, chart::Group::Curves, static_cast<int>(first) - 1);
        for (Series& line : lines) curves.push_back(std::move(line));
    }
    for (std::size_t i = 0; i < used; ++i) {
        if (curves[i].x.empty()) continue;
        SheetCurve& curve = sheet.curves[i];
        curve.drawn = true;
        curve.name.legend = curve.given.legend = curves[i].legend;
        chart::CurveLabel& label = curves[i].label;
        if (label.text.empty()) take_placed_label(sheet.chart, static_cast<int>(i), label);
        curve.name.label = curve.given.label = label.text;
    }
}

void take_point_sets(DiagramSheet& sheet) {
    chart::Chart2D& chart = sheet.chart;
    auto experimental = take_critical_point(chart, LabelKind::criticalEx);
    auto calculated = take_critical_point(chart, LabelKind::criticalCalc);
    const std::size_t used = used_places(chart.points, [](std::size_t) { return false; });
    sheet.point_sets.assign(used, false);
    for (std::size_t i = 0; i < used; ++i) sheet.point_sets[i] = !chart.points[i].x.empty();
    place_critical_point(sheet, true, std::move(experimental));
    place_critical_point(sheet, false, std::move(calculated));
}

void drop_lost_labels(chart::Chart2D& chart) {
    std::erase_if(chart.labels, [&](const chart::Label& l) {
        if (!l.on_point) return false;
        const auto& group = chart::series_of(chart, l.group);
        return l.series < 0 || at(l.series) >= group.size() || group[at(l.series)].x.empty();
    });
}

/// True when a sheet has the texts of the axes of its diagram in units.
bool shows_axes(const DiagramSheet& sheet, const models::UnitChoice& units) {
    const Diagram& row = *sheet.request.diagram;
    const std::string x = text::trim(axis_text(row.x, units)),
                      y = text::trim(axis_text(row.y, units));
    const chart::Chart2D& chart = sheet.chart;
    return text::trim(chart.x.title) == (chart.swapped ? y : x) &&
           text::trim(chart.y.title) == (chart.swapped ? x : y);
}

}  // namespace

std::string proposed_file(const DiagramSheet& sheet, const std::string& substance) {
    if (!sheet.loaded_file.empty()) return paths::file_title(sheet.loaded_file);
    std::string title = substance.empty() ? "Diagram" : substance;
    if (const Diagram* diagram = sheet.request.diagram)
        title += " " + axis_symbol(diagram->y) + "-" + axis_symbol(diagram->x);
    return paths::as_title(title) + kExtension;
}

const models::SubstanceRecord* first_substance(const DiagramSheet& sheet) {
    for (const SheetCurve& curve : sheet.curves)
        if (curve.drawn && !curve.basis.fluid.substance().name.empty())
            return &curve.basis.fluid.substance();
    return nullptr;
}

std::optional<std::string> save_oc2(const DiagramSheet& sheet, const std::string& folder,
                                    const std::string& proposed) {
    return save_chart(sheet.chart, {.title = "Save this 2D-diagram design",
                                    .filter = kFilter,
                                    .folder = folder,
                                    .name = proposed,
                                    .default_extension = kExtension});
}

LoadAnswer load_oc2(DiagramSheet& sheet, const std::string& folder, bool with_note) {
    if (sheet.chart.swapped) change_xy(sheet);
    if (with_note) {
        dialogs::tell(
            "If you intend to continue the designing of the\nOC2 diagram please note:\n"
            "1) Do load the OC2 diagram file only for a suited setting \n"
            "   of the type of the the diagram.\n"
            "2) Check if the right substance is loaded and the model \n"
            "   settings are correct, incl. the correct reference state\n"
            "   for enthalpy and entropy.",
            "Single Note", dialogs::Icon::Information);
    }
    const std::optional<std::string> name =
        dialogs::choose_file({.title = "Load a saved pattern (*.oc2)",
                              .filter = kFilter,
                              .folder = folder,
                              .name = "*.oc2",
                              .default_extension = kExtension});
    if (!name || name->empty()) return {LoadOutcome::Cancelled, folder};
    return load_oc2(sheet, paths::in_folder(*name, folder));
}

LoadAnswer load_oc2(DiagramSheet& sheet, const std::string& file) {
    chart::Chart2D loaded;
    const Result<void> read = chart::load_chart(file, loaded);
    if (!read) {
        dialogs::tell(read.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return {LoadOutcome::Failed, paths::folder_of(file)};
    }
    take_loaded_chart(sheet, std::move(loaded));
    sheet.loaded_file = file;
    return {LoadOutcome::Loaded, paths::folder_of(file)};
}

std::string named_substance(const chart::Chart2D& chart) {
    const std::string footer = text::replace_all(chart.footer.text, "\n", " ");
    const std::size_t end = footer.find(", ");
    return end == std::string::npos ? std::string() : text::trim(footer.substr(0, end));
}

void take_loaded_chart(DiagramSheet& sheet, chart::Chart2D chart) {
    DiagramSheet fresh;
    fresh.request = sheet.request;
    fresh.units = sheet.units;
    fresh.at = sheet.at;
    fresh.chart = std::move(chart);
    take_curves(fresh);
    take_point_sets(fresh);
    drop_lost_labels(fresh.chart);

    const chart::Window window = chart::shown_window(fresh.chart);
    DiagramRequest& r = fresh.request;
    r.window = {static_cast<float>(window.x.min), static_cast<float>(window.x.max),
                static_cast<float>(window.y.min), static_cast<float>(window.y.max)};
    r.proposed = r.window;
    r.texts.x = fresh.chart.x.title;
    r.texts.y = fresh.chart.y.title;
    // The file may have been written in other units than the sheet before it had.
    const bool turned = fresh.chart.swapped;
    const auto known = diagram_by_texts(fresh.chart.header.text, turned ? r.texts.y : r.texts.x,
                                        turned ? r.texts.x : r.texts.y);
    if (known && known->diagram == r.diagram && !shows_axes(fresh, sheet.units))
        fresh.units = known->units;
    fresh.manual_scaling = true;
    sheet = std::move(fresh);
}

CurvePoints shown_points(const DiagramSheet& sheet, int place) {
    CurvePoints points;
    if (const Series* series = used_curve(sheet, place))
        for (std::size_t i = 0; i < series->x.size(); ++i)
            if (chart::is_shown(series->x[i]) && chart::is_shown(series->y[i]))
                points.push_back({series->x[i], series->y[i], 0});
    return points;
}

std::string curve_name(const DiagramSheet& sheet, int place) {
    if (!is_drawn(sheet, place)) return {};
    const SheetCurve& curve = sheet.curves[at(place)];
    const models::Fluid& fluid = curve.basis.fluid;
    const std::string& substance = fluid.substance().name;
    const std::string legend = text::trim(curve.name.legend);
    if (substance.empty()) return legend;
    const Diagram* diagram = sheet.request.diagram;
    const std::string model = diagram == nullptr || diagram->section == Section::database
                                  ? std::string()
                                  : ", " + model_name(*diagram, fluid);
    return substance + model + ", " + legend;
}

std::string curve_table(const DiagramSheet& sheet, int place) {
    const Series* series = used_curve(sheet, place);
    if (series == nullptr) return {};
    const std::string parameter = text::trim(parameter_caption(sheet, place));
    const bool has_parameter = !parameter.empty();
    const std::string name = curve_name(sheet, place);
    std::string table =
        (name.empty() ? name : name + '\n') + sheet.chart.x.title + '\t' + sheet.chart.y.title;
    if (has_parameter) table += '\t' + parameter;
    table += '\n';
    const std::vector<float>& z = sheet.curves[at(place)].z;
    for (std::size_t i = 0; i < series->x.size(); ++i) {
        if (!chart::is_shown(series->x[i]) || !chart::is_shown(series->y[i])) continue;
        table += numbers::general(series->x[i]) + '\t' + numbers::general(series->y[i]);
        if (has_parameter) {
            table += '\t';
            if (i < z.size()) table += numbers::general(shown_parameter_at(sheet, place, i));
        }
        table += '\n';
    }
    return table;
}

}  // namespace quor::diagrams
