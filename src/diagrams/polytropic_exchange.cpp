#include "diagrams/polytropic_exchange.h"
#include "legacy/wrappers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <thread>
#include <vector>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "models/caloric.h"
#include "models/parameter_program.h"
#include "models/state_solver.h"
#include "session/module2.h"

namespace quor::diagrams {

using legacy::the_processLine;
using legacy::the_session;

namespace {

namespace fs = std::filesystem;

constexpr double kMissing = 1e37;       // a value above it stands for none
constexpr std::size_t kHeadValues = 2;  // before the count of points
constexpr std::size_t kProcessValues =
    std::tuple_size_v<decltype(the_processLine.PolytropicValues)>;
constexpr std::size_t kMostPoints = 32767;

/// Diagrams by groups: sections, functions over T at constant p and at constant v, over p, over v,
/// and pairs of functions.
struct Numbered {
    std::int16_t code;
    int number;
};
constexpr auto kNumbers = std::to_array<Numbered>({
    {1, 1},    {2, 2},    {26, 3},   {3, 4},    {4, 5},    {5, 6},    {15, 10},
    {16, 11},  {17, 12},  {18, 13},  {19, 14},  {34, 15},  {181, 21}, {182, 22},
    {183, 23}, {184, 24}, {185, 25}, {150, 31}, {151, 32}, {152, 33}, {153, 34},
    {154, 35}, {156, 41}, {157, 42}, {158, 43}, {159, 44}, {160, 45}, {107, 51},
    {24, 52},  {109, 61}, {23, 62},  {21, 71},  {22, 72},
});

/// The lines of the request, one value each.
class Lines {
  public:
    void add(int value) { out_ += std::to_string(value) + "\r\n"; }
    void add(const std::string& value) { out_ += value + "\r\n"; }
    void add(double value) {
        out_ += numbers::format_point(std::isfinite(value) ? value : 0.0, "0.0000000E+00") + "\r\n";
    }
    void zeros(int count) {
        for (int i = 0; i < count; ++i) add(0.0);
    }
    const std::string& text() const { return out_; }

  private:
    std::string out_;
};

double start_volume() {
    constexpr std::int16_t kLiquid = 0;
    const models::StateTP state = models::SolveStateTP(the_processLine.T1, the_processLine.p1);
    if (state.status != kSuccess) return 0;
    const double first = the_processLine.Phase == kLiquid ? state.vL : state.vV;
    return first > 0 ? first : std::fmax(state.vL, state.vV);
}

/// h, s, g, u, a, both exergies, cp, cV in the unit of the session, and the speed of sound.
void add_functions(Lines& lines, const models::StateValues& z) {
    const double factor = session::caloric_factor_of(the_session.CaloricUnit, the_processLine.T1);
    for (const double value : {z.h, z.s, z.g, z.u, z.a, z.eH, z.eU, z.cp, z.cv})
        lines.add(value * factor);
    lines.add(z.w);
}

/// The fugacity and the derivatives, per unit of mass: a derivative with respect to v takes the
/// factor M, one of v the factor 1/M.
void add_derivatives(Lines& lines, const models::StateValues& z) {
    const auto M = static_cast<double>(legacy::the_substance.M);
    const models::PhaseTable& t = z.table;
    lines.add(the_processLine.p1 * std::exp(t.residual[models::LnPhi]));
    lines.add(M * t.first[1]);
    lines.add(t.first[2]);
    lines.add(M > 0 ? t.first[3] / M : 0);
    lines.add(M > 0 ? t.first[4] / M : 0);
    lines.add(M * t.first[5]);
    lines.add(t.first[6]);
    lines.add(M * M * t.second[1]);
    lines.add(M > 0 ? t.second[2] / M : 0);
    lines.add(M * M * t.second[3]);
}

}  // namespace

int polytropic_diagram_number(std::int16_t DiagramType) {
    for (const Numbered& row : kNumbers)
        if (row.code == DiagramType) return row.number;
    return 0;
}

std::string polytropic_request_text() {
    constexpr std::int16_t kSpecificUnit = 3;
    const diagrams::ProcessLineRecord& r = the_processLine;
    const double v = start_volume();
    const models::StateValues z = models::StateFunctions(r.T1, r.p1, v);

    Lines lines;
    lines.add(r.IdealGasEquation ? 0 : 1);
    lines.add(legacy::the_substance.Name);
    lines.add(static_cast<int>(legacy::the_models.EOSModel));
    lines.add(the_session.CaloricUnit == kSpecificUnit ? 0 : 1);
    lines.add(r.PolytropicMode == 1 ? 1 : 2);
    lines.add(r.Heterogeneous ? 1 : 0);
    lines.add(r.EndToBegin ? 1 : 0);
    lines.add(polytropic_diagram_number(r.BaseDiagramType));
    lines.add(static_cast<int>(the_session.PointsPerCurve));
    lines.add(static_cast<int>(the_session.UnitMode));
    lines.add(static_cast<double>(legacy::the_substance.M));
    lines.add(r.T1);
    lines.add(r.p1);
    lines.add(r.RangeStart);
    lines.add(r.RangeEnd);
    lines.add(v * the_session.VolumeFactor);
    lines.add(v);
    lines.zeros(3);
    lines.add(static_cast<int>(r.Phase));
    lines.add(static_cast<int>(r.RangeIsT));
    lines.zeros(1);
    lines.add(r.PolytropicExponent);
    lines.add(r.Kappa);
    for (const float value : {r.x1, r.y1, r.x2, r.y2}) lines.add(static_cast<double>(value));
    add_functions(lines, z);
    add_derivatives(lines, z);
    return lines.text();
}

namespace {

/// A number of a field; a decimal comma counts where it does not separate the fields.
std::optional<double> number_of(std::string_view field) {
    std::string s = text::trim(field);
    if (the_session.CsvSeparator != ',') s = numbers::comma_to_point(s);
    if (s.starts_with('+')) s.erase(0, 1);
    double value = 0;
    const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (s.empty() || end != s.data() + s.size()) return std::nullopt;
    if (error == std::errc::result_out_of_range) return 2 * kMissing;
    if (error != std::errc()) return std::nullopt;
    return value;
}

/// A field of a point: empty or above the limit is a value that is missing.
std::optional<double> point_value(std::string_view field) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    if (text::trim(field).empty()) return kNone;
    const std::optional<double> value = number_of(field);
    if (value && !(*value <= kMissing)) return kNone;
    return value;
}

/// The numbers at the head of the answer, read as free fields over as many lines as they take.
std::optional<std::vector<double>> take_free_fields(const std::vector<std::string>& lines,
                                                    std::size_t& next, std::size_t wanted) {
    std::vector<double> values;
    while (values.size() < wanted) {
        if (next >= lines.size()) return std::nullopt;
        std::string line = lines[next++];
        for (char& c : line)
            if (c == ',' || c == '\t' || c == ';') c = ' ';
        for (const std::string& item : text::split(line, ' ')) {
            if (item.empty()) continue;
            const std::optional<double> value = number_of(item);
            if (!value || values.size() == wanted) return std::nullopt;
            values.push_back(*value);
        }
    }
    return values;
}

std::optional<diagrams::PolytropicPoint> point_of(const std::string& line) {
    diagrams::PolytropicPoint point;
    std::size_t column = 0;
    for (const std::string& field : text::split(line, the_session.CsvSeparator)) {
        const std::optional<double> value = point_value(field);
        if (!value) return std::nullopt;
        if (column == 0) point.T = *value;
        if (column == 1) point.p = *value;
        if (column > 1) point.columns.push_back(*value);
        ++column;
    }
    if (column < 2) return std::nullopt;
    return point;
}

}  // namespace

bool take_polytropic_answer(std::string_view content) {
    const std::vector<std::string> lines = text::Lines(content);
    std::size_t next = 0;
    const auto head = take_free_fields(lines, next, kHeadValues + 1 + kProcessValues);
    if (!head) return false;
    const double count = (*head)[kHeadValues];
    if (!(count >= 0 && count <= static_cast<double>(kMostPoints))) return false;

    std::vector<diagrams::PolytropicPoint> points;
    for (; next < lines.size() && points.size() < static_cast<std::size_t>(count); ++next) {
        if (text::trim(lines[next]).empty()) continue;
        std::optional<diagrams::PolytropicPoint> point = point_of(lines[next]);
        if (!point) return false;
        points.push_back(std::move(*point));
    }
    if (points.size() < static_cast<std::size_t>(count)) return false;
    std::copy_n(head->end() - kProcessValues, kProcessValues,
                the_processLine.PolytropicValues.begin());
    legacy::the_polytropicPoints = std::move(points);
    return true;
}

PolytropicRunner& polytropic_runner() {
    static PolytropicRunner runner{
        .start =
            [](const std::string& program, const std::string& folder) {
                return models::run_program(program, folder, std::chrono::milliseconds(0));
            },
        .pass =
            [] {
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
                return true;
            },
    };
    return runner;
}

namespace {

PolytropicCode wait_for(const fs::path& mark) {
    const PolytropicRunner& runner = polytropic_runner();
    const auto end = std::chrono::steady_clock::now() + runner.limit;
    std::error_code ignored;
    while (!fs::exists(mark, ignored)) {
        if (std::chrono::steady_clock::now() >= end) return PolytropicCode::kTimeOut;
        if (runner.pass && !runner.pass()) return PolytropicCode::kGivenUp;
    }
    return PolytropicCode::kDone;
}

}  // namespace

PolytropicCode run_polytrope() {
    legacy::the_polytropicPoints.clear();
    const std::string name = kPolytropicProgram;
    if (!session::file_exists(name)) {
        dialogs::tell("File " + name + " not found in in QUOR directory", "Execution not possible");
        return PolytropicCode::kMissingProgram;
    }
    const fs::path folder = session::write_folder();
    const fs::path answer = folder / "FROM_DAL.DAT", mark = folder / "WRITEEND.END";
    const std::string request = text::to_ansi(polytropic_request_text());
    if (!datafiles::write_whole(folder / "TO_DAL.DAT", request).empty()) {
        dialogs::tell("error to_DAL", "Execution not possible");
        return PolytropicCode::kNotWritten;
    }
    const session::BusyPointer busy;
    std::error_code ignored;
    fs::remove(answer, ignored);
    fs::remove(mark, ignored);
    const std::string program = fs::absolute(session::find_file(name)).string();
    if (!polytropic_runner().start || !polytropic_runner().start(program, folder.string()))
        return PolytropicCode::kNotStarted;
    if (const PolytropicCode waited = wait_for(mark); waited != PolytropicCode::kDone)
        return waited;
    const datafiles::FileContent content = datafiles::read_whole(answer);
    const bool taken = content.error.empty() && take_polytropic_answer(content.bytes);
    return taken ? PolytropicCode::kDone : PolytropicCode::kUnreadable;
}

}  // namespace quor::diagrams
