#include "estimation/fit_worth.h"

#include <algorithm>

namespace quor::estimation {

namespace {

/// A standard deviation that is so many times another one contradicts it.
constexpr double kContradiction = 2;

/// A sum of squares that is less by a smaller share is the same.
constexpr double kWorthMentioning = 1e-6;

std::size_t parameters_of(const FitState& state) {
    return static_cast<std::size_t>(state.parameter_count);
}

/// "A, B" for the marked parameters.
std::string names_of(const FitModelRow& row, const Flags& flags) {
    std::string names;
    for (std::size_t i = 0; i < static_cast<std::size_t>(row.parameter_count); ++i) {
        if (!flags[i]) continue;
        const std::string label(row.labels[i]);
        names += (names.empty() ? "" : ", ") + label.substr(0, label.find(' '));
    }
    return names;
}

/// The standard deviation of the search and that of the intervals tell different things.
bool contradicts(const FitState& state, std::size_t i) {
    const double told = state.std_dev[i];
    const double own = state.report.std_dev[i];
    if (state.fixed[i] || told == kNoStdDev || own == kNoStdDev) return false;
    return told > kContradiction * own || own > kContradiction * told;
}

Flags contradictions(const FitState& state) {
    Flags flags{};
    for (std::size_t i = 0; i < parameters_of(state); ++i) flags[i] = contradicts(state, i);
    return flags;
}

bool any(const Flags& flags) {
    return std::find(flags.begin(), flags.end(), true) != flags.end();
}

bool spoils(FitFlaw flaw) {
    switch (flaw) {
        case FitFlaw::EndedAtLimit:
        case FitFlaw::BoundCosts:
        case FitFlaw::EndedAtStart:
        case FitFlaw::NotLeast:
        case FitFlaw::PointsWithoutValue:
        case FitFlaw::Undetermined:
            return true;
        default:
            return false;
    }
}

std::string second_try_text(SecondTry outcome) {
    return outcome == SecondTry::Better
               ? "The start values led to no good fit: this one began at the proposed ones."
               : "The start values led to no good fit, and the proposed ones to no better one.";
}

}  // namespace

std::string_view name_of(FitFlaw flaw) {
    switch (flaw) {
        case FitFlaw::EndedAtLimit:
            return "endedAtLimit";
        case FitFlaw::OnBound:
            return "onBound";
        case FitFlaw::BoundCosts:
            return "boundCosts";
        case FitFlaw::WithoutInfluence:
            return "withoutInfluence";
        case FitFlaw::Singular:
            return "singular";
        case FitFlaw::Undetermined:
            return "undetermined";
        case FitFlaw::EndedAtStart:
            return "endedAtStart";
        case FitFlaw::NotLeast:
            return "notLeast";
        case FitFlaw::FailedEvaluations:
            return "failedEvaluations";
        case FitFlaw::PointsWithoutValue:
            return "pointsWithoutValue";
        case FitFlaw::Contradiction:
            return "contradiction";
        case FitFlaw::SecondTry:
            break;
    }
    return "secondTry";
}

std::vector<FitNote> fit_notes(const FitState& state) {
    std::vector<FitNote> notes;
    const FitModelRow* row = find_model(state.model);
    if (row == nullptr || !state.fitted) return notes;
    const FitReport& report = state.report;
    const auto tell = [&](bool so, FitFlaw flaw, const std::string& text) {
        if (so) notes.push_back({flaw, text});
    };
    tell(report.second_try != SecondTry::None, FitFlaw::SecondTry,
         second_try_text(report.second_try));
    tell(report.ended_at_limit, FitFlaw::EndedAtLimit,
         "The fit ended at its limit of evaluations: the parameters may not be the best ones.");
    tell(any(report.on_bound), FitFlaw::OnBound,
         "On a bound of its range: " + names_of(*row, report.on_bound) + ".");
    tell(report.bound_costs, FitFlaw::BoundCosts,
         "Beyond the bound the sum of squares would be less.");
    tell(any(report.without_influence), FitFlaw::WithoutInfluence,
         "Without influence on the function: " + names_of(*row, report.without_influence) + ".");
    tell(report.singular, FitFlaw::Singular,
         "The normal matrix was singular: there are no standard deviations.");
    tell(report.undetermined, FitFlaw::Undetermined,
         "The points cannot tell the parameters apart.");
    tell(report.ended_at_start && !report.at_minimum, FitFlaw::EndedAtStart,
         "The fit ended where it started.");
    tell(!report.ended_at_start && !report.at_minimum && !report.ended_at_limit, FitFlaw::NotLeast,
         "The fit ended before the sum of squares was least.");
    tell(report.failed_evaluations > 0, FitFlaw::FailedEvaluations,
         std::to_string(report.failed_evaluations) + " evaluations of the function failed.");
    tell(report.failed_points > 0, FitFlaw::PointsWithoutValue,
         (state.logarithmic ? std::string("The fitted function has no value, or no logarithm, at ")
                            : std::string("The fitted function has no value at ")) +
             std::to_string(report.failed_points) + " of the active points.");
    const Flags contradicting = contradictions(state);
    tell(any(contradicting), FitFlaw::Contradiction,
         "Standard deviation and 95 % interval contradict each other: " +
             names_of(*row, contradicting) + ".");
    return notes;
}

bool is_worthless(const FitState& state) {
    const std::vector<FitNote> notes = fit_notes(state);
    return std::any_of(notes.begin(), notes.end(),
                       [](const FitNote& note) { return spoils(note.flaw); });
}

std::string worthless_text(const FitState& state) {
    std::string text;
    for (const FitNote& note : fit_notes(state))
        if (spoils(note.flaw)) text += (text.empty() ? "" : "\n") + note.text;
    return text;
}

bool is_better(const FitState& a, const FitState& b) {
    const bool a_worthless = is_worthless(a);
    if (a_worthless != is_worthless(b)) return !a_worthless;
    if (a.report.failed_points != b.report.failed_points)
        return a.report.failed_points < b.report.failed_points;
    return a.sum_of_squares < (1 - kWorthMentioning) * b.sum_of_squares;
}

std::optional<double> sum_of_squares(const FitState& state) {
    return state.report.failed_points > 0 ? std::nullopt : std::optional(state.sum_of_squares);
}

std::optional<double> residual_deviation(const FitState& state) {
    return state.report.failed_points > 0 ? std::nullopt : std::optional(state.residual_deviation);
}

std::optional<double> standard_deviation(const FitState& state, std::size_t parameter) {
    const FitModelRow* row = find_model(state.model);
    if (row == nullptr || row->computed == static_cast<int>(parameter)) return std::nullopt;
    if (state.fixed[parameter]) return 0;
    const double value = state.std_dev[parameter];
    if (value == kNoStdDev || state.report.on_bound[parameter] || contradicts(state, parameter) ||
        is_worthless(state))
        return std::nullopt;
    return value;
}

std::optional<double> interval95(const FitState& state, std::size_t parameter) {
    const FitModelRow* row = find_model(state.model);
    const double value = state.report.half_width[parameter];
    if (row == nullptr || row->computed == static_cast<int>(parameter) || state.fixed[parameter] ||
        value == kNoStdDev || contradicts(state, parameter) || is_worthless(state))
        return std::nullopt;
    return value;
}

std::optional<double> correlation(const FitState& state, std::size_t a, std::size_t b) {
    const FitReport& report = state.report;
    if (!report.has_correlation || report.correlation[a][a] == 0 || report.correlation[b][b] == 0)
        return std::nullopt;
    return report.correlation[a][b];
}

}  // namespace quor::estimation
