#include "app/views/wiring.h"
#include "datafiles/database.h"
#include "models/saturation.h"
#include "session/module2.h"
#include "views/frame_test.h"

namespace {

using Declare::session;

/// The frame with the real project files and the real end of the program behind it.
class Projects : public FrameTest {
  protected:
    void startProgram() { start(); }
    void endProgram() {
        frame->close();
        drive::settle();
        frame.reset();
        Module2::ResetEverything();
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
    ASSERT_EQ(session.CaloricUnit, 3);
    const Declare::ModelSelection models = Declare::models;
    const double p = Calc::SaturationPressure(280).p;
    ASSERT_GT(p, 0);
    endProgram();
    EXPECT_TRUE(std::filesystem::exists(folder() / "QuorLastSession.QCF"));

    startProgram();
    EXPECT_TRUE(session.DatabaseFile.empty());
    drive::click("Toolbar1_4");
    EXPECT_EQ(session.DatabaseFile, "STUDENT.Q05");
    EXPECT_EQ(Declare::substance.Name, "Carbon dioxide");
    EXPECT_EQ(session.CaloricUnit, 3);
    EXPECT_EQ(session.VolumeLabel, "m^3/kg  ");
    EXPECT_EQ(Declare::models.EOSModel, models.EOSModel);
    EXPECT_EQ(Declare::models.VPCode, models.VPCode);
    EXPECT_EQ(Declare::models.HLVModel, models.HLVModel);
    EXPECT_EQ(Declare::models.PriorityCEOS, models.PriorityCEOS);
    EXPECT_TRUE(Module2::IsEnabled(Declare::Command::mnuCalcMain));
    EXPECT_NEAR(Calc::SaturationPressure(280).p, p, 1e-9 * p)
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
    ASSERT_EQ(Declare::substance.Name, "Argon");
    user.fileAnswers.push_back(file);
    drive::choose("mnuData_LoadProject");
    EXPECT_EQ(Declare::substance.Name, "Carbon dioxide");
    EXPECT_EQ(Declare::models.EOSModel, 6);
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
    EXPECT_TRUE(Declare::substance.Name.empty());
    EXPECT_TRUE(Module2::IsEnabled(Declare::Command::mnuStoff));
    EXPECT_FALSE(Module2::IsEnabled(Declare::Command::mnuCalcMain));
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
    EXPECT_EQ(Declare::substance.Name, "Propane");
}

}  // namespace
