#include "estimation/fit_apply.h"

#include "estimation/synthetic.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"

using namespace quor;

namespace {

using namespace fit_support;
using estimation::CpPhase;

class FitApplication : public testing::Test {
  protected:
    /// A state as after a fit that found the truth.
    static FitState fitted(const Synthetic& set) {
        FitState state = SyntheticState(set, 20);
        state.parameters = set.truth;
        if (set.model == 6)
            state.parameters[3] =
                1.8 * set.truth[1] / (set.lg ? 1 : constants::kLn10) / 647.096 + 2.67;
        state.fitted = true;
        return state;
    }

    /// The program's own value for a model at T.
    double own(std::int16_t model, CpPhase phase, double T) const {
        const auto& s = substance;
        switch (model) {
            case 4:
                return models::vapour_pressure(s, T, codes::vp("ALP"))->p;
            case 5:
            case 6:
            case 7:
                return models::vapour_pressure(s, T, codes::vp("FRO"))->p;
            case 8:
                return models::vapour_pressure(s, T, codes::vp("WAG"))->p;
            case 9:
            case 10:
            case 11:
                return models::density_liquid(s, static_cast<float>(T))->rho;
            case 14:
            case 15:
                return models::enthalpy_equation(s, T).value();
            default:
                break;
        }
        return phase == CpPhase::Liquid ? models::polynomial_cp(s.cpL, T).value()
               : phase == CpPhase::Solid
                   ? models::polynomial_cp(s.cpS, T).value()
                   : models::ideal_gas_cp(s, codes::cp(model == 18 ? 2 : 1), T).value();
    }

    /// Applies a fit to the substance; what is told of it, or why it was refused, is kept.
    void ApplyFit(const FitState& state) {
        const Result<estimation::AppliedFit> result = estimation::apply_fit(state, substance);
        refused = !result;
        told = result ? result->message : result.reason();
        if (result) substance = result->substance;
    }
    models::SubstanceRecord substance = WaterLike();
    bool refused = false;
    std::string told;
};

TEST_F(FitApplication, TheProgramsOwnEquationGivesTheFittedFunction) {
    for (const Synthetic& set : AllSynthetic()) {
        if (set.model < 4) continue;  // they have no equation of their own
        for (const CpPhase phase : {CpPhase::IdealGas, CpPhase::Liquid, CpPhase::Solid}) {
            if (set.model < 16 && phase != CpPhase::IdealGas) continue;
            if (set.model == 17 && phase == CpPhase::IdealGas) continue;
            if (set.model == 18 && phase != CpPhase::IdealGas) continue;
            SCOPED_TRACE(name_of(set) + " phase " + std::to_string(static_cast<int>(phase)));
            substance = WaterLike();
            FitState state = fitted(set);
            state.cp_phase = phase;
            ApplyFit(state);
            for (int i = 0; i <= 20; ++i) {
                const double T = static_cast<double>(
                    static_cast<float>(set.from + (set.to - set.from) * i / 20));
                double y = 0;
                ASSERT_TRUE(evaluate_fit(state, T, y));
                // The record holds 32 bits.
                EXPECT_NEAR(own(set.model, phase, T) / y, 1, 1e-5) << T;
            }
        }
    }
}

TEST_F(FitApplication, AntoineGoesToItsLowPressureSet) {
    FitState state = fitted({4, true, {7.1962, 1730.63, 233.426}, 280.4, 449.6});
    ApplyFit(state);
    const auto& antoine_low = substance.antoine_low;
    EXPECT_EQ(antoine_low.A, 7.1962F);
    EXPECT_EQ(antoine_low.B, 1730.63F);
    EXPECT_EQ(antoine_low.C, 233.426F);
    EXPECT_EQ(antoine_low.T_low, 280);
    EXPECT_EQ(antoine_low.T_high, 450);
    EXPECT_FALSE(refused);
    EXPECT_EQ(told, "These parameters are\nincluded in the\nANTOINE (Lo-p) parameter set of QUOR.");
}

TEST_F(FitApplication, NaturalAntoineParametersAreTurnedIntoDecadicOnes) {
    FitState state = fitted({4, false, {16.5, 3984, 233.4}, 280, 450});
    ApplyFit(state);
    const auto& antoine_low = substance.antoine_low;
    EXPECT_FLOAT_EQ(antoine_low.A, static_cast<float>(16.5 / std::log(10.0)));
    EXPECT_FLOAT_EQ(antoine_low.B, static_cast<float>(3984 / std::log(10.0)));
    EXPECT_EQ(antoine_low.C, 233.4F);
    EXPECT_EQ(told,
              "These parameters are (after re-calculation to lg)\nincluded in the\n"
              "ANTOINE (Lo-p) parameter set of QUOR.");
}

TEST_F(FitApplication, FrostFillsItsSetAndClearsTheRest) {
    substance.frost.a.fill(9);
    ApplyFit(fitted({5, true, {23.55, -2980, 270.15, -5.62, 3.5}, 300, 620}));
    const auto& frost = substance.frost;
    EXPECT_EQ(frost.a, (std::array<float, 9>{23.55F, -2980, 270.15F, -5.62F, 3.5F, 0, 0, 0, 0}));
    EXPECT_EQ(frost.T_low, 300);
    EXPECT_EQ(frost.T_high, 620);
    EXPECT_FALSE(refused);
    EXPECT_EQ(
        told,
        "These parameters are\nincluded in the extended\nFROST-KALKWARF parameter set of QUOR.");
}

TEST_F(FitApplication, ThodosSetFourFollowsTheDecadicB) {
    const double B = -2980;
    const float D = static_cast<float>(1.8 * B / 647.096 + 2.67);
    for (const bool lg : {true, false}) {
        const double factor = lg ? 1 : constants::kLn10;
        ApplyFit(fitted({6, lg, {23.55 * factor, B * factor, 273.15, 0, 3.5 * factor}, 300, 620}));
        const auto& a = substance.frost.a;
        EXPECT_FLOAT_EQ(a[1], -2980);
        EXPECT_FLOAT_EQ(a[3], D);
        EXPECT_FLOAT_EQ(a[4], 3.5F);
        EXPECT_EQ(a[5], 0);
    }
}

TEST_F(FitApplication, RiedelTurnsHAsWell) {
    ApplyFit(fitted({7, false, {66.5, -7200, -7, 5.2e-6, 2}, 280, 640}));
    const auto& a = substance.frost.a;
    EXPECT_EQ(a[2], 273.15F);
    EXPECT_EQ(a[3], -7);
    EXPECT_EQ(a[4], 0);
    EXPECT_EQ(a[5], 0);
    EXPECT_EQ(a[6], 0);
    EXPECT_FLOAT_EQ(a[7], static_cast<float>(5.2e-6 / std::log(10.0)));
    EXPECT_EQ(a[8], 2);
}

TEST_F(FitApplication, WagnerTakesItsExponentsAndTheCriticalPointOfTheFields) {
    FitState state = fitted({8, false, {-7.77, 1.48, -2.77, -1.3}, 280, 640});
    state.Tcr = 650;
    state.pcr = 22000;
    ApplyFit(state);
    EXPECT_EQ(substance.wagner.a,
              (std::array<float, 10>{-7.77F, 1.48F, -2.77F, 3, -1.3F, 6, 0, 0, 650, 22000}));
    EXPECT_FALSE(refused);
    EXPECT_EQ(told, "");
}

TEST_F(FitApplication, DensitiesFillTheirPlaces) {
    ApplyFit(fitted({9, false, {98, 0.3, 0.26}, 280, 600}));
    auto& s = substance;
    EXPECT_EQ(s.rhoL_coefficients, (std::array<float, 7>{0, 98, 0.3F, 0.26F, 0, 0, 0}));
    EXPECT_EQ(s.rhoL_Tc, 647.096F);
    ApplyFit(fitted({10, false, {420, -1.1, 0.0022, -1.9e-6, 900}, 280, 600}));
    EXPECT_EQ(s.rhoL_coefficients,
              (std::array<float, 7>{420, -1.1F, 0.0022F, -1.9e-6F, 0, 0, 900}));
    ApplyFit(fitted({11, false, {620, 3.2, -0.0072, 3.1e-6}, 281, 449}));
    EXPECT_EQ(s.rhoL_coefficients, (std::array<float, 7>{620, 3.2F, -0.0072F, 3.1e-6F, 0, 0, 0}));
    EXPECT_EQ(s.rhoL_Tc, 0);
    EXPECT_EQ(s.rhoL_T_low, 281);
    EXPECT_EQ(s.rhoL_T_high, 449);
}

TEST_F(FitApplication, EnthalpiesOfVaporisationFillTheirPlaces) {
    auto& s = substance;
    ApplyFit(fitted({14, false, {54000, -0.3, 0.31}, 280, 600}));
    EXPECT_EQ(s.hLV_coefficients, (std::array<float, 6>{54000, -0.3F, 0.31F, 0, 0, 0}));
    EXPECT_EQ(s.hLV_Tc, 647.096F);
    EXPECT_EQ(s.hLV_T_low, 280);
    EXPECT_EQ(s.hLV_T_high, 600);
    ApplyFit(fitted({15, false, {52053, 0.32, -0.2, 0.22, 0.03}, 290, 590}));
    EXPECT_EQ(s.hLV_coefficients, (std::array<float, 6>{52053, 0, 0.32F, -0.2F, 0.22F, 0.03F}));
    EXPECT_EQ(s.hLV_T_low, 290);
}

TEST_F(FitApplication, HeatCapacitiesGoToTheChosenPhase) {
    auto& s = substance;
    FitState state = fitted({16, false, {32.2, 0.0019, 1.055e-5, -3.6e-9, 0}, 280, 1000});
    ApplyFit(state);
    EXPECT_EQ(s.cp_polynomial.c, (std::array<float, 5>{32.2F, 0.0019F, 1.055e-5F, -3.6e-9F, 0}));
    EXPECT_TRUE(s.has_cp_polynomial);
    EXPECT_FALSE(s.has_cpL);
    state.cp_phase = CpPhase::Liquid;
    ApplyFit(state);
    EXPECT_EQ(s.cpL.c[1], 0.0019F);
    EXPECT_TRUE(s.has_cpL);
    state.cp_phase = CpPhase::Solid;
    ApplyFit(state);
    EXPECT_EQ(s.cpS.T_low, 280);
    EXPECT_EQ(s.cpS.T_high, 1000);
    EXPECT_TRUE(s.has_cpS);
}

TEST_F(FitApplication, APolynomialWithAStrayEStillGivesTheFittedFunction) {
    FitState state = fitted({16, false, {32.2, 0.0019, 1.055e-5, -3.6e-9, 1e-10}, 280, 1000});
    ApplyFit(state);
    double y = 0;
    ASSERT_TRUE(evaluate_fit(state, 900, y));
    EXPECT_NEAR(own(16, CpPhase::IdealGas, 900) / y, 1, 1e-6);
}

TEST_F(FitApplication, AFirstCoefficientOfZeroKeepsItsForm) {
    FitState cp = fitted({16, false, {0, 0.1, 0, 0, 0}, 280, 1000});
    ApplyFit(cp);
    EXPECT_NEAR(own(16, CpPhase::IdealGas, 500), 50, 1e-4);
    FitState density = fitted({11, false, {0, 2, 0, 0}, 280, 450});
    ApplyFit(density);
    EXPECT_NEAR(own(11, CpPhase::IdealGas, 400), 800, 1e-3);
    for (const double E : {0.0, 0.5, -0.5, 3.0, 1e6}) {
        FitState shomate = fitted({17, false, {0, 0.2, 1e-5, -1e-9, E}, 300, 1000});
        shomate.cp_phase = CpPhase::Liquid;
        ApplyFit(shomate);
        double y = 0;
        ASSERT_TRUE(evaluate_fit(shomate, 500, y));
        EXPECT_NEAR(own(17, CpPhase::Liquid, 500), y, 1e-4) << E;
    }
}

TEST_F(FitApplication, WhatHasNoPlaceIsRefused) {
    const models::SubstanceRecord before = substance;
    ApplyFit(fitted({3, true, {22, 2953, -4.9}, 280, 450}));
    EXPECT_TRUE(refused);
    EXPECT_EQ(told,
              "AUGUST/DUPRÉ-RANKINE are equations not used by QUOR.\n"
              "If you want to use AUGUST, chooce ANTOINE C-fixed = 273.15");
    FitState sinh = fitted(AllSynthetic().back());
    sinh.cp_phase = CpPhase::Liquid;
    ApplyFit(sinh);
    EXPECT_TRUE(refused);
    EXPECT_EQ(told, "The DIPPR function for cp is only available for cp(IdGas)");
    FitState shomate = fitted({17, false, {30.1, 0.0068, 6.8e-6, -2.5e-9, 8.2e4}, 300, 1000});
    ApplyFit(shomate);
    EXPECT_TRUE(refused);
    for (const std::int16_t general : {std::int16_t{0}, std::int16_t{1}}) {
        ApplyFit(fitted({general, false, {1, 1, 1}, 1, 5}));
        EXPECT_TRUE(refused);
        EXPECT_EQ(told, "The data of a substance have no place for these parameters.");
    }
    EXPECT_EQ(substance.cp_polynomial.c, before.cp_polynomial.c);
    EXPECT_EQ(substance.cp_sinh_cosh.c, before.cp_sinh_cosh.c);
}

TEST_F(FitApplication, AFitOfOneSubstanceIsNotWrittenIntoAnother) {
    FitState state = fitted({4, true, {7.1962, 1730.63, 233.426}, 280, 450});
    state.substance.name = "Benzene";
    state.substance.casrn = "71-43-2     ";
    substance.name = "Propane";
    substance.casrn = "74-98-6     ";
    ApplyFit(state);
    EXPECT_TRUE(refused);
    EXPECT_EQ(told,
              "This fit belongs to Benzene,\n"
              "but Propane is loaded now. Nothing was applied.");
    EXPECT_EQ(substance.antoine_low.A, 0);
    // Data of the same substance that were edited meanwhile are the fit's all the same.
    substance.casrn = "71-43-2";
    substance.name = "my benzene";
    ApplyFit(state);
    EXPECT_FALSE(refused);
    EXPECT_EQ(substance.name, "my benzene");
    EXPECT_NEAR(substance.antoine_low.A, 7.1962, 1e-4);
}

TEST_F(FitApplication, ValuesBeyondTheRecordChangeNothing) {
    FitState state = fitted({4, true, {7.1962, 1e39, 233.426}, 280, 450});
    ApplyFit(state);
    EXPECT_EQ(told, "Overflow");
    EXPECT_EQ(substance.antoine_low.A, 0);
    state.parameters[1] = 1730;
    state.points.back().x = 40000;
    ApplyFit(state);
    EXPECT_EQ(substance.antoine_low.A, 0);
}

TEST_F(FitApplication, NothingIsAppliedBeforeAFit) {
    FitState state = SyntheticState({4, true, {7.1962, 1730.63, 233.426}, 280, 450}, 10);
    ApplyFit(state);
    EXPECT_EQ(substance.antoine_low.A, 0);
    EXPECT_TRUE(refused);
}

TEST_F(FitApplication, DescendingPointsGiveDescendingLimits) {
    FitState state = fitted({4, true, {7.1962, 1730.63, 233.426}, 280, 450});
    std::reverse(state.points.begin(), state.points.end());
    ApplyFit(state);
    EXPECT_EQ(substance.antoine_low.T_low, 450);
    EXPECT_EQ(substance.antoine_low.T_high, 280);
}

}  // namespace
