#include "datafiles/cell_numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "common/numbers.h"
#include "common/text.h"

namespace quor::datafiles {

namespace {

/// `numbers::val` gives the largest double where a number is too large for one.
double or_zero(double value) {
    return std::fabs(value) < std::numeric_limits<double>::max() ? value : 0.0;
}

template <class Real>
std::string shortest(Real value) {
    if (!std::isfinite(value)) return "0";
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return text::to_upper(
        std::string_view(buffer.data(), static_cast<std::size_t>(end - buffer.data())));
}

}  // namespace

double cell_number(std::string_view cell) {
    return or_zero(numbers::val(cell));
}
double cell_number_input(std::string_view cell) {
    return or_zero(numbers::val_input(cell));
}
float cell_single(std::string_view cell) {
    return single_or_zero(cell_number(cell));
}
float cell_single_input(std::string_view cell) {
    return single_or_zero(cell_number_input(cell));
}

float single_or_zero(double value) {
    const double largest = static_cast<double>(std::numeric_limits<float>::max());
    return std::fabs(value) <= largest ? static_cast<float>(value) : 0.0F;
}

std::optional<double> parse_number(std::string_view cell) {
    const std::string trimmed = text::trim(cell);
    const char* first = trimmed.data() + (trimmed.starts_with('+') ? 1 : 0);
    const char* last = trimmed.data() + trimmed.size();
    double value = 0;
    const auto result = std::from_chars(first, last, value);
    if (first == last || result.ec != std::errc() || result.ptr != last) return std::nullopt;
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::string exact(double value) {
    return shortest(value);
}
std::string exact(float value) {
    return shortest(value);
}

}  // namespace quor::datafiles
