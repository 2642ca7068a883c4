#include "common/numbers.h"

#include <atomic>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "common/faults.h"

namespace quor::numbers {

namespace {

/// One a process, as the locale is; read by every thread that writes a number.
std::atomic<char> mark = '.';

bool is_placeholder(char c) {
    return c == '0' || c == '#';
}

/// The digits of |value| rounded half away from zero to `decimals` places, as integer and
/// fractional parts. The shortest decimal form of the value is rounded, so that 2.675 gives 2.68
/// as a reader of the number expects.
struct Digits {
    std::string integer, fraction;
};

Digits round_decimal(double magnitude, int decimals) {
    char buffer[400];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::fixed);
    const std::string_view all(buffer, static_cast<std::size_t>(result.ptr - buffer));
    const std::size_t dot = all.find('.');
    std::string integer(all.substr(0, dot));
    std::string fraction(dot == std::string_view::npos ? std::string_view() : all.substr(dot + 1));

    const auto places = static_cast<std::size_t>(decimals);
    if (fraction.size() <= places) {
        fraction.append(places - fraction.size(), '0');
        return {integer, fraction};
    }
    const bool up = fraction[places] >= '5';
    fraction.resize(places);
    if (up) {
        std::string both = integer + fraction;
        std::size_t i = both.size();
        while (i > 0 && both[i - 1] == '9') both[--i] = '0';
        if (i > 0) {
            ++both[i - 1];
        } else {
            both.insert(both.begin(), '1');
        }
        integer = both.substr(0, both.size() - places);
        fraction = both.substr(both.size() - places);
    }
    return {integer, fraction};
}

/// One section of a mask, taken apart.
struct Mask {
    std::string before, after;  // literal texts round the number
    int integer_zeros = 0;      // '0' places before the point
    int integer_places = 0;     // all places before the point
    int decimals = 0;           // all places behind the point
    int decimal_zeros = 0;      // places behind the point that always show
    bool point = false;
    bool percent = false;
    int exponent_digits = 0;  // 0: no exponent
    bool exponent_plus = false;
    bool has_number = false;
};

Mask parse(std::string_view m) {
    Mask r;
    std::size_t i = 0;
    while (i < m.size() && !is_placeholder(m[i]) &&
           !(m[i] == '.' && i + 1 < m.size() && is_placeholder(m[i + 1]))) {
        if (m[i] == '%') r.percent = true;
        r.before += m[i++];
    }
    for (; i < m.size() && is_placeholder(m[i]); ++i) {
        ++r.integer_places;
        if (m[i] == '0' || r.integer_zeros > 0) ++r.integer_zeros;
        r.has_number = true;
    }
    if (i < m.size() && m[i] == '.') {
        r.point = true;
        for (++i; i < m.size() && is_placeholder(m[i]); ++i) {
            ++r.decimals;
            if (m[i] == '0') r.decimal_zeros = r.decimals;
            r.has_number = true;
        }
    }
    if (i + 2 < m.size() && m[i] == 'E' && (m[i + 1] == '+' || m[i + 1] == '-') &&
        m[i + 2] == '0') {
        r.exponent_plus = m[i + 1] == '+';
        for (i += 2; i < m.size() && m[i] == '0'; ++i) ++r.exponent_digits;
    }
    for (; i < m.size(); ++i) {
        if (m[i] == '%') r.percent = true;
        r.after += m[i];
    }
    return r;
}

std::string assemble(const Mask& m, Digits d, char point) {
    // A leading zero shows only where the mask has a '0' before the point.
    while (d.integer.size() > 1 && d.integer.front() == '0') d.integer.erase(0, 1);
    if (d.integer == "0" && m.integer_zeros == 0) d.integer.clear();
    while (static_cast<int>(d.integer.size()) < m.integer_zeros) d.integer.insert(0, 1, '0');
    while (static_cast<int>(d.fraction.size()) > m.decimal_zeros && d.fraction.back() == '0')
        d.fraction.pop_back();
    std::string r = d.integer;
    if (m.point) r += point + d.fraction;
    return r;
}

std::string format_section(double magnitude, const Mask& m, char point) {
    if (!m.has_number) return m.before + m.after;
    if (m.percent) magnitude *= 100.0;
    if (m.exponent_digits == 0)
        return m.before + assemble(m, round_decimal(magnitude, m.decimals), point) + m.after;

    // Mantissa with `integer_places` digits before the point; rounding may carry into the exponent.
    int exponent = 0;
    Digits d;
    if (magnitude == 0.0) {
        d = round_decimal(0.0, m.decimals);
    } else {
        char buffer[64];
        const int significant = std::max(1, m.integer_places + m.decimals);
        // The shortest form first, so that a tie is seen as a reader sees it.
        const auto shortest =
            std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific);
        const std::string_view all(buffer, static_cast<std::size_t>(shortest.ptr - buffer));
        const std::size_t e = all.find('e');
        std::from_chars(all.data() + e + (all[e + 1] == '+' ? 2 : 1), all.data() + all.size(),
                        exponent);
        double mantissa = 0;
        std::from_chars(all.data(), all.data() + e, mantissa);
        Digits rounded = round_decimal(mantissa, significant - 1);
        std::string digits = rounded.integer + rounded.fraction;
        if (rounded.integer.size() > 1) {
            ++exponent;
            digits.pop_back();
        }
        exponent -= m.integer_places - 1;
        const auto split = static_cast<std::size_t>(m.integer_places);
        d.integer = m.integer_places == 0 ? "0" : digits.substr(0, split);
        d.fraction = digits.substr(split);
    }
    char exponent_text[16];
    std::snprintf(exponent_text, sizeof exponent_text, "%0*d", m.exponent_digits,
                  std::abs(exponent));
    std::string sign = exponent < 0 ? "-" : (m.exponent_plus ? "+" : "");
    return m.before + assemble(m, d, point) + "E" + sign + exponent_text + m.after;
}

std::string format_with(double value, std::string_view mask, char point) {
    const std::size_t semicolon = mask.find(';');
    const std::string_view positive = mask.substr(0, semicolon);
    if (value < 0 && semicolon != std::string_view::npos)
        return format_section(-value, parse(mask.substr(semicolon + 1)), point);
    const std::string body = format_section(std::fabs(value), parse(positive), point);
    if (!(value < 0)) return body;
    // A value that rounds to zero carries no sign.
    return body.find_first_of("123456789") == std::string::npos ? body : "-" + body;
}

std::string general(double value, int digits, char point) {
    if (value == 0.0) return "0";
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*G", digits, value);
    std::string s(buffer);
    if (point != '.') {
        const std::size_t dot = s.find('.');
        if (dot != std::string::npos) s[dot] = point;
    }
    return s;
}

double leading_number(std::string_view s, bool comma) {
    std::string number;
    bool digits = false, point = false;
    std::size_t i = 0;
    const auto next = [&] {
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
        return i < s.size() ? s[i] : '\0';
    };
    if (next() == '+' || s.substr(i, 1) == "-") number += s[i] == '-' ? "-" : "", ++i;
    for (char c = next(); c != '\0'; c = next()) {
        if (c >= '0' && c <= '9') {
            digits = true;
            number += c;
        } else if ((c == '.' || (comma && c == ',')) && !point) {
            point = true;
            number += '.';
        } else {
            break;
        }
        ++i;
    }
    if (!digits) return 0.0;
    const char c = next();
    if (c == 'E' || c == 'e' || c == 'D' || c == 'd') {
        std::string exponent = "e";
        ++i;
        if (next() == '+' || (i < s.size() && s[i] == '-')) {
            if (s[i] == '-') exponent += '-';
            ++i;
        }
        bool any = false;
        for (; i < s.size() && s[i] >= '0' && s[i] <= '9'; ++i) {
            exponent += s[i];
            any = true;
        }
        if (any) number += exponent;
    }
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large is a fault of the one who uses it; too small is nothing.
        return number.find("e-") != std::string::npos ? 0.0
               : number.front() == '-'                ? -std::numeric_limits<double>::max()
                                                      : std::numeric_limits<double>::max();
    }
    return value;
}

}  // namespace

char decimal_mark() {
    return mark;
}
void set_decimal_mark(char m) {
    mark = m;
}

std::string format(double value, std::string_view mask) {
    return format_with(value, mask, mark);
}
std::string format_point(double value, std::string_view mask) {
    return format_with(value, mask, '.');
}

std::string general(float value) {
    return general(static_cast<double>(value), 7, mark);
}
std::string general(double value) {
    return general(value, 15, mark);
}
std::string general(double value, int digits) {
    return general(value, digits, mark);
}
std::string general_point(float value) {
    return general(static_cast<double>(value), 7, '.');
}
std::string general_point(double value) {
    return general(value, 15, '.');
}

double val(std::string_view s) {
    return leading_number(s, false);
}
double val_input(std::string_view s) {
    return leading_number(s, true);
}

double round_half_even(double value) {
    return std::nearbyint(value);
}

std::int16_t to_int16(double value) {
    const double r = std::nearbyint(value);
    if (!(r >= -32768.0 && r <= 32767.0)) throw faults::Fault(faults::kOverflow);
    return static_cast<std::int16_t>(r);
}

std::int32_t to_int32(double value) {
    const double r = std::nearbyint(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) throw faults::Fault(faults::kOverflow);
    return static_cast<std::int32_t>(r);
}

float to_single(double value) {
    if (!(std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max())))
        throw faults::Fault(faults::kOverflow);
    return static_cast<float>(value);
}

double round_down(double value) {
    return std::floor(value);
}
double round4(double value) {
    return std::floor(value * 10000.0 + 0.5) / 10000.0;
}

std::string comma_to_point(std::string s) {
    for (char& c : s)
        if (c == ',') c = '.';
    return s;
}

}  // namespace quor::numbers
