#include "diagrams/sheet_undo.h"

#include <algorithm>
#include <utility>

#include "diagrams/sheet_window.h"

namespace quor::diagrams {

namespace {

constexpr std::size_t kMostSteps = 50;

/// The window that `now` shows, in place of that of a chart.
void keep_window(chart::Chart2D& chart, const chart::Chart2D& now) {
    const auto keep = [](chart::Axis& axis, const chart::Axis& shown) {
        axis.min = shown.min;
        axis.max = shown.max;
        axis.automatic = shown.automatic;
        axis.logarithmic = shown.logarithmic;
    };
    keep(chart.x, now.x);
    keep(chart.y, now.y);
}

/// The content of a step; the window, which the user may have moved since, stays.
void show_content(DiagramSheet& sheet, SheetContent content) {
    keep_window(content.chart, sheet.chart);
    sheet.chart = std::move(content.chart);
    sheet.curves = std::move(content.curves);
    sheet.point_sets = std::move(content.point_sets);
    sheet.given_footer = std::move(content.given_footer);
    follow_window(sheet);
}

/// Moves the newest step of one list to the other with what is there now.
bool step(DiagramSheet& sheet, std::vector<UndoStep>& from, std::vector<UndoStep>& to) {
    if (from.empty()) return false;
    UndoStep last = std::move(from.back());
    from.pop_back();
    to.push_back({last.name, content_of(sheet), false});
    show_content(sheet, std::move(last.before));
    return true;
}

}  // namespace

SheetContent content_of(const DiagramSheet& sheet) {
    return {sheet.chart, sheet.curves, sheet.point_sets, sheet.given_footer};
}

void remember(DiagramSheet& sheet, const std::string& name) {
    sheet.redo.clear();
    sheet.undo.push_back({name, content_of(sheet), false});
    if (sheet.undo.size() > kMostSteps) sheet.undo.erase(sheet.undo.begin());
}

bool differs(const SheetContent& before, const DiagramSheet& sheet) {
    chart::Chart2D chart = before.chart;
    keep_window(chart, sheet.chart);
    return chart != sheet.chart;
}

void remember_design(DiagramSheet& sheet, const SheetContent& before, const std::string& name) {
    if (!differs(before, sheet)) return;
    SheetContent kept = before;
    keep_window(kept.chart, sheet.chart);
    sheet.redo.clear();
    const bool goes_on =
        !sheet.undo.empty() && sheet.undo.back().is_design && sheet.undo.back().name == name;
    if (!goes_on) sheet.undo.push_back({name, std::move(kept), true});
    if (sheet.undo.size() > kMostSteps) sheet.undo.erase(sheet.undo.begin());
}

bool undo(DiagramSheet& sheet) {
    return step(sheet, sheet.undo, sheet.redo);
}

bool redo(DiagramSheet& sheet) {
    return step(sheet, sheet.redo, sheet.undo);
}

}  // namespace quor::diagrams
