#pragma once

#include <optional>
#include <string>
#include <vector>

#include "diagrams/curve_point.h"
#include "diagrams/diagram.h"

/// Units of the axes: curves are computed in those of `UnitChoice::system` and `caloric`, and shown
/// in those that the choice names for a quantity.
namespace quor::diagrams {

/// From one number to another: value * factor + zero.
struct AxisScale {
    double factor = 1, zero = 0;

    double operator()(double value) const { return value * factor + zero; }
    double back(double value) const { return (value - zero) / factor; }
    bool is_identity() const { return factor == 1 && zero == 0; }
    bool operator==(const AxisScale&) const = default;
};

/// True when an axis shows a unit of its own instead of that of the computation. Units on R T
/// belong to the T of each state: an axis has them only where the computation has them as well.
bool has_own_unit(Axis axis, const models::UnitChoice& choice);

/// What an axis shows of a value in K, kPa, m^3/kmol, kg/m^3, kJ/kmol or kJ/(kmol K), or of what is
/// made of these; `row` is the diagram of the axis, or nullptr. 1/T, ln p, p v and differential
/// quotients count pressures as absolute, degC as K and degF as degR. Nothing where the fluid has
/// not what the unit refers to, and for units on R T.
std::optional<AxisScale> axis_scale(const Diagram* row, Axis axis, const models::UnitChoice& choice,
                                    const models::Fluid& fluid);

/// From what an axis shows in one choice of units to what it shows in another; nothing as above.
std::optional<AxisScale> conversion(const Diagram* row, Axis axis, const models::UnitChoice& from,
                                    const models::UnitChoice& to, const models::Fluid& fluid);

/// From numbers as they are computed to those that are shown.
AxisScale shown_scale(const Diagram* row, Axis axis, const Basis& basis);

/// The same for both axes of a diagram.
struct AxisScales {
    AxisScale x, y;

    bool are_identity() const { return x.is_identity() && y.is_identity(); }
    CurveWindow shown(const CurveWindow& computed) const;
    CurveWindow computed(const CurveWindow& shown) const;
};
AxisScales shown_scales(const Diagram& diagram, const Basis& basis);

/// The unit of an axis that shows one quantity, own or of the computation; nothing for logarithms,
/// products, quotients and units on R T.
std::optional<models::Unit> plain_unit_of(const Diagram* row, Axis axis,
                                          const models::UnitChoice& choice);

/// Text of an axis with a unit of its own, such as "p / bar(g)" or "ln(p/psi)".
std::string own_axis_text(Axis axis, const models::UnitChoice& choice);

/// A text with units as windows show it: those of a choice with units of its own are printed with
/// their signs, the told ones stay.
std::string window_text(const std::string& text, const models::UnitChoice& choice);

/// The choices of units with which an axis has a text, without blanks around it; what the axis does
/// not show is as in `others`, caloric quantities in units of one kind.
std::vector<models::UnitChoice> choices_with_text(Axis axis, const std::string& text,
                                                  const models::UnitChoice& others);

/// The quantity of a parameter; only for one that is not `none`.
models::Dimension dimension_of(Parameter parameter);
/// The unit in which T/K, p/kPa or v in m^3/kmol is shown; nullptr for that of the computation.
const models::Scale* own_scale(Parameter parameter, const models::Units& units);

}  // namespace quor::diagrams
