#include "session/session_status.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/search.h"
#include "models/model_tables.h"

namespace quor::session {

namespace {

std::string trimmed(std::string_view s) {
    return text::trim(s);
}

std::string substance_lines(const Session& session) {
    const models::SubstanceRecord& s = session->substance;
    const StatusPanels panels = panel_texts(session, session->models.EOSModel != models::Eos::none);
    std::string lines = "... substance: ";
    lines += s.Formula + "  " + trimmed(s.CASRN) + "  " + s.Name;
    lines += " (#" + std::to_string(session->substanceNumber) + ")";
    lines += "\n    ";
    lines += panels.eos.empty() ? "no models" : panels.eos;
    if (!panels.vapourPressure.empty()) lines += ",  " + panels.vapourPressure;
    return lines;
}

// Name of a substance of the open database, empty when its CASRN is not there.
std::string name_by_casrn(const Session& session, const std::string& casrn) {
    const auto place = datafiles::find_by_casrn(session->database, trimmed(casrn));
    if (!place) return {};
    return datafiles::first_name_of(session->database.entries()[*place].name);
}

std::string batch_lines(const Session& session) {
    const datafiles::MeasuredData& data = session->measured;
    const std::string count = std::to_string(data.points.size());
    if (data.points.empty()) return "... exper. T-p-rho-HLV-cp data: none";
    std::string lines;
    if (data.file.empty()) {
        lines += "    " + count;
        lines += data.points.size() == 1 ? " set of data" : " sets of data";
        return lines + " available,\nnot yet saved.";
    }
    lines += "... batch file" + paths::file_title(data.file);
    const std::string folder = paths::folder_of(data.file);
    const std::string& source = folder.empty() ? session->folderMeasured : folder;
    if (source.size() > 2) lines += "\n  from " + source;
    lines += "\n  with " + count + " sets of data";
    const std::string name = name_by_casrn(session, data.casrn);
    if (name.empty()) return lines;
    lines += "\n    substance: " + name;
    return lines + "\n    file comment" + data.comment;
}

}  // namespace

StatusPanels panel_texts(const Session& session, bool modelsComplete) {
    const models::ModelSelection& m = session->models;
    StatusPanels panels;
    if (session->substanceNumber != 0) panels.substance = session->substance.Name;
    if (!modelsComplete) return panels;
    constexpr std::string_view kPriority = " (Priority!)";
    panels.eos = trimmed(models::EOSName(m.EOSModel));
    panels.vapourPressure = "Vapour press. equ.: " + trimmed(models::vp_name(m.VPModel));
    if (!m.EOSOnlyV) (m.PriorityCEOS ? panels.eos : panels.vapourPressure) += kPriority;
    return panels;
}

Report status_report(const Session& session) {
    Report report{.title = " loaded ...", .text = {}};
    if (session->databaseFile.empty()) {
        report.text = "... not yet a database";
        return report;
    }
    report.text = "... database ";
    report.text += session->databaseFile;
    report.text += "\n  with ";
    report.text += std::to_string(session->database.size());
    report.text += " substance(s)\n";
    report.text += session->substanceNumber == 0 ? "... no substance" : substance_lines(session);
    report.text += '\n';
    report.text += batch_lines(session);
    report.text += "\n(for more parameters loaded see \"Options\")";
    return report;
}

Report parameter_report(const Session& session) {
    const models::EOSParameters& e = session->eosParameters;
    const models::Eos eos = session->models.EOSModel;
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
