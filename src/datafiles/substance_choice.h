#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quor::datafiles {

/// Names of an entry of the database: what stands in front of the first ";" of its name field, then
/// the further names behind it. Never empty.
std::vector<std::string> names_of(std::string_view nameField);

/// The first of these names alone.
std::string first_name_of(std::string_view nameField);

/// Formula and CASRN of an entry (1 to `SubstanceCount`) as the selection view shows them; empty
/// for another index.
std::string formula_and_casrn(std::int16_t index);

/// Makes an entry of the open database (1 to `SubstanceCount`) the substance of the session: the
/// session is reset, loaded experimental data are questioned, the record is read, and what depends
/// on it is computed. False when the substance cannot be calculated with, which is told; then no
/// models can be chosen.
bool take_substance(std::int16_t index);

}  // namespace quor::datafiles
