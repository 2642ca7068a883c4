#pragma once

#include "models/model_choice.h"

namespace quor::session {

/// "Models OK": tells what the user should know, computes what the choice needs, and enables the
/// commands of a complete one. False, and nothing changed, when the equation of state cannot be
/// had.
bool take_models(const models::ModelChoice& choice);

/// The commands that a complete choice of models enables, for the present equation of state.
void enable_model_commands();

}  // namespace quor::session
