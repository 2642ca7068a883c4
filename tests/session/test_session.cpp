#include <fstream>

#include "common/numbers.h"
#include "session/commands.h"
#include "session/module2.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using legacy::the_session;

class Session : public SessionTest {
  protected:
    void write(const std::string& name, const std::string& content) {
        std::ofstream(folder() / name) << content;
    }
};

TEST_F(Session, StartsWithItsDefaults) {
    EXPECT_EQ(the_session.calculation.task, calculation::Task::none);
    EXPECT_TRUE(the_session.calculation.method.global);
    EXPECT_TRUE(the_session.calculation.method.liquidByBenson);
    EXPECT_EQ(the_session.PointsPerCurve, 300);
    EXPECT_EQ(the_session.CsvSeparator, ';');
    EXPECT_EQ(the_session.calculation.isoFunction, calculation::IsoFunction::V);
    EXPECT_EQ(the_session.calculation.isoGiven, calculation::IsoGiven::p);
    EXPECT_EQ(models::code_of(legacy::the_models.EOSModel), -1);
    EXPECT_EQ(legacy::the_models.VPModel, models::VapourPressureEquation::none);
    EXPECT_EQ(legacy::the_reference.RefMode, 1);
    EXPECT_FLOAT_EQ(legacy::the_reference.p0, 101.325F);
    EXPECT_EQ(legacy::the_BatchData.size(), 2U);
    EXPECT_TRUE(legacy::the_results.rows.empty());
    EXPECT_EQ(the_session.LastSessionFile, (folder() / "QuorLastSession.QCF").string());
    EXPECT_FALSE(session::is_enabled(session::Command::mnuCalcMain));
    EXPECT_FALSE(the_session.DecimalComma);
}

TEST_F(Session, DecimalCommaFollowsTheLocale) {
    numbers::set_decimal_mark(',');
    session::reset_everything();
    EXPECT_TRUE(the_session.DecimalComma);
}

TEST_F(Session, ReducedUnitsWithoutCriticalVolumeFallBackToMolar) {
    legacy::the_substance.Tcrit = 0;
    std::int16_t mode = 2;
    const session::UnitLabels u = session::set_units(mode);
    EXPECT_EQ(mode, 0);
    EXPECT_EQ(u.VolumeLabel, "m^3/kmol");
    EXPECT_EQ(u.TemperatureLabel, "K");
    EXPECT_DOUBLE_EQ(u.Factor, 1.0);
}

TEST_F(Session, ReducedUnitsNameThePressureInTheLabelOfT) {
    legacy::the_substance = fluids::ReferencePropane();
    legacy::the_eosParameters.vcritCalc = 0.25;
    std::int16_t mode = 2;
    const session::UnitLabels u = session::set_units(mode);
    EXPECT_EQ(u.TemperatureLabel, "p(red)");
    EXPECT_EQ(u.PressureLabel, "kPa");
    EXPECT_EQ(u.VolumeLabel, "V(red)");
    EXPECT_DOUBLE_EQ(u.Factor, 4.0);
    EXPECT_FLOAT_EQ(the_session.TemperatureFactor, static_cast<float>(1.0 / 369.89));
    EXPECT_FLOAT_EQ(the_session.PressureFactor, static_cast<float>(1.0 / 4251.2));
}

TEST_F(Session, SpecificUnitsDivideByTheMolarMass) {
    legacy::the_substance.M = 44.0F;
    std::int16_t mode = 1;
    const session::UnitLabels u = session::set_units(mode);
    EXPECT_DOUBLE_EQ(u.Factor, 1.0 / 44.0);
    EXPECT_EQ(u.VolumeLabel, "m^3/kg  ");
}

TEST_F(Session, CaloricFactorFollowsItsUnitForm) {
    legacy::the_substance.M = 50.0F;
    EXPECT_DOUBLE_EQ(session::caloric_factor_of(0, 300), 1.0);
    EXPECT_DOUBLE_EQ(session::caloric_factor_of(1, 300), 1 / 8.31451);
    EXPECT_DOUBLE_EQ(session::caloric_factor_of(2, 300), 1 / (8.31451 * 300));
    EXPECT_DOUBLE_EQ(session::caloric_factor_of(3, 300), 1 / 50.0);
}

TEST_F(Session, BusyPointerNests) {
    session::begin_busy();
    session::begin_busy();
    session::end_busy();
    EXPECT_EQ(user.pointer, std::vector<bool>{true});
    session::end_busy();
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}));
}

TEST_F(Session, ResetSessionDisablesWhatNeedsASubstance) {
    using session::Command;
    const auto needing = {Command::mnuCalcMain, Command::mnuOptions, Command::mnuFitting,
                          Command::mnu2D,       Command::mnu3D,      Command::mnuData_SaveProject,
                          Command::toolSave};
    session::set_commands(needing, true);
    the_session.CurrentSubstance = 7;
    the_session.BatchMode = true;
    legacy::the_models.HLVModel = codes::hlv(3);
    session::reset_session();
    for (const Command c : needing) EXPECT_FALSE(session::is_enabled(c));
    EXPECT_EQ(the_session.CurrentSubstance, 0);
    EXPECT_FALSE(the_session.BatchMode);
    EXPECT_EQ(models::code_of(legacy::the_models.HLVModel), 0);
    EXPECT_EQ(legacy::the_reference.RefMode, 1);
}

}  // namespace
