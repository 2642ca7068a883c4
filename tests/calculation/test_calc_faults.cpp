#include <cmath>

#include "calc_test.h"
#include "models/saturation.h"
#include "support/fluids.h"

using namespace quor;

namespace {

/// Singular and extreme inputs.
class CalcFaults : public CalcTest {
  protected:
    CalcFaults() {
        use_fluid();
        use_models({});
    }

    double Tc() const { return substance.Tcrit; }
};

TEST_F(CalcFaults, ZeroMolarMassInSpecificUnitsEndsInTheGuard) {
    use_units(1);
    substance.M = 0;
    use_input({.T = 300, .p = 900, .rhoV = 10.0F, .rhoL = 500.0F});
    for (const int mode : Codes{1, 2, 3, 4, 5, 6, 7, 8, 11, 13, 16}) {
        SCOPED_TRACE(mode);
        user.messages.clear();
        EXPECT_TRUE(calculate(mode).Failed);
        ASSERT_EQ(user.messages.size(), 1U);
        EXPECT_EQ(user.lastText(), "Division by zero");
        EXPECT_EQ(user.lastTitle(), "WARNING");
        EXPECT_EQ(lastRecord.phases, "   ");
    }
}

TEST_F(CalcFaults, ZeroMolarMassInMolarUnitsGivesNoDensityAndNoFault) {
    substance.M = 0;
    use_input({.T = 300, .p = 900, .rhoV = 10.0F});
    for (const int mode : Codes{1, 3, 4, 8, 13}) {
        SCOPED_TRACE(mode);
        calculate(mode);
        for (const double value : numbers) EXPECT_TRUE(std::isfinite(value));
        EXPECT_EQ(resultText.co2.text.find("nan"), std::string::npos);
    }
}

TEST_F(CalcFaults, AReferencePointAtTheCriticalPointGivesNoLiquid) {
    chosen.method.global = false;
    substance.Tcrit = static_cast<double>(static_cast<float>(Tc()));
    chosen.method.reference = {static_cast<float>(Tc()), 4000.0F, 300.0F, 150.0F};
    use_input({.T = 300});
    calculate(4);
    EXPECT_EQ(lastRecord.rhoL, 0.0F);
    for (const double value : numbers) EXPECT_TRUE(std::isfinite(value));
}

TEST_F(CalcFaults, AValueBeyond32BitsEndsInTheGuard) {
    substance.M = 1e38F;
    use_input({.T = 300, .p = 1e5});
    const Outcome call = calculate(3);
    EXPECT_TRUE(call.Failed);
    EXPECT_EQ(user.lastText().substr(0, 8), "Overflow");
    EXPECT_EQ(user.lastTitle(), "WARNING");
}

TEST_F(CalcFaults, NoInputMakesANumberThatIsNone) {
    const double values[] = {1e-300, 1e-7,  1e-6,   0.5, 85.0, 300.0,
                             369.89, 370.0, 4251.2, 1e5, 1e9,  1e300};
    for (const int eos : Codes{0, 2, 3, 4, 5, 6, 10, 11, 16}) {
        use_models({.eos = eos});
        use_benson_reference();
        for (const bool global : {true, false})
            for (const double T : values)
                for (const double p : values) {
                    const auto rho = static_cast<float>(std::min(p, 1e30));
                    use_input({.T = T, .p = p, .rhoV = rho, .rhoL = rho});
                    for (int mode = 1; mode <= 24; ++mode) {
                        chosen.method.global = global;
                        calculate(mode, report::Tell::necessary);
                        for (const double value : numbers)
                            ASSERT_TRUE(std::isfinite(value)) << mode << " " << T << " " << p;
                    }
                }
    }
}

TEST_F(CalcFaults, NoSubstanceAndNoCubicModelMissesAnEquilibrium) {
    int states = 0;
    for (const std::string& name : fluids::AllNames())
        for (const int eos : Codes{2, 3, 4, 5, 6}) {
            use_fluid(name);
            const models::SubstanceRecord& s = substance;
            if (s.Tcrit <= 0 || s.pcrit <= 0 || (eos > 4 && s.omega == 0)) continue;
            use_models({.eos = eos, .vp = "000"});
            for (const double Tr : {0.35, 0.45, 0.6, 0.7, 0.8, 0.9, 0.97, 0.995}) {
                const double T = Tr * s.Tcrit;
                const auto sat = models::saturation_pressure(fluid(), T);
                ASSERT_TRUE(sat);
                if (sat->p < 1e-5) continue;  // a p below 1E-6 kPa counts as not given
                SCOPED_TRACE(testing::Message() << name << " eos " << eos << " Tr " << Tr);
                use_input({.T = T, .p = sat->p});
                for (const int mode : Codes{4, 5}) {
                    ASSERT_FALSE(calculate(mode, report::Tell::necessary).Failed);
                    ASSERT_EQ(resultText.phases, "V+L");
                }
                for (const double y : {0.05, 0.3, 0.8}) {
                    const double v = (1 - y) * sat->v[0] + y * sat->v[2];
                    const auto rho = static_cast<float>(static_cast<double>(s.M) / v);
                    if (rho < 1e-5F) continue;
                    use_input({.T = T, .p = sat->p, .rhoV = rho});
                    for (const int mode : Codes{1, 13}) {
                        ASSERT_FALSE(calculate(mode, report::Tell::necessary).Failed)
                            << "mode " << mode;
                        ASSERT_EQ(resultText.phases, "V+L") << "mode " << mode;
                    }
                    ++states;
                }
            }
        }
    EXPECT_GT(states, 15000);
}

}  // namespace
