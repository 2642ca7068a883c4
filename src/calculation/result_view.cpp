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

namespace Zentrale {

using constants::kPresent;
using Declare::session;

namespace {

constexpr std::int16_t kVirialMode = 11, kPolytropicMode = 12, kFirstWithoutList = 6;

bool is_active(std::int16_t index) {
    return DataSet(index).skip == 0;
}

/// The next active data set from `index` on in steps of `step`, 0 when there is none.
std::int16_t next_active(std::int16_t index, std::int16_t step) {
    while (index >= 1 && index <= session.BatchCount) {
        if (is_active(index)) return index;
        index = static_cast<std::int16_t>(index + step);
    }
    return 0;
}

void name_data_set(ResultView& view) {
    view.inputCaption =
        session.BatchMode ? " Specification value from set #" + std::to_string(session.DataSetIndex)
                          : " Specification value from input ";
}

void step(ResultView& view, std::int16_t by) {
    const std::int16_t next = next_active(static_cast<std::int16_t>(session.DataSetIndex + by), by);
    if (next == 0) {
        dialogs::Beep();
    } else {
        session.DataSetIndex = next;
    }
    name_data_set(view);
    Recalculate(view);
}

bool is_without_list(std::int16_t mode) {
    return mode == kVirialMode || IsDatabaseFunction(mode);
}

/// Which panels of the view belong to a mode.
void set_panels(ResultView& view, std::int16_t mode) {
    if (!session.BatchMode) {
        view.okCaption = "Close";
        view.stepVisible = view.resultOutputVisible = false;
    }
    if (IsTank(mode)) view.protocolVisible = false;
    if (is_without_list(mode)) view.resultOutputVisible = false;
    view.wide = mode == kPolytropicMode;
    view.extendedVisible = !IsVaporisation(mode) && !is_without_list(mode);
    view.extendedEnabled = !IsEquilibrium(mode) || session.GlobalCalculation;
}

int separator_index() {
    switch (session.CsvSeparator) {
        case ',':
            return 1;
        case '\t':
            return 2;
        default:
            return 0;
    }
}

}  // namespace

ResultView OpenResultView() {
    const std::int16_t mode = session.CalcMode;
    ResultView view;
    session.EquilibriumFunctions = false;
    session.OutputPage = 1;
    set_panels(view, mode);
    if (!IsTank(mode))
        Declare::ResultRecords.resize(static_cast<std::size_t>(session.BatchCount) + 1);
    view.title = ModeTitle(mode);
    view.caption = ResultCaption(mode);
    if (session.BatchMode) {
        const std::int16_t first = next_active(1, 1);
        session.DataSetIndex = first == 0 ? std::int16_t{1} : first;
    } else {
        session.DataSetIndex = 0;
    }
    name_data_set(view);
    for (Declare::ResultRecord& record : Declare::ResultRecords) record.State = "   ";
    view.separatorIndex = separator_index();
    Recalculate(view);
    return view;
}

void Recalculate(ResultView& view) {
    CalcCall call{.Mode = session.CalcMode, .Index = session.DataSetIndex, .Text = view.title};
    CalcBatch(call);
    view.empty = call.Text == "EXIT";
}

void StepForward(ResultView& view) {
    step(view, 1);
}
void StepBackward(ResultView& view) {
    step(view, -1);
}

void SetEquilibriumFunctions(ResultView& view, bool on) {
    session.EquilibriumFunctions = on;
    Recalculate(view);
}

void SetExtendedPages(ResultView& view, bool functions, bool derivatives) {
    session.OutputPage = static_cast<std::int16_t>(1 + (functions ? 1 : 0) + (derivatives ? 2 : 0));
    view.funcPrintEnabled = session.OutputPage > 1 && session.CalcMode < kFirstWithoutList;
    Recalculate(view);
}

bool FinishResultView(const ResultView& view, ListTarget target, bool withExtended) {
    if (target == ListTarget::Printer)
        BatchCalc::PrintResult(view.title, session.GlobalCalculation, withExtended);
    if (target == ListTarget::File) {
        const auto name = dialogs::ChooseFile({.save = true,
                                               .title = "Save QUOR result list as ...",
                                               .filter = "Result file (*.LST)|*.LST",
                                               .folder = Module2::WriteFolder().string(),
                                               .defaultExtension = ".LST",
                                               .overwritePrompt = true});
        if (!name) return false;
        if (!BatchCalc::ResultFile(*name, view.title, session.GlobalCalculation, withExtended))
            return false;
    }
    views().closeResultView();
    views().closeParinput();
    return true;
}

bool PrepareIsoCalculator(const std::string& T, const std::string& p) {
    Declare::BatchDataSet& input = Declare::BatchData.front();
    const Declare::BatchDataSet set = DataSet(session.DataSetIndex);
    const double givenT = session.BatchMode ? set.T : numbers::ValInput(T);
    const double givenP = session.BatchMode ? set.p : numbers::ValInput(p);
    if (!(givenT > kPresent) && !(givenP > kPresent)) {
        dialogs::Tell("not yet a T|p value available!", "Execution not possible");
        return false;
    }
    input.T = givenT;
    input.p = givenP;
    return true;
}

}  // namespace Zentrale
