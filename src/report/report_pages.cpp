#include <array>
#include <cmath>

#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/model_tables.h"
#include "report/reference_lines.h"
#include "report/teller.h"

/// The pages behind the check boxes of the result view.
namespace quor::report {

using calculation::PhaseDerivatives;

namespace {

constexpr std::size_t kRule = 74, kMechanicalRule = 68;
constexpr auto kSigned = " 0.0000E+00;-0.0000E+00";

/// A label of 14 characters and a colon.
std::string label(int index) {
    constexpr std::size_t kWidth = 14;
    return text::pad_right(models::function_label(index), kWidth) + " : ";
}

/// The row of a value of both phases; `of` takes it from a phase.
template <class Of>
void value_row(Teller& t, const std::string& name, const Quantity& quantity, const char* mask,
               Of of) {
    const auto value = [&](const std::optional<PhaseDerivatives>& d) {
        return d ? numbers::format(faults::finite(of(*d)), mask) : std::string();
    };
    t.list.add(
        phase_row(name, {value(t.answer.pages->liquid), value(t.answer.pages->vapour)}, quantity));
}

/// Of ln phi*, its derivatives, and the residual functions divided by R.
constexpr std::array<const char*, 7> kResidualUnits = {"", "1/K", "1/K^2", "", "", "", ""};

void residual_page(Teller& t) {
    ListBuilder& list = t.list;
    list.blank();
    list.rule('*', kRule);
    list.add("diff. Joule-Thomson coefficients; fugacity coeff.; residual functions");
    list.rule('*', kRule);
    for (std::string& line : reference_lines(t.made, false)) list.add(std::move(line));
    list.add(std::string(models::function_label(21)) + " (Joule-Thomson coefficient [K/kPa]):");
    if (t.answer.pages->has_heat_capacity)
        value_row(t, "", {"Joule-Thomson coefficient", "K/kPa"}, kSigned,
                  [](const PhaseDerivatives& d) { return d.table.residual[models::JouleThomson]; });
    for (int i = 0; i <= 6; ++i) {
        if (i == 3) list.add("Residual Functions:");
        const auto column = static_cast<std::size_t>(i);
        value_row(t, label(14 + i),
                  {text::trim(models::function_label(14 + i)), kResidualUnits[column]}, kSigned,
                  [&](const PhaseDerivatives& d) { return d.table.residual[column]; });
    }
    list.rule('*', kMechanicalRule);
    list.add(std::string(20, ' ') + "Mechanical Coefficients");
    list.rule('*', kMechanicalRule);
    for (int i = 1; i <= 3; ++i)
        value_row(t, label(5 + i), quantity_of(label(5 + i)), "0.0000E+00",
                  [&](const PhaseDerivatives& d) {
                      return d.mechanical[static_cast<std::size_t>(i - 1)];
                  });
}

/// A row of the page of derivatives: its label, and the powers of v that a change to another unit
/// of volume multiplies: dp/dV has -1, d2p/dV2 has -2.
struct DerivativeRow {
    int label;
    bool second;
    std::size_t column;
    int power_of_volume;
    const char* unit;  ///< '#' stands for that of the volume
};

constexpr DerivativeRow kDerivativeRows[] = {
    {0, false, 1, -1, "kPa/(#)"},  {1, false, 2, 0, "kPa/K"},  {2, false, 3, 1, "#/kPa"},
    {3, false, 4, 1, "#/K"},       {4, false, 5, -1, "K/(#)"}, {5, false, 6, 0, "K/kPa"},
    {9, true, 1, -2, "kPa/(#)^2"}, {12, true, 2, 1, "#/K^2"},  {13, true, 3, -2, "K/(#)^2"}};

bool is_specific(const Teller& t) {
    return t.units().choice.system == models::UnitSystem::specific;
}

/// Volume unit of the page: m^3/kg in specific units, else m^3/kmol.
double volume_unit(const Teller& t) {
    return is_specific(t) ? faults::divide(1.0, t.M()) : 1.0;
}

void inflexion_lines(Teller& t) {
    const models::Inflexion& points = t.answer.pages->inflexion;
    const double unit = volume_unit(t);
    const char* mask = is_specific(t) ? "#0.0000# m^3/kg" : "#0.0000# m^3/kmol";
    if (points.count == 0) t.list.add("Inflection point of p-v isoth.: No solution found");
    for (int i = 0; i < points.count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        t.list.add(std::string(i == 0 ? "1st" : "2nd") + " point of inflexion p-v isoth.: v = " +
                   numbers::format(points.v[k] * unit, mask) +
                   ", p = " + numbers::format(points.p[k], "#####0 kPa") + " (cf. 2nd deriv.=" +
                   numbers::format(points.second_derivative[k] / (unit * unit), "0.0E+00") + ")");
    }
}

Quantity quantity_of(const DerivativeRow& row, bool specific) {
    return {text::trim(models::function_label(row.label)),
            text::replace_all(row.unit, "#", specific ? "m^3/kg" : "m^3/kmol")};
}

void derivative_page(Teller& t) {
    ListBuilder& list = t.list;
    const double unit = volume_unit(t);
    list.rule('*', kRule);
    list.add(std::string(20, ' ') + "derivatives with respect to T, p, v" +
             (is_specific(t) ? " (specif.)" : " (molar)"));
    list.rule('*', kRule);
    for (const DerivativeRow& row : kDerivativeRows)
        value_row(t, label(row.label), quantity_of(row, is_specific(t)), kSigned,
                  [&](const PhaseDerivatives& d) {
                      const double z =
                          row.second ? d.table.second[row.column] : d.table.first[row.column];
                      return z * std::pow(unit, row.power_of_volume);
                  });
    inflexion_lines(t);
}

void function_page(Teller& t) {
    const calculation::FunctionPair& pair = *t.answer.pages->functions;
    ListBuilder& list = t.list;
    list.rule('*', kRule);
    list.add(std::string(31, ' ') + "thermodynamic Fu(T)");
    list.rule('*', kRule);
    if (!pair.complete) {
        list.add_red("no Result");
        return;
    }
    for (std::string& line : reference_lines(t.made)) list.add(std::move(line));
    function_table(t, pair);
}

}  // namespace

void tell_pages(Teller& t) {
    const calculation::Pages& wanted = t.request.pages;
    if (wanted.residual) residual_page(t);
    if (wanted.derivatives) derivative_page(t);
    if (wanted.functions) function_page(t);
}

}  // namespace quor::report
