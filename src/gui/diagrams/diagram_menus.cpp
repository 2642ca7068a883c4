#include <QLabel>
#include <QToolBar>

#include "calculation/result_records.h"
#include "common/dialogs.h"
#include "datafiles/xy_points.h"
#include "diagrams/process_line.h"
#include "diagrams/sheet_delete.h"
#include "diagrams/sheet_file.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_points.h"
#include "diagrams/sheet_readout.h"
#include "diagrams/sheet_undo.h"
#include "diagrams/sheet_window.h"
#include "gui/chart/picture_commands.h"
#include "gui/diagrams/design_panel.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/widgets/form.h"
#include "gui/widgets/qt_text.h"
#include "gui/widgets/theme.h"
#include "session/diagram_choice.h"
#include "session/xy_session.h"

// The menus and the tool bar of a diagram, and what enters it from data or leaves it as a picture
// or a table.

namespace quor::gui {

namespace {

using diagrams::DiagramSheet;
using diagrams::Mark;
using diagrams::Pen;

// Rows that the menus which delete have from the start.
constexpr int kCurveRows = 24, kPointRows = 12;

}  // namespace

void DiagramWindow::buildMenus() {
    menus_.addMenu(fileMenu());
    menus_.addMenu(markMenu());
    menus_.addMenu(deleteMenu());
    menus_.addMenu(designMenu());
    menus_.addMenu(pictureMenu());
}

MenuRow DiagramWindow::fileMenu() {
    const auto hasCurve = [this] { return diagrams::curve_count(sheet_) > 0; };
    return {
        .caption = "&File",
        .name = "mnuFile",
        .rows = {
            {.caption = "Load a diagram ...", .name = "mnuLoadOC2", .run = [this] { load(); }},
            {.caption = "Save the diagram ...", .name = "mnuSaveOC2", .run = [this] { save(); }},
            {},
            {.caption = "Save curve as .XY ...",
             .name = "cmdSaveCurveAsXY",
             .run = [this] { saveCurve(); },
             .enabled = hasCurve},
            {.caption = "Copy points of the curve",
             .name = "cmdCopyTable",
             .run = [this] { copyTable(); },
             .enabled = hasCurve},
            {},
            {.caption = "Back to the main menu", .name = "mnuHaupt", .run = [this] {
                 closeView();
             }}}};
}

MenuRow DiagramWindow::mark(const QString& caption, const QString& name, Mark kind, Marking what) {
    return {.caption = caption,
            .name = name,
            .run =
                [this, what] {
                    what(sheet_, session::present_pen(session_));
                    refresh();
                },
            .enabled = [this, kind] { return diagrams::offers_mark(sheet_, kind); }};
}

MenuRow DiagramWindow::markMenu() {
    MenuRow lines{.caption = "Process line", .name = "mnuAddProcessLine", .enabled = [this] {
                      return sheet_.request.diagram != nullptr &&
                             diagrams::shows_states(*sheet_.request.diagram);
                  }};
    const char* const kLines[] = {"Straight line", "Isotherm",    "Isobar",    "Isochore",
                                  "Isentropic",    "Isenthalpic", "Polytropic"};
    for (std::uint8_t i = 0; i < std::size(kLines); ++i)
        lines.rows.push_back(
            {.caption = kLines[i],
             .name = QString("mnuAddProcessLine_%1").arg(i),
             .run = [this, i] { askProcessLine(static_cast<diagrams::ProcessKind>(i)); }});
    const auto showLabels = [this] {
        diagrams::remember(sheet_, "Curve labels");
        diagrams::show_curve_labels(sheet_, true);
        sheet_.chart.labels_shown = true;
        refresh();
    };
    return {.caption = "&Add ...",
            .name = "mnuMark",
            .rows = {mark("V-L coexistence curve (projection)", "mnuMarkKoex", Mark::Coexistence,
                          diagrams::mark_coexistence),
                     {.caption = "Line of constant vapour fraction (Isohygric)",
                      .name = "mnuMarkIsohygre",
                      .run = [this] { askIsohygric(); },
                      .enabled = [this] { return diagrams::offers_mark(sheet_, Mark::Isohygric); }},
                     mark("Tie-line Vapour-Liquid", "mnuMarkKonnode", Mark::TieLine,
                          diagrams::mark_tie_line),
                     mark("unstable/metastable region", "mnuMarkSKurve", Mark::SCurve,
                          diagrams::mark_s_curve),
                     mark("Inversion Curve Joule-Thomson Effect", "mnuMarkInversion",
                          Mark::Inversion, diagrams::mark_inversion),
                     mark("rho-bisection line (CAILLETET/MATHIAS)", "mnuMarkHalbierende",
                          Mark::Bisection, diagrams::mark_bisection),
                     {},
                     mark("T Marker", "mnuMarkT", Mark::T, diagrams::mark_temperatures),
                     mark("p Marker", "mnuMarkP", Mark::p, diagrams::mark_pressures),
                     mark("V-Mark (V(cr) calculated)", "mnuMarkV", Mark::v, diagrams::mark_volume),
                     mark("Marker v = B", "mnuMarkB", Mark::b, diagrams::mark_covolume),
                     mark("Critical point (experimental)", "mnuMarkCritPointEx", Mark::CriticalEx,
                          [](DiagramSheet& s, const Pen& pen) {
                              return diagrams::mark_critical_point(s, pen, true);
                          }),
                     mark("Critical point (calculated)", "mnuMarkCritPointCalc", Mark::CriticalCalc,
                          [](DiagramSheet& s, const Pen& pen) {
                              return diagrams::mark_critical_point(s, pen, false);
                          }),
                     {},
                     lines,
                     {},
                     {.caption = "Experimental points",
                      .name = "mnuAddPunkte",
                      .run = [this] { addMeasuredPoints(); }},
                     {.caption = "From the XY editor",
                      .name = "mnuManuXY",
                      .rows = {{.caption = "as points",
                                .name = "cmdManuPoints",
                                .run = [this] { addEditorPoints(false); }},
                               {.caption = "as curve",
                                .name = "cmdManuKurve",
                                .run = [this] { addEditorPoints(true); }}}},
                     {},
                     {.caption = "Legend", .name = "mnuAddLegend", .run = [this] { addLegend(); }},
                     {.caption = "Curve labels", .name = "mnuAddLabels", .run = showLabels},
                     {.caption = "Text ...", .name = "mnuAddText", .run = [this] { askText(); }}}};
}

MenuRow DiagramWindow::removal(const QString& caption, const QString& name,
                               void (*what)(DiagramSheet&), std::function<bool()> when) {
    return {.caption = caption,
            .name = name,
            .run =
                [this, what] {
                    what(sheet_);
                    refresh();
                },
            .enabled = std::move(when)};
}

MenuRow DiagramWindow::deletionOfCurve(int n) {
    return {.caption = n == 0 ? QString("All") : QString("Curve %1").arg(n),
            .name = QString("mnuSubDelKurv_%1").arg(n),
            .run =
                [this, n] {
                    diagrams::delete_curve(sheet_, n);
                    refresh();
                },
            .enabled =
                [this, n] {
                    return n == 0 ? diagrams::curve_count(sheet_) > 0
                                  : diagrams::is_drawn(sheet_, n - 1);
                }};
}

MenuRow DiagramWindow::deletionOfPoints(int n) {
    return {.caption = n == 0 ? QString("All") : QString("Point Set %1").arg(n),
            .name = QString("mnuSubDelPoints_%1").arg(n),
            .run =
                [this, n] {
                    diagrams::delete_point_set(sheet_, n);
                    refresh();
                },
            .enabled =
                [this, n] {
                    return n == 0 ? diagrams::point_set_count(sheet_) > 0
                                  : diagrams::has_point_set(sheet_, n - 1);
                }};
}

MenuRow DiagramWindow::deleteMenu() {
    MenuRow curves{.caption = "Curves", .name = "mnuDelKurv", .enabled = [this] {
                       return diagrams::curve_count(sheet_) > 0;
                   }};
    MenuRow points{.caption = "Experimental points", .name = "mnuDelPoints", .enabled = [this] {
                       return diagrams::point_set_count(sheet_) > 0;
                   }};
    for (; curveRows_ <= kCurveRows; ++curveRows_)
        curves.rows.push_back(deletionOfCurve(curveRows_));
    for (; pointRows_ <= kPointRows; ++pointRows_)
        points.rows.push_back(deletionOfPoints(pointRows_));
    return {
        .caption = "&Delete",
        .name = "mnuDel",
        .rows = {{.caption = "Undo",
                  .name = "cmdUndo",
                  .run = [this] { undo(); },
                  .enabled = [this] { return !undoName().isEmpty(); },
                  .icon = "undo",
                  .shortcut = QKeySequence::Undo},
                 {.caption = "Redo",
                  .name = "cmdRedo",
                  .run = [this] { redo(); },
                  .enabled = [this] { return !redoName().isEmpty(); },
                  .shortcut = QKeySequence("Ctrl+Shift+Z")},
                 {},
                 removal("Everything", "mnuDelTotal", diagrams::delete_total,
                         [this] { return diagrams::has_anything(sheet_); }),
                 curves,
                 points,
                 {.caption = "How to delete a single curve point",
                  .name = "cmdMsgDelPoint",
                  .run = diagrams::explain_point_deletion},
                 {},
                 removal("Markers", "mnuDelMarkTP", diagrams::delete_reference_lines,
                         [this] {
                             return diagrams::has_reference_lines(sheet_) ||
                                    diagrams::has_marker_labels(sheet_);
                         }),
                 removal("Texts of the markers", "mnuDelMarkLabels", diagrams::delete_marker_labels,
                         [this] { return diagrams::has_marker_labels(sheet_); }),
                 removal(
                     "Critical point (experimental)", "mnuDelCritPointEx",
                     [](DiagramSheet& s) { diagrams::delete_critical_point(s, true); },
                     [this] { return diagrams::has_critical_point(sheet_, true); }),
                 removal(
                     "Critical point (calculated)", "mnuDelCritPointCalc",
                     [](DiagramSheet& s) { diagrams::delete_critical_point(s, false); },
                     [this] { return diagrams::has_critical_point(sheet_, false); }),
                 {},
                 removal("Legend", "mnuDelLegend", diagrams::delete_legend,
                         [this] { return sheet_.chart.legend.shown; }),
                 {.caption = "How to delete a single legend entry",
                  .name = "cmdLegendInfo",
                  .run = diagrams::explain_legend},
                 removal("Curve labels", "mnuDelLabels", diagrams::delete_curve_labels,
                         [this] { return diagrams::has_curve_labels(sheet_); }),
                 removal("Additional texts", "mnuDelTexts", diagrams::delete_texts,
                         [this] { return diagrams::has_texts(sheet_); })}};
}

MenuRow DiagramWindow::designMenu() {
    const auto page = [this](const char* caption, const char* name, const char* shown) {
        return MenuRow{.caption = caption, .name = name, .run = [this, shown] { design(shown); }};
    };
    return {.caption = "De&sign",
            .name = "mnuDesign",
            .rows = {page("Curves", "mnuKurvenDesign", "curves"),
                     page("Experimental points", "mnuPunktDesign", "points"),
                     page("Axes", "mnuAxesDesign", "axes"),
                     page("Titles and texts", "mnuTextDesign", "texts"),
                     page("Legend", "mnuLegendDesign", "legend"),
                     page("More", "mnuDesignMore", "more")}};
}

MenuRow DiagramWindow::pictureMenu() {
    return {.caption = "&Picture",
            .name = "mnuBild",
            .rows = {{.caption = "... to the Clipboard",
                      .name = "mnuBild_0",
                      .run = [this] { copyPicture(); }},
                     {.caption = "... Save as Image File (.BMP,.WMF)",
                      .name = "mnuBild_1",
                      .run = [this] { savePicture(); }},
                     {.caption = "... to the Printer", .name = "mnuBild_2", .run = [this] {
                          printPicture();
                      }}}};
}

std::vector<MenuRow> DiagramWindow::drawButtons() {
    const diagrams::Diagram* diagram = sheet_.request.diagram;
    std::vector<MenuRow> buttons{
        {.caption = "Draw Curve",
         .name = "cmdDraw",
         .run = [this] { draw(); },
         .enabled = [this, diagram] { return diagram != nullptr && hasFluid(); },
         .tip = "Draw a curve (Enter)",
         .icon = "graph2d"}};
    if (diagram == nullptr) return buttons;
    const diagrams::DiagramInput input = diagrams::input_of(*diagram);
    const bool asks =
        input == diagrams::DiagramInput::parameter || input == diagrams::DiagramInput::range;
    if (asks)
        buttons.push_back({.caption = "Parameter ...",
                           .name = "cmdParameter",
                           .run =
                               [this, input] {
                                   input == diagrams::DiagramInput::range ? askRange()
                                                                          : askParameter();
                               },
                           .tip = "Parameter of the next curve"});
    if (desk_.doors.chooseSubstance)
        buttons.push_back({.caption = "Substance ...",
                           .name = "cmdSubstance",
                           .run = [this] { chooseSubstance(); },
                           .enabled = [this] { return !hasFluid(); },
                           .tip = "Chooses the substance that further curves need"});
    return buttons;
}

std::vector<MenuRow> DiagramWindow::windowButtons() {
    constexpr double kZoomStep = 1.5;
    const auto logarithmic = [this](bool xAxis) {
        return MenuRow{
            .caption = xAxis ? "log x" : "log y",
            .name = xAxis ? "cmdXLog" : "cmdYLog",
            .run =
                [this, xAxis] {
                    const chart::Axis& axis = xAxis ? sheet_.chart.x : sheet_.chart.y;
                    diagrams::set_logarithmic(sheet_, xAxis, !axis.logarithmic);
                    refresh();
                },
            .checked = [this,
                        xAxis] { return (xAxis ? sheet_.chart.x : sheet_.chart.y).logarithmic; },
            .tip = xAxis ? "Logarithmic x axis" : "Logarithmic y axis"};
    };
    return {{},
            {.caption = "Zoom",
             .name = "cmdZoom",
             .run = [this] { canvas_->zoom(kZoomStep); },
             .tip = "Zoom; a rectangle drawn by the mouse zooms into it",
             .icon = "zoom_in"},
            {.caption = "Reset",
             .name = "cmdZoomReset",
             .run =
                 [this] {
                     canvas_->resetZoom();
                     refresh();
                 },
             .enabled = [this] { return canvas_->isZoomed(); },
             .tip = "Window before the zoom"},
            {.caption = "Fit",
             .name = "cmdFit",
             .run =
                 [this] {
                     if (diagrams::fit_window(sheet_)) canvas_->forgetZoom();
                     refresh();
                 },
             .enabled =
                 [this] {
                     return diagrams::curve_count(sheet_) > 0 ||
                            diagrams::point_set_count(sheet_) > 0;
                 },
             .tip = "Window around all curves (double click)",
             .icon = "zoom_fit"},
            {.caption = "Coordinates ...",
             .name = "mnuCoord",
             .run = [this] { askCoordinates(); },
             .tip = "Limits of the axes"},
            {},
            {.caption = "x <=> y",
             .name = "cmdChangeXY",
             .run =
                 [this] {
                     diagrams::change_xy(sheet_);
                     canvas_->forgetZoom();
                     refresh();
                 },
             .checked = [this] { return sheet_.chart.swapped; },
             .tip = " changing x- and y-axis "},
            logarithmic(true),
            logarithmic(false)};
}

void DiagramWindow::buildToolBar() {
    QToolBar* bar = menus_.addToolBar("Toolbar2D", drawButtons());
    parameter_ = form::label();
    parameter_->setObjectName("lblParameter");
    parameter_->setContentsMargins(theme::kGap, 0, theme::kGap, 0);
    // The buttons behind it keep their places while it changes.
    parameter_->setMinimumWidth(fontMetrics().horizontalAdvance("p = 100000.000 kPa"));
    bar->addWidget(parameter_);
    for (const MenuRow& button : windowButtons()) menus_.addButton(bar, button);
}

void DiagramWindow::followMenus() {
    for (const int places = static_cast<int>(sheet_.curves.size()); curveRows_ <= places;
         ++curveRows_)
        menus_.addRow("mnuDelKurv", deletionOfCurve(curveRows_));
    for (const int places = static_cast<int>(sheet_.point_sets.size()); pointRows_ <= places;
         ++pointRows_)
        menus_.addRow("mnuDelPoints", deletionOfPoints(pointRows_));
    menus_.follow();
    const auto name = [this](const char* control, const QString& word, const QString& step) {
        if (auto* action = findChild<QAction*>(control))
            action->setText(step.isEmpty() ? word : word + " " + step);
    };
    name("cmdUndo", "Undo", undoName());
    name("cmdRedo", "Redo", redoName());
}

// -------------------------------------------------------------------------------------------- data

void DiagramWindow::addMeasuredPoints() {
    std::vector<diagrams::MeasuredState> states;
    for (const calculation::BatchDataSet& line : session_->measured.points) {
        if (line.skip != 0) continue;
        states.push_back({line.T, line.p, static_cast<double>(line.rhoV),
                          static_cast<double>(line.rhoL), static_cast<double>(line.hLV),
                          static_cast<double>(line.cp)});
    }
    diagrams::add_measured_points(sheet_, session::present_pen(session_), states,
                                  paths::file_title(session_->measured.file));
    refresh();
}

void DiagramWindow::addEditorPoints(bool asCurve) {
    if (!session::enough_active_points(session_->xy.points, !asCurve)) return;
    std::vector<float> x, y;
    for (const datafiles::FitPoint& point : datafiles::active_points(session_->xy.points)) {
        x.push_back(point.x);
        y.push_back(point.y);
    }
    const std::string& comment = session_->xy.comment;
    asCurve ? diagrams::add_editor_curve(sheet_, std::move(x), std::move(y), comment)
            : diagrams::add_editor_points(sheet_, std::move(x), std::move(y), comment);
    refresh();
}

// ---------------------------------------------------------------------------- pictures and tables

namespace {

picture_commands::Picture pictureOf(const chart::Chart2D& c) {
    return {chart::paintingOf(c), c.print, QString::fromStdString(c.header.text)};
}

}  // namespace

void DiagramWindow::copyPicture() {
    picture_commands::copy(pictureOf(sheet_.chart));
}

void DiagramWindow::savePicture() {
    picture_commands::save(pictureOf(sheet_.chart), session_->folder_diagrams);
}

void DiagramWindow::printPicture() {
    picture_commands::print(pictureOf(sheet_.chart), desk_.frameWindow());
}

void DiagramWindow::copyTable() {
    const int place = chooseCurve("Copy points of the curve");
    const std::string table = diagrams::curve_table(sheet_, place);
    if (table.empty()) return;
    dialogs::set_clipboard(table);
    status_->setText("Points copied of " + qt(diagrams::curve_name(sheet_, place)));
}

}  // namespace quor::gui
