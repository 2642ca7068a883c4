#include "common/text.h"
#include "report/reference_lines.h"
#include "report/teller.h"

/// Caloric functions of the phases of a state, and the table that shows them.
namespace quor::report {

using calculation::Function;
using calculation::FunctionValues;

namespace {

using Labels = std::array<const char*, 4>;

constexpr Labels kExergyLabels = {"e/ (kJ/kmol)", "e/ K", "e/ (R T)", "e/ (kJ/kg) "};

/// A row of the table: the name of the function and its label by caloric unit. Volume and speed of
/// sound have labels of their own.
struct Row {
    Function function;
    const char* name;
    Labels labels;
};

constexpr std::array<Row, calculation::kFunctionCount> kRows = {{
    {calculation::kVolume, "Volume", {}},
    {calculation::kH, "Enthalpy", {"h/ (kJ/kmol) ", "h/ K", "h/ (R T)", "h/ (kJ/kg) "}},
    {calculation::kS, "Entropy", {"s/ (kJ/kmol/K) ", "s/ R ", "s / (1/K) ", "s / (kJ/(kg K)) "}},
    {calculation::kG, "Gibbs Function", {"g/ (kJ/kmol) ", "g/ K", "g/ (R T)", "g/ (kJ/kg) "}},
    {calculation::kU, "Internal Energy", {"u/ (kJ/kmol) ", "u/ K", "u/ (R T)", "u/ (kJ/kg) "}},
    {calculation::kA, "Helmholtz Funct.", {"a/ (kJ/kmol) ", "a/ K", "a/ (R T)", "a/ (kJ/kg)"}},
    {calculation::kExergyH, "Exergy of H", kExergyLabels},
    {calculation::kExergyU, "Exergy of U", kExergyLabels},
    {calculation::kCp,
     "Heat Capacity",
     {"cp/(kJ/kmol/K)", "cp/ R ", "cp /(1/K) ", "cp /(kJ/(kg K)) "}},
    {calculation::kCv, "cV", {"cV/(kJ/kmol/K)", "cV/R ", "cV /(1/K) ", "cV /(kJ/(kg K)) "}},
    {calculation::kSound, "Speed of Sound", {}},
}};

/// "h" of "h/ (kJ/kmol) ".
std::string symbol_of(const char* label) {
    const std::string_view whole = label;
    return text::trim(whole.substr(0, whole.find('/')));
}

std::string label_of(const Teller& t, Function function) {
    if (function == calculation::kVolume) return volume_label(t);
    if (function == calculation::kSound)
        return label_field("as/ (" + unit_name(t.units(), Dimension::speed) + ")");
    return label_field(caloric_label(t.units(), function));
}

std::string value_text(const Teller& t, const std::optional<FunctionValues>& phase,
                       Function function) {
    const auto value = phase ? scaled(t.units(), *phase, function) : std::nullopt;
    return value ? value32(*value) : std::string();
}

}  // namespace

std::optional<double> scaled(const models::Units& units, const FunctionValues& values,
                             Function function) {
    const std::optional<double>& z = values.z[function];
    return z ? std::optional(shown(units, dimension_of(function), *z)) : z;
}

double computed_pressure(const models::Units& units, double p) {
    return units.has_own(Dimension::pressure) ? shown(units, Dimension::pressure, p)
                                              : p * static_cast<double>(units.p);
}

void tell_missing_functions(Teller& t, const calculation::FunctionPair& pair) {
    switch (pair.missing) {
        case calculation::Missing::nothing:
            return;
        case calculation::Missing::heatCapacity:
            t.list.add_red("No ideal-gas heat capacity cp = Fu(T) at this temperature:");
            t.list.add_red("h, s, g, u, a, the exergies, cp, cV and the speed of sound need it.");
            return;
        case calculation::Missing::state:
            t.list.add_red("The equation of state gives no caloric functions at this state.");
            return;
        case calculation::Missing::surroundings:
            t.list.add_red(
                "No state of the surroundings (T, p of the reference state): no exergies.");
            return;
    }
}

void function_table(Teller& t, const calculation::FunctionPair& pair) {
    tell_missing_functions(t, pair);
    if (pair.caloric())
        for (std::string& line : reference_lines(t.made)) t.list.add(std::move(line));
    for (const Row& row : kRows) {
        const std::string L = value_text(t, pair.liquid, row.function),
                          V = value_text(t, pair.vapour, row.function);
        if (!L.empty() || !V.empty()) t.list.row(row.name, label_of(t, row.function), {L, V});
    }
}

std::string caloric_label(const models::Units& units, Function function) {
    const Dimension dimension = dimension_of(function);
    const char* told = kRows[function].labels[static_cast<std::size_t>(units.choice.caloric)];
    if (!units.has_own(dimension)) return told;
    return symbol_of(told) + "/(" + unit_name(units, dimension) + ")";
}

void tell_functions(Teller& t) {
    if (tell_missing(t)) return;
    t.out.par1.text = temperature_text(t, t.answer.T);
    t.out.par2.text = pressure_text(t, t.answer.p);
    if (!t.answer.ok()) {
        calculation_error(t, error_code());
        return;
    }
    function_table(t, *t.answer.functions);
}

}  // namespace quor::report
