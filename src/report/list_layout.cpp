#include "report/list_layout.h"

#include "common/numbers.h"
#include "common/text.h"

namespace quor::report {

ListLine plain_line(std::string text) {
    return {std::move(text), false, {}};
}

ListLine red_line(std::string text) {
    return {std::move(text), true, {}};
}

ListLine rule_line(char c, std::size_t count) {
    return plain_line(std::string(count, c));
}

std::string label_field(std::string_view label) {
    return text::pad_right(text::trim_right(label), kLabelWidth - 2) + "= ";
}

ListLine phase_row(std::string_view name, std::string_view label, const PhaseTexts& values) {
    const std::string head =
        label.empty() ? text::pad_right(name, 2 * kLabelWidth)
                      : text::pad_right(name, kLabelWidth) + text::pad_right(label, kLabelWidth);
    const std::string row =
        head + text::pad_left(values.L, kValueWidth) + text::pad_left(values.V, kValueWidth);
    return {text::trim_right(row), false, {text::trim(head), values.L, values.V}};
}

std::string value32(double value) {
    return numbers::general(numbers::to_single(value));
}

std::string pressure_by_mask(double p, std::string_view mask, std::string_view unit) {
    constexpr double kSmallest = 0.01;
    const std::string number = p >= kSmallest ? numbers::format(p, mask) : value32(p);
    return number + std::string(unit);
}

void ListBuilder::underlined(const std::string& title) {
    add(title);
    rule('=', text::length(title));
}

}  // namespace quor::report
