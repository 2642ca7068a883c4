#include "diagrams/views/frmGraph2D.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

#include "common/dialogs.h"
#include "common/views/theme.h"
#include "diagrams/catalogue.h"
#include "diagrams/parameter_input.h"
#include "diagrams/prepare_2d.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_file.h"
#include "diagrams/sheet_readout.h"
#include "diagrams/views/coordinates_dialog.h"
#include "diagrams/views/design_panel.h"
#include "diagrams/views/diagram_canvas.h"
#include "diagrams/views/frmInputProzessLinien.h"
#include "diagrams/views/frmTpVSInputBox.h"
#include "session/actions.h"
#include "session/declare.h"
#include "session/views/shell.h"

namespace {

constexpr QSize kFirstSize(860, 620);
constexpr int kPanelWidth = 300;
constexpr int kCascade = 26;  // pixels between diagrams that open on each other
constexpr std::uint8_t kRangeInput = 7, kFractionInput = 8;

std::vector<frmGraph2D*>& openDiagrams() {
    static std::vector<frmGraph2D*> all;  // the one in use last
    return all;
}

QString qt(const std::string& s) {
    return QString::fromStdString(s);
}

}  // namespace

frmGraph2D* frmGraph2D::current() {
    return openDiagrams().empty() ? nullptr : openDiagrams().back();
}

void frmGraph2D::Open() {
    const std::size_t others = openDiagrams().size();
    auto* view = new frmGraph2D(Declare::diagram);
    shell::OpenChild(view);
    // A further diagram does not hide the one before.
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window != nullptr && others > 0) window->move(window->pos() + QPoint(kCascade, kCascade));
}

frmGraph2D::frmGraph2D(const Declare::DiagramRequest& request) {
    setObjectName("frmGraph2D");
    setWindowIcon(theme::icon("graph2d"));
    setContextMenuPolicy(Qt::NoContextMenu);
    setFocusPolicy(Qt::StrongFocus);
    Module9::OpenSheet(sheet_, request);
    setCaption();

    canvas_ = new DiagramCanvas(sheet_, this);
    setCentralWidget(canvas_);
    panel_ = new DesignPanel(sheet_);
    dock_ = new QDockWidget("Design", this);
    dock_->setObjectName("dockDesign");
    dock_->setWidget(panel_);
    dock_->setMinimumWidth(kPanelWidth);
    addDockWidget(Qt::RightDockWidgetArea, dock_);
    dock_->hide();
    connect(panel_, &DesignPanel::changed, this, &frmGraph2D::refresh);

    status_ = new QLabel;
    status_->setObjectName("lblReadout");
    statusBar()->addWidget(status_, 1);
    menuBar()->setNativeMenuBar(false);
    buildFileMenu();
    buildMarkMenu();
    buildDeleteMenu();
    buildDesignMenu();
    buildPictureMenu();
    buildToolBar();
    connectCanvas();
    resize(kFirstSize);
    openDiagrams().push_back(this);
    refresh();
}

frmGraph2D::~frmGraph2D() {
    std::erase(openDiagrams(), this);
}

void frmGraph2D::becomeCurrent() {
    auto& all = openDiagrams();
    if (std::erase(all, this) == 0) return;  // it is closing
    all.push_back(this);
    Module9::GiveToSession(sheet_);
}

void frmGraph2D::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (auto* window = qobject_cast<QMdiSubWindow*>(parentWidget()))
        connect(window, &QMdiSubWindow::aboutToActivate, this, &frmGraph2D::becomeCurrent,
                Qt::UniqueConnection);
}

void frmGraph2D::closeEvent(QCloseEvent* event) {
    // What is deleted later is no diagram of the session any more.
    std::erase(openDiagrams(), this);
    event->accept();
}

void frmGraph2D::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || sheet_.SwappedAxes) return QMainWindow::keyPressEvent(event);
    draw();
}

void frmGraph2D::setCaption(const QString& file) {
    setWindowTitle(file.isEmpty() ? qt(Module9::ViewCaption(sheet_.request)) : "Filename: " + file);
}

void frmGraph2D::closeView() {
    QWidget* window = this;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) window = sub;
    window->close();
}

// ----------------------------------------------------------------------------------------- drawing

void frmGraph2D::draw() {
    becomeCurrent();
    if (sheet_.request.sectionKind == Module9::kDatabase || !sheet_.SwappedAxes)
        Module9::Draw(sheet_);
    if (panel_ != nullptr && sheet_.currentSlot >= 0 && dock_->isVisible())
        panel_->showCurve(sheet_.currentSlot);
    refresh();
}

void frmGraph2D::ShowDatabaseFunction(float low, float high) {
    sheet_.request.validityLow = low;
    sheet_.request.validityHigh = high;
    draw();
}

void frmGraph2D::abortWhenEmpty() {
    if (!Module9::HasAnything(sheet_)) closeView();
}

void frmGraph2D::askParameter() {
    becomeCurrent();
    frmTpVSInputBox box(sheet_.request.sectionKind, shell::FrameWindow());
    if (shell::OpenModal(box) != QDialog::Accepted) return abortWhenEmpty();
    Module9::TakeParameters(sheet_);
    if (box.drawNow()) return draw();
    refresh();
}

void frmGraph2D::askRange() {
    becomeCurrent();
    Declare::processLine.Kind = kRangeInput;
    frmInputProzessLinien box(sheet_.request.sectionKind, shell::FrameWindow());
    if (shell::OpenModal(box) != QDialog::Accepted) return abortWhenEmpty();
    Module9::TakeParameters(sheet_);
    draw();
}

void frmGraph2D::askIsohygric() {
    becomeCurrent();
    if (!Module9::MayMarkIsohygric()) return;
    Declare::processLine.Kind = kFractionInput;
    frmInputProzessLinien box(sheet_.request.sectionKind, shell::FrameWindow());
    if (shell::OpenModal(box) != QDialog::Accepted) return;
    Module9::MarkIsohygric(sheet_, box.vapourFraction());
    refresh();
}

void frmGraph2D::askCoordinates() {
    CoordinatesDialog box(sheet_, shell::FrameWindow());
    if (shell::OpenModal(box) == QDialog::Accepted) refresh();
}

void frmGraph2D::askText() {
    const auto typed = dialogs::AskInput({"Text", "Additional text", ""});
    if (!typed || typed->empty()) return;
    Module9::AddText(sheet_, *typed);
    refresh();
}

void frmGraph2D::addLegend() {
    switch (Module9::AddLegend(sheet_)) {
        case Module9::LegendAnswer::DesignCurve:
            return design("curves");
        case Module9::LegendAnswer::DesignPoints:
            return design("points");
        case Module9::LegendAnswer::Shown:
            return refresh();
    }
}

void frmGraph2D::loadOC2() {
    becomeCurrent();
    switch (Module9::LoadOC2(sheet_)) {
        case Module9::LoadOutcome::Loaded:
            break;
        case Module9::LoadOutcome::Failed:
            return closeView();
        case Module9::LoadOutcome::Cancelled:
            return refresh();
    }
    refresh();
}

// ------------------------------------------------------------------------------------------ design

void frmGraph2D::refresh() {
    canvas_->refresh();
    panel_->follow();
    canvas_->setZoomAllowed(!sheet_.SwappedAxes);
    parameter_->setText(
        sheet_.SwappedAxes ? QString() : qt(Module9::ShownParameter(sheet_.request.sectionKind)));
    followMenus();
}

void frmGraph2D::design(const QString& page) {
    dock_->show();
    panel_->follow();
    panel_->showPage(page);
    const int slot = curveInUse();
    if (page == "curves" && slot >= 0) panel_->showCurve(slot);
}

void frmGraph2D::designHit(const Module9::Hit& hit) {
    dock_->show();
    panel_->follow();
    panel_->showHit(hit);
}

int frmGraph2D::curveInUse() const {
    if (dock_->isVisible() && panel_->curve() >= 0) return panel_->curve();
    const int last = sheet_.currentSlot;
    if (last >= 0 && !sheet_.CurveFree[static_cast<std::size_t>(last)]) return last;
    for (int slot = Module9::kMaxCurves - 1; slot >= 0; --slot)
        if (!sheet_.CurveFree[static_cast<std::size_t>(slot)]) return slot;
    return -1;
}

void frmGraph2D::showReadout(const Module9::Hit& hit, double x, double y) {
    using Module9::Part;
    std::string text;
    if (hit.part == Part::Curve || hit.part == Part::PointSet) {
        const auto group = hit.part == Part::Curve ? chart::Group::Curves : chart::Group::Points;
        text = Module9::Readout(sheet_, {group, hit.index, hit.point, 0});
    } else if (hit.part == Part::Plot || hit.part == Part::ReferenceLine) {
        text = Module9::PlaceText(x, y);
    }
    text += Module9::Hint(Module9::UnderOf(hit.part));
    status_->setText(qt(text));
}

void frmGraph2D::connectCanvas() {
    using Module9::Hit;
    connect(canvas_, &DiagramCanvas::pointerMoved, this, &frmGraph2D::showReadout);
    connect(canvas_, &DiagramCanvas::designWanted, this, &frmGraph2D::designHit);
    connect(canvas_, &DiagramCanvas::moved, this, &frmGraph2D::refresh);
    connect(canvas_, &DiagramCanvas::rectangleZoom, this, [this](const chart::Window& window) {
        Module9::Zoom(sheet_, window);
        if (auto* zoom = findChild<QAction*>("cmdZoom")) zoom->setChecked(false);
        refresh();
    });
    connect(canvas_, &DiagramCanvas::wheelZoom, this, [this](double x, double y, double factor) {
        Module9::ZoomAbout(sheet_, x, y, factor);
        refresh();
    });
    connect(canvas_, &DiagramCanvas::panned, this, [this](double du, double dv) {
        Module9::Pan(sheet_, du, dv);
        refresh();
    });
    connect(canvas_, &DiagramCanvas::fitWanted, this, [this] {
        Module9::Fit(sheet_);
        refresh();
    });
    connect(canvas_, &DiagramCanvas::clicked, this, [this](const Hit& hit) {
        becomeCurrent();
        if (hit.part == Module9::Part::Curve &&
            Module9::DeleteSinglePoint(sheet_, hit.index, hit.point))
            refresh();
    });
}

// ----------------------------------------------------------------------------------------- opening

namespace graph2d_views {

void Install() {
    Module9::Views2D() = {
        .openDiagram = frmGraph2D::Open,
        .openParameterInput =
            [] {
                if (frmGraph2D* view = frmGraph2D::current()) view->askParameter();
            },
        .openRangeInput =
            [] {
                if (frmGraph2D* view = frmGraph2D::current()) view->askRange();
            },
        .showDatabaseFunction =
            [](float low, float high) {
                if (frmGraph2D* view = frmGraph2D::current()) view->ShowDatabaseFunction(low, high);
            },
    };
    actions::RegisterAction("Diagram2D", Module9::OpenDiagram2D);
}

}  // namespace graph2d_views
