#include "datafiles/batch_file.h"

#include <algorithm>

#include "common/dialogs.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/batch_table.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/questions.h"
#include "datafiles/search.h"
#include "datafiles/substance_file.h"
#include "datafiles/xy_file.h"
#include "legacy/declare.h"
#include "session/module2.h"

namespace quor::datafiles {

namespace {

using calculation::BatchDataSet;
using legacy::the_session;

constexpr const char* kExtension = ".BAQ";
constexpr const char* kFilter = "QUOR-specific file (*.BAQ)|*.BAQ";
constexpr const char* kRefusal = "Execution not possible";
constexpr const char* kWarning = "WARNING";
constexpr std::size_t kHeadLines = 4;

BatchDataSet read_set(std::string_view line) {
    const std::vector<std::string> cells = text::split(line, ',');
    const auto cell = [&](std::size_t i) {
        return i < cells.size() ? std::string_view(cells[i]) : "";
    };
    BatchDataSet set;
    set.T = cell_number(cell(0));
    set.p = cell_number(cell(1));
    set.rhoL = cell_single(cell(2));
    set.rhoV = cell_single(cell(3));
    set.hLV = cell_single(cell(4));
    set.cp = cell_single(cell(5));
    return set;
}

std::string set_line(const BatchDataSet& s) {
    return exact(s.T) + "," + exact(s.p) + "," + exact(s.rhoL) + "," + exact(s.rhoV) + "," +
           exact(s.hLV) + "," + exact(s.cp);
}

/// The questions before data are taken over; true when they may be.
bool may_load(const std::string& casrn) {
    const std::int16_t index = find_by_casrn(casrn);
    if (index == 0 && !dialogs::ask(text::pad_right(casrn, kCasrnLength) +
                                        "substance not found in the actual data base\n"
                                        "    Load data nevertheless?",
                                    kWarning, dialogs::Icon::Exclamation))
        return false;
    if (the_session.CurrentSubstance == 0) {
        dialogs::tell("Load a substance!", kWarning);
        return false;
    }
    const bool other = index != 0 && index != the_session.CurrentSubstance;
    return !other || dialogs::ask(
                         "You are trying to load a data set \nfor different substance!\n\n"
                         "Load T-p-rho data nevertheless?",
                         kWarning, dialogs::Icon::Exclamation);
}

/// The content of a file; nothing, after a message, when it cannot be read or is none.
std::optional<BatchFileContent> read_file(const std::string& path) {
    FileContent content;
    std::optional<BatchFileContent> file;
    {
        const session::BusyPointer busy;
        content = read_whole(path);
        if (content.error.empty()) file = read_batch_text(content.bytes);
    }
    if (file) return file;
    const std::string title = session::file_title(path);
    dialogs::tell(content.error.empty() ? "The file " + title + " holds no experimental data."
                                        : content.error,
                  kRefusal, dialogs::Icon::Stop);
    return std::nullopt;
}

void tell_missing_sets(const BatchFileContent& file, const std::string& title) {
    dialogs::tell("The file " + title + " announces " + exact(file.announced) +
                      " sets of data, but holds only " + std::to_string(file.sets.size()) + ".",
                  kWarning);
}

/// Files hold the whole data of the list; the direct input in element 0 is no part of it.
std::span<const BatchDataSet> loaded_sets() {
    const std::span<const BatchDataSet> behind_direct_input =
        std::span<const BatchDataSet>(legacy::the_BatchData).subspan(1);
    const auto count = static_cast<std::size_t>(the_session.BatchCount);
    return behind_direct_input.first(std::min(count, behind_direct_input.size()));
}

bool save_to(const std::string& path) {
    const std::span<const BatchDataSet> sets = loaded_sets();
    const std::string error =
        write_whole(path, BatchText({.date = session::short_date(),
                                     .comment = the_session.BatchComment,
                                     .casrn = legacy::the_substance.CASRN,
                                     .announced = static_cast<double>(sets.size()),
                                     .sets = {sets.begin(), sets.end()}}));
    if (error.empty()) return true;
    dialogs::tell(error, kRefusal, dialogs::Icon::Stop);
    return false;
}

}  // namespace

std::optional<BatchFileContent> read_batch_text(const std::string& ansiText) {
    const std::vector<std::string> lines = text::Lines(text::from_ansi(ansiText));
    if (lines.size() < kHeadLines) return std::nullopt;
    BatchFileContent file{.date = lines[0], .comment = lines[1], .casrn = lines[2]};
    file.announced = std::max(0.0, cell_number(lines[3]));
    for (std::size_t i = kHeadLines; i < lines.size(); ++i) {
        if (static_cast<double>(file.sets.size()) + 1.0 > file.announced) break;
        file.sets.push_back(read_set(lines[i]));
    }
    // A last line that is cut short may hold half a number.
    const bool open = ansiText.back() != '\n' && ansiText.back() != '\r';
    const bool incomplete = static_cast<double>(file.sets.size()) < file.announced;
    if (open && incomplete && !file.sets.empty()) file.sets.pop_back();
    // A file that is all head has lost its data.
    if (file.sets.empty() && file.announced >= 1) return std::nullopt;
    return file;
}

std::string BatchText(const BatchFileContent& file) {
    std::string text =
        ansi_lines({one_line(file.date), one_line(file.comment),
                    text::pad_right(file.casrn, kCasrnLength), exact(file.announced)});
    for (const BatchDataSet& set : file.sets) text += set_line(set) + "\r\n";
    return text;
}

bool batch_load(bool append) {
    const std::optional<std::string> name =
        dialogs::choose_file({.title = "Open a batch-file of experimental data (*.BAQ)",
                              .filter = kFilter,
                              .folder = the_session.FolderBatch,
                              .defaultExtension = kExtension});
    return name && !name->empty() && batch_load(*name, append);
}

bool batch_load(const std::string& name, bool append) {
    const std::string path = InFolder(name, the_session.FolderBatch);
    const std::string title = session::file_title(path);
    const std::optional<BatchFileContent> file = read_file(path);
    if (!file || !may_load(file->casrn)) return false;

    const std::size_t kept = append ? static_cast<std::size_t>(the_session.BatchCount) : 0;
    if (kept + file->sets.size() > kMostBatchSets) {
        dialogs::tell("There is room for " + std::to_string(kMostBatchSets) + " sets of data only.",
                      kRefusal, dialogs::Icon::Stop);
        return false;
    }
    if (static_cast<double>(file->sets.size()) < file->announced) tell_missing_sets(*file, title);
    if (kept == 0) {
        remove_batch_sets(1, the_session.BatchCount);
        the_session.BatchFile = title;
        the_session.BatchComment = file->comment;
        the_session.BatchCasrn = file->casrn;
    }
    insert_batch_sets(the_session.BatchCount + 1, file->sets);
    the_session.FolderBatch = session::folder_of(path);
    return true;
}

bool batch_save() {
    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "Save exper. data as text file *.BAQ",
                              .filter = kFilter,
                              .folder = the_session.FolderBatch,
                              .name = the_session.BatchFile,
                              .defaultExtension = kExtension});
    if (!name || name->empty()) return false;
    const std::string path = target_path(*name, the_session.FolderBatch, kExtension);
    if (!may_replace(path) || !save_to(path)) return false;
    the_session.BatchFile = session::file_title(path);
    the_session.FolderBatch = session::folder_of(path);
    the_session.BatchCasrn = text::pad_right(legacy::the_substance.CASRN, kCasrnLength);
    return true;
}

bool batch_save_frage(bool changed) {
    return !changed || !ask_to_save_now() || batch_save();
}

bool batch_save_xy(int column) {
    std::vector<datafiles::FitPoint> points;
    for (const BatchDataSet& set : loaded_sets()) {
        const double y = fit_column_value(set, column);
        if (set.skip == 0 && y != 0)
            points.push_back({single_or_zero(set.T), single_or_zero(y), 0});
    }
    return xy_save(the_session.BatchComment, points);
}

}  // namespace quor::datafiles
