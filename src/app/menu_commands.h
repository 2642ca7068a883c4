#pragma once

#include "app/menu_catalogue.h"

/// What the menu does to the session before the view behind a row opens.
namespace quor::menu {

/// Writes the session fields that a row stands for and asks what has to be asked first. False ends
/// the command: a refusal, or the user's No.
bool prepare(session::Session& session, const Row& row);

/// The Data menu opens: measured data can be edited once there are some.
void open_data_menu(session::Session& session);

}  // namespace quor::menu
