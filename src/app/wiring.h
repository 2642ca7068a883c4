#pragma once

namespace quor::app {

/// Connects the actions of the menu with the views and engines behind them.
namespace wiring {

/// Registers everything that the program can do. A row of the menu without a handler stays
/// disabled.
void connectViews();

}  // namespace wiring

}  // namespace quor::app
