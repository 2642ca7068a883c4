#include <QClipboard>
#include <QDockWidget>
#include <QFile>
#include <QInputDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QTabBar>
#include <QToolBar>
#include <QWheelEvent>

#include "chart/chart_file.h"
#include "common/numbers.h"
#include "diagrams/sheet_delete.h"
#include "diagrams/sheet_labels.h"
#include "gui/chart/chart2d_widget.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/graph_test.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::offers;
using drive::read;
using drive::type;
using drive::when;

class Graph2D : public GraphTest {
  protected:
    QString path(const char* name) const {
        return QString::fromStdString((folder() / name).string());
    }
    void answerFile(const QString& name) { user.fileAnswers.push_back(name.toStdString()); }

    /// Pixel of a place given as fractions of the plot area, (0, 0) at its left top.
    QPoint plotPixel(double fx, double fy) const {
        const chart::SheetRect& plot = canvas()->sheet().plot;
        return {static_cast<int>(plot.left + fx * plot.width),
                static_cast<int>(plot.top + fy * plot.height)};
    }
    QPoint curvePixel(int slot, std::size_t point) const {
        const chart::SheetScale scale(sheet().chart, canvas()->sheet().plot);
        const chart::Series& s = curve(slot);
        return {static_cast<int>(std::lround(scale.x(static_cast<double>(s.x.at(point))))),
                static_cast<int>(std::lround(scale.y(static_cast<double>(s.y.at(point)))))};
    }
    void repaint() const {
        canvas()->refresh();
        drive::settle();
    }
};

TEST_F(Graph2D, OpensByTheMenuAndDrawsTheCurveOfTheParameter) {
    openIsotherm("300");
    ASSERT_NE(window(), nullptr);
    EXPECT_EQ(read("frmGraph2D"), " Type of Diagram: Isothermal section p - v");
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
    EXPECT_EQ(session->diagram_at.T, 300);
    EXPECT_EQ(read("lblParameter"), "T = 300.0 K");
    EXPECT_EQ(curve(0).legend, "(300.0 K ) ");
}

TEST_F(Graph2D, AsksAgainForAnInvalidParameter) {
    when("frmTpVSInputBox", [] {
        EXPECT_EQ(read("frmTpVSInputBox"), "Parameter Input");
        type("rText", "0.5");
        click("cmdOKAndDraw");
        EXPECT_EQ(read("lblTextHinweis"), "this input not within valid range!");
        type("rText", "310");
        click("cmdOK");
    });
    choose("mnuGraf_sub_cut_1");
    EXPECT_EQ(diagrams::curve_count(sheet()), 0);
    EXPECT_EQ(session->diagram_at.T, 310);
    click("cmdDraw");
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
}

TEST_F(Graph2D, ClosesTheEmptyDiagramOnAbort) {
    when("frmTpVSInputBox", [] { click("cmdAbbrechen"); });
    choose("mnuGraf_sub_cut_1");
    EXPECT_EQ(window(), nullptr);
    openIsotherm();
    when("frmTpVSInputBox", [] { click("cmdAbbrechen"); });
    click("cmdParameter");
    EXPECT_NE(window(), nullptr);
}

TEST_F(Graph2D, OpensEveryRowOfTheMenuAndDraws) {
    for (const menu::Row& row : menu::rows()) {
        if (row.action != "Diagram2D") continue;
        const QString name = QString::fromStdString(menu::object_name(row));
        if (!offers(name)) {
            ADD_FAILURE() << name.toStdString() << " is disabled";
            continue;
        }
        const diagrams::DiagramInput input = diagrams::input_of(diagrams::diagram_of(row.code));
        const bool asksRange = input == diagrams::DiagramInput::range;
        const bool asks = asksRange || input == diagrams::DiagramInput::parameter;
        if (asks && !asksRange) when("frmTpVSInputBox", [] { click("cmdOKAndDraw"); });
        if (asksRange) when("frmInputProzessLinien", [] { click("cmdDraw"); });
        const std::size_t messages = user.messages.size();
        choose(name);
        if (user.messages.size() > messages && window() == nullptr) {
            // The substance has no data for this function of the database.
            EXPECT_EQ(input, diagrams::DiagramInput::validity)
                << name.toStdString() << user.lastText();
            continue;
        }
        ASSERT_NE(window(), nullptr) << name.toStdString();
        if (input == diagrams::DiagramInput::none) click("cmdDraw");
        EXPECT_GE(diagrams::curve_count(sheet()), 1)
            << name.toStdString() << ": " << user.lastText();
        choose("mnuHaupt");
        drive::settle();
        EXPECT_EQ(window(), nullptr);
    }
}

TEST_F(Graph2D, StaysWithItsSurfacesWhenTheUnitsChange) {
    openIsotherm();
    openIsotherm("320");
    choose("mnu3DSub_5");
    ASSERT_NE(drive::find("frmGraph3D"), nullptr);
    when("frmOptions", [] {
        click("optMolarSpez_1");
        click("cmdClose");
    });
    choose("mnuOptions");
    EXPECT_NE(window(), nullptr) << "a cancel changes nothing";
    when("frmOptions", [] {
        click("optMolarSpez_1");
        click("cmdOK");
    });
    choose("mnuOptions");
    drive::settle();
    ASSERT_NE(window(), nullptr);
    EXPECT_EQ(diagrams::curve_count(window()->sheet()), 1);
    EXPECT_NE(drive::find("frmGraph3D"), nullptr);
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::specific);
}

TEST_F(Graph2D, DrawsATwentyFifthCurveThatCanBeDeletedAgain) {
    openIsotherm();
    for (int i = 1; i < 24; ++i) click("cmdDraw");
    EXPECT_EQ(diagrams::curve_count(sheet()), 24);
    user.messages.clear();
    click("cmdDraw");
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(diagrams::curve_count(sheet()), 25);
    EXPECT_TRUE(offers("mnuSubDelKurv_25"));
    choose("mnuSubDelKurv_25");
    EXPECT_EQ(diagrams::curve_count(sheet()), 24);
    EXPECT_FALSE(offers("mnuSubDelKurv_25"));
}

TEST_F(Graph2D, GivesTheSlotOfADeletedCurveToTheNext) {
    openIsotherm("300");
    for (const char* T : {"310", "320", "330", "340"}) drawAt(T);
    EXPECT_EQ(diagrams::curve_count(sheet()), 5);
    choose("mnuSubDelKurv_3");
    EXPECT_EQ(diagrams::curve_count(sheet()), 4);
    EXPECT_FALSE(offers("mnuSubDelKurv_3"));
    EXPECT_TRUE(offers("mnuSubDelKurv_4"));
    drawAt("350");
    EXPECT_EQ(curve(2).legend, "(350.0 K ) ");
    choose("mnuSubDelKurv_0");
    EXPECT_EQ(diagrams::curve_count(sheet()), 0);
    EXPECT_FALSE(offers("mnuDelTotal"));
}

TEST_F(Graph2D, TakesBackByCtrlZ) {
    openIsotherm("300");
    drawAt("320");
    choose("mnuSubDelKurv_1");
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
    choose("cmdUndo");
    EXPECT_EQ(diagrams::curve_count(sheet()), 2);
    EXPECT_EQ(curve(0).legend, "(300.0 K ) ");
    choose("cmdUndo");
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
    choose("cmdRedo");
    EXPECT_EQ(diagrams::curve_count(sheet()), 2);
    EXPECT_EQ(drive::action("cmdRedo")->shortcut(), QKeySequence("Ctrl+Shift+Z"));
    EXPECT_EQ(drive::action("cmdUndo")->shortcut(), QKeySequence(QKeySequence::Undo));
}

TEST_F(Graph2D, TakesBackAStyleOfTheDesignPanel) {
    openIsotherm("300");
    choose("mnuKurvenDesign");
    const chart::LinePattern before = curve(0).line.pattern;
    drive::select("cmbKStil", "Curve dotted");
    ASSERT_NE(curve(0).line.pattern, before);
    EXPECT_EQ(drive::action("cmdUndo")->text(), "Undo Design");
    choose("cmdUndo");
    EXPECT_EQ(curve(0).line.pattern, before);
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
    choose("cmdRedo");
    EXPECT_NE(curve(0).line.pattern, before);
}

TEST_F(Graph2D, NamesItsStepsInTheEditMenuOfTheFrame) {
    openIsotherm("300");
    choose("mnuKurvenDesign");
    const chart::LinePattern before = curve(0).line.pattern;
    drive::select("cmbKStil", "Curve dotted");
    drive::open("mnuEdit_Undo");
    EXPECT_EQ(drive::action("mnuEdit_Undo")->text(), "&Undo Design\tCtrl+Z");
    EXPECT_FALSE(offers("mnuEdit_Redo"));
    choose("mnuEdit_Undo");
    EXPECT_EQ(curve(0).line.pattern, before);
    drive::open("mnuEdit_Undo");
    EXPECT_EQ(drive::action("mnuEdit_Undo")->text(), "&Undo Draw curve\tCtrl+Z");
    EXPECT_EQ(drive::action("mnuEdit_Redo")->text(), "&Redo Design\tCtrl+Shift+Z");
    choose("mnuEdit_Redo");
    EXPECT_NE(curve(0).line.pattern, before);
    choose("mnuEdit_Undo");
    choose("mnuEdit_Undo");
    EXPECT_EQ(diagrams::curve_count(sheet()), 0);
    EXPECT_FALSE(offers("mnuEdit_Undo"));
}

TEST_F(Graph2D, ShowsTheLegendAndLeadsToTheDesignWithoutTexts) {
    openIsotherm();
    choose("mnuAddLegend");
    EXPECT_TRUE(sheet().chart.legend.shown);
    choose("mnuDelLegend");
    EXPECT_FALSE(sheet().chart.legend.shown);
    choose("mnuKurvenDesign");
    type("txtLegend", "");
    choose("mnuAddLegend");
    EXPECT_EQ(user.lastText(), "No legend texts given\n=> Designing curve");
    EXPECT_FALSE(sheet().chart.legend.shown);
    EXPECT_TRUE(drive::isVisible("tabKurven"));
    choose("cmdLegendInfo");
    EXPECT_EQ(user.lastTitle(), "How to delete a single legend entry");
    choose("cmdMsgDelPoint");
    EXPECT_EQ(user.lastTitle(), "How to delete a single curve point");
}

TEST_F(Graph2D, DesignsACurveAtOnce) {
    openIsotherm();
    drawAt("320");
    choose("mnuKurvenDesign");
    auto* tabs = drive::get<QTabBar>("tabKurven");
    EXPECT_TRUE(tabs->isTabVisible(1));
    EXPECT_FALSE(tabs->isTabVisible(2));
    EXPECT_EQ(tabs->tabText(0), "C. 1");
    tabs->setCurrentIndex(0);
    type("txtLegend", "first");
    EXPECT_EQ(curve(0).legend, "first");
    drive::select("cmbKStil", "Curve dashed");
    EXPECT_EQ(curve(0).line.pattern, chart::LinePattern::Dashed);
    drive::get<QDoubleSpinBox>("UpDown1_KBreite")->setValue(3);
    EXPECT_EQ(curve(0).line.width, 3);
    click("chkLegend1");
    EXPECT_FALSE(curve(0).in_legend);
    when("ColourDialog", [] {
        auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        dialog->setCurrentColor(QColor(1, 2, 3));
        dialog->accept();
    });
    click("cmdKurvenFarbe");
    EXPECT_EQ(curve(0).line.colour, chart::rgb(0x010203));
    type("txtLabel", "here");
    EXPECT_EQ(sheet().chart.curves[0].label.text, "here");
    EXPECT_EQ(curve(1).legend, "(320.0 K ) ");
}

TEST_F(Graph2D, AddsMarksAndDeletesThem) {
    openIsotherm();
    choose("mnuMarkKoex");
    EXPECT_EQ(diagrams::curve_count(sheet()), 3);
    choose("mnuMarkKonnode");
    EXPECT_EQ(curve(3).legend, "Tie-Line V-L ");
    choose("mnuMarkP");
    EXPECT_TRUE(offers("mnuDelMarkTP"));
    choose("mnuDelMarkTP");
    choose("mnuDelMarkLabels");
    EXPECT_FALSE(offers("mnuDelMarkTP"));
    choose("mnuMarkCritPointCalc");
    choose("mnuMarkCritPointEx");
    EXPECT_TRUE(offers("mnuDelCritPointEx"));
    choose("mnuDelCritPointEx");
    EXPECT_FALSE(offers("mnuDelCritPointEx"));
    EXPECT_TRUE(offers("mnuDelCritPointCalc"));
    EXPECT_FALSE(offers("mnuMarkHalbierende"));
    EXPECT_FALSE(offers("mnuMarkT"));
    choose("mnuMarkV");
    choose("mnuMarkB");
    choose("mnuDelTotal");
    EXPECT_EQ(diagrams::curve_count(sheet()), 0);
    EXPECT_TRUE(sheet().chart.labels.empty());
}

TEST_F(Graph2D, RefusesTieLineAndMetastableBranchAboveTheCriticalPoint) {
    openIsotherm("400");
    for (const char* row : {"mnuMarkKonnode", "mnuMarkSKurve"}) {
        user.messages.clear();
        choose(row);
        EXPECT_EQ(user.lastText(), "only possible in the 2-phase region V-L  (T<T(cr))") << row;
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
        EXPECT_EQ(diagrams::curve_count(sheet()), 1);
    }
}

TEST_F(Graph2D, DrawsAnIsohygric) {
    openIsotherm();
    when("frmInputProzessLinien", [] {
        EXPECT_EQ(read("frmInputProzessLinien"), "Adding a Line of Const. Vapour Fraction y(V)");
        type("par_0", "1.5");
        click("cmdDraw");
        EXPECT_EQ(read("lblTextHinweis"), "Input not in the valid range");
        type("par_0", "0.25");
        click("cmdDraw");
    });
    choose("mnuMarkIsohygre");
    EXPECT_EQ(diagrams::curve_count(sheet()), 2);
    EXPECT_EQ(curve(1).legend, "VLE  y(V) = 0.25");
}

TEST_F(Graph2D, ChangesTheCoordinatesAndRefusesCrossedOnes) {
    openIsotherm();
    when("fraCoord", [this] {
        type("coord_0", "2");
        type("coord_1", "1");
        click("cmdCoord_OK");
        EXPECT_EQ(user.lastText(), "Lower limit has to smaller than upper limit.");
        EXPECT_EQ(user.lastTitle(), "INPUT ERROR");
        type("coord_0", "0,1");
        type("coord_1", "3");
        type("coord_2", "10");
        type("coord_3", "5000");
        click("cmdCoord_OK");
    });
    click("mnuCoord");
    EXPECT_FLOAT_EQ(sheet().request.window.x_min, 0.1F);
    EXPECT_EQ(sheet().request.window.x_max, 3);
    EXPECT_EQ(sheet().chart.y.max, 5000);
}

TEST_F(Graph2D, ZoomsByRectangleAndWheelAndResets) {
    openIsotherm();
    repaint();
    const chart::Window before = chart::shown_window(sheet().chart);
    EXPECT_FALSE(drive::isEnabled("cmdZoomReset"));
    QTest::mousePress(surface(), Qt::LeftButton, {}, plotPixel(0.25, 0.6));
    QTest::mouseMove(surface(), plotPixel(0.5, 0.8));
    QTest::mouseRelease(surface(), Qt::LeftButton, {}, plotPixel(0.75, 0.9));
    repaint();
    const chart::Window zoomed = chart::shown_window(sheet().chart);
    const double width = before.x.max - before.x.min;
    EXPECT_NEAR(zoomed.x.min, before.x.min + 0.25 * width, 0.01 * width);
    EXPECT_NEAR(zoomed.x.max, before.x.min + 0.75 * width, 0.01 * width);
    EXPECT_LT(zoomed.y.max, before.y.max);

    const QPointF middle = plotPixel(0.5, 0.5);
    QWheelEvent wheel(middle, canvas()->mapToGlobal(middle), {}, QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(surface(), &wheel);
    const chart::Window closer = chart::shown_window(sheet().chart);
    EXPECT_LT(closer.x.max - closer.x.min, 0.95 * (zoomed.x.max - zoomed.x.min));

    click("cmdZoomReset");
    EXPECT_TRUE(chart::shown_window(sheet().chart) == before);
    EXPECT_FALSE(drive::isEnabled("cmdZoomReset"));
}

TEST_F(Graph2D, PansByTheMiddleButtonAndFitsByDoubleClick) {
    openIsotherm();
    repaint();
    const chart::Window before = chart::shown_window(sheet().chart);
    QTest::mousePress(surface(), Qt::MiddleButton, {}, plotPixel(0.5, 0.5));
    QTest::mouseMove(surface(), plotPixel(0.4, 0.5));
    QTest::mouseRelease(surface(), Qt::MiddleButton, {}, plotPixel(0.4, 0.5));
    repaint();
    const chart::Window moved = chart::shown_window(sheet().chart);
    const double width = before.x.max - before.x.min;
    EXPECT_NEAR(moved.x.min - before.x.min, 0.1 * width, 0.01 * width);
    EXPECT_NEAR(moved.x.max - moved.x.min, width, 1e-6 * width);
    QTest::mouseDClick(surface(), Qt::LeftButton, {}, plotPixel(0.9, 0.05));
    const chart::Window fitted = chart::shown_window(sheet().chart);
    const std::optional<chart::Window> data = chart::data_extent(sheet().chart);
    EXPECT_LE(fitted.y.min, data->y.min);
    EXPECT_GE(fitted.y.max, data->y.max);
}

TEST_F(Graph2D, ReadsOutTheNearestPointWithItsParameter) {
    openIsotherm("400");
    repaint();
    QTest::mouseMove(surface(), curvePixel(0, curve(0).x.size() / 2));
    drive::settle();
    EXPECT_TRUE(read("lblReadout").contains(" X= ")) << read("lblReadout").toStdString();
    EXPECT_TRUE(read("lblReadout").contains("  T/K = 400"));
    EXPECT_TRUE(read("lblReadout").contains("  Right-click =>"));
    QTest::mouseMove(surface(), plotPixel(0.9, 0.05));
    drive::settle();
    EXPECT_TRUE(read("lblReadout").contains("X = "));
}

TEST_F(Graph2D, OpensTheDesignOfWhatIsUnderThePointer) {
    openIsotherm("400");
    drawAt("450");
    repaint();
    QTest::mouseClick(surface(), Qt::RightButton, {}, curvePixel(1, curve(1).x.size() / 2));
    drive::settle();
    EXPECT_EQ(drive::get<QTabBar>("tabKurven")->currentIndex(), 1);
    repaint();
    const chart::SheetText& title = canvas()->sheet().header;
    QTest::mouseClick(surface(), Qt::RightButton, {},
                      QPoint(static_cast<int>(title.x), static_cast<int>(title.y)));
    drive::settle();
    EXPECT_TRUE(drive::isVisible("txtHeader"));
    drive::get<QPlainTextEdit>("txtHeader")->setPlainText("My diagram");
    EXPECT_EQ(sheet().chart.header.text, "My diagram");
}

TEST_F(Graph2D, DeletesASinglePointByAClick) {
    openIsotherm("400");
    sheet().chart.curves[0].line.pattern = chart::LinePattern::None;
    window()->refresh();
    repaint();
    const std::size_t before = curve(0).x.size();
    user.answers = {dialogs::Answer::Yes};
    QTest::mouseClick(surface(), Qt::LeftButton, {}, curvePixel(0, before / 2));
    drive::settle();
    EXPECT_EQ(user.lastTitle(), "Delete a Curve Point");
    EXPECT_EQ(curve(0).x.size(), before - 1);
}

TEST_F(Graph2D, EveryCommandWorksInTheTurnedState) {
    openIsotherm();
    const std::vector<float> x = curve(0).x;
    const auto* bar = window()->findChild<QToolBar*>("Toolbar2D");
    ASSERT_NE(bar, nullptr);
    const QWidget* button = bar->widgetForAction(drive::action("cmdChangeXY"));
    const QPoint place = button->mapTo(frame.get(), QPoint());
    click("cmdChangeXY");
    EXPECT_EQ(curve(0).y, x);
    EXPECT_EQ(button->mapTo(frame.get(), QPoint()), place) << "the button moves under the pointer";
    for (const char* name : {"cmdDraw", "cmdZoom", "mnuCoord", "cmdFit"})
        EXPECT_TRUE(drive::isEnabled(name)) << name;
    click("cmdDraw");
    EXPECT_EQ(curve(1).y, x);
    choose("mnuMarkKoex");
    EXPECT_EQ(diagrams::curve_count(sheet()), 4);
    click("cmdChangeXY");
    EXPECT_EQ(curve(0).x, x);
    EXPECT_EQ(curve(1).x, x);
}

TEST_F(Graph2D, TheLabelFollowsTheColourOfItsCurve) {
    openIsotherm();
    choose("mnuKurvenDesign");
    const auto label = [&] {
        for (const chart::Label& one : sheet().chart.labels)
            if (diagrams::curve_place_of(one) == 0) return one;
        return chart::Label{};
    };
    ASSERT_EQ(label().text_colour, curve(0).line.colour);
    const chart::Chart2D before = sheet().chart;
    sheet().chart.curves[0].line.colour = {1, 2, 3, 255};
    diagrams::follow_colours(sheet(), before);
    EXPECT_EQ(label().text_colour, (chart::Colour{1, 2, 3, 255}));
}

TEST_F(Graph2D, SavesAndLoadsADiagramAfterASwap) {
    openIsotherm();
    choose("mnuMarkKoex");
    answerFile(path("d.oc2"));
    choose("mnuSaveOC2");
    const chart::Chart2D saved = sheet().chart;
    click("cmdDraw");
    click("cmdChangeXY");
    answerFile(path("d.oc2"));
    choose("mnuLoadOC2");
    EXPECT_FALSE(sheet().chart.swapped);
    EXPECT_EQ(read("frmGraph2D"), "Filename: d.oc2");
    EXPECT_EQ(diagrams::curve_count(sheet()), 3);
    EXPECT_EQ(curve(1).x, saved.curves[1].x);
    EXPECT_EQ(sheet().chart.header, saved.header);
    EXPECT_TRUE(drive::isEnabled("cmdDraw"));
}

TEST_F(Graph2D, ClosesOnADamagedFileWithAReason) {
    openIsotherm();
    QFile bad(path("bad.oc2"));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("{\"format\":");
    bad.close();
    answerFile(path("bad.oc2"));
    choose("mnuLoadOC2");
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(drive::find("frmGraph2D"), nullptr);
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_NE(user.lastText().find("bad.oc2"), std::string::npos);
}

TEST_F(Graph2D, SetsLogarithmicAxes) {
    openIsotherm("400");
    click("cmdYLog");
    EXPECT_TRUE(sheet().chart.y.logarithmic);
    repaint();
    EXPECT_GT(canvas()->sheet().y.ticks.major.size(), 1U);
    click("cmdYLog");
    EXPECT_FALSE(sheet().chart.y.logarithmic);
    click("cmdXLog");
    EXPECT_TRUE(sheet().chart.x.logarithmic);
}

TEST_F(Graph2D, AddsMeasuredPointsAndTellsWhenThereAreNone) {
    openIsotherm();
    choose("mnuAddPunkte");
    EXPECT_EQ(user.lastText(), "No experimental points in this range of the diagram ");
    session.change()->measured.points = {{0, 300, 500, 60, 0, 0, 0}};
    user.messages.clear();
    for (int i = 0; i < 12; ++i) choose("mnuAddPunkte");
    EXPECT_EQ(diagrams::point_set_count(sheet()), 12);
    EXPECT_TRUE(user.messages.empty());
    choose("mnuAddPunkte");
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(diagrams::point_set_count(sheet()), 13);
    choose("mnuPunktDesign");
    type("txtLegPoints", "set one");
    EXPECT_EQ(sheet().chart.points.back().legend, "set one") << "the last set is in front";
    drive::select("cmbPunktStil", "Star");
    EXPECT_EQ(sheet().chart.points.back().symbol, chart::SymbolShape::Star);
    choose("mnuSubDelPoints_0");
    EXPECT_EQ(diagrams::point_set_count(sheet()), 0);
}

TEST_F(Graph2D, TakesPointsOfTheEditor) {
    openIsotherm();
    session.change()->xy.points = {{0.5F, 1000, 0}, {1, 2000, 0}};
    choose("cmdManuPoints");
    choose("cmdManuKurve");
    EXPECT_EQ(diagrams::point_set_count(sheet()), 1);
    EXPECT_EQ(diagrams::curve_count(sheet()), 2);
}

TEST_F(Graph2D, WritesPicturesOfEveryFormat) {
    openIsotherm();
    struct Format {
        const char* name;
        QByteArray begin;
    };
    for (const Format& f :
         {Format{"a.png", "\x89PNG"}, Format{"a.bmp", "BM"}, Format{"a.svg", "<?xml"},
          Format{"a.pdf", "%PDF"}, Format{"a.emf", QByteArray("\1\0\0\0", 4)},
          Format{"a.wmf", "\xd7\xcd\xc6\x9a"}}) {
        answerFile(path(f.name));
        choose("mnuBild_1");
        QFile file(path(f.name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << f.name;
        EXPECT_TRUE(file.readAll().startsWith(f.begin)) << f.name;
    }
    answerFile(path("no/folder/a.png"));
    choose("mnuBild_1");
    EXPECT_EQ(user.lastTitle(), "ERROR");
    choose("mnuBild_0");
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasImage());
}

TEST_F(Graph2D, WritesAndCopiesACurve) {
    openIsotherm();
    answerFile(path("c.XY"));
    choose("cmdSaveCurveAsXY");
    QFile file(path("c.XY"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readLine().trimmed(),
              QByteArray::number(static_cast<qulonglong>(curve(0).x.size())) + " curve points");
    choose("cmdCopyTable");
    const QString table = QString::fromStdString(user.clipboard);
    EXPECT_EQ(table.count('\n'), static_cast<qsizetype>(curve(0).x.size()) + 2);
    EXPECT_TRUE(table.startsWith(
        "Propane, CEOS Peng / Robinson, (300.0 K )\nv / (m^3/kmol)\tp / kPa\tT/K\n"));
}

TEST_F(Graph2D, KeepsSeveralDiagramsApart) {
    openIsotherm("300");
    DiagramWindow* first = window();
    when("frmTpVSInputBox", [] {
        type("rText", "2000");
        click("cmdOKAndDraw");
    });
    choose("mnuGraf_sub_cut_5");
    DiagramWindow* second = window();
    ASSERT_NE(first, second);
    EXPECT_EQ(session->diagram->code, 3);
    session.change()->diagram_at.T = 444;
    first->becomeCurrent();
    EXPECT_EQ(session->diagram->code, 1);
    EXPECT_EQ(session->diagram_at.T, 300);
    first->draw();
    EXPECT_EQ(diagrams::curve_count(first->sheet()), 2);
    EXPECT_EQ(diagrams::curve_count(second->sheet()), 1);
    desk.closeViews({"frmGraph2D"});
    drive::settle();
    EXPECT_EQ(window(), nullptr);
}

TEST_F(Graph2D, ADiagramOverAMaximisedOneStaysInTheFrameAndNoneHidesAnother) {
    const auto openAnother = [this](const char* T) {
        openIsotherm(T);
        return qobject_cast<QMdiSubWindow*>(window()->parentWidget());
    };
    QMdiSubWindow* first = openAnother("300");
    QMdiSubWindow* second = openAnother("310");
    QMdiSubWindow* third = openAnother("320");
    EXPECT_NE(second->pos(), first->pos());
    EXPECT_NE(third->pos(), first->pos());
    EXPECT_NE(third->pos(), second->pos());
    third->showMaximized();
    drive::settle();
    QMdiSubWindow* fourth = openAnother("330");
    const QRect room = fourth->mdiArea()->viewport()->rect();
    EXPECT_TRUE(room.contains(fourth->geometry()))
        << fourth->x() << " " << fourth->y() << " " << fourth->width();
}

// It took the curve in use, or the last one, without a word.
TEST_F(Graph2D, AsksWhichCurveIsCopied) {
    openIsotherm("300");
    choose("cmdCopyTable");
    EXPECT_TRUE(user.clipboard.find("300.0 K") != std::string::npos) << user.clipboard;
    sheet().at.T = 400;
    window()->draw();
    bool asked = false;
    when("frmChooseCurve", [&] {
        asked = true;
        auto* box = drive::get<QInputDialog>("frmChooseCurve");
        ASSERT_EQ(box->comboBoxItems().size(), 2);
        EXPECT_EQ(box->textValue(), box->comboBoxItems()[1]) << "the curve in use";
        box->setTextValue(box->comboBoxItems()[0]);
        box->accept();
    });
    user.clipboard.clear();
    choose("cmdCopyTable");
    EXPECT_TRUE(asked);
    EXPECT_TRUE(user.clipboard.find("300.0 K") != std::string::npos) << user.clipboard;
    EXPECT_TRUE(read("lblReadout").contains("300.0 K"));
    when("frmChooseCurve", [] { drive::get<QInputDialog>("frmChooseCurve")->reject(); });
    user.clipboard = "kept";
    choose("cmdCopyTable");
    EXPECT_EQ(user.clipboard, "kept");
}

TEST_F(Graph2D, AddsTexts) {
    openIsotherm();
    user.inputAnswers = {std::string("a note")};
    choose("mnuAddText");
    EXPECT_TRUE(diagrams::has_texts(sheet()));
    choose("mnuDelTexts");
    EXPECT_FALSE(diagrams::has_texts(sheet()));
}

TEST_F(Graph2D, SetsTheScalingByValues) {
    openIsotherm();
    choose("mnuAxesDesign");
    type("txtXTickValue", "0,5");
    click("optScaling_1");
    EXPECT_DOUBLE_EQ(sheet().chart.x.tick_spacing, 0.5);
    click("optScaling_0");
    EXPECT_EQ(sheet().chart.x.tick_spacing, 0);
}

}  // namespace
