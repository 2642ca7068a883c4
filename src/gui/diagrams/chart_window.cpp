#include "gui/diagrams/chart_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <algorithm>

#include "gui/widgets/form.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr int kPanelWidth = 300;
constexpr int kCascade = 26;  // pixels between windows that open on each other

/// Moves a window aside until its corner lies on that of no other, within the frame.
void cascade(QMdiSubWindow& window) {
    const QMdiArea* area = window.mdiArea();
    if (area == nullptr) return;
    const auto hidesCorner = [&](const QPoint& place) {
        const auto all = area->subWindowList();
        return std::any_of(all.begin(), all.end(), [&](const QMdiSubWindow* other) {
            return other != &window && other->isVisible() && other->pos() == place;
        });
    };
    const QSize room = area->viewport()->size() - window.size();
    QPoint place = window.pos();
    for (int i = 0; i < area->subWindowList().size() && hidesCorner(place); ++i) {
        place += QPoint(kCascade, kCascade);
        if (place.x() > room.width() && place.x() > kCascade) place.setX(kCascade * (i % 5));
        if (place.y() > room.height() && place.y() > kCascade) place.setY(kCascade * (i % 5));
    }
    window.move(place);
}

}  // namespace

ChartWindow::ChartWindow(Desk& desk, const QString& name, const QString& icon)
    : desk_(desk), session_(desk.session()), menus_(this, [this] { becomeCurrent(); }) {
    setObjectName(name);
    setWindowIcon(theme::icon(icon));
    setContextMenuPolicy(Qt::NoContextMenu);
    status_ = form::label();
    status_->setObjectName("lblReadout");
    statusBar()->addWidget(status_, 1);
    menuBar()->setNativeMenuBar(false);
    desk_.enter(this);
}

ChartWindow::~ChartWindow() {
    desk_.leave(this);
}

void ChartWindow::open(bool others) {
    desk_.openChild(this);
    auto* window = qobject_cast<QMdiSubWindow*>(parentWidget());
    // Over a maximised window the frame opens the next one maximised.
    if (window != nullptr && others && !window->isMaximized()) cascade(*window);
}

void ChartWindow::closeView() {
    QWidget* window = this;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) window = sub;
    window->close();
}

void ChartWindow::becomeCurrent() {
    if (desk_.use(this)) keepChoice();
}

void ChartWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (auto* window = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(window, &QMdiSubWindow::aboutToActivate, this, &ChartWindow::becomeCurrent,
                Qt::UniqueConnection);
}

void ChartWindow::closeEvent(QCloseEvent* event) {
    // What is deleted later is no window of the session any more.
    desk_.leave(this);
    event->accept();
}

void ChartWindow::addDesignPanel(QWidget* panel) {
    dock_ = new QDockWidget("Design", this);
    dock_->setObjectName("dockDesign");
    dock_->setWidget(panel);
    dock_->setMinimumWidth(kPanelWidth);
    addDockWidget(Qt::RightDockWidgetArea, dock_);
    dock_->hide();
}

void ChartWindow::setCaption(const QString& given, const QString& file) {
    setWindowTitle(form::titleOf(file.isEmpty() ? given : "Filename: " + file));
}

}  // namespace quor::gui
