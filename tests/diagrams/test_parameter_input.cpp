#include "diagrams/parameter_input.h"

#include "diagrams/sheet_support.h"

using namespace quor;

namespace {

using legacy::the_session;
using Module9::ParameterAnswer;
using Module9::take_parameter;

class ParameterInput : public Sheet {};

TEST_F(ParameterInput, TakesATemperatureInItsRange) {
    EXPECT_EQ(take_parameter(1, 350), ParameterAnswer::Taken);
    EXPECT_EQ(the_session.DiagramT, 350);
    for (const double bad : {0.0, -5.0, 0.9, 1000000.1, std::nan("")})
        EXPECT_EQ(take_parameter(1, bad), ParameterAnswer::Invalid) << bad;
    EXPECT_EQ(the_session.DiagramT, 350);
    EXPECT_EQ(take_parameter(1, 1000000), ParameterAnswer::Taken);
}

TEST_F(ParameterInput, TakesReducedValues) {
    set_units(0, 2);
    EXPECT_EQ(take_parameter(1, 0.8), ParameterAnswer::Taken);
    EXPECT_NEAR(the_session.DiagramT, 0.8 * legacy::the_substance.Tcrit, 1e-4);
    EXPECT_EQ(Module9::shown_parameter(1), "T = 0.80");
    EXPECT_EQ(take_parameter(2, 0.5), ParameterAnswer::Taken);
    EXPECT_NEAR(the_session.DiagramP, 0.5 * legacy::the_substance.pcrit, 1e-3);
}

TEST_F(ParameterInput, TakesAPressureInItsRange) {
    EXPECT_EQ(take_parameter(2, 0.001), ParameterAnswer::Invalid);
    EXPECT_EQ(take_parameter(2, 0.0011), ParameterAnswer::Taken);
    EXPECT_DOUBLE_EQ(the_session.DiagramP, 0.0011);
    EXPECT_EQ(take_parameter(2, 1000001), ParameterAnswer::Invalid);
}

TEST_F(ParameterInput, RefusesAVolumeBelowTheCovolume) {
    the_session.DiagramV = 0.7;
    const double b =
        0.0777960739 * 8.31451 * legacy::the_substance.Tcrit / legacy::the_substance.pcrit;
    EXPECT_EQ(take_parameter(3, b * 0.99), ParameterAnswer::Refused);
    EXPECT_EQ(user.lastText(), "v < b not possible");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(the_session.DiagramV, 0.7);
    EXPECT_EQ(take_parameter(3, b * 1.02), ParameterAnswer::Taken);
    EXPECT_EQ(user.lastText(), "There are possibly problems during calculation");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    user.messages.clear();
    EXPECT_EQ(take_parameter(3, b * 1.04), ParameterAnswer::Taken);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(take_parameter(3, 0), ParameterAnswer::Invalid);
    EXPECT_EQ(take_parameter(3, 100001), ParameterAnswer::Invalid);
}

TEST_F(ParameterInput, KnowsNoCovolumeForAVirialEquation) {
    activate("Propane", kVirial);
    EXPECT_EQ(take_parameter(3, 0.01), ParameterAnswer::Taken);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ParameterInput, RecomputesTheCaloricFactor) {
    set_units(2, 0);
    take_parameter(1, 400);
    EXPECT_NEAR(the_session.CaloricFactor, 1 / (8.31451 * 400), 1e-12);
}

TEST_F(ParameterInput, TakesARangeOfAFunctionDiagram) {
    EXPECT_EQ(Module9::take_range(1, 300, 100, 5000), "");
    EXPECT_EQ(the_session.DiagramT, 300);
    EXPECT_EQ(legacy::the_processLine.RangeIsT, 0);
    EXPECT_EQ(legacy::the_processLine.RangeEnd, 5000);
    EXPECT_EQ(Module9::take_range(2, 500, 200, 400), "");
    EXPECT_EQ(the_session.DiagramP, 500);
    EXPECT_EQ(legacy::the_processLine.RangeIsT, 1);
    EXPECT_EQ(Module9::take_range(1, 300, 100, 100), "specification of the range is not valid ");
    EXPECT_EQ(Module9::take_range(1, 300, -1, 100), "specificated p and T have to be > 0");
    EXPECT_EQ(Module9::take_range(1, std::nan(""), 1, 100), "Input incomplete or not valid");
    EXPECT_EQ(legacy::the_processLine.RangeEnd, 400);
}

}  // namespace
