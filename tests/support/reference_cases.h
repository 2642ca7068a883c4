#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

/// Independent reference values of propane (tests/data/reference_propane.json).
namespace reference {

/// All cases of one function.
std::vector<nlohmann::json> Cases(const std::string& function);

/// Makes the reference propane and the models of a case the active ones: EOS code, vapour pressure
/// equation, cp form, Ji/Torvik parameters; the constants follow.
void activate(const nlohmann::json& inputs);

}  // namespace reference
