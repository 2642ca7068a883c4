#include "estimation/fit_models.h"

#include "common/constants.h"
#include "estimation/fit_run.h"
#include "estimation/fit_support.h"
#include "estimation/model_functions.h"

using namespace quor;

namespace {

using namespace fit_support;
using estimation::find_model;
using estimation::FitTab;
using estimation::start_values;

constexpr double kLn10 = 2.30258509299405;
const ModelContext kNatural{1, 600, 4000};
const ModelContext kDecadic{kLn10, 600, 4000};

double Value(std::int16_t model, double x, const Parameters& par,
             const ModelContext& c = kNatural) {
    double y = 0;
    EXPECT_TRUE(find_model(model)->model(x, par, c, y)) << model;
    return y;
}

bool Fails(std::int16_t model, double x, const Parameters& par, const ModelContext& c = kNatural) {
    double y = 0;
    return !find_model(model)->model(x, par, c, y);
}

TEST(FitModels, ExplicitFormulasAreThoseOfTheirCaptions) {
    EXPECT_DOUBLE_EQ(Value(0, 2, {1, 2, 3, 4, 5, 6}), 1 + 4 + 12 + 32 + 80 + 192);
    EXPECT_DOUBLE_EQ(Value(1, 2, {1, 2, 3, 4, 5, 6, 7}),
                     1 + 4 + 12 + 32 + 2.5 + 1.5 + 7 * std::log(2));
    EXPECT_NEAR(Value(3, 300, {20, 1500, -1}), std::exp(20.0 - 5.0 - std::log(300.0)), 1e-9);
    // lg p = A - B/T + D lg T.
    EXPECT_NEAR(std::log10(Value(3, 300, {9, 1500, -1}, kDecadic)), 9 - 5 - std::log10(300.0),
                1e-12);
    EXPECT_NEAR(std::log(Value(4, 373.15, {10, 3000, 200})), 10 - 3000.0 / 300, 1e-12);
    EXPECT_NEAR(std::log10(Value(4, 373.15, {5, 1500, 200}, kDecadic)), 5 - 1500.0 / 300, 1e-12);
    EXPECT_NEAR(std::log(Value(7, 300, {20, -1500, -1, 1e-5, 2})),
                20.0 - 5 - std::log(300.0) + 1e-5 * 9e4, 1e-12);
    EXPECT_NEAR(std::log10(Value(7, 300, {9, -1500, -1, 1e-5, 2}, kDecadic)),
                9.0 - 5 - std::log10(300.0) + 1e-5 * 9e4, 1e-12);
    EXPECT_NEAR(Value(9, 300, {75, 0.3, 0.24}), 75 / std::pow(0.3, 1 + std::pow(0.5, 0.24)), 1e-10);
    EXPECT_NEAR(Value(10, 525, {500, -1, 0.002, -2e-6, 500}),
                500 - 525 + 0.002 * 525 * 525 - 2e-6 * 525 * 525 * 525.0 + 500 * 0.5, 1e-9);
    EXPECT_DOUBLE_EQ(Value(11, 10, {600, 1, -0.001, -1e-6}), 600 + 10 - 0.1 - 0.001);
    EXPECT_NEAR(Value(14, 300, {30000, 0.3, 0.4}), 30000 * std::pow(0.5, 0.4) * std::exp(-0.15),
                1e-8);
    EXPECT_NEAR(Value(15, 300, {30000, 0.3, 0.2, 0.4, 0.8}),
                30000 * std::pow(0.5, 0.3 + 0.1 + 0.1 + 0.1), 1e-8);
    EXPECT_DOUBLE_EQ(Value(17, 100, {30, 0.2, -2e-5, -1e-8, -1e6}), 30 + 20 - 0.2 - 0.01 - 100);
    const double u = 1500.0 / 300, v = 500.0 / 300;
    EXPECT_NEAR(Value(18, 300, {60, 300, 1500, 200, 500}),
                60 + 300 * std::pow(u / std::sinh(u), 2) + 200 * std::pow(v / std::cosh(v), 2),
                1e-10);
}

TEST(FitModels, TheHeatCapacityPolynomialIsTheCubicOne) {
    EXPECT_EQ(find_model(16)->model, find_model(11)->model);
    EXPECT_EQ(Value(16, 300, {20, 0.02, -1e-5, -1e-8, 0}),
              Value(16, 300, {20, 0.02, -1e-5, -1e-8, 7}));
}

TEST(FitModels, FrostKalkwarfSolvesItsEquation) {
    const Parameters par{23.55, -2980, 273.15, -5.62, 3.5};
    for (const double T : {300.0, 400.0, 500.0}) {
        const double p = Value(5, T, par, kDecadic);
        EXPECT_NEAR(std::log10(p), 23.55 - 2980 / T - 5.62 * std::log10(T) + 3.5 * p / (T * T),
                    1e-9);
    }
    const Parameters natural{54.2, -6860, 263.15, -5.62, 8};
    for (const double T : {300.0, 400.0, 500.0}) {
        const double p = Value(5, T, natural);
        EXPECT_NEAR(std::log(p), 54.2 - 6860 / (T - 10) - 5.62 * std::log(T) + 8 * p / (T * T),
                    1e-9);
    }
}

TEST(FitModels, ThodosComputesDFromB) {
    EXPECT_DOUBLE_EQ(estimation::thodos_d(-3000, kDecadic), 1.8 * -3000 / 600 + 2.67);
    EXPECT_DOUBLE_EQ(estimation::thodos_d(-3000 * kLn10, kNatural), 1.8 * -3000 / 600 + 2.67);
    // The fourth parameter has no influence, E is the fifth.
    const double D = 1.8 * -2980 / 600 + 2.67;
    for (const double unused : {0.0, 99.0})
        EXPECT_DOUBLE_EQ(Value(6, 400, {25, -2980, 273.15, unused, 3.5}, kDecadic),
                         Value(5, 400, {25, -2980, 273.15, D, 3.5}, kDecadic));
}

TEST(FitModels, WagnerEndsAtTheCriticalPoint) {
    const Parameters par{-7.77, 1.48, -2.77, -1.3};
    const double X = 0.5;
    EXPECT_NEAR(Value(8, 300, par),
                4000 * std::exp((-7.77 * X + 1.48 * std::pow(X, 1.5) - 2.77 * std::pow(X, 3) -
                                 1.3 * std::pow(X, 6)) *
                                2),
                1e-9);
    EXPECT_TRUE(Fails(8, 600, par));
    EXPECT_TRUE(Fails(8, 601, par));
    EXPECT_TRUE(Fails(8, 600 * (1 - 0.9e-6), par));
    EXPECT_FALSE(Fails(8, 600 * (1 - 1.1e-6), par));
    EXPECT_TRUE(Fails(8, 1e-7, par));
    EXPECT_TRUE(Fails(8, 300, {101, 0, 0, 0}));  // |sum| 50.5
    EXPECT_FALSE(Fails(8, 300, {99, 0, 0, 0}));  // 49.5
}

TEST(FitModels, FunctionsFailWhereTheyHaveNoValue) {
    EXPECT_TRUE(Fails(1, 0, {1, 1, 1, 1, 1, 0, 0}));
    EXPECT_TRUE(Fails(1, 0, {1, 1, 1, 1, 0, 1, 0}));
    EXPECT_TRUE(Fails(1, -2, {1, 1, 1, 1, 0, 0, 1}));
    EXPECT_FALSE(Fails(1, -2, {1, 1, 1, 1, 1, 1, 0}));
    EXPECT_EQ(Value(1, 0, {3, 1, 1, 1, 0, 0, 0}), 3);
    EXPECT_TRUE(Fails(3, 0, {20, 1500, -1}));
    EXPECT_TRUE(Fails(3, -5, {20, 1500, -1}));
    EXPECT_TRUE(Fails(3, 1, {3000, 1500, -1}));                 // overflow
    EXPECT_TRUE(Fails(4, 73.15, {10, 3000, 200}));              // T + C = 273.15
    EXPECT_TRUE(Fails(5, 300, {-1000, -5000, 273.15, -5, 5}));  // p below 1E-120
    EXPECT_TRUE(Fails(5, 300, {50, -5000, -26.85, -5, 5}));     // pole
    EXPECT_TRUE(Fails(5, 300, {5, -300, 273.15, 0, 1e6}));      // no root: p turns negative
    EXPECT_TRUE(Fails(7, -1, {20, -1500, -1, 1e-5, 2}));
    EXPECT_TRUE(Fails(9, 700, {75, 0.3, 0.24}));
    EXPECT_TRUE(Fails(9, 300, {75, 0, 0.24}));
    EXPECT_TRUE(Fails(10, 700, {500, -1, 0, 0, 500}));
    EXPECT_TRUE(Fails(14, 700, {30000, 0.3, 0.3}));
    EXPECT_TRUE(Fails(14, 300, {30000, 0.3, 0.3}, {1, 0, 0}));
    EXPECT_TRUE(Fails(15, 700, {30000, 0.3, 0, 0, 0}));
    EXPECT_TRUE(Fails(17, 0, {30, 0, 0, 0, 1}));
    EXPECT_TRUE(Fails(18, 300, {60, 0, 1500, 200, 500}));
    EXPECT_TRUE(Fails(18, 1, {60, 300, 1500, 200, 500}));  // sinh overflows
    EXPECT_TRUE(Fails(18, 0, {60, 300, 1500, 200, 500}));
}

TEST(FitModels, HyperbolicHelpersFollowTheirDefinitions) {
    for (const double x : {-3.0, -0.5, 0.0, 0.1, 2.0, 20.0}) {
        EXPECT_NEAR(estimation::sinh(x), std::sinh(x), 1e-12 * std::cosh(x));
        EXPECT_NEAR(estimation::cosh(x), std::cosh(x), 1e-12 * std::cosh(x));
    }
}

struct Catalogue {
    std::int16_t number;
    const char* name;
    std::int16_t parameter_count;
    Parameters start, start_lg;
    Parameters scale;
    const char* fixed;  // letters A to G
    const char* labels;
};

TEST(FitModels, CatalogueHoldsStartsScalesAndMarks) {
    // With Tcrit = 500 K.
    const double D0 = 1.8 * -5000 / 500 + 2.67, D0lg = 1.8 * -3000 / 500 + 2.67;
    const double B6 = -12 * 500 / 1.8;
    const Parameters one{1, 1, 1, 1, 1, 1, 1};
    const Parameters B{1, 1000, 1, 1, 1, 1, 1};
    const Parameters A{1000, 1, 1, 1, 1, 1, 1};
    const std::vector<Catalogue> rows{
        {0, "Polynomial", 6, {1, 1, 1, 0, 0, 0}, {1, 1, 1, 0, 0, 0}, one, "DEF", "ABCDEF"},
        {1,
         "Combi-expression",
         7,
         {1, 1, 1, 0, 0, 0, 0},
         {1, 1, 1, 0, 0, 0, 0},
         one,
         "FG",
         "ABCDEFG"},
        {3, "AUGUST, DUPRÉ-RANKINE", 3, {20, 1500, -1}, {20, 1500, -1}, B, "", "ABD"},
        {4, "ANTOINE", 3, {10, 3000, 200}, {5, 1500, 200}, B, "", "ABC"},
        {5,
         "FROST-KALKWARF",
         5,
         {50, -5000, 273.15, D0, 5},
         {20, -3000, 273.15, D0lg, 5},
         B,
         "C",
         "ABCDE"},
        {6,
         "FROST-KALKWARF/THODOS",
         5,
         {20, B6, 273.15, 5, 5},
         {20, B6, 273.15, 5, 5},
         B,
         "CD",
         "ABCDE"},
        {7,
         " RIEDEL/PLANK/MILLER equation",
         5,
         {20, -1500, -1, 1e-5, 2},
         {20, -1500, -1, 1e-5, 2},
         {1, 1000, 1, 1e-5, 1, 1, 1},
         "E",
         "ABDHI"},
        {8, "WAGNER", 4, {1, 1, 1, 1}, {1, 1, 1, 1}, one, "", "ABCD"},
        {9, "RACKETT  (DIPPR)", 3, {75, 0.3, 0.24}, {75, 0.3, 0.24}, one, "", "ABC"},
        {10,
         "LEUNA equation",
         5,
         {500, -1, 0.002, -2e-6, 500},
         {500, -1, 0.002, -2e-6, 500},
         {1, 1, 1e-3, 1e-6, 1, 1, 1},
         "",
         "ABCDE"},
        {11,
         "Polynomial",
         4,
         {600, 1, -0.001, -1e-6},
         {600, 1, -0.001, -1e-6},
         {10, 1, 1e-3, 1e-6, 1, 1, 1},
         "",
         "ABCD"},
        {14, "MAJER equation", 3, {30000, 0.3, 0.3}, {30000, 0.3, 0.3}, A, "", "Aab"},
        {15, "DIPPR equation", 5, {30000, 0.3, 0.3, 0, 0}, {30000, 0.3, 0.3, 0, 0}, A, "", "ABCDE"},
        {16,
         "Polynomial",
         5,
         {20, 0.02, -1e-5, -1e-8, 0},
         {20, 0.02, -1e-5, -1e-8, 0},
         {1, 1, 1e-5, 1e-8, 1e-10, 1, 1},
         "",
         "ABCDE"},
        {17,
         "SHOMATE equation",
         5,
         {30, 0.2, -2e-5, -1e-8, -1e6},
         {30, 0.2, -2e-5, -1e-8, -1e6},
         {1, 1, 1e-5, 1e-8, 1e6, 1, 1},
         "",
         "ABCDE"},
        {18,
         "DIPPR equation cp(IdGas)",
         5,
         {60, 300, 1500, 200, 500},
         {60, 300, 1500, 200, 500},
         {1000, 1000, 1000, 1000, 1000, 1, 1},
         "",
         "ABCDE"}};
    ASSERT_EQ(rows.size(), estimation::fit_models().size());
    models::SubstanceRecord substance;
    substance.Tcrit = 500;
    substance.pcrit = 3000;
    for (const Catalogue& expected : rows) {
        SCOPED_TRACE(expected.name);
        const estimation::FitModelRow* row = find_model(expected.number);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->name, expected.name);
        for (const bool lg : {false, true}) {
            FitState state = State(expected.number, {}, substance, lg);
            EXPECT_EQ(state.model, expected.number);
            EXPECT_EQ(state.parameter_count, expected.parameter_count);
            EXPECT_EQ(state.start, lg ? expected.start_lg : expected.start);
            EXPECT_EQ(state.scale, expected.scale);
            for (std::size_t i = 0; i < 7; ++i)
                EXPECT_EQ(state.fixed[i],
                          std::string(expected.fixed).find("ABCDEFG"[i]) != std::string::npos)
                    << i;
        }
        for (std::size_t i = 0; i < static_cast<std::size_t>(expected.parameter_count); ++i) {
            const char letter = expected.labels[i];
            const std::string label = letter == 'a'   ? "alpha = "
                                      : letter == 'b' ? "beta = "
                                                      : std::string(1, letter) + " = ";
            EXPECT_EQ(row->labels[i], label);
        }
    }
}

TEST(FitModels, ParameterDOfFrostFollowsOnlyARealCriticalTemperature) {
    EXPECT_EQ(start_values(*find_model(5), false, 10)[3], -5);
    EXPECT_EQ(start_values(*find_model(5), true, 0)[3], -5);
    EXPECT_DOUBLE_EQ(start_values(*find_model(5), false, 10.5)[3], 1.8 * -5000 / 10.5 + 2.67);
    EXPECT_DOUBLE_EQ(start_values(*find_model(6), true, 500)[1], -12.0 * 500 / 1.8);
}

TEST(FitModels, CriticalDataArePresetWhereAModelNeedsThem) {
    models::SubstanceRecord substance;
    substance.Tcrit = 500;
    substance.pcrit = 3000;
    for (const auto& row : estimation::fit_models()) {
        const bool needs_Tcr = row.number == 6 || (row.number >= 8 && row.number <= 10) ||
                               row.number == 14 || row.number == 15;
        const FitState state = State(row.number, {}, substance);
        EXPECT_EQ(state.Tcr, needs_Tcr ? 500 : 0) << row.number;
        EXPECT_EQ(state.pcr, row.number == 8 ? 3000 : 0) << row.number;
    }
}

TEST(FitModels, OnlyTheModelsThreeToSevenHaveADecadicForm) {
    for (const auto& row : estimation::fit_models()) {
        const bool decadic = row.number >= 3 && row.number <= 7;
        EXPECT_EQ(!row.caption_lg.empty(), decadic) << row.number;
        FitState state = State(row.number, {}, {}, true);
        EXPECT_EQ(context_of(state).L, decadic ? kLn10 : 1.0);
        state.lg = false;
        EXPECT_EQ(context_of(state).L, 1.0);
    }
    EXPECT_EQ(estimation::equation_caption(*find_model(4), false),
              "ln(p/kPa) = A - B / (C + t/°C)");
    EXPECT_EQ(estimation::equation_caption(*find_model(4), true), "lg(p/kPa) = A - B / (C + t/°C)");
    EXPECT_EQ(estimation::equation_caption(*find_model(8), true),
              "ln(p/pcr) = (A X + B X^1.5 + C X^3 + D X^6) / (T/Tcr)  (mit X = 1 - T/Tcr)");
    EXPECT_EQ(find_model(6)->remark, " parameter D, THODOS correlated: D = 1.80 /Tcr * B + 2.67 ");
}

TEST(FitModels, TabsCarryTheirCaptionsAndUnits) {
    EXPECT_EQ(tab_caption(FitTab::General), "General");
    EXPECT_EQ(tab_caption(FitTab::VapourPressure), "Vapour pressure");
    EXPECT_EQ(tab_caption(FitTab::LDensity), "L-Density");
    EXPECT_EQ(tab_caption(FitTab::Vaporisation), "delta(LV)h");
    EXPECT_EQ(tab_caption(FitTab::HeatCapacity), "Heat capac.");
    EXPECT_EQ(unit_text(find_model(9)->tab), "liquid density     [rho(L)] = kg/m^3");
    EXPECT_EQ(unit_text(find_model(14)->tab),
              "mol. enthalpy of vapor.     [delta(LV)h] = kJ/kmol, Tr = T/T(cr)");
    EXPECT_EQ(unit_text(find_model(18)->tab),
              "mol. heat capacity       [cp] = kJ/(kmol K),  [T] = K ");
    EXPECT_EQ(unit_text(find_model(3)->tab), "");
}

TEST(FitModels, AnUnknownNumberChangesNothing) {
    FitState state = State(9, {});
    EXPECT_FALSE(choose_model(state, 12));
    EXPECT_EQ(state.model, 9);
    EXPECT_EQ(state.parameter_count, 3);
}

}  // namespace
