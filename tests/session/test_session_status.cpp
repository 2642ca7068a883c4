#include "session/session_status.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

class SessionStatus : public SessionTest {
  protected:
    void loadPropane() {
        session.change()->database_file = "STUDENT.Q05";
        session.change()->database = student();
        session.change()->substance_number = 45;
        session.change()->substance = fluids::ReferencePropane();
        session.change()->substance.name = "Propane";
        session.change()->substance.formula = "C3H8";
        session.change()->substance.casrn = "74-98-6     ";
        session.change()->models.eos = codes::eos(6);
        session.change()->models.vapour_pressure = codes::vp(4);
    }
    /// A database of 96 substances.
    static datafiles::Database student() {
        std::vector<datafiles::DatabaseEntry> entries(96);
        entries[0] = {.name = "Ethane", .casrn = "74-84-0     "};
        entries[1] = {.name = "Propane;R-290", .casrn = "74-98-6     "};
        return {"STUDENT.Q05", entries};
    }
    std::string text() const { return session::status_report(session).text; }
};

const std::string kHead = "... database STUDENT.Q05\n  with 96 substance(s)\n";
const std::string kFoot = "\n(for more parameters loaded see \"Options\")";

TEST_F(SessionStatus, WithoutADatabaseThatIsAll) {
    EXPECT_EQ(session::status_report(session).title, " loaded ...");
    EXPECT_EQ(text(), "... not yet a database");
}

TEST_F(SessionStatus, ADatabaseWithoutASubstance) {
    session.change()->database_file = "STUDENT.Q05";
    session.change()->database = student();
    EXPECT_EQ(text(), kHead + "... no substance\n... exper. T-p-rho-HLV-cp data: none" + kFoot);
}

TEST_F(SessionStatus, ASubstanceComesWithItsModels) {
    loadPropane();
    EXPECT_EQ(text(), kHead +
                          "... substance: C3H8  74-98-6  Propane (#45)\n"
                          "    CEOS Peng / Robinson (Priority!),  Vapour press. equ.: Wagner\n"
                          "... exper. T-p-rho-HLV-cp data: none" +
                          kFoot);
    session.change()->models.eos = codes::eos(-1);
    EXPECT_NE(text().find("Propane (#45)\n    no models\n"), std::string::npos);
}

TEST_F(SessionStatus, DataThatAreNotYetSaved) {
    loadPropane();
    session.change()->measured.points.resize(1);
    EXPECT_NE(text().find("\n    1 set of data available,\nnot yet saved.\n"), std::string::npos);
    session.change()->measured.points.resize(12);
    EXPECT_NE(text().find("\n    12 sets of data available,\nnot yet saved.\n"), std::string::npos);
}

TEST_F(SessionStatus, DataOfAFileNameTheirSource) {
    loadPropane();
    session.change()->measured.points.resize(12);
    session.change()->measured.file = "/data/own/propane.BAQ";
    EXPECT_NE(text().find("\n... batch filepropane.BAQ\n  from /data/own/\n"
                          "  with 12 sets of data\n(for more"),
              std::string::npos);
    session.change()->measured.file = "propane.BAQ";
    session.change()->folder_measured = "x";
    EXPECT_EQ(text().find("  from "), std::string::npos) << "a source of two characters is none";

    session.change()->measured.casrn = "74-98-6";
    session.change()->measured.comment = " own measurements";
    EXPECT_NE(text().find("\n    substance: Propane\n    file comment own measurements\n"),
              std::string::npos);
}

TEST_F(SessionStatus, PanelsMarkTheModelWithPriority) {
    loadPropane();
    session::StatusPanels panels = session::panel_texts(session, true);
    EXPECT_EQ(panels.substance, "Propane");
    EXPECT_EQ(panels.eos, "CEOS Peng / Robinson (Priority!)");
    EXPECT_EQ(panels.vapour_pressure, "Vapour press. equ.: Wagner");
    session.change()->models.eos_has_priority = false;
    panels = session::panel_texts(session, true);
    EXPECT_EQ(panels.eos, "CEOS Peng / Robinson");
    EXPECT_EQ(panels.vapour_pressure, "Vapour press. equ.: Wagner (Priority!)");
    session.change()->models.eos = codes::eos(16);
    session.change()->models.vapour_only = true;
    panels = session::panel_texts(session, true);
    EXPECT_EQ(panels.eos, "VIRIAL Equ. Pitzer / Curl");
    EXPECT_EQ(panels.vapour_pressure, "Vapour press. equ.: Wagner");
    panels = session::panel_texts(session, false);
    EXPECT_EQ(panels.substance, "Propane");
    EXPECT_EQ(panels.eos, "");
    EXPECT_EQ(panels.vapour_pressure, "");
}

TEST_F(SessionStatus, ParametersOfTheIdealGasAndOfPitzerCurlAreOneSentence) {
    session.change()->models.eos = codes::eos(0);
    EXPECT_EQ(session::parameter_report(session).text, "Selected: Ideal gas equation");
    session.change()->models.eos = codes::eos(16);
    EXPECT_EQ(session::parameter_report(session).text,
              "Parameters of PITZER/CURL equation \ncf. Help in the window \"Models\"");
}

TEST_F(SessionStatus, ParametersAreListedWithTheCriticalVolume) {
    session.change()->models.eos = codes::eos(4);
    session.change()->eos_parameters = {.a0 = 1.5, .b0 = 0.025, .c0 = 0, .d0 = 0.25, .na = -0.5};
    session.change()->eos_parameters.vcrit_calculated = 0.25;
    session.change()->eos_parameters.rhocrit_calculated = 176;
    const session::Report report = session::parameter_report(session);
    EXPECT_EQ(report.title, " Parameters of the EOS ");
    EXPECT_EQ(report.text,
              "Parameter for CEOS Redlich / Kwong\n\n"
              "a0 = 1.5\na1 = -0.5\nb0 = 0.025\nb1 = 0\nc0 = 0\nc1 = 0\nd0 = 0.25\nd1 = 0\n\n"
              "Critical volume calculated  by using T(cr) and p(cr):\n"
              "         v(cr)/m^3/kmol = 0.25\n(rho(cr)/kg/m^3 = 176)");
}

}  // namespace
