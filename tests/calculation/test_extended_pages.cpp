#include <cmath>

#include "calc_test.h"
#include "common/numbers.h"
#include "expected_text.h"
#include "models/caloric.h"
#include "models/saturation.h"
#include "models/state_solver.h"

using namespace quor;

namespace {

using expected::fix;
using expected::g7;
using expected::row;
using expected::signed_exp;

/// Pages of derivatives, residual functions and caloric functions.
class ExtendedPages : public CalcTest {
  protected:
    ExtendedPages() {
        use_fluid();
        use_models({});
    }

    models::PhaseTable table_at(double T, double p, double v) const {
        return residual_functions(T, p, v).value();
    }

    /// Lines from the first that equals `from`, as many as `count`.
    std::vector<std::string> lines_from(const std::string& from, std::size_t count) const {
        const auto all = lines();
        for (std::size_t i = 0; i < all.size(); ++i)
            if (all[i] == from)
                return {all.begin() + static_cast<std::ptrdiff_t>(i),
                        all.begin() + static_cast<std::ptrdiff_t>(std::min(all.size(), i + count))};
        return {};
    }

    static std::string unsigned_exp(double value) {
        const std::string s = signed_exp(value);
        return s.front() == ' ' ? s.substr(1) : s;
    }
};

TEST_F(ExtendedPages, ResidualFunctionsOfBothPhases) {
    chosen.pages.residual = true;
    chosen.pages.derivatives = false;
    use_input({.T = 300});
    calculate(4);
    const auto sat = models::saturation_pressure(fluid(), 300.0);
    const auto state = models::solve_state_tp(fluid(), 300.0, sat->p);
    const auto L = table_at(300, sat->p, state->v[0]), V = table_at(300, sat->p, state->v[2]);
    const std::string stars(74, '*'), mechanical(68, '*');
    std::vector<std::string> e = {
        stars,
        "diff. Joule-Thomson coefficients; fugacity coeff.; residual functions",
        stars,
        "Model: CEOS Peng / Robinson; ideal-gas cp: sinh/cosh equation",
        "Reference state: h = 0, s = 0, ideal gas at 298.15 K, 101.325 kPa",
        " (dT/dp) at H (Joule-Thomson coefficient [K/kPa]):",
        row("", "", signed_exp(L.residual[7]), signed_exp(V.residual[7]))};
    const char* names[] = {
        "     ln (phi*) : ", "    dln phi/dT : ", "  d2ln phi/dT² : ", "   (s-s_idG)/R : ",
        "   (h-h_idG)/R : ", "   (g-g_idG)/R : ", " (cp-cp_idG)/R : "};
    for (std::size_t i = 0; i < 7; ++i) {
        if (i == 3) e.emplace_back("Residual Functions:");
        e.push_back(row(names[i], "", signed_exp(L.residual[i]), signed_exp(V.residual[i])));
    }
    e.insert(e.end(), {mechanical, "                    Mechanical Coefficients", mechanical});
    const double vL = state->v[0], vV = state->v[2];
    e.push_back(
        row(" alpha/(1/K)   : ", "", unsigned_exp(L.first[4] / vL), unsigned_exp(V.first[4] / vV)));
    e.push_back(row("   chi/(1/kPa) : ", "", unsigned_exp(-L.first[3] / vL),
                    unsigned_exp(-V.first[3] / vV)));
    e.push_back(row("  beta/(1/K)   : ", "", unsigned_exp(L.first[2] / sat->p),
                    unsigned_exp(V.first[2] / sat->p)));
    EXPECT_EQ(lines_from(stars, e.size()), e);

    EXPECT_DOUBLE_EQ(numbers[38], L.residual[7]);
    EXPECT_DOUBLE_EQ(numbers[34], V.residual[7]);
    EXPECT_DOUBLE_EQ(numbers[31], V.first[4] / vV);
    EXPECT_DOUBLE_EQ(numbers[32], -V.first[3] / vV);
    EXPECT_DOUBLE_EQ(numbers[33], V.first[2] / sat->p);
    EXPECT_DOUBLE_EQ(numbers[35], L.first[4] / vL);
    EXPECT_DOUBLE_EQ(numbers[36], -L.first[3] / vL);
    EXPECT_DOUBLE_EQ(numbers[37], L.first[2] / sat->p);
    EXPECT_DOUBLE_EQ(lastRecord.liquid.extended[0], L.first[1]);
    EXPECT_DOUBLE_EQ(lastRecord.vapour.extended[22], V.residual[8]);
}

TEST_F(ExtendedPages, OnePhaseLeavesTheOtherColumnEmpty) {
    chosen.pages.residual = true;
    chosen.pages.derivatives = true;
    use_input({.T = 300, .p = 500});
    calculate(3);
    const auto state = models::solve_state_tp(fluid(), 300.0, 500.0);
    const auto V = table_at(300, 500, state->v[2]);
    EXPECT_TRUE(has_line(row("     ln (phi*) : ", "", "", signed_exp(V.residual[0]))));
    EXPECT_TRUE(has_line(row(" (dp/dV) at T  : ", "", "", signed_exp(V.first[1]))));
    EXPECT_EQ(numbers[38], 0.0);
    EXPECT_DOUBLE_EQ(numbers[34], V.residual[7]);

    use_input({.T = 300, .p = 3000});
    calculate(3);
    EXPECT_EQ(numbers[34], 0.0);
    EXPECT_NE(numbers[38], 0.0);
    EXPECT_NE(numbers[35], 0.0) << "without a V phase the L phase remains";
}

TEST_F(ExtendedPages, DerivativesFollowTheUnitOfVolume) {
    const auto state = models::solve_state_tp(fluid(), 300.0, 500.0);
    const auto V = table_at(300, 500, state->v[2]);
    const double M = static_cast<double>(substance.M);
    const auto points = models::inflexion_points(models::eos_at(fluid(), 300.0), 300.0);
    ASSERT_EQ(points.count, 2);
    for (const int unit : {0, 1, 2}) {
        SCOPED_TRACE(unit);
        use_units(unit);
        chosen.pages.residual = false;
        chosen.pages.derivatives = true;
        use_input({.T = 300, .p = 500});
        calculate(3);
        const bool specific = unit == 1;
        const double m = specific ? M : 1.0;
        const std::string stars(74, '*');
        std::vector<std::string> e = {
            stars,
            std::string("                    derivatives with respect to T, p, v") +
                (specific ? " (specif.)" : " (molar)"),
            stars,
            row(" (dp/dV) at T  : ", "", "", signed_exp(V.first[1] * m)),
            row(" (dp/dT) at v  : ", "", "", signed_exp(V.first[2])),
            row(" (dV/dp) at T  : ", "", "", signed_exp(V.first[3] / m)),
            row(" (dV/dT) at p  : ", "", "", signed_exp(V.first[4] / m)),
            row(" (dT/dV) at p  : ", "", "", signed_exp(V.first[5] * m)),
            row(" (dT/dp) at v  : ", "", "", signed_exp(V.first[6])),
            row("       d2p/dV² : ", "", "", signed_exp(V.second[1] * m * m)),
            row("       d2V/dT² : ", "", "", signed_exp(V.second[2] / m)),
            row("       d2T/dV² : ", "", "", signed_exp(V.second[3] * m * m))};
        EXPECT_EQ(lines_from(stars, e.size()), e);
        const std::string kind = specific ? " m^3/kg" : " m^3/kmol";
        const std::string first =
            "1st point of inflexion p-v isoth.: v = " + expected::between(points.v[0] / m, 4, 5) +
            kind + ", p = " + fix(points.p[0], 0) + " kPa (cf. 2nd deriv.=";
        bool found = false;
        for (const std::string& line : lines()) found = found || line.rfind(first, 0) == 0;
        EXPECT_TRUE(found) << first;
    }
}

TEST_F(ExtendedPages, NoInflexionIsToldInOneLine) {
    use_models({.eos = 16});
    chosen.pages.residual = false;
    chosen.pages.derivatives = true;
    use_input({.T = 300, .p = 500});
    calculate(3);
    EXPECT_TRUE(has_line("Inflection point of p-v isoth.: No solution found"));
}

TEST_F(ExtendedPages, FunctionsOfTheEquilibrium) {
    chosen.pages.functions = true;
    for (const int unit : {0, 1}) {
        SCOPED_TRACE(unit);
        use_units(unit);
        use_input({.T = 300});
        calculate(4);
        const auto sat = models::saturation_pressure(fluid(), 300.0);
        const auto state = models::solve_state_tp(fluid(), 300.0, sat->p);
        const auto L = state_functions(300, sat->p, state->v[0]);
        const auto V = state_functions(300, sat->p, state->v[2]);
        const double f = unit == 1 ? 1.0 / static_cast<double>(substance.M) : 1.0;
        const std::string stars(74, '*');
        const auto page = lines_from(stars, 6 + 11);
        ASSERT_EQ(page.size(), 17U);
        EXPECT_EQ(page[1], "                               thermodynamic Fu(T)");
        EXPECT_EQ(page[2], stars);
        EXPECT_EQ(page[3], "Model: CEOS Peng / Robinson; ideal-gas cp: sinh/cosh equation");
        EXPECT_EQ(page[7], row("Enthalpy", unit == 1 ? "h/ (kJ/kg)     = " : "h/ (kJ/kmol)   = ",
                               g7(L->h * f), g7(V->h * f)));
        EXPECT_EQ(page[11],
                  row("Helmholtz Funct.", unit == 1 ? "a/ (kJ/kg)     = " : "a/ (kJ/kmol)   = ",
                      g7((L->u - 300 * L->s) * f), g7((V->u - 300 * V->s) * f)));
        EXPECT_NEAR(numbers[14], (V->u - 300 * V->s) * f, 1e-6);
        EXPECT_NEAR(numbers[24], (L->u - 300 * L->s) * f, 1e-6);
        EXPECT_NEAR(numbers[11], V->s * f, 1e-9);
        EXPECT_NEAR(numbers[39], L->w, 1e-9);
    }
}

// The coefficients of both phases went to the places of the L phase, where those of V won.
TEST_F(ExtendedPages, MechanicalCoefficientsOfEachPhaseHaveTheirOwnNumbers) {
    chosen.pages.residual = true;
    use_input({.T = 300});
    calculate(4);
    const auto& pages = *last.answer.pages;
    ASSERT_TRUE(pages.liquid && pages.vapour);
    // By differences of the density along an isobar and an isotherm.
    const auto v = [&](double T, double p, bool liquid) {
        const auto s = models::solve_state_tp(fluid(), T, p);
        return s->v[liquid ? 0 : static_cast<std::size_t>(s->root_count - 1)];
    };
    const double p = last.answer.p, dT = 1e-3, dp = 1e-2;
    for (const bool liquid : {true, false}) {
        SCOPED_TRACE(liquid);
        const std::size_t first = liquid ? 35 : 31;
        const double v0 = v(300, p, liquid);
        const double alpha = (v(300 + dT, p, liquid) - v(300 - dT, p, liquid)) / (2 * dT) / v0;
        const double chi = -(v(300, p + dp, liquid) - v(300, p - dp, liquid)) / (2 * dp) / v0;
        EXPECT_NEAR(numbers[first] / alpha, 1, 1e-5);
        EXPECT_NEAR(numbers[first + 1] / chi, 1, 1e-5);
        // The three coefficients are bound: alpha = p beta chi.
        EXPECT_NEAR(numbers[first] / (p * numbers[first + 1] * numbers[first + 2]), 1, 1e-9);
    }
    EXPECT_GT(numbers[32], 10 * numbers[36]) << "the vapour is the more compressible";
}

// The pressure of a vapour pressure equation lies beside that of the equation of state, for which
// one of the phases is then metastable.
TEST_F(ExtendedPages, NameThePhaseThatIsMetastable) {
    chosen.method.global = false;
    use_benson_reference();
    chosen.pages.residual = true;
    use_input({.T = 200});
    ASSERT_FALSE(calculate(4).Failed);
    const auto sat = models::saturation_pressure(fluid(), 200.0);
    ASSERT_TRUE(sat && last.answer.pages);
    ASSERT_GT(std::fabs(last.answer.p / sat->p - 1), 0.01);
    const bool liquid_is_stable = last.answer.p > sat->p;
    EXPECT_EQ(last.answer.pages->metastable_vapour, liquid_is_stable);
    EXPECT_EQ(last.answer.pages->metastable_liquid, !liquid_is_stable);
    EXPECT_TRUE(has_line(
        liquid_is_stable
            ? "The V phase of these pages is metastable at T and p: the EOS has phase L."
            : "The L phase of these pages is metastable at T and p: the EOS has phase V."));
}

TEST_F(ExtendedPages, OfAnAssumedEquilibriumHoldOnlyThePhaseThatExists) {
    chosen.method.global = false;
    chosen.method.assumed_vle = true;
    use_benson_reference();
    chosen.pages.residual = true;
    use_input({.T = 300, .p = 900});
    ASSERT_FALSE(calculate(3).Failed);
    ASSERT_TRUE(last.answer.pages);
    EXPECT_FALSE(last.answer.pages->phases.liquid);
    EXPECT_FALSE(last.answer.pages->liquid);
    EXPECT_TRUE(last.answer.pages->vapour);
}

TEST_F(ExtendedPages, WithoutHeatCapacityOnlyTheEquationOfStateSpeaks) {
    use_models({.cp = 0});
    chosen.pages.residual = true;
    chosen.pages.derivatives = false;
    chosen.pages.functions = true;
    use_input({.T = 300, .p = 500});
    EXPECT_FALSE(calculate(3).Failed);
    EXPECT_TRUE(has_line("No ideal-gas heat capacity cp = Fu(T) at this temperature:"));
    EXPECT_TRUE(has_line("Residual Functions:"));
    EXPECT_EQ(numbers[10], 0.0);
}

TEST_F(ExtendedPages, StayAwayFromModesWithoutAState) {
    chosen.pages.residual = true;
    chosen.pages.derivatives = true;
    chosen.pages.functions = true;
    use_input({.T = 300, .p = 500});
    for (const int mode : Codes{6, 7, 11, 15, 16, 20}) {
        calculate(mode);
        for (const std::string& line : lines())
            EXPECT_EQ(line.find("***"), std::string::npos) << mode;
    }
}

TEST_F(ExtendedPages, NameEveryKindOfReferenceState) {
    chosen.pages.functions = true;
    use_input({.T = 300, .p = 500});
    reference.mode = 2;
    calculate(3);
    EXPECT_TRUE(
        has_line("Reference state: conventional h and s, ideal gas at 298.15 K, 101.325 kPa"));
    reference.mode = 10;
    calculate(3);
    EXPECT_TRUE(
        has_line("Reference state: quantities of formation, ideal gas at 298.15 K, 101.325 kPa"));
    reference = {1, 100.0, 0.5, 273.15F, 100.0F, 283.15, 95.0};
    calculate(3);
    EXPECT_TRUE(
        has_line("Reference state: h = 100 kJ/kmol, s = 0.5 kJ/(kmol K), ideal gas at "
                 "273.15 K, 100 kPa"));
    EXPECT_TRUE(has_line("Surroundings for exergies: 283.15 K, 95 kPa"));
}

}  // namespace
