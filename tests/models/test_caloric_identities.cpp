#include <cmath>

#include "models/long_equation.h"
#include "models/model_grid.h"
#include "support/fluids.h"
#include "support/medium.h"

using namespace quor;

namespace {

using models::StateValues;
using oracle::Real;

// Thermodynamic identities between the caloric functions, each by differences of the functions
// themselves: they hold whatever the equation of state is.

/// A function of the state as the differences see it.
using Function = std::function<double(const StateValues&)>;

struct Fixture {
    const Medium& medium;
    double T, p, v, pv, p_T, pvv;

    double volume(double at_T, double at_p) const {
        return static_cast<double>(oracle::volume_near(medium.fluid, at_T, at_p, v, pv));
    }
    /// Steps within which the isobar and the isotherm keep far from an extremum of p.
    double step_T() const {
        const double gap = std::fabs(T - medium.Tcrit()) / 5;
        return std::min({0.002 * T, gap, 0.005 * pv * pv / std::fabs(pvv * p_T)});
    }
    /// Within it p stays positive, as a state needs.
    double step_T_at_v() const {
        const double gap = std::fabs(T - medium.Tcrit()) / 5;
        return std::min({0.002 * T, gap, 0.2 * p / std::fabs(p_T)});
    }
    double step_p() const { return std::min(0.002 * p, 0.005 * pv * pv / std::fabs(pvv)); }
    double step_v() const {
        const double width = v - static_cast<double>(oracle::covolume(medium.fluid, T));
        return std::min(0.002 * width, 0.2 * p / std::fabs(pv));
    }

    double slope_T(const Function& f) const {
        return static_cast<double>(oracle::first_derivative(
            [&](Real x) {
                const auto at = static_cast<double>(x);
                return f(*medium.state(at, p, volume(at, p)));
            },
            T, step_T()));
    }
    double slope_p(const Function& f) const {
        return static_cast<double>(oracle::first_derivative(
            [&](Real x) {
                const auto at = static_cast<double>(x);
                return f(*medium.state(T, at, volume(T, at)));
            },
            p, step_p()));
    }
    double slope_T_at_v(const Function& f) const {
        return static_cast<double>(oracle::first_derivative(
            [&](Real x) {
                const auto at = static_cast<double>(x);
                return f(*medium.state(
                    at, static_cast<double>(oracle::pressure(medium.fluid, x, v)), v));
            },
            T, step_T_at_v()));
    }
    double slope_v(const Function& f) const {
        return static_cast<double>(oracle::first_derivative(
            [&](Real x) {
                return f(*medium.state(T, static_cast<double>(oracle::pressure(medium.fluid, T, x)),
                                       static_cast<double>(x)));
            },
            v, step_v()));
    }
};

/// Representative states: compressed liquid, near-critical, metastable or supercritical, gas.
std::vector<Fixture> states(const Medium& medium) {
    std::vector<Fixture> all;
    const models::Fluid& fluid = medium.fluid;
    const bool vapour_only = fluid.models().vapour_only;
    const double RTp = 8.31451 * medium.Tcrit() / fluid.substance().pcrit;
    for (const double Tr : {0.7, 0.97, 1.2, 2.0}) {
        const double T = Tr * medium.Tcrit();
        const auto b = static_cast<double>(oracle::covolume(medium.fluid, T));
        for (const double v : {vapour_only ? 0.8 * RTp : 1.3 * b, 0.45 * RTp, 3 * RTp, 40 * RTp}) {
            if (v < 1.05 * b) continue;
            Fixture f{medium, T, static_cast<double>(oracle::pressure(medium.fluid, T, v)), v, 0,
                      0,      0};
            const auto t = medium.residual(T, f.p, v);
            if (!t) continue;
            f.pv = t->first[1];
            f.p_T = t->first[2];
            f.pvv = t->second[1];
            const double w = v - b;
            if (-f.pv * w * w > 0.05 * 8.31451 * T && std::fabs(f.p_T) * w > 0.05 * 8.31451)
                all.push_back(f);
        }
    }
    return all;
}

/// Every identity at one state.
void check(const Fixture& f, const std::string& at) {
    const auto z = f.medium.state(f.T, f.p, f.v);
    ASSERT_TRUE(z) << at;
    const double RT = 8.31451 * f.T;
    const auto near = [&](double a, double b, double size, const char* what) {
        EXPECT_NEAR(a, b, 1e-7 * std::max(std::fabs(b), size)) << what << ": " << at;
    };
    const auto h = [](const StateValues& x) { return x.h; };
    const auto u = [](const StateValues& x) { return x.u; };
    const auto s = [](const StateValues& x) { return x.s; };
    const auto g = [](const StateValues& x) { return x.g; };
    const auto a = [](const StateValues& x) { return x.a; };

    near(z->g, z->h - f.T * z->s, RT, "g = h - T s");
    near(z->u, z->h - f.p * f.v, RT, "u = h - p v");
    near(z->a, z->u - f.T * z->s, RT, "a = u - T s");
    near(f.slope_p(g), f.v, 1e-3 * f.v, "dg/dp = v");
    near(f.slope_T(g), -z->s, 8.3, "dg/dT = -s");
    near(f.slope_T(h), z->cp, 8.3, "dh/dT = cp");
    near(f.slope_T(s), z->cp / f.T, 8.3 / f.T, "T ds/dT = cp at p");
    near(f.slope_T_at_v(u), z->cv, 8.3, "du/dT = cv at v");
    near(f.slope_T_at_v(a), -z->s, 8.3, "da/dT = -s at v");
    near(f.slope_v(a), -f.p, RT / f.v, "da/dv = -p");
    near(f.slope_v(s), f.p_T, 8.3 / f.v, "ds/dv = dp/dT");
    near(f.slope_p(h), -z->cp * z->table.residual[models::JouleThomson], f.v, "dh/dp = -cp mu");

    // Along the isentrope dv and dT are tied by s_T dT + s_v dv = 0.
    const double slope = f.pv - f.p_T * f.slope_v(s) / f.slope_T_at_v(s);
    const double M = static_cast<double>(f.medium.fluid.substance().M);
    if (slope < 0 && z->cv > 1)
        near(z->w, f.v * std::sqrt(-slope * 1000 / M), 0, "w^2 = dp/drho at s");
}

TEST(CaloricIdentities, HoldForEverySubstanceAndModel) {
    int checked = 0;
    const auto sweep = [&](const models::Fluid& fluid, const std::string& name) {
        const Medium medium(fluid);
        for (const Fixture& f : states(medium)) {
            const auto cp = models::ideal_gas_cp(fluid.substance(), fluid.models().cp_form, f.T);
            if (!cp || *cp < 8.5) continue;
            ++checked;
            check(f, name + ", T " + std::to_string(f.T) + ", v " + std::to_string(f.v));
            if (testing::Test::HasFailure()) return;
        }
    };
    grid::ForAll(grid::kCubic, sweep);
    grid::ForAll(grid::kVOnlyByFormula, sweep);
    EXPECT_GT(checked, 15000);
}

TEST(CaloricIdentities, HoldInEveryReferenceModeAndCpForm) {
    const models::Fluid propane = fluids::fluid("Propane", models::Eos::pengRobinson);
    for (const std::int16_t mode : {std::int16_t{1}, std::int16_t{2}, std::int16_t{10}}) {
        for (const models::CpForm form : {models::CpForm::polynomial, models::CpForm::sinhCosh}) {
            const models::Fluid fluid = fluids::changed(
                propane, [&](auto&, models::ModelSelection& m) { m.cp_form = form; });
            const Medium medium(fluid, {.mode = mode});
            for (const Fixture& f : states(medium)) check(f, "mode " + std::to_string(mode));
        }
    }
}

}  // namespace
