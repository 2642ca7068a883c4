#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"

namespace quor::session {

/// The tips of the day: one tip a line of a text file in the program's folder.
struct Tips {
    std::vector<std::string> lines;
    std::size_t current = 0;  ///< index of the line shown
    bool missing = false;     ///< the file is not there
};

/// "QUORTIPS_E.TXT", or "QUORTIPS.TXT" when the interface is not English.
std::string tips_file(const Session& session);

/// Reads the tips file and starts at the line that the random number picks. A missing file gives no
/// lines and is reported to the user; blank lines are no tips.
Tips load_tips(const Session& session, std::uint32_t random_number);

/// The line shown, empty when there is none.
const std::string& current_tip(const Tips& tips);

/// Moves to the next line; behind the last comes the first.
void next_tip(Tips& tips);

/// True when the view of the tips unloads at once: tips at start-up are switched off and nobody
/// asked for them.
bool tips_stay_hidden(bool show_at_startup, bool requested);

}  // namespace quor::session
