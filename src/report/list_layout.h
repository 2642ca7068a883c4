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

/// A line of text without cells.
ListLine plain_line(std::string text);
/// A line of text that tells of an error.
ListLine red_line(std::string text);
/// A line of `count` equal characters.
ListLine rule_line(char c, std::size_t count);
/// A row of the table; a long name runs into the label's place when there is no label.
ListLine phase_row(std::string_view name, std::string_view label, const PhaseTexts& values);
/// A label with its sign of equation in a field of 17 characters: "h/ (kJ/kmol)   = ".
std::string label_field(std::string_view label);

/// Text of a 32-bit value in general format. Throws `faults::Fault` when the value is too large.
std::string value32(double value);
/// A pressure/kPa by a mask that has no unit, below 0.01 kPa as a 32-bit value; `unit` stands
/// behind either.
std::string pressure_by_mask(double p, std::string_view mask, std::string_view unit = "");

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
    void blank() { lines_.emplace_back(); }

    const std::vector<ListLine>& lines() const { return lines_; }
    std::vector<ListLine> take() { return std::move(lines_); }

  private:
    std::vector<ListLine> lines_;
};

}  // namespace quor::report
