#include "datafiles/project_items.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <variant>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/cell_numbers.h"
#include "models/model_tables.h"
#include "session/declare.h"

namespace LoadSaveData {

namespace {

using Declare::models;
using Declare::reference;
using Declare::session;

/// A truth value that is written as a 16-bit number, 0 or -1.
struct Flag16 {
    bool* flag;
};

using Setting = std::variant<double*, float*, std::int16_t*, bool*, Flag16, char*>;

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
        {&session.DiagramT, 0, kAny},              // 5
        {&session.DiagramP, 0, kAny},              // 6
        {&session.DiagramV, 0, kAny},              // 7
        {&session.CaloricFactor, kTiny, kAny},     // 8
        {&session.UnitMode, 0, 2},                 // 9
        {&session.CaloricUnit, 0, 3},              // 10
        {&session.CurveRealRangeOnly},             // 11
        {&session.PointsPerCurve, 50, 800},        // 12
        {&session.CsvSeparator},                   // 13
        {&models.VPModel, 0, Calc::kVPCount - 1},  // 14
        {&models.EOSModel, -1, 16},                // 15
        {&models.CpModel, 0, 2},                   // 16
        {&models.HLVModel, 0, 7},                  // 17
        {&models.WatsonN, -kAny, kAny},            // 18
        {&models.PriorityCEOS},                    // 19
        {&reference.RefMode, 0, 10},               // 20
        {&reference.href, -kAny, kAny},            // 21
        {&reference.sref, -kAny, kAny},            // 22
        {&reference.T0, 0, kAny},                  // 23
        {&reference.p0, 0, kAny},                  // 24
        {&reference.Tenv, 0, kAny},                // 25
        {&reference.penv, 0, kAny},                // 26
        {Flag16{&session.BatchMode}},              // 27
        {Flag16{&session.CurveSWithoutTieLine}},   // 28
        {Flag16{&session.PartialGasCurve}},        // 29
        {&session.tank.V, 0, kAny},                // 30
        {&session.tank.m, 0, kAny},                // 31
        {&session.tank.T, 0, kAny},                // 32
    }};
    return list;
}

struct Write {
    std::string operator()(const double* value) const { return Exact(*value); }
    std::string operator()(const float* value) const { return Exact(*value); }
    std::string operator()(const std::int16_t* value) const { return std::to_string(*value); }
    std::string operator()(const bool* value) const { return *value ? "#TRUE#" : "#FALSE#"; }
    std::string operator()(const Flag16& value) const { return *value.flag ? "-1" : "0"; }
    std::string operator()(const char* value) const { return {'"', *value, '"'}; }
};

struct Read {
    std::string line;  ///< trimmed
    double lowest, highest;

    std::optional<double> number() const {
        const std::optional<double> value = ParseNumber(numbers::CommaToPoint(line));
        return value && *value >= lowest && *value <= highest ? value : std::nullopt;
    }
    std::optional<bool> truth() const {
        const std::string word = text::ToUpper(line);
        if (word == "#TRUE#") return true;
        if (word == "#FALSE#") return false;
        const std::optional<double> value = ParseNumber(line);
        return value ? std::optional(*value != 0) : std::nullopt;
    }

    void operator()(double* setting) const { *setting = number().value_or(*setting); }
    void operator()(float* setting) const {
        if (const std::optional<double> value = number()) *setting = static_cast<float>(*value);
    }
    void operator()(std::int16_t* setting) const {
        if (const std::optional<double> value = number()) *setting = numbers::ToInt16(*value);
    }
    void operator()(bool* setting) const { *setting = truth().value_or(*setting); }
    void operator()(const Flag16& setting) const {
        *setting.flag = truth().value_or(*setting.flag);
    }
    void operator()(char* setting) const {
        const bool quoted = line.size() == 3 && line.front() == '"' && line.back() == '"';
        if (quoted) *setting = line[1];
    }
};

}  // namespace

std::string ProjectItemLines() {
    std::string lines;
    for (const Item& item : items()) lines += std::visit(Write{}, item.setting) + "\r\n";
    return lines;
}

void ReadProjectItems(std::span<const std::string> lines) {
    const std::size_t count = std::min(lines.size(), kProjectItems);
    for (std::size_t i = 0; i < count; ++i) {
        const Item& item = items()[i];
        // The separator may be a tab: only the blanks round its quotes go.
        std::visit(Read{text::Trim(lines[i]), item.lowest, item.highest}, item.setting);
    }
}

}  // namespace LoadSaveData
