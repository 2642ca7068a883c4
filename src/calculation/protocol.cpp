#include "calculation/protocol.h"

#include <array>
#include <cmath>
#include <filesystem>

#include "calculation/reference_lines.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/whole_file.h"
#include "session/module2.h"

namespace Zentrale {

using Declare::session;

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
        for (const Column& column : Declare::protocol)
            sum += std::fabs(static_cast<double>(column[row]));
        kept[row] = sum != 0;
    }
    return kept;
}

const char* volume_unit() {
    switch (session.UnitMode) {
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
    if (session.CaloricUnit == 0)
        lines.emplace_back("molar SI-units for function z: [z] = kJ/kmol or kJ/(kmol K)");
    if (session.CaloricUnit == 3)
        lines.emplace_back("specific SI-units for function z: [z] = kJ/kg or kJ/(kg K)");
}

std::vector<std::string> protocol_lines() {
    const std::array<bool, kRows> kept = kept_rows();
    const std::vector<std::string> names = text::Split(kNames, ';');
    bool reference = false;
    std::string heads;
    for (std::size_t row = 0; row < kRows; ++row) {
        if (!kept[row]) continue;
        heads += names[row] + session.CsvSeparator;
        reference = reference || depends_on_reference(row);
    }

    std::vector<std::string> lines;
    lines.push_back("QUOR-6: p-V-T Calculations of States and Processes - Protocol from " +
                    Module2::ShortDate());
    lines.push_back(Declare::substance.Name);
    lines.push_back(Declare::substance.Formula);
    add_unit_lines(lines);
    if (reference) lines.push_back(ReferenceLine());
    lines.emplace_back();
    lines.push_back(heads);
    for (const Column& column : Declare::protocol) {
        std::string line;
        for (std::size_t row = 0; row < kRows; ++row)
            if (kept[row]) line += numbers::General(column[row]) + session.CsvSeparator;
        lines.push_back(line);
    }
    return lines;
}

fs::path protocol_path() {
    return LoadSaveData::InFolder(session.ProtocolFile, Module2::WriteFolder().string());
}

/// The protocol as a table with tabs, into the clipboard. False when the file cannot be read.
bool copy_to_clipboard(const fs::path& path) {
    const LoadSaveData::FileContent content = LoadSaveData::ReadWhole(path);
    if (!content.error.empty()) {
        dialogs::Tell(content.error, "WARNING");
        return false;
    }
    const std::string table = text::FromAnsi(content.bytes);
    dialogs::SetClipboard(text::ReplaceAll(table, std::string(1, session.CsvSeparator), "\t"));
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

void AddToProtocol() {
    if (session.DecimalComma && session.CsvSeparator == ',')
        dialogs::Tell(
            "Bei Computereinstellung \"Deutschland\" (Dezimalzeichen Komma)\n"
            "ist Komma als Dateitrennzeichen nicht sinnvoll; der Clipboard-Inhalt\n"
            "ist nicht mehr Excel-kompatibel.\n"
            "semicolon recommended",
            "WARNING");
    Column column{};
    try {
        for (std::size_t row = 0; row < kRows; ++row)
            column[row] = numbers::ToSingle(Declare::Fu[row]);
    } catch (const faults::Fault& fault) {
        dialogs::Tell(fault.what(), "WARNING");
        return;
    }
    Declare::protocol.push_back(column);
    session.ProtocolPending = true;
    ++session.ProtocolOpen;
}

bool WriteProtocol() {
    if (!session.ProtocolPending) return true;
    const Module2::BusyPointer busy;
    const std::string error =
        LoadSaveData::WriteWhole(protocol_path(), LoadSaveData::AnsiLines(protocol_lines()));
    if (error.empty()) return true;
    dialogs::Tell(error, "WARNING");
    return false;
}

bool OpenNewProtocol() {
    const bool pending = session.ProtocolPending;
    if (!WriteProtocol()) return false;
    const fs::path path = protocol_path();
    std::error_code error;
    if (!delete_if_empty(path) && (pending || fs::exists(path, error)))
        if (!copy_to_clipboard(path)) return false;
    session.ProtocolFile = Module2::NewProtocolFileName();
    session.ProtocolPending = false;
    session.ProtocolOpen = 0;
    Declare::protocol.clear();
    return true;
}

std::string ProtocolFileTitle() {
    return Module2::FileTitle(session.ProtocolFile);
}

void CloseProtocol() {
    if (WriteProtocol()) session.ProtocolPending = false;
    delete_if_empty(protocol_path());
}

void ChooseSeparator(int index) {
    constexpr char kSeparators[] = {';', ',', '\t'};
    if (index >= 0 && index < 3) session.CsvSeparator = kSeparators[index];
}

}  // namespace Zentrale
