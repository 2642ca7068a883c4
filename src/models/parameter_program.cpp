#include "models/parameter_program.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"

namespace quor::models {

namespace {

std::string number(double value) {
    return numbers::format_point(value, "0.00000000E+00");
}

std::string joined(const std::vector<double>& values) {
    std::string line;
    for (const double v : values) line += (line.empty() ? "" : ", ") + number(v);
    return line;
}

/// How the parameter program sorts the vapour pressure equations.
struct EquationClass {
    int kind, flag;
};

EquationClass equation_class(VapourPressureEquation code) {
    if (code == VapourPressureEquation::antoineHigh) return {1, 0};
    if (code == VapourPressureEquation::august) return {1, 1};
    if (code == VapourPressureEquation::frostKalkwarf ||
        code == VapourPressureEquation::frostRedlichKwong ||
        code == VapourPressureEquation::frostVanDerWaals)
        return {2, 0};
    if (code == VapourPressureEquation::wagner) return {3, 1};
    return {0, 0};  // ALP, THO
}

/// Ten parameters of the active vapour pressure equation in record order and its two bounds.
std::vector<double> equation_values(const SubstanceRecord& substance, VapourPressureEquation code) {
    std::vector<double> v;
    double T_low = 0, T_high = 0;
    const auto antoine = [&](const AntoineSet& s) {
        for (const float x : {s.A, s.B, s.C}) v.push_back(static_cast<double>(x));
        T_low = s.T_low;
        T_high = s.T_high;
    };
    const auto list = [&](const auto& s) {
        for (const float x : s.a) v.push_back(static_cast<double>(x));
        T_low = s.T_low;
        T_high = s.T_high;
    };
    if (code == VapourPressureEquation::antoineLow) antoine(substance.antoine_low);
    if (code == VapourPressureEquation::antoineHigh) antoine(substance.antoine_high);
    if (code == VapourPressureEquation::thompson) antoine(substance.thompson);
    if (code == VapourPressureEquation::frostKalkwarf) list(substance.frost);
    if (code == VapourPressureEquation::frostVanDerWaals) list(substance.frost_van_der_waals);
    if (code == VapourPressureEquation::frostRedlichKwong) list(substance.frost_redlich_kwong);
    if (code == VapourPressureEquation::wagner) list(substance.wagner);
    if (code == VapourPressureEquation::august)
        for (const float x : {substance.august.A, substance.august.B})
            v.push_back(static_cast<double>(x));
    v.resize(10, 0.0);
    v.push_back(T_low);
    v.push_back(T_high);
    return v;
}

}  // namespace

std::string parameter_request_text(const SubstanceRecord& substance, VapourPressureEquation vp,
                                   Eos form) {
    const EquationClass kind = equation_class(vp);
    std::vector<double> density;
    for (const float x : substance.rhoL_coefficients) density.push_back(static_cast<double>(x));
    density.push_back(substance.rhoL_T_low);
    density.push_back(substance.rhoL_T_high);

    std::string all;
    for (const std::string& line :
         {std::string(form == Eos::jiTorvik1 ? "10" : "11"), text::trim_right(substance.casrn),
          std::to_string(kind.kind) + ", 1, " + std::to_string(kind.flag),
          joined({static_cast<double>(substance.M), static_cast<double>(substance.rhoL_Tc),
                  substance.Tcrit, substance.pcrit, substance.rhocrit, substance.omega}),
          joined(density), joined(equation_values(substance, vp))})
        all += line + "\r\n";
    return all;
}

namespace {

/// Items of a free-format text: separated by blanks, commas and line ends; a quoted text is one.
std::vector<std::string> free_items(std::string_view answer) {
    std::vector<std::string> items;
    std::string item;
    bool quoted = false;
    for (const char c : std::string(answer) + " ") {
        if (c == '"' || c == '\'') {
            quoted = !quoted;
        } else if (!quoted && (c == ' ' || c == ',' || c == '\t' || c == '\r' || c == '\n')) {
            if (!item.empty()) items.push_back(item);
            item.clear();
        } else {
            item += c;
        }
    }
    if (!item.empty()) items.push_back(item);
    return items;
}

/// A finite number; its exponent may bear a "D".
std::optional<double> parameter(std::string item) {
    constexpr double kLargest = 1e30;
    std::replace_if(
        item.begin(), item.end(), [](char c) { return c == 'd' || c == 'D'; }, 'E');
    const std::optional<double> value = numbers::number(item);
    return value && std::fabs(*value) <= kLargest ? value : std::nullopt;
}

}  // namespace

std::optional<JiTorvikParameters> parameters_of_answer(std::string_view answer, Eos form) {
    const std::vector<std::string> items = free_items(answer);
    const bool second_form = form == Eos::jiTorvik2;
    const std::size_t needed = second_form ? 7 : 6;
    if (items.size() < needed) return std::nullopt;
    std::array<double, 6> values{};
    for (std::size_t i = 1; i < needed; ++i) {
        const std::optional<double> value = parameter(items[i]);
        if (!value) return std::nullopt;
        values[i - 1] = *value;
    }
    JiTorvikParameters jt;
    jt.m = values[1];
    jt.p = values[2];
    jt.q = values[3];
    jt.zc = values[4];
    jt.k = values[5];
    if (!(jt.zc > 0.0) || !(jt.zc < 1.0)) return std::nullopt;
    return jt;
}

Result<JiTorvikParameters> ask_parameter_program(const ParameterProgram& program,
                                                 const SubstanceRecord& substance,
                                                 VapourPressureEquation equation, Eos form) {
    constexpr std::size_t kLargestAnswer = 65536;
    if (program.program.empty()) return Failure{kNoParameterFile};
    const Result<RunFolder> folder = RunFolder::make(program.folder);
    if (!folder) return folder.failure();
    const std::filesystem::path answer =
        folder->path() / (form == Eos::jiTorvik1 ? "PARAM_JI.DAT" : "PARA_JI2.DAT");
    const Result<void> written = files::write_whole(
        folder->path() / "jipar.tmp", parameter_request_text(substance, equation, form));
    if (!written) return written.failure();

    Result<ChildProgram> child = ChildProgram::start(program.program, {}, folder->path());
    if (!child) return child.failure();
    const WaitEnd end = wait_until([&] { return child->has_ended(); }, program.patience);
    child->end();
    if (end == WaitEnd::givenUp) return Failure{kParametersGivenUp};
    std::error_code ignored;
    if (!std::filesystem::exists(answer, ignored)) return Failure{kNoParameterFile};
    const Result<std::string> content = files::read_whole(answer, kLargestAnswer);
    std::optional<JiTorvikParameters> parameters;
    if (content) parameters = parameters_of_answer(*content, form);
    if (!parameters) return Failure{kUnreadableParameterFile};
    return *parameters;
}

}  // namespace quor::models
