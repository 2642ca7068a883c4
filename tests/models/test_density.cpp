#include "models/density.h"

#include <cmath>

#include "support/fluids.h"

using namespace quor;

namespace {

class Density : public testing::Test {
  protected:
    using Found = Result<models::Density, models::NoDensity>;
    models::SubstanceRecord s;

    Found at(float T) const { return models::density_liquid(s, T); }
    Found solid_at(float T) const { return models::density_solid(s, T); }

    void liquid(std::array<float, 7> a, float Tc, std::int16_t T_low, std::int16_t T_high) {
        s.rhoL_coefficients = a;
        s.rhoL_Tc = Tc;
        s.rhoL_T_low = T_low;
        s.rhoL_T_high = T_high;
    }
    void solid(std::array<float, 4> a, std::int16_t T_low, std::int16_t T_high) {
        s.rhoS_coefficients = a;
        s.rhoS_T_low = T_low;
        s.rhoS_T_high = T_high;
    }
};

TEST_F(Density, OfASinglePointKeepsItsShortForm) {
    liquid({1000, -1, 300, 0, 0, 0, 0}, 0, 0, 0);
    const auto r = at(300);
    EXPECT_EQ(r->rho, 700);
    EXPECT_TRUE(r);
    EXPECT_EQ(r->deviation, 0);
    // It has no range.
    EXPECT_EQ(at(900)->rho, 100);
    EXPECT_EQ(at(900)->deviation, 0);
}

TEST_F(Density, OfASinglePointThatWouldBeNegativeFails) {
    liquid({1000, -1, 300, 0, 0, 0, 0}, 0, 0, 0);
    const auto r = at(1100);
    ASSERT_FALSE(r);
    EXPECT_EQ(r.failure(), models::NoDensity::impossible);
}

TEST_F(Density, PolynomialHasARationalAndAPowerTerm) {
    liquid({900, -0.5F, 1e-3F, -2e-6F, 0, 0, 0}, 500, 200, 480);
    const double T = 300;
    const double plain = 900 - 0.5 * T + 1e-3 * T * T - 2e-6 * T * T * T;
    EXPECT_NEAR(at(300)->rho, plain, 1e-4);
    s.rhoL_coefficients[4] = 4000;
    s.rhoL_coefficients[5] = -100;
    EXPECT_NEAR(at(300)->rho, plain + 20, 1e-4);
    s.rhoL_coefficients[6] = 50;
    EXPECT_NEAR(at(300)->rho, plain + 20 + 50 * std::cbrt(0.4), 1e-4);
    // At and above Tc of the equation the power term is left out.
    const double at500 = 900 - 250 + 250 - 250 + 4000.0 / 400;
    EXPECT_NEAR(at(500)->rho, at500, 1e-3);
}

TEST_F(Density, PolynomialWithANegativeFirstTermIsUsed) {
    liquid({-100, 2, 0, 0, 0, 0, 0}, 500, 200, 480);
    EXPECT_NEAR(at(300)->rho, 500, 1e-9);
}

TEST_F(Density, PolynomialBelowItsLowestValueFails) {
    liquid({100, -1, 0, 0, 0, 0, 0}, 500, 50, 480);
    EXPECT_EQ(at(99)->rho, 1);
    EXPECT_FALSE(at(100));
    ASSERT_FALSE(at(150));
    EXPECT_EQ(at(150).failure(), models::NoDensity::impossible);
}

TEST_F(Density, PoleOfTheRationalTermFails) {
    liquid({900, 0, 0, 0, 50, -300, 0}, 500, 200, 480);
    ASSERT_FALSE(at(300));
    EXPECT_EQ(at(300).failure(), models::NoDensity::impossible);
}

TEST_F(Density, PowerFormIsUsedWithoutAFirstTerm) {
    liquid({0, 70, 0.25F, 0.3F, 0, 0, 0}, 500, 200, 500);
    const double expected = 70 / std::pow(0.25, 1 + std::pow(0.4, 0.30000001192092896));
    EXPECT_NEAR(at(300)->rho, expected, 1e-9);
    EXPECT_NEAR(at(500)->rho, 280, 1e-9);
    ASSERT_FALSE(at(501));
    EXPECT_EQ(at(501).failure(), models::NoDensity::notDescribed);
}

TEST_F(Density, WithoutAnyParameterThereIsNone) {
    EXPECT_FALSE(at(300));
    ASSERT_FALSE(solid_at(300));
    EXPECT_EQ(solid_at(300).failure(), models::NoDensity::notDescribed);
}

TEST_F(Density, OfALiquidTellsTheKelvinsOutsideItsRange) {
    liquid({900, -1, 0, 0, 0, 0, 0}, 500, 200, 400);
    EXPECT_EQ(at(300)->deviation, 0);
    EXPECT_EQ(at(405)->deviation, 5);
    EXPECT_EQ(at(195)->deviation, -5);
    EXPECT_EQ(at(405.5F)->deviation, 6);  // 5.5 is rounded to the even 6
    EXPECT_EQ(at(404.5F)->deviation, 4);  // 4.5 to 4
    EXPECT_EQ(at(194)->deviation, -6);
    EXPECT_EQ(at(406)->rho, 494);
    EXPECT_EQ(at(406)->deviation, 6);
}

TEST_F(Density, OfASolidTellsTheKelvinsOutsideItsRange) {
    solid({1500, -0.5F, 1e-3F, -1e-6F}, 100, 200);
    EXPECT_NEAR(solid_at(150)->rho, 1500 - 75 + 22.5 - 3.375, 1e-4);
    EXPECT_EQ(solid_at(150)->deviation, 0);
    EXPECT_EQ(solid_at(205)->deviation, 5);
    EXPECT_EQ(solid_at(95)->deviation, -5);
    EXPECT_EQ(solid_at(206)->deviation, 6);
    EXPECT_EQ(solid_at(94)->deviation, -6);
}

TEST_F(Density, SolidOfASinglePointIsALine) {
    solid({1200, -0.4F, 0, 0}, 0, 0);
    EXPECT_NEAR(solid_at(100)->rho, 1160, 1e-4);
    solid({0, -0.4F, 0, 0}, 0, 0);
    EXPECT_FALSE(solid_at(100));
    // One limit alone is no range.
    solid({1200, -0.4F, 0, 0}, 100, 0);
    EXPECT_FALSE(solid_at(100));
}

TEST_F(Density, EveryEquationOfTheTableGivesALiquidInsideItsRange) {
    int sets = 0;
    for (const std::string& name : fluids::AllNames()) {
        s = fluids::Row(name);
        if (s.rhoL_T_low <= 0) continue;
        ++sets;
        const float middle = 0.5F * static_cast<float>(s.rhoL_T_low + s.rhoL_T_high);
        double last = 1e9;
        for (const float T : {static_cast<float>(s.rhoL_T_low + 1), middle,
                              static_cast<float>(s.rhoL_T_high - 1)}) {
            const auto r = at(T);
            EXPECT_TRUE(r) << name;
            EXPECT_EQ(r->deviation, 0) << name;
            EXPECT_GT(r->rho, 0.5 * s.rhocrit) << name;
            if (T > middle || name != "Water") {
                EXPECT_LT(r->rho, last * 1.001) << name;
            }
            last = r->rho;
        }
    }
    EXPECT_GT(sets, 150);
}

TEST_F(Density, OfBensonReturnsTheReferencePointAndTheCriticalDensity) {
    const models::BensonPoint ref{300, 200, 800, 5};
    EXPECT_TRUE(models::is_known(ref));
    EXPECT_NEAR(*models::density_l_benson(300, 500, 250, 5, ref), 800, 1e-10);
    EXPECT_NEAR(*models::density_l_benson(300, 500, 250, 7, ref), 798, 1e-10);
    EXPECT_NEAR(*models::density_l_benson(500, 500, 250, 200, ref), 300, 1e-10);
    // Half way the sum of both densities is the mean of both ends.
    EXPECT_NEAR(*models::density_l_benson(400, 500, 250, 40, ref), 0.5 * (805 + 500) - 40, 1e-10);
}

TEST_F(Density, OfBensonNeedsOnlyTheSumOfTheReferenceDensities) {
    const auto a = models::density_l_benson(350, 500, 250, 20, {300, 200, 800, 5});
    const auto b = models::density_l_benson(350, 500, 250, 20, {300, 200, 5, 800});
    ASSERT_TRUE(a);
    EXPECT_EQ(a, b);
}

TEST_F(Density, OfBensonIsMissingWithoutCriticalDensityOrDistance) {
    EXPECT_FALSE(models::density_l_benson(350, 500, 0, 20, {300, 200, 800, 5}));
    EXPECT_FALSE(models::density_l_benson(350, 300, 250, 20, {300, 200, 800, 5}));
    EXPECT_FALSE(models::density_l_benson(350, 500, 250, 2000, {300, 200, 800, 5}));
    EXPECT_FALSE(models::is_known({300, 0, 800, 5}));
    EXPECT_FALSE(models::is_known({}));
}

TEST_F(Density, BensonsApproximationAtTheBoilingPoint) {
    EXPECT_NEAR(*models::benson_approximation(100, 100 * std::exp(1.0), 250),
                250 * (1.981 + 0.18327), 1e-9);
    EXPECT_FALSE(models::benson_approximation(1e-6, 4000, 250));
    EXPECT_FALSE(models::benson_approximation(0, 4000, 250));
    EXPECT_FALSE(models::benson_approximation(100, 0, 250));
    // Propane boils with 580.9 kg/m^3 (E. W. Lemmon et al., J. Chem. Eng. Data 54 (2009) 3141).
    EXPECT_NEAR(*models::benson_approximation(101.3, 4251.2, 220.4781), 580.9, 0.02 * 580.9);
}

}  // namespace
