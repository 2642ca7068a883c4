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

std::string label_of(const Teller& t, const Row& row) {
    if (row.function == calculation::kVolume) return "v/ (" + t.units().v_label + ")  = ";
    if (row.function == calculation::kSound) return label_field("as/ (m/s)");
    return label_field(row.labels[static_cast<std::size_t>(t.units().choice.caloric)]);
}

std::string value_text(const Teller& t, const std::optional<FunctionValues>& phase,
                       Function function) {
    if (!phase) return {};
    return value32(scaled(t.units(), *phase, function));
}

}  // namespace

double scaled(const models::Units& units, const FunctionValues& values, Function function) {
    const double z = values.z[function];
    if (function == calculation::kVolume) return z * units.v;
    return function == calculation::kSound ? z : z * units.caloric;
}

void function_table(Teller& t, const calculation::FunctionPair& pair) {
    for (const Row& row : kRows)
        t.list.row(
            row.name, label_of(t, row),
            {value_text(t, pair.liquid, row.function), value_text(t, pair.vapour, row.function)});
}

const char* caloric_label(Function function, models::CaloricUnit unit) {
    return kRows[function].labels[static_cast<std::size_t>(unit)];
}

void tell_functions(Teller& t) {
    if (tell_missing(t)) return;
    t.out.par1.text = temperature_text(t.answer.T);
    t.out.par2.text = pressure_text(t.answer.p);
    if (!t.answer.ok()) {
        calculation_error(t, error_code());
        return;
    }
    for (std::string& line : reference_lines(t.made)) t.list.add(std::move(line));
    function_table(t, *t.answer.functions);
}

}  // namespace quor::report
