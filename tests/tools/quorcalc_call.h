#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "tools/quorcalc/program.h"

/// What a call of quorcalc gave.
struct Outcome {
    int exit = 0;
    std::string out, err;
    nlohmann::json object() const { return nlohmann::json::parse(out); }
};

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
