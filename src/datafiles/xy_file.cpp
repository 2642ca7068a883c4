#include "datafiles/xy_file.h"

#include <algorithm>
#include <cmath>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/questions.h"
#include "datafiles/xy_points.h"
#include "legacy/declare.h"
#include "session/module2.h"

namespace quor::datafiles {

namespace {

using datafiles::FitPoint;
using legacy::the_session;

constexpr const char* kExtension = ".XY";
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

bool write(const std::string& path, const std::string& text, const std::string& failureTitle) {
    const std::string error = write_whole(path, text);
    if (error.empty()) {
        the_session.FolderXY = session::folder_of(path);
        return true;
    }
    dialogs::tell(error, failureTitle, dialogs::Icon::Stop);
    return false;
}

}  // namespace

XYFileContent read_xy_text(const std::string& ansiText, char delimiter) {
    const std::vector<std::string> lines = text::Lines(text::from_ansi(ansiText));
    XYFileContent file;
    if (lines.empty()) return file;
    file.comment = lines.front();
    for (auto line = lines.begin() + 1; line != lines.end(); ++line)
        if (!text::trim(*line).empty()) file.points.push_back(read_point(*line, delimiter));
    return file;
}

std::string xy_text(const std::string& comment, std::span<const FitPoint> points, char delimiter) {
    std::string all = ansi_lines({one_line(comment)});
    for (const FitPoint& p : points)
        if (IsActive(p)) all += number(p.x) + delimiter + number(p.y) + "\r\n";
    return all;
}

std::string xy_load() {
    const std::optional<std::string> name =
        dialogs::choose_file({.title = "Load (Curve)Points",
                              .filter = "x-y Data (*.XY)|*.XY|(*.LRG)|*LRG",
                              .folder = the_session.FolderXY,
                              .name = "*.XY",
                              .defaultExtension = kExtension});
    return name && !name->empty() ? xy_load(*name) : std::string();
}

std::string xy_load(const std::string& name) {
    const std::string path = InFolder(name, the_session.FolderXY);
    const session::BusyPointer busy;
    const FileContent file = read_whole(path);
    if (!file.error.empty()) {
        dialogs::tell(file.error, "Execution not possible", dialogs::Icon::Stop);
        return {};
    }
    XYFileContent content = read_xy_text(file.bytes, the_session.CsvSeparator);
    legacy::the_xyComment = std::move(content.comment);
    legacy::the_xyPoints = std::move(content.points);
    the_session.FolderXY = session::folder_of(path);
    return "  Loaded: " + path;
}

bool xy_save() {
    return xy_save(legacy::the_xyComment, legacy::the_xyPoints);
}

bool xy_save(const std::string& comment, std::span<const FitPoint> points) {
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "(Curve)Points Save as ... ",
                              .filter = "x-y Data (*.XY)|*.XY",
                              .folder = the_session.FolderXY,
                              .defaultExtension = kExtension,
                              .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = target_path(*name, the_session.FolderXY, kExtension);
    return write(path, xy_text(comment, points, the_session.CsvSeparator),
                 "Execution not possible");
}

bool xy_save_frage(bool changed) {
    return !changed || !ask_to_save_now() || xy_save();
}

bool save_curve_as_xy(std::span<const FitPoint> points) {
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "Save curve as *.XY",
                              .filter = "XY text file (*.XY)|*.XY",
                              .folder = the_session.FolderXY,
                              .defaultExtension = kExtension});
    if (!name || name->empty()) return false;
    const std::string path = target_path(*name, the_session.FolderXY, kExtension);
    if (!may_replace(path)) return false;

    const std::string comment = std::to_string(points.size()) + " curve points";
    return write(path, xy_text(comment, points, the_session.CsvSeparator), "ERROR");
}

}  // namespace quor::datafiles
