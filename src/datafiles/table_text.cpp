#include "datafiles/table_text.h"

#include <algorithm>
#include <utility>

#include "common/text.h"
#include "common/text_parts.h"

namespace quor::datafiles {

namespace {

bool begins_number(std::string_view cell) {
    const std::string s = text::trim(cell);
    const std::size_t i = s.find_first_not_of("+-.,");
    return i != std::string::npos && s[i] >= '0' && s[i] <= '9';
}

bool is_heading(std::string_view line) {
    text::CellCursor cells(line, '\t');
    while (const auto cell = cells.next())
        if (begins_number(*cell)) return false;
    return true;
}

}  // namespace

std::vector<std::string_view> data_lines(std::string_view table) {
    std::vector<std::string_view> lines;
    text::LineCursor rest(table);
    bool first = true;
    while (const auto line = rest.next()) {
        if (text::without_end_blanks(*line).empty()) continue;
        const bool heading = std::exchange(first, false) && is_heading(*line);
        if (!heading) lines.push_back(*line);
    }
    return lines;
}

std::string aligned_columns(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()), 0);
        for (std::size_t c = 0; c < row.size(); ++c)
            widths[c] = std::max(widths[c], text::length(row[c]));
    }
    std::string all;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t c = 0; c < row.size(); ++c)
            line += (c == 0 ? "" : "  ") + text::pad_left(row[c], widths[c]);
        all += text::trim_right(line) + "\n";
    }
    return all;
}

}  // namespace quor::datafiles
