#include "session/end_session.h"

#include "session/calculations.h"
#include "session/project_session.h"

namespace quor::session {

void end_session(Session& session) {
    close_protocol(session);
    // A session without a substance would overwrite one that has it.
    if (session->substance_set) save_project(session, false);
}

}  // namespace quor::session
