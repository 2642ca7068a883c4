#include "calc_test.h"

using namespace quor;

namespace {

/// The boxes on temperatures outside the ranges of the equations that a calculation uses.
class RangeBoxes : public CalcTest {
  protected:
    RangeBoxes() {
        use_fluid();
        use_models({});
        substance.wagner.T_low = 100;
        substance.wagner.T_high = 369;
    }
    /// Number of boxes of a calculation by its task's code.
    std::size_t boxes(int code, double T, double p = 0, report::Tell tell = report::Tell::remarks) {
        user.messages.clear();
        use_input({.T = T, .p = p});
        calculate(code, tell);
        return user.messages.size();
    }
    void partial_with_database_density() {
        chosen.method.global = false;
        chosen.method.liquid_by_benson = false;
        use_benson_reference();
    }
};

TEST_F(RangeBoxes, LiquidDensityIsSilentForFiveKelvinsAndNotForSix) {
    partial_with_database_density();
    substance.rhoL_coefficients = {900, -1, 0, 0, 0, 0, 0};
    substance.rhoL_Tc = 500;
    substance.rhoL_T_low = 200;
    substance.rhoL_T_high = 300;
    EXPECT_EQ(boxes(4, 250), 0U);
    EXPECT_EQ(boxes(4, 305), 0U);
    EXPECT_EQ(boxes(4, 195), 0U);
    EXPECT_EQ(boxes(4, 305.5), 1U);  // 5.5 is rounded to the even 6
    EXPECT_EQ(boxes(4, 304.5), 0U);  // 4.5 to 4
    EXPECT_EQ(boxes(4, 306), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning the equation rho_L = Fu(T)");
    EXPECT_EQ(user.lastText(),
              " temperature6 K outside parameter validity\n"
              "(for temperature range cf. window \"Models\")");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Exclamation);
    EXPECT_EQ(boxes(4, 194), 1U);
    EXPECT_EQ(user.lastText(),
              " temperature-6 K outside parameter validity\n"
              "(for temperature range cf. window \"Models\")");
    EXPECT_EQ(boxes(4, 194, 0, report::Tell::necessary), 0U);
}

TEST_F(RangeBoxes, VapourPressureIsSilentForTenKelvinsAndNotForEleven) {
    partial_with_database_density();
    substance.wagner.T_low = 200;
    substance.wagner.T_high = 250;
    EXPECT_EQ(boxes(4, 260), 0U);
    EXPECT_EQ(boxes(4, 261), 1U);
    EXPECT_EQ(
        user.lastText(),
        " temperature11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
    EXPECT_EQ(user.lastTitle(), "Warning concerning vapour pressure equation");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Exclamation);
    EXPECT_EQ(boxes(4, 189), 1U);
    EXPECT_EQ(
        user.lastText(),
        " temperature-11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
    EXPECT_EQ(boxes(4, 189, 0, report::Tell::necessary), 0U);
}

TEST_F(RangeBoxes, BoilingTemperatureHasATextOfItsOwn) {
    partial_with_database_density();
    ASSERT_EQ(boxes(4, 289), 0U);
    const double p = last.answer.p;
    substance.wagner.T_low = 300;
    substance.wagner.T_high = 320;
    EXPECT_EQ(boxes(5, 0, p), 1U);
    EXPECT_EQ(
        user.lastText(),
        "Temperature -11 K outside parameter validity\n(cf. Data/Parameters vapour pressure equ.)");
}

TEST_F(RangeBoxes, EnthalpyOfVaporisationNamesEachEquationItUses) {
    constexpr int kDatabase = 1, kChen = 2, kDatabaseDensity = 5;
    substance.hLV_T_low = 250;
    substance.hLV_T_high = 350;
    use_models({.hlv = kDatabase});
    for (const double T : {300.0, 355.0, 245.0}) EXPECT_EQ(boxes(6, T), 0U) << T;
    EXPECT_EQ(boxes(6, 244, 0, report::Tell::necessary), 0U);
    EXPECT_EQ(boxes(6, 356), 1U);
    EXPECT_EQ(user.lastText(),
              "Temperature 6 K outside parameter validity\n"
              "(cf. Data/Parameters delta(LV)h = Fu(T))");
    EXPECT_EQ(user.lastTitle(), "Warning concerning equation delta(LV)h = Fu(T)");
    EXPECT_EQ(boxes(6, 244), 1U);
    EXPECT_EQ(user.lastText(),
              "Temperature -6 K outside parameter validity\n"
              "(cf. Data/Parameters delta(LV)h = Fu(T))");

    substance.wagner.T_low = 250;
    substance.wagner.T_high = 300;
    use_models({.hlv = kChen});
    EXPECT_EQ(boxes(6, 310), 0U);
    EXPECT_EQ(boxes(6, 311), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning vapour pressure equation");

    substance.rhoL_T_low = 250;
    substance.rhoL_T_high = 300;
    use_models({.hlv = kDatabaseDensity});
    EXPECT_EQ(boxes(6, 305), 0U);
    EXPECT_EQ(boxes(6, 306), 1U);
    EXPECT_EQ(user.lastTitle(), "Warning concerning the equation rho_L = Fu(T)");
}

TEST_F(RangeBoxes, AFailureShowsNone) {
    substance.hLV_T_high = 0;
    use_models({.hlv = 1});
    EXPECT_EQ(boxes(6, 300), 0U);
    EXPECT_TRUE(last.failed());
}

}  // namespace
