#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers in the cells of text files and tables.
namespace quor::datafiles {

/// The leading number of a cell, point as decimal mark; 0 for a text, and for a number that no
/// double can hold.
double cell_number(std::string_view cell);
/// A value narrowed to 32 bits; 0 for one that 32 bits cannot hold.
float single_or_zero(double value);

/// A value narrowed to 32 bits; nothing for one that 32 bits cannot hold, be it too large or so
/// small that it would become 0.
std::optional<float> single(std::optional<double> value);

/// The shortest text with a point that reads back as the very same value.
std::string exact(double value);
std::string exact(float value);

}  // namespace quor::datafiles
