#include "datafiles/measured_data.h"

#include <algorithm>
#include <string_view>

#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/substance_file.h"

namespace quor::datafiles {

namespace {

constexpr std::size_t kHeadLines = 4;

MeasuredPoint read_point(std::string_view line) {
    const std::vector<std::string> cells = text::split(line, ',');
    const auto cell = [&](std::size_t i) {
        return i < cells.size() ? std::string_view(cells[i]) : "";
    };
    MeasuredPoint point;
    point.T = cell_number(cell(0));
    point.p = cell_number(cell(1));
    point.rhoL = cell_single(cell(2));
    point.rhoV = cell_single(cell(3));
    point.hLV = cell_single(cell(4));
    point.cp = cell_single(cell(5));
    return point;
}

std::string point_line(const MeasuredPoint& s) {
    return exact(s.T) + "," + exact(s.p) + "," + exact(s.rhoL) + "," + exact(s.rhoV) + "," +
           exact(s.hLV) + "," + exact(s.cp);
}

}  // namespace

Result<MeasuredDataFile> read_measured_data(const std::string& ansi_text,
                                            const std::string& title) {
    const Failure none{"The file " + title + " holds no experimental data."};
    const std::vector<std::string> lines = text::lines(text::from_ansi(ansi_text));
    if (lines.size() < kHeadLines) return none;
    MeasuredDataFile file{.date = lines[0],
                          .data = {.comment = lines[1], .casrn = lines[2], .file = title}};
    std::vector<MeasuredPoint>& points = file.data.points;
    file.announced = std::max(0.0, cell_number(lines[3]));
    for (std::size_t i = kHeadLines; i < lines.size(); ++i) {
        if (static_cast<double>(points.size()) + 1.0 > file.announced) break;
        points.push_back(read_point(lines[i]));
    }
    // A last line that is cut short may hold half a number.
    const bool open = ansi_text.back() != '\n' && ansi_text.back() != '\r';
    const bool incomplete = static_cast<double>(points.size()) < file.announced;
    if (open && incomplete && !points.empty()) points.pop_back();
    // A file that is all head has lost its data.
    if (points.empty() && file.announced >= 1) return none;
    return file;
}

std::string measured_data_text(const MeasuredData& data, const std::string& date) {
    std::string text = files::ansi_lines({files::one_line(date), files::one_line(data.comment),
                                          text::pad_right(data.casrn, kCasrnLength),
                                          std::to_string(data.points.size())});
    for (const MeasuredPoint& point : data.points) text += point_line(point) + "\r\n";
    return text;
}

}  // namespace quor::datafiles
