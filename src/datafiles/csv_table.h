#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quor::datafiles {

/// A line of a table and the number (from 1) of the file's line where it begins.
struct CsvRow {
    std::size_t line = 0;
    std::vector<std::string> cells;
};

struct CsvTable {
    std::vector<CsvRow> rows;  ///< without empty lines
    std::string error;         ///< a sentence about a quote that is never closed, else empty
};

/// Splits a text of comma-separated values. A cell in double quotes may hold commas, line ends and
/// doubled quotes. A byte order mark is left out.
CsvTable split_csv(std::string_view csv);

}  // namespace quor::datafiles
