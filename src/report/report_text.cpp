#include <algorithm>
#include <cctype>

#include "common/text.h"
#include "report/list_layout.h"
#include "report/report.h"

/// A result as text and as a table.
namespace quor::report {

namespace {

std::string with_break(const std::string& s) {
    return s.empty() ? s : s + '\n';
}

/// The four fields above the list, one a line, without the empty ones.
std::string fields_as_text(const Report& r) {
    return with_break(r.par1.text) + with_break(r.par2.text) + with_break(r.co1.text) +
           with_break(r.co2.text);
}

std::string table_row(const std::vector<std::string>& cells) {
    std::string row;
    for (const std::string& cell : cells) row += (&cell == &cells.front() ? "" : "\t") + cell;
    return row + '\n';
}

std::string table_row(const ListLine& line) {
    return line.cells.empty() ? text::trim(line.text) + '\n' : table_row(line.cells);
}

/// A field such as "p(LV) = 997.43 kPa" as quantity, unit and value; any other as it is.
std::string table_row(const TextField& field) {
    const std::string whole = text::trim(field.text);
    if (whole.empty()) return {};
    const std::size_t sign = whole.rfind('=');
    const std::string right = sign == std::string::npos ? "" : text::trim(whole.substr(sign + 1));
    if (right.empty() || std::isdigit(static_cast<unsigned char>(right[right[0] == '-'])) == 0)
        return whole + '\n';
    const std::size_t blank = std::min(right.find(' '), right.size());
    const Quantity quantity = quantity_of(std::string_view(whole).substr(0, sign));
    const std::string unit = text::trim(right.substr(blank));
    return table_row(
        std::vector{quantity.name, unit.empty() ? quantity.unit : unit, right.substr(0, blank)});
}

std::string head_as_table(const Report& r) {
    std::string all;
    for (const HeadLine& line : r.head) all += table_row(std::vector{line.name, line.text});
    return all;
}

std::string captions_as_table(const Report& r) {
    return table_row(std::vector<std::string>{"", "", r.caption_L, r.caption_V});
}

}  // namespace

bool has_phase_columns(const Report& r) {
    return std::any_of(r.lines.begin(), r.lines.end(),
                       [](const ListLine& line) { return line.of_phases; });
}

std::string list_text(const Report& result) {
    std::string all;
    for (const ListLine& line : result.lines) {
        if (&line != &result.lines.front()) all += '\n';
        all += line.text;
    }
    return all;
}

std::string phase_header(const Report& result) {
    const std::string blanks(2 * kLabelWidth, ' ');
    if (result.identical)
        return blanks + text::pad_left(result.caption_L + " identical with " + result.caption_V,
                                       2 * kValueWidth);
    return blanks + text::pad_left(result.caption_L, kValueWidth) +
           text::pad_left(result.caption_V, kValueWidth);
}

std::string head_as_text(const Report& result) {
    std::string all;
    for (const HeadLine& line : result.head) all += line.name + ": " + line.text + '\n';
    return all;
}

std::string result_as_text(const Report& result) {
    std::string all = head_as_text(result) + fields_as_text(result);
    if (has_phase_columns(result)) all += phase_header(result) + '\n';
    return all + with_break(list_text(result));
}

std::string result_as_table(const Report& result) {
    std::string all = head_as_table(result);
    for (const TextField* field : {&result.par1, &result.par2, &result.co1, &result.co2})
        all += table_row(*field);
    if (has_phase_columns(result)) all += captions_as_table(result);
    for (const ListLine& line : result.lines) all += table_row(line);
    return all;
}

std::string lines_as_table(const Report& result, std::size_t first, std::size_t last) {
    std::string rows;
    bool of_phases = false;
    for (std::size_t i = first; i <= last && i < result.lines.size(); ++i) {
        rows += table_row(result.lines[i]);
        of_phases = of_phases || result.lines[i].of_phases;
    }
    return head_as_table(result) + (of_phases ? captions_as_table(result) : "") + rows;
}

}  // namespace quor::report
