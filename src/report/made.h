#pragma once

#include <string>

#include "models/fluid.h"
#include "models/reference_record.h"
#include "models/units.h"

/// All wording of results: lists, pages, protocols, comparison lists; units and number masks.
namespace quor::report {

/// What a result was made with; every result keeps it by value.
struct Made {
    models::Fluid fluid;
    models::ReferenceState reference;
    models::Units units;

    bool operator==(const Made&) const = default;
};

/// The three together, the reference state settled. Throws `faults::Fault` where a molar mass is
/// needed and there is none.
Made make_made(const models::Fluid& fluid, const models::ReferenceState& reference,
               const models::UnitChoice& choice);

/// True when a result does not stand for the present fluid, reference state and units any more.
bool is_out_of_date(const Made& made, const Made& present);

/// "Propane, CEOS Peng / Robinson; m^3/kmol, kJ/kmol": what an outdated result is marked with.
std::string name_of(const Made& made);

/// "m^3/kmol, kJ/kmol"; all units where one of them is of the user's choice.
std::string units_line(const models::Units& units);
/// The unit of h and its kin: "kJ/kmol", "K", "R T" or "kJ/kg".
const char* caloric_name(models::CaloricUnit unit);

}  // namespace quor::report
