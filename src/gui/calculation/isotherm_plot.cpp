#include "gui/calculation/isotherm_plot.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "common/numbers.h"
#include "gui/widgets/theme.h"
#include "models/unit_text.h"

namespace quor::gui {

namespace {

constexpr double kLogarithmicFrom = 12.0;  // ratio of the last to the first root
constexpr double kCurveWidth = 2.0, kLineWidth = 1.2, kRootRadius = 4.5;
constexpr int kPressureTicks = 5, kVolumeTicks = 6, kTickLength = 4;
constexpr double kBeyondLastRoot = 1.6;
constexpr float kBehindName = 0.7F;  // how far the name of a root hides what is behind it

// A round number near range/count: 1, 2 or 5 times a power of ten.
double roundStep(double range, int count) {
    const double raw = range / count;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= raw) return factor * power;
    return 10.0 * power;
}

std::vector<double> linearTicks(double low, double high, int count) {
    std::vector<double> ticks;
    if (!(high > low)) return ticks;
    const double step = roundStep(high - low, count);
    for (double i = std::ceil(low / step); i * step <= high; ++i) ticks.push_back(i * step);
    return ticks;
}

std::vector<double> logarithmicTicks(double low, double high) {
    std::vector<double> ticks;
    if (!(low > 0) || !(high > low)) return ticks;
    for (double power = std::pow(10.0, std::floor(std::log10(low))); power <= high; power *= 10.0)
        for (const double factor : {1.0, 2.0, 5.0})
            if (factor * power >= low && factor * power <= high) ticks.push_back(factor * power);
    return ticks;
}

QString tickText(double value) {
    return QString::fromStdString(numbers::general(static_cast<float>(value)));
}

// "v/(m^3/kmol)"; in the default unit as it has always been written.
QString axisTitle(const char* symbol, const models::Scale& scale, const char* usual) {
    const std::string name =
        scale.name == usual ? std::string(scale.name) : models::pretty_unit(scale.name);
    const bool compound = name.find('/') != std::string::npos;
    return QString(compound ? "%1/(%2)" : "%1/%2").arg(symbol, QString::fromStdString(name));
}

struct Colours {
    QColor curve = theme::isDark() ? QColor(0x56, 0xb4, 0xe9) : QColor(0x00, 0x72, 0xb2);
    QColor below{0xe6, 0x9f, 0x00, 0x70};
    QColor above{0x56, 0xb4, 0xe9, 0x70};
};

}  // namespace

IsothermPlot::IsothermPlot(QWidget* parent) : QWidget(parent) {
    setObjectName("pctEOS");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName("p-v isotherm of the cubic equation of state");
}

void IsothermPlot::showDiagnosis(const report::Diagnosis& diagnosis) {
    diagnosis_ = diagnosis;
    update();
}

QSize IsothermPlot::sizeHint() const {
    return {470, 300};
}
QSize IsothermPlot::minimumSizeHint() const {
    return {300, 200};
}

// The limits of the volume axis: the isotherm, but not its long tail.
double IsothermPlot::vFirst() const {
    return diagnosis_.isotherm.front().v;
}

double IsothermPlot::vLast() const {
    double last = diagnosis_.roots.back().v;
    if (!diagnosis_.area_above.empty()) last = std::max(last, diagnosis_.area_above.back().v);
    return std::min(diagnosis_.isotherm.back().v, kBeyondLastRoot * last);
}

bool IsothermPlot::isLogarithmic() const {
    return !diagnosis_.isotherm.empty() && vLast() / vFirst() > kLogarithmicFrom;
}

// In the unit of the axis, as all ticks.
std::vector<double> IsothermPlot::pressureTicks() const {
    const models::Scale& axis = diagnosis_.p_axis;
    return linearTicks(axis.shown(diagnosis_.p_min), axis.shown(diagnosis_.p_max), kPressureTicks);
}

QString IsothermPlot::volumeTitle() const {
    return axisTitle("v", diagnosis_.v_axis, "m^3/kmol");
}
QString IsothermPlot::pressureTitle() const {
    return axisTitle("p", diagnosis_.p_axis, "kPa");
}

QRectF IsothermPlot::area() const {
    const QFontMetrics metrics = fontMetrics();
    double left = 0;
    for (const double p : pressureTicks())
        left = std::max(left, static_cast<double>(metrics.horizontalAdvance(tickText(p))));
    left += 2 * theme::kGap + kTickLength + metrics.lineSpacing();
    const double bottom = 2.0 * metrics.lineSpacing() + 2 * theme::kGap + kTickLength;
    return QRectF(rect()).adjusted(left, theme::kMargin, -3 * theme::kMargin, -bottom);
}

QPointF IsothermPlot::place(double v, double p) const {
    const QRectF in = area();
    const bool logarithmic = isLogarithmic();
    const auto x = [&](double volume) { return logarithmic ? std::log(volume) : volume; };
    const double tx = (x(v) - x(vFirst())) / (x(vLast()) - x(vFirst()));
    const double ty = (p - diagnosis_.p_min) / (diagnosis_.p_max - diagnosis_.p_min);
    return {in.left() + tx * in.width(), in.bottom() - ty * in.height()};
}

QPolygonF IsothermPlot::polygon(const std::vector<calculation::IsothermPoint>& points) const {
    // What lies far outside is drawn at a little distance, so that no number gets too large.
    const double room = diagnosis_.p_max - diagnosis_.p_min;
    QPolygonF line;
    for (const calculation::IsothermPoint& q : points)
        line << place(q.v, std::clamp(q.p, diagnosis_.p_min - room, diagnosis_.p_max + room));
    return line;
}

void IsothermPlot::paintAxes(QPainter& painter) const {
    const QRectF in = area();
    const QFontMetrics metrics = painter.fontMetrics();
    QColor grid = palette().color(QPalette::Text);
    grid.setAlpha(40);
    const QColor text = palette().color(QPalette::Text);

    for (const double p : pressureTicks()) {
        const double y = place(vFirst(), diagnosis_.p_axis.value(p)).y();
        painter.setPen(grid);
        painter.drawLine(QPointF(in.left(), y), QPointF(in.right(), y));
        painter.setPen(text);
        painter.drawLine(QPointF(in.left() - kTickLength, y), QPointF(in.left(), y));
        const QRectF box(0, y - metrics.height() / 2.0, in.left() - kTickLength - theme::kGap,
                         metrics.height());
        painter.drawText(box, Qt::AlignRight | Qt::AlignVCenter, tickText(p));
    }
    const models::Scale& vAxis = diagnosis_.v_axis;
    const double first = vAxis.shown(vFirst()), last = vAxis.shown(vLast());
    const std::vector<double> volumes =
        isLogarithmic() ? logarithmicTicks(first, last) : linearTicks(first, last, kVolumeTicks);
    double free = in.left();
    for (const double v : volumes) {
        const double x = place(vAxis.value(v), diagnosis_.p_min).x();
        painter.setPen(grid);
        painter.drawLine(QPointF(x, in.top()), QPointF(x, in.bottom()));
        painter.setPen(text);
        painter.drawLine(QPointF(x, in.bottom()), QPointF(x, in.bottom() + kTickLength));
        const double width = metrics.horizontalAdvance(tickText(v));
        if (x - width / 2 < free) continue;
        painter.drawText(QPointF(x - width / 2,
                                 in.bottom() + kTickLength + theme::kGap / 2.0 + metrics.ascent()),
                         tickText(v));
        free = x + width / 2 + theme::kGap;
    }
    painter.setPen(text);
    painter.drawRect(in);
    painter.drawText(
        QRectF(in.left(), height() - metrics.lineSpacing() - 2.0, in.width(),
               metrics.lineSpacing()),
        Qt::AlignCenter,
        volumeTitle() + (isLogarithmic() ? ", logarithmic: the areas are equal in p and v" : ""));
    painter.save();
    painter.translate(theme::kGap / 2.0, in.center().y());
    painter.rotate(-90.0);
    painter.drawText(QRectF(-in.height() / 2, 0, in.height(), metrics.lineSpacing()),
                     Qt::AlignCenter, pressureTitle());
    painter.restore();
}

void IsothermPlot::paintAreas(QPainter& painter) const {
    const Colours colours;
    painter.setPen(Qt::NoPen);
    for (const auto& [points, colour, style] :
         {std::tuple{&diagnosis_.area_below, colours.below, Qt::SolidPattern},
          std::tuple{&diagnosis_.area_above, colours.above, Qt::SolidPattern}}) {
        if (points->empty()) continue;
        QPolygonF shape = polygon(*points);
        shape << place(points->back().v, diagnosis_.saturation_pressure)
              << place(points->front().v, diagnosis_.saturation_pressure);
        painter.setBrush(QBrush(colour, style));
        painter.drawPolygon(shape);
    }
    painter.setBrush(Qt::NoBrush);
}

void IsothermPlot::paintLines(QPainter& painter) const {
    const QRectF in = area();
    const QColor text = palette().color(QPalette::Text);
    const auto level = [&](double p, Qt::PenStyle style) {
        const double y = place(vFirst(), p).y();
        painter.setPen(QPen(text, kLineWidth, style));
        painter.drawLine(QPointF(in.left(), y), QPointF(in.right(), y));
    };
    level(diagnosis_.p, Qt::DashLine);
    if (diagnosis_.saturation_pressure > 0) level(diagnosis_.saturation_pressure, Qt::DotLine);
    painter.setPen(QPen(Colours().curve, kCurveWidth));
    painter.drawPolyline(polygon(diagnosis_.isotherm));
}

// A stable root is a full mark, the others are empty ones; each bears its number.
void IsothermPlot::paintRoots(QPainter& painter) const {
    const QColor text = palette().color(QPalette::Text);
    const QFontMetrics metrics = painter.fontMetrics();
    QColor behind = palette().color(QPalette::Base);
    behind.setAlphaF(kBehindName);
    painter.setPen(QPen(text, kLineWidth));
    int number = 1;
    for (const report::RootRow& root : diagnosis_.roots) {
        const QPointF at = place(root.v, diagnosis_.p);
        painter.setBrush(root.stable ? text : palette().color(QPalette::Base));
        painter.drawEllipse(at, kRootRadius, kRootRadius);
        const QString name = QString("v(%1)").arg(number++);
        const QRectF box(at + QPointF(kRootRadius + 2, -kRootRadius - 1 - metrics.height()),
                         QSizeF(metrics.horizontalAdvance(name), metrics.height()));
        painter.fillRect(box, behind);
        painter.drawText(box, Qt::AlignCenter, name);
    }
}

void IsothermPlot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint(painter);
}

void IsothermPlot::paint(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (diagnosis_.isotherm.empty() || diagnosis_.roots.empty()) {
        painter.drawText(rect(), Qt::AlignCenter, "No state of a cubic equation of state");
        return;
    }
    paintAxes(painter);
    painter.save();
    painter.setClipRect(area());
    paintAreas(painter);
    paintLines(painter);
    painter.restore();
    paintRoots(painter);
}

}  // namespace quor::gui
