#include <cmath>

#include "calc_test.h"
#include "calculation/iso_calculator.h"
#include "common/numbers.h"
#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"
#include "models/caloric.h"
#include "models/saturation.h"
#include "models/state_solver.h"

using namespace quor;

namespace {

using calculation::iso_solve;
using calculation::IsoGiven;
using calculation::resultText;
using legacy::the_session;

/// The second state on a line of a constant function.
class IsoCalculator : public CalcTest {
  protected:
    IsoCalculator() {
        use_fluid();
        use_models({});
    }

    static double function(std::int16_t index, bool liquid) {
        return legacy::the_Fu[calculation::iso_position(index, liquid)];
    }
};

TEST_F(IsoCalculator, PositionsAndLabelsOfAllFunctions) {
    const char* labels[] = {"V  = ", "H  = ", "S  = ", "G  = ", "U  = ", "A  = ", "E(H)=", "E(U)="};
    for (std::int16_t i = 1; i <= 8; ++i) {
        EXPECT_EQ(calculation::iso_position(i, false), 8U + static_cast<std::size_t>(i));
        EXPECT_EQ(calculation::iso_position(i, true), 18U + static_cast<std::size_t>(i));
        EXPECT_STREQ(calculation::iso_label(i), labels[i - 1]);
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
            for (std::int16_t f = 1; f <= 8; ++f)
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
                    const auto solution = iso_solve(given, f, s.liquid, target);
                    ASSERT_FALSE(solution.failed);
                    EXPECT_NEAR(function(f, s.liquid), target, 2e-5 * std::fabs(target) + 1e-4);
                    EXPECT_DOUBLE_EQ(given == IsoGiven::T ? legacy::the_BatchData[0].p
                                                          : legacy::the_BatchData[0].T,
                                     solution.x);
                    EXPECT_FALSE(resultText.Liste.empty()) << "the result view shows the state";
                }
}

TEST_F(IsoCalculator, IsentropicCompressionFollowsTheEquation) {
    use_input({.T = 320, .p = 300});
    calculate(8);
    const double s = function(3, false);
    legacy::the_BatchData[0].p = 900;
    const auto solution = iso_solve(IsoGiven::p, 3, false, s);
    ASSERT_FALSE(solution.failed);
    const auto state = models::solve_state_tp(models::current_fluid(), solution.x, 900.0);
    const double v = state.nRoots == 3 ? state.v[2] : state.v[0];
    EXPECT_NEAR(models::StateFunctions(solution.x, 900, v).s, s, 1e-4);
    EXPECT_GT(solution.x, 320);
}

TEST_F(IsoCalculator, CloseToSaturationItStaysInThePhase) {
    // Isenthalpic throttling of a vapour just above its saturation temperature.
    const double Tsat = models::saturation_temperature(models::current_fluid(), 900.0).T;
    use_input({.T = Tsat + 0.02, .p = 900});
    calculate(8);
    const double h = function(2, false);
    ASSERT_NE(h, 0.0);
    legacy::the_BatchData[0].p = 500;
    auto solution = iso_solve(IsoGiven::p, 2, false, h);
    ASSERT_FALSE(solution.failed);
    EXPECT_NEAR(function(2, false), h, 0.5);
    // And back: the start lies far from the solution, which lies beside the saturation line.
    legacy::the_BatchData[0].p = 900;
    legacy::the_BatchData[0].T = 400;
    solution = iso_solve(IsoGiven::p, 2, false, h);
    ASSERT_FALSE(solution.failed);
    EXPECT_NEAR(solution.x, Tsat + 0.02, 0.01);
}

TEST_F(IsoCalculator, AMissingPhaseHasNoSolution) {
    use_input({.T = 300, .p = 100});
    calculate(8);
    const auto Fu = legacy::the_Fu;
    const std::string text = calculation::result_as_text(resultText);
    const auto solution = iso_solve(IsoGiven::T, 2, true, 0.0);
    EXPECT_TRUE(solution.failed);
    EXPECT_EQ(solution.x, 0.0);
    EXPECT_DOUBLE_EQ(legacy::the_BatchData[0].T, 300);
    EXPECT_DOUBLE_EQ(legacy::the_BatchData[0].p, 100);
    EXPECT_EQ(legacy::the_Fu, Fu) << "all is as it was";
    EXPECT_EQ(calculation::result_as_text(resultText), text);
}

TEST_F(IsoCalculator, AValueThatNoStateHasEndsTheSearch) {
    use_input({.T = 300, .p = 100});
    for (const double target : {-1e12, 1e12})
        for (const IsoGiven given : {IsoGiven::T, IsoGiven::p})
            EXPECT_TRUE(iso_solve(given, 3, false, target).failed);
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
}

TEST_F(IsoCalculator, AFunctionThatDoesNotChangeHasNoSlope) {
    // The enthalpy of the ideal gas does not depend on p.
    use_models({.eos = 0});
    use_input({.T = 300, .p = 100});
    calculate(8);
    const double h = function(2, false);
    EXPECT_TRUE(iso_solve(IsoGiven::T, 2, false, h + 100).failed);
    EXPECT_FALSE(iso_solve(IsoGiven::p, 2, false, h + 100).failed);
}

TEST_F(IsoCalculator, ViewShowsCalculatesAndResets) {
    the_session.IsoFunction = 3;
    use_input({.T = 320, .p = 300});
    calculate(3);
    const std::string text = calculation::result_as_text(resultText);
    auto iso = calculation::open_iso_calculator();
    EXPECT_EQ(calculation::result_as_text(resultText), text) << "opening changes nothing";
    EXPECT_EQ(iso.lblFuConst, "S  = ");
    EXPECT_EQ(iso.givenLabel, "p/kPa =");
    EXPECT_EQ(iso.soughtLabel, "T/K =");
    EXPECT_EQ(iso.txtTpVorgabe, "300");
    EXPECT_FALSE(iso.liquid);
    const auto state = models::solve_state_tp(models::current_fluid(), 320.0, 300.0);
    const double s =
        models::StateFunctions(320, 300, state.nRoots == 3 ? state.v[2] : state.v[0]).s;
    EXPECT_EQ(iso.txtFuConst, numbers::General(static_cast<float>(s)));

    EXPECT_TRUE(calculation::calculate_iso(iso, iso.txtFuConst, "600"));
    EXPECT_NEAR(numbers::val(iso.txtTpCalc), iso.lastT, 1e-3);
    EXPECT_DOUBLE_EQ(iso.lastP, 600);
    const double T = iso.lastT;
    EXPECT_FALSE(calculation::calculate_iso(iso, "1E12", "700"));
    EXPECT_EQ(iso.txtTpCalc, "No solution found");
    EXPECT_DOUBLE_EQ(legacy::the_BatchData[0].p, 600);
    calculation::reset_iso(iso);
    EXPECT_EQ(iso.txtTpVorgabe, "600");
    EXPECT_EQ(iso.txtTpCalc, numbers::General(static_cast<float>(T)));

    calculation::choose_iso_given(iso, IsoGiven::T);
    EXPECT_EQ(iso.givenLabel, "  T/K =");
    EXPECT_EQ(iso.soughtLabel, "p/kPa = ");
    EXPECT_EQ(the_session.IsoTp, 1);
    calculation::choose_iso_function(iso, 2);
    EXPECT_EQ(the_session.IsoFunction, 2);
    EXPECT_EQ(iso.lblFuConst, "H  = ");
    EXPECT_EQ(iso.txtFuConst, numbers::General(static_cast<float>(function(2, false))));
    EXPECT_EQ(user.pointer.size() % 2, 0U) << "the busy pointer ends";
}

TEST_F(IsoCalculator, ResetWithoutAStateHasNoSolution) {
    use_input({.T = 320, .p = 300});
    auto iso = calculation::open_iso_calculator();
    iso.lastT = iso.lastP = 0;
    calculation::reset_iso(iso);
    EXPECT_EQ(iso.txtTpCalc, "No solution");
}

}  // namespace
