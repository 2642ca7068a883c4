#pragma once

#include <string>
#include <vector>

namespace quor::calculation {

/// What `ResultView` shows round the texts of `resultText`.
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
    bool empty = false;                ///< execution was refused: the view stays empty
    int separatorIndex = 0;            ///< entry of `cmbSep`
};

/// Entries of `cmbSep`.
inline constexpr const char* kSeparatorNames[] = {"semicolon", "comma", "Tab"};

/// The view as it opens: resets pages and results, chooses the first active data set, calculates.
ResultView open_result_view();

/// `CalcBatch` of the present mode and data set with the view's title.
void recalculate(ResultView& view);

/// `cmdVor` and `cmdRueck`: the next active data set forward or backward; a beep at the ends.
void step_forward(ResultView& view);
void step_backward(ResultView& view);

/// `chkUHS` click.
void set_equilibrium_functions(ResultView& view, bool on);
/// `ResPlus` click: whether `ResPlus`(1) and `ResPlus`(2) are checked.
void set_extended_pages(ResultView& view, bool functions, bool derivatives);

/// `optResultPrint`: where a list of results goes.
enum class ListTarget { None, Printer, File };
/// `cmdCalc_OK`: the list of results as asked. False when the user cancelled or the file could not
/// be written; the views then stay open, else they close.
bool finish_result_view(const ResultView& view, ListTarget target, bool withExtended);

/// `cmdIsoCalc` with the first two fields of the input view: true when the iso-calculator can open.
/// In batch mode the present data set stands in. T and p then stand in the direct input.
bool prepare_iso_calculator(const std::string& T, const std::string& p);

}  // namespace quor::calculation
