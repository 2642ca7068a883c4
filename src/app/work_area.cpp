#include "app/work_area.h"

#include <QMdiSubWindow>
#include <QPaintEvent>
#include <QPainter>

#include "gui/widgets/settings.h"
#include "gui/widgets/theme.h"

namespace quor::app {

namespace {

constexpr double kNameScale = 3.2;  // height of the program's name to that of the text
constexpr int kShade = 110;         // per cent
constexpr int kMinimumShown = 40;   // pixels of a window that must stay inside the area

QString placeKey(const QString& view) {
    return "Place/" + view;
}

void remember(const QMdiSubWindow* window) {
    if (window->isMaximized() || window->isMinimized() || window->widget() == nullptr) return;
    gui::settings::store().setValue(placeKey(window->widget()->objectName()), window->geometry());
}

}  // namespace

WorkArea::WorkArea(QWidget* parent) : QMdiArea(parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    takePalette();
    setActivationOrder(QMdiArea::ActivationHistoryOrder);
}

// A shade deeper than the windows that open on it, in light and dark themes.
void WorkArea::takePalette() {
    setBackground(palette().color(QPalette::Window).darker(kShade));
}

void WorkArea::changeEvent(QEvent* event) {
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) takePalette();
}

void WorkArea::openView(QWidget* view) {
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window == nullptr) {
        window = addSubWindow(view);
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setWindowIcon(view->windowIcon());
        window->installEventFilter(this);
        const QRect kept = gui::settings::store().value(placeKey(view->objectName())).toRect();
        const QRect inside = viewport()->rect().adjusted(0, 0, -kMinimumShown, -kMinimumShown);
        if (kept.isValid() && inside.contains(kept.topLeft())) window->setGeometry(kept);
    }
    window->show();
    view->show();
    setActiveSubWindow(window);
}

bool WorkArea::closeAllViews() {
    const QList<QMdiSubWindow*> windows = subWindowList();
    for (QMdiSubWindow* window : windows)
        if (!window->close()) return false;
    return true;
}

bool WorkArea::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close)
        if (const auto* window = qobject_cast<QMdiSubWindow*>(watched)) remember(window);
    return QMdiArea::eventFilter(watched, event);
}

void WorkArea::paintEvent(QPaintEvent* event) {
    QMdiArea::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect rect =
        viewport()->rect().adjusted(gui::theme::kMargin, gui::theme::kMargin,
                                    -2 * gui::theme::kMargin, -2 * gui::theme::kMargin);
    QFont name = font();
    name.setPointSizeF(font().pointSizeF() * kNameScale);
    const int textHeight = QFontMetrics(font()).lineSpacing();
    painter.drawText(rect, Qt::AlignRight | Qt::AlignBottom,
                     "Thermodynamic Calculations of States and Processes for Pure Substances");
    painter.setFont(name);
    painter.drawText(rect.adjusted(0, 0, 0, -textHeight), Qt::AlignRight | Qt::AlignBottom,
                     "QUOR-6");
}

}  // namespace quor::app
