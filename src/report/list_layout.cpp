#include "report/list_layout.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/text.h"

namespace quor::report {

ListLine plain_line(std::string text) {
    return {.text = std::move(text)};
}

ListLine red_line(std::string text) {
    return {.text = std::move(text), .red = true};
}

ListLine rule_line(char c, std::size_t count) {
    return plain_line(std::string(count, c));
}

std::string label_field(std::string_view label) {
    return padded(text::trim_right(label), kLabelWidth - 2) + "= ";
}

std::string padded(std::string_view text, std::size_t width) {
    return text::pad_right(text, std::max(width, text::length(text)));
}

namespace {

/// Runs of blanks become one.
std::string simplified(std::string_view s) {
    std::string all;
    for (const char c : text::trim(s))
        if (c != ' ' || (!all.empty() && all.back() != ' ')) all += c;
    return all;
}

/// Without the sign of equation or the colon at its end.
std::string_view without_sign(std::string_view label) {
    const std::size_t end = label.find_last_not_of(" =:");
    return end == std::string_view::npos ? std::string_view() : label.substr(0, end + 1);
}

std::string in_columns(const std::string& head, const PhaseTexts& values) {
    return text::trim_right(head + text::pad_left(values.L, kValueWidth) +
                            text::pad_left(values.V, kValueWidth));
}

}  // namespace

Quantity quantity_of(std::string_view label) {
    const std::string whole = simplified(without_sign(label));
    const std::size_t slash = whole.find('/');
    if (slash == std::string::npos) return {whole, ""};
    std::string unit = text::trim(whole.substr(slash + 1));
    if (unit.starts_with('(') && unit.ends_with(')')) unit = unit.substr(1, unit.size() - 2);
    return {text::trim(whole.substr(0, slash)), text::trim(unit)};
}

ListLine phase_row(std::string_view name, std::string_view label, const PhaseTexts& values) {
    if (label.empty()) return phase_row(name, values, quantity_of(name));
    const Quantity quantity = quantity_of(label);
    const std::size_t further = std::max(text::length(label), kLabelWidth) - kLabelWidth;
    return {.text = in_columns(text::pad_right(name, kLabelWidth - std::min(further, kLabelWidth)) +
                                   padded(label, kLabelWidth),
                               values),
            .cells = {text::trim(name) + " " + quantity.name, quantity.unit, values.L, values.V},
            .of_phases = true};
}

ListLine phase_row(std::string_view name, const PhaseTexts& values, const Quantity& quantity) {
    return {.text = in_columns(padded(text::trim_right(name), 2 * kLabelWidth), values),
            .cells = {quantity.name, quantity.unit, values.L, values.V},
            .of_phases = true};
}

ListLine value_line(std::string text, const Quantity& quantity, std::string value) {
    return {.text = std::move(text), .cells = {quantity.name, quantity.unit, std::move(value)}};
}

std::string value32(double value) {
    return numbers::general(numbers::to_single(value));
}

void ListBuilder::value(const std::string& label, const std::string& value,
                        const std::string& unit) {
    Quantity quantity = quantity_of(label);
    if (!unit.empty()) quantity.unit = text::trim(unit);
    add(value_line(label + value + unit, quantity, value));
}

void ListBuilder::underlined(const std::string& title) {
    add(title);
    rule('=', text::length(title));
}

}  // namespace quor::report
