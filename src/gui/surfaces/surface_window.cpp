#include "gui/surfaces/surface_window.h"

#include <QDockWidget>
#include <QLabel>

#include "common/dialogs.h"
#include "gui/surfaces/surface_dialogs.h"
#include "gui/surfaces/surface_panel.h"
#include "gui/widgets/qt_text.h"
#include "session/diagram_choice.h"

namespace quor::gui {

namespace {

constexpr QSize kFirstSize(860, 660);
constexpr auto kHint = "Drag: turn     Wheel: zoom     Double click: default view";

}  // namespace

SurfaceWindow* SurfaceWindow::openNew(Desk& desk, diagrams::SurfaceSheet sheet) {
    const bool others = desk.lastUsed<SurfaceWindow>() != nullptr;
    auto* view = new SurfaceWindow(desk, std::move(sheet));
    view->open(others);
    diagrams::tell_empty_surface(view->sheet_.chart);
    return view;
}

SurfaceWindow::SurfaceWindow(Desk& desk, diagrams::SurfaceSheet sheet)
    : ChartWindow(desk, "frmGraph3D", "graph3d"),
      FollowsSession(desk.session()),
      sheet_(std::move(sheet)),
      seenUnits_(desk.session()->units) {
    showCaption();

    canvas_ = new chart::Chart3DWidget(sheet_.chart, this);
    canvas_->setObjectName("chart");
    setCentralWidget(canvas_);
    setFocusProxy(canvas_);
    panel_ = new SurfacePanel(sheet_);
    addDesignPanel(panel_);
    connect(panel_, &SurfacePanel::changed, this, &SurfaceWindow::refresh);

    status_->setText(kHint);
    buildMenus();
    buildToolBar();

    using chart::Chart3DWidget;
    connect(canvas_, &Chart3DWidget::surfaceMoved, this, [this](double x, double y, double z) {
        status_->setText(qt(diagrams::window_text(diagrams::surface_readout(sheet_.chart, x, y, z),
                                                  sheet_.basis.units.choice)));
    });
    connect(canvas_, &Chart3DWidget::surfaceLeft, this, [this] { status_->setText(kHint); });
    connect(canvas_, &Chart3DWidget::viewChanged, this, &SurfaceWindow::followView);
    connect(canvas_, &Chart3DWidget::rightClicked, this, [this] { design("surface"); });
    resize(kFirstSize);
    refresh();
}

void SurfaceWindow::keepChoice() {
    if (session_->surface_kind == sheet_.kind->code) return;
    session_.change()->surface_kind = sheet_.kind->code;
}

void SurfaceWindow::showCaption(const QString& file) {
    setCaption(qt(sheet_.given.title + sheet_.given.sub_title), file);
}

// ---------------------------------------------------------------------------------------- commands

void SurfaceWindow::newDraw() {
    try {
        diagrams::new_draw(sheet_, session::present_basis(session_));
    } catch (const std::exception& fault) {
        dialogs::tell(fault.what(), dialogs::kNotPossible);
    }
    showCaption();
    refresh();
}

void SurfaceWindow::askLimits() {
    SurfaceLimitsDialog box(sheet_, desk_.frameWindow());
    if (desk_.openModal(box) == QDialog::Accepted) refresh();
}

void SurfaceWindow::askMeshlines() {
    MeshlinesDialog box(sheet_, desk_.frameWindow());
    if (desk_.openModal(box) == QDialog::Accepted) refresh();
}

void SurfaceWindow::markCritical() {
    if (diagrams::has_critical_mark(sheet_))
        diagrams::remove_critical_mark(sheet_);
    else
        diagrams::add_critical_point(sheet_);
    refresh();
}

void SurfaceWindow::loadOC3() {
    const diagrams::SurfaceFileAnswer answer =
        diagrams::load_oc3(sheet_, session_->folder_surfaces);
    session_.change()->folder_surfaces = answer.folder;
    if (!answer.file) return;
    showCaption(qt(paths::file_title(*answer.file)));
    refresh();
}

void SurfaceWindow::saveOC3() {
    const auto path = diagrams::save_oc3(
        sheet_, session_->folder_surfaces,
        diagrams::proposed_file(sheet_,
                                session::short_name(session_, sheet_.basis.fluid.substance())));
    if (path) session_.change()->folder_surfaces = paths::folder_of(*path);
}

void SurfaceWindow::design(const QString& page) {
    dock_->show();
    panel_->follow();
    panel_->showPage(page);
}

void SurfaceWindow::followView() {
    if (dock_->isVisible()) panel_->follow();
}

void SurfaceWindow::followSession() {
    if (session_->units == seenUnits_) return;
    seenUnits_ = session_->units;
    const Result<void> changed =
        diagrams::change_units(sheet_, session::unit_choice(session_.state()));
    refresh();
    if (!changed) status_->setText(qt(changed.reason()));
}

void SurfaceWindow::refresh() {
    canvas_->refresh();
    panel_->follow();
    menus_.follow();
}

// ----------------------------------------------------------------------------------------- opening

namespace surface_views {

void openFromMenu(Desk& desk) {
    const session::Session& session = desk.session();
    const diagrams::SurfaceKind* kind = diagrams::find_surface(session->surface_kind);
    if (kind == nullptr) return;
    try {
        SurfaceWindow::openNew(desk, diagrams::open_surface(*kind, session::present_basis(session),
                                                            session->surface_scurve));
    } catch (const std::exception&) {
        dialogs::tell(
            "The registration of the 3D graph module \\...\\olch8x3.ocx during the installation "
            "process failed.\nPlease carry out the registration manually (c.f. our website)",
            dialogs::kNotPossible);
    }
}

}  // namespace surface_views

}  // namespace quor::gui
