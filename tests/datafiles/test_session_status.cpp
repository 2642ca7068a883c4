#include "datafiles/session_status.h"
#include "support/fluids.h"
#include "support/session_test.h"

namespace {

using Declare::session;

class SessionStatus : public SessionTest {
  protected:
    void loadPropane() {
        session.DatabaseFile = "STUDENT.Q05";
        session.SubstanceCount = 96;
        session.CurrentSubstance = 45;
        Declare::substance = fluids::ReferencePropane();
        Declare::substance.Name = "Propane";
        Declare::substance.Formula = "C3H8";
        Declare::substance.CASRN = "74-98-6     ";
        Declare::models.EOSModel = 6;
        Declare::models.VPModel = 4;
    }
    static std::string text() { return LoadSaveData::StatusReport().text; }
};

const std::string kHead = "... database STUDENT.Q05\n  with 96 substance(s)\n";
const std::string kFoot = "\n(for more parameters loaded see \"Options\")";

TEST_F(SessionStatus, WithoutADatabaseThatIsAll) {
    EXPECT_EQ(LoadSaveData::StatusReport().title, " loaded ...");
    EXPECT_EQ(text(), "... not yet a database");
}

TEST_F(SessionStatus, ADatabaseWithoutASubstance) {
    session.DatabaseFile = "STUDENT.Q05";
    session.SubstanceCount = 96;
    EXPECT_EQ(text(), kHead + "... no substance\n... exper. T-p-rho-HLV-cp data: none" + kFoot);
}

TEST_F(SessionStatus, ASubstanceComesWithItsModels) {
    loadPropane();
    EXPECT_EQ(text(), kHead +
                          "... substance: C3H8  74-98-6  Propane (#45)\n"
                          "    CEOS Peng / Robinson (Priority!),  Vapour press. equ.: Wagner\n"
                          "... exper. T-p-rho-HLV-cp data: none" +
                          kFoot);
    Declare::models.EOSModel = -1;
    EXPECT_NE(text().find("Propane (#45)\n    no models\n"), std::string::npos);
}

TEST_F(SessionStatus, DataThatAreNotYetSaved) {
    loadPropane();
    session.BatchCount = 1;
    EXPECT_NE(text().find("\n    1 set of data available,\nnot yet saved.\n"), std::string::npos);
    session.BatchCount = 12;
    EXPECT_NE(text().find("\n    12 sets of data available,\nnot yet saved.\n"), std::string::npos);
}

TEST_F(SessionStatus, DataOfAFileNameTheirSource) {
    loadPropane();
    session.BatchCount = 12;
    session.BatchFile = "/data/own/propane.BAQ";
    EXPECT_NE(text().find("\n... batch filepropane.BAQ\n  from /data/own/\n"
                          "  with 12 sets of data\n(for more"),
              std::string::npos);
    session.BatchFile = "propane.BAQ";
    session.FolderBatch = "x";
    EXPECT_EQ(text().find("  from "), std::string::npos) << "a source of two characters is none";

    Declare::substances.Names = {"", "Ethane", "Propane;R-290"};
    Declare::substances.Casrn = {"", "74-84-0     ", "74-98-6     "};
    session.BatchCasrn = "74-98-6";
    session.BatchComment = " own measurements";
    EXPECT_NE(text().find("\n    substance: Propane\n    file comment own measurements\n"),
              std::string::npos);
}

TEST_F(SessionStatus, PanelsMarkTheModelWithPriority) {
    loadPropane();
    LoadSaveData::StatusPanels panels = LoadSaveData::PanelTexts(true);
    EXPECT_EQ(panels.substance, "Propane");
    EXPECT_EQ(panels.eos, "CEOS Peng / Robinson (Priority!)");
    EXPECT_EQ(panels.vapourPressure, "Vapour press. equ.: Wagner");
    Declare::models.PriorityCEOS = false;
    panels = LoadSaveData::PanelTexts(true);
    EXPECT_EQ(panels.eos, "CEOS Peng / Robinson");
    EXPECT_EQ(panels.vapourPressure, "Vapour press. equ.: Wagner (Priority!)");
    Declare::models.EOSModel = 16;
    Declare::models.EOSOnlyV = true;
    panels = LoadSaveData::PanelTexts(true);
    EXPECT_EQ(panels.eos, "VIRIAL Equ. Pitzer / Curl");
    EXPECT_EQ(panels.vapourPressure, "Vapour press. equ.: Wagner");
    panels = LoadSaveData::PanelTexts(false);
    EXPECT_EQ(panels.substance, "Propane");
    EXPECT_EQ(panels.eos, "");
    EXPECT_EQ(panels.vapourPressure, "");
}

TEST_F(SessionStatus, ParametersOfTheIdealGasAndOfPitzerCurlAreOneSentence) {
    Declare::models.EOSModel = 0;
    EXPECT_EQ(LoadSaveData::ParameterReport().text, "Selected: Ideal gas equation");
    Declare::models.EOSModel = 16;
    EXPECT_EQ(LoadSaveData::ParameterReport().text,
              "Parameters of PITZER/CURL equation \ncf. Help in the window \"Models\"");
}

TEST_F(SessionStatus, ParametersAreListedWithTheCriticalVolume) {
    Declare::models.EOSModel = 4;
    Declare::eosParameters = {
        .eosA0 = 1.5, .eosB0 = 0.025, .eosC0 = 0, .eosD0 = 0.25, .eosNA = -0.5};
    Declare::eosParameters.vcritCalc = 0.25;
    Declare::eosParameters.rhocritCalc = 176;
    const LoadSaveData::Report report = LoadSaveData::ParameterReport();
    EXPECT_EQ(report.title, " Parameters of the EOS ");
    EXPECT_EQ(report.text,
              "Parameter for CEOS Redlich / Kwong\n\n"
              "a0 = 1.5\na1 = -0.5\nb0 = 0.025\nb1 = 0\nc0 = 0\nc1 = 0\nd0 = 0.25\nd1 = 0\n\n"
              "Critical volume calculated  by using T(cr) and p(cr):\n"
              "         v(cr)/m^3/kmol = 0.25\n(rho(cr)/kg/m^3 = 176)");
}

}  // namespace
