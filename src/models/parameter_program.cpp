#include "models/parameter_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <optional>
#include <thread>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"

extern char** environ;

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

std::string exchange_text(const SubstanceRecord& substance, VapourPressureEquation vp, Eos form) {
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

/// Items of a free-format text: separated by blanks, commas and line ends; a quoted text is one.
std::vector<std::string> free_items(const std::string& s) {
    std::vector<std::string> items;
    std::string item;
    bool quoted = false;
    for (const char c : s + " ") {
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

bool is_number(const std::string& s) {
    return s.find_first_of("0123456789") != std::string::npos &&
           s.find_first_not_of("0123456789+-.eEdD") == std::string::npos;
}

/// A text, a number that is ignored, then jtM, jtP, jtQ, jtZc and for form II jtK.
std::optional<JiTorvikParameters> read_parameters(const std::string& s, Eos form) {
    const std::vector<std::string> items = free_items(s);
    const std::size_t needed = form == Eos::jiTorvik2 ? 7 : 6;
    if (items.size() < needed) return std::nullopt;
    for (std::size_t i = 1; i < needed; ++i)
        if (!is_number(items[i])) return std::nullopt;
    JiTorvikParameters jt;
    jt.m = numbers::val(items[2]);
    jt.p = numbers::val(items[3]);
    jt.q = numbers::val(items[4]);
    jt.zc = numbers::val(items[5]);
    if (form == Eos::jiTorvik2) jt.k = numbers::val(items[6]);
    if (!(jt.zc > 0.0) || !(jt.zc < 1.0)) return std::nullopt;
    return jt;
}

}  // namespace

bool run_program(const std::string& program, const std::string& folder,
                 std::chrono::milliseconds wait) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    std::string name = program;
    char* arguments[] = {name.data(), nullptr};
    pid_t child = 0;
    const int error = posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) return false;
    const auto end = std::chrono::steady_clock::now() + wait;
    while (waitpid(child, nullptr, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() >= end) {
            // The program goes on by itself; its end is collected when it comes.
            std::thread([child] { waitpid(child, nullptr, 0); }).detach();
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

Result<JiTorvikParameters> ask_parameter_program(const ParameterProgram& program,
                                                 const SubstanceRecord& substance,
                                                 VapourPressureEquation equation, Eos form) {
    namespace fs = std::filesystem;
    const fs::path answer =
        program.folder / (form == Eos::jiTorvik1 ? "PARAM_JI.DAT" : "PARA_JI2.DAT");
    std::error_code ignored;
    std::ofstream(program.folder / "jipar.tmp", std::ios::binary)
        << exchange_text(substance, equation, form);
    fs::remove(answer, ignored);
    if (!program.program.empty())
        run_program(fs::absolute(program.program).string(), program.folder.string(), program.wait);
    if (!fs::exists(answer, ignored)) return Failure{"No parameter-file generated."};
    std::ifstream in(answer, std::ios::binary);
    std::string content(65536, '\0');
    in.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(in.gcount()));
    const std::optional<JiTorvikParameters> parameters = read_parameters(content, form);
    if (!parameters) return Failure{"The parameter-file cannot be read."};
    return *parameters;
}

}  // namespace quor::models
