#include <algorithm>
#include <cmath>

#include "models/long_equation.h"
#include "models/model_grid.h"
#include "support/fluids.h"
#include "support/medium.h"

using namespace quor;

namespace {

using models::Eos;
using models::PhaseTable;
using oracle::Real;

/// Largest relative deviation of a column and where it was met.
struct Worst {
    double deviation = 0;
    std::string where;

    void meet(double analytic, Real numeric, Real floor, const std::string& at) {
        const Real size = std::max(std::fabs(numeric), floor);
        if (size == 0 && analytic == 0) return;
        const auto off = static_cast<double>(std::fabs(analytic - numeric) / size);
        if (off <= deviation) return;
        deviation = off;
        where = at + ": " + std::to_string(analytic);
    }
};

/// A state of the sweep with its slopes. The steps keep clear of the covolume and, for the
/// Ji/Torvik forms, of the change of branch at Tcrit.
struct State {
    models::Fluid fluid;
    Real T, v, p;
    Real width;   ///< v - b
    Real hT, hv;  ///< steps of the differences of p
    Real pv, p_T, pvv, p_TT;

    /// Steps along an isobar, short against the distance to the next extremum of p.
    Real isobar_hT() const { return std::min(hT / 8, 0.0025L * pv * pv / std::fabs(pvv * p_T)); }
    Real isobar_hv() const {
        return std::min(hv / 8, 0.0025L * p_T * p_T / std::max(std::fabs(p_TT * pv), 1e-30L));
    }

    /// Along an isobar p = const has the same root next to T or v.
    bool away_from_poles() const {
        return p > 0 && std::fabs(pv) * width * width > 0.02L * oracle::R * T &&
               std::fabs(p_T) * width > 0.02L * oracle::R;
    }
    Real v_of_T(Real x) const { return oracle::volume_near(fluid, x, p, v, pv); }
    Real T_of_v(Real x) const { return oracle::temperature_near(fluid, T, p, x, p_T); }
};

State state_at(const models::Fluid& f, double T, double v) {
    State s{};
    s.fluid = f;
    s.T = T;
    s.v = v;
    s.p = oracle::pressure(f, s.T, s.v);
    s.width = s.v - oracle::covolume(f, s.T);
    const Real spread = std::fabs(oracle::covolume(f, 1.001L * s.T) - oracle::covolume(f, s.T));
    s.hT = std::min(0.004L * s.T, std::fabs(s.T - Real(f.substance().Tcrit)) / 5);
    s.hT = std::min(s.hT, 4e-6L * s.T * s.width / std::max(spread, 1e-6L * s.width));
    s.hv = 0.004L * s.width;
    const auto p_of_v = [&](Real x) { return oracle::pressure(f, s.T, x); };
    const auto p_of_T = [&](Real x) { return oracle::pressure(f, x, s.v); };
    s.pv = oracle::first_derivative(p_of_v, s.v, s.hv);
    s.p_T = oracle::first_derivative(p_of_T, s.T, s.hT);
    s.pvv = oracle::second_derivative(p_of_v, s.v, s.hv);
    s.p_TT = oracle::second_derivative(p_of_T, s.T, s.hT);
    return s;
}

/// Volumes from a compressed liquid to a dilute gas at T, by way of metastable and near-critical
/// states.
std::vector<double> volumes(const models::Fluid& f, double T) {
    const auto b = static_cast<double>(oracle::covolume(f, T));
    const double RTp = 8.31451 * f.substance().Tcrit / f.substance().pcrit;
    std::vector<double> v;
    if (!f.models().vapour_only)
        for (const double ratio : {1.1, 1.25, 1.6, 2.2}) v.push_back(ratio * b);
    const double vcrit = f.models().vapour_only ? 0.6 * RTp : f.eos().vcrit_calculated;
    for (const double ratio : {0.97, 1.03, 2.0, 7.0, 60.0, 3000.0})
        if (ratio * vcrit > 1.05 * std::max(b, 0.0)) v.push_back(ratio * vcrit);
    return v;
}

constexpr double kReducedT[] = {0.35, 0.6, 0.9, 0.995, 1.005, 1.3, 3.0};

/// Calls `test` for every state of a fluid away from poles.
template <class Test>
void for_states(const models::Fluid& fluid, const std::string& name, Test test) {
    const Medium medium(fluid);
    for (const double Tr : kReducedT) {
        const double T = Tr * medium.Tcrit();
        for (const double v : volumes(fluid, T)) {
            const State s = state_at(fluid, T, v);
            if (!s.away_from_poles()) continue;
            const std::string at = name + ", Tr " + std::to_string(Tr) + ", v " + std::to_string(v);
            const auto t = medium.residual(T, static_cast<double>(s.p), v);
            ASSERT_TRUE(t) << at;
            test(s, *t, at);
        }
    }
}

TEST(Residual, DerivativesOfPressureAreThoseOfTheEquation) {
    Worst pv, p_T, vp, v_T, Tv, Tp, pvv, vTT, Tvv;
    int states = 0;
    const auto sweep = [&](const models::Fluid& fluid, const std::string& name) {
        for_states(fluid, name, [&](const State& s, const PhaseTable& t, const std::string& at) {
            ++states;
            const auto v_of_T = [&](Real x) { return s.v_of_T(x); };
            const auto T_of_v = [&](Real x) { return s.T_of_v(x); };
            const Real h = s.isobar_hT();
            const Real RT = oracle::R * s.T;
            const Real expansion = oracle::first_derivative(v_of_T, s.T, h);

            pv.meet(t.first[1], s.pv, 0, at);
            p_T.meet(t.first[2], s.p_T, 0, at);
            vp.meet(t.first[3], 1 / s.pv, 0, at);
            v_T.meet(t.first[4], expansion, 1e-4L * s.v / s.T, at);
            Tv.meet(t.first[5], 1 / expansion, 0, at);
            Tp.meet(t.first[6], 1 / s.p_T, 0, at);
            pvv.meet(t.second[1], s.pvv, 1e-4L * RT / (s.width * s.width * s.width), at);
            vTT.meet(t.second[2], oracle::second_derivative(v_of_T, s.T, h),
                     1e-3L * s.v / (s.T * s.T), at);
            Tvv.meet(t.second[3], oracle::second_derivative(T_of_v, s.v, s.isobar_hv()),
                     1e-3L * s.T / (s.width * s.width), at);
        });
    };
    grid::ForAll(grid::kCubic, sweep);
    grid::ForAll(grid::kVOnlyByFormula, sweep);
    EXPECT_GT(states, 100000);
    const std::pair<const char*, const Worst*> columns[] = {
        {"dp/dV", &pv}, {"dp/dT", &p_T},   {"dV/dp", &vp},    {"dV/dT", &v_T},  {"dT/dV", &Tv},
        {"dT/dp", &Tp}, {"d2p/dV2", &pvv}, {"d2V/dT2", &vTT}, {"d2T/dV2", &Tvv}};
    for (const auto& [column, worst] : columns)
        EXPECT_LT(worst->deviation, 1e-7) << column << " " << worst->where;
}

TEST(Residual, FugacityCoefficientAndItsSlopesAreThoseOfTheEquation) {
    Worst value, first, second;
    const auto sweep = [&](const models::Fluid& fluid, const std::string& name) {
        for_states(fluid, name, [&](const State& s, const PhaseTable& t, const std::string& at) {
            const auto along_isobar = [&](Real x) {
                return oracle::ln_phi(fluid, x, s.p, s.v_of_T(x));
            };
            const Real h = s.isobar_hT();
            const Real floor = 1e-7L;
            value.meet(t.residual[models::LnPhi], oracle::ln_phi(fluid, s.T, s.p, s.v), floor, at);
            first.meet(t.residual[models::DLnPhi], oracle::first_derivative(along_isobar, s.T, h),
                       floor / s.T, at);
            second.meet(t.residual[models::D2LnPhi],
                        oracle::second_derivative(along_isobar, s.T, h), 1e-2L / (s.T * s.T), at);
        });
    };
    grid::ForAll(grid::kCubic, sweep);
    grid::ForAll(grid::kVOnlyByFormula, sweep);
    EXPECT_LT(value.deviation, 1e-7) << value.where;
    EXPECT_LT(first.deviation, 1e-7) << first.where;
    EXPECT_LT(second.deviation, 1e-7) << second.where;
}

/// The columns behind the first three, straight from their definitions.
TEST(Residual, FurtherColumnsFollowFromTheirDefinitions) {
    int states = 0;
    const auto sweep = [&](const models::Fluid& fluid, const std::string& name) {
        for_states(
            fluid, name, [&](const State& state, const PhaseTable& t, const std::string& at) {
                const auto T = static_cast<double>(state.T);
                const auto v = static_cast<double>(state.v);
                const auto& f = t.residual;
                const auto R = static_cast<double>(oracle::R);
                const auto expect = [&](double actual, double expected, double floor) {
                    EXPECT_NEAR(actual, expected, 1e-9 * std::max(std::fabs(expected), floor))
                        << at;
                };
                expect(f[models::ResS], -f[0] - T * f[1], 1e-3);
                expect(f[models::ResH], -T * T * f[1], 1e-3 * T);
                expect(f[models::ResG], T * f[0], 1e-3 * T);
                expect(f[models::ResCp], -T * (2 * f[1] + T * f[2]), 1e-2);
                const double ideal =
                    models::ideal_gas_cp(fluid.substance(), fluid.models().cp_form, T).value_or(0);
                if (!(ideal > 0)) return;
                ++states;
                expect(f[models::Cp], ideal + R * f[models::ResCp], R);
                if (std::fabs(t.first[1]) < 1e-11) return;
                expect(f[models::Cv], f[models::Cp] - T * t.first[2] * t.first[4], R);
                if (std::fabs(f[models::Cp]) < 1) return;
                expect(f[models::JouleThomson], (T * t.first[4] - v) / f[models::Cp], v / 1000);
                const double M = static_cast<double>(fluid.substance().M);
                const double slope = -f[models::Cp] / f[models::Cv] * t.first[1];
                const double w = slope > 0 ? v / M * std::sqrt(slope * 1000 * M) : 0;
                expect(f[models::SpeedOfSound], w, 1);
            });
    };
    grid::ForAll(grid::kCubic, sweep);
    grid::ForAll(grid::kVOnly, sweep);
    EXPECT_GT(states, 50000);
}

models::Fluid manual_propane(const models::ManualVirial& coefficients) {
    return fluids::changed(
        fluids::fluid("Propane", Eos::manualVirial),
        [&](auto&, models::ModelSelection& m) { m.manual_virial = coefficients; });
}

/// B is that of the typed form b0 - b1/T^b2, its slopes are those of the power law b0 T^b1.
TEST(Residual, ManualVirialFormKeepsThePowerLawSlopes) {
    const Medium propane(manual_propane({.b0 = 0.2, .b1 = 3.0, .b2 = 0.5}));
    const double T = 400, R = 8.31451;
    const double B = 0.2 - 3.0 / std::sqrt(T);
    const double b1 = 3 * 0.2 * T * T, b2 = 6 * 0.2 * T;
    const double v = 5, p = R * T / (v - B);
    const auto t = propane.residual(T, p, v);
    ASSERT_TRUE(t);
    EXPECT_NEAR(t->residual[models::LnPhi], B * p / (R * T), 1e-12);
    EXPECT_NEAR(t->residual[models::DLnPhi], p / (R * T) * (b1 - B / T), 1e-8);
    EXPECT_NEAR(t->residual[models::D2LnPhi], p / (R * T) / T * (T * b2 - 2 * (b1 - B / T)), 1e-9);
    EXPECT_NEAR(t->first[2], R / (v - B) + R * T / ((v - B) * (v - B)) * b1, 1e-4);
}

TEST(Residual, ManualVirialFormThatOverflowsHasNoState) {
    const Medium propane(manual_propane({.b0 = 0.2, .b1 = 300, .b2 = 1}));
    EXPECT_FALSE(propane.residual(400, 500, 7));
    EXPECT_FALSE(propane.state(400, 500, 7));
}

TEST(Residual, IdealGasHasNoResidualPart) {
    const Medium nitrogen(fluids::fluid("Nitrogen", Eos::idealGas));
    const double T = 320, p = 250, v = 8.31451 * T / p;
    const auto t = nitrogen.residual(T, p, v);
    ASSERT_TRUE(t);
    for (int column = models::LnPhi; column <= models::JouleThomson; ++column)
        EXPECT_EQ(t->residual[static_cast<std::size_t>(column)], 0.0) << column;
    const double cp = nitrogen.cp(T);
    EXPECT_DOUBLE_EQ(t->residual[models::Cp], cp);
    EXPECT_DOUBLE_EQ(t->residual[models::Cv], cp - 8.31451);
    const double M = static_cast<double>(nitrogen.fluid.substance().M);
    EXPECT_NEAR(t->residual[models::SpeedOfSound],
                std::sqrt(cp / (cp - 8.31451) * 8.31451 * T * 1000 / M), 1e-9);
}

/// At low p ln(phi*) = B p/(R T) with B = b - a/(R T), to the first order.
TEST(Residual, CubicFormsApproachTheirVirialFormAtLowPressure) {
    grid::ForAll(grid::kCubic, [](const models::Fluid& fluid, const std::string& name) {
        const double T = 1.3 * fluid.substance().Tcrit;
        const models::EosState s = models::eos_at(fluid, T);
        const double RT = 8.31451 * T, B = s.b - s.a / RT;
        const double v = 1e5 * s.b, p = models::cubic_pressure(s, T, v);
        const auto t = models::residual_functions(fluid, s, T, p, v);
        ASSERT_TRUE(t) << name;
        const double size = std::fabs(s.b * p / RT);
        EXPECT_NEAR(t->residual[models::LnPhi], B * p / RT, 1e-3 * size) << name;
        EXPECT_NEAR(t->first[4], 8.31451 / p, 1e-3 * 8.31451 / p) << name;
    });
}

/// In a gas so thin that derivatives fall below 1E-11 the quotients are left out, and the heat
/// capacities still are those of the ideal gas.
TEST(Residual, QuotientsOfVanishingDerivativesAreLeftOut) {
    const Medium methane(fluids::fluid("Methane", Eos::pengRobinson));
    const double T = 300, v = 1e9, p = 8.31451 * T / v;
    const auto t = methane.residual(T, p, v);
    ASSERT_TRUE(t);
    EXPECT_LT(std::fabs(t->first[1]), 1e-11);
    EXPECT_EQ(t->first[3], 0);
    EXPECT_EQ(t->first[4], 0);
    EXPECT_EQ(t->first[5], 0);
    EXPECT_EQ(t->second[2], 0);
    const double cp = methane.cp(T);
    EXPECT_NEAR(t->residual[models::Cp], cp, 1e-7);
    EXPECT_NEAR(t->residual[models::Cv], cp - 8.31451, 1e-7);
}

TEST(Residual, NoStateWithoutPositiveTemperaturePressureAndFreeVolume) {
    const Medium propane(fluids::fluid("Propane", Eos::pengRobinson));
    const double b = models::eos_at(propane.fluid, 300).b;
    for (const auto& [T, p, v] : {std::array{300.0, 100.0, b}, std::array{300.0, 100.0, 0.5 * b},
                                  std::array{300.0, 100.0, b * (1 + 1e-17)},
                                  std::array{300.0, 0.0, 20.0}, std::array{300.0, -5.0, 0.1},
                                  std::array{0.0, 100.0, 20.0}, std::array{-1.0, 100.0, 20.0}}) {
        EXPECT_FALSE(propane.residual(T, p, v)) << T << " " << p << " " << v;
    }
}

TEST(Residual, WithoutCpFormTheResidualColumnsRemain) {
    const Medium propane(fluids::changed(
        fluids::fluid("Propane", Eos::pengRobinson),
        [](auto&, models::ModelSelection& m) { m.cp_form = models::CpForm::none; }));
    const auto t = propane.residual(300, 100, 24);
    ASSERT_TRUE(t);
    EXPECT_NE(t->residual[models::ResCp], 0);
    EXPECT_EQ(t->residual[models::JouleThomson], 0);
    EXPECT_EQ(t->residual[models::Cv], 0);
    EXPECT_EQ(t->residual[models::Cp], 0);
    EXPECT_EQ(t->residual[models::SpeedOfSound], 0);
}

TEST(Residual, WithoutMolarMassThereIsNoSpeedOfSound) {
    const Medium propane(fluids::changed(fluids::fluid("Propane", Eos::pengRobinson),
                                         [](models::SubstanceRecord& s, auto&) { s.M = 0; }));
    const auto t = propane.residual(300, 100, 24);
    ASSERT_TRUE(t);
    EXPECT_GT(t->residual[models::Cp], 0);
    EXPECT_EQ(t->residual[models::SpeedOfSound], 0);
}

/// At the critical point of the equation (dp/dV)T is 0: cp has a pole and is left out, all else
/// keeps its limit. The closed forms are those of van der Waals with z = 3/8.
TEST(Residual, CriticalPointOfVanDerWaalsHasItsLimits) {
    const Medium propane(fluids::fluid("Propane", Eos::vanDerWaals));
    const double T = propane.Tcrit(), p = propane.fluid.substance().pcrit, R = 8.31451;
    const double v = propane.fluid.eos().vcrit_calculated, a = propane.fluid.eos().a0;
    const auto t = propane.residual(T, p, v);
    ASSERT_TRUE(t);
    EXPECT_NEAR(t->residual[models::LnPhi],
                3.0 / 8 - 1 - 9.0 / 8 - std::log(3.0 / 8) + std::log(1.5), 1e-12);
    EXPECT_NEAR(R * t->residual[models::ResH], p * v - R * T - a / v, 1e-8 * a / v);
    EXPECT_NEAR(t->residual[models::Cv], propane.cp(T) - R, 1e-9);
    EXPECT_NEAR(t->residual[models::JouleThomson], (v - v / 3) / R, 1e-9);
    EXPECT_EQ(t->residual[models::Cp], 0);
    EXPECT_EQ(t->residual[models::ResCp], 0);
    EXPECT_EQ(t->first[3], 0);
    // w^2 = v^2 T pT^2/(M cv)
    const double p_T = R / (v - v / 3), M = static_cast<double>(propane.fluid.substance().M);
    EXPECT_NEAR(t->residual[models::SpeedOfSound],
                v * p_T * std::sqrt(1000 * T / (M * t->residual[models::Cv])), 1e-6);
}

TEST(Residual, CriticalPointsOfAllModelsHaveFiniteColumns) {
    grid::ForAll(grid::kCubic, [](const models::Fluid& fluid, const std::string& name) {
        const Medium medium(fluid);
        const double T = medium.Tcrit();
        const double v = fluid.eos().vcrit_calculated;
        const auto t = medium.residual(T, fluid.substance().pcrit, v);
        ASSERT_TRUE(t) << name;
        EXPECT_LT(std::fabs(t->residual[models::ResH]), 10 * T) << name;
        if (medium.cp(T) > 8.31451) {
            EXPECT_GT(t->residual[models::SpeedOfSound], 0) << name;
        }
    });
}

}  // namespace
