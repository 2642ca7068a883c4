#pragma once

#include <vector>

#include "common/dialogs.h"
#include "report/report.h"

namespace quor::report {

/// Which boxes appear.
enum class Tell {
    necessary,  ///< only what one must know, for calculations of many states
    remarks,    ///< remarks too
    all         ///< remarks on the content of a tank too, for one that was just typed
};

/// The boxes that belong to an answer, in their order.
std::vector<dialogs::Message> messages(const calculation::Answer& answer,
                                       const models::SubstanceRecord& substance, Tell tell);

/// Shows them.
void show(const std::vector<dialogs::Message>& messages);

}  // namespace quor::report
