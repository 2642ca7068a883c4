#pragma once

#include "models/cubic_eos.h"
#include "models/model_choice.h"
#include "session/session.h"

namespace quor::session {

/// "Models OK": tells what the user should know, computes what the choice needs, and enables the
/// commands of a complete one. False, and nothing changed, when the equation of state cannot be
/// had.
bool take_models(Session& session, const models::ModelChoice& choice);

/// Computes the constants of an equation of state for the present substance. The parameters of
/// Ji/Torvik come from their program unless they are given; what it cannot do is told. False where
/// the equation cannot be had: there are no constants then.
bool compute_constants(Session& session, models::Eos eos);

/// The commands that a complete choice of models enables, for the present equation of state.
void enable_model_commands(Session& session);

}  // namespace quor::session
