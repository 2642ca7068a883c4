#include "common/numbers.h"
#include "gui/editor_drive.h"
#include "gui/estimation/group_contribution_view.h"
#include "gui/frame_test.h"
#include "support/fluids.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using datafiles::GroupFrame;
using drive::click;
using drive::read;
using drive::type;

// Places of the groups in the view.
constexpr auto kCH3 = "txtInkr_0";
constexpr auto kCH = "txtInkr_2";
constexpr auto kOH = "txtInkr_19";
constexpr auto kImine = "txtInkr_35";

class Joback : public ViewTest {
  protected:
    Joback() { session.change()->substance = fluids::Row("Propane"); }
    void TearDown() override {
        view.reset();
        ViewTest::TearDown();
    }
    void open(GroupFrame frame, datafiles::EditorTexts* editor = nullptr) {
        view = std::make_unique<GroupContributionView>(desk, frame, editor);
        view->show();
        drive::settle();
    }
    /// 2 x -CH3, 1 x >CH-, 1 x -OH (alcohol).
    static void typeIsopropanol() {
        type(kCH3, "2");
        type(kCH, "1");
        type(kOH, "1");
    }
    std::unique_ptr<GroupContributionView> view;
};

TEST_F(Joback, ShowsAllGroupsAndTheMolarMass) {
    open(GroupFrame::Formation);
    EXPECT_EQ(view->windowTitle(), "JOBACK Calculation of Quantities of Formation ");
    EXPECT_EQ(read("statusZeile"),
              " Example Propan-2-ol (Isopropanol): 2x -CH3, 1x >CH-, 1x -OH (alcohol)");
    for (int i = 0; i < 41; ++i) {
        const QString name = QString("txtInkr_%1").arg(i);
        ASSERT_TRUE(drive::isVisible(name)) << i;
        EXPECT_EQ(read(name), " 0") << i;
    }
    EXPECT_EQ(drive::find("txtInkr_41"), nullptr);
    typeIsopropanol();
    EXPECT_NEAR(read("txtMM").toDouble(), 60.096, 0.01);
    type(kOH, "");
    EXPECT_NEAR(read("txtMM").toDouble(), 43.09, 0.01) << "an empty field is no group";
}

TEST_F(Joback, GroupFieldsTakeDigitsOnly) {
    open(GroupFrame::Formation);
    type(kCH3, "-1.x2");
    EXPECT_EQ(read(kCH3), "12");
}

// Increments of K. G. Joback and R. C. Reid, Chem. Eng. Commun. 57 (1987) 233.
TEST_F(Joback, CountsAndResultsArePrinted) {
    open(GroupFrame::Formation);
    typeIsopropanol();
    EXPECT_FALSE(drive::isEnabled("cmdApply"));
    click("cmdCalcBildung");
    click("cmdPrint");
    ASSERT_EQ(user.prints.size(), 1U);
    EXPECT_NE(user.prints[0].text.find("-CH3  2"), std::string::npos) << user.prints[0].text;
    EXPECT_NE(user.prints[0].text.find("60.09"), std::string::npos) << "the molar mass";
}

TEST_F(Joback, QuantitiesOfFormationOfIsopropanol) {
    open(GroupFrame::Formation);
    typeIsopropanol();
    EXPECT_FALSE(drive::isEnabled("cmdApply"));
    click("cmdCalcBildung");
    // 68.29 + 2 (-76.45) + 29.89 - 208.04 and 53.88 + 2 (-43.96) + 58.36 - 189.20
    EXPECT_NEAR(read("txtdfh").toDouble(), -262760.0, 0.6);
    EXPECT_NEAR(read("txtdfg").toDouble(), -164880.0, 0.6);
    EXPECT_TRUE(read("txtdfh").contains(QRegularExpression("\\.\\d{3}$")));
    EXPECT_EQ(read("cmdApply").remove('&'), "Apply to data base");
    click("cmdApply");
    EXPECT_NEAR(session->substance.dfh, -262760.0F, 1.0F);
    EXPECT_NEAR(session->substance.dfg, -164880.0F, 1.0F);
    EXPECT_TRUE(drive::isVisible("frmJOBACK"));
}

TEST_F(Joback, WithoutGroupsThereAreNoResults) {
    open(GroupFrame::Formation);
    click("cmdCalcBildung");
    EXPECT_EQ(read("txtdfh"), " ---");
    EXPECT_EQ(read("txtdfg"), " ---");
    EXPECT_FALSE(drive::isEnabled("cmdApply"));
}

TEST_F(Joback, AnEstimateThatNoSubstanceCanHaveIsMarked) {
    open(GroupFrame::Critical);
    type(kCH3, "30");
    user.inputAnswers.push_back("500");
    click("cmdCalcCrit");
    ASSERT_LT(read("txtTf").toDouble(), 0);
    EXPECT_TRUE(read("statusZeile").startsWith("T(f) is not plausible: it is not positive."))
        << read("statusZeile").toStdString();
    type(kCH3, "2");
    user.inputAnswers.push_back("184.6");
    click("cmdCalcCrit");
    EXPECT_FALSE(read("statusZeile").contains("plausible"));
}

TEST_F(Joback, ResultsOfOtherGroupsDoNotStay) {
    open(GroupFrame::Formation);
    typeIsopropanol();
    click("cmdCalcBildung");
    type(kCH3, "3");
    EXPECT_EQ(read("txtdfh"), " ---");
    EXPECT_FALSE(drive::isEnabled("cmdApply"));
}

TEST_F(Joback, HeatCapacityGoesIntoTheRecordWithItsRange) {
    open(GroupFrame::HeatCapacity);
    EXPECT_EQ(view->windowTitle(),
              "JOBACK Calculation of cp=F(T) (Ideal Gas) by using Molecule Increments");
    typeIsopropanol();
    click("cmdCalccp");
    EXPECT_NEAR(read("txtC0").toDouble(), 2 * 19.5 - 23.0 + 25.7 - 37.93, 1e-4);
    EXPECT_NEAR(read("txtC1").toDouble(), 2 * -0.00808 + 0.204 - 0.0691 + 0.21, 1e-6);
    EXPECT_NEAR(read("txtC2").toDouble(), 2 * 1.53e-4 - 2.65e-4 + 1.77e-4 - 3.91e-4, 1e-9);
    EXPECT_NEAR(read("txtC3").toDouble(), 2 * -9.67e-8 + 1.20e-7 - 9.88e-8 + 2.06e-7, 1e-12);
    click("cmdApply");
    EXPECT_NEAR(session->substance.cp_polynomial.c[0], 3.77F, 1e-4F);
    EXPECT_EQ(session->substance.cp_polynomial.c[4], 1e-37F);
    EXPECT_EQ(session->substance.cp_polynomial.T_low, 250);
    EXPECT_EQ(session->substance.cp_polynomial.T_high, 1000);
    EXPECT_TRUE(session->substance.has_cp_polynomial);
}

TEST_F(Joback, TheEditorGetsTextsAndTheViewCloses) {
    datafiles::EditorTexts texts;
    texts.fill("<>");
    const models::CpSet before = session->substance.cp_polynomial;
    open(GroupFrame::HeatCapacity, &texts);
    typeIsopropanol();
    click("cmdCalccp");
    EXPECT_EQ(read("cmdApply").remove('&'), "Transfer to data editor");
    click("cmdApply");
    EXPECT_FALSE(view->isVisible());
    EXPECT_NEAR(numbers::val(texts[28]), 3.77, 1e-4);
    EXPECT_EQ(texts[32], " 0");
    EXPECT_EQ(texts[33], " 250");
    EXPECT_EQ(texts[34], " 1000");
    EXPECT_EQ(session->substance.cp_polynomial, before);
}

TEST_F(Joback, CriticalDataWithAMeasuredBoilingPoint) {
    open(GroupFrame::Critical);
    EXPECT_EQ(view->windowTitle(), "LYDERSEN/JOBACK Calculation of Critical Data");
    EXPECT_EQ(drive::find("txtTf")->toolTip(),
              " freezing point, very approximate guess (average error 23 K) ");
    EXPECT_EQ(drive::find("txtRhoc")->toolTip(), " critical density ");
    typeIsopropanol();
    user.inputAnswers.emplace_back("355,4");
    click("cmdCalcCrit");
    ASSERT_EQ(user.inputs.size(), 1U);
    EXPECT_EQ(user.inputs[0].title, "Input Normal Boiling Temperature T(LV), NP");
    EXPECT_EQ(user.inputs[0].proposal, "231.0") << "the boiling point of the substance data";
    // Sums: Tc 2 (0.0141) + 0.0164 + 0.0741, pc 2 (-0.0012) + 0.0020 + 0.0112, Vc 2 (65) + 41 + 28
    const double sTc = 0.1187, sPc = 0.0108;
    EXPECT_EQ(read("txtTb"), "355.4");
    EXPECT_NEAR(read("txtTc").toDouble(), 355.4 / (0.584 + 0.965 * sTc - sTc * sTc), 0.06);
    EXPECT_NEAR(read("txtpc").toDouble(), 100 / std::pow(0.113 + 0.0032 * 12 - sPc, 2), 0.5);
    EXPECT_NEAR(read("txtVc").toDouble(), 0.2165, 6e-5);
    EXPECT_NEAR(read("txtRhoc").toDouble(), 60.096 / 0.2165, 0.06);
    EXPECT_NEAR(read("txtTf").toDouble(), 122 - 2 * 5.10 + 12.64 + 44.45, 0.06);
    EXPECT_TRUE(drive::find("txtRhoc")->toolTip().startsWith(
        "critical density calculated from v(cr) by using M = 60.09"));
    EXPECT_FALSE(drive::isVisible("cmdApply")) << "critical data have no transfer";

    click("cmdOmega");
    EXPECT_EQ(user.lastTitle(), "Acentric Factor");
    EXPECT_TRUE(user.lastText().starts_with(" omega = 0.571")) << user.lastText();
    click("cmdReset");
    EXPECT_EQ(read("txtTc"), " ---");
    EXPECT_EQ(read(kCH3), " 0");
    EXPECT_EQ(drive::find("txtRhoc")->toolTip(), " critical density ");
}

TEST_F(Joback, AnEmptyAnswerKeepsTheEstimate) {
    change([](auto& s) { s.substance.Tboil = 0; });
    open(GroupFrame::Critical);
    typeIsopropanol();
    user.inputAnswers.emplace_back("");
    click("cmdCalcCrit");
    EXPECT_EQ(user.inputs[0].proposal, "359.8");
    EXPECT_EQ(read("txtTb"), "359.8");  // 198 + 2 (23.58) + 21.74 + 92.88 = 359.78
}

TEST_F(Joback, TheEditorsBoilingPointIsProposed) {
    datafiles::EditorTexts texts;
    texts[1] = " 300.25";
    open(GroupFrame::Critical, &texts);
    typeIsopropanol();
    user.inputAnswers.emplace_back("");
    click("cmdCalcCrit");
    EXPECT_EQ(user.inputs[0].proposal, "300.3");
}

TEST_F(Joback, TheMissingIncrementIsRefused) {
    open(GroupFrame::Critical);
    type(kCH3, "1");
    type(kImine, "1");
    click("cmdCalcCrit");
    EXPECT_EQ(user.lastText(), "The increment (=NH) is not available for this calculation.");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(read("txtTc"), " ---");
    EXPECT_TRUE(user.inputs.empty());
}

TEST_F(Joback, OmegaNeedsCriticalData) {
    open(GroupFrame::Critical);
    click("cmdOmega");
    EXPECT_EQ(user.lastText(),
              "Acentric Factor omega\nby using the LEE/KESLER method\nT(LV),NP, T(cr) and p(cr)\n"
              "are needed");
}

class JobackInFrame : public FrameTest {};

TEST_F(JobackInFrame, TheMenuOpensEachCalculation) {
    start();
    openSubstance("Carbon dioxide");
    struct Way {
        const char* row;
        const char* box;
    };
    for (const Way& way :
         {Way{"mnuData_JOBACK_CritData", "fraCrit"}, Way{"mnuData_JOBACK_bildung", "fraBildung"},
          Way{"mnuData_JOBACK_cpIdG", "fracp"}}) {
        drive::when("frmJOBACK", [&way] {
            EXPECT_TRUE(drive::isVisible(way.box));
            click("cmdEsc");
        });
        drive::choose(way.row);
    }
}

TEST_F(JobackInFrame, TheSubstanceEditorOpensItAndTakesTheResults) {
    start();
    openSubstance("Carbon dioxide");
    drive::when("frmBankEdit", [] {
        drive::when("frmJOBACK", [] {
            type(kCH3, "2");
            click("cmdCalcBildung");
            click("cmdApply");
        });
        click("cmdJOBACKBildung");
        // Ethane: 68.29 + 2 (-76.45) = -84.61, 53.88 + 2 (-43.96) = -34.04 kJ/mol
        EXPECT_NEAR(read("DD_44").toDouble(), -84610, 1);
        EXPECT_NEAR(read("DD_45").toDouble(), -34040, 1);
        click("OK");
        click("ESC");
    });
    drive::choose("mnuData_EditStoffdaten");
    EXPECT_NEAR(session->substance.dfh, -84610.0F, 1.0F);
}

}  // namespace
