#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "common/dialogs.h"
#include "diagrams/catalogue.h"
#include "diagrams/curve.h"
#include "diagrams/project_state.h"
#include "diagrams/sheet_file.h"
#include "diagrams/sheet_points.h"
#include "diagrams/sheet_readout.h"
#include "gui/chart/picture_commands.h"
#include "gui/diagrams/design_panel.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/widgets/theme.h"
#include "legacy/declare.h"
#include "session/actions.h"

// The menus and the tool bar of a diagram, and what leaves it as a picture or a table.

namespace quor::gui {

namespace {

using Module9::DiagramSheet;
using Module9::Mark;

constexpr auto kProcessLine = "mnuAddProcessLine";
constexpr QSize kToolIcon(20, 20);

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

QMenu* addMenu(QWidget* view, QMenuBar* bar, const QString& caption, const QString& name) {
    auto* menu = new QMenu(caption, view);
    menu->setObjectName(name);
    menu->setToolTipsVisible(true);
    bar->addMenu(menu);
    return menu;
}

QMenu* addSubmenu(QMenu* into, const QString& caption, const QString& name) {
    QMenu* menu = into->addMenu(caption);
    menu->setObjectName(name);
    return menu;
}

}  // namespace

QAction* DiagramWindow::command(QMenu* menu, const QString& caption, const QString& name,
                                Command what) {
    auto* action = new QAction(caption, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, [this, what] {
        becomeCurrent();
        what();
    });
    if (menu != nullptr) menu->addAction(action);
    return action;
}

void DiagramWindow::mark(QMenu* menu, const QString& caption, const QString& name, Mark kind,
                         bool (*what)(DiagramSheet&)) {
    QAction* row = command(menu, caption, name, [this, what] {
        what(sheet_);
        refresh();
    });
    marks_.push_back({row, kind});
}

void DiagramWindow::buildMarkMenu() {
    QMenu* menu = addMenu(this, menuBar(), "&Add ...", "mnuMark");
    mark(menu, "V-L coexistence curve (projection)", "mnuMarkKoex", Mark::Coexistence,
         Module9::mark_coexistence);
    marks_.push_back({command(menu, "Line of constant vapour fraction (Isohygric)",
                              "mnuMarkIsohygre", [this] { askIsohygric(); }),
                      Mark::Isohygric});
    mark(menu, "Tie-line Vapour-Liquid", "mnuMarkKonnode", Mark::TieLine, Module9::mark_tie_line);
    mark(menu, "unstable/metastable region", "mnuMarkSKurve", Mark::SCurve, Module9::mark_s_curve);
    mark(menu, "Inversion Curve Joule-Thomson Effect", "mnuMarkInversion", Mark::Inversion,
         Module9::mark_inversion);
    mark(menu, "rho-bisection line (CAILLETET/MATHIAS)", "mnuMarkHalbierende", Mark::Bisection,
         Module9::mark_bisection);
    menu->addSeparator();
    mark(menu, "T Marker", "mnuMarkT", Mark::T, Module9::mark_t_grenzen);
    mark(menu, "p Marker", "mnuMarkP", Mark::p, Module9::mark_pressures);
    mark(menu, "V-Mark (V(cr) calculated)", "mnuMarkV", Mark::v, Module9::mark_volume);
    mark(menu, "Marker v = B", "mnuMarkB", Mark::b, Module9::mark_covolume);
    mark(menu, "Critical point (experimental)", "mnuMarkCritPointEx", Mark::CriticalEx,
         [](DiagramSheet& s) { return Module9::mark_critical_point(s, true); });
    mark(menu, "Critical point (calculated)", "mnuMarkCritPointCalc", Mark::CriticalCalc,
         [](DiagramSheet& s) { return Module9::mark_critical_point(s, false); });
    menu->addSeparator();

    QMenu* lines = addSubmenu(menu, "Process line", kProcessLine);
    const char* const kLines[] = {"Straight line", "Isotherm",    "Isobar",    "Isochore",
                                  "Isentropic",    "Isenthalpic", "Polytropic"};
    for (std::uint8_t kind = 0; kind < std::size(kLines); ++kind)
        command(lines, kLines[kind], QString("%1_%2").arg(kProcessLine).arg(kind),
                [this, kind] { askProcessLine(kind); });
    rules_.emplace_back(lines->menuAction(),
                        [this] { return diagrams::ShowsStates(sheet_.request.DiagramType); });
    menu->addSeparator();

    command(menu, "Experimental points", "mnuAddPunkte", [this] {
        Module9::add_measured_points(sheet_);
        refresh();
    });
    QMenu* editor = addSubmenu(menu, "From the XY editor", "mnuManuXY");
    command(editor, "as points", "cmdManuPoints", [this] {
        Module9::add_editor_points(sheet_);
        refresh();
    });
    command(editor, "as curve", "cmdManuKurve", [this] {
        Module9::add_editor_curve(sheet_);
        refresh();
    });
    menu->addSeparator();
    command(menu, "Legend", "mnuAddLegend", [this] { addLegend(); });
    command(menu, "Curve labels", "mnuAddLabels", [this] {
        for (Module9::CurveLabel& label : sheet_.CurveLabels) label.shown = true;
        sheet_.chart.labelsShown = true;
        refresh();
    });
    command(menu, "Text ...", "mnuAddText", [this] { askText(); });
    rules_.emplace_back(menu->menuAction(), [this] { return !sheet_.SwappedAxes; });
}

void DiagramWindow::buildDeleteMenu() {
    QMenu* menu = addMenu(this, menuBar(), "&Delete", "mnuDel");
    const auto rule = [this](QAction* action, std::function<bool()> when) {
        rules_.emplace_back(action, std::move(when));
    };
    const auto remove = [this](void (*what)(DiagramSheet&)) {
        return [this, what] {
            what(sheet_);
            refresh();
        };
    };
    rule(command(menu, "Undo", "cmdUndo",
                 [this] {
                     Module9::Undo(sheet_);
                     refresh();
                 }),
         [this] { return !sheet_.undo.empty(); });
    auto* undo = findChild<QAction*>("cmdUndo");
    undo->setShortcut(QKeySequence::Undo);
    undo->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    undo->setIcon(theme::icon("undo"));
    addAction(undo);
    menu->addSeparator();
    rule(command(menu, "Everything", "mnuDelTotal", remove(Module9::delete_total)),
         [this] { return Module9::has_anything(sheet_); });

    QMenu* curves = addSubmenu(menu, "Curves", "mnuDelKurv");
    rule(curves->menuAction(), [this] { return sheet_.CurveCount > 0; });
    for (int n = 0; n <= Module9::kMaxCurves; ++n) {
        QAction* row = command(curves, n == 0 ? "All" : QString("Curve %1").arg(n),
                               QString("mnuSubDelKurv_%1").arg(n), [this, n] {
                                   Module9::delete_curve(sheet_, n);
                                   refresh();
                               });
        rule(row,
             [this, n] { return n == 0 ? sheet_.CurveCount > 0 : !sheet_.CurveFree[at(n - 1)]; });
    }
    QMenu* points = addSubmenu(menu, "Experimental points", "mnuDelPoints");
    rule(points->menuAction(), [this] { return sheet_.PointSetCount > 0; });
    for (int n = 0; n <= Module9::kMaxPointSets; ++n) {
        QAction* row = command(points, n == 0 ? "All" : QString("Point Set %1").arg(n),
                               QString("mnuSubDelPoints_%1").arg(n), [this, n] {
                                   Module9::delete_point_set(sheet_, n);
                                   refresh();
                               });
        rule(row, [this, n] {
            return n == 0 ? sheet_.PointSetCount > 0 : !sheet_.PointSetFree[at(n - 1)];
        });
    }
    command(menu, "How to delete a single curve point", "cmdMsgDelPoint",
            Module9::explain_point_deletion);
    menu->addSeparator();
    rule(command(menu, "Markers", "mnuDelMarkTP", remove(Module9::delete_reference_lines)), [this] {
        return Module9::has_reference_lines(sheet_) || Module9::has_marker_labels(sheet_);
    });
    rule(command(menu, "Texts of the markers", "mnuDelMarkLabels",
                 remove(Module9::delete_marker_labels)),
         [this] { return Module9::has_marker_labels(sheet_); });
    rule(command(menu, "Critical point (experimental)", "mnuDelCritPointEx",
                 remove([](DiagramSheet& s) { Module9::delete_critical_point(s, true); })),
         [this] { return Module9::has_critical_point(sheet_, true); });
    rule(command(menu, "Critical point (calculated)", "mnuDelCritPointCalc",
                 remove([](DiagramSheet& s) { Module9::delete_critical_point(s, false); })),
         [this] { return Module9::has_critical_point(sheet_, false); });
    menu->addSeparator();
    rule(command(menu, "Legend", "mnuDelLegend",
                 remove([](DiagramSheet& s) { s.chart.legend.shown = false; })),
         [this] { return sheet_.chart.legend.shown; });
    command(menu, "How to delete a single legend entry", "cmdLegendInfo", Module9::explain_legend);
    rule(command(menu, "Curve labels", "mnuDelLabels", remove(Module9::delete_curve_labels)),
         [this] { return Module9::has_curve_labels(sheet_); });
    rule(command(menu, "Additional texts", "mnuDelTexts", remove(Module9::delete_texts)),
         [this] { return Module9::has_texts(sheet_); });
}

void DiagramWindow::buildDesignMenu() {
    QMenu* menu = addMenu(this, menuBar(), "De&sign", "mnuDesign");
    command(menu, "Curves", "mnuKurvenDesign", [this] { design("curves"); });
    command(menu, "Experimental points", "mnuPunktDesign", [this] { design("points"); });
    command(menu, "Axes", "mnuAxesDesign", [this] { design("axes"); });
    command(menu, "Titles and texts", "mnuTextDesign", [this] { design("texts"); });
    command(menu, "Legend", "mnuLegendDesign", [this] { design("legend"); });
    command(menu, "More", "mnuDesignMore", [this] { design("more"); });
}

void DiagramWindow::buildPictureMenu() {
    QMenu* menu = addMenu(this, menuBar(), "&Picture", "mnuBild");
    command(menu, "... to the Clipboard", "mnuBild_0", [this] { copyPicture(); });
    command(menu, "... Save as Image File (.BMP,.WMF)", "mnuBild_1", [this] { savePicture(); });
    command(menu, "... to the Printer", "mnuBild_2", [this] { printPicture(); });
}

void DiagramWindow::buildFileMenu() {
    QMenu* menu = addMenu(this, menuBar(), "&File", "mnuFile");
    command(menu, "Load a diagram ...", "mnuLoadOC2", [this] { load(); });
    command(menu, "Save the diagram ...", "mnuSaveOC2", [this] { Module9::save_oc2(sheet_); });
    menu->addSeparator();
    const auto hasCurve = [this] { return sheet_.CurveCount > 0; };
    rules_.emplace_back(command(menu, "Save curve as .XY ...", "cmdSaveCurveAsXY",
                                [this] { Module9::save_curve(sheet_, curveInUse()); }),
                        hasCurve);
    rules_.emplace_back(
        command(menu, "Copy points of the curve", "cmdCopyTable", [this] { copyTable(); }),
        hasCurve);
    menu->addSeparator();
    command(menu, "Back to the main menu", "mnuHaupt", [this] { closeView(); });
}

void DiagramWindow::buildToolBar() {
    auto* bar = addToolBar("Diagram");
    bar->setObjectName("Toolbar2D");
    bar->setMovable(false);
    bar->setIconSize(kToolIcon);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto button = [&](const QString& caption, const QString& name, const QString& tip,
                            Command what) {
        QAction* action = command(nullptr, caption, name, std::move(what));
        action->setToolTip(tip);
        bar->addAction(action);
        bar->widgetForAction(action)->setObjectName(name);
        return action;
    };
    const auto unswapped = [this] { return !sheet_.SwappedAxes; };

    QAction* drawing = button("Draw Curve", "cmdDraw", "Draw a curve (Enter)", [this] { draw(); });
    drawing->setIcon(theme::icon("graph2d"));
    const bool computes = diagrams::has_curve(sheet_.request.DiagramType);
    rules_.emplace_back(drawing, [this, computes] { return computes && !sheet_.SwappedAxes; });
    const std::int16_t kind = sheet_.request.sectionKind;
    if (computes && kind != Module9::kProjection && kind != Module9::kDatabase) {
        QAction* input =
            button("Parameter ...", "cmdParameter", "Parameter of the next curve",
                   [this] { sheet_.request.axisPair == "yy" ? askRange() : askParameter(); });
        rules_.emplace_back(input, unswapped);
    }
    parameter_ = new QLabel;
    parameter_->setObjectName("lblParameter");
    parameter_->setContentsMargins(theme::kGap, 0, theme::kGap, 0);
    bar->addWidget(parameter_);
    bar->addSeparator();

    constexpr double kZoomStep = 1.5;
    QAction* zoom = button("Zoom", "cmdZoom", "Zoom; a rectangle drawn by the mouse zooms into it",
                           [this] { canvas_->zoom(kZoomStep); });
    zoom->setIcon(theme::icon("zoom_in"));
    rules_.emplace_back(zoom, unswapped);
    QAction* reset = button("Reset", "cmdZoomReset", "Window before the zoom", [this] {
        canvas_->resetZoom();
        refresh();
    });
    rules_.emplace_back(reset, [this] { return !sheet_.SwappedAxes && canvas_->isZoomed(); });
    QAction* fit = button("Fit", "cmdFit", "Window around all curves (double click)", [this] {
        if (Module9::Fit(sheet_)) canvas_->forgetZoom();
        refresh();
    });
    fit->setIcon(theme::icon("zoom_fit"));
    rules_.emplace_back(fit, [this] {
        return !sheet_.SwappedAxes && (sheet_.CurveCount > 0 || sheet_.PointSetCount > 0);
    });
    rules_.emplace_back(
        button("Coordinates ...", "mnuCoord", "Limits of the axes", [this] { askCoordinates(); }),
        unswapped);
    bar->addSeparator();

    button("x <=> y", "cmdChangeXY", " changing x- and y-axis ", [this] {
        Module9::change_xy(sheet_);
        canvas_->forgetZoom();
        refresh();
    });
    for (const bool xAxis : {true, false}) {
        QAction* log = button(xAxis ? "log x" : "log y", xAxis ? "cmdXLog" : "cmdYLog",
                              xAxis ? "Logarithmic x axis" : "Logarithmic y axis", [] {});
        log->setCheckable(true);
        connect(log, &QAction::triggered, this, [this, xAxis](bool on) {
            Module9::set_logarithmic(sheet_, xAxis, on);
            refresh();
        });
    }
}

void DiagramWindow::followMenus() {
    for (const MarkRow& row : marks_)
        row.action->setEnabled(Module9::offers_mark(sheet_, row.kind));
    for (const auto& [action, when] : rules_) action->setEnabled(when());
    const auto set = [this](const char* name, bool on) {
        if (auto* action = findChild<QAction*>(name)) action->setChecked(on);
    };
    set("cmdXLog", sheet_.chart.x.logarithmic);
    set("cmdYLog", sheet_.chart.y.logarithmic);
    if (auto* swap = findChild<QAction*>("cmdChangeXY"))
        swap->setToolTip(sheet_.SwappedAxes
                             ? "changing of the axis (in the changed state there are restricted "
                               "possibilities for designing)"
                             : " changing x- and y-axis ");
}

// ---------------------------------------------------------------------------- pictures and tables

namespace {

picture_commands::Picture pictureOf(const chart::Chart2D& c) {
    return {chart::paintingOf(c), c.print, QString::fromStdString(c.header.text)};
}

}  // namespace

void DiagramWindow::copyPicture() {
    picture_commands::Copy(pictureOf(sheet_.chart));
}

void DiagramWindow::savePicture() {
    picture_commands::Save(pictureOf(sheet_.chart), legacy::the_session.FolderDiagram2D);
}

void DiagramWindow::printPicture() {
    picture_commands::Print(pictureOf(sheet_.chart));
}

void DiagramWindow::copyTable() {
    const std::string table = Module9::curve_table(sheet_, curveInUse());
    if (!table.empty()) dialogs::set_clipboard(table);
}

}  // namespace quor::gui
