#include "report/protocol.h"

#include <algorithm>
#include <cmath>

#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "report/quantity_text.h"
#include "report/reference_lines.h"

namespace quor::report {

namespace {

namespace fs = std::filesystem;
using Rows = std::vector<Protocol::Row>;
using Kept = std::array<bool, std::tuple_size_v<ResultNumbers>>;

/// Rows that stand under one head.
struct Section {
    const Made& made;
    Rows::const_iterator begin, end;
};

/// What is seen of the substance, the models, the units and the reference state.
bool have_one_head(const Made& a, const Made& b) {
    const models::SubstanceRecord &s = a.fluid.substance(), &t = b.fluid.substance();
    return s.name == t.name && s.formula == t.formula && s.casrn == t.casrn &&
           a.fluid.models() == b.fluid.models() && a.reference == b.reference &&
           a.units.choice == b.units.choice;
}

std::vector<Section> sections_of(const Rows& rows) {
    std::vector<Section> all;
    for (auto row = rows.begin(); row != rows.end();) {
        const auto end = std::find_if(row, rows.end(), [&](const Protocol::Row& other) {
            return !have_one_head(row->made, other.made);
        });
        all.push_back({row->made, row, end});
        row = end;
    }
    return all;
}

/// Numbers that have no use in a row: 0, of T and p absolute zero and the vacuum in their unit.
float unused(const Made& made, std::size_t place) {
    constexpr std::size_t kT = 0, kP = 1;
    if (place > kP) return 0.0F;
    const Dimension dimension = place == kT ? Dimension::temperature : Dimension::pressure;
    return static_cast<float>(shown(made.units, dimension, 0.0));
}

/// The values that are of use in a row.
Kept kept_values(const Section& section) {
    Kept kept{};
    for (auto row = section.begin; row != section.end; ++row)
        for (std::size_t i = 0; i < kept.size(); ++i)
            kept[i] = kept[i] || row->values[i] != unused(section.made, i);
    return kept;
}

const char* volume_unit(models::UnitSystem system) {
    switch (system) {
        case models::UnitSystem::specific:
            return "[v] = m^3/kg";
        case models::UnitSystem::reduced:
            return "[v] = V(red)";
        case models::UnitSystem::molar:
            break;
    }
    return "[v] = m^3/kmol ";
}

/// Every unit of the columns by its name.
void add_own_unit_lines(std::vector<std::string>& lines, const models::Units& units) {
    constexpr int kAlpha = 6, kChi = 7, kJouleThomson = 21;
    const auto is = [](const char* symbol, const std::string& unit) {
        return std::string("[") + symbol + "] = " + unit;
    };
    const auto of = [&](const char* symbol, Dimension dimension) {
        return is(symbol, unit_name(units, dimension));
    };
    const auto derived = [&](const char* symbol, int label) {
        return is(symbol, name_of(units, derived_unit(label)));
    };
    lines.push_back("units: " + of("T", Dimension::temperature) + "   " +
                    of("p", Dimension::pressure) + "   " + of("rho", Dimension::density) + "   " +
                    of("B], [v", Dimension::volume));
    lines.push_back(of("h], [g], [u], [a], [eH], [eU", Dimension::energy) + "   " +
                    of("s], [cp], [cV", Dimension::entropy) + "   " +
                    of("sound speed", Dimension::speed));
    lines.push_back(derived("alpha], [beta", kAlpha) + "   " + derived("chi", kChi) + "   " +
                    derived("delta", kJouleThomson));
}

void add_unit_lines(std::vector<std::string>& lines, const models::Units& units) {
    if (has_own_units(units)) {
        add_own_unit_lines(lines, units);
        return;
    }
    const models::UnitChoice& choice = units.choice;
    lines.push_back(std::string("units: [T] = K   [p] = kPa   [B] = m^3/kmol    ") +
                    volume_unit(choice.system));
    if (choice.caloric == models::CaloricUnit::molar)
        lines.emplace_back("molar SI-units for function z: [z] = kJ/kmol or kJ/(kmol K)");
    if (choice.caloric == models::CaloricUnit::specific)
        lines.emplace_back("specific SI-units for function z: [z] = kJ/kg or kJ/(kg K)");
}

/// The reference state where a value depends on it; beside other heads at least the models.
void add_reference(std::vector<std::string>& lines, const Made& made, const Kept& kept,
                   bool several) {
    bool depends = false;
    for (std::size_t i = 0; i < kept.size(); ++i)
        depends = depends || (kept[i] && depends_on_reference(i));
    if (depends)
        lines.push_back(reference_line(made));
    else if (several)
        lines.push_back(model_line(made));
}

void add_section(std::vector<std::string>& lines, const Section& section, char separator,
                 bool several) {
    const Kept kept = kept_values(section);
    const std::vector<std::string> names = text::split(kNumberNames, ';');
    std::string heads;
    for (std::size_t i = 0; i < kept.size(); ++i)
        if (kept[i]) heads += names[i] + separator;
    lines.push_back(section.made.fluid.substance().name);
    lines.push_back(section.made.fluid.substance().formula);
    add_unit_lines(lines, section.made.units);
    add_reference(lines, section.made, kept, several);
    lines.emplace_back();
    lines.push_back(heads);
    for (auto row = section.begin; row != section.end; ++row) {
        std::string line;
        for (std::size_t i = 0; i < kept.size(); ++i)
            if (kept[i]) line += numbers::general(row->values[i]) + separator;
        lines.push_back(line);
    }
}

}  // namespace

std::vector<std::string> protocol_lines(const Rows& rows, const std::string& date, char separator) {
    const std::vector<Section> sections = sections_of(rows);
    std::vector<std::string> lines = {
        "QUOR-6: p-V-T Calculations of States and Processes - Protocol from " + date};
    for (const Section& section : sections) {
        if (lines.size() > 1) lines.emplace_back();
        add_section(lines, section, separator, sections.size() > 1);
    }
    return lines;
}

int separator_index(char separator) {
    switch (separator) {
        case ',':
            return 1;
        case '\t':
            return 2;
        default:
            return 0;
    }
}

Result<void> Protocol::add(const Made& made, const ResultNumbers& values) {
    Row row{.made = made};
    try {
        std::transform(values.begin(), values.end(), row.values.begin(), numbers::to_single);
    } catch (const faults::Fault& fault) {
        return Failure{fault.what()};
    }
    rows.push_back(std::move(row));
    pending = true;
    return {};
}

fs::path Protocol::path(const ProtocolPlace& place) const {
    return paths::in_folder(file, place.folder.string());
}

/// Takes the file's name for this program, with the content; a name that is taken gives way to a
/// new one.
Result<void> Protocol::take_name(const ProtocolPlace& place, const std::string& bytes) {
    constexpr int kAttempts = 100;
    for (int i = 0;; ++i) {
        files::NewFile made = files::write_new(path(place), bytes);
        own_ = !made.exists && made.written;
        if (!made.exists || !place.new_name || i == kAttempts) return made.written;
        file = place.new_name();
    }
}

Result<void> Protocol::write(const ProtocolPlace& place) {
    if (!pending) return {};
    if (own_ && files::time_written(path(place)) != written_) {
        own_ = false;
        if (place.new_name && files::time_written(path(place))) file = place.new_name();
    }
    const std::string bytes = content(place);
    const Result<void> written =
        own_ ? files::write_whole(path(place), bytes) : take_name(place, bytes);
    if (written) written_ = files::time_written(path(place));
    return written;
}

std::string Protocol::content(const ProtocolPlace& place) const {
    return files::ansi_lines(protocol_lines(rows, place.date, place.separator));
}

void Protocol::written_to(const std::string& path) {
    file = path;
    own_ = true;
    written_ = files::time_written(path);
}

void Protocol::begin(const std::string& name) {
    *this = {};
    file = name;
}

}  // namespace quor::report
