#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "diagrams/diagram.h"
#include "diagrams/process.h"
#include "models/units.h"

/// The input of the parameter of the next curve, and of the range of a function-function diagram.
namespace quor::diagrams {

/// Caption, unit and present value of the input of a section.
struct ParameterField {
    std::string heading;  ///< what kind of curve the value belongs to
    std::string caption;
    std::string unit;
    double value = 0;  ///< in displayed units
};
ParameterField field_of(Section section, const models::Units& units, const StateParameters& at);

/// The unit of the input of a section, in which its values are shown and typed.
models::Scale input_scale(Section section, const models::Units& units);
models::Dimension dimension_of(Section section);

/// A limit of T or p in units of the computation, as the input of a section shows it.
double shown_limit(Section section, const models::Units& units, double limit);

/// The value in the line of captions of the diagram; empty for a section without one.
std::string shown_parameter(Section section, const models::Units& units, const StateParameters& at);

inline constexpr auto kInvalidParameter = "this input not within valid range!";

enum class ParameterStatus : std::uint8_t {
    taken,
    invalid,  ///< out of range; the input says `kInvalidParameter`
    refused,  ///< by a box
};
/// What a typed value, in displayed units, makes of the parameters; unchanged unless it is taken.
struct ParameterAnswer {
    ParameterStatus status = ParameterStatus::invalid;
    StateParameters at;
};
ParameterAnswer take_parameter(Section section, const Basis& basis, const StateParameters& before,
                               double typed);

/// Range of a function-function diagram: the fixed parameter and the range, or why they are
/// refused.
struct RangeAnswer {
    StateParameters at;
    ProcessLine range;
    std::string refusal;  ///< empty: taken
};
/// Values in displayed units: the fixed parameter, and start and end of the running one.
RangeAnswer take_range(Section section, const models::Units& units, const StateParameters& before,
                       const ProcessLine& range, double fixed, double start, double end);

/// A vapour fraction; false outside 0 to 1.
bool is_vapour_fraction(double fraction);

}  // namespace quor::diagrams
