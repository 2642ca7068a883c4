#include <fstream>

#include "common/numbers.h"
#include "session/commands.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {


class Session : public SessionTest {
  protected:
    void write(const std::string& name, const std::string& content) {
        std::ofstream(folder() / name) << content;
    }
};

TEST_F(Session, StartsWithItsDefaults) {
    EXPECT_EQ(session->calculation.task, calculation::Task::none);
    EXPECT_TRUE(session->calculation.method.global);
    EXPECT_TRUE(session->calculation.method.liquidByBenson);
    EXPECT_EQ(session->curveOptions.points, 300);
    EXPECT_EQ(session->csvSeparator, ';');
    EXPECT_EQ(session->calculation.isoFunction, calculation::IsoFunction::V);
    EXPECT_EQ(session->calculation.isoGiven, calculation::IsoGiven::p);
    EXPECT_EQ(models::code_of(session->models.EOSModel), -1);
    EXPECT_EQ(session->models.VPModel, models::VapourPressureEquation::none);
    EXPECT_EQ(session->reference.RefMode, 1);
    EXPECT_FLOAT_EQ(session->reference.p0, 101.325F);
    EXPECT_EQ(legacy::the_BatchData.size(), 2U);
    EXPECT_TRUE(session->results.rows.empty());
    EXPECT_EQ(session->lastSessionFile, (folder() / "QuorLastSession.QCF").string());
    EXPECT_FALSE(session::is_enabled(session::Command::mnuCalcMain));
    EXPECT_FALSE(session->decimalComma);
}

TEST_F(Session, DecimalCommaFollowsTheLocale) {
    numbers::set_decimal_mark(',');
    session::reset_everything();
    EXPECT_TRUE(session->decimalComma);
}

TEST_F(Session, ReducedUnitsWithoutCriticalVolumeFallBackToMolar) {
    session.change()->substance.Tcrit = 0;
    std::int16_t mode = 2;
    const session::UnitLabels u = session::set_units(mode);
    EXPECT_EQ(mode, 0);
    EXPECT_EQ(u.VolumeLabel, "m^3/kmol");
    EXPECT_EQ(u.TemperatureLabel, "K");
    EXPECT_DOUBLE_EQ(u.Factor, 1.0);
}

TEST_F(Session, ReducedUnitsNameThePressureInTheLabelOfT) {
    session.change()->substance = fluids::ReferencePropane();
    session.change()->eosParameters.vcritCalc = 0.25;
    std::int16_t mode = 2;
    const session::UnitLabels u = session::set_units(mode);
    EXPECT_EQ(u.TemperatureLabel, "p(red)");
    EXPECT_EQ(u.PressureLabel, "kPa");
    EXPECT_EQ(u.VolumeLabel, "V(red)");
    EXPECT_DOUBLE_EQ(u.Factor, 4.0);
    EXPECT_FLOAT_EQ(session->TemperatureFactor, static_cast<float>(1.0 / 369.89));
    EXPECT_FLOAT_EQ(session->PressureFactor, static_cast<float>(1.0 / 4251.2));
}

TEST_F(Session, SpecificUnitsDivideByTheMolarMass) {
    session.change()->substance.M = 44.0F;
    std::int16_t mode = 1;
    const session::UnitLabels u = session::set_units(mode);
    EXPECT_DOUBLE_EQ(u.Factor, 1.0 / 44.0);
    EXPECT_EQ(u.VolumeLabel, "m^3/kg  ");
}

TEST_F(Session, CaloricFactorFollowsItsUnitForm) {
    session.change()->substance.M = 50.0F;
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
    session::set_commands(session, needing, true);
    session.change()->substanceNumber = 7;
    session.change()->batchMode = true;
    session.change()->models.HLVModel = codes::hlv(3);
    session::reset_session();
    for (const Command c : needing) EXPECT_FALSE(session::is_enabled(session, c));
    EXPECT_EQ(session->substanceNumber, 0);
    EXPECT_FALSE(session->batchMode);
    EXPECT_EQ(models::code_of(session->models.HLVModel), 0);
    EXPECT_EQ(session->reference.RefMode, 1);
}

}  // namespace
