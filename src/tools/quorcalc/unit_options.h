#pragma once

#include "tools/quorcalc/commands.h"

/// Numbers of a call and of its result in units of the user's choice.
namespace quor::quorcalc {

/// The units of a call's option; throws `WrongCall` with the name of the option.
models::UnitChoice choice_of(std::string_view option, const std::string& text);

/// The numbers of a call that has --in-units, in K, kPa, m^3/kmol, kg/m^3, m^3, kg, kJ/kmol and
/// kJ/(kmol K); any other call as it is. Units of mass and amount need the substance, which is set
/// up for them. Throws as `set_up`.
Arguments in_base_units(Call& call, const Arguments& arguments);

/// Turns the numbers of a result into the units of --out-units, wherever they stand under the name
/// of their quantity, and names the unit of each.
void to_out_units(const session::Session& session, Json& result);

}  // namespace quor::quorcalc
