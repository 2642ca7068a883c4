#include "models/vapour_pressure.h"

#include <cmath>

#include "common/constants.h"
#include "models/model_tables.h"
#include "support/codes.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using constants::kNormalPressure;

class VapourPressureEquations : public testing::Test {
  protected:
    models::SubstanceRecord s = fluids::correlated_row("Propane");

    void take(const std::string& name) { s = fluids::correlated_row(name); }
    std::optional<models::VapourPressure> p_at(double T, std::string_view code) const {
        return models::vapour_pressure(s, T, codes::vp(code));
    }
    std::optional<models::BoilingTemperature> T_at(double p, std::string_view code) const {
        return models::boiling_temperature(s, p, codes::vp(code));
    }
    std::optional<double> slope_at(double T, std::string_view code) const {
        return models::vapour_pressure_slope(s, T, codes::vp(code));
    }
    /// Sets present in the record, by code.
    std::vector<std::string> present() const {
        std::vector<std::string> c = {"AUG", "KFW", "KFR", "THO"};
        if (s.antoine_low.T_low > 0) c.push_back("ALP");
        if (s.antoine_high.T_low > 0) c.push_back("AHP");
        if (s.frost.T_low > 0) c.push_back("FRO");
        if (s.wagner.T_low > 0) c.push_back("WAG");
        return c;
    }
};

TEST_F(VapourPressureEquations, ClosedForms) {
    const double T = 250;
    const models::AntoineSet& a = s.antoine_low;
    EXPECT_NEAR(std::log10(p_at(T, "ALP")->p),
                static_cast<double>(a.A) -
                    static_cast<double>(a.B) / (T + static_cast<double>(a.C) - 273.15),
                1e-12);
    EXPECT_NEAR(std::log(p_at(T, "AUG")->p),
                static_cast<double>(s.august.A) + static_cast<double>(s.august.B) / T, 1e-12);
    const auto& w = s.wagner.a;
    const auto n = [&](std::size_t i) { return static_cast<double>(w[i]); };
    const double t = 1 - T / n(8);
    const double X = n(0) * t + n(1) * std::pow(t, 1.5) + n(2) * std::pow(t, n(3)) +
                     n(4) * std::pow(t, n(5)) + (n(6) != 0 ? n(6) * std::pow(t, n(7)) : 0);
    EXPECT_NEAR(p_at(T, "WAG")->p, n(9) * std::exp(n(8) / T * X), 1e-9);
}

TEST_F(VapourPressureEquations, FrostKalkwarfSatisfiesItsImplicitEquation) {
    for (const char* name : {"Propane", "Water", "Ammonia", "Carbon dioxide"}) {
        take(name);
        for (const char* code : {"FRO", "KFW", "KFR"}) {
            const auto& a = std::string(code) == "FRO"   ? s.frost.a
                            : std::string(code) == "KFW" ? s.frost_van_der_waals.a
                                                         : s.frost_redlich_kwong.a;
            const bool fro = std::string(code) == "FRO";
            const auto n = [&](std::size_t i) { return static_cast<double>(a[i]); };
            const double C = fro ? n(2) - 273.15 : n(2), F = fro ? n(5) + 2 : n(5);
            const double T = 0.8 * s.Tcrit;
            const double p = p_at(T, code)->p;
            const double right = n(0) + n(1) / (T + C) + n(3) * std::log10(T) +
                                 n(4) * p / std::pow(T, F) + n(6) * T + n(7) * std::pow(T, n(8));
            EXPECT_NEAR(std::log10(p), right, 1e-6) << name << " " << code;
        }
    }
}

TEST_F(VapourPressureEquations, BoilingTemperatureIsTheInverseForEverySubstance) {
    int pairs = 0;
    for (const std::string& name : fluids::AllNames()) {
        take(name);
        for (const std::string& code : present()) {
            for (const double Tr : {0.6, 0.75, 0.9, 0.97}) {
                const double T = Tr * s.Tcrit;
                const auto vp = p_at(T, code);
                if (!vp || vp->p > s.pcrit) continue;
                const auto back = T_at(vp->p, code);
                ASSERT_TRUE(back) << name << " " << code << " " << Tr;
                // 1E-4 is the tolerance of the step before the last in p and T; what remains is far
                // less, but for the shallow slopes of sets used far outside their range.
                EXPECT_NEAR(back->T, T, 2e-5 * T) << name << " " << code << " " << Tr;
                ++pairs;
            }
        }
    }
    EXPECT_GT(pairs, 3000);
}

TEST_F(VapourPressureEquations, CorrelationsMeetTheBoilingAndTheCriticalPoint) {
    for (const std::string& name : fluids::AllNames()) {
        take(name);
        const double Tb = static_cast<double>(s.Tboil);
        if (Tb < 1e-6) continue;
        for (const char* code : {"AUG", "KFW", "KFR", "THO"}) {
            // The sets are held in 32 bits, their sums cancel: a few 1E-5 remain.
            EXPECT_NEAR(p_at(Tb, code)->p, kNormalPressure, 3e-4 * kNormalPressure)
                << name << " " << code;
            EXPECT_NEAR(p_at(s.Tcrit, code)->p, s.pcrit, 3e-4 * s.pcrit) << name << " " << code;
        }
    }
}

TEST_F(VapourPressureEquations, SlopesAreThoseOfTheEquations) {
    for (const char* name : {"Propane", "Water", "Ammonia", "Benzene"}) {
        take(name);
        for (const std::string& code : present()) {
            // Where the implicit form is solved only to 1E-4, the difference quotient is coarse.
            const bool implicit = code == "FRO" || code == "KFW" || code == "KFR";
            for (const double Tr : {0.6, 0.8, 0.95}) {
                const double T = Tr * s.Tcrit, h = 1e-3 * T;
                const auto y = [&](double x) { return std::log(p_at(x, code)->p); };
                const double numeric = (y(T + h) - y(T - h)) / (1 / (T + h) - 1 / (T - h));
                const auto slope = slope_at(T, code);
                ASSERT_TRUE(slope);
                EXPECT_NEAR(*slope, numeric, (implicit ? 2e-3 : 2e-5) * std::fabs(numeric))
                    << name << " " << code << " " << Tr;
            }
        }
    }
}

TEST_F(VapourPressureEquations, WorkUpToTheCriticalTemperatureOnly) {
    EXPECT_TRUE(p_at(s.Tcrit, "AUG"));
    EXPECT_FALSE(p_at(s.Tcrit * 1.001, "AUG"));
    EXPECT_FALSE(p_at(0, "AUG"));
    EXPECT_FALSE(T_at(s.pcrit * 1.001, "AUG"));
    EXPECT_FALSE(p_at(static_cast<double>(s.wagner.a[8]), "WAG"));
}

TEST_F(VapourPressureEquations, AMissingEquationIsAFailure) {
    take("Ozone");
    for (const char* code : {"ALP", "AHP", "FRO", "WAG", "000", "ZZZ"}) {
        EXPECT_FALSE(p_at(150, code)) << code;
        EXPECT_FALSE(T_at(100, code)) << code;
        EXPECT_FALSE(slope_at(150, code)) << code;
    }
}

TEST_F(VapourPressureEquations, AWagnerSumAboveFiftyIsAFailure) {
    s.wagner.a[0] = -500;
    EXPECT_FALSE(p_at(150, "WAG"));
}

TEST_F(VapourPressureEquations, TellTheKelvinsOutsideTheirRange) {
    s.antoine_low.T_low = 200;
    s.antoine_low.T_high = 250;
    EXPECT_EQ(p_at(260, "ALP")->deviation, 10);
    EXPECT_EQ(p_at(261, "ALP")->deviation, 11);
    EXPECT_GT(p_at(261, "ALP")->p, 0);
    EXPECT_EQ(p_at(189, "ALP")->deviation, -11);
    EXPECT_EQ(p_at(225, "ALP")->deviation, 0);
}

TEST_F(VapourPressureEquations, TheInverseTellsTheKelvinsOutsideTheRange) {
    s.wagner.T_low = 300;
    s.wagner.T_high = 320;
    EXPECT_EQ(T_at(p_at(289, "WAG")->p, "WAG")->deviation, -11);
}

TEST_F(VapourPressureEquations, BelowTheBoilingPointAugustCountsAgainstIt) {
    const double Tb = static_cast<double>(s.Tboil);
    EXPECT_EQ(p_at(Tb - 20, "AUG")->deviation, -20);
    EXPECT_EQ(p_at(Tb + 100, "AUG")->deviation, 0);
}

TEST_F(VapourPressureEquations, WithoutABoilingPointNothingIsCorrelated) {
    using enum models::VapourPressureEquation;
    s = fluids::Row("Propane");
    models::correlate_vapour_pressure(s, frostVanDerWaals, s.Tcrit, s.pcrit, 0);
    models::correlate_vapour_pressure(s, august, s.Tcrit, s.pcrit, 231);
    EXPECT_EQ(s.frost_van_der_waals.a[0], 0);
    EXPECT_EQ(s.thompson.A, 0);
}

TEST_F(VapourPressureEquations, PointsThatMakeNoSenseLeaveNoSetOfInfiniteNumbers) {
    using enum models::VapourPressureEquation;
    const double worst[] = {1e-30, 1e-6, 1, 300, 1e30, 3e38};
    int left_out = 0, sets = 0;
    for (const double Tcrit : worst)
        for (const double pcrit : worst)
            for (const double Tboil : worst) {
                s = fluids::Row("Propane");
                s.Tcrit = Tcrit;
                s.pcrit = pcrit;
                s.Tboil = static_cast<float>(Tboil);
                for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
                    models::correlate_vapour_pressure(s, equation, Tcrit, pcrit, Tboil);
                models::correlate_august(s);
                for (const models::FrostSet* set : {&s.frost_van_der_waals, &s.frost_redlich_kwong})
                    for (const float x : set->a) EXPECT_TRUE(std::isfinite(x));
                for (const float x :
                     {s.thompson.A, s.thompson.B, s.thompson.C, s.august.A, s.august.B})
                    EXPECT_TRUE(std::isfinite(x)) << Tcrit << " " << pcrit << " " << Tboil;
                ++(s.frost_van_der_waals.a[0] == 0 ? left_out : sets);
            }
    EXPECT_GT(left_out, 20);
    EXPECT_GT(sets, 20);
    // Far beyond the record's boiling point the equation is that far from its validity, in 16 bits.
    s = fluids::correlated_row("Propane");
    s.Tboil = 1e30F;
    EXPECT_EQ(models::vapour_pressure(s, 300, august)->deviation, -32768);
}

TEST_F(VapourPressureEquations, AFrostEquationWithoutItsPressureTermIsExplicit) {
    s.frost = {};
    s.frost.a = {10, -1500, 273.15F, -1, 0, 0, 0, 0, 0};
    const double T = 250;
    EXPECT_NEAR(std::log10(p_at(T, "FRO")->p),
                10 - 1500 / (T + static_cast<double>(273.15F) - 273.15) - std::log10(T), 1e-9);
}

TEST_F(VapourPressureEquations, BoilingPointsOfTheTableAgreeWithTheirEquations) {
    // Where a Wagner set covers the normal boiling point it gives 101.325 kPa there.
    int checked = 0;
    for (const std::string& name : fluids::AllNames()) {
        take(name);
        const double Tb = static_cast<double>(s.Tboil);
        if (s.wagner.T_low == 0 || Tb < s.wagner.T_low || Tb > s.wagner.T_high) continue;
        EXPECT_NEAR(p_at(Tb, "WAG")->p, kNormalPressure, 0.1 * kNormalPressure) << name;
        ++checked;
    }
    EXPECT_GT(checked, 60);
}

}  // namespace
