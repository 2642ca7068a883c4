#include "gui/diagrams/diagram_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>
#include <algorithm>

#include "chart/chart_file.h"
#include "common/dialogs.h"
#include "datafiles/measured_table.h"
#include "datafiles/xy_file.h"
#include "datafiles/xy_points.h"
#include "diagrams/coordinates.h"
#include "diagrams/parameter_input.h"
#include "diagrams/process_line.h"
#include "diagrams/sheet_delete.h"
#include "diagrams/sheet_file.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_points.h"
#include "diagrams/sheet_readout.h"
#include "diagrams/sheet_undo.h"
#include "diagrams/sheet_units.h"
#include "diagrams/sheet_window.h"
#include "gui/calculation/calculation_views.h"
#include "gui/chart/chart_qt.h"
#include "gui/diagrams/coordinates_dialog.h"
#include "gui/diagrams/curve_parameter_dialog.h"
#include "gui/diagrams/design_panel.h"
#include "gui/diagrams/process_line_dialog.h"
#include "gui/diagrams/range_input.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "session/diagram_choice.h"
#include "session/questions.h"
#include "session/xy_session.h"

namespace quor::gui {

namespace {

constexpr QSize kFirstSize(860, 620);

}  // namespace

DiagramWindow* DiagramWindow::openNew(Desk& desk, const diagrams::PreparedDiagram& prepared,
                                      const diagrams::Basis& basis) {
    const bool others = desk.lastUsed<DiagramWindow>() != nullptr;
    auto* view = new DiagramWindow(desk, prepared, basis);
    view->open(others);
    return view;
}

DiagramWindow::DiagramWindow(Desk& desk, const diagrams::PreparedDiagram& prepared,
                             const diagrams::Basis& basis)
    : ChartWindow(desk, "frmGraph2D", "graph2d"),
      FollowsSession(desk.session()),
      sheet_(diagrams::open_sheet(prepared.request, basis, prepared.start.at)),
      seenUnits_(desk.session()->units) {
    setFocusPolicy(Qt::StrongFocus);
    showCaption();

    canvas_ = new chart::Chart2DWidget(sheet_.chart, this);
    canvas_->setObjectName("chart");
    canvas_->installEventFilter(this);
    setCentralWidget(canvas_);
    panel_ = new DesignPanel(sheet_);
    addDesignPanel(panel_);
    connect(panel_, &DesignPanel::changed, this, [this] {
        const QWidget* control = QApplication::focusWidget();
        rememberDesign(control == nullptr ? QString() : control->objectName());
        refresh();
    });

    fluid_ = form::label();
    fluid_->setObjectName("lblFluid");
    fluid_->setToolTip("Substance and model of the next curve");
    statusBar()->addPermanentWidget(fluid_);
    buildMenus();
    buildToolBar();
    connectCanvas();
    resize(kFirstSize);
    refresh();
    unsaved_ = false;
}

void DiagramWindow::keepChoice() {
    const diagrams::Diagram* own = sheet_.request.diagram;
    const diagrams::Diagram* diagram = own != nullptr ? own : session_->diagram;
    // Every click comes here: who listens is told of real changes only.
    if (diagram == session_->diagram && sheet_.at == session_->diagram_at) return;
    const auto now = session_.change();
    now->diagram = diagram;
    now->diagram_at = sheet_.at;
}

void DiagramWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) return QMainWindow::keyPressEvent(event);
    draw();
}

void DiagramWindow::showCaption(const QString& file) {
    setCaption(qt(diagrams::view_caption(sheet_.request)), file);
}

// ----------------------------------------------------------------------------------------- drawing

void DiagramWindow::draw() {
    becomeCurrent();
    diagrams::draw(sheet_, session::present_pen(session_), session_->process_line);
    if (sheet_.current_place >= 0 && dock_->isVisible()) panel_->showCurve(sheet_.current_place);
    refresh();
}

void DiagramWindow::abortWhenEmpty() {
    if (!diagrams::has_anything(sheet_)) closeView();
}

namespace {

/// The basis of an input in the units of a sheet; nothing, and said, where there is none.
std::optional<diagrams::Basis> basisOfInput(const diagrams::DiagramSheet& sheet,
                                            const session::Session& session) {
    try {
        return diagrams::in_units_of(sheet, session::present_pen(session).basis);
    } catch (const std::exception& fault) {
        dialogs::tell(fault.what(), dialogs::kNotPossible);
        return std::nullopt;
    }
}

}  // namespace

void DiagramWindow::askParameter() {
    becomeCurrent();
    const auto basis = basisOfInput(sheet_, session_);
    if (!basis) return;
    CurveParameterDialog box(sheet_.request.section(), *basis, sheet_.at, desk_.frameWindow());
    if (desk_.openModal(box) != QDialog::Accepted) return abortWhenEmpty();
    sheet_.at = box.parameters();
    session_.change()->diagram_at = sheet_.at;
    if (box.drawNow()) return draw();
    refresh();
}

void DiagramWindow::askRange() {
    becomeCurrent();
    const auto basis = basisOfInput(sheet_, session_);
    if (!basis) return;
    RangeInput box({sheet_.request.section(), *basis, sheet_.at, session_->process_line,
                    session_->coordinates},
                   desk_.frameWindow());
    if (desk_.openModal(box) != QDialog::Accepted) return abortWhenEmpty();
    sheet_.at = box.range().at;
    {
        const auto now = session_.change();
        now->process_line = box.range().line;
        now->diagram_at = sheet_.at;
    }
    draw();
}

void DiagramWindow::askIsohygric() {
    const diagrams::Pen pen = session::present_pen(session_);
    if (!diagrams::may_mark_isohygric(pen)) return;
    RangeInput box(desk_.frameWindow());
    if (desk_.openModal(box) != QDialog::Accepted) return;
    diagrams::mark_isohygric(sheet_, pen, box.vapourFraction());
    refresh();
}

void DiagramWindow::askProcessLine(diagrams::ProcessKind kind) {
    session_.change()->process_line.kind = kind;
    diagrams::Pen pen = session::present_pen(session_);
    if (const auto basis = basisOfInput(sheet_, session_)) pen.basis = *basis;
    ProcessLineDialog box(
        {ProcessLineDialog::Purpose::Line, pen, sheet_.request.diagram, sheet_.at,
         session_->process_line, session_->csv_separator, session_.places(),
         diagrams::quantity_of(sheet_, !sheet_.chart.swapped),
         diagrams::quantity_of(sheet_, sheet_.chart.swapped)},
        [this](const diagrams::ProcessLine& line) { drawProcessLine(line); }, desk_.frameWindow());
    desk_.openModal(box);
}

void DiagramWindow::drawProcessLine(const diagrams::ProcessLine& line) {
    const diagrams::DrawOutcome outcome =
        diagrams::draw_process_line(sheet_, session::present_pen(session_), line);
    {
        const auto now = session_.change();
        now->process_line = line;
        // The answer of the polytropic program belongs to this line alone.
        now->process_line.polytropic_points.clear();
        if (outcome.last) now->process_line.last = *outcome.last;
    }
    if (outcome.place >= 0) {
        const diagrams::Upright upright(sheet_);
        const auto& curve = sheet_.chart.curves[static_cast<std::size_t>(outcome.place)];
        const std::string note =
            diagrams::one_point_note(*sheet_.request.diagram, curve.x, curve.y);
        if (!note.empty()) dialogs::tell(note, "Note");
    }
    const bool isoline =
        line.kind == diagrams::ProcessKind::polytropic && line.polytropic_points.empty();
    if (outcome.place >= 0 && isoline &&
        std::exchange(session_.change()->isoline_note_pending, false))
        dialogs::tell(
            "The program for polytropic processes is not there:\n"
            "the line p v^n = const of the real gas is drawn\nby the equation of state instead.",
            "Note", dialogs::Icon::Information);
    refresh();
}

void DiagramWindow::askCoordinates() {
    CoordinatesDialog box(sheet_, desk_.frameWindow());
    if (desk_.openModal(box) != QDialog::Accepted) return;
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
    if (!mayLeave()) return;
    const bool withNote = std::exchange(session_.change()->diagram_note_pending, false);
    take(diagrams::load_oc2(sheet_, session_->folder_diagrams, withNote));
}

void DiagramWindow::load(const std::string& file) {
    becomeCurrent();
    if (mayLeave()) take(diagrams::load_oc2(sheet_, file));
}

void DiagramWindow::take(const diagrams::LoadAnswer& answer) {
    session_.change()->folder_diagrams = answer.folder;
    switch (answer.outcome) {
        case diagrams::LoadOutcome::Loaded:
            break;
        case diagrams::LoadOutcome::Failed:
            unsaved_ = false;  // it was asked about before
            return closeView();
        case diagrams::LoadOutcome::Cancelled:
            return refresh();
    }
    showCaption(qt(paths::file_title(sheet_.loaded_file)));
    canvas_->forgetZoom();
    refresh();
    unsaved_ = false;
}

// A diagram from a file may be shown before there is a substance; its curves to come need one.
void DiagramWindow::chooseSubstance() {
    becomeCurrent();
    desk_.doors.chooseSubstance(diagrams::named_substance(sheet_.chart));
    if (!hasFluid()) return;
    try {
        if (const diagrams::Diagram* diagram = sheet_.request.diagram)
            sheet_.at = diagrams::prepare_diagram(*diagram, session::present_basis(session_),
                                                  session::present_start(session_))
                            .start.at;
    } catch (const std::exception&) {
        // Without parameters of its own the sheet keeps those that it has: drawing tells the rest.
    }
    refresh();
}

bool DiagramWindow::hasFluid() const {
    return session::present_pen(session_).has_fluid();
}

bool DiagramWindow::save() {
    const models::SubstanceRecord* substance = diagrams::first_substance(sheet_);
    const std::string proposed = diagrams::proposed_file(
        sheet_, substance == nullptr ? "" : session::short_name(session_, *substance));
    const auto path = diagrams::save_oc2(sheet_, session_->folder_diagrams, proposed);
    if (!path) return false;
    session_.change()->folder_diagrams = paths::folder_of(*path);
    unsaved_ = false;
    return true;
}

bool DiagramWindow::mayLeave() {
    const bool content = diagrams::curve_count(sheet_) > 0 || diagrams::point_set_count(sheet_) > 0;
    return !unsaved_ || !content || session::may_leave_unsaved([this] { return save(); });
}

void DiagramWindow::closeEvent(QCloseEvent* event) {
    if (!mayLeave()) {
        event->ignore();
        return;
    }
    ChartWindow::closeEvent(event);
}

int DiagramWindow::chooseCurve(const QString& title) {
    QStringList names;
    std::vector<int> places;
    for (int place = 0; place < static_cast<int>(sheet_.curves.size()); ++place) {
        if (!diagrams::is_drawn(sheet_, place)) continue;
        names << QString("%1: %2").arg(place + 1).arg(qt(diagrams::curve_name(sheet_, place)));
        places.push_back(place);
    }
    if (places.size() < 2) return places.empty() ? -1 : places.front();
    QInputDialog box(desk_.frameWindow());
    box.setObjectName("frmChooseCurve");
    box.setWindowTitle(title);
    box.setLabelText("Curve:");
    box.setComboBoxItems(names);
    const auto used = std::find(places.begin(), places.end(), curveInUse());
    if (used != places.end())
        box.setTextValue(names[static_cast<qsizetype>(used - places.begin())]);
    if (desk_.openModal(box) != QDialog::Accepted) return -1;
    const qsizetype chosen = names.indexOf(box.textValue());
    return chosen < 0 ? -1 : places[static_cast<std::size_t>(chosen)];
}

void DiagramWindow::saveCurve() {
    std::vector<datafiles::FitPoint> points;
    const int place = chooseCurve("Save curve as .XY");
    for (const diagrams::CurvePoint& point : diagrams::shown_points(sheet_, place))
        points.push_back({point.x, point.y, 0});
    if (!points.empty()) session::save_curve_as_xy(session_, points);
}

// ------------------------------------------------------------------------------------------ design

void DiagramWindow::refresh() {
    if (diagrams::differs(shown_, sheet_)) unsaved_ = true;
    paintSheet();
    panel_->follow();
    followSession();
    followMenus();
}

void DiagramWindow::followUnits() {
    if (session_->units == seenUnits_) return;
    seenUnits_ = session_->units;
    const Result<void> changed =
        diagrams::change_units(sheet_, session::unit_choice(session_.state()), canvas_->unzoomed());
    if (!changed) {
        status_->setText(qt(changed.reason()));
        return;
    }
    showCaption(qt(paths::file_title(sheet_.loaded_file)));
    // The same content in other units is no change that has to be saved.
    paintSheet();
    panel_->follow();
}

void DiagramWindow::followSession() {
    followUnits();
    const diagrams::Pen pen = session::present_pen(session_);
    const diagrams::Diagram* diagram = sheet_.request.diagram;
    const std::string fluid = diagrams::fluid_text(diagram, pen);
    fluid_->setText(diagram == nullptr ? QString()
                    : fluid.empty()    ? QString("no substance")
                                       : qt(fluid));
    QString parameter;
    try {
        parameter = qt(diagrams::shown_parameter(
            sheet_.request.section(), diagrams::in_units_of(sheet_, pen.basis).units, sheet_.at));
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
    if (other && !sheet_.undo.empty()) sheet_.undo.back().is_design = false;
    diagrams::follow_colours(sheet_, shown_.chart);
    diagrams::remember_design(sheet_, shown_, "Design");
}

QString DiagramWindow::undoName() const {
    return sheet_.undo.empty() ? QString() : qt(sheet_.undo.back().name);
}

QString DiagramWindow::redoName() const {
    return sheet_.redo.empty() ? QString() : qt(sheet_.redo.back().name);
}

void DiagramWindow::undo() {
    diagrams::undo(sheet_);
    refresh();
}

void DiagramWindow::redo() {
    diagrams::redo(sheet_);
    refresh();
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
    if (diagrams::is_drawn(sheet_, sheet_.current_place)) return sheet_.current_place;
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
    status_->setText(qt(diagrams::window_text(text, sheet_.units) + diagrams::hint(under)));
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

namespace diagram_views {

namespace {

void openInput(DiagramWindow& view, const diagrams::Diagram& diagram) {
    switch (diagrams::input_of(diagram)) {
        case diagrams::DiagramInput::parameter:
            return view.askParameter();
        case diagrams::DiagramInput::range:
            return view.askRange();
        case diagrams::DiagramInput::validity:
            return view.draw();
        case diagrams::DiagramInput::none:
            return;
    }
}

void prepareAndOpen(Desk& desk, const diagrams::Diagram& diagram) {
    session::Session& session = desk.session();
    try {
        const diagrams::Basis basis = session::present_basis(session);
        const diagrams::PreparedDiagram prepared =
            diagrams::prepare_diagram(diagram, basis, session::present_start(session));
        session::keep_start(session, prepared.start);
        openInput(*DiagramWindow::openNew(desk, prepared, basis), diagram);
    } catch (const std::exception&) {
        dialogs::tell(
            "The registration of the 2D graph module \\...\\olch8x2.ocx during the installation "
            "process failed.\nPlease carry out the registration manually (c.f. our website)",
            dialogs::kNotPossible);
    }
}

/// Says what has to be said of the diagram that was chosen, and opens it unless that was a refusal.
void openChosen(Desk& desk) {
    const session::Session& session = desk.session();
    const diagrams::Diagram* diagram = session->diagram;
    if (diagram == nullptr) return;
    const diagrams::OpeningAnswer answer = diagrams::opening_answer(*diagram, session.fluid());
    if (!answer.text.empty())
        dialogs::tell(answer.text, answer.opens ? "Note" : dialogs::kNotPossible);
    if (answer.opens) prepareAndOpen(desk, *diagram);
}

/// Points of an editor get a diagram of their own, in which nothing is computed.
void openGraph(Desk& desk, const datafiles::XyGraph& graph, const std::string& comment) {
    const session::Session& session = desk.session();
    const diagrams::DiagramRequest request = diagrams::request_of_editor_graph(
        {graph.title,
         graph.x_title,
         graph.y_title,
         {graph.range.x_min, graph.range.x_max, graph.range.y_min, graph.range.y_max}});
    DiagramWindow* view =
        DiagramWindow::openNew(desk, {request, session::present_start(session)}, {});
    std::vector<float> x, y;
    for (const datafiles::FitPoint& point : graph.points) {
        x.push_back(point.x);
        y.push_back(point.y);
    }
    if (graph.as_points)
        diagrams::add_editor_points(view->sheet(), x, y, comment);
    else
        diagrams::add_editor_curve(view->sheet(), x, y, comment);
    view->refresh();
}

void openMeasuredGraph(Desk& desk, const Result<datafiles::XyGraph>& graph) {
    if (graph) return openGraph(desk, *graph, desk.session()->measured.comment);
    dialogs::tell(graph.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
}

void calculateProcess(Desk& desk) {
    session::Session& session = desk.session();
    ProcessLineDialog box(
        {ProcessLineDialog::Purpose::Calculation, session::present_pen(session), nullptr,
         session->diagram_at, session->process_line, session->csv_separator, session.places()},
        [&desk](const diagrams::ProcessLine& line) {
            desk.session().change()->process_line = line;
            desk.calculationViews.open_result_view();
        },
        desk.frameWindow());
    desk.openModal(box);
    const auto now = session.change();
    now->process_line.polytropic_points.clear();
    now->process_line.from_calculation = false;
}

}  // namespace

/// The heat of vaporisation by Benson's method needs a reference point, which is asked for first.
void openFromMenu(Desk& desk) {
    const session::Session& session = desk.session();
    const diagrams::Diagram* diagram = session->diagram;
    const bool needsReference = diagram != nullptr &&
                                diagram->sub_title == diagrams::SubTitle::vaporisation &&
                                session->models.vaporisation == models::VaporisationModel::benson;
    if (!needsReference) return openChosen(desk);
    calculation_views::openPartialChoice(desk, calculation::Task::vaporisationAtT, true);
}

void openSaved(Desk& desk, const std::string& file) {
    const session::Session& session = desk.session();
    chart::Chart2D chart;
    if (const Result<void> read = chart::load_chart(file, chart); !read) {
        dialogs::tell(read.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return;
    }
    diagrams::DiagramRequest request;
    diagrams::Basis basis;
    if (const auto known =
            diagrams::diagram_by_texts(chart.header.text, chart.x.title, chart.y.title)) {
        request.diagram = known->diagram;
        request.texts.title = chart.header.text;
        basis.units.choice = known->units;
    }
    DiagramWindow::openNew(desk, {request, session::present_start(session)}, basis)->load(file);
}

void install(Desk& desk) {
    desk.calculationViews.prepare_diagram = [&desk] { openChosen(desk); };
    desk.calculationViews.open_process_view = [&desk] { calculateProcess(desk); };
    desk.doors.drawXy = [&desk] {
        openGraph(desk, desk.session()->xy_graph, desk.session()->xy.comment);
    };
    desk.doors.drawMeasured = [&desk] {
        const session::Session& session = desk.session();
        openMeasuredGraph(desk, datafiles::measured_graph(session->measured, session->fit_column));
    };
    desk.doors.drawMeasuredLn = [&desk] {
        openMeasuredGraph(desk, datafiles::measured_graph_ln(desk.session()->measured));
    };
}

}  // namespace diagram_views

}  // namespace quor::gui
