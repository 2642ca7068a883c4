#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers as text and the exact rounding rules, in one place. Nothing here looks at the locale of
/// the process, which the windows set to that of the user.
namespace quor::numbers {

/// The locale's decimal mark, '.' or ','; injected by the program at its start and by tests. It
/// holds for all threads.
char decimal_mark();
void set_decimal_mark(char mark);

/// A value by a mask: '#' optional digit, '0' digit, '.' decimal mark, 'E+00' exponent, '%'
/// multiplies by 100, a section behind ';' serves negative values; all else stands as it is.
/// Rounds half away from zero and uses the locale's decimal mark.
std::string format(double value, std::string_view mask);

/// As `format`, with a point whatever the locale.
std::string format_point(double value, std::string_view mask);

/// General format with 7 significant digits (32-bit values), locale's decimal mark.
std::string general(float value);
/// General format with 15 significant digits (64-bit values), locale's decimal mark.
std::string general(double value);
/// The same with `digits` significant digits at most, 1 to 17.
std::string general(double value, int digits);
/// General formats with a point whatever the locale.
std::string general_point(float value);
std::string general_point(double value);

/// The leading number of a text (blanks skipped, point as decimal mark), 0 if there is none.
double val(std::string_view text);
/// As `val`, but a comma counts as a point: for what a user types.
double val_input(std::string_view text);

/// The value of a text that is one finite number from end to end, blanks round it aside, point as
/// decimal mark; nothing for any other text, such as "12 K", "3 000" or "1,234.5".
std::optional<double> number(std::string_view text);
/// As `number`, with a point or a comma as the decimal mark: for what a user types or pastes.
std::optional<double> typed_number(std::string_view text);

/// Nearest whole number, a tie to the even one.
double round_half_even(double value);
/// Nearest whole number as 16 bits; throws `faults::Fault` ("Overflow") beyond its range.
std::int16_t to_int16(double value);
/// Nearest whole number as 32 bits; throws `faults::Fault` ("Overflow") beyond its range.
std::int32_t to_int32(double value);
/// Narrowing to 32 bits; throws `faults::Fault` ("Overflow") beyond its range.
float to_single(double value);
/// Largest whole number not above the value.
double round_down(double value);
/// Int(x * 10000 + 0.5) / 10000: the rounding of M, Tcrit and pcrit.
double round4(double value);

/// The text with every comma turned into a point.
std::string comma_to_point(std::string text);

}  // namespace quor::numbers
