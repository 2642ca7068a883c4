#pragma once

#include <cstdint>
#include <string>

/// The input of the parameter of the next curve, and of the range of a function-function diagram.
namespace quor::Module9 {

/// Caption, unit and present value of the input, by the section kind of `legacy::the_diagram`.
struct ParameterField {
    std::string heading;  ///< what kind of curve the value belongs to
    std::string caption;
    std::string unit;
    double value = 0;  ///< in displayed units
};
ParameterField field_of(std::int16_t sectionKind);

/// The value in the line of captions of the diagram.
std::string shown_parameter(std::int16_t sectionKind);

inline constexpr auto kInvalidParameter = "this input not within valid range!";

/// Takes a typed value, in displayed units, into the session. False when it is out of range (the
/// input says `kInvalidParameter`) or refused by a box.
enum class ParameterAnswer : std::uint8_t { Taken, Invalid, Refused };
ParameterAnswer take_parameter(std::int16_t sectionKind, double typed);

/// Range of a function-function diagram in displayed units: the fixed parameter, and start and end
/// of the running one. Empty text: taken into the session; else the reason of the refusal.
std::string take_range(std::int16_t sectionKind, double fixed, double start, double end);

/// A vapour fraction; false outside 0 to 1.
bool is_vapour_fraction(double fraction);

}  // namespace quor::Module9
