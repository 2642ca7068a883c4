#pragma once

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "tools/quorcalc/program.h"

/// What a call of quorcalc gave.
struct Outcome {
    int exit = 0;
    std::string out, err;
    nlohmann::json object() const { return nlohmann::json::parse(out); }
};

/// A word as the shell takes it, whatever its bytes.
inline std::string quoted(const std::string& word) {
    std::string all = "'";
    for (const char c : word) all += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return all + "'";
}

/// Runs the program itself, with `input` on standard input. A signal counts as 128 and its number,
/// as in a shell. What it writes to standard output goes to `target`, where one is named.
inline Outcome run_quorcalc(const std::vector<std::string>& words, const std::string& input = "",
                            const std::string& target = "") {
    const TemporaryFolder folder;
    const auto file = [&](const char* name) { return (folder.path() / name).string(); };
    const auto content = [](const std::string& path) {
        std::ostringstream all;
        all << std::ifstream(path, std::ios::binary).rdbuf();
        return all.str();
    };
    std::ofstream(file("in"), std::ios::binary) << input;
    std::string command = quoted(std::string(QUOR_BINARY_FOLDER) + "/quorcalc");
    for (const std::string& word : words) command += " " + quoted(word);
    command += " <" + quoted(file("in")) + " 2>" + quoted(file("err")) + " >" +
               quoted(target.empty() ? file("out") : target);
    const int status = std::system(command.c_str());
    Outcome r;
    r.exit = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    if (target.empty()) r.out = content(file("out"));
    r.err = content(file("err"));
    return r;
}

/// Calls quorcalc in this process.
inline Outcome call_quorcalc(const std::vector<std::string>& words, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out, err;
    Outcome r;
    quor::quorcalc::Program program{quor::Places(QUOR_BINARY_FOLDER)};
    r.exit = program.main(words, in, out, err);
    r.out = out.str();
    r.err = err.str();
    return r;
}
