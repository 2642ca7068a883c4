#pragma once

#include <string>

#include "session/session.h"

/// What the session reports of itself: texts only, the frame shows them.
namespace quor::session {

struct Report {
    std::string title;
    std::string text;  ///< lines separated by '\n'
};

/// "Loaded are ...": database, substance, models and experimental data of the session.
Report status_report(const Session& session);

/// The constants of the active equation of state and its critical volume.
Report parameter_report(const Session& session);

/// Texts of the panels of the status bar; empty as long as there is nothing to name.
struct StatusPanels {
    std::string substance, eos, vapour_pressure;
    std::string reference;  ///< "h, s: IIR", the zero of h and s
};

/// Substance and models. Of two models that both give p(LV) the one with priority is marked. The
/// models stay empty without a complete choice.
StatusPanels panel_texts(const Session& session, bool models_complete);

}  // namespace quor::session
