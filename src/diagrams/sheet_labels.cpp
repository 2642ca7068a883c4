#include "diagrams/sheet_labels.h"

#include <algorithm>
#include <utility>

#include "chart/sheet2d.h"
#include "diagrams/sheet_places.h"
#include "diagrams/sheet_undo.h"

namespace quor::diagrams {

namespace {

// Indices of labels.
constexpr int kMarkerEnd = 7;
constexpr int kCriticalEx = 7, kCriticalCalc = 8;
constexpr int kFirstCurve = 10, kFirstText = 100;
constexpr int kFurtherCurves = 1000000;  // of the curves that have no room before the texts

}  // namespace

LabelKind kind_of(const chart::Label& label) {
    const int i = label.index;
    if (i == kCriticalEx) return LabelKind::criticalEx;
    if (i == kCriticalCalc) return LabelKind::criticalCalc;
    if (i >= 0 && i < kMarkerEnd) return LabelKind::marker;
    if ((i >= kFirstCurve && i < kFirstText) || i >= kFurtherCurves) return LabelKind::curve;
    return i >= kFirstText ? LabelKind::text : LabelKind::none;
}

int curve_place_of(const chart::Label& label) {
    if (kind_of(label) != LabelKind::curve) return -1;
    return label.index >= kFurtherCurves ? label.index - kFurtherCurves : label.index - kFirstCurve;
}

int label_index_of_curve(int place) {
    return place < kFirstText - kFirstCurve ? kFirstCurve + place : kFurtherCurves + place;
}

int label_index(LabelKind critical_point) {
    return critical_point == LabelKind::criticalEx ? kCriticalEx : kCriticalCalc;
}

void place_labels(DiagramSheet& sheet, double width, double height,
                  const chart::MeasureText& measure) {
    auto& labels = sheet.chart.labels;
    // Labels keep out of each other's way in the order of their curves, wherever they stood before.
    for (chart::Label& label : labels)
        if (kind_of(label) == LabelKind::curve) label.shown = false;
    for (int place = 0; at(place) < sheet.curves.size(); ++place) {
        const SheetCurve& curve = sheet.curves[at(place)];
        const chart::CurveLabel wanted =
            chart::series_at(sheet.chart, chart::Group::Curves, place).label;
        auto found = std::find_if(labels.begin(), labels.end(), [&](const chart::Label& l) {
            return curve_place_of(l) == place;
        });
        if (!curve.drawn || wanted.text.empty()) {
            if (found != labels.end()) labels.erase(found);
            continue;
        }
        // A hidden label keeps its style.
        if (!wanted.shown) continue;
        chart::Label label;
        if (found != labels.end()) {
            label = *found;
            labels.erase(found);
        } else {
            label.index = label_index_of_curve(place);
            label.text_colour =
                chart::series_at(sheet.chart, chart::Group::Curves, place).line.colour;
        }
        label.text = wanted.text;
        label.shown = chart::place_curve_label(sheet.chart, place, wanted.shift, width, height,
                                               measure, label);
        if (!label.shown) {
            label.on_point = true;
            label.series = place;
        }
        labels.push_back(std::move(label));
    }
}

void show_curve_labels(DiagramSheet& sheet, bool shown) {
    for (int place = 0; at(place) < sheet.curves.size(); ++place)
        chart::series_at(sheet.chart, chart::Group::Curves, place).label.shown = shown;
}

void follow_colours(DiagramSheet& sheet, const chart::Chart2D& before) {
    for (chart::Label& label : sheet.chart.labels) {
        const int place = curve_place_of(label);
        if (place < 0 || at(place) >= std::min(before.curves.size(), sheet.chart.curves.size()))
            continue;
        if (label.text_colour == before.curves[at(place)].line.colour)
            label.text_colour = sheet.chart.curves[at(place)].line.colour;
    }
}

void add_text(DiagramSheet& sheet, const std::string& text) {
    if (text.empty()) return;
    remember(sheet, "Add text");
    int index = kFirstText;
    for (const chart::Label& l : sheet.chart.labels)
        if (kind_of(l) == LabelKind::text) index = std::max(index, l.index + 1);
    const chart::WindowScale scale(sheet.chart);
    chart::Label label;
    label.index = index;
    label.text = text;
    label.x = scale.x(0.5);
    label.y = scale.y(0.5);
    sheet.chart.labels.push_back(std::move(label));
}

}  // namespace quor::diagrams
