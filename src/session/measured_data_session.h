#pragma once

#include <string>

#include "session/session.h"

/// The experimental data of the session: files with their questions. Refusals are told.
namespace quor::session {

/// Asks for a file of experimental data and loads it, in place of the present data or behind them.
/// False when nothing was loaded.
bool load_measured_data(Session& session, bool append);
/// The same for a known file.
bool load_measured_data(Session& session, const std::string& name, bool append);

/// Asks for a name and writes the experimental data. False when nothing was written.
bool save_measured_data(Session& session);
/// Before data are left: asks whether to save unsaved ones. True when they may be left, because
/// there is nothing to save, they are saved, or the user does not want to.
bool may_leave_measured_data(Session& session);

/// Asks for a name and writes T and one column (1 p, 2 rhoL, 3 rhoV, 4 hLV, 5 cp) of the active
/// sets that have a value there as .XY. False when nothing was written.
bool save_measured_column(Session& session, int column);

/// Leaves no data, no file and no substance that they belong to.
void clear_measured_data(Session& session);

}  // namespace quor::session
