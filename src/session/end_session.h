#pragma once

#include "session/session.h"

namespace quor::session {

/// The end of a session: pending rows of the protocol are written, an empty protocol file is
/// deleted, and the session is saved as the last one where it has a substance. What cannot be
/// written is told, and another place offered; false when the user wants to go on instead.
bool end_session(Session& session);

}  // namespace quor::session
