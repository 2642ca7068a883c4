#pragma once

#include <cstdint>
#include <optional>

#include "models/model_selection.h"

/// The numbers under which files, command lines and exchange programs know the models.
namespace quor::models {

/// 0 ideal gas, 2 van der Waals, 3 Berthelot, 4 Redlich/Kwong, 5 Soave, 6 Peng/Robinson, 7 and 8
/// Ji/Torvik, 10 manual virial, 11 to 15 the virial forms of 2 to 6, 16 Pitzer/Curl; -1 none.
std::int16_t code_of(Eos eos);
std::optional<Eos> eos_of_code(int code);

/// 0 none to 8, in the order of the enumeration.
std::int16_t code_of(VapourPressureEquation equation);
std::optional<VapourPressureEquation> vapour_pressure_of_code(int code);

/// 0 none, 1 to 7.
std::int16_t code_of(VaporisationModel method);
std::optional<VaporisationModel> vaporisation_of_code(int code);

/// 0 none, 1 polynomial, 2 sinh/cosh.
std::int16_t code_of(CpForm form);
std::optional<CpForm> cp_form_of_code(int code);

}  // namespace quor::models
