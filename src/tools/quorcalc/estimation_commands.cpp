#include <charconv>
#include <filesystem>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "estimation/fit_models.h"
#include "estimation/fit_run.h"
#include "estimation/group_contributions.h"
#include "session/xy_session.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

using estimation::FitState;

double to_number(const std::string& s, const char* option) {
    double value = 0;
    const auto result = std::from_chars(s.data(), s.data() + s.size(), value);
    if (result.ec != std::errc() || result.ptr != s.data() + s.size())
        throw WrongCall{std::string(option) + ": not a number: " + s};
    return value;
}

void choose_start(const Arguments& a, FitState& state) {
    const auto count = static_cast<std::size_t>(state.parameter_count);
    if (!a.start.empty()) {
        const std::vector<std::string> parts = text::split(a.start, ',');
        if (parts.size() > count) throw WrongCall{"--start has too many values"};
        for (std::size_t i = 0; i < parts.size(); ++i)
            state.start[i] = to_number(parts[i], "--start");
    }
    if (a.fix.empty()) return;
    state.fixed = {};
    for (const std::string& part : text::split(a.fix, ',')) {
        const double i = to_number(part, "--fix");
        if (i < 1 || i > static_cast<double>(count))
            throw WrongCall{"--fix: no such parameter: " + part};
        state.fixed[static_cast<std::size_t>(i) - 1] = true;
    }
}

Json fit(Call& call, const Arguments& a) {
    // A fit needs points; the substance only lends its critical data.
    if (!a.substance.empty()) set_up(call, a);
    FitState state;
    state.lg = a.lg;
    state.substance = call.session->substance;
    if (!estimation::choose_model(state, static_cast<std::int16_t>(*a.model)))
        throw WrongCall{"--model: no such model"};
    state.lg = a.lg;
    if (a.lg)
        state.start =
            estimation::start_values(*estimation::find_model(state.model), true, state.Tcr);
    state.logarithmic = a.log;
    if (a.Tcr) state.Tcr = *a.Tcr;
    if (a.pcr) state.pcr = *a.pcr;
    choose_start(a, state);

    if (!session::load_xy(call.session, std::filesystem::absolute(a.file).string()))
        throw CannotBeDone{"nothing was loaded from " + a.file};
    if (const auto note = estimation::set_fit_points(state, call.session->xy.points, false))
        dialogs::tell(*note, "WARNING");
    Json result = {{"status", 0},  {"parameters", Json()}, {"stdDev", Json()},
                   {"SQ", Json()}, {"sR", Json()},         {"failed", true}};
    Result<FitState> fitted = estimation::run_fit(state);
    if (!fitted) {
        dialogs::tell(fitted.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        result["status"] = -1;
        return result;
    }
    state = *std::move(fitted);
    Json parameters = Json::array(), deviations = Json::array();
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.parameter_count); ++i) {
        parameters.push_back(number(state.parameters[i]));
        const double deviation = state.std_dev[i];
        deviations.push_back(number(deviation));
    }
    result["parameters"] = parameters;
    result["stdDev"] = deviations;
    result["SQ"] = number(state.sum_of_squares);
    result["sR"] = number(state.residual_deviation);
    result["failed"] = state.report.ended_at_limit;
    result["failedEvaluations"] = state.report.failed_evaluations;
    result["meanDeviation"] =
        state.report.has_deviations ? number(state.report.mean_deviation) : Json();
    result["largestDeviation"] =
        state.report.has_deviations ? number(state.report.largest_deviation) : Json();
    return result;
}

Json optional(const std::optional<double>& value) {
    return value ? number(*value) : Json();
}

Json groups(Call&, const Arguments& a) {
    const auto counts = estimation::parse_groups(a.groups);
    if (!counts) throw WrongCall{"--groups cannot be read: " + a.groups};
    const estimation::CriticalData critical = estimation::joback_critical(*counts, a.Tb);
    const estimation::Formation formation = estimation::joback_formation(*counts);
    const auto cp = estimation::joback_cp(*counts);
    Json coefficients;
    if (cp) {
        coefficients = Json::array();
        for (const double c : *cp) coefficients.push_back(number(c));
    }
    std::optional<double> omega;
    if (critical.Tb && critical.Tc && critical.pc)
        omega = estimation::lee_kesler_omega(*critical.Tb, *critical.Tc, *critical.pc);
    const bool any = estimation::any_group(*counts);
    return {{"status", any ? 0 : -1},
            {"M", any ? Json(estimation::molar_mass(*counts)) : Json()},
            {"Tb", optional(critical.Tb)},
            {"Tf", optional(critical.Tf)},
            {"Tc", optional(critical.Tc)},
            {"pc", optional(critical.pc)},
            {"Vc", optional(critical.vc)},
            {"rhoc", optional(critical.rhoc)},
            {"dfh", optional(formation.dfh)},
            {"dfg", optional(formation.dfg)},
            {"cp", coefficients},
            {"omega", optional(omega)}};
}

}  // namespace

std::vector<Command> estimation_commands() {
    return {
        {"fit",
         "fits a correlation to the points of an .XY file",
         {"model!", "file!", "start", "fix", "Tcr", "pcr", "log", "lg"},
         fit},
        {"groups", "Joback group contributions and the acentric factor", {"groups!", "Tb"}, groups},
    };
}

}  // namespace quor::quorcalc
