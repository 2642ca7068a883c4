#include "session/measured_data_session.h"

#include <algorithm>
#include <vector>

#include "common/dialogs.h"
#include "common/save_file.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/measured_table.h"
#include "datafiles/search.h"
#include "session/questions.h"
#include "session/xy_session.h"

namespace quor::session {

namespace {

using datafiles::MeasuredData;
using datafiles::MeasuredDataFile;
using datafiles::MeasuredPoint;

constexpr const char* kExtension = ".BAQ";
constexpr const char* kFilter = "QUOR-specific file (*.BAQ)|*.BAQ";
constexpr const char* kWarning = "WARNING";

/// The place (from 1) of a substance in the open database, 0 for none.
int index_of(const Session& session, const std::string& casrn) {
    const std::optional<std::size_t> place = datafiles::find_by_casrn(session->database, casrn);
    return place ? static_cast<int>(*place) + 1 : 0;
}

/// The questions before data are taken over; true when they may be.
bool may_load(const Session& session, const std::string& casrn) {
    const int index = index_of(session, casrn);
    if (index == 0 && !dialogs::ask(text::pad_right(casrn, datafiles::kCasrnLength) +
                                        "substance not found in the actual data base\n"
                                        "    Load data nevertheless?",
                                    kWarning, dialogs::Icon::Exclamation))
        return false;
    if (session->substance_number == 0) {
        dialogs::tell("Load a substance!", kWarning);
        return false;
    }
    const bool other = index != 0 && index != session->substance_number;
    return !other || dialogs::ask(
                         "You are trying to load a data set \nfor different substance!\n\n"
                         "Load T-p-rho data nevertheless?",
                         kWarning, dialogs::Icon::Exclamation);
}

/// The content of a file; nothing, after a message, when it cannot be read or is none.
std::optional<MeasuredDataFile> read_file(Session& session, const std::string& path) {
    const auto read = [&]() -> Result<MeasuredDataFile> {
        const BusyPointer busy(session);
        const Result<std::string> bytes = files::read_whole(path);
        if (!bytes) return bytes.failure();
        return datafiles::read_measured_data(*bytes, paths::file_title(path));
    };
    const Result<MeasuredDataFile> file = read();
    if (file) return *file;
    dialogs::tell(file.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
    return std::nullopt;
}

void tell_missing_sets(const MeasuredDataFile& file) {
    dialogs::tell("The file " + file.data.file + " announces " + datafiles::exact(file.announced) +
                      " sets of data, but holds only " + std::to_string(file.data.points.size()) +
                      ".",
                  kWarning);
}

/// Molar mass of the substance that a file's data belong to: of the active substance, which its
/// user may have edited, else of the database, else again of the active one.
double molar_mass_of(const Session& session, const std::string& casrn) {
    const int index = index_of(session, casrn);
    if (index != 0 && index != session->substance_number) {
        const auto other = session->database.read(static_cast<std::size_t>(index) - 1);
        if (other) return static_cast<double>(other->record.M);
    }
    return static_cast<double>(session->substance.M);
}

}  // namespace

bool load_measured_data(Session& session, bool append) {
    const std::optional<std::string> name =
        dialogs::choose_file({.title = "Open a batch-file of experimental data (*.BAQ)",
                              .filter = kFilter,
                              .folder = session->folder_measured,
                              .default_extension = kExtension});
    return name && !name->empty() && load_measured_data(session, *name, append);
}

bool load_measured_data(Session& session, const std::string& name, bool append) {
    const std::string path = paths::in_folder(name, session->folder_measured);
    const std::optional<MeasuredDataFile> file = read_file(session, path);
    if (!file || !may_load(session, file->data.casrn)) return false;

    MeasuredData data = append ? session->measured : MeasuredData{};
    const std::size_t before = data.points.size();
    const bool first = before == 0;
    if (data.points.size() + file->data.points.size() > datafiles::kMostMeasuredPoints) {
        dialogs::tell("There is room for " + std::to_string(datafiles::kMostMeasuredPoints) +
                          " sets of data only.",
                      dialogs::kNotPossible, dialogs::Icon::Stop);
        return false;
    }
    if (static_cast<double>(file->data.points.size()) < file->announced) tell_missing_sets(*file);
    if (first) {
        data = file->data;
        data.M = molar_mass_of(session, data.casrn);
    } else {
        data.points.insert(data.points.end(), file->data.points.begin(), file->data.points.end());
    }
    {
        const auto now = session.change();
        now->measured = std::move(data);
        now->measured_unsaved = !first;
        now->folder_measured = paths::folder_of(path);
    }
    tell_wrong_lines(file->wrong, before);
    return true;
}

bool save_measured_data(Session& session) {
    MeasuredData data = session->measured;
    if (text::trim(data.casrn).empty()) data.casrn = session->substance.casrn;
    const std::optional<std::string> path = saving::save_where_chosen(
        {.choice = {.save = true,
                    .title = "Save exper. data as text file *.BAQ",
                    .filter = kFilter,
                    .folder = session->folder_measured,
                    .name = session->measured.file,
                    .default_extension = kExtension},
         .content = [&](const std::string&) {
             return datafiles::measured_data_text(data, session.places().short_date());
         }});
    if (!path) return false;
    data.file = paths::file_title(*path);
    data.casrn = text::pad_right(data.casrn, datafiles::kCasrnLength);
    const auto now = session.change();
    now->measured = std::move(data);
    now->measured_unsaved = false;
    now->folder_measured = paths::folder_of(*path);
    return true;
}

bool may_leave_measured_data(Session& session) {
    return !session->measured_unsaved ||
           may_leave_unsaved([&session] { return save_measured_data(session); });
}

bool save_measured_column(Session& session, int column) {
    const MeasuredData& data = session->measured;
    std::vector<datafiles::FitPoint> points;
    for (const MeasuredPoint& set : data.points) {
        const double y = datafiles::fit_column_value(set, column);
        if (set.skip == 0 && y != 0)
            points.push_back({datafiles::single_or_zero(set.T), datafiles::single_or_zero(y), 0});
    }
    return save_xy(session, {.comment = data.comment, .points = std::move(points)});
}

void clear_measured_data(Session& session) {
    const auto now = session.change();
    now->measured = {};
    now->measured_unsaved = false;
}

}  // namespace quor::session
