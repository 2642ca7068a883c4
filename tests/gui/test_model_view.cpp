#include "gui/frame_test.h"
#include "support/codes.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::click;
using drive::entries;
using drive::isVisible;
using drive::read;
using drive::select;

class ModelView : public FrameTest {
  protected:
    void inView(const QString& substance, const std::function<void()>& what) {
        start();
        user.fileAnswers.push_back((folder() / "STUDENT.Q05").string());
        drive::when("frmStoffWahl", [substance] {
            drive::type("Text1", substance);
            click("StoffOK");
        });
        drive::when("frmQModell", what);
        click("Toolbar1_2");
    }
};

TEST_F(ModelView, OffersWhatTheDataAllow) {
    inView("Carbon dioxide", [] {
        EXPECT_EQ(drive::find("frmQModell")->windowTitle(),
                  " Select the calculation models for Carbon dioxide");
        EXPECT_EQ(entries("EOSKombi").size(), 15);
        EXPECT_EQ(read("EOSKombi"), "CEOS Peng / Robinson");
        EXPECT_EQ(entries("pKombi").first(), "Wagner");
        EXPECT_EQ(entries("HLVKombi").last(), "by using CEOS ('global calculation')");
        EXPECT_TRUE(drive::isChecked("PriorOpt_0"));
        EXPECT_FALSE(isVisible("WatsonKombi"));
        EXPECT_EQ(read("Rx1"), "Parameters available from data base");
        EXPECT_TRUE(drive::isEnabled("cmdData"));
        EXPECT_TRUE(drive::isEnabled("EOSHilfe"));
        click("cmdEsc");
    });
}

TEST_F(ModelView, WithoutAcentricFactorTheListIsShorter) {
    inView("Argon", [] {
        EXPECT_EQ(entries("EOSKombi").size(), 8);
        EXPECT_EQ(read("EOSKombi"), "CEOS Redlich / Kwong");
        click("OKModell");
    });
    EXPECT_EQ(models::code_of(session->models.eos), 4);
    EXPECT_EQ(read("StatusBar1_2"), "CEOS Redlich / Kwong (Priority!)");
}

TEST_F(ModelView, AVirialEquationDisablesThePriority) {
    inView("Carbon dioxide", [] {
        select("HLVKombi", "by using CEOS ('global calculation')");
        select("EOSKombi", "VIRIAL Equ. Pitzer / Curl");
        EXPECT_FALSE(drive::isEnabled("fraPrior"));
        EXPECT_TRUE(drive::isChecked("PriorOpt_1"));
        EXPECT_FALSE(entries("HLVKombi").contains("by using CEOS ('global calculation')"));
        EXPECT_EQ(drive::get<QComboBox>("HLVKombi")->currentIndex(), 0);
        click("OKModell");
    });
    EXPECT_TRUE(session->models.vapour_only);
    EXPECT_EQ(read("StatusBar1_2"), "VIRIAL Equ. Pitzer / Curl");
    EXPECT_EQ(read("StatusBar1_3"), "Vapour press. equ.: Wagner");

    drive::when("frmQModell", [] {
        select("EOSKombi", "CEOS van der Waals");
        EXPECT_TRUE(drive::isEnabled("fraPrior"));
        EXPECT_TRUE(drive::isChecked("PriorOpt_0"));
        EXPECT_TRUE(entries("HLVKombi").contains("by using CEOS ('global calculation')"));
        click("OKModell");
    });
    drive::choose("mnuModel");
    EXPECT_TRUE(session->models.eos_has_priority);
}

TEST_F(ModelView, ThePriorityIsChosen) {
    inView("Carbon dioxide", [] {
        click("PriorOpt_1");
        click("OKModell");
    });
    EXPECT_FALSE(session->models.eos_has_priority);
    EXPECT_EQ(read("StatusBar1_3"), "Vapour press. equ.: Wagner (Priority!)");
    drive::when("frmQModell", [] {
        EXPECT_TRUE(drive::isChecked("PriorOpt_1"));
        click("PriorOpt_0");
        click("OKModell");
    });
    drive::choose("mnuModel");
    EXPECT_TRUE(session->models.eos_has_priority);
}

TEST_F(ModelView, TheWatsonExponentIsTyped) {
    inView("Carbon dioxide", [] {
        select("HLVKombi", "Watson-correlation");
        EXPECT_TRUE(isVisible("WatsonKombi"));
        EXPECT_EQ(read("WatsonKombi"), "0.38");
        drive::type("WatsonKombi", "0,35");
        click("OKModell");
    });
    EXPECT_FLOAT_EQ(session->models.watson_n, 0.35F);
    EXPECT_EQ(models::code_of(session->models.vaporisation), 4);
}

TEST_F(ModelView, TheManualVirialFormAsksForItsCoefficients) {
    inView("Carbon dioxide", [] {
        drive::when("frmBParInput", [] {
            EXPECT_EQ(drive::find("frmBParInput")->windowTitle(), "Input of Virial Coefficient");
            EXPECT_EQ(read("par_0"), "0");
            drive::type("par_0", "0,05");
            drive::type("par_1", "2.5E3");
            drive::type("par_2", "1.6x");
            EXPECT_EQ(read("par_2"), "1.6") << "only characters of a number are taken";
            click("cmdParameter_OK");
        });
        select("EOSKombi", "VIRIAL Equ., Manual Input");
        click("OKModell");
    });
    EXPECT_EQ(models::code_of(session->models.eos), 10);
    EXPECT_EQ(session->eos_parameters.b0, 0.05);
    EXPECT_EQ(session->eos_parameters.nb, 2500.0);
    EXPECT_EQ(session->eos_parameters.nv, 1.6);
}

// To see them one had to choose another equation and come back.
TEST_F(ModelView, TheCoefficientsOfTheActiveManualEquationAreShownAndChanged) {
    inView("Carbon dioxide", [] {
        EXPECT_FALSE(isVisible("cmdCoefficients"));
        drive::when("frmBParInput", [] {
            drive::type("par_0", "0.05");
            drive::type("par_1", "2500");
            drive::type("par_2", "1.6");
            click("cmdParameter_OK");
        });
        select("EOSKombi", "VIRIAL Equ., Manual Input");
        EXPECT_TRUE(isVisible("cmdCoefficients"));
        drive::when("frmBParInput", [] {
            EXPECT_EQ(read("par_0"), "0.05");
            EXPECT_EQ(read("par_1"), "2500");
            EXPECT_EQ(read("par_2"), "1.6");
            drive::type("par_0", "0.06");
            click("cmdParameter_OK");
        });
        click("cmdCoefficients");
        click("OKModell");
    });
    EXPECT_EQ(session->eos_parameters.b0, 0.06);
    EXPECT_EQ(session->eos_parameters.nb, 2500.0);
}

TEST_F(ModelView, CancellingTheCoefficientsLeavesThem) {
    inView("Carbon dioxide", [] {
        drive::when("frmBParInput", [] {
            drive::type("par_0", "7");
            click("cancel");
        });
        select("EOSKombi", "VIRIAL Equ., Manual Input");
        click("OKModell");
    });
    EXPECT_EQ(session->eos_parameters.b0, 0.0);
}

TEST_F(ModelView, AnIncompleteCoefficientIsMarked) {
    inView("Carbon dioxide", [] {
        drive::when("frmBParInput", [] {
            drive::type("par_1", "-");
            click("cmdParameter_OK");
            EXPECT_TRUE(isVisible("frmBParInput"));
            EXPECT_EQ(drive::find("par_1")->toolTip(), "This is not a number");
            drive::type("par_1", "3");
            EXPECT_EQ(drive::find("par_1")->toolTip(), "");
            click("cmdParameter_OK");
        });
        select("EOSKombi", "VIRIAL Equ., Manual Input");
        click("OKModell");
    });
    EXPECT_EQ(session->eos_parameters.nb, 3.0);
}

TEST_F(ModelView, CarruthKobayashiWithoutAcentricFactorWarnsAndRuns) {
    inView("Argon", [] {
        select("HLVKombi", "Carruth/Kobayashi-correlation");
        click("OKModell");
    });
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(models::code_of(session->models.vaporisation), 3);
    EXPECT_TRUE(drive::action("mnuCalcMain")->isEnabled());
}

TEST_F(ModelView, JiTorvikWithoutItsProgramKeepsTheViewOpen) {
    inView("Carbon dioxide", [this] {
        select("EOSKombi", "CEOS Ji / Torvik I");
        click("OKModell");
        EXPECT_TRUE(isVisible("frmQModell"));
        EXPECT_EQ(user.messages.front().text, "No parameter-file generated.");
        select("EOSKombi", "CEOS Soave / Redlich / Kwong");
        click("OKModell");
    });
    EXPECT_EQ(models::code_of(session->models.eos), 5);
    EXPECT_TRUE(drive::action("mnuCalcMain")->isEnabled());
}

TEST_F(ModelView, EscapeRestoresTheFormerModels) {
    start();
    openSubstance("Carbon dioxide");
    drive::when("frmQModell", [] {
        select("EOSKombi", "CEOS van der Waals");
        select("pKombi", "AUGUST (correlated)");
        select("HLVKombi", "Chen-correlation");
        click("PriorOpt_1");
        drive::press("EOSKombi", Qt::Key_Escape);
    });
    drive::choose("mnuModel");
    EXPECT_EQ(models::code_of(session->models.eos), 6);
    EXPECT_EQ(models::vp_code(session->models.vapour_pressure), "WAG");
    EXPECT_TRUE(session->models.eos_has_priority);
    EXPECT_EQ(read("StatusBar1_2"), "CEOS Peng / Robinson (Priority!)");
}

TEST_F(ModelView, HelpOpensAtThePageOfTheModel) {
    std::vector<int> pages;
    inView("Carbon dioxide", [&] {
        desk.doors.help = [&](int topic) { pages.push_back(topic); };
        click("EOSHilfe");
        select("EOSKombi", "CEOS van der Waals");
        click("EOSHilfe");
        click("pHilfe");
        click("cmdEsc");
    });
    EXPECT_EQ(pages, (std::vector<int>{2006, 2002, 2104}));
}

TEST_F(ModelView, ConstantsBelongToTheDataThatWereAppliedFromHere) {
    start();
    openSubstance("Carbon dioxide");
    const double former = session.fluid().eos().vcrit_calculated;
    drive::when("frmQModell", [] {
        drive::when("frmBankEdit", [] {
            drive::type("DD_4", "400");
            click("OK");
            click("ESC");
        });
        click("cmdData");
        click("cmdEsc");
    });
    drive::choose("mnuModel");
    const models::Fluid fluid = session.fluid();
    ASSERT_EQ(fluid.substance().Tcrit, 400);
    EXPECT_NE(fluid.eos().vcrit_calculated, former);
    const auto anew = models::Fluid::make(fluid.substance(), fluid.models());
    ASSERT_TRUE(anew);
    EXPECT_EQ(fluid.eos(), anew->eos())
        << "those of the new critical data, although left by Cancel";
}

}  // namespace
