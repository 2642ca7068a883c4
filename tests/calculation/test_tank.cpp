#include <cmath>

#include "calc_test.h"
#include "calculation/tank.h"
#include "expected_text.h"
#include "models/cubic_eos.h"
#include "models/density.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "report/tank_picture.h"
#include "report/titles.h"
#include "support/codes.h"

using namespace quor;

namespace {

using calculation::Reason;
using expected::between;
using expected::fix;
using expected::row;

constexpr auto kVolume = "Volume                   V/m^3  = ";
constexpr auto kMass = "Mass                      m/kg  = ";
constexpr auto kAmount = "amount of substance      n/kmol = ";

/// The tank of the session in mode 9 (global) or 10 (partial).
class Tank : public CalcTest {
  protected:
    Tank() {
        use_fluid();
        use_models({});
    }

    double M() const { return static_cast<double>(substance.M); }

    /// Calculates as behind the input of a tank; `level` and `p` are what the picture shows.
    Reason fill(int mode, double V, double m, double T) {
        chosen.method.global = mode == 9;
        tank = {static_cast<float>(V), static_cast<float>(m), static_cast<float>(T)};
        calculate(mode, report::Tell::all);
        const report::TankState filled = report::tank_state_of(last);
        level = filled.level;
        p = filled.p;
        return filled.reason;
    }

    report::TankPicture picture() const {
        return report::describe_tank(report::tank_state_of(last));
    }

    /// The lines of the content, from volumes and masses of both phases.
    std::vector<std::string> content(double V, double m, double vapour_volume, double rhoL,
                                     double rhoV) const {
        const double mL = (V - vapour_volume) * rhoL, mV = vapour_volume * rhoV;
        const auto both = [&](const char* label, double L, double Vv, int most) {
            return row(label, "", rhoL > 0 ? between(L, 4, most) : "",
                       rhoV > 0 ? between(Vv, 4, most) : "");
        };
        return {
            "Vapour fraction y(V) = " + between(mV / m, 1, 8),
            "volume fraction V-phase phi(V),% = " + between(vapour_volume / V * 100, 1, 4) + " %",
            "Mass fraction = Mole fract. V-Phase y(V),% = " + between(mV / m * 100, 1, 4) + " %",
            both(kVolume, V - vapour_volume, vapour_volume, 6),
            both(kMass, mL, mV, 6),
            both(kAmount, mL / M(), mV / M(), 4)};
    }

    double level = 0, p = 0;

    std::vector<std::string> first_lines(std::size_t count) const {
        const auto all = lines();
        return {all.begin(),
                all.begin() + static_cast<std::ptrdiff_t>(std::min(count, all.size()))};
    }
};

TEST_F(Tank, DividesItsContentByTheEos) {
    fill(9, 2.0, 200.0, 300.0);
    const auto sat = models::saturation_pressure(fluid(), 300.0);
    const double rhoL = M() / sat->v[0], rhoV = M() / sat->v[2];
    // Mass balance: VV rhoV + (V - VV) rhoL = m.
    const double vapour_volume = (2.0 * rhoL - 200.0) / (rhoL - rhoV);
    EXPECT_EQ(first_lines(6), content(2.0, 200.0, vapour_volume, rhoL, rhoV));
    EXPECT_EQ(resultText.phases, "V+L");
    EXPECT_NEAR(level, (2.0 - vapour_volume) / 2.0 * 100.0, 1e-4);
    EXPECT_NEAR(p, sat->p, 1e-3);
    EXPECT_EQ(resultText.co2.text, "Vapour pressure p/kPa = " + fix(sat->p, 3));
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Tank, DividesItsContentByThePartialMethod) {
    for (const int eos : Codes{6, 16}) {
        SCOPED_TRACE(eos);
        use_models({.eos = eos});
        use_benson_reference();
        fill(10, 1.0, 150.0, 290.0);
        const double pLV = models::vapour_pressure(substance, 290.0, codes::vp("WAG"))->p;
        const double rhoV = *models::solve_state_tp(fluid(), 290.0, pLV)->rhoV;
        const double rhoL = *models::density_l_benson(290.0, substance.Tcrit, substance.rhocrit,
                                                      rhoV, chosen.method.reference);
        ASSERT_GT(rhoL, 400.0);
        const double vapour_volume = (rhoL - 150.0) / (rhoL - rhoV);
        EXPECT_EQ(first_lines(6), content(1.0, 150.0, vapour_volume, rhoL, rhoV));
        EXPECT_NEAR(level, (1.0 - vapour_volume) * 100.0, 1e-4);
        EXPECT_EQ(resultText.co2.text, "Vapour pressure p/kPa = " + fix(pLV, 3));
        EXPECT_FALSE(resultText.diagnosis.enabled);
    }
}

TEST_F(Tank, PartialMethodTakesTheDatabaseEquation) {
    substance.rhoL_coefficients = {870.0F, -1.2F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F};
    substance.rhoL_T_low = 150;
    substance.rhoL_T_high = 360;
    chosen.method.liquid_by_benson = false;
    fill(10, 1.0, 150.0, 290.0);
    EXPECT_NEAR(static_cast<double>(lastRecord.rhoL), 870.0 - 1.2 * 290.0, 1e-3);
    EXPECT_EQ(report::title_of(calculation::Task::partialTank, chosen.method),
              "Phases and Pressure in a Tank (partial calculation, rho_L  (from database)");
}

TEST_F(Tank, AboveTheLiquidDensityItIsFull) {
    use_benson_reference();
    fill(10, 1.0, 600.0, 300.0);
    EXPECT_DOUBLE_EQ(level, 100.0);
    EXPECT_EQ(resultText.phases, " L ");
    EXPECT_EQ(first_lines(6), content(1.0, 600.0, 0.0, 600.0, 0.0));
    fill(9, 1.0, 540.0, 300.0);
    EXPECT_DOUBLE_EQ(level, 100.0);
}

TEST_F(Tank, BelowTheVapourDensityItHoldsOnlyVapour) {
    use_benson_reference();
    for (const int mode : Codes{9, 10}) {
        SCOPED_TRACE(mode);
        fill(mode, 1.0, 5.0, 300.0);
        EXPECT_DOUBLE_EQ(level, 0.0);
        EXPECT_EQ(resultText.phases, " V ");
        models::EosState eos = models::eos_at(fluid(), 300.0);
        EXPECT_NEAR(p, models::pressure_from_Tv(fluid(), 300.0, M() / 5.0, eos).value(), 1e-3);
        EXPECT_EQ(first_lines(6), content(1.0, 5.0, 1.0, 0.0, 5.0));
    }
}

TEST_F(Tank, PartialMethodNeedsAnEquilibrium) {
    fill(10, 1.0, 100.0, 369.89);
    EXPECT_TRUE(last.refused());
    ASSERT_EQ(user.messages.size(), 1U);
    // The temperature is kept as a 32-bit value, which lies just above Tcrit.
    EXPECT_EQ(user.lastText(),
              "\"Partial Calculation\" - usable only for phase equilibria (T < T(cr))\n"
              "(T(cr)/K =369.89)");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_TRUE(lines().empty());
}

TEST_F(Tank, WithoutAVapourPressureThereIsAnError) {
    use_models({.vp = "000"});
    use_benson_reference();
    EXPECT_EQ(fill(10, 1.0, 100.0, 300.0), Reason::noVapourPressure);
    EXPECT_EQ(resultText.co2.text, " System pressure p/kPa = (Error)");
    EXPECT_TRUE(resultText.co2.red);
    EXPECT_EQ(picture().level_text, "Error");
    EXPECT_EQ(picture().p_text, " Error: no p(LV)");
}

TEST_F(Tank, WithoutAReferencePointThereIsNoLiquid) {
    fill(10, 1.0, 100.0, 300.0);
    EXPECT_EQ(resultText.phases, "   ");
    EXPECT_TRUE(has_line("Message from Sub CalcBatch" + std::string(25, ' ') + " (no rho_L)"));
}

// It was drawn as a valid empty tank, with the vapour pressure of the failed state.
TEST_F(Tank, AFailureShowsNoFigure) {
    EXPECT_EQ(fill(10, 1.0, 100.0, 300.0), Reason::noTankLiquidDensity);
    EXPECT_EQ(p, 0);
    EXPECT_EQ(resultText.co2.text, " System pressure p/kPa = (Error)");
    EXPECT_TRUE(resultText.co2.red);
    EXPECT_TRUE(picture().error);
    EXPECT_TRUE(picture().empty);
    EXPECT_EQ(picture().level_text, "Error");
    EXPECT_EQ(picture().p_text, " Error: no rho_L");
    EXPECT_EQ(picture().lower_text + picture().upper_text, "");
}

TEST_F(Tank, APressureBeyond32BitsIsAnErrorAndNotInfinite) {
    fill(9, 1.0, 10.0, 3e38);
    EXPECT_TRUE(last.failed());
    EXPECT_EQ(p, 0);
    EXPECT_TRUE(picture().error);
    EXPECT_EQ(picture().p_text, " Error: no state found");
    EXPECT_EQ(lastRecord.p, 0.0F);
    for (const float none : {INFINITY, NAN, -INFINITY}) {
        EXPECT_EQ(fill(9, static_cast<double>(none), 10.0, 300.0), Reason::noTank);
        EXPECT_EQ(fill(9, 1.0, static_cast<double>(none), 300.0), Reason::noTank);
        EXPECT_EQ(fill(10, 1.0, 10.0, static_cast<double>(none)), Reason::noTank);
        EXPECT_EQ(picture().p_text, " Error: no tank");
    }
}

TEST_F(Tank, OverfilledTankOfTheEosIsAnError) {
    EXPECT_EQ(fill(9, 1.0, 900.0, 300.0), Reason::belowCovolume);
    EXPECT_DOUBLE_EQ(picture().level, 100.0);
    EXPECT_EQ(picture().level_text, "Error");
    EXPECT_EQ(picture().p_text, " Error: v <= b");
}

TEST_F(Tank, VirialModelBelowBIsAnError) {
    use_models({.eos = 10});
    eos_parameters.b0 = 0.5;
    eos_parameters.nb = 0.0;
    EXPECT_EQ(fill(9, 1.0, 200.0, 300.0), Reason::belowVirial);
    EXPECT_TRUE(picture().error);
    EXPECT_EQ(picture().level_text, "Error");
    EXPECT_EQ(picture().p_text, " Error: v < B");
    EXPECT_EQ(picture().hint, "cf. help \"Tank\"");
}

TEST_F(Tank, WarnsBelowTheTriplePoint) {
    substance.Ttriple = 250.0F;
    fill(9, 1.0, 100.0, 240.0);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "T < T(TP) (Triple Point)");
    EXPECT_EQ(user.lastTitle(), "WARNING");
}

TEST_F(Tank, IncompleteDataEndAtOnce) {
    fill(9, 0.0, 100.0, 300.0);
    EXPECT_TRUE(resultText.par1.text.empty());
    EXPECT_TRUE(lines().empty());
    EXPECT_EQ(p, 0.0);
}

TEST_F(Tank, PictureTellsLevelPressureAndPhases) {
    report::TankState filled{.global = true,
                             .T = 300.0,
                             .Tcrit = substance.Tcrit,
                             .p = static_cast<double>(997.4284F),
                             .level = 16.0919};
    report::TankPicture picture = report::describe_tank(filled);
    EXPECT_EQ(picture.title, "Tank Calculation (global method) ");
    EXPECT_EQ(picture.caption, "Cylinder shaped tank");
    EXPECT_EQ(picture.level_text, "Filling level 16.09vol.-%");
    EXPECT_EQ(picture.p_text, "p = 997.428 kPa");
    EXPECT_EQ(picture.lower_text, "  L-phase");
    EXPECT_EQ(picture.upper_text, "  V-phase");
    EXPECT_FALSE(picture.supercritical);
    EXPECT_DOUBLE_EQ(picture.section, filled.level);

    filled.global = false;
    filled.p = 20000.25;
    filled.T = 400.0;
    picture = report::describe_tank(filled);
    EXPECT_EQ(picture.title, "Tank Calculation (partial method)");
    EXPECT_EQ(picture.p_text, "p = 20000.25 kPa");
    EXPECT_EQ(picture.lower_text, " supercritical");
    EXPECT_TRUE(picture.supercritical);
}

TEST_F(Tank, PictureMirrorsTheUpperHalf) {
    const struct {
        double level, section;
        bool mirrored;
    } cases[] = {{-1, 1e-6, false},   {0, 1e-6, false},   {30, 30, false}, {49.9, 49.8, false},
                 {50, 49.8, false},   {50.1, 49.8, true}, {80, 20, true},  {99.85, 0.15, true},
                 {99.9, 49.8, false}, {100, 49.8, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.level);
        const report::TankPicture picture =
            report::describe_tank({.T = 300.0, .Tcrit = substance.Tcrit, .level = c.level});
        EXPECT_NEAR(picture.section, c.section, 1e-9);
        EXPECT_EQ(picture.mirrored, c.mirrored);
        EXPECT_DOUBLE_EQ(picture.level, std::max(0.0, c.level));
    }
}

}  // namespace
