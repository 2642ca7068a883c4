#include "gui/diagrams/diagram_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>

#include "common/dialogs.h"
#include "datafiles/xy_file.h"
#include "datafiles/xy_points.h"
#include "diagrams/coordinates.h"
#include "diagrams/parameter_input.h"
#include "diagrams/process_line.h"
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
#include "legacy/current_diagram.h"
#include "session/actions.h"
#include "session/module2.h"
#include "session/xy_session.h"

namespace quor::gui {

namespace {

constexpr QSize kFirstSize(860, 620);
constexpr int kPanelWidth = 300;
constexpr int kCascade = 26;  // pixels between diagrams that open on each other

ViewsInUse<DiagramWindow>& openDiagrams() {
    static ViewsInUse<DiagramWindow> all;
    return all;
}

}  // namespace

DiagramWindow* DiagramWindow::current() {
    return openDiagrams().current();
}

void DiagramWindow::Open(const diagrams::PreparedDiagram& prepared, const diagrams::Basis& basis) {
    const std::size_t others = openDiagrams().size();
    auto* view = new DiagramWindow(prepared, basis);
    shell::openChild(view);
    // A further diagram does not hide the one before.
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window != nullptr && others > 0) window->move(window->pos() + QPoint(kCascade, kCascade));
}

DiagramWindow::DiagramWindow(const diagrams::PreparedDiagram& prepared,
                             const diagrams::Basis& basis)
    : sheet_(diagrams::open_sheet(prepared.request, basis, prepared.start.at)),
      menus_(this, [this] { becomeCurrent(); }) {
    setObjectName("frmGraph2D");
    setWindowIcon(theme::icon("graph2d"));
    setContextMenuPolicy(Qt::NoContextMenu);
    setFocusPolicy(Qt::StrongFocus);
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
    connect(panel_, &DesignPanel::changed, this, [this] {
        const QWidget* control = QApplication::focusWidget();
        rememberDesign(control == nullptr ? QString() : control->objectName());
        refresh();
    });

    status_ = new QLabel;
    status_->setObjectName("lblReadout");
    statusBar()->addWidget(status_, 1);
    fluid_ = new QLabel;
    fluid_->setObjectName("lblFluid");
    fluid_->setToolTip("Substance and model of the next curve");
    statusBar()->addPermanentWidget(fluid_);
    menuBar()->setNativeMenuBar(false);
    buildMenus();
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
    if (!openDiagrams().use(this)) return;
    if (sheet_.request.diagram != nullptr) legacy::the_diagram = sheet_.request.diagram;
    diagrams::keep_parameters(sheet_.at);
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
    if (!enter || sheet_.swappedAxes) return QMainWindow::keyPressEvent(event);
    draw();
}

void DiagramWindow::setCaption(const QString& file) {
    setWindowTitle(file.isEmpty() ? qt(diagrams::view_caption(sheet_.request))
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
    diagrams::draw(sheet_, diagrams::current_pen(), legacy::the_processLine);
    if (sheet_.currentPlace >= 0 && dock_->isVisible()) panel_->showCurve(sheet_.currentPlace);
    refresh();
}

void DiagramWindow::abortWhenEmpty() {
    if (!diagrams::has_anything(sheet_)) closeView();
}

namespace {

/// The basis of an input in the units of a sheet; nothing, and said, where there is none.
std::optional<diagrams::Basis> basisOfInput(const diagrams::DiagramSheet& sheet) {
    try {
        return diagrams::in_units_of(sheet, diagrams::current_pen().basis);
    } catch (const std::exception& fault) {
        dialogs::tell(fault.what(), "Execution not possible");
        return std::nullopt;
    }
}

}  // namespace

void DiagramWindow::askParameter() {
    becomeCurrent();
    const auto basis = basisOfInput(sheet_);
    if (!basis) return;
    CurveParameterDialog box(sheet_.request.section(), *basis, sheet_.at, shell::frameWindow());
    if (shell::openModal(box) != QDialog::Accepted) return abortWhenEmpty();
    sheet_.at = box.parameters();
    diagrams::keep_parameters(sheet_.at);
    if (box.drawNow()) return draw();
    refresh();
}

void DiagramWindow::askRange() {
    becomeCurrent();
    const auto basis = basisOfInput(sheet_);
    if (!basis) return;
    RangeInput box({sheet_.request.section(), basis->units, sheet_.at, legacy::the_processLine,
                    legacy::the_coordinates},
                   shell::frameWindow());
    if (shell::openModal(box) != QDialog::Accepted) return abortWhenEmpty();
    sheet_.at = box.range().at;
    legacy::the_processLine = box.range().line;
    diagrams::keep_parameters(sheet_.at);
    draw();
}

void DiagramWindow::askIsohygric() {
    const diagrams::Pen pen = diagrams::current_pen();
    if (!diagrams::may_mark_isohygric(pen)) return;
    RangeInput box(shell::frameWindow());
    if (shell::openModal(box) != QDialog::Accepted) return;
    diagrams::mark_isohygric(sheet_, pen, box.vapourFraction());
    refresh();
}

void DiagramWindow::askProcessLine(diagrams::ProcessKind kind) {
    legacy::the_processLine.kind = kind;
    ProcessLineDialog box(
        {ProcessLineDialog::Purpose::Line, diagrams::current_pen(), sheet_.request.diagram,
         sheet_.at, legacy::the_processLine, legacy::the_session.CsvSeparator},
        [this](const diagrams::ProcessLine& line) { drawProcessLine(line); }, shell::frameWindow());
    shell::openModal(box);
}

void DiagramWindow::drawProcessLine(const diagrams::ProcessLine& line) {
    legacy::the_processLine = line;
    const diagrams::DrawOutcome outcome =
        diagrams::draw_process_line(sheet_, diagrams::current_pen(), line);
    // The answer of the polytropic program belongs to this line alone.
    legacy::the_processLine.polytropicPoints.clear();
    if (outcome.last) legacy::the_processLine.last = *outcome.last;
    if (outcome.place >= 0) {
        const auto& curve = sheet_.chart.curves[static_cast<std::size_t>(outcome.place)];
        const std::string note =
            diagrams::one_point_note(*sheet_.request.diagram, curve.x, curve.y);
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
    diagrams::add_text(sheet_, *typed);
    refresh();
}

void DiagramWindow::addLegend() {
    switch (diagrams::add_legend(sheet_)) {
        case diagrams::LegendAnswer::DesignCurve:
            return design("curves");
        case diagrams::LegendAnswer::DesignPoints:
            return design("points");
        case diagrams::LegendAnswer::Shown:
            return refresh();
    }
}

void DiagramWindow::load() {
    becomeCurrent();
    legacy::Session& session = legacy::the_session;
    const bool withNote = std::exchange(session.Diagram2DNotePending, false);
    const diagrams::LoadAnswer answer =
        diagrams::load_oc2(sheet_, session.FolderDiagram2D, withNote);
    session.FolderDiagram2D = answer.folder;
    switch (answer.outcome) {
        case diagrams::LoadOutcome::Loaded:
            break;
        case diagrams::LoadOutcome::Failed:
            return closeView();
        case diagrams::LoadOutcome::Cancelled:
            return refresh();
    }
    setCaption(qt(paths::file_title(sheet_.loadedFile)));
    canvas_->forgetZoom();
    refresh();
}

void DiagramWindow::save() {
    std::string& folder = legacy::the_session.FolderDiagram2D;
    folder = diagrams::save_oc2(sheet_, folder).folder;
}

void DiagramWindow::saveCurve() {
    std::vector<datafiles::FitPoint> points;
    for (const diagrams::CurvePoint& point : diagrams::shown_points(sheet_, curveInUse()))
        points.push_back({point.x, point.y, 0});
    if (!points.empty()) session::save_curve_as_xy(points);
}

// ------------------------------------------------------------------------------------------ design

void DiagramWindow::refresh() {
    paintSheet();
    panel_->follow();
    canvas_->setZoomEnabled(!sheet_.swappedAxes);
    followSession();
    followMenus();
}

void DiagramWindow::followSession() {
    const diagrams::Pen pen = diagrams::current_pen();
    const diagrams::Diagram* diagram = sheet_.request.diagram;
    const std::string fluid = diagrams::fluid_text(diagram, pen);
    fluid_->setText(diagram == nullptr ? QString()
                    : fluid.empty()    ? QString("no substance")
                                       : qt(fluid));
    QString parameter;
    try {
        if (!sheet_.swappedAxes)
            parameter = qt(diagrams::shown_parameter(sheet_.request.section(),
                                                     diagrams::in_units_of(sheet_, pen.basis).units,
                                                     sheet_.at));
    } catch (const std::exception&) {
        // The present fluid cannot be shown in the units of the sheet: drawing tells why.
    }
    parameter_->setText(parameter);
    menus_.follow();
}

void DiagramWindow::paintSheet() {
    diagrams::place_labels(sheet_, canvas_->width(), canvas_->height(), chart::qtTextMeasure());
    canvas_->refresh();
    shown_ = diagrams::content_of(sheet_);
}

void DiagramWindow::rememberDesign(const QString& what) {
    // What is typed into one control is one step.
    const bool other = what.isEmpty() || what != designed_;
    designed_ = what;
    if (other && !sheet_.undo.empty()) sheet_.undo.back().isDesign = false;
    diagrams::remember_design(sheet_, shown_, "Design");
}

bool DiagramWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == canvas_ && event->type() == QEvent::Resize) paintSheet();
    return QMainWindow::eventFilter(watched, event);
}

void DiagramWindow::design(const QString& page) {
    dock_->show();
    panel_->follow();
    panel_->showPage(page);
    const int place = curveInUse();
    if (page == "curves" && place >= 0) panel_->showCurve(place);
}

void DiagramWindow::designHit(const chart::ChartHit& hit) {
    dock_->show();
    panel_->follow();
    panel_->showHit(hit);
}

int DiagramWindow::curveInUse() const {
    if (dock_->isVisible() && panel_->curve() >= 0) return panel_->curve();
    if (diagrams::is_drawn(sheet_, sheet_.currentPlace)) return sheet_.currentPlace;
    for (int place = static_cast<int>(sheet_.curves.size()) - 1; place >= 0; --place)
        if (diagrams::is_drawn(sheet_, place)) return place;
    return -1;
}

void DiagramWindow::showReadout(const chart::ChartHit& hit) {
    using chart::ChartPart;
    diagrams::Under under = diagrams::Under::Nothing;
    std::string text;
    if (hit.part == ChartPart::Curve || hit.part == ChartPart::PointSet)
        text = diagrams::readout(sheet_, {hit.group, hit.series, hit.point, 0});
    else if (hit.inPlot)
        text = diagrams::place_text(hit.x, hit.y);
    if (hit.part == ChartPart::Legend) under = diagrams::Under::Legend;
    if (hit.part == ChartPart::Label || hit.part == ChartPart::Header ||
        hit.part == ChartPart::Footer)
        under = diagrams::Under::Text;
    status_->setText(qt(text + diagrams::hint(under)));
}

void DiagramWindow::clicked(const chart::ChartHit& hit) {
    becomeCurrent();
    if (hit.part == chart::ChartPart::Curve &&
        diagrams::delete_single_point(sheet_, hit.series, hit.point))
        refresh();
}

void DiagramWindow::connectCanvas() {
    using chart::Chart2DWidget;
    using chart::ChartHit;
    connect(canvas_, &Chart2DWidget::mouseMoved, this, &DiagramWindow::showReadout);
    connect(canvas_, &Chart2DWidget::rightClicked, this, &DiagramWindow::designHit);
    connect(canvas_, &Chart2DWidget::partMoved, this, [this] {
        rememberDesign({});
        refresh();
    });
    connect(canvas_, &Chart2DWidget::windowChanged, this, [this] {
        diagrams::follow_window(sheet_);
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

void openInput(const diagrams::Diagram& diagram) {
    DiagramWindow* view = DiagramWindow::current();
    switch (diagrams::input_of(diagram)) {
        case diagrams::DiagramInput::parameter:
            return view->askParameter();
        case diagrams::DiagramInput::range:
            return view->askRange();
        case diagrams::DiagramInput::validity:
            return view->draw();
        case diagrams::DiagramInput::none:
            return;
    }
}

void prepareAndOpen(const diagrams::Diagram& diagram) {
    try {
        const diagrams::Basis basis = diagrams::current_basis();
        const diagrams::PreparedDiagram prepared =
            diagrams::prepare_diagram(diagram, basis, diagrams::current_start());
        diagrams::keep_start(prepared.start);
        DiagramWindow::Open(prepared, basis);
        openInput(diagram);
    } catch (const std::exception&) {
        dialogs::tell(
            "The registration of the 2D graph module \\...\\olch8x2.ocx during the installation "
            "process failed.\nPlease carry out the registration manually (c.f. our website)",
            "Execution not possible");
    }
}

/// Says what has to be said of the diagram that was chosen, and opens it unless that was a refusal.
void openChosen() {
    const diagrams::Diagram* diagram = legacy::the_diagram;
    if (diagram == nullptr) return;
    const diagrams::OpeningAnswer answer =
        diagrams::opening_answer(*diagram, models::current_fluid());
    if (!answer.text.empty())
        dialogs::tell(answer.text, answer.opens ? "Note" : "Execution not possible");
    if (answer.opens) prepareAndOpen(*diagram);
}

/// The heat of vaporisation by Benson's method needs a reference point, which is asked for first.
void openFromMenu() {
    const diagrams::Diagram* diagram = legacy::the_diagram;
    const bool needsReference = diagram != nullptr &&
                                diagram->subTitle == diagrams::SubTitle::vaporisation &&
                                legacy::the_models.HLVModel == models::VaporisationModel::benson;
    if (!needsReference) return openChosen();
    calculation_views::OpenCalcIn(calculation::Task::vaporisationAtT, true);
}

/// The XY editor's graph gets a diagram of its own, in which nothing is computed.
void openEditorGraph() {
    const datafiles::XYGraph& graph = legacy::the_xyGraph;
    const diagrams::DiagramRequest request = diagrams::request_of_editor_graph(
        {graph.title,
         graph.xTitle,
         graph.yTitle,
         {graph.range.xMin, graph.range.xMax, graph.range.yMin, graph.range.yMax}});
    DiagramWindow::Open({request, diagrams::current_start()}, {});
    DiagramWindow* view = DiagramWindow::current();
    std::vector<float> x, y;
    for (const datafiles::FitPoint& point : graph.points) {
        x.push_back(point.x);
        y.push_back(point.y);
    }
    if (graph.asPoints)
        diagrams::add_editor_points(view->sheet(), x, y, legacy::the_xyComment);
    else
        diagrams::add_editor_curve(view->sheet(), x, y, legacy::the_xyComment);
    view->refresh();
}

void calculateProcess() {
    ProcessLineDialog box(
        {ProcessLineDialog::Purpose::Calculation, diagrams::current_pen(), nullptr,
         diagrams::current_start().at, legacy::the_processLine, legacy::the_session.CsvSeparator},
        [](const diagrams::ProcessLine& line) {
            legacy::the_processLine = line;
            legacy::the_calculationViews.openResultView();
        },
        shell::frameWindow());
    shell::openModal(box);
    legacy::the_processLine.polytropicPoints.clear();
    legacy::the_processLine.fromCalculation = false;
}

void renewLimits() {
    const legacy::Session& session = legacy::the_session;
    session::refresh_units();
    legacy::the_session.CaloricFactor =
        session::caloric_factor_of(session.CaloricUnit, session.DiagramT);
    legacy::the_coordinates = diagrams::coordinate_defaults(
        diagrams::current_basis(), legacy::the_coordinates, session.UnitsChanged);
}

}  // namespace

void openEmpty() {
    const diagrams::DiagramStart start = diagrams::current_start();
    if (legacy::the_diagram == nullptr)
        return DiagramWindow::Open({{}, start}, diagrams::current_pen().basis);
    const diagrams::Basis basis = diagrams::current_basis();
    DiagramWindow::Open(diagrams::prepare_diagram(*legacy::the_diagram, basis, start), basis);
}

void Install() {
    legacy::the_calculationViews.prepareDiagram = openChosen;
    legacy::the_calculationViews.openProcessView = calculateProcess;
    actions::register_action("Diagram2D", openFromMenu);
    actions::register_action("graph_xy", openEditorGraph);
    actions::register_action("CalcCoordinateDefaults", renewLimits);
}

}  // namespace graph2d_views

}  // namespace quor::gui
