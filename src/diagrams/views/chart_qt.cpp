#include "diagrams/views/chart_qt.h"

#include <QFontDatabase>
#include <algorithm>

namespace chart {

QColor ToQt(const Colour& c) {
    return {c.r, c.g, c.b, c.a};
}

QFont ToQt(const Font& font) {
    QFont face;
    if (font.family.empty())
        face.setStyleHint(QFont::SansSerif);
    else
        face.setFamily(ToQt(font.family));
    const double pixels = std::clamp(static_cast<double>(font.size), 1.0, 200.0) * 96 / 72;
    face.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    face.setBold(font.bold);
    face.setItalic(font.italic);
    // Hinted widths would change a layout between screen, file and paper.
    face.setHintingPreference(QFont::PreferNoHinting);
    return face;
}

QPen ToQt(const LineStyle& line) {
    if (line.pattern == LinePattern::None || !(line.width > 0)) return QPen(Qt::NoPen);
    QPen pen(ToQt(line.colour), line.width);
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

QPen ToQt(const Frame& frame) {
    if (!frame.shown || !(frame.width > 0)) return QPen(Qt::NoPen);
    QPen pen(ToQt(frame.colour), frame.width);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

}  // namespace chart
