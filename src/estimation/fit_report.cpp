#include "estimation/fit_report.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "estimation/fit_run.h"
#include "estimation/fit_worth.h"

namespace quor::estimation {

namespace {

constexpr int kParameterDigits = 12;
constexpr std::string_view kNone = "---";

using Line = std::vector<std::string>;

/// Lines in columns: the first to the left, the others to the right.
std::string table(const std::vector<Line>& lines) {
    std::vector<std::size_t> width;
    for (const Line& line : lines) {
        width.resize(std::max(width.size(), line.size()));
        for (std::size_t i = 0; i < line.size(); ++i)
            width[i] = std::max(width[i], text::length(line[i]));
    }
    std::string all;
    for (const Line& line : lines) {
        std::string row;
        for (std::size_t i = 0; i < line.size(); ++i) {
            row += i == 0 ? text::pad_right(line[i], width[i])
                          : "  " + text::pad_left(line[i], width[i]);
        }
        row.erase(row.find_last_not_of(' ') + 1);
        all += row + '\n';
    }
    return all;
}

std::string rough_or_none(const std::optional<double>& value) {
    return value ? rough_text(*value) : std::string(kNone);
}

/// The name of a parameter without what follows it on its label.
std::string name_of(const FitModelRow& row, std::size_t i) {
    const std::string label(row.labels[i]);
    return label.substr(0, label.find(' '));
}

std::string parameters(const FitState& state, const FitModelRow& row) {
    std::vector<Line> lines{{"", "start value", "", "result", "std. deviation", "95 % interval"}};
    for (std::size_t i = 0; i < static_cast<std::size_t>(row.parameter_count); ++i) {
        const bool computed = row.computed == static_cast<int>(i);
        Line line{name_of(row, i) + " =", parameter_text(state.start[i]),
                  computed         ? "computed"
                  : state.fixed[i] ? "fixed"
                                   : ""};
        if (state.fitted) {
            line.push_back(parameter_text(state.parameters[i]));
            const std::optional<double> half = interval95(state, i);
            if (!computed) line.push_back(rough_or_none(standard_deviation(state, i)));
            if (!computed && !state.fixed[i])
                line.push_back(half ? "± " + rough_text(*half) : std::string(kNone));
        }
        lines.push_back(std::move(line));
    }
    return table(lines);
}

std::string critical_data(const FitState& state, const FitModelRow& row) {
    std::string text;
    if (row.needs_Tcr) text += "Tcr/K = " + parameter_text(state.Tcr) + "\n";
    if (row.needs_pcr) text += "pcr/kPa = " + parameter_text(state.pcr) + "\n";
    return text;
}

std::string quality(const FitState& state) {
    const QualityTexts texts = quality_of(state);
    std::string text = texts.caption + "\n" + texts.sum_of_squares + "   " +
                       texts.residual_deviation + "\n" + deviation_text(state.report) + "\n" +
                       texts.explain_sum_of_squares + "\n" + texts.explain_residual_deviation +
                       "\n" + texts.symbols + "\n";
    for (const FitNote& note : fit_notes(state)) text += note.text + "\n";
    return text;
}

std::string correlations(const FitState& state, const FitModelRow& row) {
    std::vector<std::size_t> adjusted;
    for (std::size_t i = 0; i < static_cast<std::size_t>(row.parameter_count); ++i)
        if (correlation(state, i, i)) adjusted.push_back(i);
    if (adjusted.empty()) return {};
    std::vector<Line> lines{{""}};
    for (const std::size_t i : adjusted) {
        lines.front().push_back(name_of(row, i));
        Line line{name_of(row, i)};
        for (const std::size_t j : adjusted)
            line.push_back(numbers::format(*correlation(state, i, j), "0.0000;-0.0000"));
        lines.push_back(std::move(line));
    }
    return "\ncorrelation of the parameters\n" + table(lines);
}

std::string points(const FitState& state, const FitModelRow& row) {
    const bool pressure = row.tab == FitTab::VapourPressure;
    const std::string x = row.tab == FitTab::General ? "x" : "T/K";
    const std::string y = pressure ? "p" : "y";
    const std::string unit = pressure ? "/kPa" : "";
    std::vector<Line> lines{{x, y + "(exp)" + unit, y + "(calc)" + unit, "calc - exp", "%"}};
    for (const datafiles::FitPoint& point : state.points) {
        Line line{numbers::general(point.x), numbers::general(point.y)};
        double calculated = 0;
        if (!is_active(point)) {
            line.emplace_back("inactive");
        } else if (evaluate_fit(state, static_cast<double>(point.x), calculated) &&
                   std::isfinite(calculated)) {
            const double measured = static_cast<double>(point.y);
            line.push_back(rough_text(calculated));
            line.push_back(rough_text(calculated - measured));
            line.push_back(
                measured == 0 ? std::string(kNone)
                              : numbers::format(100 * (calculated - measured) / std::fabs(measured),
                                                "0.000;-0.000"));
        } else {
            line.emplace_back(kNone);
        }
        lines.push_back(std::move(line));
    }
    return "\npoints and residuals\n" + table(lines);
}

}  // namespace

std::string parameter_text(double value) {
    return numbers::general(value, kParameterDigits);
}

std::string rough_text(double value) {
    return numbers::general(value, 7);
}

std::string deviation_text(const FitReport& report) {
    if (!report.has_deviations) return {};
    return "mean deviation " + rough_text(report.mean_deviation) + " %, largest " +
           rough_text(report.largest_deviation) + " % at " + rough_text(report.largest_at);
}

std::string fit_report(const FitState& state) {
    const FitModelRow* row = find_model(state.model);
    if (row == nullptr) return {};
    std::string text;
    if (!state.substance.name.empty()) text += state.substance.name + "\n";
    text += text::trim(fit_title(state)) + "\n";
    text += std::string(tab_caption(row->tab)) + ": " + text::trim(row->name) + "\n" +
            equation_caption(*row, state.lg) + "\n";
    if (!row->remark.empty()) text += text::trim(row->remark) + "\n";
    text += "\n" + parameters(state, *row) + critical_data(state, *row);
    if (!state.fitted) return text;
    return text + "\n" + quality(state) + correlations(state, *row) + points(state, *row);
}

}  // namespace quor::estimation
