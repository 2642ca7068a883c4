#include "calculation/protocol.h"

#include <array>
#include <cmath>
#include <filesystem>

#include "calculation/reference_lines.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "session/module2.h"

namespace quor::calculation {

using legacy::the_session;

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kRows = 42;
using Column = std::array<float, kRows>;

/// Names of the values of `Fu`, in its order.
constexpr auto kNames =
    "T;p;rho(global);v(global);rho(L);cp(S);x;cp(idG);x;v(V);h(V);s(V);g(V);u(V);a(V);eH(V); eU(V);"
    "cp(V);cV(V);v(L);h(L);s(L);g(L);u(L);a(L);eH(L);eU(L);cp(L);cV(L);delta(LV)h;delta(LV)s;"
    "alpha(V);chi(V);beta(V);delta(V);alpha(L);chi(L);beta(L);delta(L);sound speed(L);"
    "sound speed(V);B";

/// Rows whose values depend on the reference state: h, s, g, u, a and the exergies.
bool depends_on_reference(std::size_t row) {
    return (row >= 10 && row <= 16) || (row >= 20 && row <= 26);
}

std::array<bool, kRows> kept_rows() {
    std::array<bool, kRows> kept{};
    for (std::size_t row = 0; row < kRows; ++row) {
        double sum = 0;
        for (const Column& column : legacy::the_protocol)
            sum += std::fabs(static_cast<double>(column[row]));
        kept[row] = sum != 0;
    }
    return kept;
}

const char* volume_unit() {
    switch (the_session.UnitMode) {
        case 1:
            return "[v] = m^3/kg";
        case 2:
            return "[v] = V(red)";
        default:
            return "[v] = m^3/kmol ";
    }
}

void add_unit_lines(std::vector<std::string>& lines) {
    std::string units = "units: [T] = K   [p] = kPa   [B] = m^3/kmol    ";
    units += volume_unit();
    lines.push_back(units);
    if (the_session.CaloricUnit == 0)
        lines.emplace_back("molar SI-units for function z: [z] = kJ/kmol or kJ/(kmol K)");
    if (the_session.CaloricUnit == 3)
        lines.emplace_back("specific SI-units for function z: [z] = kJ/kg or kJ/(kg K)");
}

std::vector<std::string> protocol_lines() {
    const std::array<bool, kRows> kept = kept_rows();
    const std::vector<std::string> names = text::split(kNames, ';');
    bool reference = false;
    std::string heads;
    for (std::size_t row = 0; row < kRows; ++row) {
        if (!kept[row]) continue;
        heads += names[row] + the_session.CsvSeparator;
        reference = reference || depends_on_reference(row);
    }

    std::vector<std::string> lines;
    lines.push_back("QUOR-6: p-V-T Calculations of States and Processes - Protocol from " +
                    session::short_date());
    lines.push_back(legacy::the_substance.Name);
    lines.push_back(legacy::the_substance.Formula);
    add_unit_lines(lines);
    if (reference) lines.push_back(ReferenceLine());
    lines.emplace_back();
    lines.push_back(heads);
    for (const Column& column : legacy::the_protocol) {
        std::string line;
        for (std::size_t row = 0; row < kRows; ++row)
            if (kept[row]) line += numbers::General(column[row]) + the_session.CsvSeparator;
        lines.push_back(line);
    }
    return lines;
}

fs::path protocol_path() {
    return datafiles::InFolder(the_session.ProtocolFile, session::write_folder().string());
}

/// The protocol as a table with tabs, into the clipboard. False when the file cannot be read.
bool copy_to_clipboard(const fs::path& path) {
    const datafiles::FileContent content = datafiles::read_whole(path);
    if (!content.error.empty()) {
        dialogs::tell(content.error, "WARNING");
        return false;
    }
    const std::string table = text::from_ansi(content.bytes);
    dialogs::set_clipboard(
        text::replace_all(table, std::string(1, the_session.CsvSeparator), "\t"));
    return true;
}

/// True when the file exists and holds nothing; it is then deleted.
bool delete_if_empty(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error) || fs::file_size(path, error) != 0 || error) return false;
    fs::remove(path, error);
    return true;
}

}  // namespace

void add_to_protocol() {
    if (the_session.DecimalComma && the_session.CsvSeparator == ',')
        dialogs::tell(
            "Bei Computereinstellung \"Deutschland\" (Dezimalzeichen Komma)\n"
            "ist Komma als Dateitrennzeichen nicht sinnvoll; der Clipboard-Inhalt\n"
            "ist nicht mehr Excel-kompatibel.\n"
            "semicolon recommended",
            "WARNING");
    Column column{};
    try {
        for (std::size_t row = 0; row < kRows; ++row)
            column[row] = numbers::to_single(legacy::the_Fu[row]);
    } catch (const faults::Fault& fault) {
        dialogs::tell(fault.what(), "WARNING");
        return;
    }
    legacy::the_protocol.push_back(column);
    the_session.ProtocolPending = true;
    ++the_session.ProtocolOpen;
}

bool write_protocol() {
    if (!the_session.ProtocolPending) return true;
    const session::BusyPointer busy;
    const std::string error =
        datafiles::write_whole(protocol_path(), datafiles::ansi_lines(protocol_lines()));
    if (error.empty()) return true;
    dialogs::tell(error, "WARNING");
    return false;
}

bool open_new_protocol() {
    const bool pending = the_session.ProtocolPending;
    if (!write_protocol()) return false;
    const fs::path path = protocol_path();
    std::error_code error;
    if (!delete_if_empty(path) && (pending || fs::exists(path, error)))
        if (!copy_to_clipboard(path)) return false;
    the_session.ProtocolFile = session::new_protocol_file_name();
    the_session.ProtocolPending = false;
    the_session.ProtocolOpen = 0;
    legacy::the_protocol.clear();
    return true;
}

std::string protocol_file_title() {
    return session::file_title(the_session.ProtocolFile);
}

void close_protocol() {
    if (write_protocol()) the_session.ProtocolPending = false;
    delete_if_empty(protocol_path());
}

void choose_separator(int index) {
    constexpr char kSeparators[] = {';', ',', '\t'};
    if (index >= 0 && index < 3) the_session.CsvSeparator = kSeparators[index];
}

}  // namespace quor::calculation
