#include "gui/surfaces/surface_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

#include "common/dialogs.h"
#include "gui/diagrams/views_in_use.h"
#include "gui/surfaces/surface_dialogs.h"
#include "gui/surfaces/surface_panel.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/shell.h"
#include "gui/widgets/theme.h"
#include "legacy/current_diagram.h"
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

void SurfaceWindow::Open(diagrams::SurfaceSheet sheet) {
    const std::size_t others = openSurfaces().size();
    auto* view = new SurfaceWindow(std::move(sheet));
    shell::openChild(view);
    // A further surface does not hide the one before.
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window != nullptr && others > 0) window->move(window->pos() + QPoint(kCascade, kCascade));
    diagrams::tell_empty_surface(view->sheet_.chart);
}

SurfaceWindow::SurfaceWindow(diagrams::SurfaceSheet sheet)
    : sheet_(std::move(sheet)), menus_(this, [this] { becomeCurrent(); }) {
    setObjectName("frmGraph3D");
    setWindowIcon(theme::icon("graph3d"));
    setContextMenuPolicy(Qt::NoContextMenu);
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
    buildMenus();
    buildToolBar();

    using chart::Chart3DWidget;
    connect(canvas_, &Chart3DWidget::surfaceMoved, this, [this](double x, double y, double z) {
        status_->setText(qt(diagrams::surface_readout(sheet_.chart, x, y, z)));
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
    if (openSurfaces().use(this)) legacy::the_session.Diagram3DKind = sheet_.kind->code;
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
    try {
        const diagrams::Basis basis = diagrams::current_basis();
        diagrams::new_draw(sheet_, basis);
    } catch (const std::exception& fault) {
        dialogs::tell(fault.what(), "Execution not possible");
    }
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
    if (diagrams::has_critical_mark(sheet_))
        diagrams::remove_critical_mark(sheet_);
    else
        diagrams::add_critical_point(sheet_);
    refresh();
}

void SurfaceWindow::loadOC3() {
    std::string& folder = legacy::the_session.FolderDiagram3D;
    const diagrams::SurfaceFileAnswer answer = diagrams::load_oc3(sheet_, folder);
    folder = answer.folder;
    if (answer.file.empty()) return;
    setCaption(qt(paths::file_title(answer.file)));
    refresh();
}

void SurfaceWindow::saveOC3() {
    std::string& folder = legacy::the_session.FolderDiagram3D;
    folder = diagrams::save_oc3(sheet_, folder).folder;
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
    menus_.follow();
}

// ----------------------------------------------------------------------------------------- opening

namespace graph3d_views {

namespace {

void openFromMenu() {
    const legacy::Session& session = legacy::the_session;
    const diagrams::SurfaceKind* kind = diagrams::find_surface(session.Diagram3DKind);
    if (kind == nullptr) return;
    try {
        SurfaceWindow::Open(
            diagrams::open_surface(*kind, diagrams::current_basis(), session.SCurve3D));
    } catch (const std::exception&) {
        dialogs::tell(
            "The registration of the 3D graph module \\...\\olch8x3.ocx during the installation "
            "process failed.\nPlease carry out the registration manually (c.f. our website)",
            "Execution not possible");
    }
}

}  // namespace

void Install() {
    actions::register_action("Diagram3D", openFromMenu);
}

}  // namespace graph3d_views

}  // namespace quor::gui
