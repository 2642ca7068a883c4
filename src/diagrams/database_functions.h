#pragma once

#include <optional>

#include "diagrams/diagram.h"

/// The functions of the database that diagrams show.
namespace quor::diagrams {

/// The volume of the liquid is shown molar or specific, in reduced units by the unit of the caloric
/// values; the factor on molar volumes belongs to it, and throws `faults::Fault` without a molar
/// mass.
bool liquid_volume_is_specific(const models::UnitChoice& units);
double liquid_volume_factor(const Basis& basis);

/// Value at T/K in displayed units; nothing where the function has none.
std::optional<double> database_value(const Diagram& diagram, const Basis& basis, double T);

/// Range of validity in K; both 0 when the substance has no such function.
Validity validity_of(const Diagram& diagram, const models::Fluid& fluid);
bool has_database_function(const Diagram& diagram, const models::Fluid& fluid);

/// Values at the ends of the validity, in displayed units, ascending and never equal.
struct ValueRange {
    double low = 0, high = 0;
};
ValueRange value_range_of(const Diagram& diagram, const Basis& basis);

}  // namespace quor::diagrams
