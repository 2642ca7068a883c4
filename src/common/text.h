#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Texts: trimming, code pages, fixed fields. Strings are UTF-8 in memory.
namespace quor::text {

/// The part of a text before the blanks at its end, as `trim_right` copies it.
std::string_view without_end_blanks(std::string_view s);
std::string trim_right(std::string_view s);
std::string trim_left(std::string_view s);
std::string trim(std::string_view s);
std::string remove_blanks(std::string_view s);
std::string replace_all(std::string s, std::string_view from, std::string_view to);
/// Upper case, with the umlauts and accented letters of Latin-1.
std::string to_upper(std::string_view s);
/// Parts between separators; an empty text gives one empty part.
std::vector<std::string> split(std::string_view s, char separator);
/// Number of characters, not bytes.
std::size_t length(std::string_view s);
/// The first `width` characters, padded with blanks on the right.
std::string pad_right(std::string_view s, std::size_t width);
/// Padded with blanks on the left; a longer text stays whole.
std::string pad_left(std::string_view s, std::size_t width);

/// Units in a text as they are printed: "m³/kmol" for "m^3/kmol", "kJ/(kg·K)" for "kJ/(kg K)", "°C"
/// for "degC". Everything else stays, and so do other powers and words that only begin like a unit.
std::string with_unit_signs(std::string_view s);

/// Conversions between UTF-8 and the single-byte pages of the files. What cannot be converted
/// becomes '?'.
std::string from_ansi(std::string_view bytes);  ///< code page 1252 to UTF-8
std::string to_ansi(std::string_view s);        ///< UTF-8 to code page 1252
std::string from_oem(std::string_view bytes);   ///< code page 850 to UTF-8
std::string to_oem(std::string_view s);         ///< UTF-8 to code page 850

/// True for bytes that are whole characters of UTF-8.
bool is_utf8(std::string_view bytes);

/// Lines of a text with CR LF, LF or CR ends; a last line end gives no further line.
std::vector<std::string> lines(std::string_view s);

}  // namespace quor::text
