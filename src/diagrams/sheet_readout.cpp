#include "diagrams/sheet_readout.h"

#include <algorithm>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/curve.h"

namespace quor::Module9 {

namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

std::string caption_of(float mark) {
    if (mark == diagrams::kMarkT) return "  T/K = ";
    if (mark == diagrams::kMarkP) return " p/kPa= ";
    if (mark == diagrams::kMarkV) return "  v = ";
    return {};
}

float parameter_of(const DiagramSheet& sheet, int slot, int point) {
    const auto& z = sheet.CurveParameters[at(slot)];
    return point >= 0 && at(point) + 1 < z.size() ? z[at(point) + 1] : 0;
}

}  // namespace

std::string parameter_caption(const DiagramSheet& sheet, int slot) {
    std::string caption = caption_of(sheet.CurveMarks[at(slot)]);
    const std::size_t end = caption.find('=');
    if (end != std::string::npos) caption.resize(end);
    return caption;
}

std::string readout(const DiagramSheet& sheet, const chart::NearPoint& near) {
    const auto& group = chart::series_of(sheet.chart, near.group);
    if (near.series < 0 || at(near.series) >= group.size()) return {};
    const chart::Series& series = group[at(near.series)];
    if (near.point < 0 || at(near.point) >= series.x.size()) return {};
    const std::string x = numbers::General(series.x[at(near.point)]);
    const std::string y = numbers::General(series.y[at(near.point)]);
    if (near.group == chart::Group::Points) return "X = " + x + "  Y = " + y;

    std::string text = " X= " + x + " Y= " + y;
    if (near.series >= kMaxCurves) return text;
    const std::string caption = caption_of(sheet.CurveMarks[at(near.series)]);
    const float z = parameter_of(sheet, near.series, near.point);
    if (!caption.empty() && z != 0) text += caption + numbers::General(z);
    return text;
}

std::string place_text(double x, double y) {
    return "X = " + numbers::General(static_cast<float>(x)) +
           "  Y = " + numbers::General(static_cast<float>(y));
}

std::string Hint(Under what) {
    switch (what) {
        case Under::Text:
            return "  Right-click =>  Edit/ Shift  Text";
        case Under::Legend:
            return "  Right-click =>  Edit / Shift   Legend";
        default:
            return "  Right-click =>    Diagram  Design";
    }
}

void explain_legend() {
    dialogs::tell(
        "In the legend an entry is only shown when for a curve or an exper. \n"
        " point resp. there is a legend text (at least 1 character).\n"
        "When on the resp. tabstrip the legend text will be \n"
        "deleted,  this line automatically vanishes from the legend.",
        "How to delete a single legend entry", dialogs::Icon::Information);
}

void explain_point_deletion() {
    dialogs::tell(
        "1st) Change the the curve style from\n"
        "    \"Curve solid\" to \"Single points only\".\n"
        "2nd) Left-Click on the point in question\n"
        "    to be deleted",
        "How to delete a single curve point", dialogs::Icon::Information);
}

LegendAnswer add_legend(DiagramSheet& sheet) {
    if (!chart::legend_entries(sheet.chart).empty()) {
        sheet.chart.legend.shown = true;
        return LegendAnswer::Shown;
    }
    const bool pointsOnly = sheet.CurveCount == 0 && sheet.PointSetCount > 0;
    dialogs::tell(std::string("No legend texts given\n") +
                      (pointsOnly ? "=> Designing exper. points" : "=> Designing curve"),
                  "Execution not possible");
    return pointsOnly ? LegendAnswer::DesignPoints : LegendAnswer::DesignCurve;
}

}  // namespace quor::Module9
