#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "common/result.h"
#include "datafiles/substance_editor.h"
#include "session/session.h"

/// The database and the substance of the session.
namespace quor::session {

/// Reads a database; a name without a folder is looked up among the program's files. Nothing
/// changes.
Result<datafiles::Database> read_database(Session& session, const std::string& path);
/// Makes a database the open one; a name without a folder is looked up among the program's files.
/// When it is refused the open one stays.
Result<void> open_database(Session& session, const std::string& path);

/// Asks for the file of a database; nothing for a cancel.
std::optional<std::string> choose_database(const Session& session);

enum class LoadOutcome { Loaded, Cancelled, Failed };

/// Asks for a database and opens it; a failure is told. A cancel changes nothing.
LoadOutcome load_database(Session& session);
/// The same for a known file, as for one that was dropped on the frame.
LoadOutcome load_database(Session& session, const std::string& path);

/// A folder, besides the program's, in which a database named by a project is looked for. Every
/// database that is loaded adds its own.
void add_database_folder(Session& session, const std::filesystem::path& folder);

/// How a user knows a CASRN: with the name that the synonyms have for it.
std::string known_name(Session& session, const std::string& casrn);

/// What a text names exactly, as name, synonym, R-number, CASRN or "#number": its place (from 1) in
/// the open database, 0 where that has not the substance; nothing for a text that names none.
/// Nothing is told.
std::optional<std::int16_t> exact_substance(Session& session, const std::string& search);

/// The place (from 1) of what the user typed, 0 for none, which is told.
std::int16_t find_substance(Session& session, const std::string& search);

struct SubstanceRead {
    bool no_critical_data =
        false;  ///< Tcrit or pcrit is missing; the record is loaded all the same
};
/// Makes a substance of the open database (from 1) the active one, with its best vapour pressure
/// equation. Refused when the record could not be read: the substance stays as it was.
Result<SubstanceRead> read_substance(Session& session, std::int16_t index);

/// Makes an entry of the open database (from 1) the substance of the session: the session is
/// reset, loaded experimental data are questioned, the record is read, and what depends on it is
/// computed. False when the substance cannot be calculated with, which is told; then no models can
/// be chosen.
bool take_substance(Session& session, std::int16_t index);

/// Before the active substance or the program is left: asks about parameters of a fit that no file
/// holds. True when it may be left: there are none, they were saved, or the user gives them up.
bool may_leave_substance(Session& session);

/// Asks for a name and writes the active substance to a private database of one substance. What
/// the session does not hold comes from the substance's record in the open database. False when
/// nothing was written, which is told.
bool save_private_database(Session& session);

// The substance editor

/// Reads the fields into the active substance, with the constants of its EOS and the units that
/// follow. Where its critical data are complete only now, models can be chosen from here on.
void apply_editor(Session& session, datafiles::EditorTexts& texts);

/// Text of the triple point pressure: of the record, or from the active vapour pressure equation at
/// the triple point. Nothing, after a message, when the equation has no value there.
std::optional<std::string> triple_point_pressure(const Session& session, bool from_equation);

/// True when the view may close: nothing was changed, or the user gives the changes up.
bool may_close_editor(const datafiles::EditorTexts& shown, const datafiles::EditorTexts& now);

/// "actual vapour-pressure equation:" with the name of the active one.
std::string active_equation_caption(const Session& session);
/// "Database loaded:  " with the title of the file.
std::string database_caption(const Session& session);

}  // namespace quor::session
