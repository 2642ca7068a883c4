#include "diagrams/parameter_input.h"

#include "diagrams/sheet_support.h"
#include "models/unit_text.h"

using namespace quor;

namespace {

using diagrams::ParameterStatus;
using diagrams::Section;

class ParameterInput : public Sheet {
  protected:
    ParameterStatus take(Section section, double typed) {
        const diagrams::ParameterAnswer answer =
            diagrams::take_parameter(section, basis(), sheet.at, typed);
        sheet.at = answer.at;
        return answer.status;
    }
    std::string take_range(Section section, double fixed, double start, double end) {
        const diagrams::RangeAnswer answer =
            diagrams::take_range(section, basis().units, sheet.at, process, fixed, start, end);
        sheet.at = answer.at;
        process = answer.range;
        return answer.refusal;
    }
    std::string shown(Section section) const {
        return diagrams::shown_parameter(section, basis().units, sheet.at);
    }
};

TEST_F(ParameterInput, TakesATemperatureInItsRange) {
    EXPECT_EQ(take(Section::isothermal, 350), ParameterStatus::taken);
    EXPECT_EQ(sheet.at.T, 350);
    for (const double bad : {0.0, -5.0, 0.9, 1000000.1, std::nan("")})
        EXPECT_EQ(take(Section::isothermal, bad), ParameterStatus::invalid) << bad;
    EXPECT_EQ(sheet.at.T, 350);
    EXPECT_EQ(take(Section::isothermal, 1000000), ParameterStatus::taken);
}

TEST_F(ParameterInput, TakesReducedValues) {
    set_units(0, 2);
    EXPECT_EQ(take(Section::isothermal, 0.8), ParameterStatus::taken);
    EXPECT_NEAR(sheet.at.T, 0.8 * substance.Tcrit, 1e-4);
    EXPECT_EQ(shown(Section::isothermal), "T = 0.80");
    EXPECT_EQ(take(Section::isobaric, 0.5), ParameterStatus::taken);
    EXPECT_NEAR(sheet.at.p, 0.5 * substance.pcrit, 1e-3);
}

TEST_F(ParameterInput, TakesValuesInUnitsOfTheirOwn) {
    units = models::read_choice("T=degC,p=bar(g),v=l/kg").value();
    EXPECT_EQ(take(Section::isothermal, -20), ParameterStatus::taken);
    EXPECT_NEAR(sheet.at.T, 253.15, 1e-12);
    EXPECT_EQ(shown(Section::isothermal), "T = -20 °C");
    for (const double bad : {-273.15, -273.0, 1e6, std::nan("")})
        EXPECT_EQ(take(Section::isothermal, bad), ParameterStatus::invalid) << bad;
    EXPECT_EQ(take(Section::isobaric, 0), ParameterStatus::taken);
    EXPECT_NEAR(sheet.at.p, 101.325, 1e-12);
    EXPECT_EQ(take(Section::isobaric, -1.02), ParameterStatus::invalid);
    EXPECT_EQ(take(Section::isochoric, 40), ParameterStatus::taken);
    EXPECT_NEAR(sheet.at.v, 0.04 * static_cast<double>(substance.M), 1e-12);
    EXPECT_EQ(take_range(Section::isobaric, 3, -50, 80), "");
    EXPECT_NEAR(sheet.at.p, 401.325, 1e-12);
    EXPECT_NEAR(process.range_start, 223.15, 1e-12);
    EXPECT_NEAR(process.range_end, 353.15, 1e-12);
    EXPECT_EQ(take_range(Section::isobaric, 3, -300, 80), "specificated p and T have to be > 0");
    EXPECT_EQ(diagrams::shown_limit(Section::isothermal, basis().units, 300), 300 - 273.15);
}

TEST_F(ParameterInput, TakesAPressureInItsRange) {
    EXPECT_EQ(take(Section::isobaric, 0.001), ParameterStatus::invalid);
    EXPECT_EQ(take(Section::isobaric, 0.0011), ParameterStatus::taken);
    EXPECT_DOUBLE_EQ(sheet.at.p, 0.0011);
    EXPECT_EQ(take(Section::isobaric, 1000001), ParameterStatus::invalid);
}

TEST_F(ParameterInput, RefusesAVolumeBelowTheCovolume) {
    sheet.at.v = 0.7;
    const double b = 0.0777960739 * 8.31451 * substance.Tcrit / substance.pcrit;
    EXPECT_EQ(take(Section::isochoric, b * 0.99), ParameterStatus::refused);
    EXPECT_EQ(user.lastText(), "v < b not possible");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(sheet.at.v, 0.7);
    EXPECT_EQ(take(Section::isochoric, b * 1.02), ParameterStatus::taken);
    EXPECT_EQ(user.lastText(), "There are possibly problems during calculation");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    user.messages.clear();
    EXPECT_EQ(take(Section::isochoric, b * 1.04), ParameterStatus::taken);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(take(Section::isochoric, 0), ParameterStatus::invalid);
    EXPECT_EQ(take(Section::isochoric, 100001), ParameterStatus::invalid);
}

TEST_F(ParameterInput, KnowsNoCovolumeForAVirialEquation) {
    activate("Propane", kVirial);
    EXPECT_EQ(take(Section::isochoric, 0.01), ParameterStatus::taken);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ParameterInput, RecomputesTheCaloricFactor) {
    set_units(2, 0);
    take(Section::isothermal, 400);
    EXPECT_NEAR(basis().caloric(sheet.at.T), 1 / (8.31451 * 400), 1e-12);
}

TEST_F(ParameterInput, TakesARangeOfAFunctionDiagram) {
    EXPECT_EQ(take_range(Section::isothermal, 300, 100, 5000), "");
    EXPECT_EQ(sheet.at.T, 300);
    EXPECT_FALSE(process.range_is_T);
    EXPECT_EQ(process.range_end, 5000);
    EXPECT_EQ(take_range(Section::isobaric, 500, 200, 400), "");
    EXPECT_EQ(sheet.at.p, 500);
    EXPECT_TRUE(process.range_is_T);
    EXPECT_EQ(take_range(Section::isothermal, 300, 100, 100),
              "specification of the range is not valid ");
    EXPECT_EQ(take_range(Section::isothermal, 300, -1, 100), "specificated p and T have to be > 0");
    EXPECT_EQ(take_range(Section::isothermal, std::nan(""), 1, 100),
              "Input incomplete or not valid");
    EXPECT_EQ(process.range_end, 400);
}

}  // namespace
