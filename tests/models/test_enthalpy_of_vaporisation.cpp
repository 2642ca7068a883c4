#include "legacy/wrappers.h"
#include "models/enthalpy_of_vaporisation.h"

#include <cmath>

#include "common/numbers.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/model_grid.h"
#include "models/reference_state.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "support/session_test.h"

using namespace quor;

namespace {

constexpr double R = 8.31451;

using models::enthalpy_of_vaporisation;
using Result = models::EnthalpyOfVaporisationResult;

class Vaporisation : public SessionTest {
  protected:
    Vaporisation() { grid::activate("Propane", 6); }

    models::SubstanceRecord& s = legacy::the_substance;

    static void expect_failure(const Result& r, const std::string& explanation) {
        EXPECT_EQ(r.status, kFailure);
        EXPECT_EQ(r.explanation, explanation);
        EXPECT_EQ(r.h, 0);
        EXPECT_EQ(r.raw, 0);
    }
    static void data_row(double T, double p) {
        legacy::the_BatchData.resize(3);
        legacy::the_BatchData[2].T = T;
        legacy::the_BatchData[2].p = p;
    }
};

TEST_F(Vaporisation, MethodOutsideTheTableFails) {
    for (const std::int16_t method : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{8}})
        expect_failure(enthalpy_of_vaporisation(method, 300, 0, "WAG", true), "");
}

TEST_F(Vaporisation, AboveTheCriticalTemperatureEveryMethodFails) {
    for (std::int16_t method = 1; method <= 7; ++method)
        expect_failure(enthalpy_of_vaporisation(method, s.Tcrit + 1e-9, 0, "WAG", true),
                       "T > T(cr)!");
}

TEST_F(Vaporisation, DatabaseEquationFollowsItsFormula) {
    s.hLVPar = {30000, 0.1F, 0.4F, 0.2F, -0.1F, 0.05F};
    s.hLVTc = 400;
    s.hLVTLo = 200;
    s.hLVTHi = 390;
    const double Tr = 0.75;
    const auto a = [&](std::size_t i) { return static_cast<double>(s.hLVPar[i]); };
    const double expected =
        a(0) * std::exp(-a(1) * Tr) *
        std::pow(1 - Tr, a(2) + a(3) * Tr + a(4) * Tr * Tr + a(5) * Tr * Tr * Tr);
    const Result r = enthalpy_of_vaporisation(1, 300, 0, "000", true);
    EXPECT_EQ(r.status, kSuccess);
    EXPECT_NEAR(r.raw, expected, 1e-9 * expected);
    EXPECT_EQ(r.h, static_cast<std::int32_t>(std::lround(expected)));
    EXPECT_EQ(r.explanation, "delta(LV)h = Fu(T) (by using database equation)");
    EXPECT_EQ(r.p, 0);
    EXPECT_NEAR(models::enthalpy_equation_value(300).h, expected, 1e-9 * expected);
}

TEST_F(Vaporisation, DatabaseEquationWarnsBeyondFiveKelvins) {
    s.hLVTLo = 250;
    s.hLVTHi = 350;
    const auto messages = [&](double T, bool warn = true) {
        user.messages.clear();
        enthalpy_of_vaporisation(1, T, 0, "000", warn);
        return user.messages.size();
    };
    EXPECT_EQ(messages(300), 0U);
    EXPECT_EQ(messages(355), 0U);
    EXPECT_EQ(messages(245), 0U);
    EXPECT_EQ(messages(244, false), 0U);
    EXPECT_EQ(messages(356), 1U);
    EXPECT_EQ(user.lastText(),
              "Temperature 6 K outside parameter validity\n"
              "(cf. Data/Parameters delta(LV)h = Fu(T))");
    EXPECT_EQ(user.lastTitle(), "Warning concerning equation delta(LV)h = Fu(T)");
    EXPECT_EQ(messages(244), 1U);
    EXPECT_EQ(user.lastText(),
              "Temperature -6 K outside parameter validity\n"
              "(cf. Data/Parameters delta(LV)h = Fu(T))");
    const Result r = enthalpy_of_vaporisation(1, 244, 0, "000", false);
    EXPECT_EQ(r.deviation, -6);
    EXPECT_GT(r.h, 15000);
}

TEST_F(Vaporisation, DatabaseEquationIsMissingWithoutCriticalTemperatureOrRange) {
    const float Tc = s.hLVTc;
    s.hLVTc = 0;
    EXPECT_EQ(models::enthalpy_equation_value(300).status, kFailure);
    EXPECT_EQ(enthalpy_of_vaporisation(1, 300, 0, "000", true).status, kFailure);
    s.hLVTc = Tc;
    EXPECT_EQ(models::enthalpy_equation_value(300).status, kSuccess);
    s.hLVTHi = 0;
    EXPECT_EQ(enthalpy_of_vaporisation(1, 300, 0, "000", true).status, kFailure);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Vaporisation, ChenFollowsItsFormula) {
    const double Tr = 300 / s.Tcrit, pr = 1000 / s.pcrit;
    const double expected = 300 * (33.08 * Tr - 32.74 - 29.77 * std::log10(pr)) / (1.07 - Tr);
    const Result r = enthalpy_of_vaporisation(2, 300, 1000, "WAG", true);
    EXPECT_NEAR(r.raw, expected, 1e-9 * expected);
    EXPECT_EQ(r.explanation, "Chen-correlation");
    EXPECT_EQ(r.p, 1000);
}

TEST_F(Vaporisation, CarruthKobayashiFollowsItsFormulaAlsoWithoutAcentricFactor) {
    const double t = 1 - 300 / s.Tcrit;
    const double simple = R * s.Tcrit * 7.08 * std::pow(t, 0.354);
    const double with = simple + R * s.Tcrit * 10.95 * s.omega * std::pow(t, 0.456);
    EXPECT_NEAR(enthalpy_of_vaporisation(3, 300, 0, "000", true).raw, with, 1e-9 * with);
    s.omega = 0;
    const Result r = enthalpy_of_vaporisation(3, 300, 0, "000", true);
    EXPECT_NEAR(r.raw, simple, 1e-9 * simple);
    EXPECT_EQ(r.explanation, "Carruth/Kobayashi-correlation");
}

TEST_F(Vaporisation, WatsonFollowsItsFormulaAndNamesItsExponent) {
    legacy::the_models.WatsonN = 0.4F;
    const double ratio = (s.Tcrit - 300) / (s.Tcrit - static_cast<double>(s.WatsonT));
    const double expected =
        static_cast<double>(s.WatsonH) * std::pow(ratio, static_cast<double>(0.4F));
    const Result r = enthalpy_of_vaporisation(4, 300, 0, "000", true);
    EXPECT_NEAR(r.raw, expected, 1e-9 * expected);
    EXPECT_EQ(r.explanation, "WATSON-correlation, n =0.4");
    s.WatsonH = 0;
    EXPECT_EQ(enthalpy_of_vaporisation(4, 300, 0, "000", true).status, kFailure);
}

TEST_F(Vaporisation, ResultsAreRoundedToWholeNumbersHalvesToTheEvenOne) {
    const std::pair<float, std::int32_t> cases[] = {
        {1000.5F, 1000}, {1001.5F, 1002}, {1001.25F, 1001}, {1001.75F, 1002}};
    for (const auto& [value, rounded] : cases) {
        s.WatsonH = value;
        s.WatsonT = 231;
        const Result r = enthalpy_of_vaporisation(4, 231, 0, "000", true);
        EXPECT_EQ(r.raw, static_cast<double>(value));
        EXPECT_EQ(r.h, rounded) << value;
    }
}

TEST_F(Vaporisation, ResultBeyondWholeNumbersFails) {
    s.WatsonH = 1e10F;
    EXPECT_EQ(enthalpy_of_vaporisation(4, 231, 0, "000", true).status, kFailure);
}

TEST_F(Vaporisation, AtTheCriticalTemperature) {
    const double T = s.Tcrit;
    for (const std::int16_t method : {std::int16_t{1}, std::int16_t{3}, std::int16_t{4}}) {
        const Result r = enthalpy_of_vaporisation(method, T, 0, "000", false);
        EXPECT_EQ(r.status, kSuccess) << method;
        EXPECT_EQ(r.raw, 0) << method;
    }
    // By design of the correlation: 33.08 - 32.74 over 0.07 times T.
    EXPECT_NEAR(enthalpy_of_vaporisation(2, T, s.pcrit, "000", false).raw, T * 0.34 / 0.07, 1e-6);
    const Result eos = enthalpy_of_vaporisation(7, T, 0, "000", false);
    EXPECT_EQ(eos.status, kSuccess);
    EXPECT_EQ(eos.h, 0);
    EXPECT_EQ(eos.p, s.pcrit);
}

TEST_F(Vaporisation, DatabaseEquationThatEndsBelowTheCriticalPointIsZeroUpToIt) {
    s.hLVTc = 369.5F;
    EXPECT_EQ(models::enthalpy_equation_value(369.7).status, kSuccess);
    EXPECT_EQ(models::enthalpy_equation_value(369.7).h, 0);
    EXPECT_EQ(models::enthalpy_equation_value(400).status, kFailure);
}

/// Methods 5 and 6 by their own formula, from parts that are tested elsewhere.
TEST_F(Vaporisation, ClausiusClapeyronFollowsItsFormula) {
    legacy::the_session.calculation.method.reference = models::propose_benson_reference().point;
    const double T = 290;
    const double p = models::VapourPressure(T, "WAG", false).p;
    const double rhoV = models::SolveStateTP(T, p).rhoV;
    const double slope = models::VapourPressureSlope(T, "WAG").slope;
    const double M = static_cast<double>(s.M);
    const double rhoL5 = models::density_l(290, false).rho;
    const double rhoL6 = models::density_l_benson(T, s.Tcrit, s.rhocrit, rhoV,
                                                  legacy::the_session.calculation.method.reference);
    for (const auto& [method, rhoL] : {std::pair{5, rhoL5}, std::pair{6, rhoL6}}) {
        const Result r =
            enthalpy_of_vaporisation(static_cast<std::int16_t>(method), T, 0, "WAG", true);
        ASSERT_EQ(r.status, kSuccess);
        EXPECT_EQ(r.rhoV, rhoV);
        EXPECT_EQ(r.rhoL, rhoL);
        EXPECT_NEAR(r.zV, M * p / (R * T) / rhoV, 1e-12);
        EXPECT_NEAR(r.zL, M * p / (R * T) / rhoL, 1e-12);
        EXPECT_NEAR(r.raw, -R * slope * (r.zV - r.zL), 1e-6);
        EXPECT_EQ(r.p, p);
        EXPECT_EQ(r.explanation, "actual vapour pressure equation");
    }
}

TEST_F(Vaporisation, ClausiusClapeyronFailsWithoutADensity) {
    EXPECT_EQ(enthalpy_of_vaporisation(6, 290, 0, "WAG", true).status, kFailure)
        << "without a reference point";
    legacy::the_session.calculation.method.reference = models::propose_benson_reference().point;
    s.rhocrit = 0;
    EXPECT_EQ(enthalpy_of_vaporisation(6, 290, 0, "WAG", true).status, kFailure)
        << "without a critical density";
    s.rhoLPar = {};
    s.rhoLTLo = s.rhoLTHi = 0;
    EXPECT_EQ(enthalpy_of_vaporisation(5, 290, 0, "WAG", true).status, kFailure)
        << "without a density equation";
    grid::activate("Propane", 6);
    s.M = 0;
    EXPECT_EQ(enthalpy_of_vaporisation(5, 290, 0, "WAG", true).status, kFailure)
        << "without a molar mass";
}

TEST_F(Vaporisation, ByTheCubicEquationNamesHowTOrPWasFound) {
    const Result fromT = enthalpy_of_vaporisation(7, 300, 0, "000", true);
    EXPECT_EQ(fromT.status, kSuccess);
    EXPECT_EQ(fromT.explanation, "p = p(LV) by using cubic EOS");
    EXPECT_EQ(fromT.p, models::SaturationPressure(300).p);
    const Result fromP = enthalpy_of_vaporisation(7, 0, fromT.p, "000", true);
    EXPECT_EQ(fromP.status, kSuccess);
    EXPECT_EQ(fromP.explanation, "T = T(LV) from cubic  EOS");
    EXPECT_NEAR(fromP.T, 300, 0.01);
    EXPECT_NEAR(fromP.raw, fromT.raw, 1e-3 * fromT.raw);
    const double M = static_cast<double>(s.M);
    EXPECT_NEAR(fromT.zV, M * fromT.p / (R * 300 * fromT.rhoV), 1e-12);
    EXPECT_NEAR(fromT.zL, M * fromT.p / (R * 300 * fromT.rhoL), 1e-12);
}

TEST_F(Vaporisation, ByTheCubicEquationFailsWithoutAnEquilibrium) {
    grid::ActivateModel(16);
    expect_failure(enthalpy_of_vaporisation(7, 300, 0, "WAG", true), "p(LV) by EOS: Error ");
    expect_failure(enthalpy_of_vaporisation(7, 0, 500, "WAG", true), "T(LV) by using EOS: Error ");
    grid::ActivateModel(6);
    expect_failure(enthalpy_of_vaporisation(7, 0, 1.01 * s.pcrit, "WAG", true),
                   "T(LV) by using EOS: Error ");
    // Far above p(LV) there is one density only.
    EXPECT_EQ(enthalpy_of_vaporisation(7, 300, 4000, "WAG", true).status, kFailure);
}

TEST_F(Vaporisation, WithoutAVapourPressureTheDataRowStandsIn) {
    expect_failure(enthalpy_of_vaporisation(2, 300, 0, "000", true), "No p available");
    expect_failure(enthalpy_of_vaporisation(2, 300, 0, "000", true, 2), "No p available");
    data_row(300, 990);
    const Result r = enthalpy_of_vaporisation(2, 300, 0, "000", true, 2);
    EXPECT_EQ(r.status, kSuccess);
    EXPECT_EQ(r.p, 990);
    EXPECT_EQ(r.explanation, "Chen-correlation");
    expect_failure(enthalpy_of_vaporisation(2, 300, 0, "000", true, 1), "No p available");
    expect_failure(enthalpy_of_vaporisation(2, 300, 0, "000", true, 77), "No p available");
}

TEST_F(Vaporisation, WithoutABoilingTemperatureTheDataRowStandsIn) {
    expect_failure(enthalpy_of_vaporisation(3, 0, 900, "ZZZ", true), "no T available");
    data_row(300, 990);
    const Result r = enthalpy_of_vaporisation(3, 0, 900, "ZZZ", true, 2);
    EXPECT_EQ(r.status, kSuccess);
    EXPECT_EQ(r.T, 300);
    data_row(s.Tcrit + 1, 990);
    expect_failure(enthalpy_of_vaporisation(3, 0, 900, "ZZZ", true, 2), "T > T(cr)!");
}

TEST_F(Vaporisation, WithoutTAndPThereIsNone) {
    expect_failure(enthalpy_of_vaporisation(1, 0, 0, "WAG", true), "no T available");
    expect_failure(enthalpy_of_vaporisation(2, 0, 0, "WAG", true), "No p available");
    expect_failure(enthalpy_of_vaporisation(7, 0, 0, "WAG", true), "p(LV) by EOS: Error ");
}

TEST_F(Vaporisation, FromPFindsTByTheVapourPressureEquation) {
    for (const std::int16_t method :
         {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}, std::int16_t{4}, std::int16_t{5}}) {
        const Result r = enthalpy_of_vaporisation(method, 0, 500, "WAG", true);
        EXPECT_EQ(r.status, kSuccess) << method;
        EXPECT_EQ(r.T, models::BoilingTemperature(500, "WAG", false).T) << method;
        const Result same = enthalpy_of_vaporisation(method, r.T, 500, "WAG", true);
        EXPECT_EQ(same.h, r.h) << method;
    }
}

TEST_F(Vaporisation, WarnsOfTheVapourPressureEquationBeyondTenKelvins) {
    s.WAG.TLo = 250;
    s.WAG.THi = 300;
    const auto messages = [&](double T) {
        user.messages.clear();
        enthalpy_of_vaporisation(2, T, 0, "WAG", true);
        return user.messages.size();
    };
    EXPECT_EQ(messages(310), 0U);
    EXPECT_EQ(messages(311), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning vapour pressure equation");
    user.messages.clear();
    enthalpy_of_vaporisation(2, 311, 0, "WAG", false);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Vaporisation, WarnsOfTheDensityEquationBeyondFiveKelvins) {
    s.rhoLTLo = 250;
    s.rhoLTHi = 300;
    enthalpy_of_vaporisation(5, 305, 0, "WAG", true);
    EXPECT_TRUE(user.messages.empty());
    enthalpy_of_vaporisation(5, 306, 0, "WAG", true);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning the equation rho_L = Fu(T)");
}

TEST_F(Vaporisation, ExponentFollowsTheDecimalMarkOfTheLocale) {
    numbers::set_decimal_mark(',');
    EXPECT_EQ(enthalpy_of_vaporisation(4, 300, 0, "000", true).explanation,
              "WATSON-correlation, n =0,38");
}

}  // namespace
