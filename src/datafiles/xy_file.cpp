#include "datafiles/xy_file.h"

#include <algorithm>
#include <cmath>

#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/xy_points.h"

namespace quor::datafiles {

namespace {

constexpr std::string_view kMask = ".0000000E+00";

char delimiter_of(std::string_view line, char delimiter) {
    for (const char c : {delimiter, ';', '\t', ' '})
        if (line.find(c) != std::string_view::npos) return c;
    return delimiter;
}

/// The cells of a line, two at least.
std::vector<std::string> cells_of(const std::string& line, char delimiter) {
    const char found = delimiter_of(line, delimiter);
    std::vector<std::string> cells = text::split(line, found);
    // Columns set apart by blanks may have any number of them.
    if (found == ' ') std::erase(cells, "");
    cells.resize(std::max<std::size_t>(cells.size(), 2));
    return cells;
}

std::string number(float value) {
    return numbers::format_point(std::isfinite(value) ? static_cast<double>(value) : 0.0, kMask);
}

}  // namespace

XyFile read_xy_text(const std::string& ansi_text, char delimiter) {
    const std::vector<std::string> lines = text::lines(text::from_ansi(ansi_text));
    if (lines.empty()) return {};
    ReadPoints<FitPoint> read;
    for (auto line = lines.begin() + 1; line != lines.end(); ++line)
        if (!text::trim(*line).empty()) add_xy(read, cells_of(*line, delimiter));
    return {.data = {lines.front(), std::move(read.points)}, .wrong = std::move(read.wrong)};
}

std::string xy_text(const std::string& comment, std::span<const FitPoint> points, char delimiter) {
    std::string all = files::ansi_lines({files::one_line(comment)});
    for (const FitPoint& p : points)
        if (is_active(p)) all += number(p.x) + delimiter + number(p.y) + "\r\n";
    return all;
}

}  // namespace quor::datafiles
