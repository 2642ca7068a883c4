#include "datafiles/project_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/substance_file.h"
#include "models/model_codes.h"
#include "models/named_reference.h"
#include "models/unit_text.h"

namespace quor::datafiles {

namespace {

constexpr std::size_t kHeadLines = 4;
constexpr std::size_t kItems = 28;
constexpr double kAny = 1e30;    ///< bound of values that have no range of their own
constexpr double kTiny = 1e-30;  ///< lowest factor

template <class T>
using Member = std::optional<T> ProjectSettings::*;

/// A truth value that is written as a 16-bit number, 0 or -1.
struct Flag16 {
    Member<bool> flag;
};

using Setting =
    std::variant<Member<double>, Member<float>, Member<std::int16_t>, Member<bool>, Flag16,
                 Member<char>, Member<models::Eos>, Member<models::VapourPressureEquation>,
                 Member<models::VaporisationModel>, Member<models::CpForm>>;

// The numbers under which a project knows the models. A number without an equation of state means
// the ideal gas; 0 leaves the vapour pressure equation to the sets of the substance.
std::optional<models::Eos> of_code(int code, models::Eos) {
    return models::eos_of_code(code).value_or(models::Eos::idealGas);
}
std::optional<models::VapourPressureEquation> of_code(int code, models::VapourPressureEquation) {
    return code == 0 ? std::nullopt : models::vapour_pressure_of_code(code);
}
std::optional<models::VaporisationModel> of_code(int code, models::VaporisationModel) {
    return models::vaporisation_of_code(code);
}
std::optional<models::CpForm> of_code(int code, models::CpForm) {
    return models::cp_form_of_code(code);
}

struct Item {
    Setting setting;
    double lowest = 0, highest = 0;  ///< range of a number
};

using P = ProjectSettings;

const std::array<Item, kItems>& items() {
    static const std::array<Item, kItems> list{{
        {&P::diagram_T, 0, kAny},                // 5
        {&P::diagram_p, 0, kAny},                // 6
        {&P::diagram_v, 0, kAny},                // 7
        {&P::caloric_factor, kTiny, kAny},       // 8
        {&P::unit_mode, 0, 2},                   // 9
        {&P::caloric_unit, 0, 3},                // 10
        {&P::curve_real_range_only},             // 11
        {&P::points_per_curve, 50, 800},         // 12
        {&P::csv_separator},                     // 13
        {&P::vapour_pressure, -1, 16},           // 14
        {&P::eos, -1, 16},                       // 15
        {&P::cp_form, -1, 16},                   // 16
        {&P::vaporisation, -1, 16},              // 17
        {&P::watson_n, -kAny, kAny},             // 18
        {&P::eos_has_priority},                  // 19
        {&P::reference_mode, 0, 10},             // 20
        {&P::href, -kAny, kAny},                 // 21
        {&P::sref, -kAny, kAny},                 // 22
        {&P::T0, 0, kAny},                       // 23
        {&P::p0, 0, kAny},                       // 24
        {&P::Tenv, 0, kAny},                     // 25
        {&P::penv, 0, kAny},                     // 26
        {Flag16{&P::batch_mode}},                // 27
        {Flag16{&P::curve_s_without_tie_line}},  // 28
        {Flag16{&P::partial_gas_curve}},         // 29
        {&P::tank_V, 0, kAny},                   // 30
        {&P::tank_m, 0, kAny},                   // 31
        {&P::tank_T, 0, kAny},                   // 32
    }};
    return list;
}

struct Shown {
    std::string operator()(double value) const { return exact(value); }
    std::string operator()(float value) const { return exact(value); }
    std::string operator()(std::int16_t value) const { return std::to_string(value); }
    std::string operator()(bool value) const { return value ? "#TRUE#" : "#FALSE#"; }
    std::string operator()(char value) const { return {'"', value, '"'}; }
    template <class Model>
    std::string operator()(Model value) const {
        return std::to_string(models::code_of(value));
    }
};

struct Write {
    const ProjectSettings& settings;

    template <class T>
    std::string operator()(Member<T> member) const {
        const std::optional<T>& value = settings.*member;
        return value ? Shown{}(*value) : std::string();
    }
    std::string operator()(const Flag16& value) const {
        const std::optional<bool>& flag = settings.*value.flag;
        return !flag ? "" : *flag ? "-1" : "0";
    }
};

struct Read {
    ProjectSettings& settings;
    std::string line;  ///< trimmed
    double lowest, highest;

    std::optional<double> number() const {
        const std::optional<double> value = numbers::typed_number(line);
        return value && *value >= lowest && *value <= highest ? value : std::nullopt;
    }
    std::optional<bool> truth() const {
        const std::string word = text::to_upper(line);
        if (word == "#TRUE#") return true;
        if (word == "#FALSE#") return false;
        const std::optional<double> value = numbers::number(line);
        return value ? std::optional(*value != 0) : std::nullopt;
    }

    void operator()(Member<double> member) const { settings.*member = number(); }
    void operator()(Member<float> member) const {
        if (const auto value = number()) settings.*member = static_cast<float>(*value);
    }
    void operator()(Member<std::int16_t> member) const {
        if (const auto value = number()) settings.*member = numbers::to_int16(*value);
    }
    template <class Model>
    void operator()(Member<Model> member) const {
        if (const auto value = number())
            settings.*member = of_code(numbers::to_int16(*value), Model{});
    }
    void operator()(Member<bool> member) const { settings.*member = truth(); }
    void operator()(const Flag16& value) const { settings.*value.flag = truth(); }
    void operator()(Member<char> member) const {
        const bool quoted = line.size() == 3 && line.front() == '"' && line.back() == '"';
        if (quoted) settings.*member = line[1];
    }
};

/// The lines of a project. A last line that is cut short does not count, for "29" may be the rest
/// of "298.15"; a file that ends with its last item needs no line end there.
std::vector<std::string> whole_lines(const std::string& ansi_text) {
    std::vector<std::string> lines = text::lines(text::from_ansi(ansi_text));
    const bool open = !ansi_text.empty() && ansi_text.back() != '\n' && ansi_text.back() != '\r';
    if (open && lines.size() != kHeadLines + kItems) lines.pop_back();
    return lines;
}

bool is_plain(const std::string& line) {
    return std::none_of(line.begin(), line.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

bool is_head(const ProjectContent& content) {
    return !content.database.empty() && is_plain(content.database) && is_plain(content.casrn) &&
           text::length(text::trim_right(content.casrn)) <= kCasrnLength;
}

void read_items(std::span<const std::string> lines, ProjectSettings& settings) {
    const std::size_t count = std::min(lines.size(), kItems);
    for (std::size_t i = 0; i < count; ++i) {
        const Item& item = items()[i];
        // The separator may be a tab: only the blanks round its quotes go.
        std::visit(Read{settings, text::trim(lines[i]), item.lowest, item.highest}, item.setting);
    }
}

/// The value of a line like "b0=0.5" behind the items.
std::optional<double> labelled(std::span<const std::string> lines, std::string_view label) {
    for (const std::string& line : lines) {
        const std::string trimmed = text::trim(line);
        if (!trimmed.starts_with(label)) continue;
        const std::optional<double> value = numbers::typed_number(trimmed.substr(label.size()));
        if (value && std::fabs(*value) <= kAny) return value;
    }
    return std::nullopt;
}

/// The equation, when all of its coefficients are there.
std::optional<models::ManualVirial> read_virial(std::span<const std::string> lines) {
    const std::optional<double> b0 = labelled(lines, "b0="), b1 = labelled(lines, "b1="),
                                b2 = labelled(lines, "b2=");
    if (!b0 || !b1 || !b2) return std::nullopt;
    return models::ManualVirial{*b0, *b1, *b2};
}

// A text that the code page lacks characters for stands once more behind the items, in UTF-8.
constexpr std::string_view kDatabaseLabel = "database=", kCommentLabel = "comment=";

bool fits_code_page(const std::string& s) {
    return text::from_ansi(text::to_ansi(s)) == s;
}

std::string utf8_line(std::string_view label, const std::string& s) {
    return fits_code_page(s) ? "" : std::string(label) + s + "\r\n";
}

/// The text of a labelled line; nothing without one, and for bytes that are no UTF-8.
std::optional<std::string> utf8_text(std::span<const std::string> lines, std::string_view label) {
    for (const std::string& line : lines)
        if (line.starts_with(label) && text::is_utf8(line)) return line.substr(label.size());
    return std::nullopt;
}

constexpr std::string_view kReferenceLabel = "refstate=";
constexpr std::array<std::string_view, 4> kOwnLabels = {"own_T=", "own_p=", "own_h=", "own_s="};
constexpr std::string_view kOwnPhaseLabel = "own_phase=";

/// The value of a labelled line as it stands; empty without one.
std::string word(std::span<const std::string> lines, std::string_view label) {
    for (const std::string& line : lines)
        if (line.starts_with(label)) return text::trim(line.substr(label.size()));
    return {};
}

constexpr std::string_view kUnitsLabel = "units=";

/// Units that this program does not know leave those of the items.
std::optional<models::UnitChoice> read_units(std::span<const std::string> lines) {
    const std::string text = word(lines, kUnitsLabel);
    const auto choice = models::read_choice(text);
    return text.empty() || !choice ? std::nullopt : std::optional(*choice);
}

std::string units_text(const ProjectContent& content) {
    return content.units ? std::string(kUnitsLabel) + models::text_of(*content.units) + "\r\n"
                         : std::string();
}

/// A state of which a value is missing is none.
void read_reference(std::span<const std::string> lines, ProjectContent& content) {
    const auto named = models::named_state_of(word(lines, kReferenceLabel));
    if (!named) return;
    if (*named == models::NamedState::own) {
        const std::string phase = word(lines, kOwnPhaseLabel);
        std::array<double, kOwnLabels.size()> values{};
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::optional<double> value = labelled(lines, kOwnLabels[i]);
            if (!value) return;
            values[i] = *value;
        }
        if (!(values[0] > 0) || !(values[1] > 0) || (phase != "V" && phase != "L")) return;
        content.own_state = {values[0], values[1], phase == "V", values[2], values[3]};
    }
    content.named_reference = *named;
}

std::string reference_text(const ProjectContent& content) {
    const models::NamedReference* const named = models::named_reference(content.named_reference);
    if (named == nullptr) return {};
    std::string all = std::string(kReferenceLabel) + std::string(named->code) + "\r\n";
    if (named->state != models::NamedState::own) return all;
    const models::OwnState& own = content.own_state;
    const std::array<double, kOwnLabels.size()> values = {own.T, own.p, own.h, own.s};
    for (std::size_t i = 0; i < values.size(); ++i)
        all += std::string(kOwnLabels[i]) + exact(values[i]) + "\r\n";
    return all + std::string(kOwnPhaseLabel) + (own.vapour ? "V" : "L") + "\r\n";
}

}  // namespace

Result<ProjectContent> read_project(const std::string& ansi_text, const std::string& title) {
    const Failure none{"The file " + title + " is no project file."};
    const std::vector<std::string> lines = whole_lines(ansi_text);
    if (lines.size() < kHeadLines) return none;
    ProjectContent content{
        .date = lines[0], .comment = lines[1], .database = text::trim(lines[2]), .casrn = lines[3]};
    if (!is_head(content)) return none;
    const auto rest = std::span(lines).subspan(kHeadLines);
    read_items(rest, content.settings);
    if (rest.size() > kItems) {
        content.manual_virial = read_virial(rest.subspan(kItems));
        read_reference(rest.subspan(kItems), content);
        content.units = read_units(rest.subspan(kItems));
        const std::vector<std::string> raw = text::lines(ansi_text);
        const auto additional = std::span(raw).subspan(kHeadLines + kItems);
        content.database =
            text::trim(utf8_text(additional, kDatabaseLabel).value_or(content.database));
        content.comment = utf8_text(additional, kCommentLabel).value_or(content.comment);
    }
    if (!is_head(content)) return none;
    return content;
}

std::string project_text(const ProjectContent& content) {
    std::string all =
        files::ansi_lines({content.date, files::one_line(content.comment), content.database,
                           text::pad_right(content.casrn, kCasrnLength)});
    for (const Item& item : items())
        all += std::visit(Write{content.settings}, item.setting) + "\r\n";
    if (const auto& virial = content.manual_virial)
        all += "b0=" + exact(virial->b0) + "\r\nb1=" + exact(virial->b1) +
               "\r\nb2=" + exact(virial->b2) + "\r\n";
    all += reference_text(content);
    all += units_text(content);
    all += utf8_line(kDatabaseLabel, content.database);
    all += utf8_line(kCommentLabel, files::one_line(content.comment));
    return all;
}

}  // namespace quor::datafiles
