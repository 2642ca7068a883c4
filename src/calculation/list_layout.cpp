#include "calculation/list_layout.h"

#include "common/numbers.h"
#include "common/text.h"

namespace quor::calculation {

ListLine PlainLine(std::string text) {
    return {std::move(text), false, {}};
}

ListLine RedLine(std::string text) {
    return {std::move(text), true, {}};
}

ListLine RuleLine(char c, std::size_t count) {
    return PlainLine(std::string(count, c));
}

std::string LabelField(std::string_view label) {
    return text::PadRight(text::TrimRight(label), kLabelWidth - 2) + "= ";
}

ListLine PhaseRow(std::string_view name, std::string_view label, const PhaseTexts& values) {
    const std::string head =
        label.empty() ? text::PadRight(name, 2 * kLabelWidth)
                      : text::PadRight(name, kLabelWidth) + text::PadRight(label, kLabelWidth);
    const std::string row =
        head + text::PadLeft(values.L, kValueWidth) + text::PadLeft(values.V, kValueWidth);
    return {text::TrimRight(row), false, {text::Trim(head), values.L, values.V}};
}

std::string Value32(double value) {
    return numbers::General(numbers::ToSingle(value));
}

std::string PressureValue(double p, std::string_view mask, std::string_view unit) {
    constexpr double kSmallest = 0.01;
    const std::string number = p >= kSmallest ? numbers::Format(p, mask) : Value32(p);
    return number + std::string(unit);
}

void ListBuilder::underlined(const std::string& title) {
    add(title);
    rule('=', text::Length(title));
}

}  // namespace quor::calculation
