#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/report.h"

/// How the lines of `lines` are laid out: a name and a label of 17 characters each, then the L and
/// the V column of 20 characters each, for a fixed-pitch face.
namespace quor::report {

inline constexpr std::size_t kLabelWidth = 17;
inline constexpr std::size_t kValueWidth = 20;
inline constexpr std::size_t kTableWidth = 2 * kLabelWidth + 2 * kValueWidth;

/// A value of each phase as text; empty where there is none.
struct PhaseTexts {
    std::string L, V;
};

/// What a value is and its unit.
struct Quantity {
    std::string name, unit;
};
/// The parts of a label such as "h/ (kJ/kmol)   = ": "h" and "kJ/kmol".
Quantity quantity_of(std::string_view label);

/// Padded with blanks on the right; a longer text stays whole.
std::string padded(std::string_view text, std::size_t width);
/// A line of text without cells.
ListLine plain_line(std::string text);
/// A line of text that tells of an error.
ListLine red_line(std::string text);
/// A line of `count` equal characters.
ListLine rule_line(char c, std::size_t count);
/// A row of the table; a long name runs into the label's place when there is no label, and a long
/// label into that of the name. The unit of the values stands in the label.
ListLine phase_row(std::string_view name, std::string_view label, const PhaseTexts& values);
/// A row whose cells are named apart from its text.
ListLine phase_row(std::string_view name, const PhaseTexts& values, const Quantity& quantity);
/// A line with one value, and its cells.
ListLine value_line(std::string text, const Quantity& quantity, std::string value);
/// A label with its sign of equation in a field of 17 characters: "h/ (kJ/kmol)   = ".
std::string label_field(std::string_view label);

/// Text of a 32-bit value in general format. Throws `faults::Fault` when the value is too large.
std::string value32(double value);

/// The growing text of a list.
class ListBuilder {
  public:
    void add(std::string text) { lines_.push_back(plain_line(std::move(text))); }
    void add_red(std::string text) { lines_.push_back(red_line(std::move(text))); }
    void add(ListLine line) { lines_.push_back(std::move(line)); }
    void rule(char c, std::size_t count) { lines_.push_back(rule_line(c, count)); }
    /// A title with a line of '=' of its length below it.
    void underlined(const std::string& title);
    void row(std::string_view name, std::string_view label, const PhaseTexts& values) {
        lines_.push_back(phase_row(name, label, values));
    }
    /// A line of one value: the label with its sign of equation, the value, and its unit, which may
    /// also stand in the label.
    void value(const std::string& label, const std::string& value, const std::string& unit = "");
    void blank() { lines_.emplace_back(); }

    const std::vector<ListLine>& lines() const { return lines_; }
    std::vector<ListLine> take() { return std::move(lines_); }

  private:
    std::vector<ListLine> lines_;
};

}  // namespace quor::report
