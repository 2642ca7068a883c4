#include "session/options.h"
#include "support/codes.h"

#include "app/menu_catalogue.h"
#include "session/module2.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using legacy::the_session;

class Options : public SessionTest {
  protected:
    Options() {
        legacy::the_substance = fluids::ReferencePropane();
        legacy::the_models.EOSModel = codes::eos(6);
        legacy::the_eosParameters.vcritCalc = 0.2;
    }
};

TEST_F(Options, OpenWithTheSettingsOfTheSession) {
    the_session.CaloricUnit = 3;
    the_session.UnitMode = 2;
    the_session.BatchMode = true;
    the_session.PointsPerCurve = 450;
    the_session.PartialGasCurve = true;
    const session::OptionChoice c = session::open_options();
    EXPECT_TRUE(c.specific && c.reduced && c.batch && c.partialGas && c.realRange);
    EXPECT_EQ(c.points, 450);
    EXPECT_TRUE(c.reducedPossible);
    EXPECT_TRUE(c.sCurvePossible);
}

TEST_F(Options, WithoutCriticalDataReducedUnitsAreNotOffered) {
    legacy::the_substance.pcrit = 0;
    the_session.UnitMode = 2;
    EXPECT_FALSE(session::open_options().reducedPossible);
    EXPECT_EQ(the_session.UnitMode, 0);
}

TEST_F(Options, AVOnlyEquationHasNoSCurve) {
    legacy::the_models.EOSOnlyV = true;
    EXPECT_FALSE(session::open_options().sCurvePossible);
}

TEST_F(Options, SpecificUnitsSetFactorsAndLabels) {
    session::OptionChoice c = session::open_options();
    c.specific = true;
    ASSERT_TRUE(session::apply_options(c));
    const double M = static_cast<double>(legacy::the_substance.M);
    EXPECT_EQ(the_session.CaloricUnit, 3);
    EXPECT_EQ(the_session.UnitMode, 1);
    EXPECT_DOUBLE_EQ(the_session.CaloricFactor, 1 / M);
    EXPECT_DOUBLE_EQ(the_session.VolumeFactor, 1 / M);
    EXPECT_EQ(the_session.VolumeLabel, "m^3/kg  ");
    EXPECT_TRUE(the_session.UnitsChanged);
    ASSERT_TRUE(session::apply_options(session::open_options()));
    EXPECT_FALSE(the_session.UnitsChanged) << "nothing changed the second time";
}

TEST_F(Options, ReducedUnitsOverrideTheVolumeUnit) {
    session::OptionChoice c = session::open_options();
    c.reduced = true;
    ASSERT_TRUE(session::apply_options(c));
    EXPECT_EQ(the_session.UnitMode, 2);
    EXPECT_DOUBLE_EQ(the_session.VolumeFactor, 5.0);
    EXPECT_EQ(the_session.TemperatureLabel, "p(red)");
}

TEST_F(Options, WithoutMolarMassSpecificUnitsAreRefusedAndNothingChanges) {
    legacy::the_substance.M = 0;
    session::OptionChoice c = session::open_options();
    c.specific = true;
    c.batch = true;
    EXPECT_FALSE(session::apply_options(c));
    EXPECT_EQ(user.lastText(), "Division by zero");
    EXPECT_EQ(the_session.CaloricUnit, 0);
    EXPECT_FALSE(the_session.BatchMode);
}

TEST_F(Options, TheCalculationMenuFollowsTheMode) {
    const menu::Row* first = menu::Find("mnuCalc_0");
    const menu::Row* second = menu::Find("mnuCalc_1");
    const menu::Row* tank = menu::Find("mnuCalc_15");
    ASSERT_TRUE(first != nullptr && second != nullptr && tank != nullptr);
    session::OptionChoice c = session::open_options();
    c.batch = true;
    session::apply_options(c);
    EXPECT_EQ(menu::Caption(*first), "columns T, rho(V) => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*second), "columns T, rho(L) => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*menu::Find("mnuCalc_2")),
              "columns T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*menu::Find("mnuCalc_3")),
              "columns p, rho(V) => T, state L/V     + thermod. Fu.");
    EXPECT_TRUE(menu::Visible(*second));
    EXPECT_FALSE(menu::allowed(*tank));
    c.batch = false;
    session::apply_options(c);
    EXPECT_EQ(menu::Caption(*first), "T, rho      => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*menu::Find("mnuCalc_2")),
              "T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*menu::Find("mnuCalc_3")),
              "p, rho      => T, state L/V     + thermod. Fu.");
    EXPECT_FALSE(menu::Visible(*second));
}

TEST_F(Options, PointsStayWithinTheirRange) {
    session::OptionChoice c = session::open_options();
    c.points = 5000;
    session::apply_options(c);
    EXPECT_EQ(the_session.PointsPerCurve, session::kMaxPoints);
}

TEST_F(Options, DiagramLimitsAreDerivedAgain) {
    static int calls = 0;
    calls = 0;
    session::on_options_applied([] { ++calls; });
    session::apply_options(session::open_options());
    session::on_options_applied(nullptr);
    EXPECT_EQ(calls, 1);
}

}  // namespace
