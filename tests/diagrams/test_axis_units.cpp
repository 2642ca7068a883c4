#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "common/constants.h"
#include "common/text.h"
#include "diagrams/active_fluid.h"
#include "diagrams/axis_units.h"
#include "models/unit_text.h"

namespace {

using diagrams::Axis;
using diagrams::AxisScale;
using models::UnitChoice;

constexpr double kPsi = 6.894757293168361;                                      // kPa
constexpr double kCubicFeetPerPound = 0.45359237 / (0.3048 * 0.3048 * 0.3048);  // per m^3/kg

class AxisUnits : public ActiveFluid {
  protected:
    AxisUnits() { activate("Propane"); }

    double M() const { return static_cast<double>(substance.M); }
    static UnitChoice choice(const std::string& text) { return models::read_choice(text).value(); }
    /// What an axis shows of a value in K, kPa, m^3/kmol, kJ/kmol.
    double shown(Axis axis, const std::string& wanted, double value) const {
        return diagrams::axis_scale(nullptr, axis, choice(wanted), fluid()).value()(value);
    }
};

TEST_F(AxisUnits, EveryKindOfAxisShowsWhatIsReckonedByHand) {
    struct Row {
        Axis axis;
        const char* choice;
        double value, shown;
    };
    const std::vector<Row> rows = {
        {Axis::T, "T=degC", 300, 26.85},
        {Axis::T, "T=degF", 300, 80.33},
        {Axis::T, "T=degR", 300, 540},
        {Axis::p, "p=bar", 500, 5},
        {Axis::p, "p=bar(g)", 500, 3.98675},
        {Axis::p, "p=MPa", 500, 0.5},
        {Axis::p, "p=psi", 500, 500 / kPsi},
        {Axis::p, "p=psi(g)", 500, (500 - 101.325) / kPsi},
        {Axis::p, "p=Torr", 101.325, 760},
        {Axis::v, "v=m^3/kg", 2, 2 / M()},
        {Axis::v, "v=cm^3/mol", 2, 2000},
        {Axis::v, "v=ft^3/lb", 2, 2 / M() * kCubicFeetPerPound},
        {Axis::rho, "rho=mol/l", 500, 500 / M()},
        {Axis::rho, "rho=lb/ft^3", 500, 500 / kCubicFeetPerPound},
        {Axis::h, "h=kJ/kg", 10000, 10000 / M()},
        {Axis::hSpaced, "h=BTU/lb", 10000, 10000 / M() / 2.326},
        {Axis::u, "h=J/mol", 10000, 10000},
        {Axis::g, "h=kcal/kg", 10000, 10000 / M() / 4.1868},
        {Axis::deltaLVh, "h=K", 10000, 10000 / constants::R},
        {Axis::s, "s=kJ/(kg K)", 90, 90 / M()},
        {Axis::cp, "s=BTU/(lb degR)", 90, 90 / M() / 4.1868},
        {Axis::deltacp, "s=R", 90, 90 / constants::R},
        {Axis::pv, "p=bar,v=m^3/kg", 1000, 10 / M()},
        // A product, a logarithm and a quotient count pressures from zero.
        {Axis::pv, "p=bar(g),v=m^3/kg", 1000, 10 / M()},
        {Axis::lnp, "p=bar", std::log(500), std::log(5)},
        {Axis::lnp, "p=bar(g)", std::log(500), std::log(5)},
        {Axis::inverseT, "T=degC", 1.0 / 300, 1.0 / 300},
        {Axis::inverseT, "T=degF", 1.0 / 300, 1.0 / 540},
        {Axis::inverseTSlope, "T=degR", 1.0 / 300, 1.0 / 540},
        {Axis::dlnp, "p=psi", -2500, -2500},
        {Axis::dlnp, "T=degF", -2500, -4500},
        {Axis::jouleThomson, "p=bar", 0.01, 1},
        {Axis::jouleThomson, "T=degF,p=psi", 0.01, 0.018 * kPsi},
    };
    for (const Row& row : rows) {
        const double found = shown(row.axis, row.choice, row.value);
        EXPECT_NEAR(found, row.shown, 1e-14 * std::fabs(row.shown) * 50)
            << diagrams::axis_symbol(row.axis) << " in " << row.choice;
    }
}

TEST_F(AxisUnits, EveryUnitOfEveryAxisComesBack) {
    int scales = 0;
    for (int i = 1; i <= static_cast<int>(Axis::Tenvs); ++i) {
        const auto axis = static_cast<Axis>(i);
        for (std::size_t d = 0; d < models::kDimensions; ++d) {
            for (const models::Unit& unit : models::units_of(static_cast<models::Dimension>(d))) {
                models::UnitList list = models::units_of(UnitChoice{});
                list[d] = &unit;
                const UnitChoice wanted = models::choice_of(list);
                const auto scale = diagrams::axis_scale(nullptr, axis, wanted, fluid());
                if (!scale) continue;  // units on R T
                ++scales;
                for (const double value : {0.37, 12.5, 4321.0}) {
                    const double size = std::fabs(value) + std::fabs(scale->zero / scale->factor);
                    EXPECT_NEAR(scale->back((*scale)(value)), value, 1e-14 * size)
                        << i << " in " << unit.name;
                }
            }
        }
    }
    EXPECT_GT(scales, 500);
}

TEST_F(AxisUnits, TheSetsOfTheComputationAreNotConverted) {
    for (const UnitChoice& wanted :
         {choice("molar"), choice("specific"), choice("reduced"), UnitChoice{}}) {
        const diagrams::Basis of{fluid(), reference, models::make_units(wanted, fluid()), {}};
        for (const diagrams::Diagram& row : diagrams::all_diagrams())
            EXPECT_TRUE(diagrams::shown_scales(row, of).are_identity()) << row.code;
    }
}

TEST_F(AxisUnits, AnAxisOnRTHasNoScaleAndKeepsTheTextOfTheComputation) {
    UnitChoice wanted{.caloric = models::CaloricUnit::RT};
    EXPECT_FALSE(diagrams::axis_scale(nullptr, Axis::h, wanted, fluid()));
    EXPECT_FALSE(diagrams::conversion(nullptr, Axis::h, wanted, {}, fluid()));
    EXPECT_TRUE(diagrams::conversion(nullptr, Axis::p, wanted, {}, fluid()));
    wanted = choice("h=R T,s=kJ/(kg K)");
    EXPECT_FALSE(diagrams::has_own_unit(Axis::s, wanted));
    EXPECT_EQ(diagrams::axis_text(Axis::s, wanted), "s / (1/K) ");
}

TEST_F(AxisUnits, WithoutWhatAUnitRefersToThereIsNoScale) {
    const models::Fluid none;
    EXPECT_TRUE(diagrams::axis_scale(nullptr, Axis::T, choice("T=degC"), none));
    EXPECT_TRUE(diagrams::axis_scale(nullptr, Axis::p, choice("p=psi(g)"), none));
    EXPECT_FALSE(diagrams::axis_scale(nullptr, Axis::v, choice("v=l/kg"), none));
    EXPECT_FALSE(diagrams::axis_scale(nullptr, Axis::v, choice("reduced"), none));
    // What is already by mass needs no molar mass.
    EXPECT_TRUE(diagrams::conversion(nullptr, Axis::rho, {}, choice("rho=g/cm^3"), none));
}

TEST_F(AxisUnits, TextsOfAxesNameTheirUnits) {
    const auto text = [](Axis axis, const char* wanted) {
        return diagrams::axis_text(axis, choice(wanted));
    };
    EXPECT_EQ(text(Axis::T, "metric"), "T / degC");
    EXPECT_EQ(text(Axis::p, "p=bar(g)"), "p / bar(g)");
    EXPECT_EQ(text(Axis::v, "us"), "v / (ft^3/lb)");
    EXPECT_EQ(text(Axis::rho, "chemistry"), "rho / (mol/l)");
    EXPECT_EQ(text(Axis::h, "us"), "h / (BTU/lb)");
    EXPECT_EQ(text(Axis::s, "us"), "s / (BTU/(lb degR))");
    EXPECT_EQ(text(Axis::pv, "metric"), "pv / (bar*m^3/kg)");
    EXPECT_EQ(text(Axis::lnp, "p=bar(g)"), "ln(p/bar)");
    EXPECT_EQ(text(Axis::inverseT, "us"), "1/T / (1/degR)");
    EXPECT_EQ(text(Axis::inverseT, "metric"), "1/T / (1/K)");
    EXPECT_EQ(text(Axis::dlnp, "metric"), "dln(p/bar) / d(1/T)");
    EXPECT_EQ(text(Axis::jouleThomson, "us"), "delta / (degR/psi)");
    EXPECT_EQ(text(Axis::jouleThomson, "metric"), "delta / (K/bar)");
    // Told texts stay.
    EXPECT_EQ(text(Axis::h, "metric"), "h / (kJ/kg) ");
    EXPECT_EQ(text(Axis::T, "reduced"), "T / T(cr)");
}

/// True when both choices show an axis alike.
bool shows_alike(const diagrams::Diagram& row, const UnitChoice& a, const UnitChoice& b) {
    const auto same = [&](Axis axis) {
        return text::trim(diagrams::axis_text_in(row, axis, a)) ==
               text::trim(diagrams::axis_text_in(row, axis, b));
    };
    return same(row.x) && same(row.y);
}

TEST_F(AxisUnits, ASavedDiagramIsFoundByItsTextsInEverySetAndInUnitsOfOnesOwn) {
    std::vector<UnitChoice> all;
    for (const models::UnitSet& set : models::unit_sets()) all.push_back(set.choice);
    for (const char* own : {"T=degF,p=bar(g),v=l/kg,rho=g/cm^3,h=kcal/kg,s=kcal/(kg K)",
                            "T=degC,p=Torr,v=ft^3/lbmol,rho=kmol/m^3,h=J/mol,s=J/(mol K)"})
        all.push_back(choice(own));
    int found = 0;
    for (const UnitChoice& wanted : all) {
        for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
            if (!row.opens() || row.section == diagrams::Section::database) continue;
            const diagrams::Basis of{fluid(), reference, models::make_units(wanted, fluid()), {}};
            const diagrams::DiagramTexts texts = diagrams::texts_of(row, of);
            const auto known = diagrams::diagram_by_texts(texts.title, texts.x, texts.y);
            ASSERT_TRUE(known) << row.code << " " << models::text_of(wanted);
            EXPECT_TRUE(shows_alike(row, known->units, wanted))
                << row.code << " " << models::text_of(wanted) << ": "
                << models::text_of(known->units);
            ++found;
        }
    }
    EXPECT_GT(found, 200);
}

class EverySet : public AxisUnits, public ::testing::WithParamInterface<const char*> {
  protected:
    EverySet() { activate(GetParam()); }

    diagrams::Basis basis_in(const UnitChoice& wanted) const {
        return {fluid(), reference, models::make_units(wanted, fluid()), {}};
    }
    /// From what the axes of a diagram show in the default set to what they show in another.
    diagrams::AxisScales from_default(const diagrams::Diagram& row,
                                      const UnitChoice& wanted) const {
        return {diagrams::conversion(&row, row.x, {}, wanted, fluid()).value(),
                diagrams::conversion(&row, row.y, {}, wanted, fluid()).value()};
    }
    diagrams::CurveWindow default_window(const diagrams::Diagram& row) const {
        const diagrams::Basis molar = basis_in({});
        return diagrams::proposed_window(row, molar, diagrams::coordinate_defaults(molar)).window;
    }
    /// A curve in the window of the default set.
    diagrams::Curve curve_in(const diagrams::Diagram& row, const UnitChoice& wanted) const {
        const diagrams::Basis of = basis_in(wanted);
        const bool over_T = row.section == diagrams::Section::isobaric;
        diagrams::ProcessLine range;
        range.range_is_T = over_T;
        range.range_start = over_T ? 0.5 * substance.Tcrit : 10;
        range.range_end = over_T ? 1.1 * substance.Tcrit : 1.5 * substance.pcrit;
        const double p_max = 1.5 * substance.pcrit * of.p_factor();
        return diagrams::curve(of, {.curve = &row,
                                    .window = from_default(row, wanted).shown(default_window(row)),
                                    .at = {0.8 * substance.Tcrit, 800, 2},
                                    .line = range,
                                    .p_min = static_cast<float>(of.p_factor()),
                                    .p_max = static_cast<float>(p_max)});
    }
};

/// The error of 32-bit limits and factors in a number of a window.
double rounding(double value, float low, float high) {
    return 5e-6 * std::max({std::fabs(value), std::fabs(static_cast<double>(low)),
                            std::fabs(static_cast<double>(high))});
}

/// How much y changes with x about a point of a curve.
double slope_at(const diagrams::CurvePoints& points, std::size_t i) {
    double slope = 0;
    for (const std::size_t other : {i == 0 ? i : i - 1, i + 1 == points.size() ? i : i + 1}) {
        const double dx = static_cast<double>(points[other].x) - static_cast<double>(points[i].x);
        const double dy = static_cast<double>(points[other].y) - static_cast<double>(points[i].y);
        if (dx != 0 && chart::is_shown(points[other].y))
            slope = std::max(slope, std::fabs(dy / dx));
    }
    return slope;
}

TEST_P(EverySet, DrawsTheConvertedPointsOfTheDefaultSetInEveryDiagram) {
    int points = 0;
    for (const models::UnitSet& set : models::unit_sets()) {
        for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
            if (!row.opens() || row.compute == nullptr) continue;
            const diagrams::Curve before = curve_in(row, {});
            const diagrams::Curve after = curve_in(row, set.choice);
            const diagrams::AxisScales scales = from_default(row, set.choice);
            const diagrams::CurveWindow w = scales.shown(default_window(row));
            const std::string what = std::string(set.key) + ", diagram " + std::to_string(row.code);
            EXPECT_EQ(after.status, before.status) << what;
            EXPECT_EQ(after.parameter, before.parameter) << what;
            ASSERT_EQ(after.points.size(), before.points.size()) << what;
            for (std::size_t i = 0; i < before.points.size(); ++i) {
                const diagrams::CurvePoint &a = before.points[i], &b = after.points[i];
                ASSERT_EQ(chart::is_shown(a.y), chart::is_shown(b.y)) << what << ", point " << i;
                const double x = scales.x(static_cast<double>(a.x));
                const double y = scales.y(static_cast<double>(a.y));
                ++points;
                const double in_x = rounding(x, w.x_min, w.x_max);
                EXPECT_NEAR(static_cast<double>(b.x), x, in_x) << what << ", point " << i;
                if (!chart::is_shown(a.y)) continue;
                // Where a curve is steep, the rounding of x is one of y as well.
                const double in_y =
                    rounding(y, w.y_min, w.y_max) + slope_at(after.points, i) * in_x;
                EXPECT_NEAR(static_cast<double>(b.y), y, in_y) << what << ", point " << i;
            }
        }
    }
    EXPECT_GT(points, 50000);
}

TEST_P(EverySet, AWindowComesBackFromEveryUnitAsItWas) {
    for (const models::UnitSet& set : models::unit_sets()) {
        const diagrams::Basis of = basis_in(set.choice);
        for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
            if (!row.opens() || row.compute == nullptr) continue;
            // The triple point and a limit with few digits.
            const auto triple = static_cast<float>(substance.Ttriple);
            const diagrams::CurveWindow w{triple, 612.5F, triple, 4000};
            const diagrams::AxisScales scales = diagrams::shown_scales(row, of);
            EXPECT_EQ(scales.computed(scales.shown(w)), w) << set.key << " " << row.code;
        }
    }
}

TEST_P(EverySet, ProposesTheWindowOfTheComputationInItsUnits) {
    int windows = 0;
    for (const models::UnitSet& set : models::unit_sets()) {
        UnitChoice computed = set.choice;
        computed.shown = {};
        const diagrams::Basis of = basis_in(set.choice), plain = basis_in(computed);
        const auto defaults = diagrams::coordinate_defaults(plain);
        EXPECT_EQ(diagrams::coordinate_defaults(of), defaults) << set.key;
        for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
            if (!row.opens() || row.compute == nullptr) continue;
            const auto window = [&](const diagrams::Basis& basis_of_window) {
                return diagrams::proposed_window(row, basis_of_window, defaults).window;
            };
            const auto x = diagrams::conversion(&row, row.x, computed, set.choice, fluid());
            const auto y = diagrams::conversion(&row, row.y, computed, set.choice, fluid());
            const diagrams::CurveWindow found = window(of), told = window(plain);
            const auto same = [&](float a, float b, const AxisScale& scale) {
                const double b_shown = scale(static_cast<double>(b));
                EXPECT_NEAR(static_cast<double>(a), b_shown, 1e-7 * std::fabs(b_shown))
                    << set.key << ", diagram " << row.code;
            };
            same(found.x_min, told.x_min, x.value());
            same(found.x_max, told.x_max, x.value());
            same(found.y_min, told.y_min, y.value());
            same(found.y_max, told.y_max, y.value());
            ++windows;
        }
    }
    EXPECT_GT(windows, 200);
}

INSTANTIATE_TEST_SUITE_P(OfTwoFluids, EverySet, ::testing::Values("Propane", "Water"));

}  // namespace
