#include "calc_test.h"
#include "calculation/direct_input.h"
#include "calculation/start_calculation.h"
#include "common/numbers.h"

using namespace quor;

namespace {

using calculation::accept_input;
using calculation::describe_direct_input;
using calculation::InputResult;
using calculation::resultText;
using legacy::the_session;

/// The small view that asks for numbers.
class DirectInput : public CalcTest {
  protected:
    DirectInput() {
        use_fluid();
        use_models({});
    }

    static void ask(std::int16_t mode) {
        the_session.CalcMode = mode;
        the_session.InputSituation = static_cast<std::int16_t>(mode + 100);
    }
    static std::vector<std::string> labels(bool amount = false) {
        std::vector<std::string> all;
        for (const auto& field : describe_direct_input(amount).fields)
            all.push_back(field.visible ? field.label : "");
        return all;
    }
    void expect_refused(const std::array<std::string, 4>& texts) {
        user.messages.clear();
        EXPECT_EQ(accept_input(texts), InputResult::Refused);
        ASSERT_EQ(user.messages.size(), 1U);
        EXPECT_EQ(user.lastText(), "no valid input");
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
    }

    using Labels = std::vector<std::string>;
};

TEST_F(DirectInput, AsksForWhatTheModeNeeds) {
    const std::string T = "      T/K     ", p = "      p/kPa = ", rho = " rho/kg/m^3 = ";
    for (const std::int16_t mode : Codes{4, 6, 11, 14, 15, 16, 17, 18, 19, 20, 21, 22, 24}) {
        ask(mode);
        EXPECT_EQ(labels(), (Labels{T, "", "", ""})) << mode;
    }
    for (const std::int16_t mode : Codes{5, 7}) {
        ask(mode);
        EXPECT_EQ(labels(), (Labels{"", p, "", ""})) << mode;
    }
    for (const std::int16_t mode : Codes{3, 8}) {
        ask(mode);
        EXPECT_EQ(labels(), (Labels{T, p, "", ""})) << mode;
    }
    for (const std::int16_t mode : Codes{1, 2}) {
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
    EXPECT_EQ(describe_direct_input().volumeFrame, " Input density kg/m^3 ");
    calculation::choose_volume_input(1);
    const char* frames[] = {" Input molar volume, cf. \"Options\" ",
                            " Input specif. volume, cf. Options ",
                            " Input red. volume, cf. Options "};
    const char* names[] = {" V/m^3/kmol = ", "  V/m^3/kg  = ", "  V/(m^3/m^3)= "};
    for (const int unit : {0, 1, 2}) {
        use_units(unit);
        EXPECT_EQ(describe_direct_input().volumeFrame, frames[unit]);
        EXPECT_EQ(labels()[2], names[unit]);
    }
    use_models({.eos = 16});  // no critical volume: reduced volumes fall back to molar ones
    EXPECT_EQ(labels()[2], names[0]);
    ask(3);
    EXPECT_FALSE(describe_direct_input().volumeFrameVisible);
}

TEST_F(DirectInput, StoresAndCalculates) {
    ask(3);
    EXPECT_EQ(accept_input({"300", "900,5", "77", ""}), InputResult::Calculated);
    EXPECT_DOUBLE_EQ(legacy::the_BatchData[0].T, 300);
    EXPECT_DOUBLE_EQ(legacy::the_BatchData[0].p, 900.5);
    EXPECT_EQ(legacy::the_BatchData[0].rhoV, 0.0F) << "a hidden field counts as nothing";
    EXPECT_EQ(resultText.State, " V ");
    EXPECT_EQ(resultText.title, " T, p => rho");
}

TEST_F(DirectInput, AllFieldsZeroIsNoInput) {
    for (const std::int16_t mode : Codes{1, 3, 4, 5, 8, 13}) {
        ask(mode);
        expect_refused({"0", "0", "0", "0"});
        expect_refused({"", "", "", ""});
        expect_refused({"abc", "x", "-", "0"});
    }
    EXPECT_DOUBLE_EQ(legacy::the_BatchData[0].T, 0);
}

TEST_F(DirectInput, OneOfTwoValuesEndsInTheResultView) {
    ask(3);
    EXPECT_EQ(accept_input({"300", "", "", ""}), InputResult::Calculated);
    EXPECT_EQ(resultText.par1.text, "No p in this data set");
}

TEST_F(DirectInput, AVolumeBecomesADensity) {
    ask(1);
    calculation::choose_volume_input(1);
    const double M = static_cast<double>(legacy::the_substance.M);
    use_units(0);
    accept_input({"300", "", "5", ""});
    EXPECT_FLOAT_EQ(legacy::the_BatchData[0].rhoV, static_cast<float>(M / 5.0));
    use_units(1);
    accept_input({"300", "", "0,1", ""});
    EXPECT_FLOAT_EQ(legacy::the_BatchData[0].rhoV, 10.0F) << "specific volume of 0.1 m^3/kg";
    use_units(2);
    accept_input({"300", "", "2", ""});
    EXPECT_FLOAT_EQ(legacy::the_BatchData[0].rhoV,
                    static_cast<float>(M / (2.0 * legacy::the_eosParameters.vcritCalc)));
    calculation::choose_volume_input(0);
    accept_input({"300", "", "2", ""});
    EXPECT_FLOAT_EQ(legacy::the_BatchData[0].rhoV, 2.0F);
}

TEST_F(DirectInput, ANumberTooLargeIsNoInput) {
    ask(1);
    accept_input({"300", "", "5", ""});
    expect_refused({"310", "", "1E300", ""});
    EXPECT_DOUBLE_EQ(legacy::the_BatchData[0].T, 300) << "nothing changes";
    the_session.InputSituation = 4;
    expect_refused({"1E60", "1E60", "1", "1"});
}

TEST_F(DirectInput, TakesAReferencePoint) {
    the_session.InputSituation = 4;
    const auto input = describe_direct_input();
    EXPECT_EQ(input.title, "Input: Reference Point");
    EXPECT_EQ(input.command, "OK");
    EXPECT_EQ(labels(),
              (Labels{"        T/K = ", "  p(LV)/kPa = ", "rho_L/kg/m^3= ", "rho_V/kg/m^3= "}));
    expect_refused({"231", "101.3", "0", "2.4"});
    EXPECT_EQ(accept_input({"231", "101.3", "581", "2,4"}), InputResult::ReferenceStored);
    EXPECT_FLOAT_EQ(the_session.BensonReference.T, 231.0F);
    EXPECT_FLOAT_EQ(the_session.BensonReference.p, 101.3F);
    EXPECT_FLOAT_EQ(the_session.BensonReference.rhoL, 581.0F);
    EXPECT_FLOAT_EQ(the_session.BensonReference.rhoV, 2.4F);
}

TEST_F(DirectInput, TakesATankByMassOrAmount) {
    the_session.CalcMode = 9;
    the_session.InputSituation = 33;
    EXPECT_EQ(describe_direct_input().title, "Tank Calculation");
    EXPECT_EQ(labels(), (Labels{"      V/m^3   ", "      m/kg    ", "      T/K     ", ""}));
    EXPECT_EQ(labels(true)[1], "      n/kmol  ");
    expect_refused({"1", "", "300", ""});
    EXPECT_EQ(accept_input({"1", "100", "300", ""}), InputResult::TankCalculated);
    const double level = the_session.tank.level;
    EXPECT_GT(level, 10.0);
    EXPECT_GT(the_session.tank.p, 900.0F);
    const std::string amount =
        numbers::General(100.0 / static_cast<double>(legacy::the_substance.M));
    EXPECT_EQ(accept_input({"1", amount, "300", ""}, true), InputResult::TankCalculated);
    EXPECT_NEAR(static_cast<double>(the_session.tank.m), 100.0, 1e-4);
    EXPECT_NEAR(the_session.tank.level, level, 1e-4);
    the_session.CalcMode = 10;
    the_session.GlobalCalculation = false;
    EXPECT_EQ(accept_input({"1", "100", "400", ""}), InputResult::TankExit);
}

TEST_F(DirectInput, ZeroMolarMassEndsInTheGuardOfTheCalculation) {
    use_units(1);
    legacy::the_substance.M = 0;
    ask(1);
    EXPECT_EQ(describe_direct_input().fields[2].label, " rho/kg/m^3 = ");
    EXPECT_EQ(accept_input({"300", "", "5", ""}), InputResult::Calculated);
    EXPECT_EQ(user.lastText(), "Division by zero");
    calculation::choose_volume_input(1);
    EXPECT_EQ(accept_input({"300", "", "5", ""}), InputResult::Refused);
}

TEST_F(DirectInput, CancelClosesInputAndResult) {
    const calculation::Views before = calculation::views();
    std::vector<std::string> closed;
    calculation::views().closeParinput = [&] { closed.emplace_back("frmParinput"); };
    calculation::views().closeResultView = [&] { closed.emplace_back("frmCalcOut"); };
    calculation::cancel_input();
    calculation::views() = before;
    EXPECT_EQ(closed, (std::vector<std::string>{"frmParinput", "frmCalcOut"}));
}

}  // namespace
