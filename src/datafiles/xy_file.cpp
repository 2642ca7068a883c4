#include "datafiles/xy_file.h"

#include <algorithm>
#include <cmath>

#include "common/numbers.h"
#include "common/progress.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/xy_points.h"

namespace quor::datafiles {

namespace {

constexpr std::string_view kMask = ".0000000E+00";
constexpr std::size_t kStep = 1024;  // lines after which it is told how far the work is

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
    progress::Work work("Reading points");
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (i % kStep == 0) work.at(static_cast<double>(i) / static_cast<double>(lines.size()));
        if (!text::trim(lines[i]).empty()) add_xy(read, cells_of(lines[i], delimiter));
    }
    return {.data = {lines.front(), std::move(read.points)}, .wrong = std::move(read.wrong)};
}

std::string xy_text(const std::string& comment, std::span<const FitPoint> points, char delimiter) {
    std::string all = files::ansi_lines({files::one_line(comment)});
    progress::Work work("Writing points");
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i % kStep == 0) work.at(static_cast<double>(i) / static_cast<double>(points.size()));
        const FitPoint& p = points[i];
        if (is_active(p)) all += number(p.x) + delimiter + number(p.y) + "\r\n";
    }
    return all;
}

}  // namespace quor::datafiles
