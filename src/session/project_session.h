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
    bool substance_found = false;   ///< its substance is active
    bool no_critical_data = false;  ///< the active substance lacks Tcrit or pcrit
    /// Everything that a calculation needs is there: the commands that need a substance and models
    /// may be enabled.
    bool models_complete = false;
};

/// Saves the session as a project. With a dialog it asks for name and comment; without, it writes
/// the last session (`last_session_file`) without a question. False when nothing was written; with
/// the dialog a failure is told.
bool save_project(Session& session, bool as_dialog);

/// Asks for a project file; nothing on a cancel.
std::optional<std::string> choose_project(Session& session);
/// True when a file is a project that can be loaded; else it says why not. Nothing changes.
bool may_load_project(Session& session, const std::string& name);
/// Asks for a project and loads it. A cancel changes nothing.
ProjectResult load_project(Session& session);
/// Loads a project: resets the session, opens its database, reads its substance and restores its
/// settings. What cannot be had is told, and the rest goes on. Nothing changes when the file is no
/// project, or when no database can be had.
ProjectResult load_project(Session& session, const std::string& name);
/// Loads the project that the last run has left.
ProjectResult load_last_session(Session& session);

/// The present session as the content of a project.
datafiles::ProjectContent present_project(const Session& session);

}  // namespace quor::session
