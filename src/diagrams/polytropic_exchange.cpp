#include "diagrams/polytropic_exchange.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <limits>
#include <optional>
#include <vector>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/text_parts.h"
#include "common/whole_file.h"
#include "diagrams/caloric_functions.h"
#include "models/model_codes.h"
#include "models/state_solver.h"

namespace quor::diagrams {

namespace {

namespace fs = std::filesystem;

constexpr double kMissing = 1e37;       // a value above it stands for none
constexpr std::size_t kHeadValues = 2;  // before the count of points
constexpr std::size_t kProcessValues = std::tuple_size_v<decltype(ProcessLine::polytropic_values)>;
constexpr std::size_t kMostPoints = 32767;
constexpr std::size_t kMostColumns = 100;  // of a point; the program gives a dozen

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

double start_volume(const models::Fluid& fluid, const ProcessLine& line) {
    const auto state = models::solve_state_tp(fluid, line.T1, line.p1);
    if (!state) return 0;
    const auto wanted = line.vapour ? state->vV : state->vL;
    const auto other = line.vapour ? state->vL : state->vV;
    return wanted ? *wanted : other.value_or(0);
}

/// h, s, g, u, a, both exergies, cp, cV in the unit of the basis, and the speed of sound.
void add_functions(Lines& lines, double factor, const models::StateValues& z) {
    const models::Exergies e = z.exergies.value_or(models::Exergies{});
    for (const double value : {z.h, z.s, z.g, z.u, z.a, e.H, e.U, z.cp, z.cv})
        lines.add(value * factor);
    lines.add(z.w);
}

/// The fugacity and the derivatives, per unit of mass: a derivative with respect to v takes the
/// factor M, one of v the factor 1/M.
void add_derivatives(Lines& lines, double M, double p, const models::StateValues& z) {
    const models::PhaseTable& t = z.table;
    lines.add(p * std::exp(t.residual[models::LnPhi]));
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

std::string polytropic_request_text(const Basis& basis, const PolytropicTask& task) {
    const ProcessLine& r = task.line;
    const models::UnitChoice& units = basis.units.choice;
    const double v = start_volume(basis.fluid, r);
    // The file holds 0 for a value that is not known.
    const models::StateValues z =
        CaloricFunctions(basis)(r.T1, r.p1, v).value_or(models::StateValues{});

    Lines lines;
    lines.add(r.ideal_gas_equation ? 0 : 1);
    lines.add(basis.fluid.substance().name);
    lines.add(static_cast<int>(models::code_of(basis.fluid.models().eos)));
    lines.add(units.caloric == models::CaloricUnit::specific ? 0 : 1);
    lines.add(r.polytropic_mode == 1 ? 1 : 2);
    lines.add(r.heterogeneous ? 1 : 0);
    lines.add(r.end_to_begin ? 1 : 0);
    lines.add(task.diagram != nullptr ? task.diagram->exchange : 0);
    lines.add(task.options.points);
    lines.add(static_cast<int>(units.system));
    lines.add(basis.M());
    lines.add(r.T1);
    lines.add(r.p1);
    lines.add(r.range_start);
    lines.add(r.range_end);
    lines.add(v * basis.v_factor());
    lines.add(v);
    lines.zeros(3);
    lines.add(r.vapour ? 1 : 0);
    lines.add(r.range_is_T ? 1 : 0);
    lines.zeros(1);
    lines.add(r.polytropic_exponent);
    lines.add(r.kappa);
    for (const float value : {r.x1, r.y1, r.x2, r.y2}) lines.add(static_cast<double>(value));
    add_functions(lines, basis.caloric(r.T1), z);
    add_derivatives(lines, basis.M(), r.p1, z);
    return lines.text();
}

namespace {

/// A number of a field; a decimal comma counts where it does not separate the fields.
std::optional<double> number_of(std::string_view field, char separator) {
    std::string s = text::trim(field);
    if (separator != ',') s = numbers::comma_to_point(s);
    if (s.starts_with('+')) s.erase(0, 1);
    double value = 0;
    const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (s.empty() || end != s.data() + s.size()) return std::nullopt;
    if (error == std::errc::result_out_of_range) return 2 * kMissing;
    if (error != std::errc()) return std::nullopt;
    if (!std::isfinite(value)) return 2 * kMissing;  // "inf" and "nan"
    return value;
}

/// A field of a point: empty or above the limit is a value that is missing.
std::optional<double> point_value(std::string_view field, char separator) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    if (text::trim(field).empty()) return kNone;
    const std::optional<double> value = number_of(field, separator);
    if (value && !(*value <= kMissing)) return kNone;
    return value;
}

/// The numbers at the head of the answer, read as free fields over as many lines as they take.
std::optional<std::vector<double>> take_free_fields(text::LineCursor& lines, std::size_t wanted,
                                                    char separator) {
    std::vector<double> values;
    while (values.size() < wanted) {
        const auto next = lines.next();
        if (!next) return std::nullopt;
        std::string line(*next);
        for (char& c : line)
            if (c == ',' || c == '\t' || c == ';') c = ' ';
        text::CellCursor items(line, ' ');
        while (const auto item = items.next()) {
            if (item->empty()) continue;
            const std::optional<double> value = number_of(*item, separator);
            if (!value || values.size() == wanted) return std::nullopt;
            values.push_back(*value);
        }
    }
    return values;
}

std::optional<PolytropicPoint> point_of(std::string_view line, char separator) {
    PolytropicPoint point;
    std::size_t column = 0;
    text::CellCursor fields(line, separator);
    while (const auto field = fields.next()) {
        const std::optional<double> value = point_value(*field, separator);
        if (!value || column == kMostColumns) return std::nullopt;
        if (column == 0) point.T = *value;
        if (column == 1) point.p = *value;
        if (column > 1) point.columns.push_back(*value);
        ++column;
    }
    if (column < 2) return std::nullopt;
    return point;
}

}  // namespace

std::optional<ProcessLine> take_polytropic_answer(std::string_view content, const ProcessLine& line,
                                                  char csv_separator) {
    text::LineCursor lines(content);
    const auto head = take_free_fields(lines, kHeadValues + 1 + kProcessValues, csv_separator);
    if (!head) return std::nullopt;
    const double count = (*head)[kHeadValues];
    if (!(count >= 0 && count <= static_cast<double>(kMostPoints))) return std::nullopt;

    ProcessLine answered = line;
    std::vector<PolytropicPoint>& points = answered.polytropic_points;
    points.clear();
    while (points.size() < static_cast<std::size_t>(count)) {
        const auto next = lines.next();
        if (!next) break;
        if (text::without_end_blanks(*next).empty()) continue;
        std::optional<PolytropicPoint> point = point_of(*next, csv_separator);
        if (!point) return std::nullopt;
        points.push_back(std::move(*point));
    }
    if (points.size() < static_cast<std::size_t>(count)) return std::nullopt;
    std::copy_n(head->end() - kProcessValues, kProcessValues, answered.polytropic_values.begin());
    return answered;
}

PolytropicRunner real_runner() {
    return {.start = [](const std::string& program, const std::string& folder,
                        std::optional<ChildProgram>& running) {
        Result<ChildProgram> started = ChildProgram::start(program, {}, folder);
        if (started) running.emplace(*std::move(started));
        return running.has_value();
    }};
}

Result<ProcessLine, PolytropicFailure> run_polytrope(const Basis& basis, const PolytropicTask& task,
                                                     const PolytropicPlace& place,
                                                     const PolytropicRunner& runner) {
    if (place.program.empty()) {
        dialogs::tell("File " + std::string(kPolytropicProgram) + " not found in in QUOR directory",
                      dialogs::kNotPossible);
        return PolytropicFailure::missingProgram;
    }
    const Result<RunFolder> folder = RunFolder::make(place.folder);
    const std::string request = text::to_ansi(polytropic_request_text(basis, task));
    if (!folder || !files::write_whole(folder->path() / "TO_DAL.DAT", request)) {
        dialogs::tell("error to_DAL", dialogs::kNotPossible);
        return PolytropicFailure::notWritten;
    }
    const dialogs::BusyPointer busy;
    std::optional<ChildProgram> running;
    if (!runner.start || !runner.start(place.program.string(), folder->path().string(), running))
        return PolytropicFailure::notStarted;
    const fs::path mark = folder->path() / "WRITEEND.END";
    std::error_code ignored;
    const WaitEnd end = wait_until([&] { return fs::exists(mark, ignored); }, runner.patience);
    running.reset();
    if (end == WaitEnd::timeOut) return PolytropicFailure::timeOut;
    if (end == WaitEnd::givenUp) return PolytropicFailure::givenUp;
    const Result<std::string> content = files::read_whole(folder->path() / "FROM_DAL.DAT");
    std::optional<ProcessLine> taken;
    if (content) taken = take_polytropic_answer(*content, task.line, task.csv_separator);
    if (!taken) return PolytropicFailure::unreadable;
    return std::move(*taken);
}

}  // namespace quor::diagrams
