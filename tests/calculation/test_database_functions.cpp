#include <cmath>

#include "calc_test.h"
#include "expected_text.h"

using namespace quor;

namespace {

using expected::fix;
using expected::g7;
using testing::Contains;

/// Functions of T from the database: modes 14 to 24.
class DatabaseFunctions : public CalcTest {
  protected:
    DatabaseFunctions() {
        use_fluid();
        use_models({});
    }
};

struct DatabaseCase {
    int mode;
    double T;
    std::vector<std::string> list;
    std::string name;
    std::size_t fu;
};

TEST_F(DatabaseFunctions, DatabaseFunctionsTellValueAndValidity) {
    models::SubstanceRecord& s = substance;
    s.rhoL_coefficients = {1000.0F, -1.5F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F};
    s.rhoL_T_low = 200;
    s.rhoL_T_high = 350;
    s.rhoS_coefficients = {1200.0F, -2.0F, 0.0F, 0.0F};
    s.rhoS_T_low = 50;
    s.rhoS_T_high = 86;
    s.cpL = {{80.0F, 0.1F, 0.0F, 0.0F, 0.0F}, 90, 300};
    s.cpS = {{10.0F, 0.5F, 0.0F, 0.0F, 0.0F}, 20, 85};
    s.has_cpL = s.has_cpS = true;
    use_models({.cp = 1});
    s.cp_polynomial = {{30.0F, 0.2F, 0.0F, 0.0F, 0.0F}, 200, 1000};
    const double M = static_cast<double>(s.M);
    const auto limits = [](int low, int high) {
        return std::vector<std::string>{
            "The function is valid within the following temperature limits:",
            " T(Lo)/K = " + std::to_string(low), " T(Hi)/K = " + std::to_string(high)};
    };
    const auto with = [](std::vector<std::string> head, const std::vector<std::string>& tail) {
        head.insert(head.end(), tail.begin(), tail.end());
        return head;
    };
    const DatabaseCase cases[] = {
        {14, 300,
         with({" rho(L) = 550 kg/m^3", "v  /m^3/kmol = " + expected::between(M / 550, 3, 6),
               "v  /m^3/kg   = " + expected::between(1.0 / 550, 3, 6)},
              limits(200, 350)),
         "L density", 4},
        {24, 80,
         with({" rho(S) = 1040 kg/m^3", "v  /m^3/kmol = " + expected::between(M / 1040, 3, 6),
               "v  /m^3/kg   = " + expected::between(1.0 / 1040, 3, 6)},
              limits(50, 86)),
         "S density", 19},
        {16, 400, with({" cp_IdGas = 110 kJ/(kmol/)"}, limits(200, 1000)), "ideal-gas cp", 7},
        {17, 250, with({" cp(L) = 105 kJ/(kmol/)"}, limits(90, 300)), "cp(L)", 27},
        {18, 60, with({" cp(S) = 40 kJ/(kmol/)"}, limits(20, 85)), "cp(S)", 5},
    };
    for (const DatabaseCase& c : cases) {
        SCOPED_TRACE(c.name);
        use_input({.T = c.T});
        EXPECT_FALSE(calculate(c.mode).Failed);
        EXPECT_EQ(lines(), c.list);
        const std::string T = "T = " + fix(c.T, 3) + " K";
        EXPECT_EQ(resultText.par1.text, T);
        EXPECT_EQ(resultText.co1.text,
                  " Calculation by using the Database Function " + c.name + " Fu(T)");
        EXPECT_EQ(resultText.co2.text, T);
        EXPECT_NE(numbers[c.fu], 0.0);
        EXPECT_DOUBLE_EQ(numbers[0], c.T);
        EXPECT_FALSE(resultText.diagnosis.enabled);
    }
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
}

TEST_F(DatabaseFunctions, VapourPressureEquationsAreScaledInReducedUnits) {
    use_input({.T = 300});
    const struct {
        int mode;
        const char* label;
        double p;
    } rows[] = {{21, " p(LV), Antoine (Lo-p) = ",
                 std::pow(10.0, 5.928880214691162 -
                                    803.8099975585938 / (300 + 246.99000549316406 - 273.15))}};
    for (const auto& row : rows)
        for (const int unit : {0, 2}) {
            use_units(unit);
            calculate(row.mode);
            const double factor =
                unit == 2 ? static_cast<double>(static_cast<float>(1.0 / substance.pcrit)) : 1.0;
            ASSERT_FALSE(lines().empty());
            EXPECT_EQ(lines()[0], row.label + g7(row.p * factor) + " kPa");
            EXPECT_NEAR(numbers[1], row.p * factor, 1e-9 * row.p);
        }
}

TEST_F(DatabaseFunctions, EachVapourPressureModeReadsItsOwnSet) {
    use_fluid("Nitrogen");
    use_models({});
    use_input({.T = 90});
    const char* labels[] = {" p(LV), ext. Frost-Kalkwarf = ", " p(LV), Wagner = ",
                            " p(LV), Antoine (Lo-p) = ", " p(LV), Antoine (Hi-p) = "};
    const char* names[] = {"FRO", "WAG", "ALP", "AHP"};
    for (int mode = 19; mode <= 22; ++mode) {
        SCOPED_TRACE(mode);
        EXPECT_FALSE(calculate(mode).Failed);
        EXPECT_EQ(lines()[0].find(labels[mode - 19]), 0U);
        EXPECT_EQ(resultText.co1.text, std::string(" Calculation by using the Database Function ") +
                                           names[mode - 19] + " Fu(T)");
        // Nitrogen boils at 360 kPa at 90 K (R. Span et al., J. Phys. Chem. Ref. Data 29 (2000)).
        EXPECT_NEAR(numbers[1], 360.0, 6.0);
    }
}

TEST_F(DatabaseFunctions, WarnsMoreThanTenKelvinOutsideADatabaseFunction) {
    use_models({.cp = 1});  // valid from 200 K to 1000 K
    for (const double T : {190.0, 1010.0}) {
        use_input({.T = T});
        calculate(16);
    }
    EXPECT_TRUE(user.messages.empty());
    for (const double T : {189.9, 1010.1}) {
        use_input({.T = T});
        EXPECT_FALSE(calculate(16).Failed);
    }
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.lastText(),
              "T more than 10 K outside the T-limits of the equation\n(T/K = 200...1000)");
    EXPECT_EQ(user.lastTitle(), "WARNING");
}

TEST_F(DatabaseFunctions, ASinglePointDensityHoldsTenKelvinAroundIt) {
    // The record of propane has a single density at 298.15 K.
    use_input({.T = 300});
    calculate(14);
    EXPECT_THAT(lines(), Contains(" T(Lo)/K = 288"));
    EXPECT_THAT(lines(), Contains(" T(Hi)/K = 308"));
}

TEST_F(DatabaseFunctions, DatabaseFunctionThatDoesNotExistIsRefused) {
    use_models({.cp = 0});
    use_input({.T = 300});
    for (const int mode : Codes{16, 17, 18, 22, 24}) {
        SCOPED_TRACE(mode);
        user.messages.clear();
        EXPECT_TRUE(calculate(mode).Failed);
        ASSERT_FALSE(user.messages.empty());
        EXPECT_EQ(user.lastText(), "calculation error occured");
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
        EXPECT_TRUE(resultText.par1.text.empty());
    }
}

}  // namespace
