#include "datafiles/project_items.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <variant>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"
#include "legacy/declare.h"
#include "models/model_codes.h"

namespace quor::datafiles {

namespace {

using legacy::the_models;
using legacy::the_reference;
using legacy::the_session;

/// A truth value that is written as a 16-bit number, 0 or -1.
struct Flag16 {
    bool* flag;
};

using Setting =
    std::variant<double*, float*, std::int16_t*, bool*, Flag16, char*, models::Eos*,
                 models::VapourPressureEquation*, models::VaporisationModel*, models::CpForm*>;

// The numbers under which a project knows the models. Index 0 leaves the vapour pressure equation
// to the sets of the substance.
void take(models::Eos& eos, int code) {
    if (const auto known = models::eos_of_code(code)) eos = *known;
}
void take(models::VapourPressureEquation& equation, int code) {
    const auto known = models::vapour_pressure_of_code(code);
    if (known && code != 0) equation = *known;
}
void take(models::VaporisationModel& model, int code) {
    if (const auto known = models::vaporisation_of_code(code)) model = *known;
}
void take(models::CpForm& form, int code) {
    if (const auto known = models::cp_form_of_code(code)) form = *known;
}

struct Item {
    Setting setting;
    double lowest = 0, highest = 0;  ///< range of a number
};

constexpr double kAny = 1e30;    ///< bound of values that have no range of their own
constexpr double kTiny = 1e-30;  ///< lowest factor

/// The items 5 to 32 in their order. Items 6 and 7 are the other two state parameters of the
/// current diagram. Items 27 to 29 are the kind of calculation and the two options of curves, 30
/// to 32 the input of the tank.
const std::array<Item, kProjectItems>& items() {
    static const std::array<Item, kProjectItems> list{{
        {&the_session.DiagramT, 0, kAny},             // 5
        {&the_session.DiagramP, 0, kAny},             // 6
        {&the_session.DiagramV, 0, kAny},             // 7
        {&the_session.CaloricFactor, kTiny, kAny},    // 8
        {&the_session.UnitMode, 0, 2},                // 9
        {&the_session.CaloricUnit, 0, 3},             // 10
        {&the_session.CurveRealRangeOnly},            // 11
        {&the_session.PointsPerCurve, 50, 800},       // 12
        {&the_session.CsvSeparator},                  // 13
        {&the_models.VPModel, -1, 16},                // 14
        {&the_models.EOSModel, -1, 16},               // 15
        {&the_models.CpModel, -1, 16},                // 16
        {&the_models.HLVModel, -1, 16},               // 17
        {&the_models.WatsonN, -kAny, kAny},           // 18
        {&the_models.PriorityCEOS},                   // 19
        {&the_reference.RefMode, 0, 10},              // 20
        {&the_reference.href, -kAny, kAny},           // 21
        {&the_reference.sref, -kAny, kAny},           // 22
        {&the_reference.T0, 0, kAny},                 // 23
        {&the_reference.p0, 0, kAny},                 // 24
        {&the_reference.Tenv, 0, kAny},               // 25
        {&the_reference.penv, 0, kAny},               // 26
        {Flag16{&the_session.BatchMode}},             // 27
        {Flag16{&the_session.CurveSWithoutTieLine}},  // 28
        {Flag16{&the_session.PartialGasCurve}},       // 29
        {&the_session.tank.V, 0, kAny},               // 30
        {&the_session.tank.m, 0, kAny},               // 31
        {&the_session.tank.T, 0, kAny},               // 32
    }};
    return list;
}

struct Write {
    std::string operator()(const double* value) const { return exact(*value); }
    std::string operator()(const float* value) const { return exact(*value); }
    std::string operator()(const std::int16_t* value) const { return std::to_string(*value); }
    std::string operator()(const bool* value) const { return *value ? "#TRUE#" : "#FALSE#"; }
    std::string operator()(const Flag16& value) const { return *value.flag ? "-1" : "0"; }
    template <class Model>
    std::string operator()(const Model* value) const {
        return std::to_string(models::code_of(*value));
    }
    std::string operator()(const char* value) const { return {'"', *value, '"'}; }
};

struct Read {
    std::string line;  ///< trimmed
    double lowest, highest;

    std::optional<double> number() const {
        const std::optional<double> value = parse_number(numbers::comma_to_point(line));
        return value && *value >= lowest && *value <= highest ? value : std::nullopt;
    }
    std::optional<bool> truth() const {
        const std::string word = text::to_upper(line);
        if (word == "#TRUE#") return true;
        if (word == "#FALSE#") return false;
        const std::optional<double> value = parse_number(line);
        return value ? std::optional(*value != 0) : std::nullopt;
    }

    void operator()(double* setting) const { *setting = number().value_or(*setting); }
    void operator()(float* setting) const {
        if (const std::optional<double> value = number()) *setting = static_cast<float>(*value);
    }
    void operator()(std::int16_t* setting) const {
        if (const std::optional<double> value = number()) *setting = numbers::to_int16(*value);
    }
    void operator()(bool* setting) const { *setting = truth().value_or(*setting); }
    void operator()(const Flag16& setting) const {
        *setting.flag = truth().value_or(*setting.flag);
    }
    template <class Model>
    void operator()(Model* setting) const {
        if (const std::optional<double> value = number()) take(*setting, numbers::to_int16(*value));
    }
    void operator()(char* setting) const {
        const bool quoted = line.size() == 3 && line.front() == '"' && line.back() == '"';
        if (quoted) *setting = line[1];
    }
};

}  // namespace

std::string project_item_lines() {
    std::string lines;
    for (const Item& item : items()) lines += std::visit(Write{}, item.setting) + "\r\n";
    return lines;
}

void read_project_items(std::span<const std::string> lines) {
    const std::size_t count = std::min(lines.size(), kProjectItems);
    for (std::size_t i = 0; i < count; ++i) {
        const Item& item = items()[i];
        // The separator may be a tab: only the blanks round its quotes go.
        std::visit(Read{text::trim(lines[i]), item.lowest, item.highest}, item.setting);
    }
}

}  // namespace quor::datafiles
