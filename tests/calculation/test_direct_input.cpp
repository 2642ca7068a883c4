#include "common/numbers.h"
#include "report/tank_picture.h"
#include "report/titles.h"
#include "session_calc_test.h"

using namespace quor;

namespace {

using session::accept_input;
using session::InputResult;

/// The small view that asks for numbers.
class DirectInput : public SessionCalcTest {
  protected:
    void ask(int mode) {
        session.change()->calculation.task = calculation::task_of_code(mode);
        session.change()->calculation.input = report::InputKind::state;
    }
    void use_units(models::UnitSystem system) {
        change([&](session::SessionState& s) {
            s.units.system = system;
            s.units.caloric = system == models::UnitSystem::specific ? models::CaloricUnit::specific
                                                                     : models::CaloricUnit::molar;
        });
    }
    report::DirectInput describe_direct_input(bool amount = false) const {
        return report::describe_direct_input(session::input_form(session, amount));
    }
    /// The tank that was calculated last.
    report::TankState filled() const { return report::tank_state_of(session->results.current); }
    std::vector<std::string> labels(bool amount = false) const {
        std::vector<std::string> all;
        for (const auto& field : describe_direct_input(amount).fields)
            all.push_back(field.visible ? field.label : "");
        return all;
    }
    void expect_refused(const std::array<std::string, 4>& texts) {
        user.messages.clear();
        EXPECT_EQ(accept_input(session, texts), InputResult::Refused);
        ASSERT_EQ(user.messages.size(), 1U);
        EXPECT_EQ(user.lastText(), "no valid input");
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
    }

    using Labels = std::vector<std::string>;
};

TEST_F(DirectInput, AsksForWhatTheModeNeeds) {
    const std::string T = "      T/K     ", p = "      p/kPa = ", rho = " rho/kg/m^3 = ";
    for (const int mode : Codes{4, 6, 11, 14, 15, 16, 17, 18, 19, 20, 21, 22, 24}) {
        ask(mode);
        EXPECT_EQ(labels(), (Labels{T, "", "", ""})) << mode;
    }
    for (const int mode : Codes{5, 7}) {
        ask(mode);
        EXPECT_EQ(labels(), (Labels{"", p, "", ""})) << mode;
    }
    for (const int mode : Codes{3, 8}) {
        ask(mode);
        EXPECT_EQ(labels(), (Labels{T, p, "", ""})) << mode;
    }
    for (const int mode : Codes{1, 2}) {
        ask(mode);
        EXPECT_EQ(labels(), (Labels{T, "", rho, ""})) << mode;
    }
    ask(13);
    EXPECT_EQ(labels(), (Labels{"", p, rho, ""}));
    EXPECT_EQ(describe_direct_input().title, "Input \"Direct calculation\" ");
    EXPECT_EQ(describe_direct_input().command, "&Calculate");
}

TEST_F(DirectInput, NamesTheUnitOfAVolume) {
    ask(1);
    EXPECT_EQ(describe_direct_input().volume_frame, " Input density kg/m^3 ");
    session.change()->calculation.volume_input = true;
    const char* frames[] = {" Input molar volume, cf. \"Options\" ",
                            " Input specif. volume, cf. Options ",
                            " Input red. volume, cf. Options "};
    const char* names[] = {" V/m^3/kmol = ", "  V/m^3/kg  = ", "  V/(m^3/m^3)= "};
    for (const int unit : {0, 1, 2}) {
        use_units(static_cast<models::UnitSystem>(unit));
        EXPECT_EQ(describe_direct_input().volume_frame, frames[unit]);
        EXPECT_EQ(labels()[2], names[unit]);
    }
    use_models({.eos = 16});  // no critical volume: reduced volumes fall back to molar ones
    EXPECT_EQ(labels()[2], names[0]);
    ask(3);
    EXPECT_FALSE(describe_direct_input().volume_frame_visible);
}

TEST_F(DirectInput, StoresAndCalculates) {
    ask(3);
    EXPECT_EQ(accept_input(session, {"300", "900,5", "77", ""}), InputResult::Calculated);
    EXPECT_DOUBLE_EQ(state().direct.T, 300);
    EXPECT_DOUBLE_EQ(state().direct.p, 900.5);
    EXPECT_EQ(state().direct.rho, 0.0F) << "a hidden field counts as nothing";
    EXPECT_EQ(resultText().phases, " V ");
    EXPECT_EQ(report::title_of(session->results.current.request.task, {}), " T, p => rho");
}

TEST_F(DirectInput, AllFieldsZeroIsNoInput) {
    for (const int mode : Codes{1, 3, 4, 5, 8, 13}) {
        ask(mode);
        expect_refused({"0", "0", "0", "0"});
        expect_refused({"", "", "", ""});
        expect_refused({"abc", "x", "-", "0"});
    }
    EXPECT_DOUBLE_EQ(state().direct.T, 0);
}

TEST_F(DirectInput, OneOfTwoValuesEndsInTheResultView) {
    ask(3);
    EXPECT_EQ(accept_input(session, {"300", "", "", ""}), InputResult::Calculated);
    EXPECT_EQ(resultText().par1.text, "No p in this data set");
}

TEST_F(DirectInput, AVolumeBecomesADensity) {
    ask(1);
    session.change()->calculation.volume_input = true;
    const double M = static_cast<double>(session->substance.M);
    use_units(models::UnitSystem::molar);
    accept_input(session, {"300", "", "5", ""});
    EXPECT_FLOAT_EQ(state().direct.rho, static_cast<float>(M / 5.0));
    use_units(models::UnitSystem::specific);
    accept_input(session, {"300", "", "0,1", ""});
    EXPECT_FLOAT_EQ(state().direct.rho, 10.0F) << "specific volume of 0.1 m^3/kg";
    use_units(models::UnitSystem::reduced);
    accept_input(session, {"300", "", "2", ""});
    EXPECT_FLOAT_EQ(state().direct.rho,
                    static_cast<float>(M / (2.0 * session->eos_parameters.vcrit_calculated)));
    session.change()->calculation.volume_input = false;
    accept_input(session, {"300", "", "2", ""});
    EXPECT_FLOAT_EQ(state().direct.rho, 2.0F);
}

TEST_F(DirectInput, ANumberTooLargeIsNoInput) {
    ask(1);
    accept_input(session, {"300", "", "5", ""});
    expect_refused({"310", "", "1E300", ""});
    EXPECT_DOUBLE_EQ(state().direct.T, 300) << "nothing changes";
}

TEST_F(DirectInput, TakesAReferencePoint) {
    const auto input = report::describe_direct_input({.kind = report::InputKind::reference});
    EXPECT_EQ(input.title, "Input: Reference Point");
    EXPECT_EQ(input.command, "OK");
    Labels all;
    for (const auto& field : input.fields) all.push_back(field.label);
    EXPECT_EQ(all,
              (Labels{"        T/K = ", "  p(LV)/kPa = ", "rho_L/kg/m^3= ", "rho_V/kg/m^3= "}));
    EXPECT_FALSE(session::accept_reference(session, {"231", "101.3", "0", "2.4"}));
    EXPECT_EQ(user.lastText(), "no valid input");
    EXPECT_FALSE(session::accept_reference(session, {"1E60", "1E60", "1", "1"}));
    const auto point = session::accept_reference(session, {"231", "101.3", "581", "2,4"});
    ASSERT_TRUE(point);
    EXPECT_FLOAT_EQ(point->T, 231.0F);
    EXPECT_FLOAT_EQ(point->p, 101.3F);
    EXPECT_FLOAT_EQ(point->rhoL, 581.0F);
    EXPECT_FLOAT_EQ(point->rhoV, 2.4F);
}

TEST_F(DirectInput, TakesATankByMassOrAmount) {
    session.change()->calculation.task = calculation::task_of_code(9);
    session.change()->calculation.input = report::InputKind::tank;
    EXPECT_EQ(describe_direct_input().title, "Tank Calculation");
    EXPECT_EQ(labels(), (Labels{"      V/m^3   ", "      m/kg    ", "      T/K     ", ""}));
    EXPECT_EQ(labels(true)[1], "      n/kmol  ");
    expect_refused({"1", "", "300", ""});
    EXPECT_EQ(accept_input(session, {"1", "100", "300", ""}), InputResult::TankCalculated);
    const double level = filled().level;
    EXPECT_GT(level, 10.0);
    EXPECT_GT(filled().p, 900.0);
    const std::string amount = numbers::general(100.0 / static_cast<double>(session->substance.M));
    EXPECT_EQ(accept_input(session, {"1", amount, "300", ""}, true), InputResult::TankCalculated);
    EXPECT_NEAR(static_cast<double>(session->tank.m), 100.0, 1e-4);
    EXPECT_NEAR(filled().level, level, 1e-4);
    session.change()->calculation.task = calculation::task_of_code(10);
    session.change()->calculation.method.global = false;
    EXPECT_EQ(accept_input(session, {"1", "100", "400", ""}), InputResult::TankExit);
}

TEST_F(DirectInput, ZeroMolarMassEndsInTheGuardOfTheCalculation) {
    use_units(models::UnitSystem::specific);
    session.change()->substance.M = 0;
    ask(1);
    EXPECT_EQ(describe_direct_input().fields[2].label, " rho/kg/m^3 = ");
    EXPECT_EQ(accept_input(session, {"300", "", "5", ""}), InputResult::Calculated);
    EXPECT_EQ(user.lastText(), "Division by zero");
    session.change()->calculation.volume_input = true;
    EXPECT_EQ(accept_input(session, {"300", "", "5", ""}), InputResult::Refused);
}

TEST_F(DirectInput, CancelClosesInputAndResult) {
    std::vector<std::string> closed;
    session::CalculationViews views;
    views.close_direct_input = [&] { closed.emplace_back("frmParinput"); };
    views.close_result_view = [&] { closed.emplace_back("frmCalcOut"); };
    session::cancel_input(views);
    EXPECT_EQ(closed, (std::vector<std::string>{"frmParinput", "frmCalcOut"}));
}

}  // namespace
