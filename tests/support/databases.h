#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Small substance databases for tests, made of rows of data/substances.csv.
namespace databases {

/// A row of the table: cells by column name. Cells may be changed or emptied.
using TableRow = std::map<std::string, std::string, std::less<>>;

/// The row of a substance by its English name; throws when there is none.
TableRow Row(std::string_view englishName);

/// Writes a database of these rows.
void Write(const std::filesystem::path& file, const std::vector<TableRow>& rows);

/// Writes a database of all substances of the table.
void WriteAll(const std::filesystem::path& file);

}  // namespace databases
