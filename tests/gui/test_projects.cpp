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
    ASSERT_EQ(session->caloricUnit, models::CaloricUnit::specific);
    const models::ModelSelection models = session->models;
    const double p = models::saturation_pressure(session.fluid(), 280).p;
    ASSERT_GT(p, 0);
    endProgram();
    EXPECT_TRUE(std::filesystem::exists(folder() / "QuorLastSession.QCF"));

    startProgram();
    EXPECT_TRUE(session->databaseFile.empty());
    drive::click("Toolbar1_4");
    EXPECT_EQ(session->databaseFile, "STUDENT.Q05");
    EXPECT_EQ(session->substance.Name, "Carbon dioxide");
    EXPECT_EQ(session->caloricUnit, models::CaloricUnit::specific);
    EXPECT_EQ(session::present_units(session).v_label, "m^3/kg  ");
    EXPECT_EQ(session->models.EOSModel, models.EOSModel);
    EXPECT_EQ(session->models.VPModel, models.VPModel);
    EXPECT_EQ(session->models.HLVModel, models.HLVModel);
    EXPECT_EQ(session->models.PriorityCEOS, models.PriorityCEOS);
    EXPECT_TRUE(session::is_enabled(session, session::Command::mnuCalcMain));
    EXPECT_NEAR(models::saturation_pressure(session.fluid(), 280).p, p, 1e-9 * p)
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
    ASSERT_EQ(session->substance.Name, "Argon");
    user.fileAnswers.push_back(file);
    drive::choose("mnuData_LoadProject");
    EXPECT_EQ(session->substance.Name, "Carbon dioxide");
    EXPECT_EQ(models::code_of(session->models.EOSModel), 6);
}

TEST_F(Projects, AMissingSubstanceLeavesTheDatabaseAtHand) {
    startProgram();
    openSubstance("Carbon dioxide");
    const std::string file = (folder() / "work.QCF").string();
    user.fileAnswers.push_back(file);
    drive::choose("mnuData_SaveProject");
    databases::Write(folder() / "STUDENT.Q05", {databases::Row("Argon")});
    user.fileAnswers.push_back(file);
    drive::choose("mnuData_LoadProject");
    EXPECT_TRUE(session->substance.Name.empty());
    EXPECT_TRUE(session::is_enabled(session, session::Command::mnuStoff));
    EXPECT_FALSE(session::is_enabled(session, session::Command::mnuCalcMain));
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
    EXPECT_EQ(session->substance.Name, "Propane");
}

TEST_F(Projects, AFileThatIsNoProjectChangesNothing) {
    startProgram();
    openSubstance("Carbon dioxide");
    const std::string file = (folder() / "letter.QCF").string();
    std::ofstream(file) << "Dear Sir or Madam";
    user.fileAnswers.push_back(file);
    drive::choose("mnuData_LoadProject");
    EXPECT_EQ(user.lastText(), "The file letter.QCF is no project file.");
    EXPECT_EQ(session->substance.Name, "Carbon dioxide");
    EXPECT_EQ(session->substanceNumber, 1);
    EXPECT_TRUE(session::is_enabled(session, session::Command::mnuCalcMain));
    EXPECT_TRUE(session::is_enabled(session, session::Command::mnuData_SaveProject));
}

}  // namespace
