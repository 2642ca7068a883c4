#include <fstream>

#include "common/numbers.h"
#include "models/model_tables.h"
#include "session/commands.h"
#include "session/module2.h"
#include "support/fluids.h"
#include "support/session_test.h"

namespace {

using Declare::session;

class Session : public SessionTest {
  protected:
    void write(const std::string& name, const std::string& content) {
        std::ofstream(folder() / name) << content;
    }
};

TEST_F(Session, StartsWithItsDefaults) {
    EXPECT_EQ(session.CalcMode, 0);
    EXPECT_TRUE(session.GlobalCalculation);
    EXPECT_TRUE(session.LiquidByBenson);
    EXPECT_EQ(session.PointsPerCurve, 300);
    EXPECT_EQ(session.CsvSeparator, ';');
    EXPECT_EQ(session.IsoFunction, 1);
    EXPECT_EQ(session.IsoTp, 2);
    EXPECT_EQ(Declare::models.EOSModel, -1);
    EXPECT_EQ(Declare::models.VPCode, "0");
    EXPECT_EQ(Declare::reference.RefMode, 1);
    EXPECT_FLOAT_EQ(Declare::reference.p0, 101.325F);
    EXPECT_EQ(Declare::BatchData.size(), 2U);
    EXPECT_EQ(Declare::ResultRecords.size(), 3U);
    EXPECT_EQ(session.LastSessionFile, (folder() / "QuorLastSession.QCF").string());
    EXPECT_FALSE(Module2::IsEnabled(Declare::Command::mnuCalcMain));
    EXPECT_FALSE(session.DecimalComma);
}

TEST_F(Session, DecimalCommaFollowsTheLocale) {
    numbers::set_decimal_mark(',');
    Module2::ResetEverything();
    EXPECT_TRUE(session.DecimalComma);
}

TEST_F(Session, ReducedUnitsWithoutCriticalVolumeFallBackToMolar) {
    Declare::substance.Tcrit = 0;
    std::int16_t mode = 2;
    const Module2::UnitLabels u = Module2::SetUnits(mode);
    EXPECT_EQ(mode, 0);
    EXPECT_EQ(u.VolumeLabel, "m^3/kmol");
    EXPECT_EQ(u.TemperatureLabel, "K");
    EXPECT_DOUBLE_EQ(u.Factor, 1.0);
}

TEST_F(Session, ReducedUnitsNameThePressureInTheLabelOfT) {
    Declare::substance = fluids::ReferencePropane();
    Declare::eosParameters.vcritCalc = 0.25;
    std::int16_t mode = 2;
    const Module2::UnitLabels u = Module2::SetUnits(mode);
    EXPECT_EQ(u.TemperatureLabel, "p(red)");
    EXPECT_EQ(u.PressureLabel, "kPa");
    EXPECT_EQ(u.VolumeLabel, "V(red)");
    EXPECT_DOUBLE_EQ(u.Factor, 4.0);
    EXPECT_FLOAT_EQ(session.TemperatureFactor, static_cast<float>(1.0 / 369.89));
    EXPECT_FLOAT_EQ(session.PressureFactor, static_cast<float>(1.0 / 4251.2));
}

TEST_F(Session, SpecificUnitsDivideByTheMolarMass) {
    Declare::substance.M = 44.0F;
    std::int16_t mode = 1;
    const Module2::UnitLabels u = Module2::SetUnits(mode);
    EXPECT_DOUBLE_EQ(u.Factor, 1.0 / 44.0);
    EXPECT_EQ(u.VolumeLabel, "m^3/kg  ");
}

TEST_F(Session, CaloricFactorFollowsItsUnitForm) {
    Declare::substance.M = 50.0F;
    EXPECT_DOUBLE_EQ(Module2::CaloricFactorOf(0, 300), 1.0);
    EXPECT_DOUBLE_EQ(Module2::CaloricFactorOf(1, 300), 1 / 8.31451);
    EXPECT_DOUBLE_EQ(Module2::CaloricFactorOf(2, 300), 1 / (8.31451 * 300));
    EXPECT_DOUBLE_EQ(Module2::CaloricFactorOf(3, 300), 1 / 50.0);
}

TEST_F(Session, BusyPointerNests) {
    Module2::BeginBusy();
    Module2::BeginBusy();
    Module2::EndBusy();
    EXPECT_EQ(user.pointer, std::vector<bool>{true});
    Module2::EndBusy();
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}));
}

TEST_F(Session, ProtocolNamesCountUp) {
    EXPECT_EQ(Module2::NewProtocolFileName(), "26151101.CSV");
    write("26151101.CSV", "");
    write("26151102.CSV", "x");
    EXPECT_EQ(Module2::NewProtocolFileName(), "26151103.CSV");
}

TEST_F(Session, ShortenPathKeepsTheStartAndTheEnd) {
    EXPECT_EQ(Module2::ShortenPath("C:\\short.txt", 50), "C:\\short.txt");
    EXPECT_EQ(Module2::ShortenPath("C:\\one\\two\\three\\four\\five.txt", 20),
              "C:\\...\\four\\five.txt");
    EXPECT_EQ(Module2::ShortenPath("/home/user/one/two/five.txt", 18), "/ho.../two/five.txt");
}

TEST_F(Session, FilesAreLookedUpInTheProgramsFolder) {
    write("A.TXT", "x");
    EXPECT_TRUE(Module2::FileExists("A.TXT"));
    EXPECT_FALSE(Module2::FileExists(""));
    EXPECT_FALSE(Module2::FileExists("B.TXT"));
    EXPECT_TRUE(Module2::FileExists((folder() / "A.TXT").string()));
    EXPECT_EQ(Module2::FileTitle("a/b\\C.Q05"), "C.Q05");
    EXPECT_EQ(Module2::FolderOf("a/b\\C.Q05"), "a/b\\");
}

TEST_F(Session, AProgramFolderThatCannotBeWrittenSendsNewFilesToTheUsersFolder) {
    Module2::SetProgramFolder(folder() / "missing", folder() / "user");
    EXPECT_EQ(Module2::WriteFolder(), folder() / "user");
    EXPECT_TRUE(std::filesystem::is_directory(folder() / "user"));
    Module2::SetProgramFolder(folder());
    EXPECT_EQ(Module2::WriteFolder(), folder());
}

TEST_F(Session, ResetSessionDisablesWhatNeedsASubstance) {
    using Declare::Command;
    const auto needing = {Command::mnuCalcMain, Command::mnuOptions, Command::mnuFitting,
                          Command::mnu2D,       Command::mnu3D,      Command::mnuData_SaveProject,
                          Command::toolSave};
    Module2::SetCommands(needing, true);
    session.CurrentSubstance = 7;
    session.BatchMode = true;
    Declare::models.HLVModel = 3;
    Module2::ResetSession();
    for (const Command c : needing) EXPECT_FALSE(Module2::IsEnabled(c));
    EXPECT_EQ(session.CurrentSubstance, 0);
    EXPECT_FALSE(session.BatchMode);
    EXPECT_EQ(Declare::models.HLVModel, 0);
    EXPECT_EQ(Declare::reference.RefMode, 1);
}

TEST(ModelTables, NamesAreFixedWidthAndCodesInvert) {
    EXPECT_EQ(Calc::EOSName(6), "CEOS Peng / Robinson               ");
    EXPECT_EQ(Calc::EOSName(16).size(), 35U);
    EXPECT_EQ(Calc::EOSName(9), "");
    EXPECT_EQ(Calc::VPIndex("WAG"), 4);
    EXPECT_EQ(Calc::VPIndex("xxx"), 0);
    EXPECT_EQ(Calc::VPCode(8), "THO");
    EXPECT_EQ(Calc::FunctionLabel(14), "     ln (phi*)");
    EXPECT_TRUE(Calc::IsVOnlyEOS(0));
    EXPECT_FALSE(Calc::IsVOnlyEOS(6));
}

}  // namespace
