#include "gui/surfaces/surface_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

#include "diagrams/prepare_3d.h"
#include "gui/diagrams/views_in_use.h"
#include "gui/surfaces/surface_dialogs.h"
#include "gui/surfaces/surface_panel.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/shell.h"
#include "gui/widgets/theme.h"
#include "session/actions.h"
#include "session/module2.h"

namespace quor::gui {

namespace {

constexpr QSize kFirstSize(860, 660);
constexpr int kPanelWidth = 300;
constexpr int kCascade = 26;  // pixels between surfaces that open on each other
constexpr auto kHint = "Drag: turn     Wheel: zoom     Double click: default view";

ViewsInUse<SurfaceWindow>& openSurfaces() {
    static ViewsInUse<SurfaceWindow> all;
    return all;
}

}  // namespace

SurfaceWindow* SurfaceWindow::current() {
    return openSurfaces().current();
}

void SurfaceWindow::Open() {
    const std::size_t others = openSurfaces().size();
    auto* view = new SurfaceWindow;
    shell::openChild(view);
    // A further surface does not hide the one before.
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window != nullptr && others > 0) window->move(window->pos() + QPoint(kCascade, kCascade));
    Module9::tell_empty_surface(view->sheet_.chart);
}

SurfaceWindow::SurfaceWindow() {
    setObjectName("frmGraph3D");
    setWindowIcon(theme::icon("graph3d"));
    setContextMenuPolicy(Qt::NoContextMenu);
    Module9::open_surface(sheet_);
    setCaption();

    canvas_ = new chart::Chart3DWidget(sheet_.chart, this);
    canvas_->setObjectName("chart");
    setCentralWidget(canvas_);
    setFocusProxy(canvas_);
    panel_ = new SurfacePanel(sheet_);
    dock_ = new QDockWidget("Design", this);
    dock_->setObjectName("dockDesign");
    dock_->setWidget(panel_);
    dock_->setMinimumWidth(kPanelWidth);
    addDockWidget(Qt::RightDockWidgetArea, dock_);
    dock_->hide();
    connect(panel_, &SurfacePanel::changed, this, &SurfaceWindow::refresh);

    status_ = new QLabel(kHint);
    status_->setObjectName("lblReadout");
    statusBar()->addWidget(status_, 1);
    menuBar()->setNativeMenuBar(false);
    buildFileMenu();
    buildAddMenu();
    buildViewMenu();
    buildDesignMenu();
    buildPictureMenu();
    buildToolBar();

    using chart::Chart3DWidget;
    connect(canvas_, &Chart3DWidget::surfaceMoved, this, [this](double x, double y, double z) {
        status_->setText(qt(Module9::surface_readout(sheet_.chart, x, y, z)));
    });
    connect(canvas_, &Chart3DWidget::surfaceLeft, this, [this] { status_->setText(kHint); });
    connect(canvas_, &Chart3DWidget::viewChanged, this, &SurfaceWindow::followView);
    connect(canvas_, &Chart3DWidget::rightClicked, this, [this] { design("surface"); });
    resize(kFirstSize);
    openSurfaces().add(this);
    refresh();
}

SurfaceWindow::~SurfaceWindow() {
    openSurfaces().remove(this);
}

void SurfaceWindow::becomeCurrent() {
    if (openSurfaces().use(this)) Module9::give_to_session(sheet_);
}

void SurfaceWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    ViewsInUse<SurfaceWindow>::followWindow(this);
}

void SurfaceWindow::closeEvent(QCloseEvent* event) {
    openSurfaces().remove(this);
    event->accept();
}

void SurfaceWindow::setCaption(const QString& file) {
    const std::string title = sheet_.given.title + sheet_.given.subTitle;
    setWindowTitle(file.isEmpty() ? qt(title) : "Filename: " + file);
}

void SurfaceWindow::closeView() {
    QWidget* window = this;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) window = sub;
    window->close();
}

// ---------------------------------------------------------------------------------------- commands

void SurfaceWindow::newDraw() {
    Module9::new_draw(sheet_);
    setCaption();
    refresh();
}

void SurfaceWindow::askLimits() {
    SurfaceLimitsDialog box(sheet_, shell::frameWindow());
    if (shell::openModal(box) == QDialog::Accepted) refresh();
}

void SurfaceWindow::askMeshlines() {
    MeshlinesDialog box(sheet_, shell::frameWindow());
    if (shell::openModal(box) == QDialog::Accepted) refresh();
}

void SurfaceWindow::markCritical() {
    if (Module9::has_critical_mark(sheet_))
        Module9::remove_critical_mark(sheet_);
    else
        Module9::add_critical_point(sheet_.chart);
    refresh();
}

void SurfaceWindow::loadOC3() {
    const std::string file = Module9::load_oc3(sheet_);
    if (file.empty()) return;
    setCaption(qt(session::file_title(file)));
    refresh();
}

void SurfaceWindow::design(const QString& page) {
    dock_->show();
    panel_->follow();
    panel_->showPage(page);
}

void SurfaceWindow::followView() {
    if (dock_->isVisible()) panel_->follow();
}

void SurfaceWindow::refresh() {
    canvas_->refresh();
    panel_->follow();
    for (const auto& [action, flag] : toggles_) action->setChecked(*flag());
    for (const auto& [action, when] : rules_) action->setChecked(when());
}

// ----------------------------------------------------------------------------------------- opening

namespace graph3d_views {

void Install() {
    Module9::views3_d() = {.openDiagram = SurfaceWindow::Open};
    actions::register_action("Diagram3D", Module9::prepare_diagram3_d);
}

}  // namespace graph3d_views

}  // namespace quor::gui
