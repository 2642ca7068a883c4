#include "session/xy_session.h"

#include "common/dialogs.h"
#include "common/whole_file.h"
#include "datafiles/xy_points.h"
#include "legacy/declare.h"
#include "session/module2.h"
#include "session/questions.h"

namespace quor::session {

namespace {

using legacy::the_session;

constexpr const char* kExtension = ".XY";
constexpr const char* kRefused = "Execution not possible";

bool write(const std::string& path, const std::string& text, const std::string& failureTitle) {
    const Result<void> written = files::write_whole(path, text);
    if (written) {
        the_session.FolderXY = paths::folder_of(path);
        return true;
    }
    dialogs::tell(written.reason(), failureTitle, dialogs::Icon::Stop);
    return false;
}

}  // namespace

std::optional<std::string> load_xy() {
    const std::optional<std::string> name =
        dialogs::choose_file({.title = "Load (Curve)Points",
                              .filter = "x-y Data (*.XY)|*.XY|(*.LRG)|*LRG",
                              .folder = the_session.FolderXY,
                              .name = "*.XY",
                              .defaultExtension = kExtension});
    return name && !name->empty() ? load_xy(*name) : std::nullopt;
}

std::optional<std::string> load_xy(const std::string& name) {
    const std::string path = paths::in_folder(name, the_session.FolderXY);
    const BusyPointer busy;
    const Result<std::string> bytes = files::read_whole(path);
    if (!bytes) {
        dialogs::tell(bytes.reason(), kRefused, dialogs::Icon::Stop);
        return std::nullopt;
    }
    legacy::the_xyData = datafiles::read_xy_text(*bytes, the_session.CsvSeparator);
    the_session.FolderXY = paths::folder_of(path);
    return path;
}

bool save_xy() {
    return save_xy(legacy::the_xyData);
}

bool save_xy(const datafiles::XyData& data) {
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "(Curve)Points Save as ... ",
                              .filter = "x-y Data (*.XY)|*.XY",
                              .folder = the_session.FolderXY,
                              .defaultExtension = kExtension,
                              .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = paths::target_path(*name, the_session.FolderXY, kExtension);
    return write(path, datafiles::xy_text(data.comment, data.points, the_session.CsvSeparator),
                 kRefused);
}

bool may_leave_xy(bool changed) {
    return !changed || !ask_to_save_now() || save_xy();
}

bool save_curve_as_xy(std::span<const datafiles::FitPoint> points) {
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "Save curve as *.XY",
                              .filter = "XY text file (*.XY)|*.XY",
                              .folder = the_session.FolderXY,
                              .defaultExtension = kExtension});
    if (!name || name->empty()) return false;
    const std::string path = paths::target_path(*name, the_session.FolderXY, kExtension);
    if (!may_replace(path)) return false;
    const std::string comment = std::to_string(points.size()) + " curve points";
    return write(path, datafiles::xy_text(comment, points, the_session.CsvSeparator), "ERROR");
}

bool enough_active_points(std::span<const datafiles::FitPoint> points, bool asPoints) {
    const Result<void> enough = datafiles::check_active_points(points, asPoints);
    if (enough) return true;
    dialogs::tell(enough.reason(), kRefused, dialogs::Icon::Stop);
    return false;
}

}  // namespace quor::session
