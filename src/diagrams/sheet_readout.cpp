#include "diagrams/sheet_readout.h"

#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/sheet_places.h"
#include "diagrams/sheet_undo.h"
#include "models/unit_text.h"

namespace quor::diagrams {

namespace {

std::string caption_of(Parameter parameter, const models::Units& units) {
    if (const models::Scale* own = own_scale(parameter, units)) {
        const std::string unit(own->name);
        const bool composed = unit.find('/') != std::string::npos;
        return " " + std::string(models::key_of(dimension_of(parameter))) + "/" +
               (composed ? "(" + unit + ")" : unit) + " = ";
    }
    switch (parameter) {
        case Parameter::T:
            return "  T/K = ";
        case Parameter::p:
            return " p/kPa= ";
        case Parameter::v:
            return "  v = ";
        case Parameter::none:
            break;
    }
    return {};
}

/// The caption of the parameter of a curve; empty for a curve without one, and for other series.
std::string caption_at(const DiagramSheet& sheet, int place) {
    if (!is_drawn(sheet, place)) return {};
    const SheetCurve& curve = sheet.curves[at(place)];
    return caption_of(curve.parameter, curve.basis.units);
}

}  // namespace

float shown_parameter_at(const DiagramSheet& sheet, int place, std::size_t point) {
    const SheetCurve& curve = sheet.curves[at(place)];
    const models::Scale* own = own_scale(curve.parameter, curve.basis.units);
    const float z = curve.z[point];
    return own ? numbers::to_single(own->shown(static_cast<double>(z))) : z;
}

std::string parameter_caption(const DiagramSheet& sheet, int place) {
    std::string caption = caption_at(sheet, place);
    const std::size_t end = caption.find('=');
    if (end != std::string::npos) caption.resize(end);
    return caption;
}

std::string readout(const DiagramSheet& sheet, const chart::NearPoint& near) {
    const auto& group = chart::series_of(sheet.chart, near.group);
    if (near.series < 0 || at(near.series) >= group.size()) return {};
    const chart::Series& series = group[at(near.series)];
    if (near.point < 0 || at(near.point) >= series.x.size()) return {};
    const std::string x = numbers::general(series.x[at(near.point)]);
    const std::string y = numbers::general(series.y[at(near.point)]);
    if (near.group == chart::Group::Points) return "X = " + x + "  Y = " + y;

    std::string text = " X= " + x + " Y= " + y;
    const std::string caption = caption_at(sheet, near.series);
    if (caption.empty()) return text;
    const std::vector<float>& z = sheet.curves[at(near.series)].z;
    if (at(near.point) < z.size() && z[at(near.point)] != 0)
        text += caption + numbers::general(shown_parameter_at(sheet, near.series, at(near.point)));
    return text;
}

std::string place_text(double x, double y) {
    return "X = " + numbers::general(static_cast<float>(x)) +
           "  Y = " + numbers::general(static_cast<float>(y));
}

std::string hint(Under what) {
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
        if (!sheet.chart.legend.shown) remember(sheet, "Legend");
        sheet.chart.legend.shown = true;
        return LegendAnswer::Shown;
    }
    const bool points_only = curve_count(sheet) == 0 && point_set_count(sheet) > 0;
    dialogs::tell(std::string("No legend texts given\n") +
                      (points_only ? "=> Designing exper. points" : "=> Designing curve"),
                  dialogs::kNotPossible);
    return points_only ? LegendAnswer::DesignPoints : LegendAnswer::DesignCurve;
}

}  // namespace quor::diagrams
