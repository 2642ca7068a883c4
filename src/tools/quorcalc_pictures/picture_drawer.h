#pragma once

/// Pictures of quorcalc, drawn with the painters of the program's windows.
namespace quor::picture_drawer {

/// Installs the drawer. Fonts and painters start with the first picture, so that calls without one
/// stay quick. No display is needed.
void Install();

}  // namespace quor::picture_drawer
