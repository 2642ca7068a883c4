#pragma once

#include "diagrams/prepare_2d.h"
#include "diagrams/sheet_draw.h"
#include "session/session.h"

/// What diagrams and surfaces are drawn with, from the session.
namespace quor::session {

/// Fluid, reference state and units. Throws as `models::make_units`.
diagrams::Basis present_basis(const Session& session);

/// The pen of the next curve. Where the chosen units cannot be had it has molar ones; without a
/// substance it has no fluid.
diagrams::Pen present_pen(const Session& session);

/// With what the next diagram begins.
diagrams::DiagramStart present_start(const Session& session);

/// What the next diagram begins with is kept.
void keep_start(Session& session, const diagrams::DiagramStart& start);

/// The limits of diagrams are proposed anew for the present models and units.
void renew_limits(Session& session);

/// A substance's name for the title of a file; the open database may know a shorter one.
std::string short_name(const Session& session, const models::SubstanceRecord& substance);

}  // namespace quor::session
