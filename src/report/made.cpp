#include "report/made.h"

#include "common/text.h"
#include "models/model_tables.h"
#include "models/reference_state.h"
#include "report/quantity_text.h"

namespace quor::report {

Made make_made(const models::Fluid& fluid, const models::ReferenceState& reference,
               const models::UnitChoice& choice) {
    Made made{fluid, reference, models::make_units(choice, fluid)};
    models::settle_reference(made.reference);
    return made;
}

bool is_out_of_date(const Made& made, const Made& present) {
    return !(made == present);
}

const char* caloric_name(models::CaloricUnit unit) {
    switch (unit) {
        case models::CaloricUnit::kelvin:
            return "K";
        case models::CaloricUnit::RT:
            return "R T";
        case models::CaloricUnit::specific:
            return "kJ/kg";
        case models::CaloricUnit::molar:
            break;
    }
    return "kJ/kmol";
}

namespace {

/// Those of T, p, v and h.
std::string main_units(const models::Units& units) {
    std::string all;
    for (const Dimension dimension :
         {Dimension::temperature, Dimension::pressure, Dimension::volume, Dimension::energy})
        all += (all.empty() ? "" : ", ") + unit_name(units, dimension);
    return all;
}

}  // namespace

std::string name_of(const Made& made) {
    return made.fluid.substance().name + ", " +
           text::trim(models::eos_name(made.fluid.models().eos)) + "; " +
           (has_own_units(made.units) ? main_units(made.units) : units_line(made.units));
}

std::string units_line(const models::Units& units) {
    if (has_own_units(units)) return unit_names(units);
    return text::trim(units.v_label) + ", " + caloric_name(units.choice.caloric);
}

}  // namespace quor::report
