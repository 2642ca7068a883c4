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
using diagrams::CurvePoint;
using legacy::the_session;

constexpr const char* kExtension = ".XY";
constexpr std::string_view kMask = ".0000000E+00";

char delimiter_of(std::string_view line, char delimiter) {
    for (const char c : {delimiter, ';', '\t', ' '})
        if (line.find(c) != std::string_view::npos) return c;
    return delimiter;
}

float coordinate(std::string_view cell) {
    return CellSingle(numbers::CommaToPoint(std::string(cell)));
}

FitPoint read_point(const std::string& line, char delimiter) {
    const char found = delimiter_of(line, delimiter);
    std::vector<std::string> cells = text::Split(line, found);
    // Columns set apart by blanks may have any number of them.
    if (found == ' ') std::erase(cells, "");
    cells.resize(std::max<std::size_t>(cells.size(), 2));
    return {coordinate(cells[0]), coordinate(cells[1]), 0.0F};
}

std::string number(float value) {
    return numbers::FormatPoint(std::isfinite(value) ? static_cast<double>(value) : 0.0, kMask);
}

bool write(const std::string& path, const std::string& text, const std::string& failureTitle) {
    const std::string error = WriteWhole(path, text);
    if (error.empty()) {
        the_session.FolderXY = session::FolderOf(path);
        return true;
    }
    dialogs::Tell(error, failureTitle, dialogs::Icon::Stop);
    return false;
}

}  // namespace

XYFileContent ReadXYText(const std::string& ansiText, char delimiter) {
    const std::vector<std::string> lines = text::Lines(text::FromAnsi(ansiText));
    XYFileContent file;
    if (lines.empty()) return file;
    file.comment = lines.front();
    for (auto line = lines.begin() + 1; line != lines.end(); ++line)
        if (!text::Trim(*line).empty()) file.points.push_back(read_point(*line, delimiter));
    return file;
}

std::string XYText(const std::string& comment, std::span<const FitPoint> points, char delimiter) {
    std::string all = AnsiLines({OneLine(comment)});
    for (const FitPoint& p : points)
        if (IsActive(p)) all += number(p.x) + delimiter + number(p.y) + "\r\n";
    return all;
}

std::string XYLoad() {
    const std::optional<std::string> name =
        dialogs::ChooseFile({.title = "Load (Curve)Points",
                             .filter = "x-y Data (*.XY)|*.XY|(*.LRG)|*LRG",
                             .folder = the_session.FolderXY,
                             .name = "*.XY",
                             .defaultExtension = kExtension});
    return name && !name->empty() ? XYLoad(*name) : std::string();
}

std::string XYLoad(const std::string& name) {
    const std::string path = InFolder(name, the_session.FolderXY);
    const session::BusyPointer busy;
    const FileContent file = ReadWhole(path);
    if (!file.error.empty()) {
        dialogs::Tell(file.error, "Execution not possible", dialogs::Icon::Stop);
        return {};
    }
    XYFileContent content = ReadXYText(file.bytes, the_session.CsvSeparator);
    legacy::the_xyComment = std::move(content.comment);
    legacy::the_xyPoints = std::move(content.points);
    the_session.FolderXY = session::FolderOf(path);
    return "  Loaded: " + path;
}

bool XYSave() {
    return XYSave(legacy::the_xyComment, legacy::the_xyPoints);
}

bool XYSave(const std::string& comment, std::span<const FitPoint> points) {
    const std::optional<std::string> name =
        dialogs::ChooseFile({.save = true,
                             .title = "(Curve)Points Save as ... ",
                             .filter = "x-y Data (*.XY)|*.XY",
                             .folder = the_session.FolderXY,
                             .defaultExtension = kExtension,
                             .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = TargetPath(*name, the_session.FolderXY, kExtension);
    return write(path, XYText(comment, points, the_session.CsvSeparator), "Execution not possible");
}

bool XYSaveFrage(bool changed) {
    return !changed || !AskToSaveNow() || XYSave();
}

bool SaveCurveAsXY(const diagrams::CurvePointArray& curve) {
    const std::optional<std::string> name =
        dialogs::ChooseFile({.save = true,
                             .title = "Save curve as *.XY",
                             .filter = "XY text file (*.XY)|*.XY",
                             .folder = the_session.FolderXY,
                             .defaultExtension = kExtension});
    if (!name || name->empty()) return false;
    const std::string path = TargetPath(*name, the_session.FolderXY, kExtension);
    if (!MayReplace(path)) return false;

    // The header says how many of the elements behind it are points.
    const auto announced = curve.empty() ? 0.0F : std::max(curve.front().x, 0.0F);
    std::vector<FitPoint> points;
    for (std::size_t i = 1; i < curve.size() && static_cast<float>(i) <= announced; ++i)
        points.push_back({curve[i].x, curve[i].y, 0.0F});
    const std::string comment = std::to_string(points.size()) + " curve points";
    return write(path, XYText(comment, points, the_session.CsvSeparator), "ERROR");
}

}  // namespace quor::datafiles
