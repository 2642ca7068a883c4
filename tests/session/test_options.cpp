#include "session/options.h"

#include "session/menu_catalogue.h"
#include "session/module2.h"
#include "support/fluids.h"
#include "support/session_test.h"

namespace {

using Declare::session;

class Options : public SessionTest {
  protected:
    Options() {
        Declare::substance = fluids::ReferencePropane();
        Declare::models.EOSModel = 6;
        Declare::eosParameters.vcritCalc = 0.2;
    }
};

TEST_F(Options, OpenWithTheSettingsOfTheSession) {
    session.CaloricUnit = 3;
    session.UnitMode = 2;
    session.BatchMode = true;
    session.PointsPerCurve = 450;
    session.PartialGasCurve = true;
    const Module2::OptionChoice c = Module2::OpenOptions();
    EXPECT_TRUE(c.specific && c.reduced && c.batch && c.partialGas && c.realRange);
    EXPECT_EQ(c.points, 450);
    EXPECT_TRUE(c.reducedPossible);
    EXPECT_TRUE(c.sCurvePossible);
}

TEST_F(Options, WithoutCriticalDataReducedUnitsAreNotOffered) {
    Declare::substance.pcrit = 0;
    session.UnitMode = 2;
    EXPECT_FALSE(Module2::OpenOptions().reducedPossible);
    EXPECT_EQ(session.UnitMode, 0);
}

TEST_F(Options, AVOnlyEquationHasNoSCurve) {
    Declare::models.EOSOnlyV = true;
    EXPECT_FALSE(Module2::OpenOptions().sCurvePossible);
}

TEST_F(Options, SpecificUnitsSetFactorsAndLabels) {
    Module2::OptionChoice c = Module2::OpenOptions();
    c.specific = true;
    ASSERT_TRUE(Module2::ApplyOptions(c));
    const double M = static_cast<double>(Declare::substance.M);
    EXPECT_EQ(session.CaloricUnit, 3);
    EXPECT_EQ(session.UnitMode, 1);
    EXPECT_DOUBLE_EQ(session.CaloricFactor, 1 / M);
    EXPECT_DOUBLE_EQ(session.VolumeFactor, 1 / M);
    EXPECT_EQ(session.VolumeLabel, "m^3/kg  ");
    EXPECT_TRUE(session.UnitsChanged);
    ASSERT_TRUE(Module2::ApplyOptions(Module2::OpenOptions()));
    EXPECT_FALSE(session.UnitsChanged) << "nothing changed the second time";
}

TEST_F(Options, ReducedUnitsOverrideTheVolumeUnit) {
    Module2::OptionChoice c = Module2::OpenOptions();
    c.reduced = true;
    ASSERT_TRUE(Module2::ApplyOptions(c));
    EXPECT_EQ(session.UnitMode, 2);
    EXPECT_DOUBLE_EQ(session.VolumeFactor, 5.0);
    EXPECT_EQ(session.TemperatureLabel, "p(red)");
}

TEST_F(Options, WithoutMolarMassSpecificUnitsAreRefusedAndNothingChanges) {
    Declare::substance.M = 0;
    Module2::OptionChoice c = Module2::OpenOptions();
    c.specific = true;
    c.batch = true;
    EXPECT_FALSE(Module2::ApplyOptions(c));
    EXPECT_EQ(user.lastText(), "Division by zero");
    EXPECT_EQ(session.CaloricUnit, 0);
    EXPECT_FALSE(session.BatchMode);
}

TEST_F(Options, TheCalculationMenuFollowsTheMode) {
    const menu::Row* first = menu::Find("mnuCalc_0");
    const menu::Row* second = menu::Find("mnuCalc_1");
    const menu::Row* tank = menu::Find("mnuCalc_15");
    ASSERT_TRUE(first != nullptr && second != nullptr && tank != nullptr);
    Module2::OptionChoice c = Module2::OpenOptions();
    c.batch = true;
    Module2::ApplyOptions(c);
    EXPECT_EQ(menu::Caption(*first), "columns T, rho(V) => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*second), "columns T, rho(L) => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*menu::Find("mnuCalc_2")),
              "columns T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*menu::Find("mnuCalc_3")),
              "columns p, rho(V) => T, state L/V     + thermod. Fu.");
    EXPECT_TRUE(menu::Visible(*second));
    EXPECT_FALSE(menu::Allowed(*tank));
    c.batch = false;
    Module2::ApplyOptions(c);
    EXPECT_EQ(menu::Caption(*first), "T, rho      => p, state L/V     + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*menu::Find("mnuCalc_2")),
              "T, p         => rho, state L/V  + thermod. Fu.");
    EXPECT_EQ(menu::Caption(*menu::Find("mnuCalc_3")),
              "p, rho      => T, state L/V     + thermod. Fu.");
    EXPECT_FALSE(menu::Visible(*second));
}

TEST_F(Options, PointsStayWithinTheirRange) {
    Module2::OptionChoice c = Module2::OpenOptions();
    c.points = 5000;
    Module2::ApplyOptions(c);
    EXPECT_EQ(session.PointsPerCurve, Module2::kMaxPoints);
}

TEST_F(Options, DiagramLimitsAreDerivedAgain) {
    static int calls = 0;
    calls = 0;
    Module2::OnOptionsApplied([] { ++calls; });
    Module2::ApplyOptions(Module2::OpenOptions());
    Module2::OnOptionsApplied(nullptr);
    EXPECT_EQ(calls, 1);
}

}  // namespace
