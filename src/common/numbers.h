#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers as text and the exact rounding rules, in one place.
namespace quor::numbers {

/// The locale's decimal mark, '.' or ','; injected by the program and by tests.
char decimal_mark();
void set_decimal_mark(char mark);

/// A value by a mask: '#' optional digit, '0' digit, '.' decimal mark, 'E+00' exponent, '%'
/// multiplies by 100, a section behind ';' serves negative values; all else stands as it is.
/// Rounds half away from zero and uses the locale's decimal mark.
std::string Format(double value, std::string_view mask);

/// As `Format`, with a point whatever the locale.
std::string FormatPoint(double value, std::string_view mask);

/// General format with 7 significant digits (32-bit values), locale's decimal mark.
std::string General(float value);
/// General format with 15 significant digits (64-bit values), locale's decimal mark.
std::string General(double value);
/// General formats with a point whatever the locale.
std::string GeneralPoint(float value);
std::string GeneralPoint(double value);

/// The leading number of a text (blanks skipped, point as decimal mark), 0 if there is none.
double Val(std::string_view text);
/// As `Val`, but a comma counts as a point: for what a user types.
double ValInput(std::string_view text);

/// Nearest whole number, a tie to the even one.
double RoundHalfEven(double value);
/// Nearest whole number as 16 bits; throws `faults::Fault` ("Overflow") beyond its range.
std::int16_t ToInt16(double value);
/// Nearest whole number as 32 bits; throws `faults::Fault` ("Overflow") beyond its range.
std::int32_t ToInt32(double value);
/// Narrowing to 32 bits; throws `faults::Fault` ("Overflow") beyond its range.
float ToSingle(double value);
/// Largest whole number not above the value.
double Int(double value);
/// Int(x * 10000 + 0.5) / 10000: the rounding of M, Tcrit and pcrit.
double Round4(double value);

/// The text with every comma turned into a point.
std::string CommaToPoint(std::string text);

}  // namespace quor::numbers
