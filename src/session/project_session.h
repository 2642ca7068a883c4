#pragma once

#include <optional>
#include <string>

#include "datafiles/project_file.h"
#include "session/session.h"

/// The session as a project, and back.
namespace quor::session {

/// What the loading of a project has brought about.
struct ProjectResult {
    bool loaded = false;            ///< the settings are those of the file
    bool substance_found = false;   ///< its substance could be read and is active
    bool no_critical_data = false;  ///< the active substance lacks Tcrit or pcrit
    /// Everything that a calculation needs is there: the commands that need a substance and models
    /// may be enabled.
    bool models_complete = false;
};

/// Saves the session as a project: asks for name and comment. False when the user gave up.
bool save_project(Session& session);
/// Writes the last session (`last_session_file`) without a question; the reason of a failure names
/// the file.
Result<void> save_last_session(Session& session);

/// Asks for a project file; nothing on a cancel.
std::optional<std::string> choose_project(Session& session);
/// A project with a database that has its substance.
struct PreparedProject {
    std::string path{};
    datafiles::ProjectContent content{};
    datafiles::Database database{};
    std::string database_file{};  ///< title of the database
};
/// Reads a project and finds its database: its own, else the open one, else one that the user
/// chooses when asked. Nothing, which is told, when the file is no project or no database has its
/// substance. The session does not change.
std::optional<PreparedProject> prepare_project(Session& session, const std::string& name);
/// Makes a prepared project the session: resets it, reads the substance and restores the settings.
ProjectResult load_project(Session& session, const PreparedProject& project);

/// Asks for a project and loads it. A cancel changes nothing.
ProjectResult load_project(Session& session);
/// Prepares a project and loads it.
ProjectResult load_project(Session& session, const std::string& name);
/// Loads the project that the last run has left.
ProjectResult load_last_session(Session& session);

/// The present session as the content of a project.
datafiles::ProjectContent present_project(const Session& session);

}  // namespace quor::session
