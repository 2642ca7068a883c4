#include "diagrams/sheet_hit.h"

#include <algorithm>

namespace Module9 {

namespace {

using chart::Sheet2D;

bool is_on(const chart::SheetText& text, double x, double y) {
    return text.shown && text.rect.contains(x, y);
}

Hit near_series(const DiagramSheet& sheet, const Sheet2D& laidOut, double x, double y,
                double reach) {
    if (!laidOut.plot.contains(x, y)) return {};
    const auto near = chart::NearestSeries(sheet.chart, PlotPixelOf(laidOut, x, y), reach);
    if (!near) return {Part::Plot};
    if (near->group == chart::Group::Points) return {Part::PointSet, near->series, near->point};
    const bool reference = near->series >= kFirstReferenceLine;
    return {reference ? Part::ReferenceLine : Part::Curve, near->series, near->point};
}

void move_place(chart::SheetPlace& place, const Sheet2D& laidOut, double dx, double dy) {
    place.x = std::clamp(place.x + dx / laidOut.sheet.width, 0.0, 1.0);
    place.y = std::clamp(place.y + dy / laidOut.sheet.height, 0.0, 1.0);
}

void move_caption(chart::Caption& caption, const chart::SheetText& text, const Sheet2D& laidOut,
                  double dx, double dy) {
    if (caption.automatic) {
        caption.automatic = false;
        caption.place = {text.x / laidOut.sheet.width, text.y / laidOut.sheet.height};
    }
    move_place(caption.place, laidOut, dx, dy);
}

}  // namespace

chart::PlotPixel PlotPixelOf(const Sheet2D& laidOut, double x, double y) {
    const chart::SheetRect& plot = laidOut.plot;
    return {x - plot.left, plot.bottom() - y, plot.width, plot.height};
}

Hit HitAt(const DiagramSheet& sheet, const Sheet2D& laidOut, double x, double y, double reach) {
    if (laidOut.legend.width > 0 && laidOut.legend.contains(x, y)) return {Part::Legend};
    for (const chart::SheetLabel& label : laidOut.labels)
        if (is_on(label.text, x, y)) return {Part::Label, label.label};
    if (is_on(laidOut.header, x, y)) return {Part::Header};
    if (is_on(laidOut.footer, x, y)) return {Part::Footer};
    if (is_on(laidOut.x.title, x, y)) return {Part::XTitle};
    if (is_on(laidOut.y.title, x, y)) return {Part::YTitle};
    const Hit series = near_series(sheet, laidOut, x, y, reach);
    if (series.part != Part::Sheet && series.part != Part::Plot) return series;
    if (laidOut.x.numbers.contains(x, y)) return {Part::XAxis};
    if (laidOut.y.numbers.contains(x, y)) return {Part::YAxis};
    return series;
}

Under UnderOf(Part part) {
    switch (part) {
        case Part::Curve:
        case Part::ReferenceLine:
            return Under::Curve;
        case Part::PointSet:
            return Under::PointSet;
        case Part::Label:
        case Part::Header:
        case Part::Footer:
        case Part::XTitle:
        case Part::YTitle:
            return Under::Text;
        case Part::Legend:
            return Under::Legend;
        case Part::XAxis:
        case Part::YAxis:
            return Under::Axis;
        default:
            return Under::Nothing;
    }
}

bool IsMovable(const DiagramSheet& sheet, const Hit& hit) {
    if (hit.part == Part::Label) {
        const int index = sheet.chart.labels[static_cast<std::size_t>(hit.index)].index;
        const bool ofCurve =
            index >= LabelIndex::kFirstCurve && index < LabelIndex::kFirstCurve + kMaxCurves;
        return !ofCurve;
    }
    return hit.part == Part::Legend || hit.part == Part::Header || hit.part == Part::Footer;
}

void MovePart(DiagramSheet& sheet, const Sheet2D& laidOut, const Hit& hit, double dx, double dy) {
    chart::Chart2D& c = sheet.chart;
    switch (hit.part) {
        case Part::Legend:
            if (c.legend.anchor != chart::LegendAnchor::Free) {
                c.legend.anchor = chart::LegendAnchor::Free;
                c.legend.place = {laidOut.legend.left / laidOut.sheet.width,
                                  laidOut.legend.top / laidOut.sheet.height};
            }
            move_place(c.legend.place, laidOut, dx, dy);
            break;
        case Part::Header:
            move_caption(c.header, laidOut.header, laidOut, dx, dy);
            break;
        case Part::Footer:
            move_caption(c.footer, laidOut.footer, laidOut, dx, dy);
            break;
        case Part::Label: {
            chart::Label& label = c.labels[static_cast<std::size_t>(hit.index)];
            label.dx += dx;
            label.dy += dy;
            break;
        }
        default:
            break;
    }
}

}  // namespace Module9
