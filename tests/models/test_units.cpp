#include <gtest/gtest.h>

#include <cmath>

#include "models/unit_text.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using models::Dimension;
using models::Unit;

const models::Fluid& propane() {
    static const models::Fluid one = fluids::fluid("Propane", models::Eos::pengRobinson);
    return one;
}

models::Scale scale(Dimension dimension, std::string_view name) {
    const Unit* const unit = models::find_unit(dimension, name);
    EXPECT_NE(unit, nullptr) << name;
    return models::scale_of(*unit, propane()).value();
}

std::vector<Dimension> all_dimensions() {
    std::vector<Dimension> all;
    for (std::size_t i = 0; i < models::kDimensions; ++i) all.push_back(static_cast<Dimension>(i));
    return all;
}

}  // namespace

TEST(Units, ConvertEveryQuantityToEveryUnitAndBack) {
    int count = 0;
    for (const Dimension dimension : all_dimensions())
        for (const Unit& unit : models::units_of(dimension)) {
            const models::Scale s = models::scale_of(unit, propane()).value();
            for (const double value : {1e-3, 0.7, 273.15, 4321.0, 3e6}) {
                const double back = s.value(s.shown(value));
                // A zero of the scale that is far above the value takes digits from it.
                const double size = std::max(std::fabs(value), std::fabs(s.zero / s.factor));
                EXPECT_NEAR(back, value, 1e-14 * size) << unit.name << " " << value;
                ++count;
            }
        }
    EXPECT_EQ(count, 5 * 63);
}

TEST(Units, AgreeWithPublishedConversions) {
    struct Row {
        Dimension dimension;
        const char *from, *to;
        double value, expected, tolerance;
    };
    using enum Dimension;
    // Fixed points of the scales of temperature; NIST Special Publication 811 (2008), appendix B,
    // for the sizes of units, to the digits printed there.
    const Row rows[] = {
        {temperature, "K", "degC", 273.15, 0, 1e-12},
        {temperature, "degC", "degF", 100, 212, 1e-11},
        {temperature, "degC", "degF", -40, -40, 1e-11},
        {temperature, "degF", "K", 32, 273.15, 1e-11},
        {temperature, "K", "degR", 273.16, 491.688, 1e-11},
        {temperature, "degF", "degR", 0, 459.67, 1e-11},
        {temperature, "degC", "K", 37, 310.15, 1e-12},
        {temperature, "degF", "degC", 98.6, 37, 1e-11},
        {pressure, "atm", "kPa", 1, 101.325, 1e-12},
        {pressure, "atm", "Torr", 1, 760, 1e-11},
        {pressure, "Torr", "Pa", 1, 133.3224, 5e-5},
        {pressure, "psi", "kPa", 1, 6.894757, 5e-7},
        {pressure, "bar", "psi", 1, 14.50377, 5e-6},
        {pressure, "bar", "kPa", 1, 100, 1e-12},
        {pressure, "MPa", "bar", 1, 10, 1e-12},
        {pressure, "hPa", "Pa", 1, 100, 1e-11},
        {pressure, "bar(g)", "bar", 0, 1.01325, 1e-13},
        {pressure, "psi(g)", "psi", 0, 14.69595, 5e-6},
        {pressure, "kPa", "kPa(g)", 0, -101.325, 1e-12},
        {pressure, "MPa(g)", "MPa", 3, 3.101325, 1e-13},
        {volume, "ft^3/lb", "m^3/kg", 1, 0.06242796, 5e-9},
        {volume, "l/kg", "m^3/kg", 1, 0.001, 1e-17},
        {volume, "cm^3/g", "l/kg", 1, 1, 1e-13},
        {volume, "cm^3/mol", "m^3/kmol", 1, 0.001, 1e-17},
        {volume, "l/mol", "m^3/kmol", 22.413962, 22.413962, 1e-12},
        {density, "lb/ft^3", "kg/m^3", 1, 16.01846, 5e-6},
        {density, "g/cm^3", "kg/m^3", 1, 1000, 1e-10},
        {density, "mol/l", "kmol/m^3", 1, 1, 1e-13},
        {energy, "BTU/lb", "kJ/kg", 1, 2.326, 1e-12},
        {energy, "kcal/kg", "kJ/kg", 1, 4.1868, 1e-12},
        {energy, "kcal/kg", "BTU/lb", 1, 1.8, 1e-12},
        {energy, "J/mol", "kJ/kmol", 1, 1, 1e-13},
        {energy, "K", "kJ/kmol", 1, 8.31451, 1e-12},
        {entropy, "BTU/(lb degR)", "kJ/(kg K)", 1, 4.1868, 1e-12},
        {entropy, "kcal/(kg K)", "kJ/(kg K)", 1, 4.1868, 1e-12},
        {entropy, "R", "J/(mol K)", 1, 8.31451, 1e-12},
        {speed, "ft/s", "m/s", 1, 0.3048, 1e-15},
        {tankVolume, "ft^3", "m^3", 1, 0.02831685, 5e-9},
        {tankVolume, "gal", "l", 1, 3.785412, 5e-7},
        {mass, "lb", "kg", 1, 0.4535924, 5e-8},
        {mass, "t", "lb", 1, 2204.623, 5e-4},
        {amount, "lbmol", "mol", 1, 453.5924, 5e-5},
    };
    for (const Row& row : rows)
        EXPECT_NEAR(
            scale(row.dimension, row.to).shown(scale(row.dimension, row.from).value(row.value)),
            row.expected, row.tolerance)
            << row.value << " " << row.from << " in " << row.to;
}

TEST(Units, OfMassAndAmountReferToTheMolarMass) {
    const auto M = static_cast<double>(propane().substance().M);
    EXPECT_NEAR(M, 44.1, 0.01);
    EXPECT_DOUBLE_EQ(scale(Dimension::energy, "kJ/kg").shown(1000), 1000 / M);
    EXPECT_DOUBLE_EQ(scale(Dimension::volume, "m^3/kg").shown(2), 2 / M);
    EXPECT_DOUBLE_EQ(scale(Dimension::density, "mol/l").shown(500), 500 / M);
    EXPECT_DOUBLE_EQ(scale(Dimension::temperature, "T/T(cr)").shown(300),
                     300 / propane().substance().Tcrit);
}

TEST(Units, ThatASubstanceCannotHaveAreRefusedAndReplaced) {
    const models::Fluid nothing;
    EXPECT_FALSE(models::scale_of(*models::find_unit(Dimension::energy, "kJ/kg"), nothing));
    const models::UnitChoice metric = models::read_choice("metric").value();
    EXPECT_ANY_THROW(models::make_units(metric, nothing));
    const models::UnitChoice possible = models::possible_choice(metric, nothing);
    const models::Units units = models::make_units(possible, nothing);
    EXPECT_EQ(units.of(Dimension::temperature).name, "degC");
    EXPECT_EQ(units.of(Dimension::energy).name, "kJ/kmol");
}

TEST(Units, OfTheReadySetsAreNamed) {
    const auto names = [](const char* set) {
        std::string all;
        for (const Unit* unit : models::units_of(models::read_choice(set).value()))
            all += std::string(unit->name) + "; ";
        return all;
    };
    EXPECT_EQ(names("molar"),
              "K; kPa; m^3/kmol; kg/m^3; kJ/kmol; kJ/(kmol K); m/s; m^3; kg; kmol; ");
    EXPECT_EQ(names("SI specific"),
              "K; kPa; m^3/kg; kg/m^3; kJ/kg; kJ/(kg K); m/s; m^3; kg; kmol; ");
    EXPECT_EQ(names("metric"), "degC; bar; m^3/kg; kg/m^3; kJ/kg; kJ/(kg K); m/s; m^3; kg; kmol; ");
    EXPECT_EQ(names("chemistry"), "K; MPa; cm^3/mol; mol/l; J/mol; J/(mol K); m/s; l; g; mol; ");
    EXPECT_EQ(names("us"),
              "degF; psi; ft^3/lb; lb/ft^3; BTU/lb; BTU/(lb degR); ft/s; ft^3; lb; lbmol; ");
    EXPECT_EQ(names("reduced"),
              "T/T(cr); p/p(cr); V(red); kg/m^3; kJ/kmol; kJ/(kmol K); m/s; m^3; kg; kmol; ");
}

TEST(Units, OfTheToldSetsHaveNoneOfTheirOwn) {
    for (const char* set : {"molar", "specific", "reduced"})
        EXPECT_FALSE(models::has_own_units(models::read_choice(set).value())) << set;
}

TEST(Units, AsTextAreReadAgain) {
    for (const models::UnitSet& set : models::unit_sets()) {
        const models::UnitChoice read = models::read_choice(models::text_of(set.choice)).value();
        EXPECT_EQ(read, set.choice) << set.name;
    }
    EXPECT_EQ(models::text_of(models::read_choice("p=bar(g),T=degC").value()), "T=degC,p=bar(g)");
    EXPECT_EQ(models::text_of({}), "");
}

TEST(Units, ThatAreNoneAreNamedWithThoseThereAre) {
    EXPECT_NE(models::read_choice("T=bar").reason().find("\"bar\" is no unit of T; there are K, "),
              std::string::npos);
    EXPECT_NE(models::read_choice("imperial").reason().find("\"imperial\" is neither a set"),
              std::string::npos);
    EXPECT_NE(models::read_choice("T=degC,x=1").reason().find("\"x=1\""), std::string::npos);
}

TEST(Units, AreFoundAsUsersWriteThem) {
    const auto found = [](Dimension dimension, const char* name) {
        const Unit* const unit = models::find_unit(dimension, name);
        return unit == nullptr ? std::string() : std::string(unit->name);
    };
    for (const char* name : {"degC", "°C", "C", " deg C "})
        EXPECT_EQ(found(Dimension::temperature, name), "degC") << name;
    EXPECT_EQ(found(Dimension::temperature, "°F"), "degF");
    EXPECT_EQ(found(Dimension::temperature, "R"), "degR");
    for (const char* name : {"bar(g)", "bar g", "barg"})
        EXPECT_EQ(found(Dimension::pressure, name), "bar(g)") << name;
    for (const char* name : {"bar(a)", "bar", "bara"})
        EXPECT_EQ(found(Dimension::pressure, name), "bar") << name;
    EXPECT_EQ(found(Dimension::pressure, "psig"), "psi(g)");
    EXPECT_EQ(found(Dimension::pressure, "psia"), "psi");
    EXPECT_EQ(found(Dimension::pressure, "kPa"), "kPa");
    EXPECT_EQ(found(Dimension::pressure, "kPa(a)"), "kPa");
    EXPECT_EQ(found(Dimension::pressure, "mmHg"), "Torr");
    EXPECT_EQ(found(Dimension::volume, "m³/kg"), "m^3/kg");
    EXPECT_EQ(found(Dimension::volume, "L/kg"), "l/kg");
    EXPECT_EQ(found(Dimension::entropy, "kJ/kg/K"), "kJ/(kg K)");
    EXPECT_EQ(found(Dimension::entropy, "Btu/(lb·°R)"), "BTU/(lb degR)");
    EXPECT_EQ(found(Dimension::entropy, "R"), "R");
    EXPECT_EQ(found(Dimension::pressure, "mbar"), "");
    EXPECT_EQ(found(Dimension::temperature, "a"), "");
}

TEST(Units, TypedBehindANumberAreTakenOver) {
    const models::Scale kelvin = scale(Dimension::temperature, "K");
    const auto T = [&](const char* text) {
        return models::typed_value(text, Dimension::temperature, kelvin, propane());
    };
    EXPECT_NEAR(*T("27 degC"), 300.15, 1e-12);
    EXPECT_NEAR(*T("27°C"), 300.15, 1e-12);
    EXPECT_NEAR(*T("-40 F"), 233.15, 1e-12);
    EXPECT_DOUBLE_EQ(*T(" 300,5 "), 300.5);
    EXPECT_DOUBLE_EQ(*T("3e2 K"), 300);
    EXPECT_EQ(T("27 bar").reason(),
              "\"bar\" is no unit of the temperature; there are K, degC, degF, degR, T/T(cr)");
    EXPECT_EQ(T("1.000,5 K").reason(), "This is not a number");
    EXPECT_EQ(T("degC").reason(), "This is not a number");

    const models::Scale bar = scale(Dimension::pressure, "bar");
    const auto p = [&](const char* text) {
        return models::typed_value(text, Dimension::pressure, bar, propane());
    };
    EXPECT_NEAR(*p("3 MPa(g)"), 31.01325, 1e-12);
    EXPECT_DOUBLE_EQ(*p("12 bar"), 12);
    EXPECT_NEAR(*p("100 psia"), 6.894757, 5e-7);
    EXPECT_NEAR(*p("0,5E1 atm"), 5.06625, 1e-12);
}

TEST(Units, ArePrettyInLabelsAndPictures) {
    EXPECT_EQ(models::pretty_unit("m^3/kmol"), "m³/kmol");
    EXPECT_EQ(models::pretty_unit("kJ/(kg K)"), "kJ/(kg·K)");
    EXPECT_EQ(models::pretty_unit("kJ/(kmol K)"), "kJ/(kmol·K)");
    EXPECT_EQ(models::pretty_unit("BTU/(lb degR)"), "BTU/(lb·°R)");
    EXPECT_EQ(models::pretty_unit("degC"), "°C");
}
