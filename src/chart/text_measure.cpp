#include "chart/text_measure.h"

#include <algorithm>
#include <map>
#include <memory>
#include <tuple>

namespace quor::chart {

namespace {

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool is_mantissa(std::string_view s) {
    if (!s.empty() && s.front() == '-') s.remove_prefix(1);
    return !s.empty() && is_digit(s.front()) && std::all_of(s.begin(), s.end(), [](char c) {
        return is_digit(c) || c == '.' || c == ',';
    });
}

bool is_whole_number(std::string_view s) {
    if (!s.empty() && s.front() == '-') s.remove_prefix(1);
    return !s.empty() && std::all_of(s.begin(), s.end(), is_digit);
}

}  // namespace

MeasureText measured_once(const MeasureText& measure) {
    using Key = std::tuple<std::string, std::string, float, bool, bool>;
    auto known = std::make_shared<std::map<Key, TextSize>>();
    return [known, measure](const std::string& text, const Font& font) {
        const Key key{text, font.family, font.size, font.bold, font.italic};
        const auto it = known->find(key);
        return it != known->end() ? it->second : (*known)[key] = measure(text, font);
    };
}

std::optional<PowerText> as_power(const std::string& text) {
    const auto mark = text.find('e');
    if (mark == std::string::npos) return std::nullopt;
    const std::string mantissa = text.substr(0, mark), exponent = text.substr(mark + 1);
    if (!is_mantissa(mantissa) || !is_whole_number(exponent)) return std::nullopt;
    return PowerText{mantissa == "1" ? "" : mantissa, exponent};
}

}  // namespace quor::chart
