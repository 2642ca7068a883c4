#pragma once

#include <optional>
#include <string>

#include "datafiles/xy_file.h"
#include "session/session.h"

/// The list of x-y points of the session: files with their questions. Failures are told.
namespace quor::session {

/// Asks for a file and takes its points and comment into the list. Gives the path, nothing on a
/// cancel or a failure.
std::optional<std::string> load_xy(Session& session);
/// The same for a known file.
std::optional<std::string> load_xy(Session& session, const std::string& name);

/// Asks for a name and writes the active points of the list. False when nothing was written.
bool save_xy(Session& session);
/// The same for any points.
bool save_xy(Session& session, const datafiles::XyData& data);
/// Before the list is left: asks whether to save an unsaved one. True when it may be left.
bool may_leave_xy(Session& session);

/// Asks for a name and writes the points of a curve. False when nothing was written.
bool save_curve_as_xy(Session& session, std::span<const datafiles::FitPoint> points);

/// True when there are enough active points for a set of points or a curve; else it says so.
bool enough_active_points(std::span<const datafiles::FitPoint> points, bool as_points);

}  // namespace quor::session
