#pragma once

#include "tools/quorcalc/pictures.h"

/// Pictures of quorcalc, drawn with the painters of the program's windows.
namespace quor::picture_drawer {

/// A drawer. Its fonts and painters start with the first picture, so that calls without one stay
/// quick, and end with the drawer. No display is needed.
quorcalc::PictureDrawer make();

}  // namespace quor::picture_drawer
