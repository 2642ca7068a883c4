#include <cmath>

#include "legacy/wrappers.h"
#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/long_equation.h"
#include "models/model_grid.h"
#include "support/codes.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using models::StateValues;
using oracle::Real;

/// Thermodynamic identities between the caloric functions, each by differences of the functions
/// themselves: they hold whatever the equation of state is.
class CaloricIdentities : public SessionTest {};

/// A function of the state as the differences see it.
using Function = std::function<double(const StateValues&)>;

struct Fixture {
    double T, p, v, pv, pT, pvv;

    double volume(double atT, double atP) const {
        return static_cast<double>(oracle::volume_near(atT, atP, v, pv));
    }
    /// Steps within which the isobar and the isotherm keep far from an extremum of p.
    double step_T() const {
        const double gap = std::fabs(T - legacy::the_substance.Tcrit) / 5;
        return std::min({0.002 * T, gap, 0.005 * pv * pv / std::fabs(pvv * pT)});
    }
    /// Within it p stays positive, as a state needs.
    double step_T_at_v() const {
        const double gap = std::fabs(T - legacy::the_substance.Tcrit) / 5;
        return std::min({0.002 * T, gap, 0.2 * p / std::fabs(pT)});
    }
    double step_p() const { return std::min(0.002 * p, 0.005 * pv * pv / std::fabs(pvv)); }
    double step_v() const {
        const double width = v - static_cast<double>(oracle::covolume(T));
        return std::min(0.002 * width, 0.2 * p / std::fabs(pv));
    }

    double slope_T(const Function& f) const {
        return static_cast<double>(oracle::first_derivative(
            [&](Real x) {
                const auto at = static_cast<double>(x);
                return f(models::StateFunctions(at, p, volume(at, p)));
            },
            T, step_T()));
    }
    double slope_p(const Function& f) const {
        return static_cast<double>(oracle::first_derivative(
            [&](Real x) {
                const auto at = static_cast<double>(x);
                return f(models::StateFunctions(T, at, volume(T, at)));
            },
            p, step_p()));
    }
    double slope_T_at_v(const Function& f) const {
        return static_cast<double>(oracle::first_derivative(
            [&](Real x) {
                const auto at = static_cast<double>(x);
                return f(
                    models::StateFunctions(at, static_cast<double>(oracle::pressure(x, v)), v));
            },
            T, step_T_at_v()));
    }
    double slope_v(const Function& f) const {
        return static_cast<double>(oracle::first_derivative(
            [&](Real x) {
                return f(models::StateFunctions(T, static_cast<double>(oracle::pressure(T, x)),
                                                static_cast<double>(x)));
            },
            v, step_v()));
    }
};

/// Representative states: compressed liquid, near-critical, metastable or supercritical, gas.
std::vector<Fixture> states() {
    std::vector<Fixture> all;
    const bool onlyV = legacy::the_models.EOSOnlyV;
    const double RTp = 8.31451 * legacy::the_substance.Tcrit / legacy::the_substance.pcrit;
    for (const double Tr : {0.7, 0.97, 1.2, 2.0}) {
        const double T = Tr * legacy::the_substance.Tcrit;
        const auto b = static_cast<double>(oracle::covolume(T));
        for (const double v : {onlyV ? 0.8 * RTp : 1.3 * b, 0.45 * RTp, 3 * RTp, 40 * RTp}) {
            if (v < 1.05 * b) continue;
            Fixture f{T, static_cast<double>(oracle::pressure(T, v)), v, 0, 0, 0};
            const models::PhaseTable t = models::ResidualFunctions(T, f.p, v);
            if (!t.filled) continue;
            f.pv = t.first[1];
            f.pT = t.first[2];
            f.pvv = t.second[1];
            const double w = v - b;
            if (-f.pv * w * w > 0.05 * 8.31451 * T && std::fabs(f.pT) * w > 0.05 * 8.31451)
                all.push_back(f);
        }
    }
    return all;
}

/// Every identity at one state.
void check(const Fixture& f, const std::string& at) {
    const StateValues z = models::StateFunctions(f.T, f.p, f.v);
    ASSERT_EQ(z.status, kSuccess) << at;
    const double RT = 8.31451 * f.T;
    const auto near = [&](double a, double b, double size, const char* what) {
        EXPECT_NEAR(a, b, 1e-7 * std::max(std::fabs(b), size)) << what << ": " << at;
    };
    const auto h = [](const StateValues& x) { return x.h; };
    const auto u = [](const StateValues& x) { return x.u; };
    const auto s = [](const StateValues& x) { return x.s; };
    const auto g = [](const StateValues& x) { return x.g; };
    const auto a = [](const StateValues& x) { return x.a; };

    near(z.g, z.h - f.T * z.s, RT, "g = h - T s");
    near(z.u, z.h - f.p * f.v, RT, "u = h - p v");
    near(z.a, z.u - f.T * z.s, RT, "a = u - T s");
    near(f.slope_p(g), f.v, 1e-3 * f.v, "dg/dp = v");
    near(f.slope_T(g), -z.s, 8.3, "dg/dT = -s");
    near(f.slope_T(h), z.cp, 8.3, "dh/dT = cp");
    near(f.slope_T(s), z.cp / f.T, 8.3 / f.T, "T ds/dT = cp at p");
    near(f.slope_T_at_v(u), z.cv, 8.3, "du/dT = cv at v");
    near(f.slope_T_at_v(a), -z.s, 8.3, "da/dT = -s at v");
    near(f.slope_v(a), -f.p, RT / f.v, "da/dv = -p");
    near(f.slope_v(s), f.pT, 8.3 / f.v, "ds/dv = dp/dT");
    near(f.slope_p(h), -z.cp * z.table.residual[models::JouleThomson], f.v, "dh/dp = -cp mu");

    // Along the isentrope dv and dT are tied by s_T dT + s_v dv = 0.
    const double slope = f.pv - f.pT * f.slope_v(s) / f.slope_T_at_v(s);
    const double M = static_cast<double>(legacy::the_substance.M);
    if (slope < 0 && z.cv > 1)
        near(z.w, f.v * std::sqrt(-slope * 1000 / M), 0, "w^2 = dp/drho at s");
}

TEST_F(CaloricIdentities, HoldForEverySubstanceAndModel) {
    int checked = 0;
    const auto sweep = [&](const std::string& name) {
        for (const Fixture& f : states()) {
            const models::CpResult cp = models::IdealGasCp(f.T);
            if (cp.status != kSuccess || cp.cp < 8.5) continue;
            ++checked;
            check(f, name + ", T " + std::to_string(f.T) + ", v " + std::to_string(f.v));
            if (HasFailure()) return;
        }
    };
    constexpr std::int16_t withoutManual[] = {0, 11, 12, 13, 14, 15, 16};
    grid::ForAll(grid::kCubic, sweep);
    grid::ForAll(withoutManual, sweep);
    EXPECT_GT(checked, 15000);
}

TEST_F(CaloricIdentities, HoldInEveryReferenceModeAndCpForm) {
    for (const std::int16_t mode : {std::int16_t{1}, std::int16_t{2}, std::int16_t{10}}) {
        for (const std::int16_t form : {std::int16_t{1}, std::int16_t{2}}) {
            grid::activate("Propane", 6);
            legacy::the_models.CpModel = codes::cp(form);
            legacy::the_reference.RefMode = mode;
            for (const Fixture& f : states()) check(f, "mode " + std::to_string(mode));
        }
    }
}

}  // namespace
