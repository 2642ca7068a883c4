#include "models/enthalpy_of_vaporisation.h"

#include <cmath>

#include "common/numbers.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/model_codes.h"
#include "models/reference_state.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "support/fluids.h"

using namespace quor;

namespace {

constexpr double R = 8.31451;

using models::Eos;
using Found = models::Vaporisation;
using Vp = models::VapourPressureEquation;
using enum models::VaporisationModel;

constexpr models::VaporisationModel kMethods[] = {
    databaseEquation, chen, carruthKobayashi, watson, databaseDensity, benson, cubicEos};

class Vaporisation : public testing::Test {
  protected:
    models::SubstanceRecord s = fluids::correlated_row("Propane");
    models::ModelSelection models_ = fluids::selection(s, Eos::pengRobinson);
    models::BensonPoint reference;
    std::optional<double> rowT, rowP;  ///< measured values that may stand in

    models::Fluid fluid() const { return fluids::fluid(s, models_); }
    Found by(models::VaporisationModel method, std::optional<double> T, std::optional<double> p,
             Vp equation) const {
        return models::enthalpy_of_vaporisation(fluid(), {method, equation, reference, rowT, rowP},
                                                T, p);
    }
    void choose(Eos eos) { models_ = fluids::selection(s, eos); }

    static void expect_failure(const Found& r, const std::string& explanation) {
        EXPECT_FALSE(r.h);
        EXPECT_EQ(r.explanation, explanation);
        EXPECT_EQ(r.raw, 0);
    }
};

TEST_F(Vaporisation, MethodOutsideTheTableFails) {
    expect_failure(by(none, 300, 0, Vp::wagner), "");
    for (const int code : {-1, 8}) EXPECT_FALSE(models::vaporisation_of_code(code)) << code;
}

TEST_F(Vaporisation, AboveTheCriticalTemperatureEveryMethodFails) {
    for (const models::VaporisationModel method : kMethods)
        expect_failure(by(method, s.Tcrit + 1e-9, 0, Vp::wagner), "T > T(cr)!");
}

TEST_F(Vaporisation, DatabaseEquationFollowsItsFormula) {
    s.hLV_coefficients = {30000, 0.1F, 0.4F, 0.2F, -0.1F, 0.05F};
    s.hLV_Tc = 400;
    s.hLV_T_low = 200;
    s.hLV_T_high = 390;
    const double Tr = 0.75;
    const auto a = [&](std::size_t i) { return static_cast<double>(s.hLV_coefficients[i]); };
    const double expected =
        a(0) * std::exp(-a(1) * Tr) *
        std::pow(1 - Tr, a(2) + a(3) * Tr + a(4) * Tr * Tr + a(5) * Tr * Tr * Tr);
    const Found r = by(databaseEquation, 300, 0, Vp::none);
    EXPECT_TRUE(r.h);
    EXPECT_NEAR(r.raw, expected, 1e-9 * expected);
    EXPECT_EQ(r.h, static_cast<std::int32_t>(std::lround(expected)));
    EXPECT_EQ(r.explanation, "delta(LV)h = Fu(T) (by using database equation)");
    EXPECT_FALSE(r.p);
    EXPECT_NEAR(models::enthalpy_equation(s, 300).value(), expected, 1e-9 * expected);
}

TEST_F(Vaporisation, DatabaseEquationTellsTheKelvinsOutsideItsRange) {
    s.hLV_T_low = 250;
    s.hLV_T_high = 350;
    const auto deviation = [&](double T) { return by(databaseEquation, T, 0, Vp::none).deviation; };
    EXPECT_EQ(deviation(300), 0);
    EXPECT_EQ(deviation(355), 5);
    EXPECT_EQ(deviation(245), -5);
    EXPECT_EQ(deviation(356), 6);
    EXPECT_EQ(deviation(244), -6);
    EXPECT_GT(by(databaseEquation, 244, 0, Vp::none).h, 15000);
}

TEST_F(Vaporisation, DatabaseEquationIsMissingWithoutCriticalTemperatureOrRange) {
    const float Tc = s.hLV_Tc;
    s.hLV_Tc = 0;
    EXPECT_FALSE(models::enthalpy_equation(s, 300));
    EXPECT_FALSE(by(databaseEquation, 300, 0, Vp::none).h);
    s.hLV_Tc = Tc;
    EXPECT_TRUE(models::enthalpy_equation(s, 300));
    s.hLV_T_high = 0;
    EXPECT_FALSE(by(databaseEquation, 300, 0, Vp::none).h);
}

TEST_F(Vaporisation, ChenFollowsItsFormula) {
    const double Tr = 300 / s.Tcrit, pr = 1000 / s.pcrit;
    const double expected = 300 * (33.08 * Tr - 32.74 - 29.77 * std::log10(pr)) / (1.07 - Tr);
    const Found r = by(chen, 300, 1000, Vp::wagner);
    EXPECT_NEAR(r.raw, expected, 1e-9 * expected);
    EXPECT_EQ(r.explanation, "Chen-correlation");
    EXPECT_EQ(r.p, 1000);
}

TEST_F(Vaporisation, CarruthKobayashiFollowsItsFormulaAlsoWithoutAcentricFactor) {
    const double t = 1 - 300 / s.Tcrit;
    const double simple = R * s.Tcrit * 7.08 * std::pow(t, 0.354);
    const double with = simple + R * s.Tcrit * 10.95 * s.omega * std::pow(t, 0.456);
    EXPECT_NEAR(by(carruthKobayashi, 300, 0, Vp::none).raw, with, 1e-9 * with);
    s.omega = 0;
    const Found r = by(carruthKobayashi, 300, 0, Vp::none);
    EXPECT_NEAR(r.raw, simple, 1e-9 * simple);
    EXPECT_EQ(r.explanation, "Carruth/Kobayashi-correlation");
}

TEST_F(Vaporisation, WatsonFollowsItsFormulaAndNamesItsExponent) {
    models_.watson_n = 0.4F;
    const double ratio = (s.Tcrit - 300) / (s.Tcrit - static_cast<double>(s.watson_T));
    const double expected =
        static_cast<double>(s.watson_hLV) * std::pow(ratio, static_cast<double>(0.4F));
    const Found r = by(watson, 300, 0, Vp::none);
    EXPECT_NEAR(r.raw, expected, 1e-9 * expected);
    EXPECT_EQ(r.explanation, "WATSON-correlation, n =0.4");
    s.watson_hLV = 0;
    EXPECT_FALSE(by(watson, 300, 0, Vp::none).h);
}

TEST_F(Vaporisation, ResultsAreRoundedToWholeNumbersHalvesToTheEvenOne) {
    const std::pair<float, std::int32_t> cases[] = {
        {1000.5F, 1000}, {1001.5F, 1002}, {1001.25F, 1001}, {1001.75F, 1002}};
    for (const auto& [value, rounded] : cases) {
        s.watson_hLV = value;
        s.watson_T = 231;
        const Found r = by(watson, 231, 0, Vp::none);
        EXPECT_EQ(r.raw, static_cast<double>(value));
        EXPECT_EQ(r.h, rounded) << value;
    }
}

TEST_F(Vaporisation, ResultBeyondWholeNumbersFails) {
    s.watson_hLV = 1e10F;
    EXPECT_FALSE(by(watson, 231, 0, Vp::none).h);
}

TEST_F(Vaporisation, AtTheCriticalTemperature) {
    const double T = s.Tcrit;
    for (const auto method : {databaseEquation, carruthKobayashi, watson}) {
        const Found r = by(method, T, 0, Vp::none);
        EXPECT_TRUE(r.h) << models::code_of(method);
        EXPECT_EQ(r.raw, 0) << models::code_of(method);
    }
    // By design of the correlation: 33.08 - 32.74 over 0.07 times T.
    EXPECT_NEAR(by(chen, T, s.pcrit, Vp::none).raw, T * 0.34 / 0.07, 1e-6);
    const Found eos = by(cubicEos, T, 0, Vp::none);
    EXPECT_TRUE(eos.h);
    EXPECT_EQ(eos.h, 0);
    EXPECT_EQ(eos.p, s.pcrit);
}

TEST_F(Vaporisation, DatabaseEquationThatEndsBelowTheCriticalPointIsZeroUpToIt) {
    s.hLV_Tc = 369.5F;
    EXPECT_TRUE(models::enthalpy_equation(s, 369.7));
    EXPECT_EQ(models::enthalpy_equation(s, 369.7).value(), 0);
    EXPECT_FALSE(models::enthalpy_equation(s, 400));
}

/// Methods 5 and 6 by their own formula, from parts that are tested elsewhere.
TEST_F(Vaporisation, ClausiusClapeyronFollowsItsFormula) {
    reference = models::propose_benson_reference(fluid()).point;
    const double T = 290;
    const double p = models::vapour_pressure(s, T, Vp::wagner)->p;
    const double rhoV = *models::solve_state_tp(fluid(), T, p)->rhoV;
    const double slope = models::vapour_pressure_slope(s, T, Vp::wagner).value();
    const double M = static_cast<double>(s.M);
    const double rhoL5 = models::density_liquid(s, 290)->rho;
    const double rhoL6 = *models::density_l_benson(T, s.Tcrit, s.rhocrit, rhoV, reference);
    for (const auto& [method, rhoL] :
         {std::pair{databaseDensity, rhoL5}, std::pair{benson, rhoL6}}) {
        const Found r = by(method, T, 0, Vp::wagner);
        ASSERT_TRUE(r.h);
        EXPECT_EQ(r.rhoV, rhoV);
        EXPECT_EQ(r.rhoL, rhoL);
        EXPECT_NEAR(*r.zV, M * p / (R * T) / rhoV, 1e-12);
        EXPECT_NEAR(*r.zL, M * p / (R * T) / rhoL, 1e-12);
        EXPECT_NEAR(r.raw, -R * slope * (*r.zV - *r.zL), 1e-6);
        EXPECT_EQ(r.p, p);
        EXPECT_EQ(r.explanation, "actual vapour pressure equation");
    }
}

TEST_F(Vaporisation, ClausiusClapeyronFailsWithoutADensity) {
    EXPECT_FALSE(by(benson, 290, 0, Vp::wagner).h) << "without a reference point";
    reference = models::propose_benson_reference(fluid()).point;
    s.rhocrit = 0;
    EXPECT_FALSE(by(benson, 290, 0, Vp::wagner).h) << "without a critical density";
    s.rhoL_coefficients = {};
    s.rhoL_T_low = s.rhoL_T_high = 0;
    EXPECT_FALSE(by(databaseDensity, 290, 0, Vp::wagner).h) << "without a density equation";
    s = fluids::correlated_row("Propane");
    s.M = 0;
    EXPECT_FALSE(by(databaseDensity, 290, 0, Vp::wagner).h) << "without a molar mass";
}

TEST_F(Vaporisation, ByTheCubicEquationNamesHowTOrPWasFound) {
    const Found fromT = by(cubicEos, 300, 0, Vp::none);
    EXPECT_TRUE(fromT.h);
    EXPECT_EQ(fromT.explanation, "p = p(LV) by using cubic EOS");
    EXPECT_EQ(fromT.p, models::saturation_pressure(fluid(), 300)->p);
    const Found fromP = by(cubicEos, 0, fromT.p, Vp::none);
    EXPECT_TRUE(fromP.h);
    EXPECT_EQ(fromP.explanation, "T = T(LV) from cubic  EOS");
    EXPECT_NEAR(*fromP.T, 300, 0.01);
    EXPECT_NEAR(fromP.raw, fromT.raw, 1e-3 * fromT.raw);
    const double M = static_cast<double>(s.M);
    EXPECT_NEAR(*fromT.zV, M * *fromT.p / (R * 300 * *fromT.rhoV), 1e-12);
    EXPECT_NEAR(*fromT.zL, M * *fromT.p / (R * 300 * *fromT.rhoL), 1e-12);
}

TEST_F(Vaporisation, ByTheCubicEquationFailsWithoutAnEquilibrium) {
    choose(Eos::pitzerCurl);
    expect_failure(by(cubicEos, 300, 0, Vp::wagner), "p(LV) by EOS: Error ");
    expect_failure(by(cubicEos, 0, 500, Vp::wagner), "T(LV) by using EOS: Error ");
    choose(Eos::pengRobinson);
    expect_failure(by(cubicEos, 0, 1.01 * s.pcrit, Vp::wagner), "T(LV) by using EOS: Error ");
    // Far above p(LV) there is one density only.
    EXPECT_FALSE(by(cubicEos, 300, 4000, Vp::wagner).h);
}

TEST_F(Vaporisation, WithoutAVapourPressureTheDataRowStandsIn) {
    expect_failure(by(chen, 300, 0, Vp::none), "No p available");
    rowT = 300;
    rowP = 990;
    const Found r = by(chen, 300, 0, Vp::none);
    EXPECT_TRUE(r.h);
    EXPECT_EQ(r.p, 990);
    EXPECT_EQ(r.explanation, "Chen-correlation");
}

TEST_F(Vaporisation, WithoutABoilingTemperatureTheDataRowStandsIn) {
    expect_failure(by(carruthKobayashi, 0, 900, Vp::none), "no T available");
    rowT = 300;
    rowP = 990;
    const Found r = by(carruthKobayashi, 0, 900, Vp::none);
    EXPECT_TRUE(r.h);
    EXPECT_EQ(r.T, 300);
    rowT = s.Tcrit + 1;
    expect_failure(by(carruthKobayashi, 0, 900, Vp::none), "T > T(cr)!");
}

TEST_F(Vaporisation, WithoutTAndPThereIsNone) {
    expect_failure(by(databaseEquation, 0, 0, Vp::wagner), "no T available");
    expect_failure(by(chen, 0, 0, Vp::wagner), "No p available");
    expect_failure(by(cubicEos, 0, 0, Vp::wagner), "p(LV) by EOS: Error ");
}

TEST_F(Vaporisation, FromPFindsTByTheVapourPressureEquation) {
    for (const auto method : {databaseEquation, chen, carruthKobayashi, watson, databaseDensity}) {
        const Found r = by(method, 0, 500, Vp::wagner);
        EXPECT_TRUE(r.h) << models::code_of(method);
        EXPECT_EQ(r.T, models::boiling_temperature(s, 500, Vp::wagner)->T)
            << models::code_of(method);
        const Found same = by(method, r.T, 500, Vp::wagner);
        EXPECT_EQ(same.h, r.h) << models::code_of(method);
    }
}

TEST_F(Vaporisation, TellsTheKelvinsOutsideTheRangeOfTheVapourPressureEquation) {
    s.wagner.T_low = 250;
    s.wagner.T_high = 300;
    EXPECT_EQ(by(chen, 310, 0, Vp::wagner).pressure_deviation, 10);
    EXPECT_EQ(by(chen, 311, 0, Vp::wagner).pressure_deviation, 11);
    EXPECT_EQ(by(chen, 310, 0, Vp::wagner).temperature_deviation, 0);
    const double p = models::vapour_pressure(s, 311, Vp::wagner)->p;
    EXPECT_EQ(by(chen, 0, p, Vp::wagner).temperature_deviation, 11);
    EXPECT_EQ(by(chen, 0, p, Vp::wagner).pressure_deviation, 0);
}

TEST_F(Vaporisation, TellsTheKelvinsOutsideTheRangeOfTheDensityEquation) {
    s.rhoL_T_low = 250;
    s.rhoL_T_high = 300;
    EXPECT_EQ(by(databaseDensity, 305, 0, Vp::wagner).density_deviation, 5);
    EXPECT_EQ(by(databaseDensity, 306, 0, Vp::wagner).density_deviation, 6);
}

TEST_F(Vaporisation, ExponentFollowsTheDecimalMarkOfTheLocale) {
    numbers::set_decimal_mark(',');
    const Found r = by(watson, 300, 0, Vp::none);
    numbers::set_decimal_mark('.');
    EXPECT_EQ(r.explanation, "WATSON-correlation, n =0,38");
}

}  // namespace
