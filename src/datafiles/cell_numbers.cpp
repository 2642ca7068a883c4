#include "datafiles/cell_numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "common/numbers.h"
#include "common/single.h"
#include "common/text.h"

namespace quor::datafiles {

namespace {

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
    const double value = numbers::val(cell);
    // `numbers::val` gives the largest double where a number is too large for one.
    return std::fabs(value) < std::numeric_limits<double>::max() ? value : 0.0;
}

float single_or_zero(double value) {
    return numbers::fits_single(value) ? static_cast<float>(value) : 0.0F;
}

std::optional<float> single(std::optional<double> value) {
    if (!value) return std::nullopt;
    const float narrow = single_or_zero(*value);
    return narrow != 0 || *value == 0 ? std::optional(narrow) : std::nullopt;
}

std::string exact(double value) {
    return shortest(value);
}
std::string exact(float value) {
    return shortest(value);
}

}  // namespace quor::datafiles
