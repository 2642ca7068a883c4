#include <fstream>

#include "app/wiring.h"
#include "gui/frame_test.h"
#include "models/saturation.h"
#include "support/codes.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

/// The frame with the real project files and the real end of the program behind it.
class Projects : public FrameTest {
  protected:
    void startProgram() { start(); }
    void endProgram() {
        frame->close();
        drive::settle();
        frame.reset();
        session::reset_everything(session);
    }
};

TEST_F(Projects, TheLastSessionComesBackAsItWas) {
    startProgram();
    openSubstance("Carbon dioxide");
    drive::when("frmOptions", [] {
        drive::click("optMolarSpez_1");
        drive::click("cmdOK");
    });
    drive::choose("mnuOptions");
    ASSERT_EQ(session->units.caloric, models::CaloricUnit::specific);
    const models::ModelSelection models = session->models;
    const double p = models::saturation_pressure(session.fluid(), 280)->p;
    ASSERT_GT(p, 0);
    endProgram();
    EXPECT_TRUE(std::filesystem::exists(folder() / "QuorLastSession.QCF"));

    startProgram();
    EXPECT_TRUE(session->database_file.empty());
    drive::click("Toolbar1_4");
    EXPECT_EQ(session->database_file, "STUDENT.Q05");
    EXPECT_EQ(session->substance.name, "Carbon dioxide");
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::specific);
    EXPECT_EQ(session::present_units(session).v_label, "m^3/kg  ");
    EXPECT_EQ(session->models.eos, models.eos);
    EXPECT_EQ(session->models.vapour_pressure, models.vapour_pressure);
    EXPECT_EQ(session->models.vaporisation, models.vaporisation);
    EXPECT_EQ(session->models.eos_has_priority, models.eos_has_priority);
    EXPECT_TRUE(session::is_enabled(session, session::Command::calculations));
    EXPECT_NEAR(models::saturation_pressure(session.fluid(), 280)->p, p, 1e-9 * p)
        << "the constants of the EOS are there";
}

TEST_F(Projects, WithoutADatabaseNoLastSessionIsWritten) {
    startProgram();
    endProgram();
    EXPECT_FALSE(std::filesystem::exists(folder() / "QuorLastSession.QCF"));
}

TEST_F(Projects, ASavedProjectIsLoadedFromItsFile) {
    startProgram();
    openSubstance("Carbon dioxide");
    const std::string file = (folder() / "work.QCF").string();
    user.fileAnswers.push_back(file);
    user.inputAnswers.push_back("a comment");
    drive::choose("mnuData_SaveProject");
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_EQ(user.messages.front().title, "Single Note");
    openSubstance("Argon");
    ASSERT_EQ(session->substance.name, "Argon");
    user.fileAnswers.push_back(file);
    drive::choose("mnuData_LoadProject");
    EXPECT_EQ(session->substance.name, "Carbon dioxide");
    EXPECT_EQ(models::code_of(session->models.eos), 6);
}

TEST_F(Projects, AProjectOfAMissingSubstanceDoesNotLeaveGreyMenusWithoutAWord) {
    startProgram();
    openSubstance("Carbon dioxide");
    const std::string file = (folder() / "work.QCF").string();
    user.fileAnswers.push_back(file);
    drive::choose("mnuData_SaveProject");
    databases::Write(folder() / "STUDENT.Q05", {databases::Row("Argon")});
    databases::Write(folder() / "OTHER.Q05", {databases::Row("Carbon dioxide")});
    openSubstance("Argon");
    user.messages.clear();
    // Refused: nothing changes.
    user.answers = {dialogs::Answer::No};
    user.fileAnswers = {file};
    drive::choose("mnuData_LoadProject");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "The substance of this project,\nCarbon dioxide (CASRN 124-38-9),\nis not in the "
              "database STUDENT.Q05.\n\nChoose another database?");
    EXPECT_EQ(session->substance.name, "Argon");
    EXPECT_TRUE(session::is_enabled(session, session::Command::calculations));
    EXPECT_TRUE(drive::offers("mnuCalc_2"));
    // Another database.
    user.answers = {dialogs::Answer::Yes};
    user.fileAnswers = {file, (folder() / "OTHER.Q05").string()};
    drive::choose("mnuData_LoadProject");
    EXPECT_EQ(session->database_file, "OTHER.Q05");
    EXPECT_EQ(session->substance.name, "Carbon dioxide");
    EXPECT_TRUE(session::is_enabled(session, session::Command::calculations));
}

TEST_F(Projects, ADatabaseElsewhereIsFoundAgain) {
    std::filesystem::create_directory(folder() / "mine");
    databases::Write(folder() / "mine" / "MINE.Q05", {databases::Row("Propane")});
    startProgram();
    user.fileAnswers.push_back((folder() / "mine" / "MINE.Q05").string());
    drive::when("frmStoffWahl", [] {
        drive::type("Text1", "Propane");
        drive::click("StoffOK");
    });
    drive::when("frmQModell", [] { drive::click("OKModell"); });
    drive::click("Toolbar1_2");
    endProgram();
    startProgram();
    drive::click("Toolbar1_4");
    EXPECT_EQ(session->substance.name, "Propane");
}

TEST_F(Projects, AFileThatIsNoProjectChangesNothing) {
    startProgram();
    openSubstance("Carbon dioxide");
    const std::string file = (folder() / "letter.QCF").string();
    std::ofstream(file) << "Dear Sir or Madam";
    user.fileAnswers.push_back(file);
    drive::choose("mnuData_LoadProject");
    EXPECT_EQ(user.lastText(), "The file letter.QCF is no project file.");
    EXPECT_EQ(session->substance.name, "Carbon dioxide");
    EXPECT_EQ(session->substance_number, 1);
    EXPECT_TRUE(session::is_enabled(session, session::Command::calculations));
    EXPECT_TRUE(session::is_enabled(session, session::Command::saveProject));
}

}  // namespace
