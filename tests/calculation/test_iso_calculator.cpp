#include <cmath>

#include "calc_test.h"
#include "common/numbers.h"
#include "models/caloric.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "report/iso_calculator.h"

using namespace quor;

namespace {

using calculation::IsoFunction;
using calculation::IsoGiven;

/// The second state on a line of a constant function.
class IsoCalculator : public CalcTest {
  protected:
    IsoCalculator() {
        use_fluid();
        use_models({});
    }

    double function(int code, bool liquid) const {
        return numbers[report::iso_position(static_cast<IsoFunction>(code), liquid)];
    }

    /// Where the search starts.
    void start_at(double T, double p) { use_input({.T = T, .p = p}); }

    /// The state with the function's target value becomes the last result; false without one.
    bool solve(IsoGiven given, int code, bool liquid, double target) {
        const auto found = report::iso_solve(report::make_made(fluid(), reference, units),
                                             {.given = given,
                                              .function = static_cast<IsoFunction>(code),
                                              .liquid = liquid,
                                              .T = input.T,
                                              .p = input.p,
                                              .target = target});
        if (found) last = *found;
        return found.has_value();
    }

    report::IsoCalculator open(double T, double p, IsoFunction function, IsoGiven given) {
        return {report::make_result(fluid(), reference, units, report::functions_request(T, p)),
                function, given};
    }
};

TEST_F(IsoCalculator, PositionsAndLabelsOfAllFunctions) {
    const char* labels[] = {"V  = ", "H  = ", "S  = ", "G  = ", "U  = ", "A  = ", "E(H)=", "E(U)="};
    for (int i = 1; i <= 8; ++i) {
        const auto f = static_cast<IsoFunction>(i);
        EXPECT_EQ(report::iso_position(f, false), 8U + static_cast<std::size_t>(i));
        EXPECT_EQ(report::iso_position(f, true), 18U + static_cast<std::size_t>(i));
        EXPECT_STREQ(report::iso_label(f), labels[i - 1]);
    }
}

TEST_F(IsoCalculator, FindsTOrPForEveryFunctionAndPhase) {
    struct State {
        bool liquid;
        double T, p, T2, p2;  // the second state lies in the same phase
    };
    const State states[] = {{false, 320, 300, 340, 420}, {true, 280, 3000, 285, 3900}};
    for (const int unit : {0, 1})
        for (const State& s : states)
            for (int f = 1; f <= 8; ++f)
                for (const IsoGiven given : {IsoGiven::T, IsoGiven::p}) {
                    SCOPED_TRACE(testing::Message()
                                 << "unit " << unit << " liquid " << s.liquid << " function " << f
                                 << " given " << static_cast<int>(given));
                    use_units(unit);
                    // The target is the value of the second state, so that a solution exists.
                    use_input({.T = s.T2, .p = s.p2});
                    ASSERT_FALSE(calculate(8).Failed);
                    const double target = function(f, s.liquid);
                    ASSERT_NE(target, 0.0);
                    use_input({.T = given == IsoGiven::T ? s.T2 : s.T,
                               .p = given == IsoGiven::p ? s.p2 : s.p});
                    ASSERT_TRUE(solve(given, f, s.liquid, target));
                    EXPECT_NEAR(function(f, s.liquid), target, 2e-5 * std::fabs(target) + 1e-4);
                    EXPECT_DOUBLE_EQ(given == IsoGiven::T ? last.answer.T : last.answer.p,
                                     given == IsoGiven::T ? s.T2 : s.p2);
                    EXPECT_FALSE(last.report.lines.empty()) << "the result view shows the state";
                }
}

TEST_F(IsoCalculator, IsentropicCompressionFollowsTheEquation) {
    use_input({.T = 320, .p = 300});
    calculate(8);
    const double s = function(3, false);
    start_at(320, 900);
    ASSERT_TRUE(solve(IsoGiven::p, 3, false, s));
    const double T = last.answer.T;
    const auto state = models::solve_state_tp(fluid(), T, 900.0);
    const double v = state->root_count == 3 ? state->v[2] : state->v[0];
    EXPECT_NEAR(state_functions(T, 900, v)->s, s, 1e-4);
    EXPECT_GT(T, 320);
}

TEST_F(IsoCalculator, CloseToSaturationItStaysInThePhase) {
    // Isenthalpic throttling of a vapour just above its saturation temperature.
    const double Tsat = models::saturation_temperature(fluid(), 900.0)->T;
    use_input({.T = Tsat + 0.02, .p = 900});
    calculate(8);
    const double h = function(2, false);
    ASSERT_NE(h, 0.0);
    start_at(Tsat + 0.02, 500);
    ASSERT_TRUE(solve(IsoGiven::p, 2, false, h));
    EXPECT_NEAR(function(2, false), h, 0.5);
    // And back: the start lies far from the solution, which lies beside the saturation line.
    start_at(400, 900);
    ASSERT_TRUE(solve(IsoGiven::p, 2, false, h));
    EXPECT_NEAR(last.answer.T, Tsat + 0.02, 0.01);
}

TEST_F(IsoCalculator, AMissingPhaseHasNoSolution) {
    auto iso = open(300, 100, IsoFunction::H, IsoGiven::T);
    iso.choose_phase(true);
    EXPECT_FALSE(iso.calculate("0", "300"));
    EXPECT_EQ(iso.sought_text, "No solution found");
    EXPECT_DOUBLE_EQ(iso.last_T(), 300);
    EXPECT_DOUBLE_EQ(iso.last_p(), 100);
    EXPECT_FALSE(solve(IsoGiven::T, 2, true, 0.0));
}

TEST_F(IsoCalculator, AValueThatNoStateHasEndsTheSearch) {
    use_input({.T = 300, .p = 100});
    for (const double target : {-1e12, 1e12})
        for (const IsoGiven given : {IsoGiven::T, IsoGiven::p})
            EXPECT_FALSE(solve(given, 3, false, target));
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
}

TEST_F(IsoCalculator, AFunctionThatDoesNotChangeHasNoSlope) {
    // The enthalpy of the ideal gas does not depend on p.
    use_models({.eos = 0});
    use_input({.T = 300, .p = 100});
    calculate(8);
    const double h = function(2, false);
    EXPECT_FALSE(solve(IsoGiven::T, 2, false, h + 100));
    EXPECT_TRUE(solve(IsoGiven::p, 2, false, h + 100));
}

TEST_F(IsoCalculator, ViewShowsCalculatesAndResets) {
    auto iso = open(320, 300, IsoFunction::S, IsoGiven::p);
    EXPECT_EQ(iso.constant_label, "S  = ");
    EXPECT_EQ(iso.given_label, "p/kPa =");
    EXPECT_EQ(iso.sought_label, "T/K =");
    EXPECT_EQ(iso.given_text, "300");
    EXPECT_FALSE(iso.liquid);
    const auto at = models::solve_state_tp(fluid(), 320.0, 300.0);
    const double s = state_functions(320, 300, at->root_count == 3 ? at->v[2] : at->v[0])->s;
    EXPECT_EQ(iso.constant_text, numbers::general(static_cast<float>(s)));

    EXPECT_TRUE(iso.calculate(iso.constant_text, "600"));
    EXPECT_NEAR(numbers::val(iso.sought_text), iso.last_T(), 1e-3);
    EXPECT_DOUBLE_EQ(iso.last_p(), 600);
    EXPECT_FALSE(iso.last().report.lines.empty()) << "the result view shows the state";
    const double T = iso.last_T();
    EXPECT_FALSE(iso.calculate("1E12", "700"));
    EXPECT_EQ(iso.sought_text, "No solution found");
    EXPECT_DOUBLE_EQ(iso.last_p(), 600);
    EXPECT_TRUE(iso.reset());
    EXPECT_EQ(iso.given_text, "600");
    EXPECT_EQ(iso.sought_text, numbers::general(static_cast<float>(T)));

    iso.choose_given(IsoGiven::T);
    EXPECT_EQ(iso.given_label, "  T/K =");
    EXPECT_EQ(iso.sought_label, "p/kPa = ");
    iso.choose_function(IsoFunction::H);
    EXPECT_EQ(iso.constant_label, "H  = ");
    const double h = iso.last().numbers[report::iso_position(IsoFunction::H, false)];
    EXPECT_EQ(iso.constant_text, numbers::general(static_cast<float>(h)));
}

TEST_F(IsoCalculator, ResetWithoutAStateHasNoSolution) {
    auto iso = open(0, 0, IsoFunction::V, IsoGiven::p);
    EXPECT_FALSE(iso.reset());
    EXPECT_EQ(iso.sought_text, "No solution");
}

}  // namespace
