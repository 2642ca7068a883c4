#pragma once

#include <functional>
#include <optional>
#include <string>

#include "common/dialogs.h"
#include "common/result.h"

/// How every view saves a file: nothing that could not be written is given up without the user.
namespace quor::saving {

/// A file about to be written: asks "such a file is already existing" when there is one. True when
/// it may be written.
bool may_replace(const std::string& path);

/// What is saved.
struct Saved {
    dialogs::FileChoice choice{};  ///< the question for a place, with its folder and extension
    /// The content for a place, or why nothing can be saved there.
    std::function<Result<std::string>(const std::string& path)> content{};
    std::string failure_title = dialogs::kNotPossible;
    /// The path of a name that was chosen; none: the folder and the extension of the choice
    /// complete it.
    std::function<std::string(const std::string& name)> place{};
};

/// Asks for a place and writes the file there. Where that fails, the reason is told and another
/// place is offered, until the file is written or the user gives up: then there is no path. A file
/// that is there already is replaced only when the user has agreed, be it that another program has
/// made it in between.
std::optional<std::string> save_where_chosen(const Saved& saved);

enum class Elsewhere { saved, leftAlone, cancelled };
/// After a file could not be written to its usual place: tells the reason and offers another place.
/// `leftAlone` and `cancelled` are the user's answers "No" and "Cancel". The path of a saved file
/// goes to `path`.
Elsewhere save_elsewhere(const std::string& reason, const Saved& saved, std::string& path);

}  // namespace quor::saving
