#include "diagrams/sheet_file.h"

#include <algorithm>

#include "chart/chart_file.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/curve.h"
#include "diagrams/sheet_readout.h"
#include "legacy/declare.h"
#include "session/module2.h"
#include "session/xy_session.h"

namespace quor::Module9 {

namespace {

using chart::Series;
using legacy::the_session;

constexpr auto kFilter = "picture file (*.oc2)|*.oc2";
constexpr auto kExtension = ".oc2";

std::size_t at(int slot) {
    return static_cast<std::size_t>(slot);
}

const Series* used_curve(const DiagramSheet& sheet, int slot) {
    if (slot < 0 || slot >= kMaxCurves || sheet.CurveFree[at(slot)]) return nullptr;
    return &sheet.chart.curves[at(slot)];
}

std::string in_folder(const std::string& name) {
    return session::has_separator(name) ? name : the_session.FolderDiagram2D + name;
}

std::string with_extension(const std::string& name) {
    const std::string title = session::file_title(name);
    return title.find('.') == std::string::npos ? name + kExtension : name;
}

bool has_label(const chart::Chart2D& chart, int index) {
    return std::any_of(chart.labels.begin(), chart.labels.end(),
                       [&](const chart::Label& l) { return l.index == index; });
}

/// A file may hold more than a diagram has slots for: reference lines stand behind the curves, all
/// else goes.
void keep_what_has_a_slot(chart::Chart2D& chart) {
    auto& curves = chart.curves;
    if (curves.size() > at(kMaxCurves)) {
        const auto behind = curves.begin() + kMaxCurves;
        curves.erase(
            std::remove_if(behind, curves.end(), [](const Series& s) { return !s.isReference; }),
            curves.end());
    }
    auto& points = chart.points;
    if (points.size() > at(kCriticalCalcSeries + 1)) points.resize(at(kCriticalCalcSeries + 1));
    for (const int slot : {kCriticalExSeries, kCriticalCalcSeries}) {
        const int index =
            slot == kCriticalExSeries ? LabelIndex::kCriticalEx : LabelIndex::kCriticalCalc;
        if (points.size() > at(slot) && !has_label(chart, index)) {
            points[at(slot)].x.clear();
            points[at(slot)].y.clear();
        }
    }
    std::erase_if(chart.labels, [&](const chart::Label& l) {
        if (!l.onPoint) return false;
        const auto& group = chart::series_of(chart, l.group);
        return l.series < 0 || at(l.series) >= group.size() || group[at(l.series)].x.empty();
    });
}

}  // namespace

bool save_oc2(const DiagramSheet& sheet) {
    if (sheet.SwappedAxes &&
        !dialogs::ask("Recommendation: Do not save the diagram in the rotated state (x<=>y).\n"
                      "Continue?",
                      "WARNING", dialogs::Icon::Exclamation))
        return false;
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "Save this 2D-diagram design",
                              .filter = kFilter,
                              .folder = the_session.FolderDiagram2D,
                              .name = "*.oc2",
                              .defaultExtension = kExtension,
                              .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = with_extension(in_folder(*name));
    the_session.FolderDiagram2D = session::folder_of(path);
    const chart::FileOutcome saved = chart::save_chart(sheet.chart, path);
    if (!saved.ok) dialogs::tell(saved.message, "ERROR", dialogs::Icon::Stop);
    return saved.ok;
}

LoadOutcome load_oc2(DiagramSheet& sheet) {
    if (sheet.SwappedAxes) change_xy(sheet);
    if (the_session.Diagram2DNotePending) {
        the_session.Diagram2DNotePending = false;
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
                              .folder = the_session.FolderDiagram2D,
                              .name = "*.oc2",
                              .defaultExtension = kExtension});
    if (!name || name->empty()) return LoadOutcome::Cancelled;
    return load_oc2(sheet, in_folder(*name));
}

LoadOutcome load_oc2(DiagramSheet& sheet, const std::string& file) {
    the_session.FolderDiagram2D = session::folder_of(file);
    chart::Chart2D loaded;
    const chart::FileOutcome read = chart::load_chart(file, loaded);
    if (!read.ok) {
        dialogs::tell(read.message, "Execution not possible", dialogs::Icon::Stop);
        return LoadOutcome::Failed;
    }
    take_loaded_chart(sheet, std::move(loaded));
    sheet.loadedFile = file;
    return LoadOutcome::Loaded;
}

void take_loaded_chart(DiagramSheet& sheet, chart::Chart2D chart) {
    DiagramSheet fresh;
    fresh.request = sheet.request;
    fresh.T = sheet.T;
    fresh.p = sheet.p;
    fresh.v = sheet.v;
    fresh.chart = std::move(chart);
    keep_what_has_a_slot(fresh.chart);

    const auto& curves = fresh.chart.curves;
    for (int slot = 0; slot < kMaxCurves && at(slot) < curves.size(); ++slot) {
        if (curves[at(slot)].x.empty()) continue;
        fresh.CurveFree[at(slot)] = false;
        ++fresh.CurveCount;
        CurveLabel& label = fresh.CurveLabels[at(slot)];
        label.shown = false;
        for (const chart::Label& l : fresh.chart.labels)
            if (l.index == LabelIndex::kFirstCurve + slot) {
                label.text = l.text;
                label.shown = true;
            }
    }
    const auto& points = fresh.chart.points;
    for (int slot = 0; slot < kMaxPointSets && at(slot) < points.size(); ++slot) {
        if (points[at(slot)].x.empty()) continue;
        fresh.PointSetFree[at(slot)] = false;
        ++fresh.PointSetCount;
    }

    const chart::Window window = chart::shown_window(fresh.chart);
    diagrams::DiagramRequest& r = fresh.request;
    r.xMinDefault = r.xMin = static_cast<float>(window.x.min);
    r.xMaxDefault = r.xMax = static_cast<float>(window.x.max);
    r.yMinDefault = r.yMin = static_cast<float>(window.y.min);
    r.yMaxDefault = r.yMax = static_cast<float>(window.y.max);
    r.xLabel = fresh.chart.x.title;
    r.yLabel = fresh.chart.y.title;
    fresh.manualScaling = true;
    sheet = std::move(fresh);
}

bool save_curve(const DiagramSheet& sheet, int slot) {
    const Series* series = used_curve(sheet, slot);
    if (series == nullptr) return false;
    std::vector<datafiles::FitPoint> points;
    for (std::size_t i = 0; i < series->x.size(); ++i)
        if (chart::is_shown(series->x[i]) && chart::is_shown(series->y[i]))
            points.push_back({series->x[i], series->y[i], 0});
    return session::save_curve_as_xy(points);
}

std::string curve_table(const DiagramSheet& sheet, int slot) {
    const Series* series = used_curve(sheet, slot);
    if (series == nullptr) return {};
    const std::string parameter = text::trim(parameter_caption(sheet, slot));
    const bool hasParameter = !parameter.empty();
    std::string table = sheet.chart.x.title + '\t' + sheet.chart.y.title;
    if (hasParameter) table += '\t' + parameter;
    table += '\n';
    const auto& z = sheet.CurveParameters[at(slot)];
    for (std::size_t i = 0; i < series->x.size(); ++i) {
        if (!chart::is_shown(series->x[i]) || !chart::is_shown(series->y[i])) continue;
        table += numbers::General(series->x[i]) + '\t' + numbers::General(series->y[i]);
        if (hasParameter) {
            table += '\t';
            if (i + 1 < z.size()) table += numbers::General(z[i + 1]);
        }
        table += '\n';
    }
    return table;
}

}  // namespace quor::Module9
