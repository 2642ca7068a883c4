#pragma once

#include "common/progress.h"

namespace quor::progress {

/// Shows a long work as a box with a bar and "Cancel"; for the thread of the windows.
Show desktop();

}  // namespace quor::progress
