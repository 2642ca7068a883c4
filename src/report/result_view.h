#pragma once

#include <string>

#include "report/calculation_state.h"

namespace quor::report {

/// What `ResultView` shows round the texts of a result.
struct ResultView {
    std::string caption;               ///< of the window
    std::string title;                 ///< of the calculation, for lists
    std::string inputCaption;          ///< caption of `fraBatchVorgabe`
    std::string okCaption = "=>Load";  ///< of `cmdCalc_OK`
    bool stepVisible = true;           ///< `cmdVor`, `cmdRueck`
    bool resultOutputVisible = true;   ///< `fraResultOutput`
    bool protocolVisible = true;       ///< `fraProtokoll`
    bool extendedVisible = true;       ///< `fraCalcErweitert`
    bool extendedEnabled = true;       ///< it, `ResPlus` and `chkUHS`
    bool funcPrintEnabled = false;     ///< `chkFuncPrint`
    bool wide = false;                 ///< the polytropic process needs more room
    int separatorIndex = 0;            ///< entry of `cmbSep`
};

/// The view for a task as it opens.
ResultView describe_result_view(calculation::Task task, const calculation::Method& method,
                                bool batch);

/// Caption of what was given: which data set, or the input (0).
std::string input_caption(std::size_t dataSet);

/// `optResultPrint`: where a list of results goes.
enum class ListTarget { None, Printer, File };

}  // namespace quor::report
