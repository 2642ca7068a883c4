#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "datafiles/substance_file.h"

namespace quor::datafiles {

/// A table of substances turned into records of a database.
struct DatabaseTable {
    std::vector<SubstanceFileRecord> records;
    std::vector<std::string> errors;  ///< sentences with line and column; empty when all is well
};

/// Reads a table of comma-separated values (UTF-8, a line of column names first). Columns: formula,
/// name_en, synonyms_en, name_de, synonyms_de, casrn, number; the values by the names of
/// `find_column`; slot_1 to slot_124 for slots without a name; columns that begin with "src_" tell
/// sources and are not read. An empty cell is no value (slot 0), a 0 a real zero (1E-37), but for
/// temperature bounds, where 0 means "none" or "single point". Synonyms stand behind the name as
/// far as whole ones fit in. Without a column of numbers the substances are counted.
DatabaseTable read_database_table(std::string_view csv);

/// The bytes of a database file of these substances.
std::string database_bytes(std::span<const SubstanceFileRecord> records);

/// A name field: the name and as many whole synonyms behind it, each after ";", as 40 characters
/// hold. Synonyms are separated by ";" and may also stand behind the name itself.
std::string name_field(std::string_view name, std::string_view synonyms);

}  // namespace quor::datafiles
