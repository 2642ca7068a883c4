#include <QMenu>

#include "common/numbers.h"
#include "gui/calc_view_test.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isEnabled;
using drive::read;
using drive::type;

/// What is shown and written stays with the fluid, the units and the input that made it.
class ResultsBelong : public CalcViewTest {
  protected:
    std::filesystem::path protocolFile() const { return folder() / "26151101.CSV"; }
};

TEST_F(ResultsBelong, AWrittenRowStaysWithTheSubstanceThatMadeIt) {
    startProject("Water");
    chooseTp();
    calculate("400", "100");
    click("cmdProtokoll");
    startProject("Propane");
    chooseTp();
    calculate("300", "100");
    click("cmdProtokoll");
    click("cmdOpenNew");
    const QString first = QString::fromStdString(content(protocolFile()));
    EXPECT_GT(first.indexOf("400;100;"), first.indexOf("Water"));
    EXPECT_TRUE(first.contains("Water"));
    EXPECT_FALSE(first.contains("Propane"));
    const QString second = QString::fromStdString(content(folder() / "26151102.CSV"));
    EXPECT_TRUE(second.contains("Propane"));
    EXPECT_GT(second.indexOf("300;100;"), second.indexOf("Propane"));
    EXPECT_FALSE(second.contains("Water"));
}

TEST_F(ResultsBelong, AnotherRowOpensWithoutBoxesOnWhatNobodyTyped) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("150", "100");  // below the triple point
    ASSERT_FALSE(user.messages.empty());
    for (const char* row : {"mnuCalc_0", "mnuCalc_8", "mnuCalc_11", "mnuCalc_18"}) {
        user.messages.clear();
        choose(row);
        EXPECT_TRUE(user.messages.empty()) << row << ": " << user.lastText();
    }
}

TEST_F(ResultsBelong, AnotherSubstanceOpensWithoutTheInputOfTheLast) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    startProject("Water");
    chooseTp();
    EXPECT_EQ(read("par_0"), "");
    EXPECT_EQ(read("par_1"), "");
    EXPECT_EQ(read("par1"), "no T in this data set");
}

TEST_F(ResultsBelong, CancelOfThePartialCalculationLeavesTheDiagnosis) {
    startProject("Carbon dioxide");
    drive::when("frmCalcIn", [] {
        click("opt_glob_1");
        click("ESC");
    });
    choose("mnuCalc_5");
    EXPECT_TRUE(session->calculation.method.global);
    drive::when("frmCalcIn", [] { click("ESC"); });
    choose("mnuCalc_16");
    EXPECT_TRUE(session->calculation.method.global);
    chooseTp();
    calculate("270", "2000");
    EXPECT_TRUE(isEnabled("cmdCEOSDiagnose"));
}

TEST_F(ResultsBelong, CaptionAndInputBelongToTheStateOfTheIsoCalculator) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "3000");
    EXPECT_EQ(read("frmCalcOut"), "Result of the Calculation:  T, p => rho");
    click("cmdIsoCalc");
    click("OptIsoFu_3");
    type("txtTpVorgabe", "2000");
    click("cmdCalc");
    EXPECT_EQ(read("frmCalcOut"),
              "Result of the Calculation:  thermodynamic Fu(T) (global calculation)");
    EXPECT_EQ(read("par2"), "p = 2000.000 kPa");
    EXPECT_TRUE(lists("Entropy"));
    // The pages belong to the state in view.
    click("ResPlus_1");
    EXPECT_EQ(read("par2"), "p = 2000.000 kPa");
    EXPECT_TRUE(lists("Residual Functions:"));
    // The next input is one of the row again.
    calculate("310", "3000");
    EXPECT_EQ(read("frmCalcOut"), "Result of the Calculation:  T, p => rho");
    EXPECT_EQ(read("par1"), "T = 310.000 K");
}

TEST_F(ResultsBelong, AResultIsToldInOtherUnitsAndMarkedAfterAnotherReferenceState) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "3000");
    EXPECT_EQ(read("statusZeile"), "");
    EXPECT_TRUE(lists("v/ (m^3/kmol"));
    drive::when("frmOptions", [] {
        click("optMolarSpez_1");
        click("cmdOK");
    });
    choose("mnuOptions");
    EXPECT_EQ(read("statusZeile"), "");
    EXPECT_TRUE(lists("v/ (m^3/kg"));
    session.change()->reference.href = 1000;
    EXPECT_TRUE(read("statusZeile")
                    .startsWith("Outdated: of Carbon dioxide, CEOS Peng / Robinson; m^3/kg"));
    calculate("300", "3000");
    EXPECT_EQ(read("statusZeile"), "");
    EXPECT_TRUE(lists("v/ (m^3/kg"));
}

}  // namespace
