#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/result.h"
#include "models/units.h"

/// Units and quantities as users and files write them.
namespace quor::models {

/// True when a text may become the name of a unit of a quantity as it is typed on.
bool begins_unit(Dimension dimension, std::string_view text);

/// What stands behind the number of a typed text: "bar" of "12.5 bar"; empty for a number alone.
std::string_view unit_part(std::string_view text);

/// The quantity that has a unit of this very name; nothing for any other text.
std::optional<Dimension> dimension_of_unit(std::string_view name);

/// Key and word of a quantity: "T" and "temperature".
std::string_view key_of(Dimension dimension);
std::string_view word_of(Dimension dimension);

/// The unit of a name as users write it: "degC", "°C", "C", "m3/kg", "bar g", "psig"; nullptr for
/// any other text.
const Unit* find_unit(Dimension dimension, std::string_view name);

/// "T=degC,p=bar,h=kJ/kg": those units of a choice that differ from SI molar; empty for none.
std::string text_of(const UnitChoice& choice);
/// The choice of such a text, or of the key or name of a ready set; the failure names the part that
/// is none.
Result<UnitChoice> read_choice(std::string_view text);

/// A number as it is typed, with or without its unit: "27 degC", "12 bar", "3 MPa(g)". The value in
/// the unit of `field`; without a unit the number itself. The failure says what is wrong.
Result<double> typed_value(std::string_view text, Dimension dimension, const Scale& field,
                           const Fluid& fluid);

/// A unit with superscripts, middle dots and signs of degree: "m³/kmol", "kJ/(kg·K)", "°C".
std::string pretty_unit(std::string_view name);

}  // namespace quor::models
