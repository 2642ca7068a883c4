#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"
#include "models/virial.h"
#include "support/codes.h"

#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using constants::R;
using legacy::the_substance;

class VirialCoefficients : public SessionTest {
  protected:
    static void activate(const std::string& name, std::int16_t code) {
        the_substance = fluids::Row(name);
        legacy::the_models.EOSModel = codes::eos(code);
        legacy::the_models.EOSOnlyV = true;
        ASSERT_EQ(models::calc_eos_parameters(code), kSuccess);
    }
};

TEST_F(VirialCoefficients, PitzerCurlMeetsMeasuredValuesOfFourGases) {
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
        activate(r.name, 16);
        EXPECT_NEAR(1000 * models::SecondVirial(16, r.T), r.B, r.tolerance) << r.name << " " << r.T;
    }
}

TEST_F(VirialCoefficients, VanDerWaalsFormHasItsClosedForm) {
    activate("Propane", 11);
    const double Rp = R * the_substance.Tcrit / the_substance.pcrit;
    for (const double T : {150.0, 300.0, 900.0}) {
        EXPECT_NEAR(models::SecondVirial(11, T),
                    Rp / 8 - 27.0 / 64.0 * R * the_substance.Tcrit * the_substance.Tcrit /
                                 (the_substance.pcrit * T),
                    1e-12);
    }
}

TEST_F(VirialCoefficients, WithoutAcentricFactorOnlyTheSimpleFluidCounts) {
    activate("Argon", 16);
    the_substance.omega = 0;
    const double Tr = 1.5, T = Tr * the_substance.Tcrit;
    const double f0 = 0.1445 - 0.33 / Tr - 0.1385 / (Tr * Tr) - 0.0121 / (Tr * Tr * Tr);
    EXPECT_NEAR(models::SecondVirial(16, T), f0 * R * the_substance.Tcrit / the_substance.pcrit,
                1e-12);
}

TEST_F(VirialCoefficients, DerivativesAreThoseOfTheCoefficient) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{11, 12, 13, 14, 15, 16}) {
        activate("Propane", code);
        for (const double T : {200.0, 350.0, 700.0}) {
            const double h = 0.02 * T;
            const auto B = [&](double x) { return models::SecondVirial(code, x); };
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
            const models::Virial v = models::virial(models::current_fluid(), code, T);
            EXPECT_NEAR(v.dB, first, 1e-7 * std::fabs(first)) << code << " " << T;
            EXPECT_NEAR(v.d2B, second, 1e-6 * std::fabs(second)) << code << " " << T;
        }
    }
}

TEST_F(VirialCoefficients, ManualFormTakesItsThreeNumbers) {
    activate("Propane", 10);
    legacy::the_eosParameters.eosB0 = 0.05;
    legacy::the_eosParameters.eosNB = 12.0;
    legacy::the_eosParameters.eosNV = 0.9;
    EXPECT_DOUBLE_EQ(models::SecondVirial(10, 300), 0.05 - 12.0 / std::pow(300, 0.9));
    // Its derivatives stay those of b = b0 T^b1, which the caloric functions rely on.
    double dB = 0, d2B = 0;
    models::second_virial_derivatives(10, 300, dB, d2B);
    const double b = 0.05 * std::pow(300, 12.0);
    EXPECT_DOUBLE_EQ(dB, 12.0 * b / 300);
    EXPECT_NEAR(d2B, 12.0 * 11.0 * b / 90000, 1e-9 * d2B);
}

TEST_F(VirialCoefficients, IdealGasAndCubicCodesHaveNone) {
    activate("Propane", 0);
    legacy::the_eosState.eosA = 5;
    EXPECT_EQ(models::SecondVirial(0, 300), 0);
    EXPECT_EQ(legacy::the_eosState.eosA, 0);
    for (const std::int16_t code : std::initializer_list<std::int16_t>{1, 2, 3, 4, 5, 6, 9})
        EXPECT_EQ(models::SecondVirial(code, 300), 0) << code;
    EXPECT_EQ(models::SecondVirial(16, 0), 0);
}

}  // namespace
