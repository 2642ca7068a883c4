#include "gui/chart/chart2d_widget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "gui/chart/chart2d_plot.h"

namespace quor::chart {

namespace {

constexpr double kNear = 6;  // pixels within which a curve or point is under the pointer
constexpr double kWheelFactor = 1.2;
constexpr double kLeastBand = 5;  // pixels; a smaller rectangle is a slip of the hand
// A window that is narrower than this part of its values cannot be told apart in 32-bit floats.
constexpr double kNarrowest = 1e-6;
constexpr double kWidest = 1e30;

bool canBeShown(const Range& range, bool logarithmic) {
    if (!std::isfinite(range.min) || !std::isfinite(range.max)) return false;
    if (logarithmic)
        return range.min > 1e-30 && range.max < kWidest && range.max / range.min > 1.001;
    const double largest = std::max(std::abs(range.min), std::abs(range.max));
    return largest < kWidest && range.max - range.min > kNarrowest * largest &&
           range.max - range.min > 1e-30;
}

const SheetLabel* labelAt(const Sheet2D& sheet, const QPointF& p) {
    // The label painted last lies uppermost.
    for (auto it = sheet.labels.rbegin(); it != sheet.labels.rend(); ++it)
        if (it->text.rect.contains(p.x(), p.y())) return &*it;
    return nullptr;
}

bool covers(const SheetText& text, const QPointF& p) {
    return text.shown && text.rect.contains(p.x(), p.y());
}

bool belongsTo(const SheetAxis& axis, const QPointF& p) {
    return covers(axis.title, p) || axis.numbers.contains(p.x(), p.y());
}

/// An arrow with a sign at its side: a piece of a curve, or a point.
QCursor signedArrow(bool point) {
    QPixmap picture(32, 32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(Qt::black);
    painter.drawPolygon(
        QPolygonF({{1, 1}, {1, 17}, {5, 13}, {8, 20}, {11, 19}, {8, 12}, {13, 12}}));
    QPainterPath sign;
    if (point) {
        sign.addEllipse(QPointF(22, 22), 4, 4);
    } else {
        sign.moveTo(14, 27);
        sign.cubicTo(19, 10, 23, 33, 29, 16);
        painter.setBrush(Qt::NoBrush);
    }
    painter.setPen(QPen(Qt::white, 4));
    painter.drawPath(sign);
    painter.setPen(QPen(QColor(0xB1, 0x0C, 0x13), 2));
    painter.drawPath(sign);
    return QCursor(picture, 1, 1);
}

/// The line of the legend at a place.
std::optional<SeriesRef> legendLineAt(const Sheet2D& sheet, const QPointF& p) {
    constexpr double kHalfLine = 9;
    for (const LegendLine& line : sheet.legend_lines)
        if (std::abs(p.y() - line.y) < kHalfLine && p.x() >= line.sample_left) return line.series;
    return std::nullopt;
}

}  // namespace

Chart2DWidget::Chart2DWidget(Chart2D& chart, QWidget* parent)
    : QWidget(parent),
      chart_(chart),
      plot_(new Chart2DPlot(this)),
      overCurve_(signedArrow(false)),
      overPoint_(signedArrow(true)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(plot_);
    band_ = new QRubberBand(QRubberBand::Rectangle, plot_);
    plot_->setMouseTracking(true);
    plot_->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
    plot_->setFocusProxy(this);
    plot_->show2D(&chart_);
}

void Chart2DWidget::refresh() {
    refreshWanted_ = true;
    if (batches_ > 0) return;
    refreshWanted_ = false;
    plot_->show2D(&chart_);
}

void Chart2DWidget::beginBatch() {
    ++batches_;
}

void Chart2DWidget::endBatch() {
    if (batches_ > 0) --batches_;
    if (batches_ == 0 && refreshWanted_) refresh();
}

const Sheet2D& Chart2DWidget::sheet() const {
    return plot_->sheet();
}

QPointF Chart2DWidget::pixelOf(double x, double y) const {
    const SheetScale scale(chart_, sheet().plot);
    return {scale.x(x), scale.y(y)};
}

ChartHit Chart2DWidget::hitAt(const QPointF& place) const {
    const Sheet2D& s = sheet();
    const SheetScale scale(chart_, s.plot);
    ChartHit hit;
    hit.x = scale.value_of_x(place.x());
    hit.y = scale.value_of_y(place.y());
    hit.inPlot = s.plot.contains(place.x(), place.y());
    const auto found = [&](ChartPart part) {
        hit.part = part;
        return hit;
    };
    if (const SheetLabel* label = labelAt(s, place)) {
        hit.label = label->label;
        return found(ChartPart::Label);
    }
    if (!s.legend_lines.empty() && s.legend.contains(place.x(), place.y())) {
        if (const auto line = legendLineAt(s, place)) {
            hit.group = line->group;
            hit.series = line->index;
        }
        return found(ChartPart::Legend);
    }
    if (covers(s.header, place)) return found(ChartPart::Header);
    if (covers(s.footer, place)) return found(ChartPart::Footer);
    if (hit.inPlot) {
        const PlotPixel pixel{place.x() - s.plot.left, s.plot.bottom() - place.y(), s.plot.width,
                              s.plot.height};
        // A point goes before the line it lies on.
        auto near = nearest_point(chart_, pixel, kNear);
        if (!near) near = nearest_series(chart_, pixel, kNear);
        if (near) {
            hit.group = near->group;
            hit.series = near->series;
            hit.point = near->point;
            return found(near->group == Group::Curves ? ChartPart::Curve : ChartPart::PointSet);
        }
    }
    if (belongsTo(s.x, place)) return found(ChartPart::AxisX);
    if (belongsTo(s.y, place)) return found(ChartPart::AxisY);
    if (belongsTo(s.y2, place)) return found(ChartPart::AxisY2);
    return found(hit.inPlot ? ChartPart::PlotArea : ChartPart::Sheet);
}

void Chart2DWidget::rememberWindow() {
    if (!unzoomed_) unzoomed_ = shown_window(chart_);
}

bool Chart2DWidget::setWindow(const Window& window) {
    if (!canBeShown(window.x, chart_.x.logarithmic) || !canBeShown(window.y, chart_.y.logarithmic))
        return false;
    rememberWindow();
    const auto set = [](Axis& axis, const Range& range) {
        axis.min = range.min;
        axis.max = range.max;
        axis.automatic = false;
    };
    set(chart_.x, window.x);
    set(chart_.y, window.y);
    refresh();
    emit windowChanged();
    return true;
}

void Chart2DWidget::resetZoom() {
    if (!unzoomed_) return;
    const Window before = *unzoomed_;
    setWindow(before);
    unzoomed_.reset();
}

void Chart2DWidget::fit() {
    if (const auto window = fitting_window(chart_)) setWindow(*window);
}

void Chart2DWidget::zoom(double factor) {
    const SheetRect& p = sheet().plot;
    zoomAbout({p.left + p.width / 2, p.top + p.height / 2}, factor);
}

void Chart2DWidget::zoomAbout(const QPointF& place, double factor) {
    if (!zoomEnabled_ || !(factor > 0)) return;
    const SheetRect& p = sheet().plot;
    const QRectF part(place.x() - (place.x() - p.left) / factor,
                      place.y() - (place.y() - p.top) / factor, p.width / factor,
                      p.height / factor);
    zoomIntoRectangle(part);
}

void Chart2DWidget::zoomIntoRectangle(const QRectF& rect) {
    const SheetScale scale(chart_, sheet().plot);
    setWindow({{scale.value_of_x(rect.left()), scale.value_of_x(rect.right())},
               {scale.value_of_y(rect.bottom()), scale.value_of_y(rect.top())}});
}

void Chart2DWidget::pan(const QPointF& place) {
    // The window at the press, moved by the way of the pointer since then.
    const SheetScale scale(pressedWindow_, chart_.x.logarithmic, chart_.y.logarithmic,
                           sheet().plot);
    const SheetRect& p = sheet().plot;
    const QPointF way = place - pressed_;
    setWindow({{scale.value_of_x(p.left - way.x()), scale.value_of_x(p.right() - way.x())},
               {scale.value_of_y(p.bottom() - way.y()), scale.value_of_y(p.top - way.y())}});
}

void Chart2DWidget::dragPart(const QPointF& place) {
    const Sheet2D& s = sheet();
    const QPointF way = place - pressed_;
    const SheetPlace to{(partStart_.x + way.x()) / s.sheet.width,
                        (partStart_.y + way.y()) / s.sheet.height};
    const auto moveCaption = [&](Caption& caption) {
        caption.automatic = false;
        caption.place = {std::clamp(to.x, 0.0, 1.0), std::clamp(to.y, 0.0, 1.0)};
    };
    switch (pressedHit_.part) {
        case ChartPart::Legend:
            chart_.legend.anchor = LegendAnchor::Free;
            chart_.legend.place = {
                std::clamp(to.x, 0.0, std::max(0.0, 1 - s.legend.width / s.sheet.width)),
                std::clamp(to.y, 0.0, std::max(0.0, 1 - s.legend.height / s.sheet.height))};
            break;
        case ChartPart::Label: {
            Label& label = chart_.labels[static_cast<std::size_t>(pressedHit_.label)];
            label.dx = partStart_.x + way.x();
            label.dy = partStart_.y + way.y();
            break;
        }
        case ChartPart::Header:
            moveCaption(chart_.header);
            break;
        case ChartPart::Footer:
            moveCaption(chart_.footer);
            break;
        default:
            return;
    }
    refresh();
}

void Chart2DWidget::beginDrag(const QPointF& place, Qt::MouseButton button) {
    pressed_ = place;
    moved_ = false;
    button_ = button;
    pressedHit_ = hitAt(place);
    pressedWindow_ = shown_window(chart_);
    drag_ = Drag::None;
    if (button == Qt::MiddleButton && pressedHit_.inPlot && zoomEnabled_) drag_ = Drag::Pan;
    if (button != Qt::LeftButton) return;
    const Sheet2D& s = sheet();
    switch (pressedHit_.part) {
        case ChartPart::Legend:
            drag_ = Drag::Part;
            partStart_ = {s.legend.left, s.legend.top};
            break;
        case ChartPart::Label: {
            const Label& label = chart_.labels[static_cast<std::size_t>(pressedHit_.label)];
            drag_ = Drag::Part;
            partStart_ = {label.dx, label.dy};
            break;
        }
        case ChartPart::Header:
            drag_ = Drag::Part;
            partStart_ = {s.header.x, s.header.y};
            break;
        case ChartPart::Footer:
            drag_ = Drag::Part;
            partStart_ = {s.footer.x, s.footer.y};
            break;
        default:
            if (pressedHit_.inPlot && zoomEnabled_) drag_ = Drag::Rectangle;
    }
}

QRectF Chart2DWidget::bandTo(QPointF place) const {
    const SheetRect& p = sheet().plot;
    return QRectF(pressed_, place)
        .normalized()
        .intersected(QRectF(p.left, p.top, p.width, p.height));
}

void Chart2DWidget::press(const QMouseEvent& event) {
    beginDrag(event.position(), event.button());
    emit mousePressed(pressedHit_, event.button());
}

void Chart2DWidget::move(const QMouseEvent& event) {
    const QPointF place = event.position();
    if (button_ != Qt::NoButton &&
        (place - pressed_).manhattanLength() >= QApplication::startDragDistance())
        moved_ = true;
    if (moved_ && drag_ == Drag::Rectangle) {
        band_->setGeometry(bandTo(place).toAlignedRect());
        band_->show();
    }
    if (moved_ && drag_ == Drag::Pan) pan(place);
    if (moved_ && drag_ == Drag::Part) dragPart(place);
    const ChartHit hit = hitAt(place);
    if (drag_ == Drag::None || !moved_) showPointer(hit);
    emit mouseMoved(hit);
}

void Chart2DWidget::release(const QMouseEvent& event) {
    if (event.button() != button_) return;
    const Drag drag = drag_;
    drag_ = Drag::None;
    button_ = Qt::NoButton;
    const bool clicked = !moved_;
    if (drag == Drag::Rectangle && moved_ && band_->isVisible()) {
        const QRectF rect = bandTo(event.position());
        band_->hide();
        if (rect.width() >= kLeastBand && rect.height() >= kLeastBand) zoomIntoRectangle(rect);
    }
    if (drag == Drag::Part && moved_) emit partMoved(pressedHit_);
    const ChartHit hit = hitAt(event.position());
    emit mouseReleased(hit, event.button(), clicked);
    if (event.button() == Qt::RightButton && clicked)
        emit rightClicked(hit, event.globalPosition().toPoint());
}

void Chart2DWidget::wheel(const QWheelEvent& event) {
    if (!hitAt(event.position()).inPlot) return;
    const double steps = event.angleDelta().y() / 120.0;
    if (steps != 0) zoomAbout(event.position(), std::pow(kWheelFactor, steps));
}

void Chart2DWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && drag_ == Drag::Rectangle) {
        band_->hide();
        drag_ = Drag::None;
        return;
    }
    switch (zoomEnabled_ ? event->key() : 0) {
        case Qt::Key_Plus:
            zoom(kWheelFactor);
            return;
        case Qt::Key_Minus:
            zoom(1 / kWheelFactor);
            return;
        case Qt::Key_Home:
            fit();
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

void Chart2DWidget::showPointer(const ChartHit& hit) {
    switch (hit.part) {
        case ChartPart::Curve:
            plot_->setCursor(overCurve_);
            return;
        case ChartPart::PointSet:
            plot_->setCursor(overPoint_);
            return;
        case ChartPart::Legend:
        case ChartPart::Label:
        case ChartPart::Header:
        case ChartPart::Footer:
            plot_->setCursor(Qt::SizeAllCursor);
            return;
        case ChartPart::PlotArea:
            plot_->setCursor(Qt::CrossCursor);
            return;
        default:
            plot_->setCursor(Qt::ArrowCursor);
    }
}

bool Chart2DWidget::eventFilter(QObject* object, QEvent* event) {
    if (object == plot_) {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
                press(*static_cast<QMouseEvent*>(event));
                return true;
            case QEvent::MouseMove:
                move(*static_cast<QMouseEvent*>(event));
                return true;
            case QEvent::MouseButtonRelease:
                release(*static_cast<QMouseEvent*>(event));
                return true;
            case QEvent::MouseButtonDblClick: {
                const auto& mouse = *static_cast<QMouseEvent*>(event);
                const bool fits = mouse.button() == Qt::LeftButton && zoomEnabled_ &&
                                  hitAt(mouse.position()).inPlot;
                if (fits) fit();
                return true;
            }
            case QEvent::Wheel:
                wheel(*static_cast<QWheelEvent*>(event));
                return true;
            default:
                break;
        }
    }
    return QWidget::eventFilter(object, event);
}

}  // namespace quor::chart
