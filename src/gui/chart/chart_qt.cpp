#include "gui/chart/chart_qt.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "common/text.h"

namespace quor::chart {

namespace {

constexpr double kExponentSize = 0.75;  // of the size of the number
constexpr double kExponentRise = 0.38;  // of the ascent

QFont exponentFont(QFont font) {
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * kExponentSize))));
    return font;
}

/// What stands before the exponent: "2.5·10", or "10" alone.
QString baseText(const PowerText& power) {
    const QString dot = QString(QChar(0x00B7));
    return power.mantissa.empty() ? QStringLiteral("10") : toQt(power.mantissa) + dot + "10";
}

/// A text as it is printed; files and fields keep its units in plain characters.
QString printed(const std::string& text) {
    return toQt(text::with_unit_signs(text));
}

QSizeF textSize(const std::string& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    const auto power = as_power(text);
    if (!power) return metrics.size(0, printed(text));
    const double exponent =
        QFontMetricsF(exponentFont(font)).horizontalAdvance(toQt(power->exponent));
    const double width = metrics.horizontalAdvance(baseText(*power)) + exponent;
    return {width, metrics.height() + kExponentRise * metrics.ascent() / 2};
}

void paintPower(QPainter& painter, const PowerText& power, double width) {
    const QFont font = painter.font();
    const QFontMetricsF metrics(font);
    const QString base = baseText(power);
    const double baseline = (metrics.ascent() - metrics.descent()) / 2;
    painter.drawText(QPointF(-width / 2, baseline), base);
    painter.setFont(exponentFont(font));
    painter.drawText(QPointF(-width / 2 + metrics.horizontalAdvance(base),
                             baseline - kExponentRise * metrics.ascent()),
                     toQt(power.exponent));
}

/// Outline of a symbol in the square from -1 to 1; open lines for those without an area.
QPainterPath symbolPath(SymbolShape shape) {
    const auto polygon = [](std::initializer_list<QPointF> corners) {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(corners)));
        path.closeSubpath();
        return path;
    };
    const auto lines = [](std::initializer_list<QLineF> all) {
        QPainterPath path;
        for (const QLineF& line : all) {
            path.moveTo(line.p1());
            path.lineTo(line.p2());
        }
        return path;
    };
    constexpr double kSin60 = 0.866, kDiagonal = 0.707;
    QPainterPath circle;
    switch (shape) {
        case SymbolShape::Dot:
            circle.addEllipse(QPointF(0, 0), 0.6, 0.6);
            return circle;
        case SymbolShape::Circle:
            circle.addEllipse(QPointF(0, 0), 0.9, 0.9);
            return circle;
        case SymbolShape::Box:
        case SymbolShape::Square:
            return polygon({{-.8, -.8}, {.8, -.8}, {.8, .8}, {-.8, .8}});
        case SymbolShape::Triangle1:
        case SymbolShape::Triangle2:
            return polygon({{0, -1}, {kSin60, .7}, {-kSin60, .7}});
        case SymbolShape::Triangle3:
        case SymbolShape::Triangle4:
            return polygon({{0, 1}, {kSin60, -.7}, {-kSin60, -.7}});
        case SymbolShape::Diamond:
        case SymbolShape::OpenDiamond:
            return polygon({{0, -1.1}, {.85, 0}, {0, 1.1}, {-.85, 0}});
        case SymbolShape::Star:
            return lines({{0, -1, 0, 1}, {-kSin60, -.5, kSin60, .5}, {-kSin60, .5, kSin60, -.5}});
        case SymbolShape::VerticalLine:
            return lines({{0, -1, 0, 1}});
        case SymbolShape::HorizontalLine:
            return lines({{-1, 0, 1, 0}});
        case SymbolShape::Cross:
            return lines({{-kDiagonal, -kDiagonal, kDiagonal, kDiagonal},
                          {-kDiagonal, kDiagonal, kDiagonal, -kDiagonal}});
        case SymbolShape::Hidden:
            break;
    }
    return {};
}

bool isFilled(SymbolShape shape) {
    return shape == SymbolShape::Dot || shape == SymbolShape::Box ||
           shape == SymbolShape::Triangle1 || shape == SymbolShape::Triangle3 ||
           shape == SymbolShape::Diamond;
}

}  // namespace

QColor toQt(const Colour& c) {
    return {c.r, c.g, c.b, c.a};
}

QFont toQt(const Font& font) {
    QFont face;
    if (font.family.empty())
        face.setStyleHint(QFont::SansSerif);
    else
        face.setFamily(toQt(font.family));
    const double pixels = std::clamp(static_cast<double>(font.size), 1.0, 200.0) * 96 / 72;
    face.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    face.setBold(font.bold);
    face.setItalic(font.italic);
    // Hinted widths would change a layout between screen, file and paper.
    face.setHintingPreference(QFont::PreferNoHinting);
    return face;
}

QPen toQt(const LineStyle& line) {
    if (line.pattern == LinePattern::None || !(line.width > 0)) return QPen(Qt::NoPen);
    QPen pen(toQt(line.colour), line.width);
    pen.setJoinStyle(Qt::RoundJoin);
    pen.setCapStyle(Qt::FlatCap);
    // Lengths of dashes and gaps in widths of the line; thin lines get longer ones.
    const double unit = std::max(1.0, 1.4 / static_cast<double>(line.width));
    if (line.pattern == LinePattern::Dotted) {
        pen.setCapStyle(Qt::RoundCap);
        pen.setDashPattern({0.1, 2.4 * unit});
    }
    if (line.pattern == LinePattern::Dashed) pen.setDashPattern({6 * unit, 3.5 * unit});
    if (line.pattern == LinePattern::DashDotted)
        pen.setDashPattern({6 * unit, 2.5 * unit, 1.2 * unit, 2.5 * unit});
    return pen;
}

QPen toQt(const Frame& frame) {
    if (!frame.shown || !(frame.width > 0)) return QPen(Qt::NoPen);
    QPen pen(toQt(frame.colour), frame.width);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

MeasureText qtTextMeasure() {
    return [](const std::string& text, const Font& font) {
        const QSizeF size = textSize(text, toQt(font));
        return TextSize{size.width(), size.height()};
    };
}

void paintText(QPainter& painter, const QPointF& centre, const std::string& text, const Font& font,
               const Colour& colour, double rotation) {
    if (text.empty()) return;
    painter.save();
    painter.setFont(toQt(font));
    painter.setPen(toQt(colour));
    painter.translate(centre);
    if (rotation != 0) painter.rotate(-rotation);
    const QSizeF size = textSize(text, painter.font());
    if (const auto power = as_power(text)) {
        paintPower(painter, *power, size.width());
    } else {
        // The box is wider than the text, so that another device's metrics never clip it.
        const QRectF box(-size.width(), -size.height(), 2 * size.width(), 2 * size.height());
        painter.drawText(box, Qt::AlignCenter | Qt::TextDontClip, printed(text));
    }
    painter.restore();
}

void paintSymbols(QPainter& painter, std::span<const QPointF> places, SymbolShape shape,
                  double size, const Colour& colour) {
    if (shape == SymbolShape::Hidden || !(size > 0)) return;
    const QPainterPath path = QTransform::fromScale(size / 2, size / 2).map(symbolPath(shape));
    QPen pen(toQt(colour), std::clamp(size / 6, 1.0, 3.0));
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(isFilled(shape) ? QBrush(toQt(colour)) : QBrush(Qt::NoBrush));
    for (const QPointF& place : places) painter.drawPath(path.translated(place));
}

}  // namespace quor::chart
