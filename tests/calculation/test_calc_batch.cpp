#include <cmath>

#include "calc_test.h"
#include "common/text.h"
#include "common/numbers.h"
#include "expected_text.h"
#include "models/cubic_eos.h"
#include "models/saturation.h"
#include "models/virial.h"

using namespace quor;

namespace {

using expected::fix;
using expected::g7;
using testing::Contains;

/// What the central routine says and does beside its numbers.
class CalcBatch : public CalcTest {
  protected:
    CalcBatch() {
        use_fluid();
        use_models({});
    }

    double Tc() const { return substance.Tcrit; }
    double pc() const { return substance.pcrit; }

    void expect_error(const std::string& red) {
        EXPECT_EQ(resultText.par1.text, red);
        EXPECT_TRUE(resultText.par1.red);
        EXPECT_TRUE(resultText.lines.empty());
        EXPECT_EQ(resultText.phases, "   ");
        EXPECT_EQ(lastRecord.phases, "   ");
        EXPECT_FALSE(resultText.diagnosis.enabled);
    }
};

// ---- Input ------------------------------------------------------------------------------------

TEST_F(CalcBatch, FirstPassWithoutInputStopsWithoutAMessageBox) {
    use_input({});
    for (const int mode : Codes{1, 2, 3, 4, 6, 8, 11}) {
        EXPECT_TRUE(calculate(mode).Failed) << mode;
        expect_error("no T in this data set");
    }
    for (const int mode : Codes{5, 7, 13}) {
        EXPECT_TRUE(calculate(mode).Failed) << mode;
        expect_error("No p in this data set");
    }
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(CalcBatch, SaysWhichOfTwoValuesIsMissing) {
    use_input({.T = 300});
    calculate(3);
    expect_error("No p in this data set");
    calculate(1);
    expect_error("no rho in this data set");
    calculate(2);
    expect_error("no density in this data set");
    use_input({.p = 300});
    calculate(13);
    expect_error("no rho in this data set");
}

TEST_F(CalcBatch, RemarksOnTemperaturesBelowTheTriplePointAndGoesOn) {
    substance.Ttriple = 250.0F;
    use_input({.T = 240, .p = 1});
    calculate(3);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "T < T(TP) (Triple Point)");
    EXPECT_EQ(user.lastTitle(), "Remark");
    EXPECT_EQ(user.messages.back().icon, dialogs::Icon::Exclamation);
    EXPECT_NE(resultText.phases, "   ");
    calculate(3, report::Tell::necessary);  // not interactive
    calculate(16);                          // the ideal gas has no triple point
    use_models({.eos = 16});
    calculate(3);
    EXPECT_EQ(user.messages.size(), 1U);
}

TEST_F(CalcBatch, EverythingOfThePreviousCallIsForgotten) {
    use_input({.T = 300, .p = 1000});
    calculate(8);
    EXPECT_NE(numbers[20], 0.0);
    EXPECT_GT(last.answer.last.root_count, 0);
    use_input({});
    calculate(8);
    for (const double value : numbers) EXPECT_EQ(value, 0.0);
    EXPECT_EQ(last.answer.last.root_count, 0);
    EXPECT_EQ(last.answer.last.v[0], 0.0);
    EXPECT_TRUE(resultText.co1.text.empty());
}

TEST_F(CalcBatch, AMeasuredSetWithoutValuesHasNoT) {
    use_input({}, true);
    EXPECT_TRUE(calculate(3).Failed);
    EXPECT_EQ(resultText.par1.text, "no T in this data set");
}

// ---- Texts of single cases --------------------------------------------------------------------

TEST_F(CalcBatch, CloseToTheCriticalPointIsNamed) {
    use_input({.T = Tc() + 0.04, .p = pc() + 0.01});
    calculate(3);
    const auto all = lines();
    ASSERT_GE(all.size(), 5U);
    EXPECT_EQ(all[0], "Critical point!");
    EXPECT_EQ(all[1], " T(cr) = 369.89 K");
    EXPECT_EQ(all[2], " p(cr) = 4251.20 kPa");
    EXPECT_EQ(all[3], "rho(cr) = " + fix(eos_parameters.rhocrit_calculated, 1) + " kg/m^3");
    EXPECT_EQ(all[4], "  v(cr) = " + g7(eos_parameters.vcrit_calculated) + " m^3/kmol");
    use_input({.T = Tc() + 0.06, .p = pc()});
    calculate(3);
    EXPECT_THAT(lines(), testing::Not(Contains("Critical point!")));
}

TEST_F(CalcBatch, HalfwayBetweenTheVolumesHalfIsVapour) {
    const auto sat = models::saturation_pressure(fluid(), 310.0);
    const double v = 0.5 * (sat->v[0] + sat->v[2]);
    use_input({.T = 310, .rhoV = static_cast<float>(static_cast<double>(substance.M) / v)});
    calculate(1);
    EXPECT_EQ(resultText.phases, "V+L");
    ASSERT_FALSE(lines().empty());
    const std::string label = std::string(22, ' ') + "Vapour fraction y(V) = ";
    ASSERT_EQ(lines()[0].substr(0, label.size()), label);
    EXPECT_NEAR(numbers::val(lines()[0].substr(label.size())), 0.5, 1e-7);
}

TEST_F(CalcBatch, VirialVolumeBelowBHasNoPressure) {
    use_models({.eos = 10});
    eos_parameters.b0 = 0.5;
    eos_parameters.nb = 0.0;
    use_input({.T = 300, .rhoV = 100.0F});  // v = 0.44 m^3/kmol
    const Outcome call = calculate(1);
    EXPECT_TRUE(call.Failed);
    EXPECT_EQ(call.Pressure, 0.0);
    EXPECT_EQ(resultText.co2.text, " p = , no p-solution (V < B)");
    EXPECT_TRUE(resultText.co2.red);
}

TEST_F(CalcBatch, VolumeBelowTheCovolumeIsReported) {
    use_input({.T = 300, .rhoV = 900.0F});
    calculate(1);
    EXPECT_EQ(last.answer.reason, calculation::Reason::belowCovolume);
    const std::string report = "Message from Sub CalcBatch" + std::string(25, ' ');
    EXPECT_THAT(lines(), Contains(report + " (v <= b) ERROR1"));
    EXPECT_TRUE(resultText.lines[0].red);
    chosen.method.global = false;
    calculate(1);
    EXPECT_THAT(lines(), Contains(report + " (v <= b)"));
}

TEST_F(CalcBatch, SmallPressuresAreShownAs32BitValues) {
    use_input({.T = 300, .p = 0.005});
    calculate(3);
    EXPECT_EQ(resultText.par2.text, "p = 0.005 kPa");
    use_input({.T = 300, .rhoV = 1.0e-5F});
    const Outcome call = calculate(1);
    ASSERT_LT(call.Pressure, 0.01);
    EXPECT_EQ(resultText.co2.text, " System pressure p/kPa = " + g7(call.Pressure));
}

TEST_F(CalcBatch, BeyondTheCriticalValueThereIsNoEquilibrium) {
    use_input({.T = Tc() + 1, .p = pc() + 1});
    calculate(4);
    EXPECT_EQ(resultText.par1.text, "T = 370.890 K > T(cr) !!!");
    EXPECT_TRUE(resultText.par1.red);
    EXPECT_EQ(resultText.co1.text, "=> supercritical phase (T > T(cr))");
    calculate(5);
    EXPECT_EQ(resultText.par1.text, "p = 4252.200 kPa > p(cr) !!!");
    calculate(6);
    EXPECT_EQ(resultText.par1.text, "T = 370.890 K >= T(cr) !!!");
    calculate(7);
    EXPECT_EQ(resultText.par1.text, "p = 4252.200 kPa >= p(cr) !!!");
    use_input({.T = Tc(), .p = pc()});
    EXPECT_TRUE(calculate(6).Failed);
    EXPECT_TRUE(calculate(7).Failed);
}

TEST_F(CalcBatch, EquilibriumAtTheCriticalPointHasOneVolume) {
    use_input({.T = Tc(), .p = pc()});
    for (const int mode : Codes{4, 5}) {
        const Outcome call = calculate(mode);
        EXPECT_FALSE(call.Failed);
        EXPECT_DOUBLE_EQ(call.Pressure, pc());
        EXPECT_DOUBLE_EQ(numbers[9], eos_parameters.vcrit_calculated);
        EXPECT_DOUBLE_EQ(numbers[19], eos_parameters.vcrit_calculated);
        EXPECT_EQ(resultText.co1.text, "=> critical point (T = T(cr), p = p(cr))");
        EXPECT_TRUE(resultText.identical);
    }
}

TEST_F(CalcBatch, NamesTheRegionAndItsColumns) {
    struct Case {
        double T, p;
        const char* text;
        std::int16_t region;
        const char *L, *V;
        bool same;
    };
    const Case cases[] = {
        {300, 100, "3 V-solutions of the EOS", 0, "L-Phase", "V-Phase", false},
        {Tc() + 10, pc() + 10, "=> supercritical phase L = V (T > T(cr), p > p(cr))", 2, "L-Phase",
         "V-Phase", true},
        {300, pc() + 10, "=> supercritical L-phase (T < T(cr), p > p(cr))", 1, "L-Phase", "L-Phase",
         false},
        {Tc() + 10, pc() - 10, "=> supercritical V-phase (T > T(cr), p < p(cr))", 3, "V-Phase",
         "V-Phase", false},
        {Tc(), pc(), "=> critical point (T = T(cr), p = p(cr))", 4, "L-Phase", "V-Phase", true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        use_input({.T = c.T, .p = c.p});
        calculate(3);
        EXPECT_EQ(resultText.co1.text, c.text);
        ASSERT_TRUE(last.answer.region);
        EXPECT_EQ(static_cast<std::int16_t>(*last.answer.region), c.region);
        EXPECT_EQ(resultText.caption_L, c.L);
        EXPECT_EQ(resultText.caption_V, c.V);
        EXPECT_EQ(resultText.identical, c.same);
        EXPECT_EQ(resultText.co1.red, c.region != 0);
        EXPECT_EQ(resultText.co1.bold, c.region != 0);
    }
}

TEST_F(CalcBatch, CaptionsStandAboveTheirColumns) {
    use_input({.T = 300, .p = 997.43});
    calculate(4);
    const std::string header = report::phase_header(resultText);
    EXPECT_EQ(header, std::string(47, ' ') + "L-Phase" + std::string(13, ' ') + "V-Phase");
    EXPECT_EQ(header.size(), lines()[1].size());
    use_input({.T = Tc() + 10, .p = pc() + 10});
    calculate(3);
    EXPECT_EQ(report::phase_header(resultText),
              std::string(44, ' ') + "L-Phase identical with V-Phase");
}

TEST_F(CalcBatch, CopiesAsTextAndAsTable) {
    use_input({.T = 300, .p = 100});
    calculate(3);
    const std::string text = report::result_as_text(resultText);
    EXPECT_TRUE(
        text.starts_with("Substance: Propane  C3H8\n"
                         "Model: CEOS Peng / Robinson; ideal-gas cp: sinh/cosh equation\n"
                         "Reference state: h = 0, s = 0, ideal gas at 298.15 K, 101.325 kPa\n"
                         "Surroundings for exergies: "))
        << text;
    EXPECT_NE(text.find("\nUnits: m^3/kmol, kJ/kmol\nT = 300.000 K\np = 100.000 kPa\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find(report::phase_header(resultText) + "\ndensity "), std::string::npos);
    const std::string table = report::result_as_table(resultText);
    EXPECT_TRUE(table.starts_with("Substance\tPropane  C3H8\nModel\t")) << table;
    EXPECT_NE(table.find("\nT\tK\t300.000\np\tkPa\t100.000\n"), std::string::npos) << table;
    EXPECT_NE(table.find("\n\t\tL-Phase\tV-Phase\ndensity rho\tkg/m^3\t\t"), std::string::npos)
        << table;
}

// Tanks, mean functions, delta(LV)h, functions of the database, parameters of the equation and the
// process came as text padded with blanks, in one cell.
TEST_F(CalcBatch, EveryValueOfATableHasACellOfItsOwn) {
    const auto copied = [&](int code, const calculation::BatchDataSet& set) {
        use_input(set);
        calculate(code);
        return report::result_as_table(resultText);
    };
    const auto has = [](const std::string& table, const std::string& cells) {
        return table.find("\n" + cells) != std::string::npos;
    };
    const std::string state = copied(3, {.T = 300, .p = 100});
    EXPECT_TRUE(has(state, "Volume v\tm^3/kmol\t\t")) << state;
    for (const char* name : {"A", "B", "C", "D"})
        EXPECT_TRUE(has(state, std::string(name) + "\t\t")) << state;

    const std::string mixture = copied(1, {.T = 300, .rhoV = 100});
    EXPECT_TRUE(has(mixture, "Density rho\tkg/m^3\t100")) << mixture;
    EXPECT_TRUE(has(mixture, "Enthalpy h\tkJ/kmol\t")) << mixture;
    EXPECT_TRUE(has(mixture, "Vapour fraction y(V)\t\t0.")) << mixture;
    EXPECT_TRUE(has(mixture, "Vapour pressure p\tkPa\t997.")) << mixture;

    const std::string vaporisation = copied(6, {.T = 300});
    EXPECT_TRUE(has(vaporisation, "delta(LV)h\tkJ/kmol\t")) << vaporisation;
    EXPECT_TRUE(has(vaporisation, "(enthalpy of vapor. ") == false) << vaporisation;
    EXPECT_TRUE(has(vaporisation, "delta(LV)s\tkJ/(kmol K)\t")) << vaporisation;

    tank = {2.0F, 200.0F, 300.0F};
    const std::string filled = copied(9, {});
    EXPECT_TRUE(has(filled, "Volume V\tm^3\t")) << filled;
    EXPECT_TRUE(has(filled, "volume fraction V-phase phi(V),%\t%\t")) << filled;

    for (const std::string& table : {state, mixture, vaporisation, filled})
        for (const std::string& line : text::lines(table))
            EXPECT_FALSE(line.find('\t') != std::string::npos && !line.starts_with("Substance") &&
                         line.find("  ") != std::string::npos)
                << "blanks in a cell: " << line;
}

TEST_F(CalcBatch, AVapourOnlyModelHasNoRegion) {
    use_models({.eos = 16});
    use_input({.T = Tc() + 10, .p = pc() + 10});
    calculate(3);
    EXPECT_EQ(resultText.co1.text, "EOS for the V-phase only!");
    EXPECT_FALSE(resultText.identical);
}

TEST_F(CalcBatch, WithoutAVapourPressureEquationTheDataSetStandsIn) {
    chosen.method.global = false;
    use_models({.vp = "000"});
    use_benson_reference();
    use_input({.T = 300});
    EXPECT_TRUE(calculate(4).Failed);
    EXPECT_EQ(resultText.co1.text, "No vapour pressur equation available");
    EXPECT_EQ(resultText.co2.text, "  No p(LV) available from data set");
    EXPECT_TRUE(resultText.co2.red);
    use_input({.p = 900});
    EXPECT_TRUE(calculate(5).Failed);
    EXPECT_EQ(resultText.co2.text, " No T(LV) available/calculable");

    use_input({.T = 300, .p = 990.5}, true);
    EXPECT_FALSE(calculate(4).Failed);
    EXPECT_EQ(resultText.co2.text, " p(LV)(from data set) = 990.5 kPa");
    EXPECT_DOUBLE_EQ(numbers[1], 990.5);
    EXPECT_FALSE(calculate(5).Failed);
    EXPECT_EQ(resultText.co2.text, " T(LV) (from data set) = 300.0 K");
    EXPECT_DOUBLE_EQ(numbers[0], 300.0);
}

TEST_F(CalcBatch, PartialEquilibriumAboveThePressureOfTheEosHasNoVapourVolume) {
    chosen.method.global = false;
    use_models({.vp = "000"});
    use_benson_reference();
    // Above the loop of the isotherm there is one root, and it is that of the liquid.
    use_input({.T = 300, .p = 3000}, true);
    calculate(4);
    EXPECT_THAT(lines(), Contains("density          rho/ (kg/m^3)  ="));
    EXPECT_EQ(numbers[9], 0.0);
    EXPECT_EQ(numbers[19], 0.0);
}

TEST_F(CalcBatch, WithoutASecondReferencePointPartialDensitiesStayEmpty) {
    chosen.method.global = false;
    use_input({.T = 300});
    const Outcome call = calculate(4);
    EXPECT_FALSE(call.Failed);
    EXPECT_THAT(lines(), Contains("density          rho/ (kg/m^3)  ="));
    EXPECT_THAT(lines(), Contains("Volume           v/ (m^3/kmol)  ="));
    EXPECT_EQ(lastRecord.rhoL, 0.0F);
}

TEST_F(CalcBatch, AnAssumedEquilibriumGetsItsLiquidFromBenson) {
    use_models({.eos = 16});
    use_benson_reference();
    chosen.method.assumed_vle = true;
    use_input({.T = 300, .p = 990});
    const Outcome call = calculate(3);
    EXPECT_TRUE(call.has_L && call.has_V);
    EXPECT_EQ(resultText.phases, "V+L");
    EXPECT_THAT(lines(), Contains("            by BENSON's method:"));
    const models::BensonPoint& ref = chosen.method.reference;
    const double Tref = static_cast<double>(ref.T);
    const double rhoV = static_cast<double>(lastRecord.rhoV);
    const double sum = static_cast<double>(ref.rhoL) + static_cast<double>(ref.rhoV);
    EXPECT_NEAR(static_cast<double>(lastRecord.rhoL),
                sum * (300 - Tc()) / (Tref - Tc()) +
                    2 * substance.rhocrit * (Tref - 300) / (Tref - Tc()) - rhoV,
                1e-3);
}

TEST_F(CalcBatch, FailedVapourPressureEquationIsReported) {
    use_models({.vp = "AHP", .priority = false});  // propane has no such set
    use_input({.T = 300, .p = 900});
    const std::string report = "Message from Sub CalcBatch" + std::string(25, ' ');
    EXPECT_TRUE(calculate(4).Failed);
    EXPECT_THAT(lines(), Contains(report + " (E-1)"));
    EXPECT_EQ(resultText.phases, "   ");
}

TEST_F(CalcBatch, EosThatFindsNoEquilibriumIsReported) {
    selection.vapour_only = false;
    selection.eos = models::Eos::none;
    use_input({.T = 300, .p = 900});
    const std::string report = "Message from Sub CalcBatch" + std::string(25, ' ');
    EXPECT_TRUE(calculate(4).Failed);
    EXPECT_THAT(lines(), Contains(report + " (E-1)"));
    EXPECT_TRUE(calculate(5).Failed);
    EXPECT_THAT(lines(), Contains(report + " T(LV) =  (E-1)"));
}

TEST_F(CalcBatch, NoEnthalpyOfVaporisationIsTold) {
    use_models({.vp = "000", .hlv = 2});
    use_input({.T = 300});
    EXPECT_TRUE(calculate(6).Failed);
    EXPECT_EQ(lines(), std::vector<std::string>{"no Result"});
    EXPECT_TRUE(resultText.lines[0].red);
    EXPECT_EQ(resultText.co1.text, "No p available");
    EXPECT_TRUE(resultText.co1.red);
    EXPECT_EQ(numbers[29], 0.0);
}

TEST_F(CalcBatch, MissingHeatCapacityEndsTheFunctionsButNotTheState) {
    use_models({.cp = 0});
    use_input({.T = 300, .p = 500, .rhoV = 100});
    EXPECT_TRUE(calculate(8).Failed);
    EXPECT_THAT(lines(), Contains("Message from Sub CalcBatch" + std::string(25, ' ') + " (E-1)"));
    // The mean volume of a two-phase state needs no heat capacity.
    EXPECT_FALSE(calculate(1).Failed);
    EXPECT_THAT(lines(), Contains("Density rho       = 100  kg/m^3"));
}

TEST_F(CalcBatch, ModeWithoutAFunctionShowsOnlyT) {
    use_input({.T = 300});
    EXPECT_FALSE(calculate(23).Failed);
    EXPECT_EQ(resultText.par1.text, "T = 300.000 K");
    EXPECT_TRUE(resultText.co1.text.empty() && resultText.co2.text.empty());
    EXPECT_TRUE(lines().empty());
    EXPECT_DOUBLE_EQ(numbers[0], 300.0);
    EXPECT_FALSE(resultText.diagnosis.enabled);
}

TEST_F(CalcBatch, PolytropicProcessShowsItsStartAndHidesThePanels) {
    process.T1 = 310;
    process.p1 = 450;
    use_input({});
    calculate(12);
    EXPECT_EQ(resultText.par1.text, "T = 310.000 K");
    EXPECT_EQ(resultText.par2.text, "p = 450.000 kPa");
    EXPECT_TRUE(resultText.panels_hidden);
    EXPECT_DOUBLE_EQ(last.answer.T, 310);
    use_input({.T = 300, .p = 100});
    calculate(3);
    EXPECT_FALSE(resultText.panels_hidden);
}

// ---- Flags ------------------------------------------------------------------------------------

TEST_F(CalcBatch, AnAnswerNeedsNoWords) {
    const calculation::Answer a = calculation::calculate(fluid(), reference,
                                                         {.task = calculation::Task::state,
                                                          .given = {.T = 300, .p = 100},
                                                          .method = {},
                                                          .pages = {},
                                                          .tank = {},
                                                          .process = {}});
    EXPECT_TRUE(a.ok());
    ASSERT_TRUE(a.phases.vapour);
    EXPECT_FALSE(a.phases.liquid);
    EXPECT_NEAR(*a.phases.vapour->rho * *a.phases.vapour->v, static_cast<double>(substance.M),
                1e-9);
    EXPECT_EQ(report::record_of(a).phases, " V ");
}

TEST_F(CalcBatch, TellsPhasesRootsAndFraction) {
    use_input({.T = 300, .p = 100});
    Outcome call = calculate(3);
    EXPECT_TRUE(!call.has_L && call.has_V);
    EXPECT_EQ(call.root_count, 3);
    EXPECT_EQ(call.FractionV, 100.0F);
    EXPECT_DOUBLE_EQ(call.Pressure, 100.0);
    use_input({.T = 300, .p = 2000});
    call = calculate(3);
    EXPECT_TRUE(call.has_L && !call.has_V);
    EXPECT_EQ(call.FractionV, 0.0F);
}

TEST_F(CalcBatch, DiagnosisNeedsAStateOfTheCubicEos) {
    struct Case {
        std::int16_t mode;
        bool enabled;
    };
    use_input({.T = 300, .p = 900, .rhoV = 10.0F, .rhoL = 510.0F});
    const auto check = [&](std::initializer_list<Case> cases) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.mode);
            ASSERT_FALSE(calculate(c.mode).Failed);
            EXPECT_EQ(resultText.diagnosis.enabled, c.enabled);
            EXPECT_EQ(resultText.diagnosis.colour, c.enabled ? 0xC0FFC0U : 0U);
        }
    };
    check({{1, true},
           {2, true},
           {3, true},
           {4, true},
           {5, true},
           {6, true},
           {7, true},
           {8, true},
           {11, false},
           {13, true},
           {15, false},
           {16, false},
           {20, false}});
    use_models({.priority = false, .hlv = 2});
    check({{3, true}, {4, false}, {5, false}, {6, false}, {7, false}});
    chosen.method.global = false;
    check({{1, false}, {3, false}, {8, false}});
    chosen.method.global = true;
    use_models({.eos = 16});
    check({{1, false}, {3, false}, {8, false}});
}

TEST_F(CalcBatch, ACodeThatDoesNotExistDoesNothing) {
    use_input({.T = 300, .p = 900});
    for (const int mode : Codes{-1, 0, 25, 32000}) {
        calculate(mode);
        EXPECT_TRUE(resultText.par1.text.empty());
        EXPECT_TRUE(lines().empty());
    }
}

}  // namespace
