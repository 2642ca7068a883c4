#include <charconv>
#include <filesystem>
#include <utility>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "estimation/fit_models.h"
#include "estimation/fit_run.h"
#include "estimation/fit_start_values.h"
#include "estimation/fit_worth.h"
#include "estimation/group_contributions.h"
#include "session/xy_session.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

using estimation::FitState;

double to_number(const std::string& s, const char* option) {
    const std::optional<double> value = numbers::number(s);
    if (!value) throw WrongCall{std::string(option) + ": not a number: " + s};
    return *value;
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
    if (a.fix == "none") return;
    for (const std::string& part : text::split(a.fix, ',')) {
        std::size_t i = 0;
        const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), i);
        if (error != std::errc() || end != part.data() + part.size() || i < 1 || i > count)
            throw WrongCall{"--fix: no such parameter: " + part};
        state.fixed[i - 1] = true;
    }
}

Json optional(const std::optional<double>& value) {
    return value ? number(*value) : Json();
}

/// The model with its start values and points.
FitState prepared_fit(Call& call, const Arguments& a) {
    // A fit needs points; the substance only lends its critical data.
    if (!a.substance.empty()) set_up(call, a);
    FitState state;
    state.lg = a.lg;
    state.substance = call.session->substance;
    if (!std::in_range<std::int16_t>(*a.model) ||
        !estimation::choose_model(state, static_cast<std::int16_t>(*a.model)))
        throw WrongCall{"--model: no such model"};
    state.logarithmic = a.log;
    if (a.Tcr) estimation::change_Tcr(state, *a.Tcr);
    if (a.pcr) state.pcr = *a.pcr;
    if (a.propose && !a.start.empty()) throw WrongCall{"--start and --propose exclude each other"};
    choose_start(a, state);

    if (!session::load_xy(call.session, std::filesystem::absolute(a.file).string()))
        throw CannotBeDone{"nothing was loaded from " + a.file};
    if (const auto note = estimation::set_fit_points(state, call.session->xy.points, false))
        dialogs::tell(*note, "WARNING");
    return state;
}

/// One value a parameter.
template <class Value>
Json of_parameters(const FitState& state, Value value) {
    Json all = Json::array();
    for (std::size_t i = 0; i < static_cast<std::size_t>(state.parameter_count); ++i)
        all.push_back(value(i));
    return all;
}

Json correlations(const FitState& state) {
    if (!state.report.has_correlation) return {};
    return of_parameters(state, [&](std::size_t i) {
        return of_parameters(
            state, [&](std::size_t j) { return optional(estimation::correlation(state, i, j)); });
    });
}

void add_worth(const FitState& state, Json& result) {
    Json notes = Json::array(), reasons = Json::array();
    for (const estimation::FitNote& note : fit_notes(state)) {
        dialogs::tell(note.text, "");
        notes.push_back(note.text);
        reasons.push_back(estimation::name_of(note.flaw));
    }
    result["worthless"] = is_worthless(state);
    result["notes"] = notes;
    result["reasons"] = reasons;
    result["messages"] = Json::array();
    if (!is_worthless(state)) return;
    result["status"] = kWorthless;
    result["message"] = "This fit is worthless: " + worthless_text(state);
}

Json result_of(const FitState& state) {
    const estimation::FitReport& report = state.report;
    const auto deviation = [&](double value) {
        return report.has_deviations ? number(value) : Json();
    };
    return {
        {"status", 0},
        {"parameters",
         of_parameters(state, [&](std::size_t i) { return number(state.parameters[i]); })},
        {"stdDev", of_parameters(state,
                                 [&](std::size_t i) {
                                     return optional(estimation::standard_deviation(state, i));
                                 })},
        {"SQ", optional(sum_of_squares(state))},
        {"sR", optional(residual_deviation(state))},
        {"failed", report.ended_at_limit},
        {"failedEvaluations", report.failed_evaluations},
        {"meanDeviation", deviation(report.mean_deviation)},
        {"largestDeviation", deviation(report.largest_deviation)},
        {"interval95",
         of_parameters(state, [&](std::size_t i) { return optional(interval95(state, i)); })},
        {"correlation", correlations(state)},
        {"start", of_parameters(state, [&](std::size_t i) { return number(report.start[i]); })}};
}

Json fit(Call& call, const Arguments& a) {
    FitState state = prepared_fit(call, a);
    const estimation::FitModelRow& row = *estimation::find_model(state.model);
    const Json model = {{"number", state.model},
                        {"name", text::trim(row.name)},
                        {"equation", estimation::equation_caption(row, state.lg)}};
    const auto refused = [&](const std::string& reason) -> Json {
        dialogs::tell(reason, dialogs::kNotPossible, dialogs::Icon::Stop);
        return {{"status", -1}, {"parameters", Json()}, {"stdDev", Json()}, {"SQ", Json()},
                {"sR", Json()}, {"failed", true},       {"model", model}};
    };
    if (a.propose) {
        const Result<estimation::Parameters> proposal = estimation::proposed_start_values(state);
        if (!proposal) return refused(proposal.reason());
        state.start = *proposal;
    }
    const Result<FitState> fitted = estimation::run_fit(state);
    if (!fitted) return refused(fitted.reason());
    Json result = result_of(*fitted);
    add_worth(*fitted, result);
    result["model"] = model;
    return result;
}

Json groups(Call&, const Arguments& a) {
    const auto counts = estimation::parse_groups(a.groups);
    if (!counts) throw WrongCall{"--groups cannot be read: " + a.groups};
    if (a.Tb && !(*a.Tb > 0)) throw WrongCall{"--Tb has to be > 0"};
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
    Json implausible = Json::array();
    for (const std::string& note : estimation::implausible_values(critical)) {
        implausible.push_back(note);
        dialogs::tell(note, "WARNING");
    }
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
            {"omega", optional(omega)},
            {"implausible", implausible}};
}

}  // namespace

std::vector<Command> estimation_commands() {
    return {
        {"fit",
         "fits a correlation to the points of an .XY file",
         {"model!", "file!", "start", "propose", "fix", "Tcr", "pcr", "log", "lg"},
         fit},
        {"groups", "Joback group contributions and the acentric factor", {"groups!", "Tb"}, groups},
    };
}

}  // namespace quor::quorcalc
