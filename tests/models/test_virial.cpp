#include "models/virial.h"

#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using constants::R;
using models::Eos;

TEST(VirialCoefficients, PitzerCurlMeetsMeasuredValuesOfFourGases) {
    // J. H. Dymond, E. B. Smith, The Virial Coefficients of Pure Gases and Mixtures, Oxford 1980,
    // B in cm^3/mol; the correlation of Pitzer and Curl is good to some 5 cm^3/mol there.
    struct Row {
        const char* name;
        double T, B, tolerance;
    };
    for (const Row& r :
         {Row{"Argon", 300, -15.5, 3}, Row{"Argon", 200, -48.0, 4}, Row{"Nitrogen", 300, -4.2, 4},
          Row{"Nitrogen", 200, -35.2, 4}, Row{"Methane", 300, -42.0, 4},
          Row{"Methane", 400, -15.5, 4}, Row{"Carbon dioxide", 300, -122.7, 8},
          Row{"Carbon dioxide", 400, -60.5, 6}}) {
        const models::Fluid fluid = fluids::fluid(r.name, Eos::pitzerCurl);
        EXPECT_NEAR(1000 * models::second_virial(fluid, r.T), r.B, r.tolerance)
            << r.name << " " << r.T;
    }
}

TEST(VirialCoefficients, VanDerWaalsFormHasItsClosedForm) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::virialVanDerWaals);
    const double Tc = fluid.substance().Tcrit, pc = fluid.substance().pcrit;
    for (const double T : {150.0, 300.0, 900.0}) {
        EXPECT_NEAR(models::second_virial(fluid, T),
                    R * Tc / pc / 8 - 27.0 / 64.0 * R * Tc * Tc / (pc * T), 1e-12);
    }
}

TEST(VirialCoefficients, WithoutAcentricFactorOnlyTheSimpleFluidCounts) {
    models::SubstanceRecord s = fluids::Row("Argon");
    s.omega = 0;
    const double Tr = 1.5, T = Tr * s.Tcrit;
    const double f0 = 0.1445 - 0.33 / Tr - 0.1385 / (Tr * Tr) - 0.0121 / (Tr * Tr * Tr);
    EXPECT_NEAR(models::second_virial(fluids::fluid(s, Eos::pitzerCurl), T),
                f0 * R * s.Tcrit / s.pcrit, 1e-12);
}

TEST(VirialCoefficients, DerivativesAreThoseOfTheCoefficient) {
    for (const Eos eos : {Eos::virialVanDerWaals, Eos::virialBerthelot, Eos::virialRedlichKwong,
                          Eos::virialSoave, Eos::virialPengRobinson, Eos::pitzerCurl}) {
        const models::Fluid fluid = fluids::fluid("Propane", eos);
        for (const double T : {200.0, 350.0, 700.0}) {
            const double h = 0.02 * T;
            const auto B = [&](double x) { return models::second_virial(fluid, x); };
            // Differences of eighth order.
            const double first =
                (4.0 / 5 * (B(T + h) - B(T - h)) - 1.0 / 5 * (B(T + 2 * h) - B(T - 2 * h)) +
                 4.0 / 105 * (B(T + 3 * h) - B(T - 3 * h)) -
                 1.0 / 280 * (B(T + 4 * h) - B(T - 4 * h))) /
                h;
            const double second = (-205.0 / 72 * B(T) + 8.0 / 5 * (B(T + h) + B(T - h)) -
                                   1.0 / 5 * (B(T + 2 * h) + B(T - 2 * h)) +
                                   8.0 / 315 * (B(T + 3 * h) + B(T - 3 * h)) -
                                   1.0 / 560 * (B(T + 4 * h) + B(T - 4 * h))) /
                                  (h * h);
            const models::Virial v = models::virial(fluid, T);
            EXPECT_NEAR(v.dB, first, 1e-7 * std::fabs(first)) << models::eos_name(eos) << " " << T;
            EXPECT_NEAR(v.d2B, second, 1e-6 * std::fabs(second))
                << models::eos_name(eos) << " " << T;
        }
    }
}

TEST(VirialCoefficients, ManualFormTakesItsThreeNumbers) {
    const models::Fluid fluid = fluids::changed(fluids::fluid("Propane", Eos::manualVirial),
                                                [](auto&, models::ModelSelection& m) {
                                                    m.manual_virial = {0.05, 12.0, 0.9};
                                                });
    EXPECT_DOUBLE_EQ(models::second_virial(fluid, 300), 0.05 - 12.0 / std::pow(300, 0.9));
    // Its derivatives stay those of b = b0 T^b1, which the caloric functions rely on.
    const models::Virial virial = models::virial(fluid, 300);
    const double b = 0.05 * std::pow(300, 12.0);
    EXPECT_DOUBLE_EQ(virial.dB, 12.0 * b / 300);
    EXPECT_NEAR(virial.d2B, 12.0 * 11.0 * b / 90000, 1e-9 * virial.d2B);
}

TEST(VirialCoefficients, IdealGasAndCubicEquationsHaveNone) {
    models::EosState state{.a = 5};
    EXPECT_EQ(models::second_virial(fluids::fluid("Propane", Eos::idealGas), 300, state), 0);
    EXPECT_EQ(state.a, 0);
    for (const Eos eos : {Eos::none, Eos::vanDerWaals, Eos::berthelot, Eos::redlichKwong,
                          Eos::soave, Eos::pengRobinson})
        EXPECT_EQ(models::second_virial(fluids::fluid("Propane", eos), 300), 0)
            << models::eos_name(eos);
    EXPECT_EQ(models::second_virial(fluids::fluid("Propane", Eos::pitzerCurl), 0), 0);
}

}  // namespace
