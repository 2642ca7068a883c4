#include "gui/chart/chart2d_parts.h"

#include <QPainterPath>
#include <cmath>

#include "gui/chart/chart_qt.h"

namespace quor::chart {

namespace {

QRectF toQt(const SheetRect& r) {
    return {r.left, r.top, r.width, r.height};
}

/// Translucent form of a grid line's style, for the lines between the powers of ten.
LineStyle fine(LineStyle style) {
    style.colour.a = static_cast<std::uint8_t>(style.colour.a / 2);
    style.width *= 0.7F;
    return style;
}

void paintFrame(QPainter& painter, const QRectF& rect, const Frame& frame) {
    if (!frame.shown) return;
    painter.setPen(ToQt(frame));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
}

void paintTitle(QPainter& painter, const Axis& axis, const SheetText& place) {
    if (place.shown)
        paintText(painter, {place.x, place.y}, axis.title, axis.titleFont, axis.titleColour,
                  place.rotation);
}

void paintCaption(QPainter& painter, const Caption& caption, const SheetText& place) {
    if (place.shown)
        paintText(painter, {place.x, place.y}, caption.text, caption.font, caption.colour);
}

void paintLabel(QPainter& painter, const Label& label, const SheetLabel& place) {
    if (label.connector) {
        painter.setPen(QPen(ToQt(label.textColour), 0.8));
        painter.drawLine(QPointF(place.placeX, place.placeY), QPointF(place.text.x, place.text.y));
    }
    painter.setPen(ToQt(label.frame));
    painter.setBrush(label.background.a > 0 ? QBrush(ToQt(label.background)) : QBrush(Qt::NoBrush));
    if (label.frame.shown || label.background.a > 0) painter.drawRect(toQt(place.text.rect));
    paintText(painter, {place.text.x, place.text.y}, label.text, label.font, label.textColour,
              place.text.rotation);
}

void paintLegend(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet) {
    if (sheet.legendLines.empty()) return;
    const Legend& legend = chart.legend;
    painter.setPen(ToQt(legend.frame));
    painter.setBrush(ToQt(legend.background));
    painter.drawRect(toQt(sheet.legend));
    const MeasureText measure = qtTextMeasure();
    for (const LegendLine& line : sheet.legendLines) {
        const Series& series =
            series_of(chart, line.series.group)[static_cast<std::size_t>(line.series.index)];
        const double right = line.sampleLeft + Sheet2D::kSampleWidth;
        painter.setPen(ToQt(series.line));
        painter.setBrush(Qt::NoBrush);
        painter.drawLine(QPointF(line.sampleLeft, line.y), QPointF(right, line.y));
        paintSymbol(painter, {(line.sampleLeft + right) / 2, line.y},
                    shown_symbol(series, line.series.group), series.symbolSize,
                    series.symbolColour);
        const double width = measure(series.legend, legend.font).width;
        paintText(painter, {line.textLeft + width / 2, line.y}, series.legend, legend.font,
                  legend.textColour);
    }
}

}  // namespace

void paintSheetBackground(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet) {
    painter.fillRect(toQt(sheet.sheet), ToQt(chart.plotArea.sheet));
    painter.fillRect(toQt(sheet.plot), ToQt(chart.plotArea.background));
    const double inset = chart.plotArea.sheetBorder.width / 2.0;
    paintFrame(painter, toQt(sheet.sheet).adjusted(inset, inset, -inset - 1, -inset - 1),
               chart.plotArea.sheetBorder);
}

void paintGrid(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet) {
    const SheetScale pixels(chart, sheet.plot);
    const SheetRect& p = sheet.plot;
    const auto upright = [&](const std::vector<double>& values, const LineStyle& style) {
        painter.setPen(ToQt(style));
        for (const double value : values) {
            const double x = pixels.x(value);
            painter.drawLine(QPointF(x, p.top), QPointF(x, p.bottom()));
        }
    };
    const auto level = [&](const std::vector<double>& values, const LineStyle& style) {
        painter.setPen(ToQt(style));
        for (const double value : values) {
            const double y = pixels.y(value);
            painter.drawLine(QPointF(p.left, y), QPointF(p.right(), y));
        }
    };
    upright(sheet.x.fineGrid, fine(chart.x.grid));
    level(sheet.y.fineGrid, fine(chart.y.grid));
    upright(sheet.x.grid, chart.x.grid);
    level(sheet.y.grid, chart.y.grid);
}

void PaintLines(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet) {
    painter.setBrush(Qt::NoBrush);
    std::vector<QPointF> points;
    for (const Group group : {Group::Curves, Group::Points}) {
        for (const Series& series : series_of(chart, group)) {
            if (!series.visible || series.line.pattern == LinePattern::None) continue;
            painter.setPen(ToQt(series.line));
            for (const auto& line : visible_lines(chart, series, sheet.plot)) {
                points.clear();
                for (const SheetPoint& p : line) points.emplace_back(p.x, p.y);
                painter.drawPolyline(points.data(), static_cast<int>(points.size()));
            }
        }
    }
}

void paintSymbols(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet) {
    const SheetScale pixels(chart, sheet.plot);
    const SheetRect& p = sheet.plot;
    constexpr double kSlack = 0.5;  // a point on the frame is drawn whole
    const SheetRect area{p.left - kSlack, p.top - kSlack, p.width + 2 * kSlack,
                         p.height + 2 * kSlack};
    for (const Group group : {Group::Curves, Group::Points}) {
        for (const Series& series : series_of(chart, group)) {
            const SymbolShape shape = shown_symbol(series, group);
            if (!series.visible || shape == SymbolShape::Hidden) continue;
            for (std::size_t i = 0; i < std::min(series.x.size(), series.y.size()); ++i) {
                if (!is_shown(series.x[i]) || !is_shown(series.y[i])) continue;
                const QPointF at(pixels.x(series.x[i]), pixels.y(series.y[i]));
                if (area.contains(at.x(), at.y()))
                    paintSymbol(painter, at, shape, series.symbolSize, series.symbolColour);
            }
        }
    }
}

void paint_axes(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet) {
    const SheetScale pixels(chart, sheet.plot);
    const MeasureText measure = qtTextMeasure();
    const SheetRect& p = sheet.plot;
    paintFrame(painter, toQt(p), chart.plotArea.border);
    const auto linePen = [](const Axis& axis) { return QPen(ToQt(axis.colour), 1); };
    constexpr double kReach = Sheet2D::kTickLength + Sheet2D::kNumberGap;
    if (chart.x.shown) {
        const double line = sheet.x.line;
        painter.setPen(linePen(chart.x));
        painter.drawLine(QPointF(p.left, line), QPointF(p.right(), line));
        for (const double value : sheet.x.ticks.minor)
            painter.drawLine(QPointF(pixels.x(value), line),
                             QPointF(pixels.x(value), line + Sheet2D::kMinorTickLength));
        for (const Tick& tick : sheet.x.ticks.major) {
            const double x = pixels.x(tick.value);
            painter.setPen(linePen(chart.x));
            painter.drawLine(QPointF(x, line), QPointF(x, line + Sheet2D::kTickLength));
            const TextSize size = measure(tick.text, chart.x.numberFont);
            paintText(painter, {x, line + kReach + size.height / 2}, tick.text, chart.x.numberFont,
                      chart.x.colour);
        }
    }
    const auto upright = [&](const Axis& axis, const SheetAxis& on, double outward, auto pixel) {
        if (!axis.shown) return;
        painter.setPen(linePen(axis));
        painter.drawLine(QPointF(on.line, p.top), QPointF(on.line, p.bottom()));
        for (const double value : on.ticks.minor)
            painter.drawLine(QPointF(on.line, pixel(value)),
                             QPointF(on.line + outward * Sheet2D::kMinorTickLength, pixel(value)));
        for (const Tick& tick : on.ticks.major) {
            const double y = pixel(tick.value);
            painter.setPen(linePen(axis));
            painter.drawLine(QPointF(on.line, y),
                             QPointF(on.line + outward * Sheet2D::kTickLength, y));
            const TextSize size = measure(tick.text, axis.numberFont);
            paintText(painter, {on.line + outward * (kReach + size.width / 2), y}, tick.text,
                      axis.numberFont, axis.colour);
        }
    };
    upright(chart.y, sheet.y, -1, [&](double value) { return pixels.y(value); });
    const Range y2 = second_range(chart);
    upright(chart.y2, sheet.y2, 1, [&](double value) {
        return p.bottom() - UnitOf(value, y2, chart.y2.logarithmic) * p.height;
    });
}

void paintTexts(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet) {
    paintTitle(painter, chart.x, sheet.x.title);
    paintTitle(painter, chart.y, sheet.y.title);
    paintTitle(painter, chart.y2, sheet.y2.title);
    paintCaption(painter, chart.header, sheet.header);
    paintCaption(painter, chart.footer, sheet.footer);
    for (const SheetLabel& place : sheet.labels)
        paintLabel(painter, chart.labels[static_cast<std::size_t>(place.label)], place);
    paintLegend(painter, chart, sheet);
}

}  // namespace quor::chart
