#include "session/end_session.h"

#include "common/dialogs.h"
#include "session/calculations.h"
#include "session/project_session.h"

namespace quor::session {

namespace {

/// False when the user wants to go on.
bool leave_last_session(Session& session) {
    // A session without a substance would overwrite one that has it.
    if (!session->substance_set) return true;
    const Result<void> written = save_last_session(session);
    if (written) return true;
    using dialogs::Answer;
    const Answer answer =
        dialogs::show({.text = written.reason() + "\nThe next start will not find this session.\n\n"
                                                  "Save it as a project in another place?",
                       .title = "WARNING",
                       .icon = dialogs::Icon::Exclamation,
                       .buttons = dialogs::Buttons::YesNoCancel,
                       .default_answer = Answer::Yes});
    return answer == Answer::Yes ? save_project(session) : answer == Answer::No;
}

}  // namespace

bool end_session(Session& session) {
    return close_protocol(session) && leave_last_session(session);
}

}  // namespace quor::session
