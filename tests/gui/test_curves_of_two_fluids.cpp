#include <QLabel>

#include "gui/diagrams/diagram_window.h"
#include "gui/frame_test.h"
#include "gui/surfaces/surface_window.h"

namespace {

using drive::choose;
using drive::click;
using drive::select;
using drive::type;
using drive::when;

/// A program with three substances, whose user changes them under open diagrams.
class TwoFluids : public FrameTest {
  protected:
    TwoFluids() {
        databases::Write(folder() / "STUDENT.Q05",
                         {databases::Row("Propane"), databases::Row("Water"),
                          databases::Row("Carbon dioxide"), databases::Row("Ethane")});
        start();
    }
    static void chooseSubstance(const QString& name) {
        when("frmStoffWahl", [name] {
            type("Text1", name);
            click("StoffOK");
        });
        when("frmQModell", [] { click("OKModell"); });
        choose("mnuStoff");
    }
    static void chooseModel(const QString& name) {
        when("frmQModell", [name] {
            select("EOSKombi", name);
            click("OKModell");
        });
        choose("mnuModel");
    }
    static void openIsotherm() {
        when("frmTpVSInputBox", [] {
            type("rText", "300");
            click("cmdOKAndDraw");
        });
        choose("mnuGraf_sub_cut_1");
    }
    DiagramWindow* diagram() const { return desk.lastUsed<DiagramWindow>(); }
    SurfaceWindow* surface() const { return desk.lastUsed<SurfaceWindow>(); }
    diagrams::DiagramSheet& sheet() const { return diagram()->sheet(); }
    static QString shownFluid() { return drive::get<QLabel>("lblFluid")->text(); }
};

TEST_F(TwoFluids, ASheetOfThreeFluidsAndModelsNamesEachOfThem) {
    openSubstance("Propane");
    openIsotherm();
    EXPECT_EQ(sheet().chart.curves[0].label.text, "300.0 K ");
    EXPECT_EQ(sheet().chart.footer.text, "Propane,  CEOS Peng / Robinson");
    EXPECT_EQ(shownFluid(), "Propane, CEOS Peng / Robinson");

    chooseSubstance("Water");
    EXPECT_EQ(shownFluid(), "Water, CEOS Peng / Robinson") << "told before the next curve";
    EXPECT_EQ(sheet().chart.curves[0].label.text, "300.0 K ");
    click("cmdDraw");
    EXPECT_EQ(sheet().chart.curves[0].label.text, "Propane 300.0 K ");
    EXPECT_EQ(sheet().chart.curves[1].label.text, "Water 300.0 K ");

    chooseModel("CEOS van der Waals");
    EXPECT_EQ(shownFluid(), "Water, CEOS van der Waals");
    click("cmdDraw");
    EXPECT_EQ(sheet().chart.curves[0].label.text, "Propane, CEOS Peng / Robinson 300.0 K ");
    EXPECT_EQ(sheet().chart.curves[1].label.text, "Water, CEOS Peng / Robinson 300.0 K ");
    EXPECT_EQ(sheet().chart.curves[2].label.text, "Water, CEOS van der Waals 300.0 K ");
    std::string footer = sheet().chart.footer.text;
    for (char& c : footer)
        if (c == '\n') c = ' ';
    EXPECT_EQ(footer,
              "Propane,  CEOS Peng / Robinson; Water,  CEOS Peng / Robinson; Water,  CEOS van der "
              "Waals");
    EXPECT_EQ(sheet().curves[2].basis.fluid.substance().name, "Water");
}

TEST_F(TwoFluids, NothingIsDrawnWithoutASubstance) {
    openSubstance("Propane");
    openIsotherm();
    user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
    when("frmStoffWahl", [] { drive::get<QDialog>("frmStoffWahl")->reject(); });
    click("Toolbar1_2");
    ASSERT_NE(diagram(), nullptr);
    EXPECT_EQ(shownFluid(), "no substance");
    EXPECT_FALSE(drive::offers("cmdDraw"));
    EXPECT_EQ(diagrams::curve_count(sheet()), 1);
}

TEST_F(TwoFluids, TheCriticalPointOnASurfaceIsThatOfItsFluid) {
    openSubstance("Carbon dioxide");
    user.answers = {dialogs::Answer::Yes};
    choose("mnu3DSub_0");
    ASSERT_NE(surface(), nullptr);
    const double T = surface()->sheet().basis.fluid.substance().Tcrit;
    chooseSubstance("Ethane");
    choose("mnuAddCritPoint");
    const chart::Chart3D& chart = surface()->sheet().chart;
    ASSERT_EQ(chart.markers.size(), 1U);
    EXPECT_DOUBLE_EQ(chart.markers[0].y, T);
    EXPECT_EQ(chart.subtitle.text, " for Carbon dioxide,  CEOS Peng / Robinson");
    click("cmdNewDraw");
    EXPECT_EQ(chart.subtitle.text, " for Ethane,  CEOS Peng / Robinson");
    EXPECT_NE(chart.markers.at(0).y, T);
}

}  // namespace
