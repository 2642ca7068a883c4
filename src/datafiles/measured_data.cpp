#include "datafiles/measured_data.h"

#include <algorithm>
#include <string_view>

#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/substance_file.h"
#include "datafiles/table_text.h"

namespace quor::datafiles {

namespace {

constexpr std::size_t kHeadLines = 4;

/// The cells of a line, one after the other, and whether all of them hold a number.
class Cells {
  public:
    explicit Cells(std::string_view line) : cells_(text::split(line, ',')) {}

    void take(double& value) {
        const std::optional<double> read = next();
        // Fits, diagrams and .XY files have 32 bits for T and p as for the others.
        right_ = right_ && single(read).has_value();
        value = single(read) ? *read : 0;
    }
    void take(float& value) {
        const std::optional<float> read = single(next());
        right_ = right_ && read.has_value();
        value = read.value_or(0.0F);
    }
    /// True when there was a number for each value and nothing is left.
    bool right() const {
        return right_ &&
               std::all_of(
                   cells_.begin() + static_cast<std::ptrdiff_t>(std::min(at_, cells_.size())),
                   cells_.end(), [](const auto& rest) { return text::trim(rest).empty(); });
    }

  private:
    std::optional<double> next() {
        const std::size_t i = at_++;
        return i < cells_.size() ? numbers::number(cells_[i]) : std::nullopt;
    }

    std::vector<std::string> cells_;
    std::size_t at_ = 0;
    bool right_ = true;
};

void read_point(ReadPoints<MeasuredPoint>& read, std::string_view line) {
    Cells cells(line);
    MeasuredPoint point;
    cells.take(point.T);
    cells.take(point.p);
    cells.take(point.rhoL);
    cells.take(point.rhoV);
    cells.take(point.hLV);
    cells.take(point.cp);
    if (!cells.right()) point.skip = kInactive;
    read.add(point, cells.right());
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
    ReadPoints<MeasuredPoint> read;
    std::vector<MeasuredPoint>& points = read.points;
    file.announced = std::max(0.0, cell_number(lines[3]));
    for (std::size_t i = kHeadLines; i < lines.size(); ++i) {
        if (static_cast<double>(points.size()) + 1.0 > file.announced) break;
        read_point(read, lines[i]);
    }
    // A last line that is cut short may hold half a number.
    const bool open = ansi_text.back() != '\n' && ansi_text.back() != '\r';
    const bool incomplete = static_cast<double>(points.size()) < file.announced;
    if (open && incomplete && !points.empty()) {
        points.pop_back();
        std::erase(read.wrong, points.size());
    }
    // A file that is all head has lost its data.
    if (points.empty() && file.announced >= 1) return none;
    file.data.points = std::move(points);
    file.wrong = std::move(read.wrong);
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
