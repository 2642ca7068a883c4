#include <fstream>
#include <string>
#include <vector>

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
    EXPECT_TRUE(session->calculation.method.liquid_by_benson);
    EXPECT_EQ(session->curve_options.points, 300);
    EXPECT_EQ(session->csv_separator, ';');
    EXPECT_EQ(session->calculation.iso_function, calculation::IsoFunction::V);
    EXPECT_EQ(session->calculation.iso_given, calculation::IsoGiven::p);
    EXPECT_EQ(models::code_of(session->models.eos), -1);
    EXPECT_EQ(session->models.vapour_pressure, models::VapourPressureEquation::none);
    EXPECT_EQ(session->reference.mode, 1);
    EXPECT_FLOAT_EQ(session->reference.p0, 101.325F);
    EXPECT_TRUE(session->measured.points.empty());
    EXPECT_TRUE(session->results.rows.empty());
    EXPECT_EQ(session->last_session_file, (folder() / "QuorLastSession.QCF").string());
    EXPECT_FALSE(session::is_enabled(session, session::Command::calculations));
    EXPECT_FALSE(session->decimal_comma);
}

TEST_F(Session, DecimalCommaFollowsTheLocale) {
    numbers::set_decimal_mark(',');
    session::reset_everything(session);
    EXPECT_TRUE(session->decimal_comma);
}

TEST_F(Session, ReducedUnitsWithoutCriticalVolumeFallBackToMolar) {
    session.change()->substance.Tcrit = 0;
    session.change()->units.system = models::UnitSystem::reduced;
    session::settle_units(session);
    EXPECT_EQ(session->units.system, models::UnitSystem::molar);
    const models::Units u = session::present_units(session);
    EXPECT_EQ(u.v_label, "m^3/kmol");
    EXPECT_EQ(u.T_label, "K");
    EXPECT_DOUBLE_EQ(u.v, 1.0);
}

TEST_F(Session, ReducedUnitsNameEveryQuantity) {
    session.change()->substance = fluids::ReferencePropane();
    session.change()->eos_parameters.vcrit_calculated = 0.25;
    session.change()->units.system = models::UnitSystem::reduced;
    const models::Units u = session::present_units(session);
    EXPECT_EQ(u.T_label, "T(red)");
    EXPECT_EQ(u.p_label, "p(red)");
    EXPECT_EQ(u.v_label, "V(red)");
    EXPECT_DOUBLE_EQ(u.v, 4.0);
    EXPECT_FLOAT_EQ(u.T, static_cast<float>(1.0 / 369.89));
    EXPECT_FLOAT_EQ(u.p, static_cast<float>(1.0 / 4251.2));
}

TEST_F(Session, SpecificUnitsDivideByTheMolarMass) {
    session.change()->substance.M = 44.0F;
    session.change()->units.system = models::UnitSystem::specific;
    const models::Units u = session::present_units(session);
    EXPECT_DOUBLE_EQ(u.v, 1.0 / 44.0);
    EXPECT_EQ(u.v_label, "m^3/kg  ");
}

TEST_F(Session, CaloricFactorFollowsItsUnitForm) {
    using enum models::CaloricUnit;
    models::SubstanceRecord s;
    s.M = 50.0F;
    EXPECT_DOUBLE_EQ(models::caloric_factor(molar, 300, s), 1.0);
    EXPECT_DOUBLE_EQ(models::caloric_factor(kelvin, 300, s), 1 / 8.31451);
    EXPECT_DOUBLE_EQ(models::caloric_factor(RT, 300, s), 1 / (8.31451 * 300));
    EXPECT_DOUBLE_EQ(models::caloric_factor(specific, 300, s), 1 / 50.0);
}

TEST_F(Session, BusyPointerNests) {
    {
        const session::BusyPointer outer(session);
        { const session::BusyPointer inner(session); }
        EXPECT_EQ(user.pointer, std::vector<bool>{true});
    }
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}));
}

TEST_F(Session, ListenersAreToldOnceWhenTheOutermostChangeEnds) {
    int told = 0;
    const session::Connection connection = session.on_change([&] { ++told; });
    {
        const auto outer = session.change();
        outer->batch_mode = true;
        session.change()->english = false;
        EXPECT_EQ(told, 0);
    }
    EXPECT_EQ(told, 1);
    session.change()->english = true;
    EXPECT_EQ(told, 2);
}

TEST_F(Session, WhoHasLeftIsNotToldAnyMore) {
    std::vector<std::string> told;
    session::Connection second;
    const session::Connection first = session.on_change([&] {
        told.push_back("first");
        second.end();
    });
    second = session.on_change([&] { told.push_back("second"); });
    session.change()->batch_mode = true;
    EXPECT_EQ(told, std::vector<std::string>{"first"});
}

TEST_F(Session, AConnectionMayOutliveItsSession) {
    session::Connection connection;
    {
        session::Session other;
        connection = other.on_change([] {});
    }
    EXPECT_NO_THROW(connection.end());
}

TEST_F(Session, TheFluidFollowsTheState) {
    session.change()->substance = fluids::ReferencePropane();
    const models::Fluid before = session.fluid();
    EXPECT_TRUE(session.fluid().is_same(before)) << "made once";
    session.change()->substance.Tcrit = 400;
    EXPECT_EQ(session.fluid().substance().Tcrit, 400);
    EXPECT_NE(before.substance().Tcrit, 400);
}

TEST_F(Session, ResetSessionDisablesWhatNeedsASubstance) {
    using session::Command;
    const auto needing = {Command::calculations, Command::options,  Command::fitting,
                          Command::diagrams,     Command::surfaces, Command::saveProject,
                          Command::toolSave};
    session::set_commands(session, needing, true);
    session.change()->substance_number = 7;
    session.change()->batch_mode = true;
    session.change()->models.vaporisation = codes::hlv(3);
    session::reset_session(session);
    for (const Command c : needing) EXPECT_FALSE(session::is_enabled(session, c));
    EXPECT_EQ(session->substance_number, 0);
    EXPECT_FALSE(session->batch_mode);
    EXPECT_EQ(models::code_of(session->models.vaporisation), 0);
    EXPECT_EQ(session->reference.mode, 1);
}

}  // namespace
