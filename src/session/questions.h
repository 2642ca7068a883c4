#pragma once

#include <string>

/// Questions that several files and lists ask in the same words.
namespace quor::session {

/// A file about to be written: asks "such a file is already existing" when there is one. True when
/// it may be written.
bool may_replace(const std::string& path);

/// "Data not yet saved." "Save now?"; true for Yes.
bool ask_to_save_now();

/// Before marked lines are removed: asks about line `first`, or the lines `first` to `last`
/// (from 1). Without a mark (first below 1) it says so. True when they shall go.
bool confirm_removal(int first, int last);

}  // namespace quor::session
