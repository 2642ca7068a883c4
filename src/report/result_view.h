#pragma once

#include <string>

#include "report/calculation_state.h"

namespace quor::report {

/// What `ResultView` shows round the texts of a result.
struct ResultView {
    std::string caption;                  ///< of the window
    std::string title;                    ///< of the calculation, for lists
    std::string input_caption;            ///< caption of `fraBatchVorgabe`
    std::string ok_caption = "=>Load";    ///< of `cmdCalc_OK`
    bool step_visible = true;             ///< `cmdVor`, `cmdRueck`
    bool result_output_visible = true;    ///< `fraResultOutput`
    bool protocol_visible = true;         ///< `fraProtokoll`
    bool extended_visible = true;         ///< `fraCalcErweitert`
    bool extended_enabled = true;         ///< it, `ResPlus` and `chkUHS`
    bool function_print_enabled = false;  ///< `chkFuncPrint`
    bool wide = false;                    ///< the polytropic process needs more room
    int separator_index = 0;              ///< entry of `cmbSep`
};

/// The view for a task as it opens.
ResultView describe_result_view(calculation::Task task, const calculation::Method& method,
                                bool batch);

/// Caption of what was given: which data set, or the input (0).
std::string input_caption(std::size_t data_set);

/// `optResultPrint`: where a list of results goes.
enum class ListTarget { None, Printer, File };

}  // namespace quor::report
