#include "datafiles/table_text.h"

#include <algorithm>

#include "common/text.h"

namespace quor::datafiles {

namespace {

bool begins_number(const std::string& cell) {
    const std::string s = text::trim(cell);
    const std::size_t i = s.find_first_not_of("+-.,");
    return i != std::string::npos && s[i] >= '0' && s[i] <= '9';
}

bool is_heading(const std::string& line) {
    const std::vector<std::string> cells = text::split(line, '\t');
    return std::none_of(cells.begin(), cells.end(), begins_number);
}

}  // namespace

std::vector<std::string> data_lines(std::string_view table) {
    std::vector<std::string> lines = text::lines(table);
    std::erase_if(lines, [](const std::string& line) { return text::trim(line).empty(); });
    if (!lines.empty() && is_heading(lines.front())) lines.erase(lines.begin());
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
