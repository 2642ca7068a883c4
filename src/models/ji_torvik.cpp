#include "models/ji_torvik.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/text.h"
#include "session/module2.h"

extern char** environ;

namespace quor::models {

namespace {

using legacy::the_substance;

std::chrono::milliseconds parameterWait{100000};
bool parametersGiven = false;

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

EquationClass equation_class(const std::string& code) {
    if (code == "AHP") return {1, 0};
    if (code == "AUG") return {1, 1};
    if (code == "FRO" || code == "KFR" || code == "KFW") return {2, 0};
    if (code == "WAG") return {3, 1};
    return {0, 0};  // ALP, THO
}

/// Ten parameters of the active vapour pressure equation in record order and its two bounds.
std::vector<double> equation_values(const std::string& code) {
    std::vector<double> v;
    double TLo = 0, THi = 0;
    const auto antoine = [&](const models::VPSetAntoine& s) {
        for (const float x : {s.A, s.B, s.C}) v.push_back(static_cast<double>(x));
        TLo = s.TLo;
        THi = s.THi;
    };
    const auto list = [&](const auto& s) {
        for (const float x : s.a) v.push_back(static_cast<double>(x));
        TLo = s.TLo;
        THi = s.THi;
    };
    if (code == "ALP") antoine(the_substance.ALP);
    if (code == "AHP") antoine(the_substance.AHP);
    if (code == "THO") antoine(the_substance.THO);
    if (code == "FRO") list(the_substance.FRO);
    if (code == "KFW") list(the_substance.KFW);
    if (code == "KFR") list(the_substance.KFR);
    if (code == "WAG") list(the_substance.WAG);
    if (code == "AUG")
        for (const float x : {the_substance.AUG.A, the_substance.AUG.B})
            v.push_back(static_cast<double>(x));
    v.resize(10, 0.0);
    v.push_back(TLo);
    v.push_back(THi);
    return v;
}

std::string exchange_text(std::int16_t code) {
    const std::string& vp = legacy::the_models.VPCode;
    const EquationClass kind = equation_class(vp);
    std::vector<double> density;
    for (const float x : the_substance.rhoLPar) density.push_back(static_cast<double>(x));
    density.push_back(the_substance.rhoLTLo);
    density.push_back(the_substance.rhoLTHi);

    std::ostringstream out;
    out << (code == 7 ? 10 : 11) << "\r\n"
        << text::trim_right(the_substance.CASRN) << "\r\n"
        << kind.kind << ", 1, " << kind.flag << "\r\n"
        << joined({static_cast<double>(the_substance.M), static_cast<double>(the_substance.rhoLTc),
                   the_substance.Tcrit, the_substance.pcrit, the_substance.rhocrit,
                   the_substance.omega})
        << "\r\n"
        << joined(density) << "\r\n"
        << joined(equation_values(vp)) << "\r\n";
    return out.str();
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
bool read_parameters(const std::string& s, std::int16_t code) {
    const std::vector<std::string> items = free_items(s);
    const std::size_t needed = code == 8 ? 7 : 6;
    if (items.size() < needed) return false;
    for (std::size_t i = 1; i < needed; ++i)
        if (!is_number(items[i])) return false;
    models::JiTorvikParameters jt;
    jt.jtM = numbers::val(items[2]);
    jt.jtP = numbers::val(items[3]);
    jt.jtQ = numbers::val(items[4]);
    jt.jtZc = numbers::val(items[5]);
    if (code == 8) jt.jtK = numbers::val(items[6]);
    if (!(jt.jtZc > 0.0) || !(jt.jtZc < 1.0)) return false;
    legacy::the_jiTorvik = jt;
    return true;
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

void set_ji_torvik_wait(std::chrono::milliseconds wait) {
    parameterWait = wait;
}
void give_ji_torvik_parameters(bool given) {
    parametersGiven = given;
}

Status obtain_ji_torvik_parameters(std::int16_t code) {
    if (parametersGiven) return kSuccess;
    legacy::the_jiTorvik = {};

    namespace fs = std::filesystem;
    const fs::path folder = session::write_folder();
    const fs::path answer = folder / (code == 7 ? "PARAM_JI.DAT" : "PARA_JI2.DAT");
    std::error_code ignored;
    std::ofstream(folder / "jipar.tmp", std::ios::binary) << exchange_text(code);
    fs::remove(answer, ignored);
    {
        const session::BusyPointer busy;
        if (session::file_exists("djipar.exe"))
            run_program(fs::absolute(session::find_file("djipar.exe")).string(), folder.string(),
                        parameterWait);
    }
    if (!fs::exists(answer, ignored)) {
        dialogs::tell("No parameter-file generated.", "Execution not possible");
        return 1;
    }
    std::ifstream in(answer, std::ios::binary);
    std::string content(65536, '\0');
    in.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(in.gcount()));
    return read_parameters(content, code) ? Status{0} : Status{2};
}

}  // namespace quor::models
