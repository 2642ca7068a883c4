#include <algorithm>
#include <numeric>

#include "diagrams/chart_sweep.h"
#include "models/reference_state.h"
#include "support/fluids.h"

namespace {

using namespace diagrams;
using models::Eos;

models::ReferenceState settled() {
    models::ReferenceState reference;
    models::settle_reference(reference);
    return reference;
}

models::UnitChoice choice_of_set(std::string_view key) {
    for (const models::UnitSet& set : models::unit_sets())
        if (set.key == key) return set.choice;
    ADD_FAILURE() << key;
    return {};
}

StateChart chart_of(const models::Fluid& fluid, const StateChartRequest& request,
                    const models::Units& units = {}) {
    const auto made = state_chart(fluid, settled(), units, request);
    EXPECT_TRUE(made) << (made ? "" : made.reason());
    return made ? *made : StateChart{};
}

std::string refusal(const models::Fluid& fluid, const StateChartRequest& request) {
    const auto made = state_chart(fluid, settled(), {}, request);
    return made ? std::string("no refusal") : made.reason();
}

const ChartFamily& family_of(const StateChart& chart, ChartQuantity quantity) {
    const auto found = std::ranges::find(chart.families, quantity, &ChartFamily::quantity);
    EXPECT_NE(found, chart.families.end());
    return *found;
}

/// 1, 2 or 5 by a power of ten.
bool is_round(double value) {
    if (!(value > 0)) return false;
    const double mantissa = value / std::pow(10, std::floor(std::log10(value) + 1e-9));
    for (const double digit : {1, 2, 5})
        if (std::fabs(mantissa - digit) < 1e-9) return true;
    return false;
}

bool tells(const StateChart& chart, const std::string& words) {
    return std::ranges::any_of(chart.skipped, [&](const std::string& text) {
        return text.find(words) != std::string::npos;
    });
}

models::Fluid without_cp() {
    return fluids::changed(fluids::fluid("Propane", Eos::pengRobinson),
                           [](models::SubstanceRecord&, models::ModelSelection& m) {
                               m.cp_form = models::CpForm::none;
                           });
}

// A part of the sweep that tools/chart_sweep runs in full: the fluids of textbooks by four
// equations, others by one, each in other units.
TEST(StateChart, OfADozenSubstancesAgreesWithTheFunctionsOfStatesAtEveryVertex) {
    chart_sweep::Counts counts;
    const auto sets = models::unit_sets();
    std::size_t turn = 0;
    constexpr Eos kAll[] = {Eos::vanDerWaals, Eos::redlichKwong, Eos::soave, Eos::pengRobinson};
    for (const char* name : {"Propane", "Water", "Carbon dioxide"})
        for (const Eos eos : kAll)
            chart_sweep::sweep(fluids::fluid(name, eos), name, sets[turn++ % sets.size()].choice,
                               counts);
    const std::vector<std::string> names = fluids::AllNames();
    for (std::size_t i = 4; i < names.size(); i += 20) {
        chart_sweep::sweep(fluids::fluid(names[i], kAll[turn % 4]), names[i],
                           sets[turn % sets.size()].choice, counts);
        ++turn;
    }
    EXPECT_EQ(counts.failed, 0) << chart_sweep::told(counts);
    EXPECT_GE(counts.fluids, 21);
    EXPECT_EQ(
        counts.charts + std::accumulate(counts.refused.begin(), counts.refused.end(), 0L,
                                        [](long sum, const auto& r) { return sum + r.second; }),
        10 * counts.fluids);
    EXPECT_GT(counts.crossings, 1000);
    EXPECT_GT(counts.probes, 10000);
}

// The attraction of this equation has another form above the critical temperature: h and s jump.
TEST(StateChart, KeepsToItsLinesWhereTheEquationHasAJumpAtTheCriticalTemperature) {
    chart_sweep::Counts counts;
    chart_sweep::sweep(fluids::fluid("Propane", Eos::jiTorvik1), "Propane", {}, counts);
    EXPECT_EQ(counts.failed, 0) << chart_sweep::told(counts);
    EXPECT_EQ(counts.charts, 10);
}

TEST(StateChart, HasValuesOf125StepsInTheShownUnit) {
    const models::Fluid water = fluids::fluid("Water", Eos::pengRobinson);
    for (const char* set : {"molar", "metric", "us"}) {
        const models::Units units = models::make_units(choice_of_set(set), water);
        for (const StateChartKind& row : state_chart_kinds()) {
            const StateChart chart = chart_of(water, {.kind = row.kind}, units);
            for (const ChartFamily& family : chart.families) {
                const std::string where =
                    std::string(row.key) + " " + std::string(name_of(family.quantity)) + " " + set;
                ASSERT_GE(family.lines.size(), 4U) << where;
                EXPECT_LE(family.lines.size(), 16U) << where;
                std::vector<double> values;
                for (const ChartLine& line : family.lines) values.push_back(line.value);
                EXPECT_TRUE(std::ranges::is_sorted(values)) << where;
                const bool geometric =
                    family.quantity == ChartQuantity::p || family.quantity == ChartQuantity::v;
                if (geometric && std::ranges::all_of(values, is_round)) continue;
                const double step = values[1] - values[0];
                EXPECT_TRUE(is_round(step)) << where << " " << step;
                for (const double value : values)
                    EXPECT_NEAR(value / step, std::round(value / step), 1e-9) << where;
            }
        }
    }
}

TEST(StateChart, ShowsTheCriticalPointAndPressuresBeyondIt) {
    const models::Fluid fluid = fluids::fluid("Carbon dioxide", Eos::soave);
    const models::SubstanceRecord& s = fluid.substance();
    for (const StateChartKind& row : state_chart_kinds()) {
        const StateChart chart = chart_of(fluid, {.kind = row.kind});
        ASSERT_TRUE(chart.critical) << row.key;
        EXPECT_EQ(chart.critical->T, s.Tcrit);
        EXPECT_EQ(chart.critical->p, s.pcrit);
        const bool on_x = row.x.quantity == ChartQuantity::p;
        if (on_x || row.y.quantity == ChartQuantity::p) {
            const double most = (on_x ? chart.window.x_max : chart.window.y_max) / s.pcrit;
            EXPECT_GE(most, 2) << row.key;
            EXPECT_LE(most, 3.5) << row.key;
        }
        // Carbon dioxide has its triple point at 216.6 K, 0.71 of T(cr).
        ASSERT_TRUE(chart.triple_liquid) << row.key;
        EXPECT_NEAR(chart.triple_liquid->T, 216.6, 0.2);
        EXPECT_EQ(chart.fractions.size(), row.kind == ChartKind::pt ? 0U : 9U) << row.key;
    }
}

TEST(StateChart, EndsLinesAtTheEdgeOrAtTheTriplePoint) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    const ChartWindow window{-20000, 5000, 100, 8000};
    const StateChart chart = chart_of(fluid, {.kind = ChartKind::logph, .window = window});
    EXPECT_EQ(chart.window, window);
    int ends = 0;
    for (const ChartFamily& family : chart.families) {
        EXPECT_GE(family.lines.size(), 4U);
        for (const ChartLine& line : family.lines)
            for (const auto& part : line.parts)
                for (const ChartVertex& at : {part.front(), part.back()}) {
                    const bool at_edge = at.x == window.x_min || at.x == window.x_max ||
                                         at.y == window.y_min || at.y == window.y_max;
                    const double px =
                        std::min({std::fabs(at.x - window.x_min), std::fabs(at.x - window.x_max)}) /
                        25.0;
                    const double py = std::min(std::fabs(std::log(at.y / window.y_min)),
                                               std::fabs(std::log(at.y / window.y_max))) *
                                      160;
                    EXPECT_TRUE(at_edge || std::min(px, py) < 1e-6)
                        << name_of(family.quantity) << " = " << line.value << " at " << at.x << ", "
                        << at.y;
                    ++ends;
                }
    }
    EXPECT_GT(ends, 40);
}

TEST(StateChart, DrawsTheGivenValuesAndTellsWhichAreNotInTheWindow) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    const StateChart chart = chart_of(
        fluid, {.kind = ChartKind::logph,
                .families = {{ChartQuantity::T, {300, 250, 1e9}}, {ChartQuantity::v, {}}}});
    ASSERT_EQ(chart.families.size(), 2U);
    const ChartFamily& T = chart.families.front();
    ASSERT_EQ(T.lines.size(), 2U);
    EXPECT_EQ(T.lines[0].value, 250);
    EXPECT_EQ(T.lines[1].value, 300);
    EXPECT_EQ(T.lines[1].on_dome.size(), 2U);
    EXPECT_TRUE(tells(chart, "T = 1000000000 K: not in the window."))
        << ::testing::PrintToString(chart.skipped);
}

TEST(StateChart, RefusesInWordsWhatTheFluidLacks) {
    const models::Fluid fluid = without_cp();
    for (const StateChartKind& row : state_chart_kinds()) {
        const auto made = state_chart(fluid, settled(), {}, {.kind = row.kind});
        const bool possible = row.kind == ChartKind::pv || row.kind == ChartKind::logpv ||
                              row.kind == ChartKind::tv || row.kind == ChartKind::pt ||
                              row.kind == ChartKind::zp;
        EXPECT_EQ(static_cast<bool>(made), possible) << row.key;
        if (!made) {
            EXPECT_EQ(
                made.reason(),
                "The chart needs the heat capacity of the ideal gas, which the substance has not.");
            continue;
        }
        const bool with_caloric = row.kind != ChartKind::logpv && row.kind != ChartKind::zp;
        EXPECT_EQ(tells(*made, "constant h: the substance has no heat capacity of the ideal gas."),
                  with_caloric)
            << row.key;
        for (const ChartFamily& family : made->families) EXPECT_GE(family.lines.size(), 3U);
    }
    EXPECT_EQ(refusal(models::Fluid(), {.kind = ChartKind::pv}),
              "There is no equation of state with usable constants.");
}

TEST(StateChart, RefusesAWindowThatIsNone) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    const auto refused = [&](const ChartWindow& window) {
        return refusal(fluid, {.kind = ChartKind::logph, .window = window})
            .starts_with("The window is none");
    };
    EXPECT_TRUE(refused({1000, 1000, 10, 100}));
    EXPECT_TRUE(refused({1000, -1000, 10, 100}));
    EXPECT_TRUE(refused({-1000, 1000, 0, 100}));
    EXPECT_TRUE(refused({-1000, 1000, 10, std::numeric_limits<double>::infinity()}));
    EXPECT_TRUE(refused({std::numeric_limits<double>::quiet_NaN(), 1000, 10, 100}));
    EXPECT_FALSE(refused({-1000, 1000, 10, 100}));
    EXPECT_EQ(refusal(fluid, {.kind = ChartKind::logph, .width = 0}), "The plot has no size.");
}

TEST(StateChart, OfAVapourEquationHasNoDomeAndTellsSo) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::virialPengRobinson);
    for (const StateChartKind& row : state_chart_kinds()) {
        const StateChart chart = chart_of(fluid, {.kind = row.kind});
        EXPECT_TRUE(chart.dome.empty());
        EXPECT_TRUE(chart.fractions.empty());
        EXPECT_FALSE(chart.critical);
        EXPECT_TRUE(tells(chart, "describes the vapour alone"));
        for (const ChartFamily& family : chart.families) {
            EXPECT_GE(family.lines.size(), 3U) << row.key << name_of(family.quantity);
            for (const ChartLine& line : family.lines) {
                EXPECT_TRUE(line.on_dome.empty());
                for (const auto& part : line.parts)
                    for (const ChartVertex& at : part)
                        EXPECT_TRUE(std::isfinite(at.x) && std::isfinite(at.y) && !at.fraction);
            }
        }
    }
}

TEST(StateChart, TellsWhereTheHeatCapacityEnds) {
    // A cp that falls below R at 500 K.
    const models::Fluid fluid =
        fluids::changed(fluids::fluid("Propane", Eos::pengRobinson),
                        [](models::SubstanceRecord& s, models::ModelSelection& m) {
                            s.cp_polynomial.c = {0, 8.31451F + 500.0F * 0.3F, -0.3F, 0, 0};
                            s.has_cp_polynomial = true;
                            m.cp_form = models::CpForm::polynomial;
                        });
    const StateChart chart =
        chart_of(fluid, {.kind = ChartKind::ts, .window = ChartWindow{-100, 200, 200, 700}});
    EXPECT_TRUE(tells(chart, "no cp above 500 K.")) << ::testing::PrintToString(chart.skipped);
    for (const ChartFamily& family : chart.families)
        for (const ChartLine& line : family.lines)
            for (const auto& part : line.parts)
                for (const ChartVertex& at : part) EXPECT_LE(at.T, 500.01);
}

TEST(StateChart, LeavesOutFamiliesOfItsOwnAxes) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    const StateChart chart = chart_of(
        fluid,
        {.kind = ChartKind::ts, .families = {{ChartQuantity::T, {}}, {ChartQuantity::p, {}}}});
    ASSERT_EQ(chart.families.size(), 1U);
    EXPECT_EQ(family_of(chart, ChartQuantity::p).unit, "kPa");
    EXPECT_TRUE(tells(chart, "Lines of constant T: not in this chart."));
}

TEST(StateChart, OfPressuresOverTheAtmosphereBeginsAboveZero) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    models::UnitChoice choice;
    const auto all = models::units_of(models::Dimension::pressure);
    const auto gauge = std::ranges::find(all, "bar(g)", &models::Unit::name);
    ASSERT_NE(gauge, all.end());
    choice.shown[static_cast<std::size_t>(models::Dimension::pressure)] =
        static_cast<std::uint8_t>(gauge - all.begin() + 1);
    const StateChart chart =
        chart_of(fluid, {.kind = ChartKind::logph}, models::make_units(choice, fluid));
    EXPECT_GT(chart.window.y_min, 0);
    EXPECT_EQ(chart.y_unit, "bar(g)");
    for (const ChartFamily& family : chart.families)
        for (const ChartLine& line : family.lines)
            for (const auto& part : line.parts)
                for (const ChartVertex& at : part)
                    EXPECT_NEAR(at.y, at.p / 100 - 1.01325, 1e-6 * at.y + 1e-6);
}

}  // namespace
