#include "chart/text_measure.h"

#include <algorithm>

namespace quor::chart {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isMantissa(std::string_view s) {
    if (!s.empty() && s.front() == '-') s.remove_prefix(1);
    return !s.empty() && isDigit(s.front()) && std::all_of(s.begin(), s.end(), [](char c) {
        return isDigit(c) || c == '.' || c == ',';
    });
}

bool isWholeNumber(std::string_view s) {
    if (!s.empty() && s.front() == '-') s.remove_prefix(1);
    return !s.empty() && std::all_of(s.begin(), s.end(), isDigit);
}

}  // namespace

std::optional<PowerText> AsPower(const std::string& text) {
    const auto mark = text.find('e');
    if (mark == std::string::npos) return std::nullopt;
    const std::string mantissa = text.substr(0, mark), exponent = text.substr(mark + 1);
    if (!isMantissa(mantissa) || !isWholeNumber(exponent)) return std::nullopt;
    return PowerText{mantissa == "1" ? "" : mantissa, exponent};
}

}  // namespace quor::chart
