#include "datafiles/substance_choice.h"
#include "legacy/wrappers.h"

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/text.h"
#include "datafiles/database.h"
#include "legacy/declare.h"
#include "models/cubic_eos.h"
#include "models/vapour_pressure.h"
#include "session/commands.h"
#include "session/module2.h"

namespace quor::datafiles {

namespace {

using legacy::the_session;
using session::Command;

constexpr const char* kRefused = "Execution not possible";

void question_batch_data() {
    if (the_session.BatchCount == 0) return;
    if (!dialogs::ask("Loaded exper. data (batch data) delete now?", "Batch data",
                      dialogs::Icon::Question, false))
        return;
    the_session.BatchCount = 0;
    the_session.BatchFile.clear();
    the_session.BatchComment.clear();
    the_session.BatchCasrn.clear();
    legacy::the_BatchData.resize(1);  // the direct input stays
    legacy::the_BatchData.resize(2);
}

void tell_no_critical_data() {
    dialogs::tell(
        "T(cr) and/or p(cr) not available in the data base\n"
        "(lacking critical data can be completed by the user in data-base editor)\n\n"
        "With  " +
            legacy::the_substance.Name + " no QUOR calculations are possible!",
        kRefused, dialogs::Icon::Stop);
}

// Equation of state and correlated vapour pressure sets follow the new critical data.
void compute_dependents() {
    const models::SubstanceRecord& s = legacy::the_substance;
    const models::Eos eos = legacy::the_models.EOSModel;
    if (eos != models::Eos::none) models::calc_eos_parameters(eos);
    if (static_cast<double>(s.Tboil) <= constants::kPresent) return;
    using enum models::VapourPressureEquation;
    for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
        models::CorrelateVapourPressure(equation, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
}

}  // namespace

std::vector<std::string> names_of(std::string_view nameField) {
    std::vector<std::string> names;
    for (const std::string& part : text::split(nameField, ';')) {
        std::string name = text::trim(part);
        if (names.empty() || !name.empty()) names.push_back(std::move(name));
    }
    return names;
}

std::string first_name_of(std::string_view nameField) {
    return text::trim(nameField.substr(0, nameField.find(';')));
}

std::string formula_and_casrn(std::int16_t index) {
    const auto i = static_cast<std::size_t>(index);
    const datafiles::SubstanceLists& lists = legacy::the_substances;
    if (index < 1 || i >= lists.Formulas.size() || i >= lists.Casrn.size()) return {};
    return text::trim_right(lists.Formulas[i]) + " CASRN: " + text::trim_right(lists.Casrn[i]);
}

bool take_substance(std::int16_t index) {
    session::reset_session();
    session::set_commands({Command::mnuModel}, false);
    question_batch_data();

    bool noCriticalData = false;
    if (!ReadSubstance(index, noCriticalData)) {
        dialogs::tell(
            "The substance could not be read from the database " + the_session.DatabaseFile,
            kRefused, dialogs::Icon::Stop);
        return false;
    }
    the_session.CurrentSubstance = index;
    if (noCriticalData) {
        tell_no_critical_data();
        return false;
    }
    the_session.SubstanceSet = true;
    const session::BusyPointer busy;
    compute_dependents();
    session::set_commands({Command::mnuModel}, true);
    return true;
}

}  // namespace quor::datafiles
