#include "datafiles/xy_file.h"

#include <array>
#include <cmath>

#include "common/numbers.h"
#include "common/progress.h"
#include "common/text.h"
#include "common/text_parts.h"
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

/// The first two cells of a line; a cell that is missing is empty.
std::array<std::string_view, 2> cells_of(std::string_view line, char delimiter) {
    const char found = delimiter_of(line, delimiter);
    text::CellCursor rest(line, found);
    std::array<std::string_view, 2> cells;
    std::size_t taken = 0;
    while (taken < cells.size()) {
        const auto cell = rest.next();
        if (!cell) break;
        // Columns set apart by blanks may have any number of them.
        if (found == ' ' && cell->empty()) continue;
        cells[taken++] = *cell;
    }
    return cells;
}

std::string number(float value) {
    return numbers::format_point(std::isfinite(value) ? static_cast<double>(value) : 0.0, kMask);
}

}  // namespace

XyFile read_xy_text(const std::string& ansi_text, char delimiter) {
    text::LineCursor lines(ansi_text);
    const auto comment = lines.next();
    if (!comment) return {};
    ReadPoints<FitPoint> read;
    progress::Work work("Reading points");
    const auto bytes = static_cast<double>(ansi_text.size());
    for (std::size_t i = 1; const auto line = lines.next(); ++i) {
        if (i % kStep == 0) work.at(1 - static_cast<double>(lines.left()) / bytes);
        if (text::without_end_blanks(*line).empty()) continue;
        const auto [x, y] = cells_of(*line, delimiter);
        add_xy(read, x, y);
    }
    return {.data = {text::from_ansi(*comment), std::move(read.points)},
            .wrong = std::move(read.wrong)};
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
