#include "session/session_status.h"

#include <algorithm>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/search.h"
#include "models/model_tables.h"
#include "models/named_reference.h"

namespace quor::session {

namespace {

std::string trimmed(std::string_view s) {
    return text::trim(s);
}

std::string substance_lines(const Session& session) {
    const models::SubstanceRecord& s = session->substance;
    const StatusPanels panels = panel_texts(session, session->models.eos != models::Eos::none);
    std::string lines = "... substance: ";
    lines += s.formula + "  " + trimmed(s.casrn) + "  " + s.name;
    lines += " (#" + std::to_string(session->substance_number) + ")";
    lines += "\n    ";
    lines += panels.eos.empty() ? "no models" : panels.eos;
    if (!panels.vapour_pressure.empty()) lines += ",  " + panels.vapour_pressure;
    return lines;
}

/// The zero of h and s in a word or two.
std::string name_of_zero(const models::ReferenceState& reference) {
    constexpr std::int16_t kConventional = 2, kFormation = 10;
    if (const models::NamedReference* const named = models::named_reference(reference.named))
        return std::string(named->name);
    if (reference.mode == kConventional) return "conventional";
    if (reference.mode == kFormation) return "formation";
    const bool zero = reference.href == 0.0 && reference.sref == 0.0;
    return zero ? "0, ideal gas" : "ideal gas";
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
    const std::string& source = folder.empty() ? session->folder_measured : folder;
    if (source.size() > 2) lines += "\n  from " + source;
    lines += "\n  with " + count + " sets of data";
    const std::string name = name_by_casrn(session, data.casrn);
    if (name.empty()) return lines;
    lines += "\n    substance: " + name;
    return lines + "\n    file comment" + data.comment;
}

}  // namespace

StatusPanels panel_texts(const Session& session, bool models_complete) {
    const models::ModelSelection& m = session->models;
    StatusPanels panels;
    if (session->substance_number != 0) panels.substance = session->substance.name;
    panels.reference = "h, s: " + name_of_zero(session->reference);
    if (!models_complete) return panels;
    constexpr std::string_view kPriority = " (Priority!)";
    panels.eos = trimmed(models::eos_name(m.eos));
    panels.vapour_pressure = "Vapour press. equ.: " + trimmed(models::vp_name(m.vapour_pressure));
    if (!m.vapour_only) (m.eos_has_priority ? panels.eos : panels.vapour_pressure) += kPriority;
    return panels;
}

Report status_report(const Session& session) {
    Report report{.title = " loaded ...", .text = {}};
    if (session->database_file.empty()) {
        report.text = "... not yet a database";
        return report;
    }
    report.text = "... database ";
    report.text += session->database_file;
    report.text += "\n  with ";
    report.text += std::to_string(session->database.size());
    report.text += " substance(s)\n";
    report.text += session->substance_number == 0 ? "... no substance" : substance_lines(session);
    report.text += '\n';
    report.text += batch_lines(session);
    report.text += "\n(for more parameters loaded see \"Options\")";
    return report;
}

Report parameter_report(const Session& session) {
    const models::EosParameters& e = session->eos_parameters;
    const models::Eos eos = session->models.eos;
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
    const Line lines[] = {{"a0 = ", e.a0}, {"a1 = ", e.na}, {"b0 = ", e.b0}, {"b1 = ", e.nb},
                          {"c0 = ", e.c0}, {"c1 = ", e.nc}, {"d0 = ", e.d0}, {"d1 = ", e.nd}};
    report.text = "Parameter for ";
    report.text += trimmed(models::eos_name(eos));
    report.text += '\n';
    for (const Line& line : lines) {
        report.text += '\n';
        report.text += line.label;
        report.text += numbers::general(line.value);
    }
    report.text += "\n\nCritical volume calculated  by using T(cr) and p(cr):";
    report.text += "\n         v(cr)/m^3/kmol = ";
    report.text += numbers::general(e.vcrit_calculated);
    report.text += "\n(rho(cr)/kg/m^3 = ";
    report.text += numbers::general(e.rhocrit_calculated);
    report.text += ')';
    return report;
}

}  // namespace quor::session
