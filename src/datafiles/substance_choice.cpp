#include "datafiles/substance_choice.h"

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/text.h"
#include "datafiles/database.h"
#include "models/cubic_eos.h"
#include "models/vapour_pressure.h"
#include "session/commands.h"
#include "session/declare.h"
#include "session/module2.h"

namespace LoadSaveData {

namespace {

using Declare::Command;
using Declare::session;

constexpr const char* kRefused = "Execution not possible";
constexpr std::int16_t kFirstCorrelated = 6, kLastCorrelated = 8;

void question_batch_data() {
    if (session.BatchCount == 0) return;
    if (!dialogs::Ask("Loaded exper. data (batch data) delete now?", "Batch data",
                      dialogs::Icon::Question, false))
        return;
    session.BatchCount = 0;
    session.BatchFile.clear();
    session.BatchComment.clear();
    session.BatchCasrn.clear();
    Declare::BatchData.resize(1);  // the direct input stays
    Declare::BatchData.resize(2);
}

void tell_no_critical_data() {
    dialogs::Tell(
        "T(cr) and/or p(cr) not available in the data base\n"
        "(lacking critical data can be completed by the user in data-base editor)\n\n"
        "With  " +
            Declare::substance.Name + " no QUOR calculations are possible!",
        kRefused, dialogs::Icon::Stop);
}

// Equation of state and correlated vapour pressure sets follow the new critical data.
void compute_dependents() {
    const Declare::SubstanceRecord& s = Declare::substance;
    const std::int16_t eos = Declare::models.EOSModel;
    if (eos >= 0) Calc::CalcEOSParameters(eos);
    if (static_cast<double>(s.Tboil) <= constants::kPresent) return;
    for (std::int16_t i = kFirstCorrelated; i <= kLastCorrelated; ++i)
        Calc::CorrelateVapourPressure(i, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
}

}  // namespace

std::vector<std::string> NamesOf(std::string_view nameField) {
    std::vector<std::string> names;
    for (const std::string& part : text::Split(nameField, ';')) {
        std::string name = text::Trim(part);
        if (names.empty() || !name.empty()) names.push_back(std::move(name));
    }
    return names;
}

std::string FirstNameOf(std::string_view nameField) {
    return text::Trim(nameField.substr(0, nameField.find(';')));
}

std::string FormulaAndCasrn(std::int16_t index) {
    const auto i = static_cast<std::size_t>(index);
    const Declare::SubstanceLists& lists = Declare::substances;
    if (index < 1 || i >= lists.Formulas.size() || i >= lists.Casrn.size()) return {};
    return text::TrimRight(lists.Formulas[i]) + " CASRN: " + text::TrimRight(lists.Casrn[i]);
}

bool TakeSubstance(std::int16_t index) {
    Module2::ResetSession();
    Module2::SetCommands({Command::mnuModel}, false);
    question_batch_data();

    bool noCriticalData = false;
    if (!ReadSubstance(index, noCriticalData)) {
        dialogs::Tell("The substance could not be read from the database " + session.DatabaseFile,
                      kRefused, dialogs::Icon::Stop);
        return false;
    }
    session.CurrentSubstance = index;
    if (noCriticalData) {
        tell_no_critical_data();
        return false;
    }
    session.SubstanceSet = true;
    const Module2::BusyPointer busy;
    compute_dependents();
    Module2::SetCommands({Command::mnuModel}, true);
    return true;
}

}  // namespace LoadSaveData
