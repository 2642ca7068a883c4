#include "session/xy_session.h"

#include "common/dialogs.h"
#include "common/progress.h"
#include "common/save_file.h"
#include "common/whole_file.h"
#include "datafiles/xy_points.h"
#include "session/questions.h"

namespace quor::session {

namespace {

constexpr const char* kExtension = ".XY";

/// Points as a file where the user wants them; false when there is none.
bool save_points(Session& session, std::span<const datafiles::FitPoint> points,
                 const std::string& comment, const saving::Saved& question) {
    saving::Saved saved = question;
    saved.choice.save = true;
    saved.choice.folder = session->folder_xy;
    saved.choice.default_extension = kExtension;
    saved.content = [&](const std::string&) {
        return datafiles::xy_text(comment, points, session->csv_separator);
    };
    try {
        const std::optional<std::string> path = saving::save_where_chosen(saved);
        if (path) session.change()->folder_xy = paths::folder_of(*path);
        return path.has_value();
    } catch (const progress::GivenUp&) {
        return false;
    }
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
    return save_points(session, data.points, data.comment,
                       {.choice = {.title = "(Curve)Points Save as ... ",
                                   .filter = "x-y Data (*.XY)|*.XY",
                                   .overwrite_prompt = true}});
}

bool may_leave_xy(Session& session) {
    return !session->xy_unsaved || may_leave_unsaved([&session] { return save_xy(session); });
}

bool save_curve_as_xy(Session& session, std::span<const datafiles::FitPoint> points) {
    return save_points(
        session, points, std::to_string(points.size()) + " curve points",
        {.choice = {.title = "Save curve as *.XY", .filter = "XY text file (*.XY)|*.XY"},
         .failure_title = "ERROR"});
}

bool enough_active_points(std::span<const datafiles::FitPoint> points, bool as_points) {
    const Result<void> enough = datafiles::check_active_points(points, as_points);
    if (enough) return true;
    dialogs::tell(enough.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
    return false;
}

}  // namespace quor::session
