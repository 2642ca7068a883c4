#include "calculation/result_view.h"

#include "calculation/batch_list.h"
#include "calculation/calc_batch.h"
#include "calculation/calc_modes.h"
#include "calculation/job.h"
#include "calculation/protocol.h"
#include "calculation/start_calculation.h"
#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "session/module2.h"

namespace quor::calculation {

using constants::kPresent;
using legacy::the_session;

namespace {

constexpr std::int16_t kVirialMode = 11, kPolytropicMode = 12, kFirstWithoutList = 6;

bool is_active(std::int16_t index) {
    return data_set(index).skip == 0;
}

/// The next active data set from `index` on in steps of `step`, 0 when there is none.
std::int16_t next_active(std::int16_t index, std::int16_t step) {
    while (index >= 1 && index <= the_session.BatchCount) {
        if (is_active(index)) return index;
        index = static_cast<std::int16_t>(index + step);
    }
    return 0;
}

void name_data_set(ResultView& view) {
    view.inputCaption = the_session.BatchMode ? " Specification value from set #" +
                                                    std::to_string(the_session.DataSetIndex)
                                              : " Specification value from input ";
}

void step(ResultView& view, std::int16_t by) {
    const std::int16_t next =
        next_active(static_cast<std::int16_t>(the_session.DataSetIndex + by), by);
    if (next == 0) {
        dialogs::Beep();
    } else {
        the_session.DataSetIndex = next;
    }
    name_data_set(view);
    recalculate(view);
}

bool is_without_list(std::int16_t mode) {
    return mode == kVirialMode || is_database_function(mode);
}

/// Which panels of the view belong to a mode.
void set_panels(ResultView& view, std::int16_t mode) {
    if (!the_session.BatchMode) {
        view.okCaption = "Close";
        view.stepVisible = view.resultOutputVisible = false;
    }
    if (is_tank(mode)) view.protocolVisible = false;
    if (is_without_list(mode)) view.resultOutputVisible = false;
    view.wide = mode == kPolytropicMode;
    view.extendedVisible = !is_vaporisation(mode) && !is_without_list(mode);
    view.extendedEnabled = !is_equilibrium(mode) || the_session.GlobalCalculation;
}

int separator_index() {
    switch (the_session.CsvSeparator) {
        case ',':
            return 1;
        case '\t':
            return 2;
        default:
            return 0;
    }
}

}  // namespace

ResultView open_result_view() {
    const std::int16_t mode = the_session.CalcMode;
    ResultView view;
    the_session.EquilibriumFunctions = false;
    the_session.OutputPage = 1;
    set_panels(view, mode);
    if (!is_tank(mode))
        legacy::the_ResultRecords.resize(static_cast<std::size_t>(the_session.BatchCount) + 1);
    view.title = mode_title(mode);
    view.caption = result_caption(mode);
    if (the_session.BatchMode) {
        const std::int16_t first = next_active(1, 1);
        the_session.DataSetIndex = first == 0 ? std::int16_t{1} : first;
    } else {
        the_session.DataSetIndex = 0;
    }
    name_data_set(view);
    for (calculation::ResultRecord& record : legacy::the_ResultRecords) record.State = "   ";
    view.separatorIndex = separator_index();
    recalculate(view);
    return view;
}

void recalculate(ResultView& view) {
    CalcCall call{
        .Mode = the_session.CalcMode, .Index = the_session.DataSetIndex, .Text = view.title};
    CalcBatch(call);
    view.empty = call.Text == "EXIT";
}

void step_forward(ResultView& view) {
    step(view, 1);
}
void step_backward(ResultView& view) {
    step(view, -1);
}

void set_equilibrium_functions(ResultView& view, bool on) {
    the_session.EquilibriumFunctions = on;
    recalculate(view);
}

void set_extended_pages(ResultView& view, bool functions, bool derivatives) {
    the_session.OutputPage =
        static_cast<std::int16_t>(1 + (functions ? 1 : 0) + (derivatives ? 2 : 0));
    view.funcPrintEnabled = the_session.OutputPage > 1 && the_session.CalcMode < kFirstWithoutList;
    recalculate(view);
}

bool finish_result_view(const ResultView& view, ListTarget target, bool withExtended) {
    if (target == ListTarget::Printer)
        calculation::print_result(view.title, the_session.GlobalCalculation, withExtended);
    if (target == ListTarget::File) {
        const auto name = dialogs::choose_file({.save = true,
                                                .title = "Save QUOR result list as ...",
                                                .filter = "Result file (*.LST)|*.LST",
                                                .folder = session::write_folder().string(),
                                                .defaultExtension = ".LST",
                                                .overwritePrompt = true});
        if (!name) return false;
        if (!calculation::result_file(*name, view.title, the_session.GlobalCalculation,
                                      withExtended))
            return false;
    }
    views().closeResultView();
    views().closeParinput();
    return true;
}

bool prepare_iso_calculator(const std::string& T, const std::string& p) {
    calculation::BatchDataSet& input = legacy::the_BatchData.front();
    const calculation::BatchDataSet set = data_set(the_session.DataSetIndex);
    const double givenT = the_session.BatchMode ? set.T : numbers::val_input(T);
    const double givenP = the_session.BatchMode ? set.p : numbers::val_input(p);
    if (!(givenT > kPresent) && !(givenP > kPresent)) {
        dialogs::tell("not yet a T|p value available!", "Execution not possible");
        return false;
    }
    input.T = givenT;
    input.p = givenP;
    return true;
}

}  // namespace quor::calculation
