#include "legacy/wrappers.h"
#include "models/vapour_pressure.h"

#include <cmath>

#include "common/constants.h"
#include "models/model_tables.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using constants::kNormalPressure;
using legacy::the_substance;

class VapourPressureEquations : public SessionTest {
  protected:
    /// A fluid with all correlated sets.
    static void activate(const std::string& name) {
        the_substance = fluids::Row(name);
        models::CorrelateAugust();
        for (const std::int16_t i : std::initializer_list<std::int16_t>{6, 7, 8})
            models::CorrelateVapourPressure(i, the_substance.Tcrit, the_substance.pcrit,
                                            static_cast<double>(the_substance.Tboil));
    }
    /// Sets present in the record, by code.
    static std::vector<std::string> codes() {
        std::vector<std::string> c = {"AUG", "KFW", "KFR", "THO"};
        if (the_substance.ALP.TLo > 0) c.push_back("ALP");
        if (the_substance.AHP.TLo > 0) c.push_back("AHP");
        if (the_substance.FRO.TLo > 0) c.push_back("FRO");
        if (the_substance.WAG.TLo > 0) c.push_back("WAG");
        return c;
    }
};

TEST_F(VapourPressureEquations, ClosedForms) {
    activate("Propane");
    const double T = 250;
    const models::VPSetAntoine& a = the_substance.ALP;
    EXPECT_NEAR(std::log10(models::VapourPressure(T, "ALP", false).p),
                static_cast<double>(a.A) -
                    static_cast<double>(a.B) / (T + static_cast<double>(a.C) - 273.15),
                1e-12);
    EXPECT_NEAR(
        std::log(models::VapourPressure(T, "AUG", false).p),
        static_cast<double>(the_substance.AUG.A) + static_cast<double>(the_substance.AUG.B) / T,
        1e-12);
    const auto& w = the_substance.WAG.a;
    const auto n = [&](std::size_t i) { return static_cast<double>(w[i]); };
    const double t = 1 - T / n(8);
    const double X = n(0) * t + n(1) * std::pow(t, 1.5) + n(2) * std::pow(t, n(3)) +
                     n(4) * std::pow(t, n(5)) + (n(6) != 0 ? n(6) * std::pow(t, n(7)) : 0);
    EXPECT_NEAR(models::VapourPressure(T, "WAG", false).p, n(9) * std::exp(n(8) / T * X), 1e-9);
}

TEST_F(VapourPressureEquations, FrostKalkwarfSatisfiesItsImplicitEquation) {
    for (const char* name : {"Propane", "Water", "Ammonia", "Carbon dioxide"}) {
        activate(name);
        for (const char* code : {"FRO", "KFW", "KFR"}) {
            const auto& a = std::string(code) == "FRO"   ? the_substance.FRO.a
                            : std::string(code) == "KFW" ? the_substance.KFW.a
                                                         : the_substance.KFR.a;
            const bool fro = std::string(code) == "FRO";
            const auto n = [&](std::size_t i) { return static_cast<double>(a[i]); };
            const double C = fro ? n(2) - 273.15 : n(2), F = fro ? n(5) + 2 : n(5);
            const double T = 0.8 * the_substance.Tcrit;
            const double p = models::VapourPressure(T, code, false).p;
            const double right = n(0) + n(1) / (T + C) + n(3) * std::log10(T) +
                                 n(4) * p / std::pow(T, F) + n(6) * T + n(7) * std::pow(T, n(8));
            EXPECT_NEAR(std::log10(p), right, 1e-6) << name << " " << code;
        }
    }
}

TEST_F(VapourPressureEquations, BoilingTemperatureIsTheInverseForEverySubstance) {
    int pairs = 0;
    for (const std::string& name : fluids::AllNames()) {
        activate(name);
        for (const std::string& code : codes()) {
            for (const double Tr : {0.6, 0.75, 0.9, 0.97}) {
                const double T = Tr * the_substance.Tcrit;
                const models::VapourPressureResult vp = models::VapourPressure(T, code, false);
                if (vp.status != kSuccess || vp.p > the_substance.pcrit) continue;
                const models::BoilingTemperatureResult back =
                    models::BoilingTemperature(vp.p, code, false);
                ASSERT_EQ(back.status, kSuccess) << name << " " << code << " " << Tr;
                // 1E-4 is the tolerance of the step before the last in p and T; what remains is far
                // less, but for the shallow slopes of sets used far outside their range.
                EXPECT_NEAR(back.T, T, 2e-5 * T) << name << " " << code << " " << Tr;
                ++pairs;
            }
        }
    }
    EXPECT_GT(pairs, 3000);
}

TEST_F(VapourPressureEquations, CorrelationsMeetTheBoilingAndTheCriticalPoint) {
    for (const std::string& name : fluids::AllNames()) {
        activate(name);
        const double Tb = static_cast<double>(the_substance.Tboil);
        if (Tb < 1e-6) continue;
        for (const char* code : {"AUG", "KFW", "KFR", "THO"}) {
            // The sets are held in 32 bits, their sums cancel: a few 1E-5 remain.
            EXPECT_NEAR(models::VapourPressure(Tb, code, false).p, kNormalPressure,
                        3e-4 * kNormalPressure)
                << name << " " << code;
            EXPECT_NEAR(models::VapourPressure(the_substance.Tcrit, code, false).p,
                        the_substance.pcrit, 3e-4 * the_substance.pcrit)
                << name << " " << code;
        }
    }
}

TEST_F(VapourPressureEquations, SlopesAreThoseOfTheEquations) {
    for (const char* name : {"Propane", "Water", "Ammonia", "Benzene"}) {
        activate(name);
        for (const std::string& code : codes()) {
            // Where the implicit form is solved only to 1E-4, the difference quotient is coarse.
            const bool implicit = code == "FRO" || code == "KFW" || code == "KFR";
            for (const double Tr : {0.6, 0.8, 0.95}) {
                const double T = Tr * the_substance.Tcrit, h = 1e-3 * T;
                const auto y = [&](double x) {
                    return std::log(models::VapourPressure(x, code, false).p);
                };
                const double numeric = (y(T + h) - y(T - h)) / (1 / (T + h) - 1 / (T - h));
                const models::SlopeResult slope = models::VapourPressureSlope(T, code);
                ASSERT_EQ(slope.status, kSuccess);
                EXPECT_NEAR(slope.slope, numeric, (implicit ? 2e-3 : 2e-5) * std::fabs(numeric))
                    << name << " " << code << " " << Tr;
            }
        }
    }
}

TEST_F(VapourPressureEquations, WorkUpToTheCriticalTemperatureOnly) {
    activate("Propane");
    EXPECT_EQ(models::VapourPressure(the_substance.Tcrit, "AUG", false).status, kSuccess);
    EXPECT_EQ(models::VapourPressure(the_substance.Tcrit * 1.001, "AUG", false).status, kFailure);
    EXPECT_EQ(models::VapourPressure(0, "AUG", false).status, kFailure);
    EXPECT_EQ(models::BoilingTemperature(the_substance.pcrit * 1.001, "AUG", false).status,
              kFailure);
    EXPECT_EQ(
        models::VapourPressure(static_cast<double>(the_substance.WAG.a[8]), "WAG", false).status,
        kFailure);
}

TEST_F(VapourPressureEquations, AMissingEquationIsAFailure) {
    activate("Ozone");
    for (const char* code : {"ALP", "AHP", "FRO", "WAG", "000", "ZZZ"}) {
        EXPECT_EQ(models::VapourPressure(150, code, false).status, kFailure) << code;
        EXPECT_EQ(models::VapourPressure(150, code, false).p, 0) << code;
        EXPECT_EQ(models::BoilingTemperature(100, code, false).status, kFailure) << code;
        EXPECT_EQ(models::VapourPressureSlope(150, code).status, kFailure) << code;
    }
}

TEST_F(VapourPressureEquations, AWagnerSumAboveFiftyIsAFailure) {
    activate("Propane");
    the_substance.WAG.a[0] = -500;
    EXPECT_EQ(models::VapourPressure(150, "WAG", false).status, kFailure);
}

TEST_F(VapourPressureEquations, TenKelvinOutsideTheRangeAreSilentElevenAreNot) {
    activate("Propane");
    the_substance.ALP.TLo = 200;
    the_substance.ALP.THi = 250;
    EXPECT_EQ(models::VapourPressure(260, "ALP", true).deviation, 10);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_GT(models::VapourPressure(261, "ALP", true).p, 0);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(
        user.lastText(),
        " temperature11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
    EXPECT_EQ(user.lastTitle(), "Warning concerning vapour pressure equation");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Exclamation);
    models::VapourPressure(189, "ALP", true);
    EXPECT_EQ(
        user.lastText(),
        " temperature-11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
    models::VapourPressure(189, "ALP", false);
    EXPECT_EQ(user.messages.size(), 2U);
}

TEST_F(VapourPressureEquations, TheInverseWarnsWithItsOwnText) {
    activate("Propane");
    the_substance.WAG.TLo = 300;
    the_substance.WAG.THi = 320;
    const double p = models::VapourPressure(289, "WAG", false).p;
    const models::BoilingTemperatureResult r = models::BoilingTemperature(p, "WAG");
    EXPECT_EQ(r.deviation, -11);
    EXPECT_EQ(
        user.lastText(),
        "Temperature -11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
}

TEST_F(VapourPressureEquations, BelowTheBoilingPointAugustCountsAgainstIt) {
    activate("Propane");
    const double Tb = static_cast<double>(the_substance.Tboil);
    EXPECT_EQ(models::VapourPressure(Tb - 20, "AUG", false).deviation, -20);
    EXPECT_EQ(models::VapourPressure(Tb + 100, "AUG", false).deviation, 0);
}

TEST_F(VapourPressureEquations, WithoutABoilingPointNothingIsCorrelated) {
    the_substance = fluids::Row("Propane");
    models::CorrelateVapourPressure(6, the_substance.Tcrit, the_substance.pcrit, 0);
    models::CorrelateVapourPressure(5, the_substance.Tcrit, the_substance.pcrit, 231);
    EXPECT_EQ(the_substance.KFW.a[0], 0);
    EXPECT_EQ(the_substance.THO.A, 0);
}

TEST_F(VapourPressureEquations, AFrostEquationWithoutItsPressureTermIsExplicit) {
    activate("Propane");
    the_substance.FRO = {};
    the_substance.FRO.a = {10, -1500, 273.15F, -1, 0, 0, 0, 0, 0};
    const double T = 250;
    EXPECT_NEAR(std::log10(models::VapourPressure(T, "FRO", false).p),
                10 - 1500 / (T + static_cast<double>(273.15F) - 273.15) - std::log10(T), 1e-9);
}

TEST_F(VapourPressureEquations, BoilingPointsOfTheTableAgreeWithTheirEquations) {
    // Where a Wagner set covers the normal boiling point it gives 101.325 kPa there.
    int checked = 0;
    for (const std::string& name : fluids::AllNames()) {
        activate(name);
        const double Tb = static_cast<double>(the_substance.Tboil);
        if (the_substance.WAG.TLo == 0 || Tb < the_substance.WAG.TLo || Tb > the_substance.WAG.THi)
            continue;
        EXPECT_NEAR(models::VapourPressure(Tb, "WAG", false).p, kNormalPressure,
                    0.1 * kNormalPressure)
            << name;
        ++checked;
    }
    EXPECT_GT(checked, 60);
}

}  // namespace
