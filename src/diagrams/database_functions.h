#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// The database functions that diagrams show: codes 300 to 310.
namespace quor::Module9 {

/// Code of the vapour pressure equation of diagram 306 to 309; empty for any other diagram.
std::string_view pressure_equation_of(std::int16_t DiagramType);

/// Diagram 301 shows a molar or a specific volume, in reduced mode by the unit of the caloric
/// values; the factor on molar volumes belongs to it.
bool liquid_volume_is_specific();
double liquid_volume_factor();

/// Value at T/K in displayed units; nothing where the function has none.
std::optional<double> database_value(std::int16_t DiagramType, double T);

/// Range of validity in K; both 0 when the substance has no such function.
struct Validity {
    double low = 0, high = 0;
};
Validity validity_of(std::int16_t DiagramType);
bool HasDatabaseFunction(std::int16_t DiagramType);

/// Values at the ends of the validity, in displayed units, ascending and never equal.
struct ValueRange {
    double low = 0, high = 0;
};
ValueRange value_range_of(std::int16_t DiagramType);

}  // namespace quor::Module9
