#include "diagrams/views/frmGraph3D.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

#include "common/views/theme.h"
#include "diagrams/prepare_3d.h"
#include "diagrams/views/surface_dialogs.h"
#include "diagrams/views/surface_panel.h"
#include "diagrams/views/views_in_use.h"
#include "session/actions.h"
#include "session/module2.h"
#include "session/views/shell.h"

namespace {

constexpr QSize kFirstSize(860, 660);
constexpr int kPanelWidth = 300;
constexpr int kCascade = 26;  // pixels between surfaces that open on each other
constexpr auto kHint = "Drag: turn     Wheel: zoom     Double click: default view";

ViewsInUse<frmGraph3D>& openSurfaces() {
    static ViewsInUse<frmGraph3D> all;
    return all;
}

QString qt(const std::string& s) {
    return QString::fromStdString(s);
}

}  // namespace

frmGraph3D* frmGraph3D::current() {
    return openSurfaces().current();
}

void frmGraph3D::Open() {
    const std::size_t others = openSurfaces().size();
    auto* view = new frmGraph3D;
    shell::OpenChild(view);
    // A further surface does not hide the one before.
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window != nullptr && others > 0) window->move(window->pos() + QPoint(kCascade, kCascade));
    Module9::TellEmptySurface(view->sheet_.chart);
}

frmGraph3D::frmGraph3D() {
    setObjectName("frmGraph3D");
    setWindowIcon(theme::icon("graph3d"));
    setContextMenuPolicy(Qt::NoContextMenu);
    Module9::OpenSurface(sheet_);
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
    connect(panel_, &SurfacePanel::changed, this, &frmGraph3D::refresh);

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
        status_->setText(qt(Module9::SurfaceReadout(sheet_.chart, x, y, z)));
    });
    connect(canvas_, &Chart3DWidget::surfaceLeft, this, [this] { status_->setText(kHint); });
    connect(canvas_, &Chart3DWidget::viewChanged, this, &frmGraph3D::followView);
    connect(canvas_, &Chart3DWidget::rightClicked, this, [this] { design("surface"); });
    resize(kFirstSize);
    openSurfaces().add(this);
    refresh();
}

frmGraph3D::~frmGraph3D() {
    openSurfaces().remove(this);
}

void frmGraph3D::becomeCurrent() {
    if (openSurfaces().use(this)) Module9::GiveToSession(sheet_);
}

void frmGraph3D::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    ViewsInUse<frmGraph3D>::followWindow(this);
}

void frmGraph3D::closeEvent(QCloseEvent* event) {
    openSurfaces().remove(this);
    event->accept();
}

void frmGraph3D::setCaption(const QString& file) {
    const std::string title = sheet_.given.title + sheet_.given.subTitle;
    setWindowTitle(file.isEmpty() ? qt(title) : "Filename: " + file);
}

void frmGraph3D::closeView() {
    QWidget* window = this;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) window = sub;
    window->close();
}

// ---------------------------------------------------------------------------------------- commands

void frmGraph3D::newDraw() {
    Module9::NewDraw(sheet_);
    setCaption();
    refresh();
}

void frmGraph3D::askLimits() {
    SurfaceLimitsDialog box(sheet_, shell::FrameWindow());
    if (shell::OpenModal(box) == QDialog::Accepted) refresh();
}

void frmGraph3D::askMeshlines() {
    MeshlinesDialog box(sheet_, shell::FrameWindow());
    if (shell::OpenModal(box) == QDialog::Accepted) refresh();
}

void frmGraph3D::markCritical() {
    if (Module9::HasCriticalMark(sheet_))
        Module9::RemoveCriticalMark(sheet_);
    else
        Module9::AddCriticalPoint(sheet_.chart);
    refresh();
}

void frmGraph3D::loadOC3() {
    const std::string file = Module9::LoadOC3(sheet_);
    if (file.empty()) return;
    setCaption(qt(Module2::FileTitle(file)));
    refresh();
}

void frmGraph3D::design(const QString& page) {
    dock_->show();
    panel_->follow();
    panel_->showPage(page);
}

void frmGraph3D::followView() {
    if (dock_->isVisible()) panel_->follow();
}

void frmGraph3D::refresh() {
    canvas_->refresh();
    panel_->follow();
    for (const auto& [action, flag] : toggles_) action->setChecked(*flag());
    for (const auto& [action, when] : rules_) action->setChecked(when());
}

// ----------------------------------------------------------------------------------------- opening

namespace graph3d_views {

void Install() {
    Module9::Views3D() = {.openDiagram = frmGraph3D::Open};
    actions::RegisterAction("Diagram3D", Module9::PrepareDiagram3D);
}

}  // namespace graph3d_views
