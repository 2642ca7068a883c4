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

float coordinate(std::string_view cell) {
    return cell_single(numbers::comma_to_point(std::string(cell)));
}

FitPoint read_point(const std::string& line, char delimiter) {
    const char found = delimiter_of(line, delimiter);
    std::vector<std::string> cells = text::split(line, found);
    // Columns set apart by blanks may have any number of them.
    if (found == ' ') std::erase(cells, "");
    cells.resize(std::max<std::size_t>(cells.size(), 2));
    return {coordinate(cells[0]), coordinate(cells[1]), 0.0F};
}

std::string number(float value) {
    return numbers::format_point(std::isfinite(value) ? static_cast<double>(value) : 0.0, kMask);
}

}  // namespace

XyData read_xy_text(const std::string& ansi_text, char delimiter) {
    const std::vector<std::string> lines = text::lines(text::from_ansi(ansi_text));
    XyData file;
    if (lines.empty()) return file;
    file.comment = lines.front();
    for (auto line = lines.begin() + 1; line != lines.end(); ++line)
        if (!text::trim(*line).empty()) file.points.push_back(read_point(*line, delimiter));
    return file;
}

std::string xy_text(const std::string& comment, std::span<const FitPoint> points, char delimiter) {
    std::string all = files::ansi_lines({files::one_line(comment)});
    for (const FitPoint& p : points)
        if (is_active(p)) all += number(p.x) + delimiter + number(p.y) + "\r\n";
    return all;
}

}  // namespace quor::datafiles
