#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers in the cells of text files and tables.
namespace quor::datafiles {

/// The leading number of a cell, point as decimal mark; 0 for a text, and for a number that no
/// double can hold.
double cell_number(std::string_view cell);
/// As `cell_number`, but a comma counts as a point.
double cell_number_input(std::string_view cell);
/// The same as 32-bit values; 0 beyond their range.
float cell_single(std::string_view cell);
float cell_single_input(std::string_view cell);

/// A value narrowed to 32 bits; 0 for one that 32 bits cannot hold.
float single_or_zero(double value);

/// The value of a cell that is a finite number from end to end, point as decimal mark.
std::optional<double> parse_number(std::string_view cell);

/// The shortest text with a point that reads back as the very same value.
std::string exact(double value);
std::string exact(float value);

}  // namespace quor::datafiles
