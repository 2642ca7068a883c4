#include "session/options.h"
#include "support/codes.h"

#include "app/menu_catalogue.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

class Options : public SessionTest {
  protected:
    Options() {
        session.change()->substance = fluids::ReferencePropane();
        session.change()->models.eos = codes::eos(6);
        session.change()->eos_parameters.vcrit_calculated = 0.2;
    }
};

TEST_F(Options, OpenWithTheSettingsOfTheSession) {
    session.change()->units.caloric = models::CaloricUnit::specific;
    session.change()->units.system = models::UnitSystem::reduced;
    session.change()->batch_mode = true;
    session.change()->curve_options.points = 450;
    session.change()->curve_options.partial_gas = true;
    const session::OptionChoice c = session::open_options(session);
    EXPECT_EQ(c.units.caloric, models::CaloricUnit::specific);
    EXPECT_EQ(c.units.system, models::UnitSystem::reduced);
    EXPECT_TRUE(c.batch && c.partial_gas && c.real_range);
    EXPECT_EQ(c.points, 450);
    EXPECT_TRUE(c.reduced_possible);
    EXPECT_TRUE(c.s_curve_possible);
}

TEST_F(Options, WithoutCriticalDataReducedUnitsAreNotOffered) {
    session.change()->substance.pcrit = 0;
    session.change()->units.system = models::UnitSystem::reduced;
    EXPECT_FALSE(session::open_options(session).reduced_possible);
    EXPECT_EQ(session->units.system, models::UnitSystem::molar);
}

TEST_F(Options, AVOnlyEquationHasNoSCurve) {
    session.change()->models.vapour_only = true;
    EXPECT_FALSE(session::open_options(session).s_curve_possible);
}

TEST_F(Options, SpecificUnitsSetFactorsAndLabels) {
    session::OptionChoice c = session::open_options(session);
    c.units = {models::UnitSystem::specific, models::CaloricUnit::specific};
    ASSERT_TRUE(session::apply_options(session, c));
    const double M = static_cast<double>(session->substance.M);
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::specific);
    EXPECT_EQ(session->units.system, models::UnitSystem::specific);
    EXPECT_DOUBLE_EQ(session->caloric_factor, 1 / M);
    EXPECT_DOUBLE_EQ(session::present_units(session).v, 1 / M);
    EXPECT_EQ(session::present_units(session).v_label, "m^3/kg  ");
    EXPECT_TRUE(session->units_changed);
    ASSERT_TRUE(session::apply_options(session, session::open_options(session)));
    EXPECT_FALSE(session->units_changed) << "nothing changed the second time";
}

TEST_F(Options, ReducedUnitsOverrideTheVolumeUnit) {
    session::OptionChoice c = session::open_options(session);
    c.units.system = models::UnitSystem::reduced;
    ASSERT_TRUE(session::apply_options(session, c));
    EXPECT_EQ(session->units.system, models::UnitSystem::reduced);
    EXPECT_DOUBLE_EQ(session::present_units(session).v, 5.0);
    EXPECT_EQ(session::present_units(session).p_label, "p(red)");
}

TEST_F(Options, WithoutMolarMassSpecificUnitsAreRefusedAndNothingChanges) {
    session.change()->substance.M = 0;
    session::OptionChoice c = session::open_options(session);
    c.units = {models::UnitSystem::specific, models::CaloricUnit::specific};
    c.batch = true;
    EXPECT_FALSE(session::apply_options(session, c));
    EXPECT_EQ(user.lastText(), "Division by zero");
    EXPECT_EQ(session->units.caloric, models::CaloricUnit::molar);
    EXPECT_FALSE(session->batch_mode);
}

TEST_F(Options, TheCalculationMenuFollowsTheMode) {
    const menu::Row* first = menu::find("mnuCalc_0");
    const menu::Row* second = menu::find("mnuCalc_1");
    const menu::Row* tank = menu::find("mnuCalc_15");
    ASSERT_TRUE(first != nullptr && second != nullptr && tank != nullptr);
    session::OptionChoice c = session::open_options(session);
    c.batch = true;
    session::apply_options(session, c);
    EXPECT_EQ(menu::caption(session, *first),
              "columns T, rho(V) => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, *second),
              "columns T, rho(L) => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, *menu::find("mnuCalc_2")),
              "columns T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, *menu::find("mnuCalc_3")),
              "columns p, rho(V) => T, state L/V     + thermod. Fu.");
    EXPECT_TRUE(menu::visible(session, *second));
    EXPECT_FALSE(menu::allowed(session, *tank));
    c.batch = false;
    session::apply_options(session, c);
    EXPECT_EQ(menu::caption(session, *first), "T, rho      => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, *menu::find("mnuCalc_2")),
              "T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_EQ(menu::caption(session, *menu::find("mnuCalc_3")),
              "p, rho      => T, state L/V     + thermod. Fu.");
    EXPECT_FALSE(menu::visible(session, *second));
}

TEST_F(Options, PointsStayWithinTheirRange) {
    session::OptionChoice c = session::open_options(session);
    c.points = 5000;
    session::apply_options(session, c);
    EXPECT_EQ(session->curve_options.points, session::kMaxPoints);
}

TEST_F(Options, DiagramLimitsAreDerivedAgain) {
    session::apply_options(session, session::open_options(session));
    const float molar = session->coordinates.v_max;
    EXPECT_FLOAT_EQ(molar, 7 * 0.2F);
    session::OptionChoice c = session::open_options(session);
    c.units = {models::UnitSystem::specific, models::CaloricUnit::specific};
    session::apply_options(session, c);
    EXPECT_NEAR(session->coordinates.v_max, molar / session->substance.M, 1e-6);
}

}  // namespace
