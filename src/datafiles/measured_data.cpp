#include "datafiles/measured_data.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "common/numbers.h"
#include "common/text.h"
#include "common/text_parts.h"
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
    explicit Cells(std::string_view line) : cells_(line, ',') {}

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
    /// True when there was a number for each value; what is left must be blank.
    bool right() {
        while (const auto rest = cells_.next())
            if (!text::without_end_blanks(*rest).empty()) return false;
        return right_;
    }

  private:
    std::optional<double> next() {
        const auto cell = cells_.next();
        return cell ? numbers::number(*cell) : std::nullopt;
    }

    text::CellCursor cells_;
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
    const bool right = cells.right();
    if (!right) point.skip = kInactive;
    read.add(point, right);
}

std::string point_line(const MeasuredPoint& s) {
    return exact(s.T) + "," + exact(s.p) + "," + exact(s.rhoL) + "," + exact(s.rhoV) + "," +
           exact(s.hLV) + "," + exact(s.cp);
}

}  // namespace

Result<MeasuredDataFile> read_measured_data(const std::string& ansi_text,
                                            const std::string& title) {
    const Failure none{"The file " + title + " holds no experimental data."};
    text::LineCursor lines(ansi_text);
    std::array<std::string, kHeadLines> head;
    for (std::string& line : head) {
        const auto next = lines.next();
        if (!next) return none;
        line = text::from_ansi(*next);
    }
    MeasuredDataFile file{.date = head[0],
                          .data = {.comment = head[1], .casrn = head[2], .file = title}};
    ReadPoints<MeasuredPoint> read;
    std::vector<MeasuredPoint>& points = read.points;
    file.announced = std::max(0.0, cell_number(head[3]));
    // One more than a table holds tells that there are too many.
    const double wanted = std::min(file.announced, static_cast<double>(kMostMeasuredPoints) + 1.0);
    while (static_cast<double>(points.size()) + 1.0 <= wanted) {
        const auto line = lines.next();
        if (!line) break;
        read_point(read, *line);
    }
    // A last line that is cut short may hold half a number.
    const bool open = ansi_text.back() != '\n' && ansi_text.back() != '\r';
    const bool incomplete = static_cast<double>(points.size()) < wanted;
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
