#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "models/fluid.h"

/// Independent reference values of propane (tests/data/reference_propane.json).
namespace reference {

/// All cases of one function; throws when there is none.
std::vector<nlohmann::json> Cases(const std::string& function);

/// The reference propane with the models of a case: EOS code, vapour pressure equation, cp form,
/// Watson exponent and Ji/Torvik parameters.
quor::models::Fluid fluid(const nlohmann::json& inputs);

}  // namespace reference
