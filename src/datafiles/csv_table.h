#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"

namespace quor::datafiles {

/// A line of a table and the number (from 1) of the file's line where it begins.
struct CsvRow {
    std::size_t line = 0;
    std::vector<std::string> cells;
};

/// Splits a text of comma-separated values into its lines that are not empty. A cell in double
/// quotes may hold commas, line ends and doubled quotes. A byte order mark is left out. Refused
/// when a quote is never closed.
Result<std::vector<CsvRow>> split_csv(std::string_view csv);

}  // namespace quor::datafiles
