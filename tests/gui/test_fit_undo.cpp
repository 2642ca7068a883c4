#include <cmath>

#include "gui/editor_drive.h"
#include "gui/estimation/estimation_views.h"
#include "gui/estimation/fit_view.h"
#include "gui/view_test.h"
#include "session/xy_session.h"
#include "support/fluids.h"

using namespace quor;
using namespace quor::gui;

namespace {

using drive::click;
using drive::press;
using drive::read;
using drive::tab;
using drive::type;

class FitUndo : public ViewTest {
  protected:
    FitUndo() {
        change([](auto& s) { s.substance = fluids::Row("Benzene"); });
        estimation_views::install(desk);
    }

    void openWithBenzene() {
        ASSERT_TRUE(session::load_xy(
            session, std::string(QUOR_SOURCE_DATA) + "/samples/benzene_vapour_pressure.XY"));
        send();
    }
    /// Sends the points of the XY editor to the view.
    void send() {
        desk.doors.fit();
        drive::settle();
    }
    static void chooseAntoine() {
        tab("SSTab1", "Vapour pressure");
        click("optFit_4");
    }
    static void undo() { press("cmdStart", Qt::Key_Z, Qt::ControlModifier); }
    static void redo() { press("cmdStart", Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }

    static FitView& view() { return *drive::get<FitView>("frmQFitting"); }
    static const estimation::FitState& state() { return view().state(); }
    static double number(const QString& name) { return read(name).toDouble(); }
};

TEST_F(FitUndo, ModelFormAndStartValueAreTakenBackAndMadeAgainByTheirKeys) {
    openWithBenzene();
    EXPECT_EQ(view().undoName(), "") << "what the view opens with is no step";
    chooseAntoine();
    EXPECT_EQ(view().undoName(), "Choose ANTOINE");
    click("chkLg");
    EXPECT_EQ(view().undoName(), "lg instead of ln");
    type("txtStart_2", "220,79");
    press("txtStart_2", Qt::Key_Tab);
    EXPECT_EQ(view().undoName(), "Change start value C");

    undo();
    EXPECT_EQ(number("txtStart_2"), 200);
    EXPECT_EQ(state().start[2], 200);
    EXPECT_EQ(view().undoName(), "lg instead of ln");
    EXPECT_EQ(view().redoName(), "Change start value C");
    undo();
    EXPECT_FALSE(drive::isChecked("chkLg"));
    EXPECT_EQ(read("lblEquation"), "ln(p/kPa) = A - B / (C + t/°C)");
    EXPECT_EQ(number("txtStart_0"), 10);
    EXPECT_EQ(number("txtStart_1"), 3000);
    undo();
    EXPECT_EQ(drive::tabInFront("SSTab1"), "General") << "where the model stands";
    EXPECT_TRUE(drive::isChecked("optFit_0"));
    EXPECT_EQ(read("lblEquation"), "y = A + B x + C  x^2 + D  x^3 + E x^4 + F x^5");
    EXPECT_TRUE(drive::isVisible("txtStart_5"));
    EXPECT_TRUE(drive::isChecked("chkFix_5"));
    EXPECT_FALSE(drive::isEnabled("optLogFit_1"));
    EXPECT_EQ(view().undoName(), "");
    undo();
    EXPECT_EQ(state().model, 0) << "there is no step before";

    redo();
    redo();
    redo();
    EXPECT_EQ(state().model, 4);
    EXPECT_TRUE(drive::isChecked("optFit_4"));
    EXPECT_EQ(drive::tabInFront("SSTab1"), "Vapour pressure");
    EXPECT_TRUE(drive::isChecked("chkLg"));
    EXPECT_EQ(number("txtStart_0"), 5);
    EXPECT_DOUBLE_EQ(number("txtStart_2"), 220.79);
    EXPECT_DOUBLE_EQ(state().start[2], 220.79);
    EXPECT_FALSE(drive::isVisible("txtStart_3"));
    EXPECT_EQ(view().redoName(), "");
}

TEST_F(FitUndo, AFieldTakesItsOwnTypingBackFirst) {
    openWithBenzene();
    chooseAntoine();
    type("txtStart_0", "12");
    press("txtStart_0", Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(read("txtStart_0"), "12");
    EXPECT_EQ(view().undoName(), "Choose ANTOINE") << "only the typing went";
}

TEST_F(FitUndo, WhatIsStillBeingTypedIsTheLastStep) {
    openWithBenzene();
    chooseAntoine();
    type("txtStart_0", "12");
    view().undo();
    EXPECT_EQ(number("txtStart_0"), 10);
    EXPECT_EQ(state().model, 4);
    EXPECT_EQ(view().redoName(), "Change start value A");
    view().redo();
    EXPECT_EQ(number("txtStart_0"), 12);
}

TEST_F(FitUndo, AValueThatWasOnlyLookedAtIsNoStep) {
    openWithBenzene();
    chooseAntoine();
    click("cmdPropose");
    const estimation::Parameters proposed = state().start;
    press("txtStart_0", Qt::Key_Tab);
    press("txtStart_1", Qt::Key_Tab);
    EXPECT_EQ(view().undoName(), "Propose start values");
    EXPECT_EQ(state().start, proposed) << "all digits stay";
}

TEST_F(FitUndo, FixedMarksAreTakenBackWithTheirLooks) {
    openWithBenzene();
    chooseAntoine();
    const auto colour = [] { return drive::find("txtStart_1")->palette().color(QPalette::Text); };
    const QColor free = colour();
    click("chkFix_1");
    EXPECT_EQ(view().undoName(), "B fixed");
    const QColor fixed = colour();
    click("chkFix_1");
    EXPECT_EQ(view().undoName(), "B free");
    undo();
    EXPECT_TRUE(drive::isChecked("chkFix_1"));
    EXPECT_TRUE(state().fixed[1]);
    EXPECT_EQ(colour(), fixed);
    undo();
    EXPECT_FALSE(drive::isChecked("chkFix_1"));
    EXPECT_FALSE(state().fixed[1]);
    EXPECT_EQ(colour(), free);
}

TEST_F(FitUndo, TheKindOfResidualsAndThePhaseAreTakenBack) {
    openWithBenzene();
    chooseAntoine();
    click("optLogFit_1");
    EXPECT_EQ(view().undoName(), "SQ using ln(y) difference");
    tab("SSTab1", "Heat capac.");
    click("optcpPhase_2");
    EXPECT_EQ(view().undoName(), "Phase: solid");
    undo();
    EXPECT_TRUE(drive::isChecked("optcpPhase_0"));
    EXPECT_EQ(state().cp_phase, estimation::CpPhase::IdealGas);
    undo();
    EXPECT_TRUE(drive::isChecked("optLogFit_0"));
    EXPECT_FALSE(state().logarithmic);
    redo();
    redo();
    EXPECT_TRUE(drive::isChecked("optLogFit_1"));
    EXPECT_TRUE(drive::isChecked("optcpPhase_2"));
    EXPECT_EQ(state().cp_phase, estimation::CpPhase::Solid);
}

TEST_F(FitUndo, ProposedAndFittedStartValuesAreTakenBackBesideTheResults) {
    openWithBenzene();
    chooseAntoine();
    click("cmdPropose");
    EXPECT_EQ(view().undoName(), "Propose start values");
    const estimation::Parameters proposed = state().start;
    click("cmdStart");
    EXPECT_EQ(view().undoName(), "Propose start values") << "a fit is no step";
    const QString result = read("txtResult_0"), interval = read("txtInterval_0");
    click("cmdleft_0");
    EXPECT_EQ(view().undoName(), "Result as start value A");
    click("cmdLeftAll");
    EXPECT_EQ(view().undoName(), "Results as start values");
    undo();
    undo();
    EXPECT_EQ(state().start, proposed);
    undo();
    EXPECT_EQ(number("txtStart_0"), 10);
    // The results are of the same function and points, wherever they were started from.
    ASSERT_TRUE(drive::isVisible("fraFQS"));
    EXPECT_EQ(read("txtResult_0"), result);
    EXPECT_EQ(read("txtInterval_0"), interval);
}

TEST_F(FitUndo, ResultsGoWithTheModelTheyBelongTo) {
    openWithBenzene();
    chooseAntoine();
    click("cmdPropose");
    click("cmdStart");
    ASSERT_TRUE(drive::isVisible("fraFQS"));
    undo();
    ASSERT_TRUE(drive::isVisible("fraFQS"));
    undo();
    for (const char* hidden : {"fraFQS", "fraGraph", "txtResult_0", "cmdLeftAll"})
        EXPECT_FALSE(drive::isVisible(hidden)) << hidden;
    EXPECT_FALSE(state().fitted);
    redo();
    EXPECT_FALSE(drive::isVisible("fraFQS")) << "a step brings no results back";
    click("cmdPropose");
    click("cmdStart");
    EXPECT_TRUE(drive::isVisible("fraFQS"));
}

TEST_F(FitUndo, ResultsGoWhenAnotherCriticalPointIsTyped) {
    openWithBenzene();
    tab("SSTab1", "Vapour pressure");
    click("optFit_8");
    const double Tcr = number("txtTcr");
    click("cmdPropose");
    click("cmdStart");
    ASSERT_TRUE(drive::isVisible("fraGraph"));
    type("txtTcr", "600");
    press("txtTcr", Qt::Key_Tab);
    EXPECT_EQ(view().undoName(), "Change Tcr");
    EXPECT_FALSE(drive::isVisible("fraGraph")) << "the parameters are of another reduced T";
    undo();
    EXPECT_DOUBLE_EQ(number("txtTcr"), Tcr);
    EXPECT_DOUBLE_EQ(state().Tcr, Tcr);
    type("txtpcr", "5000");
    press("txtpcr", Qt::Key_Tab);
    EXPECT_EQ(view().undoName(), "Change pcr");
    undo();
    EXPECT_NEAR(state().pcr, fluids::Row("Benzene").pcrit, 1e-9);
}

TEST_F(FitUndo, FormerPointsComeBack) {
    openWithBenzene();
    const std::vector<datafiles::FitPoint> measured = state().points;
    const QString title = read("lblTitle");
    chooseAntoine();
    click("cmdPropose");
    click("cmdStart");
    change([](auto& s) { s.xy.points = {{300, 10, 0}, {310, 20, -1}}; });
    send();
    EXPECT_EQ(view().undoName(), "Load points");
    EXPECT_EQ(state().point_count, 2);
    EXPECT_EQ(state().inactive_count, 1);
    EXPECT_EQ(state().model, 4);
    undo();
    EXPECT_EQ(state().points, measured);
    EXPECT_EQ(read("lblTitle"), title);
    EXPECT_EQ(session->xy.points.size(), 2U) << "the list of the editor is its own";
    EXPECT_FALSE(drive::isVisible("fraFQS"));
    redo();
    EXPECT_EQ(state().point_count, 2);
    EXPECT_EQ(read("lblTitle"), " Fitting y = f(T) (1 (active) sets of data loaded from XY editor");
    send();
    EXPECT_EQ(view().undoName(), "Load points");
    EXPECT_EQ(view().redoName(), "");
    undo();
    EXPECT_EQ(state().points, measured) << "the same points once more are no step";
}

TEST_F(FitUndo, AFitOfTheFormerSubstanceComesBackAsItsOwn) {
    openWithBenzene();
    tab("SSTab1", "Vapour pressure");
    click("optFit_8");
    const double Tcr = number("txtTcr");
    change([](auto& s) { s.substance = fluids::Row("Propane"); });
    click("optFit_8");
    EXPECT_NEAR(number("txtTcr"), fluids::Row("Propane").Tcrit, 1e-9);
    undo();
    EXPECT_EQ(state().substance.name, "Benzene");
    EXPECT_DOUBLE_EQ(number("txtTcr"), Tcr);
    EXPECT_EQ(read("lblTarget"),
              "... of Benzene, but Propane is loaded now: choose the model again for it");
    redo();
    EXPECT_EQ(state().substance.name, "Propane");
    EXPECT_TRUE(read("lblTarget").startsWith("... in the actually loaded data of Propane"));
}

}  // namespace
