#include <QXmlStreamReader>
#include <cmath>

#include "common/numbers.h"
#include "diagrams/sheet_marks.h"
#include "gui/chart/picture_export.h"
#include "gui/diagrams/process_line_dialog.h"
#include "gui/graph_test.h"
#include "gui/surfaces/surface_window.h"
#include "gui/widgets/number_edit.h"
#include "models/unit_text.h"
#include "session/diagram_choice.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

// Open diagrams and surfaces while the units of the session change.

namespace {

using drive::choose;
using drive::click;
using drive::read;
using drive::type;
using drive::when;

class UnitsOfCharts : public GraphTest {
  protected:
    /// What a choice of units in the options does to the session.
    void switchTo(const char* units) {
        session.change()->units = models::read_choice(units).value();
        session::renew_limits(session);
        drive::settle();
    }
    void answerFile(const char* name) { user.fileAnswers.emplace_back((folder() / name).string()); }
    std::vector<double> ticks(bool x) const {
        const chart::Sheet2D& drawn = canvas()->sheet();
        std::vector<double> values;
        for (const chart::Tick& tick : (x ? drawn.x : drawn.y).ticks.major)
            values.push_back(tick.value);
        return values;
    }
    SurfaceWindow* surfaceWindow() const { return desk.lastUsed<SurfaceWindow>(); }
};

TEST_F(UnitsOfCharts, ATemperatureTypedInCelsiusDrawsItsIsotherm) {
    openIsotherm("27 degC");
    ASSERT_NE(window(), nullptr);
    EXPECT_NEAR(sheet().at.T, 300.15, 1e-9);
    EXPECT_EQ(curve(0).legend, "(300.15 K ) ");
    drawAt("80.6 degF");
    EXPECT_NEAR(sheet().at.T, 300.15, 1e-9);
}

TEST_F(UnitsOfCharts, AnOpenDiagramIsConvertedAtOnceAndComesBackAsItWas) {
    openIsotherm("300");
    diagrams::mark_critical_point(sheet(), session::present_pen(session), true);
    window()->refresh();
    DiagramWindow* const open = window();
    const chart::Chart2D before = sheet().chart;
    const QString caption = window()->windowTitle(), parameter = read("lblParameter");
    const std::vector<double> before_ticks = ticks(false);
    for (const char* units : {"metric", "us", "chemistry", "specific", "reduced"}) {
        switchTo(units);
        ASSERT_EQ(window(), open) << units;
        EXPECT_EQ(curve(0).x.size(), before.curves[0].x.size()) << units;
        EXPECT_FALSE(sheet().chart == before) << units;
        EXPECT_EQ(sheet().units.shown, session->units.shown) << units;
        EXPECT_EQ(sheet().units.system, session->units.system) << units;
        const std::vector<double> now = ticks(false);
        ASSERT_GT(now.size(), 3U) << units;
        // Ticks are multiples of 1, 2 or 5 in the new unit.
        const double step = now[1] - now[0];
        const double digit = step / std::pow(10, std::floor(std::log10(step) + 1e-9));
        EXPECT_TRUE(std::fabs(digit - 1) < 1e-6 || std::fabs(digit - 2) < 1e-6 ||
                    std::fabs(digit - 5) < 1e-6)
            << units << " " << step;
    }
    switchTo("us");
    EXPECT_EQ(sheet().chart.x.title, "v / (ft^3/lb)");
    EXPECT_EQ(sheet().chart.y.title, "p / psi");
    EXPECT_EQ(curve(0).legend, "(80.33 degF ) ");
    EXPECT_EQ(read("lblParameter"), QString::fromUtf8("T = 80.33 °F"));
    switchTo("molar");
    EXPECT_TRUE(sheet().chart == before);
    EXPECT_EQ(ticks(false), before_ticks);
    EXPECT_EQ(read("lblParameter"), parameter);
    EXPECT_EQ(window()->windowTitle(), caption);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(UnitsOfCharts, TextsComeBackInALocaleWithComma) {
    numbers::set_decimal_mark(',');
    openIsotherm("300,5");
    const chart::Chart2D before = sheet().chart;
    const QString parameter = read("lblParameter");
    switchTo("metric");
    EXPECT_EQ(read("lblParameter"), QString::fromUtf8("T = 27,35 °C"));
    EXPECT_EQ(curve(0).legend, "(27.35 degC ) ");
    switchTo("us");
    switchTo("molar");
    EXPECT_TRUE(sheet().chart == before);
    EXPECT_EQ(read("lblParameter"), parameter);
    numbers::set_decimal_mark('.');
}

TEST_F(UnitsOfCharts, WhatWasSavedNeedsNoSavingAfterASwitch) {
    openIsotherm("300");
    answerFile("isotherm.oc2");
    choose("mnuSaveOC2");
    user.standing.clear();
    switchTo("metric");
    EXPECT_TRUE(window()->close());
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
}

TEST_F(UnitsOfCharts, UndoGoesOnInTheNewUnits) {
    openIsotherm("300");
    drawAt("350");
    const auto points = curve(1).x.size();
    switchTo("us");
    window()->undo();
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
    EXPECT_EQ(sheet().chart.y.title, "p / psi");
    window()->redo();
    EXPECT_EQ(curve(1).x.size(), points);
    EXPECT_EQ(curve(1).legend, "(170.33 degF ) ");
}

TEST_F(UnitsOfCharts, AZoomedWindowGoesBackToTheOneBeforeInTheNewUnits) {
    openIsotherm("300");
    const double top = sheet().chart.y.max;
    click("cmdZoom");
    const double zoomed = sheet().chart.y.max;
    ASSERT_LT(zoomed, top);
    switchTo("metric");
    EXPECT_NEAR(sheet().chart.y.max, zoomed / 100, 1e-12 * zoomed);
    click("cmdZoomReset");
    EXPECT_NEAR(sheet().chart.y.max, top / 100, 1e-12 * top);
}

TEST_F(UnitsOfCharts, ASavedDiagramOpensInItsUnitsAndFollowsTheNextSwitch) {
    openIsotherm("300");
    switchTo("us");
    answerFile("us.oc2");
    choose("mnuSaveOC2");
    const chart::Chart2D saved = sheet().chart;
    EXPECT_TRUE(window()->close());
    switchTo("molar");
    diagram_views::openSaved(desk, (folder() / "us.oc2").string());
    ASSERT_NE(window(), nullptr);
    EXPECT_EQ(sheet().chart.y.title, "p / psi");
    EXPECT_EQ(curve(0).y, saved.curves[0].y);
    // The next curve lies on the axes of the file, and its input has their unit.
    when("frmTpVSInputBox", [] {
        EXPECT_EQ(drive::get<NumberEdit>("rText")->scale()->name, "degF");
        type("rText", "80.33");
        click("cmdOKAndDraw");
    });
    click("cmdParameter");
    ASSERT_EQ(curve(1).y.size(), saved.curves[0].y.size());
    for (std::size_t i = 0; i < curve(1).y.size(); ++i) {
        const auto y = static_cast<double>(saved.curves[0].y[i]);
        EXPECT_NEAR(static_cast<double>(curve(1).y[i]), y, 1e-4 * y) << i;
    }
}

TEST_F(UnitsOfCharts, InputsOfCurvesAreInTheUnitsOfTheSheet) {
    switchTo("metric");
    when("frmTpVSInputBox", [] {
        type("rText", "27");
        click("cmdOKAndDraw");
    });
    choose("mnuGraf_sub_cut_1");
    EXPECT_NEAR(sheet().at.T, 300.15, 1e-9);
    EXPECT_EQ(curve(0).legend, "(27 degC ) ");
    when("fraCoord", [] {
        type("coord_3", "3 MPa");
        click("cmdCoord_OK");
    });
    click("mnuCoord");
    EXPECT_NEAR(sheet().chart.y.max, 30, 1e-9);
    // What is no number is no parameter, though 0 degC were one.
    when("frmTpVSInputBox", [] {
        type("rText", "");
        click("cmdOK");
        EXPECT_EQ(read("lblTextHinweis"), "this input not within valid range!");
        click("cmdAbbrechen");
    });
    click("cmdParameter");
}

TEST_F(UnitsOfCharts, AProcessLineBeginsAtAStateInTheUnitsOfTheSheet) {
    switchTo("metric");
    openIsotherm("27");
    diagrams::ProcessLine drawn;
    diagrams::Pen pen = session::present_pen(session);
    ProcessLineDialog box({ProcessLineDialog::Purpose::Line,
                           pen,
                           sheet().request.diagram,
                           {300.15, 500, 2},
                           {},
                           ';',
                           {},
                           {},
                           {}},
                          [&](const diagrams::ProcessLine& line) { drawn = line; });
    EXPECT_EQ(box.findChild<NumberEdit*>("par_0")->text(), "27");
    EXPECT_EQ(box.findChild<NumberEdit*>("par_1")->text(), "5");
    box.findChild<NumberEdit*>("par_0")->setText("80.6 degF");
    box.findChild<NumberEdit*>("par_3")->setText("1 MPa");
    box.findChild<QPushButton*>("cmdDraw")->click();
    EXPECT_NEAR(drawn.T1, 300.15, 1e-9);
    EXPECT_NEAR(drawn.p1, 500, 1e-9);
    EXPECT_NEAR(drawn.range_end, 1000, 1e-9);
}

TEST_F(UnitsOfCharts, ASurfaceIsConvertedAtOnceAndComesBackAsItWas) {
    choose("mnu3DSub_5");  // h(p, T)
    ASSERT_NE(surfaceWindow(), nullptr);
    diagrams::SurfaceSheet& s = surfaceWindow()->sheet();
    diagrams::add_critical_point(s);
    const chart::Chart3D before = s.chart;
    const diagrams::SurfaceLimits limits = s.limits;
    const double M = static_cast<double>(s.basis.fluid.substance().M);
    switchTo("metric");
    EXPECT_EQ(s.chart.x.title, "p / bar");
    EXPECT_EQ(s.chart.y.title, "T / degC");
    EXPECT_EQ(s.chart.z.title, "h / (kJ/kg) ");
    EXPECT_NEAR(s.chart.x.max, before.x.max / 100, 1e-9 * before.x.max);
    EXPECT_NEAR(s.chart.y.min, before.y.min - 273.15, 1e-9);
    EXPECT_FLOAT_EQ(s.limits.T_max, static_cast<float>(static_cast<double>(limits.T_max) - 273.15));
    EXPECT_NEAR(s.chart.surface.y(7), before.surface.y(7) - 273.15, 1e-9);
    EXPECT_FLOAT_EQ(s.chart.surface.z[90],
                    static_cast<float>(static_cast<double>(before.surface.z[90]) / M));
    EXPECT_EQ(s.chart.surface.is_hole(s.chart.surface.z[0]),
              before.surface.is_hole(before.surface.z[0]));
    EXPECT_NEAR(s.chart.markers[0].x, before.markers[0].x / 100, 1e-9);
    switchTo("us");
    switchTo("reduced");
    switchTo("molar");
    EXPECT_TRUE(s.chart == before);
    EXPECT_EQ(s.limits, limits);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(UnitsOfCharts, ASurfaceDrawnAnewHasTheNodesOfTheConvertedOne) {
    choose("mnu3DSub_0");  // p(v, T)
    diagrams::SurfaceSheet& s = surfaceWindow()->sheet();
    switchTo("us");
    const chart::SurfaceGrid converted = s.chart.surface;
    click("cmdNewDraw");
    ASSERT_EQ(s.chart.surface.z.size(), converted.z.size());
    for (std::size_t i = 0; i < converted.z.size(); ++i) {
        ASSERT_EQ(s.chart.surface.is_hole(s.chart.surface.z[i]), converted.is_hole(converted.z[i]));
        if (converted.is_hole(converted.z[i])) continue;
        EXPECT_NEAR(static_cast<double>(s.chart.surface.z[i]), static_cast<double>(converted.z[i]),
                    1e-4 * (1 + std::fabs(static_cast<double>(converted.z[i]))));
    }
    when("fraCoord3", [] {
        type("txtTMin", "350 K");
        click("cmdCoord3_OK");
    });
    click("mnuCoord");
    EXPECT_NEAR(s.chart.y.min, 350 * 1.8 - 459.67, 1e-4);
}

TEST_F(UnitsOfCharts, ASurfaceInRTIsComputedAnew) {
    session.change()->units.caloric = models::CaloricUnit::RT;
    choose("mnu3DSub_5");
    diagrams::SurfaceSheet& s = surfaceWindow()->sheet();
    EXPECT_EQ(s.chart.z.title, "h / (R T)");
    const float inRT = s.chart.surface.z[90];
    switchTo("molar");
    EXPECT_EQ(s.chart.z.title, "h / (kJ/kmol) ");
    const double T = s.chart.surface.y(90 % s.chart.surface.ny);
    EXPECT_NEAR(static_cast<double>(s.chart.surface.z[90]), static_cast<double>(inRT) * 8.31451 * T,
                0.02 * 8.3 * T);
}

TEST_F(UnitsOfCharts, PicturesShowUnitsAsTheyArePrintedAndFilesPlainText) {
    switchTo("metric");
    openIsotherm("27");
    sheet().chart.legend.shown = true;
    sheet().chart.footer.text = "kept: x^3a, degCelsius, 5 kg Kr, a^2";
    QXmlStreamReader xml(
        chart::pictureBytes(chart::paintingOf(sheet().chart), chart::PictureFormat::Svg, {}));
    QString texts;
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::Characters) texts += xml.text().toString() + "|";
    EXPECT_TRUE(texts.contains(QString::fromUtf8("v / (m³/kg)"))) << texts.toStdString();
    EXPECT_TRUE(texts.contains(QString::fromUtf8("27 °C"))) << texts.toStdString();
    EXPECT_TRUE(texts.contains(QString::fromUtf8("x^3a, degCelsius, 5 kg Kr, a²")));
    const auto file = chart::file_text(sheet().chart);
    ASSERT_TRUE(file);
    EXPECT_NE(file->find("v / (m^3/kg)"), std::string::npos);
    EXPECT_NE(file->find("27 degC"), std::string::npos);
}

}  // namespace
