#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>

/// Questions that several files and lists ask in the same words.
namespace quor::session {

/// Before something unsaved is left: "Data not yet saved." "Save now?", or other words. True when
/// it may be left: for Yes, when `save` has saved it, and for No. False for a cancel.
bool may_leave_unsaved(const std::function<bool()>& save,
                       const std::string& question = "Data not yet saved.\nSave now?");

/// Before marked lines are removed: asks about line `first`, or the lines `first` to `last`
/// (from 1). Without a mark (first below 1) it says so. True when they shall go.
bool confirm_removal(int first, int last);

/// Says which lines of a table hold something that is no number and are inactive for that: places
/// from 0, behind the `before` lines that the table had. Nothing for none.
void tell_wrong_lines(std::span<const std::size_t> places, std::size_t before = 0);

}  // namespace quor::session
