#include "session/xy_session.h"

#include "common/dialogs.h"
#include "common/progress.h"
#include "common/whole_file.h"
#include "datafiles/xy_points.h"
#include "session/questions.h"

namespace quor::session {

namespace {

constexpr const char* kExtension = ".XY";

bool write(Session& session, const std::string& path, const std::string& text,
           const std::string& failure_title) {
    const Result<void> written = files::write_whole(path, text);
    if (written) {
        session.change()->folder_xy = paths::folder_of(path);
        return true;
    }
    dialogs::tell(written.reason(), failure_title, dialogs::Icon::Stop);
    return false;
}

}  // namespace

std::optional<std::string> load_xy(Session& session) {
    const std::optional<std::string> name =
        dialogs::choose_file({.title = "Load (Curve)Points",
                              .filter = "x-y Data (*.XY)|*.XY|(*.LRG)|*LRG",
                              .folder = session->folder_xy,
                              .name = "*.XY",
                              .default_extension = kExtension});
    return name && !name->empty() ? load_xy(session, *name) : std::nullopt;
}

std::optional<std::string> load_xy(Session& session, const std::string& name) {
    const std::string path = paths::in_folder(name, session->folder_xy);
    const BusyPointer busy(session);
    const Result<std::string> bytes = files::read_whole(path);
    if (!bytes) {
        dialogs::tell(bytes.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return std::nullopt;
    }
    datafiles::XyFile file;
    try {
        file = datafiles::read_xy_text(*bytes, session->csv_separator);
    } catch (const progress::GivenUp&) {
        return std::nullopt;
    }
    {
        const auto now = session.change();
        now->xy = std::move(file.data);
        now->xy_unsaved = false;
        now->folder_xy = paths::folder_of(path);
    }
    tell_wrong_lines(file.wrong);
    return path;
}

bool save_xy(Session& session) {
    const bool saved = save_xy(session, session->xy);
    if (saved) session.change()->xy_unsaved = false;
    return saved;
}

bool save_xy(Session& session, const datafiles::XyData& data) {
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "(Curve)Points Save as ... ",
                              .filter = "x-y Data (*.XY)|*.XY",
                              .folder = session->folder_xy,
                              .default_extension = kExtension,
                              .overwrite_prompt = true});
    if (!name || name->empty()) return false;
    const std::string path = paths::target_path(*name, session->folder_xy, kExtension);
    try {
        return write(session, path,
                     datafiles::xy_text(data.comment, data.points, session->csv_separator),
                     dialogs::kNotPossible);
    } catch (const progress::GivenUp&) {
        return false;
    }
}

bool may_leave_xy(Session& session) {
    return !session->xy_unsaved || may_leave_unsaved([&session] { return save_xy(session); });
}

bool save_curve_as_xy(Session& session, std::span<const datafiles::FitPoint> points) {
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "Save curve as *.XY",
                              .filter = "XY text file (*.XY)|*.XY",
                              .folder = session->folder_xy,
                              .default_extension = kExtension});
    if (!name || name->empty()) return false;
    const std::string path = paths::target_path(*name, session->folder_xy, kExtension);
    if (!may_replace(path)) return false;
    const std::string comment = std::to_string(points.size()) + " curve points";
    return write(session, path, datafiles::xy_text(comment, points, session->csv_separator),
                 "ERROR");
}

bool enough_active_points(std::span<const datafiles::FitPoint> points, bool as_points) {
    const Result<void> enough = datafiles::check_active_points(points, as_points);
    if (enough) return true;
    dialogs::tell(enough.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
    return false;
}

}  // namespace quor::session
