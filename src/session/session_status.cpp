#include "session/session_status.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/search.h"
#include "legacy/declare.h"
#include "models/model_tables.h"

namespace quor::session {

namespace {

using legacy::the_session;

std::string trimmed(std::string_view s) {
    return text::trim(s);
}

std::string substance_lines() {
    const models::SubstanceRecord& s = legacy::the_substance;
    const StatusPanels panels = panel_texts(legacy::the_models.EOSModel != models::Eos::none);
    std::string lines = "... substance: ";
    lines += s.Formula + "  " + trimmed(s.CASRN) + "  " + s.Name;
    lines += " (#" + std::to_string(the_session.CurrentSubstance) + ")";
    lines += "\n    ";
    lines += panels.eos.empty() ? "no models" : panels.eos;
    if (!panels.vapourPressure.empty()) lines += ",  " + panels.vapourPressure;
    return lines;
}

// Name of a substance of the open database, empty when its CASRN is not there.
std::string name_by_casrn(const std::string& casrn) {
    const auto place = datafiles::find_by_casrn(legacy::the_database, trimmed(casrn));
    if (!place) return {};
    return datafiles::first_name_of(legacy::the_database.entries()[*place].name);
}

std::string batch_lines() {
    const std::string count = std::to_string(the_session.BatchCount);
    if (the_session.BatchCount == 0) return "... exper. T-p-rho-HLV-cp data: none";
    std::string lines;
    if (the_session.BatchFile.empty()) {
        lines += "    " + count;
        lines += the_session.BatchCount == 1 ? " set of data" : " sets of data";
        return lines + " available,\nnot yet saved.";
    }
    lines += "... batch file" + paths::file_title(the_session.BatchFile);
    const std::string folder = paths::folder_of(the_session.BatchFile);
    const std::string& source = folder.empty() ? the_session.FolderBatch : folder;
    if (source.size() > 2) lines += "\n  from " + source;
    lines += "\n  with " + count + " sets of data";
    const std::string name = name_by_casrn(the_session.BatchCasrn);
    if (name.empty()) return lines;
    lines += "\n    substance: " + name;
    return lines + "\n    file comment" + the_session.BatchComment;
}

}  // namespace

StatusPanels panel_texts(bool modelsComplete) {
    const models::ModelSelection& m = legacy::the_models;
    StatusPanels panels;
    if (the_session.CurrentSubstance != 0) panels.substance = legacy::the_substance.Name;
    if (!modelsComplete) return panels;
    constexpr std::string_view kPriority = " (Priority!)";
    panels.eos = trimmed(models::EOSName(m.EOSModel));
    panels.vapourPressure = "Vapour press. equ.: " + trimmed(models::vp_name(m.VPModel));
    if (!m.EOSOnlyV) (m.PriorityCEOS ? panels.eos : panels.vapourPressure) += kPriority;
    return panels;
}

Report status_report() {
    Report report{.title = " loaded ...", .text = {}};
    if (the_session.DatabaseFile.empty()) {
        report.text = "... not yet a database";
        return report;
    }
    report.text = "... database ";
    report.text += the_session.DatabaseFile;
    report.text += "\n  with ";
    report.text += std::to_string(legacy::the_database.size());
    report.text += " substance(s)\n";
    report.text += the_session.CurrentSubstance == 0 ? "... no substance" : substance_lines();
    report.text += '\n';
    report.text += batch_lines();
    report.text += "\n(for more parameters loaded see \"Options\")";
    return report;
}

Report parameter_report() {
    const models::EOSParameters& e = legacy::the_eosParameters;
    const models::Eos eos = legacy::the_models.EOSModel;
    Report report{.title = " Parameters of the EOS ", .text = {}};
    if (eos == models::Eos::idealGas) {
        report.text = "Selected: Ideal gas equation";
        return report;
    }
    if (eos == models::Eos::pitzerCurl) {
        report.text = "Parameters of PITZER/CURL equation \ncf. Help in the window \"Models\"";
        return report;
    }
    struct Line {
        std::string_view label;
        double value;
    };
    const Line lines[] = {{"a0 = ", e.eosA0}, {"a1 = ", e.eosNA}, {"b0 = ", e.eosB0},
                          {"b1 = ", e.eosNB}, {"c0 = ", e.eosC0}, {"c1 = ", e.eosNC},
                          {"d0 = ", e.eosD0}, {"d1 = ", e.eosND}};
    report.text = "Parameter for ";
    report.text += trimmed(models::EOSName(eos));
    report.text += '\n';
    for (const Line& line : lines) {
        report.text += '\n';
        report.text += line.label;
        report.text += numbers::General(line.value);
    }
    report.text += "\n\nCritical volume calculated  by using T(cr) and p(cr):";
    report.text += "\n         v(cr)/m^3/kmol = ";
    report.text += numbers::General(e.vcritCalc);
    report.text += "\n(rho(cr)/kg/m^3 = ";
    report.text += numbers::General(e.rhocritCalc);
    report.text += ')';
    return report;
}

}  // namespace quor::session
