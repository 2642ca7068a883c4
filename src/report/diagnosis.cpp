#include "report/diagnosis.h"

#include "common/numbers.h"
#include "common/single.h"
#include "common/text.h"
#include "models/model_tables.h"
#include "report/list_layout.h"
#include "report/quantity_text.h"
#include "report/report.h"

namespace quor::report {

namespace {

constexpr auto kStableL = "(stable, L-phase)", kStableV = "(stable, V-phase)";
constexpr auto kMetastable = "(metastable)", kUnstable = "(unstable)";

/// A number that 32 bits do not hold stands as it is.
std::string quantity_text(const models::Units& units, Dimension dimension, double value) {
    const double z = shown(units, dimension, value);
    return (numbers::fits_single(z) ? value32(z) : numbers::general(z)) + " " +
           unit_name(units, dimension);
}

RootRow root_row(const models::Units& units, int number, double v, const std::string& note) {
    return {"v(" + std::to_string(number) + ") =", quantity_text(units, Dimension::volume, v), note,
            v, note.starts_with("(stable")};
}

/// The only root is stable; it has the name that the result gives its state.
RootRow only_root(const models::Units& units, const calculation::LastState& last) {
    const char* note = last.has_L ? kStableL : kStableV;
    if (last.region == calculation::Region::subcritical) return root_row(units, 1, last.v[0], note);
    return root_row(units, 1, last.v[0], std::string("(stable, ") + region_name(last.region) + ")");
}

std::vector<RootRow> root_rows(const models::Units& units, const calculation::LastState& last) {
    if (last.root_count < 3) return {only_root(units, last)};
    return {root_row(units, 1, last.v[0], last.has_L ? kStableL : kMetastable),
            root_row(units, 2, last.v[1], kUnstable),
            root_row(units, 3, last.v[2], last.has_V ? kStableV : kMetastable)};
}

}  // namespace

Diagnosis diagnose(const models::Fluid& fluid, const calculation::LastState& last,
                   const models::Units& made_with) {
    const models::Units units = listed_units(made_with);
    Diagnosis d;
    static_cast<calculation::Isotherm&>(d) = calculation::isotherm_of(fluid, last);
    d.title = "Cubic Equation of State";
    d.v_axis = units.of(Dimension::volume);
    d.p_axis = units.of(Dimension::pressure);
    if (!(d.T > 0)) return d;
    d.roots = root_rows(units, last);
    d.state = text::trim(models::eos_name(fluid.models().eos)) +
              ",  T = " + quantity_text(units, Dimension::temperature, d.T) +
              ",  p = " + quantity_text(units, Dimension::pressure, d.p);
    d.legend = "dashed: p; full mark: stable root; empty mark: unstable or metastable";
    if (d.saturation_pressure > 0)
        d.legend += "\ndotted: p(LV) = " +
                    quantity_text(units, Dimension::pressure, d.saturation_pressure) +
                    ", which makes the two coloured areas equal";
    return d;
}

}  // namespace quor::report
