#include "common/numbers.h"

#include <atomic>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "common/faults.h"
#include "common/single.h"

namespace quor::numbers {

namespace {

/// One a process, as the locale is; read by every thread that writes a number.
std::atomic<char> mark = '.';

bool is_blank(char c) {
    return c == ' ' || c == '\t';
}

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
    std::string exponent_text = std::to_string(std::abs(exponent));
    while (static_cast<int>(exponent_text.size()) < m.exponent_digits)
        exponent_text.insert(0, 1, '0');
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
    const auto written =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
    std::string s(buffer, written.ptr);
    for (char& c : s) {
        if (c == '.') c = point;
        if (c == 'e') c = 'E';
    }
    return s;
}

/// Takes a number from the head of a text, as `std::from_chars` reads it.
class NumberReader {
  public:
    /// `comma`: a comma counts as a point. `blanks`: those within the number do not count.
    NumberReader(std::string_view text, bool comma, bool blanks)
        : text_(text), comma_(comma), blanks_(blanks) {}

    /// The number in plain form; empty for none.
    std::string take() {
        std::string number = sign();
        const std::string whole = digits(blanks_);
        std::string fraction;
        const bool point = accept('.') || (comma_ && accept(','));
        if (point) fraction = digits(blanks_);
        if (whole.empty() && fraction.empty()) return {};
        number += whole;
        if (point) number += "." + fraction;
        return number + exponent();
    }

    bool at_end() const { return at_ == text_.size(); }

  private:
    bool accept(char wanted) {
        skip_blanks();
        if (at_end() || text_[at_] != wanted) return false;
        ++at_;
        return true;
    }
    void skip_blanks() {
        while (blanks_ && !at_end() && is_blank(text_[at_])) ++at_;
    }
    std::string sign() {
        if (accept('-')) return "-";
        accept('+');
        return {};
    }
    std::string digits(bool across_blanks) {
        std::string found;
        for (;; ++at_) {
            if (across_blanks) skip_blanks();
            if (at_end() || text_[at_] < '0' || text_[at_] > '9') return found;
            found += text_[at_];
        }
    }
    /// "e-3", or nothing, with nothing taken, where there are no digits behind the letter.
    std::string exponent() {
        const std::size_t start = at_;
        if (accept('E') || accept('e') || accept('D') || accept('d')) {
            const std::string before = sign();
            const std::string power = digits(false);
            if (!power.empty()) return "e" + before + power;
        }
        at_ = start;
        return {};
    }

    std::string_view text_;
    std::size_t at_ = 0;
    bool comma_, blanks_;
};

/// The value of a number as `NumberReader` gives it; nothing beyond the range of a double, 0 for
/// what is too small for one.
std::optional<double> value_of(const std::string& number) {
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    return number.find("e-") != std::string::npos ? std::optional(0.0) : std::nullopt;
}

double leading_number(std::string_view s, bool comma) {
    const std::string number = NumberReader(s, comma, true).take();
    if (number.empty()) return 0.0;
    // Too large is a fault of the one who uses it.
    constexpr double largest = std::numeric_limits<double>::max();
    return value_of(number).value_or(number.front() == '-' ? -largest : largest);
}

std::optional<double> whole_text(std::string_view s, bool comma) {
    while (!s.empty() && is_blank(s.front())) s.remove_prefix(1);
    while (!s.empty() && is_blank(s.back())) s.remove_suffix(1);
    NumberReader reader(s, comma, false);
    const std::string number = reader.take();
    if (number.empty() || !reader.at_end()) return std::nullopt;
    return value_of(number);
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
std::optional<double> number(std::string_view s) {
    return whole_text(s, false);
}
std::optional<double> typed_number(std::string_view s) {
    return whole_text(s, true);
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
    if (!fits_single(value)) throw faults::Fault(faults::kOverflow);
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
