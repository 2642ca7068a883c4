#include "gui/diagrams/diagram_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

#include "common/dialogs.h"
#include "diagrams/catalogue.h"
#include "diagrams/coordinates.h"
#include "diagrams/parameter_input.h"
#include "diagrams/prepare_2d.h"
#include "diagrams/process_line.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_file.h"
#include "diagrams/sheet_points.h"
#include "diagrams/sheet_readout.h"
#include "gui/calculation/calculation_views.h"
#include "gui/chart/chart_qt.h"
#include "gui/diagrams/coordinates_dialog.h"
#include "gui/diagrams/curve_parameter_dialog.h"
#include "gui/diagrams/design_panel.h"
#include "gui/diagrams/process_line_dialog.h"
#include "gui/diagrams/range_input.h"
#include "gui/diagrams/views_in_use.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/shell.h"
#include "gui/widgets/theme.h"
#include "legacy/declare.h"
#include "session/actions.h"
#include "session/module2.h"

namespace quor::gui {

namespace {

constexpr QSize kFirstSize(860, 620);
constexpr int kPanelWidth = 300;
constexpr int kCascade = 26;  // pixels between diagrams that open on each other
constexpr std::uint8_t kRangeInput = 7, kFractionInput = 8;

ViewsInUse<DiagramWindow>& openDiagrams() {
    static ViewsInUse<DiagramWindow> all;
    return all;
}

}  // namespace

DiagramWindow* DiagramWindow::current() {
    return openDiagrams().current();
}

void DiagramWindow::Open() {
    const std::size_t others = openDiagrams().size();
    auto* view = new DiagramWindow(legacy::the_diagram);
    shell::openChild(view);
    // A further diagram does not hide the one before.
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window != nullptr && others > 0) window->move(window->pos() + QPoint(kCascade, kCascade));
}

DiagramWindow::DiagramWindow(const diagrams::DiagramRequest& request) {
    setObjectName("frmGraph2D");
    setWindowIcon(theme::icon("graph2d"));
    setContextMenuPolicy(Qt::NoContextMenu);
    setFocusPolicy(Qt::StrongFocus);
    Module9::open_sheet(sheet_, request);
    setCaption();

    canvas_ = new chart::Chart2DWidget(sheet_.chart, this);
    canvas_->setObjectName("chart");
    canvas_->installEventFilter(this);
    setCentralWidget(canvas_);
    panel_ = new DesignPanel(sheet_);
    dock_ = new QDockWidget("Design", this);
    dock_->setObjectName("dockDesign");
    dock_->setWidget(panel_);
    dock_->setMinimumWidth(kPanelWidth);
    addDockWidget(Qt::RightDockWidgetArea, dock_);
    dock_->hide();
    connect(panel_, &DesignPanel::changed, this, &DiagramWindow::refresh);

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
    openDiagrams().add(this);
    refresh();
}

DiagramWindow::~DiagramWindow() {
    openDiagrams().remove(this);
}

void DiagramWindow::becomeCurrent() {
    if (openDiagrams().use(this)) Module9::give_to_session(sheet_);
}

void DiagramWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    ViewsInUse<DiagramWindow>::followWindow(this);
}

void DiagramWindow::closeEvent(QCloseEvent* event) {
    // What is deleted later is no diagram of the session any more.
    openDiagrams().remove(this);
    event->accept();
}

void DiagramWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || sheet_.SwappedAxes) return QMainWindow::keyPressEvent(event);
    draw();
}

void DiagramWindow::setCaption(const QString& file) {
    setWindowTitle(file.isEmpty() ? qt(Module9::view_caption(sheet_.request))
                                  : "Filename: " + file);
}

void DiagramWindow::closeView() {
    QWidget* window = this;
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget())) window = sub;
    window->close();
}

// ----------------------------------------------------------------------------------------- drawing

void DiagramWindow::draw() {
    becomeCurrent();
    Module9::Draw(sheet_);
    if (panel_ != nullptr && sheet_.currentSlot >= 0 && dock_->isVisible())
        panel_->showCurve(sheet_.currentSlot);
    refresh();
}

void DiagramWindow::ShowDatabaseFunction(float low, float high) {
    sheet_.request.validityLow = low;
    sheet_.request.validityHigh = high;
    draw();
}

void DiagramWindow::abortWhenEmpty() {
    if (!Module9::has_anything(sheet_)) closeView();
}

void DiagramWindow::askParameter() {
    becomeCurrent();
    CurveParameterDialog box(sheet_.request.sectionKind, shell::frameWindow());
    if (shell::openModal(box) != QDialog::Accepted) return abortWhenEmpty();
    Module9::take_parameters(sheet_);
    if (box.drawNow()) return draw();
    refresh();
}

void DiagramWindow::askRange() {
    becomeCurrent();
    legacy::the_processLine.Kind = kRangeInput;
    RangeInput box(sheet_.request.sectionKind, shell::frameWindow());
    if (shell::openModal(box) != QDialog::Accepted) return abortWhenEmpty();
    Module9::take_parameters(sheet_);
    draw();
}

void DiagramWindow::askIsohygric() {
    becomeCurrent();
    if (!Module9::may_mark_isohygric()) return;
    legacy::the_processLine.Kind = kFractionInput;
    RangeInput box(sheet_.request.sectionKind, shell::frameWindow());
    if (shell::openModal(box) != QDialog::Accepted) return;
    Module9::mark_isohygric(sheet_, box.vapourFraction());
    refresh();
}

void DiagramWindow::askProcessLine(std::uint8_t kind) {
    becomeCurrent();
    legacy::the_processLine.Kind = kind;
    legacy::the_processLine.BaseDiagramType = sheet_.request.DiagramType;
    ProcessLineDialog box(
        ProcessLineDialog::Purpose::Line, [this] { drawProcessLine(); }, shell::frameWindow());
    shell::openModal(box);
}

void DiagramWindow::drawProcessLine() {
    Module9::DrawOutcome outcome;
    diagrams::with_process_line(sheet_.request, [&] { outcome = Module9::draw_curve(sheet_); });
    // The answer of the polytropic program belongs to this line alone.
    legacy::the_polytropicPoints.clear();
    if (outcome.slot >= 0) {
        const auto& curve = sheet_.chart.curves[static_cast<std::size_t>(outcome.slot)];
        const std::string note =
            diagrams::one_point_note(sheet_.request.DiagramType, curve.x, curve.y);
        if (!note.empty()) dialogs::tell(note, "Note");
    }
    refresh();
}

void DiagramWindow::askCoordinates() {
    CoordinatesDialog box(sheet_, shell::frameWindow());
    if (shell::openModal(box) != QDialog::Accepted) return;
    canvas_->forgetZoom();
    refresh();
}

void DiagramWindow::askText() {
    const auto typed = dialogs::ask_input({"Text", "Additional text", ""});
    if (!typed || typed->empty()) return;
    Module9::add_text(sheet_, *typed);
    refresh();
}

void DiagramWindow::addLegend() {
    switch (Module9::add_legend(sheet_)) {
        case Module9::LegendAnswer::DesignCurve:
            return design("curves");
        case Module9::LegendAnswer::DesignPoints:
            return design("points");
        case Module9::LegendAnswer::Shown:
            return refresh();
    }
}

void DiagramWindow::load() {
    becomeCurrent();
    switch (Module9::load_oc2(sheet_)) {
        case Module9::LoadOutcome::Loaded:
            break;
        case Module9::LoadOutcome::Failed:
            return closeView();
        case Module9::LoadOutcome::Cancelled:
            return refresh();
    }
    setCaption(qt(session::file_title(sheet_.loadedFile)));
    canvas_->forgetZoom();
    refresh();
}

// ------------------------------------------------------------------------------------------ design

void DiagramWindow::refresh() {
    paintSheet();
    panel_->follow();
    canvas_->setZoomEnabled(!sheet_.SwappedAxes);
    parameter_->setText(
        sheet_.SwappedAxes ? QString() : qt(Module9::shown_parameter(sheet_.request.sectionKind)));
    followMenus();
}

void DiagramWindow::paintSheet() {
    Module9::place_labels(sheet_, canvas_->width(), canvas_->height(), chart::qtTextMeasure());
    canvas_->refresh();
}

bool DiagramWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == canvas_ && event->type() == QEvent::Resize) paintSheet();
    return QMainWindow::eventFilter(watched, event);
}

void DiagramWindow::design(const QString& page) {
    dock_->show();
    panel_->follow();
    panel_->showPage(page);
    const int slot = curveInUse();
    if (page == "curves" && slot >= 0) panel_->showCurve(slot);
}

void DiagramWindow::designHit(const chart::ChartHit& hit) {
    dock_->show();
    panel_->follow();
    panel_->showHit(hit);
}

int DiagramWindow::curveInUse() const {
    if (dock_->isVisible() && panel_->curve() >= 0) return panel_->curve();
    const int last = sheet_.currentSlot;
    if (last >= 0 && !sheet_.CurveFree[static_cast<std::size_t>(last)]) return last;
    for (int slot = Module9::kMaxCurves - 1; slot >= 0; --slot)
        if (!sheet_.CurveFree[static_cast<std::size_t>(slot)]) return slot;
    return -1;
}

void DiagramWindow::showReadout(const chart::ChartHit& hit) {
    using chart::ChartPart;
    Module9::Under under = Module9::Under::Nothing;
    std::string text;
    if (hit.part == ChartPart::Curve || hit.part == ChartPart::PointSet)
        text = Module9::readout(sheet_, {hit.group, hit.series, hit.point, 0});
    else if (hit.inPlot)
        text = Module9::place_text(hit.x, hit.y);
    if (hit.part == ChartPart::Legend) under = Module9::Under::Legend;
    if (hit.part == ChartPart::Label || hit.part == ChartPart::Header ||
        hit.part == ChartPart::Footer)
        under = Module9::Under::Text;
    status_->setText(qt(text + Module9::Hint(under)));
}

void DiagramWindow::clicked(const chart::ChartHit& hit) {
    becomeCurrent();
    if (hit.part == chart::ChartPart::Curve &&
        Module9::delete_single_point(sheet_, hit.series, hit.point))
        refresh();
}

void DiagramWindow::connectCanvas() {
    using chart::Chart2DWidget;
    using chart::ChartHit;
    connect(canvas_, &Chart2DWidget::mouseMoved, this, &DiagramWindow::showReadout);
    connect(canvas_, &Chart2DWidget::rightClicked, this, &DiagramWindow::designHit);
    connect(canvas_, &Chart2DWidget::partMoved, this, &DiagramWindow::refresh);
    connect(canvas_, &Chart2DWidget::windowChanged, this, [this] {
        Module9::follow_window(sheet_);
        refresh();
    });
    connect(canvas_, &Chart2DWidget::mouseReleased, this,
            [this](const ChartHit& hit, Qt::MouseButton button, bool click) {
                if (click && button == Qt::LeftButton) clicked(hit);
            });
}

// ----------------------------------------------------------------------------------------- opening

namespace graph2d_views {

namespace {

/// The heat of vaporisation by Benson's method needs a reference point, which is asked for first.
void open_from_menu() {
    constexpr std::int16_t kVaporisation = 13;
    const bool needsReference = legacy::the_diagram.DiagramType == kVaporisation &&
                                legacy::the_models.HLVModel == models::VaporisationModel::benson;
    if (!needsReference) return Module9::open_diagram2_d();
    calculation_views::OpenCalcIn(calculation::Task::vaporisationAtT, true);
}

/// The XY editor's graph gets a diagram of its own, in which nothing is computed.
void open_editor_graph() {
    const diagrams::DiagramRequest before =
        std::exchange(legacy::the_diagram, Module9::request_of_editor_graph());
    DiagramWindow::Open();
    legacy::the_diagram = before;
    DiagramWindow* view = DiagramWindow::current();
    Module9::add_editor_graph(view->sheet());
    view->refresh();
}

}  // namespace

void Install() {
    legacy::the_calculationViews.prepareDiagram = Module9::open_diagram2_d;
    const auto calculate_process = [] {
        ProcessLineDialog box(
            ProcessLineDialog::Purpose::Calculation,
            [] { legacy::the_calculationViews.openResultView(); }, shell::frameWindow());
        shell::openModal(box);
        legacy::the_polytropicPoints.clear();
        legacy::the_processLine.FromCalculation = false;
    };
    legacy::the_calculationViews.openProcessView = calculate_process;
    Module9::views2_d() = {
        .openDiagram = DiagramWindow::Open,
        .openParameterInput =
            [] {
                if (DiagramWindow* view = DiagramWindow::current()) view->askParameter();
            },
        .openRangeInput =
            [] {
                if (DiagramWindow* view = DiagramWindow::current()) view->askRange();
            },
        .showDatabaseFunction =
            [](float low, float high) {
                if (DiagramWindow* view = DiagramWindow::current())
                    view->ShowDatabaseFunction(low, high);
            },
    };
    actions::register_action("Diagram2D", open_from_menu);
    actions::register_action("graph_xy", open_editor_graph);
    actions::register_action("CalcCoordinateDefaults",
                             [] { Module9::calc_coordinate_defaults(legacy::the_coordinates); });
}

}  // namespace graph2d_views

}  // namespace quor::gui
