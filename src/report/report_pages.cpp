#include <algorithm>

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

bool is_specific(const Teller& t) {
    return t.units().choice.system == models::UnitSystem::specific;
}

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

/// The units of the pages: m^3/kg in specific units, else m^3/kmol, and K and kPa, as long as no
/// quantity has a unit of its own.
models::Units page_units(const Teller& t) {
    models::Units units = listed_units(t.units());
    if (is_specific(t) && !has_own_units(t.units())) {
        constexpr auto kVolume = static_cast<std::size_t>(Dimension::volume);
        units.scales[kVolume] = t.units().scales[kVolume];
    }
    return units;
}

/// The row of a derivative. Where the units are of the user's choice its label names its own.
template <class Of>
void derivative_row(Teller& t, const models::Units& units, int index, const char* mask, Of of) {
    constexpr std::size_t kWidth = 31;
    const DerivedUnit& derived = derived_unit(index);
    const std::string unit = name_of(units, derived);
    std::string symbol = text::trim(models::function_label(index));
    symbol.resize(std::min(symbol.find("/(1/"), symbol.size()));
    const bool named = has_own_units(t.units()) && !unit.empty();
    const double factor = factor_of(units, derived);
    value_row(t, named ? padded(symbol + ", " + unit, kWidth) + " : " : label(index),
              {symbol, unit}, mask, [&](const PhaseDerivatives& d) { return of(d) * factor; });
}

void residual_page(Teller& t) {
    ListBuilder& list = t.list;
    list.blank();
    list.rule('*', kRule);
    list.add("diff. Joule-Thomson coefficients; fugacity coeff.; residual functions");
    list.rule('*', kRule);
    for (std::string& line : reference_lines(t.made, false)) list.add(std::move(line));
    const models::Units units = page_units(t);
    const DerivedUnit& joule_thomson = derived_unit(21);
    const std::string unit = name_of(units, joule_thomson);
    list.add(std::string(models::function_label(21)) + " (Joule-Thomson coefficient [" + unit +
             "]):");
    if (t.answer.pages->has_heat_capacity)
        value_row(t, "", {"Joule-Thomson coefficient", unit}, kSigned,
                  [factor = factor_of(units, joule_thomson)](const PhaseDerivatives& d) {
                      return d.table.residual[models::JouleThomson] * factor;
                  });
    for (int i = 0; i <= 6; ++i) {
        if (i == 3) list.add("Residual Functions:");
        const auto column = static_cast<std::size_t>(i);
        derivative_row(t, units, 14 + i, kSigned,
                       [&](const PhaseDerivatives& d) { return d.table.residual[column]; });
    }
    list.rule('*', kMechanicalRule);
    list.add(std::string(20, ' ') + "Mechanical Coefficients");
    list.rule('*', kMechanicalRule);
    for (int i = 1; i <= 3; ++i)
        derivative_row(t, units, 5 + i, "0.0000E+00", [&](const PhaseDerivatives& d) {
            return d.mechanical[static_cast<std::size_t>(i - 1)];
        });
}

/// A row of the page of derivatives.
struct DerivativeRow {
    int label;
    bool second;
    std::size_t column;
};

constexpr DerivativeRow kDerivativeRows[] = {{0, false, 1}, {1, false, 2}, {2, false, 3},
                                             {3, false, 4}, {4, false, 5}, {5, false, 6},
                                             {9, true, 1},  {12, true, 2}, {13, true, 3}};

void inflexion_lines(Teller& t, const models::Units& units) {
    const models::Inflexion& points = t.answer.pages->inflexion;
    if (points.count == 0) t.list.add("Inflection point of p-v isoth.: No solution found");
    for (int i = 0; i < points.count; ++i) {
        const auto k = static_cast<std::size_t>(i);
        t.list.add(std::string(i == 0 ? "1st" : "2nd") + " point of inflexion p-v isoth.: v = " +
                   by_mask(units, Dimension::volume, points.v[k], "#0.0000#") + " " +
                   unit_name(units, Dimension::volume) +
                   ", p = " + by_mask(units, Dimension::pressure, points.p[k], "#####0") + " " +
                   unit_name(units, Dimension::pressure) + " (cf. 2nd deriv.=" +
                   numbers::format(points.second_derivative[k] * factor_of(units, derived_unit(9)),
                                   "0.0E+00") +
                   ")");
    }
}

void derivative_page(Teller& t) {
    ListBuilder& list = t.list;
    const models::Units units = page_units(t);
    list.rule('*', kRule);
    list.add(std::string(20, ' ') + "derivatives with respect to T, p, v" +
             (is_specific(t) ? " (specif.)" : " (molar)"));
    list.rule('*', kRule);
    for (const DerivativeRow& row : kDerivativeRows)
        derivative_row(t, units, row.label, kSigned, [&](const PhaseDerivatives& d) {
            return row.second ? d.table.second[row.column] : d.table.first[row.column];
        });
    inflexion_lines(t, units);
}

void function_page(Teller& t) {
    const calculation::FunctionPair& pair = *t.answer.pages->functions;
    ListBuilder& list = t.list;
    list.rule('*', kRule);
    list.add(std::string(31, ' ') + "thermodynamic Fu(T)");
    list.rule('*', kRule);
    function_table(t, pair);
}

}  // namespace

void tell_pages(Teller& t) {
    const calculation::Pages& wanted = t.request.pages;
    if (t.answer.pages->metastable_liquid)
        t.list.add_red("The L phase of these pages is metastable at T and p: the EOS has phase V.");
    if (t.answer.pages->metastable_vapour)
        t.list.add_red("The V phase of these pages is metastable at T and p: the EOS has phase L.");
    if (wanted.residual) residual_page(t);
    if (wanted.derivatives) derivative_page(t);
    if (wanted.functions) function_page(t);
}

}  // namespace quor::report
