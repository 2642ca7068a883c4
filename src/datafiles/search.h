#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "datafiles/database.h"
#include "datafiles/synonyms.h"

namespace quor::datafiles {

/// The place (from 0) of what a user typed: "#49" for a substance number, a name or CASRN exactly
/// as the database has it, else a synonym, or any name of the database, in any usual spelling, also
/// an R-number. The reason of a miss tells whether the substance is known but not in the database.
Result<std::size_t> find_substance(const Database& database, const Synonyms& synonyms,
                                   const std::string& search);

/// True when the synonyms have a text, whether or not a database has the substance.
bool is_known(const Synonyms& synonyms, const std::string& search);

/// Place of a substance number.
std::optional<std::size_t> find_by_number(const Database& database, int number);
/// Place of a CASRN, blanks at the end aside; nothing for an empty one.
std::optional<std::size_t> find_by_casrn(const Database& database, const std::string& casrn);

/// Names of an entry: what stands in front of the first ";" of its name field, then the further
/// names behind it. Never empty.
std::vector<std::string> names_of(std::string_view name_field);
/// The first of these names alone.
std::string first_name_of(std::string_view name_field);
/// A name for captions and files: the first one, but for a systematic name ("1,1,1,2-...") the
/// refrigerant number where there is one, such as "R134a".
std::string short_name_of(std::string_view name_field);
/// Formula and CASRN of an entry as the selection view shows them.
std::string formula_and_casrn(const DatabaseEntry& entry);

}  // namespace quor::datafiles
