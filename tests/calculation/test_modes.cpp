#include <cmath>

#include "calc_test.h"
#include "common/numbers.h"
#include "expected_text.h"
#include "models/model_tables.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "support/codes.h"

using namespace quor;

namespace {

using calculation::BatchDataSet;

constexpr std::int16_t kCubic[] = {2, 3, 4, 5, 6};
constexpr std::int16_t kVapourOnly[] = {0, 10, 11, 12, 13, 14, 15, 16};

/// Every mode on a grid of states, against the text that `expected_text` writes.
class Modes : public CalcTest {
  protected:
    Modes() { use_fluid(); }

    double Tc() const { return substance.Tcrit; }
    double pc() const { return substance.pcrit; }
    double M() const { return static_cast<double>(substance.M); }

    /// Calculates once as direct input and once as an experimental data set.
    void expect_text(int mode, const BatchDataSet& set) {
        for (const bool batch : {false, true}) {
            SCOPED_TRACE(testing::Message()
                         << "mode " << mode << " eos " << models::code_of(selection.eos)
                         << " units " << static_cast<int>(units.system) << " T " << set.T << " p "
                         << set.p << " rho " << set.rhoV << " batch " << batch);
            use_input(set, batch);
            const expected::Result e = expected::Of(setting(), mode, set);
            const Outcome call = calculate(mode);
            EXPECT_EQ(resultText.par1.text, e.par1);
            EXPECT_EQ(resultText.par2.text, e.par2);
            EXPECT_EQ(resultText.co1.text, e.co1);
            EXPECT_EQ(resultText.co2.text, e.co2);
            EXPECT_EQ(resultText.phases, e.phases);
            EXPECT_EQ(call.Failed, e.failed);
            EXPECT_EQ(lines(), e.list);
            for (std::size_t i = 0; i < e.numbers.size(); ++i)
                EXPECT_NEAR(numbers[i], e.numbers[i], 1e-9 * std::fabs(e.numbers[i])) << "Fu " << i;
            EXPECT_TRUE(user.messages.empty()) << user.lastText();
            ++compared;
        }
    }

    void for_all_units(const std::function<void()>& body) {
        for (const int unit : {0, 1, 2}) {
            use_units(unit);
            body();
        }
    }

    static BatchDataSet given(double T, double p, double rho = 0) {
        return {0, T, p, static_cast<float>(rho), static_cast<float>(rho), 0, 0};
    }

    int compared = 0;
};

TEST_F(Modes, PressureFromTAndDensityOfCubicModels) {
    for (const std::int16_t eos : kCubic) {
        use_models({.eos = eos});
        for_all_units([&] {
            for (const double Tr : {0.6, 0.86, 0.97}) {
                const auto sat = models::saturation_pressure(fluid(), Tr * Tc());
                ASSERT_TRUE(sat);
                for (const double v : {1.7 * sat->v[2], 0.4 * sat->v[0] + 0.6 * sat->v[2],
                                       0.9 * sat->v[0] + 0.1 * sat->v[2], 0.995 * sat->v[0]}) {
                    expect_text(1, given(Tr * Tc(), 0, M() / v));
                    expect_text(2, given(Tr * Tc(), 0, M() / v));
                }
            }
            for (const double rho : {0.4, 80.0, 400.0}) expect_text(1, given(1.1 * Tc(), 0, rho));
        });
    }
    EXPECT_EQ(compared, 5 * 3 * (3 * 4 * 2 + 3) * 2);
}

TEST_F(Modes, PressureFromTAndDensityOfVapourOnlyModels) {
    for (const std::int16_t eos : kVapourOnly) {
        use_models({.eos = eos});
        for_all_units([&] {
            for (const double Tr : {0.7, 1.3})
                for (const double rho : {0.003, 1.25, 20.0})
                    expect_text(1, given(Tr * Tc(), 0, rho));
        });
    }
}

TEST_F(Modes, StateAtTAndP) {
    for (const std::int16_t eos : {kCubic[0], kCubic[2], kCubic[3], kCubic[4], kVapourOnly[0],
                                   kVapourOnly[1], kVapourOnly[4], kVapourOnly[7]}) {
        use_models({.eos = eos});
        for_all_units([&] {
            expect_text(3, given(0.6 * Tc(), 1.0));
            expect_text(3, given(0.8 * Tc(), 0.005));
            if (!selection.vapour_only) expect_text(3, given(0.8 * Tc(), 0.5 * pc()));
            expect_text(3, given(1.2 * Tc(), 0.5 * pc()));
            if (models::is_cubic(codes::eos(eos))) expect_text(3, given(0.7 * Tc(), 2 * pc()));
            if (models::is_cubic(codes::eos(eos))) expect_text(3, given(1.1 * Tc(), 1.5 * pc()));
        });
    }
}

TEST_F(Modes, TemperatureAtPAndDensity) {
    for (const std::int16_t eos :
         {kCubic[0], kCubic[3], kCubic[4], kVapourOnly[0], kVapourOnly[7]}) {
        use_models({.eos = eos});
        for_all_units([&] {
            expect_text(13, given(0, 300, 3.0));
            expect_text(13, given(0, 900, 8.0));
            if (models::is_cubic(codes::eos(eos))) expect_text(13, given(0, 1500, 120.0));
            if (models::is_cubic(codes::eos(eos))) expect_text(13, given(0, 6000, 150.0));
        });
    }
}

TEST_F(Modes, EquilibriumOfTheEos) {
    for (const std::int16_t eos : kCubic) {
        use_models({.eos = eos});
        for_all_units([&] {
            for (const double Tr : {0.55, 0.8, 0.98}) expect_text(4, given(Tr * Tc(), 0));
            for (const double pr : {0.03, 0.3, 0.95}) expect_text(5, given(0, pr * pc()));
        });
    }
}

TEST_F(Modes, EquilibriumOfTheVapourPressureEquation) {
    for (const char* code : {"WAG", "ALP", "AUG", "KFW", "KFR", "THO"}) {
        use_models({.vp = code, .priority = false});
        for_all_units([&] {
            expect_text(4, given(240.0, 0));
            expect_text(5, given(0, 150.0));
        });
    }
}

TEST_F(Modes, PartialEquilibrium) {
    chosen.method.global = false;
    // Parameters of a rational equation for the saturated liquid of about propane's density.
    substance.rhoL_coefficients = {870.0F, -1.2F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F};
    substance.rhoL_T_low = 150;
    substance.rhoL_T_high = 360;
    for (const std::int16_t eos : {kCubic[0], kCubic[4], kVapourOnly[0], kVapourOnly[7]}) {
        use_models({.eos = eos});
        use_benson_reference();
        ASSERT_TRUE(models::is_known(chosen.method.reference));
        for (const bool benson : {true, false}) {
            chosen.method.liquid_by_benson = benson;
            for_all_units([&] {
                for (const double T : {200.0, 280.0, 330.0}) expect_text(4, given(T, 0));
                for (const double p : {50.0, 800.0}) expect_text(5, given(0, p));
            });
        }
    }
}

TEST_F(Modes, EnthalpyOfVaporisationByAllMethods) {
    substance.rhoL_coefficients = {870.0F, -1.2F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F};
    substance.rhoL_T_low = 150;
    substance.rhoL_T_high = 360;
    for (const std::int16_t eos : {kCubic[4], kVapourOnly[7]})
        for (int method = 1; method <= 7; ++method) {
            if (method == 7 && eos == kVapourOnly[7]) continue;
            use_models({.eos = eos, .hlv = method});
            use_benson_reference();
            for_all_units([&] {
                expect_text(6, given(270.0, 0));
                expect_text(7, given(0, 600.0));
            });
        }
}

TEST_F(Modes, CaloricFunctions) {
    for (const std::int16_t eos :
         {kCubic[1], kCubic[3], kCubic[4], kVapourOnly[0], kVapourOnly[5], kVapourOnly[7]})
        for (const int cp : {1, 2}) {
            use_models({.eos = eos, .cp = cp});
            for_all_units([&] {
                expect_text(8, given(0.75 * Tc(), 100));
                expect_text(8, given(1.2 * Tc(), 2000));
                if (models::is_cubic(codes::eos(eos))) expect_text(8, given(0.75 * Tc(), 3000));
                if (models::is_cubic(codes::eos(eos))) expect_text(8, given(1.05 * Tc(), 6000));
            });
        }
}

TEST_F(Modes, VirialCoefficientsOfAllEquations) {
    for (const std::int16_t eos :
         {kCubic[0], kCubic[4], kVapourOnly[0], kVapourOnly[1], kVapourOnly[2], kVapourOnly[7]}) {
        use_models({.eos = eos});
        for_all_units([&] {
            expect_text(11, given(300, 0));
            expect_text(11, given(600, 0));
        });
    }
}

TEST_F(Modes, TellTheSameWithADecimalComma) {
    numbers::set_decimal_mark(',');
    for (const std::int16_t eos : {kCubic[4], kVapourOnly[7]}) {
        use_models({.eos = eos});
        for_all_units([&] {
            expect_text(1, given(320, 0, 12.5));
            expect_text(3, given(320, 300.5));
            expect_text(8, given(320, 300.5));
            expect_text(13, given(0, 300.5, 4.75));
            if (models::is_cubic(codes::eos(eos))) expect_text(4, given(320.25, 0));
            expect_text(11, given(320.25, 0));
        });
    }
}

TEST_F(Modes, OtherFluidsAndTheirOwnModels) {
    for (const char* name : {"Water", "Carbon dioxide", "Ammonia", "Nitrogen"}) {
        use_fluid(name);
        use_models({.eos = 6, .cp = substance.has_cp_sinh_cosh ? 2 : 1});
        for_all_units([&] {
            expect_text(4, given(0.85 * Tc(), 0));
            expect_text(3, given(0.9 * Tc(), 0.1 * pc()));
            expect_text(8, given(0.9 * Tc(), 0.1 * pc()));
        });
    }
}

}  // namespace
