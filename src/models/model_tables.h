#pragma once

#include <string_view>

#include "models/equation_of_state.h"

/// Names of all models. Names keep their blanks: lists show them trimmed.
namespace quor::models {

/// Name of an equation of state; empty before a choice.
inline std::string_view eos_name(Eos eos) {
    return equation_of(eos).name;
}

/// Name of a vapour pressure equation, and its letters: "000" for none, "ALP", "AHP", "FRO", "WAG",
/// "AUG", "KFW", "KFR", "THO".
std::string_view vp_name(VapourPressureEquation equation);
std::string_view vp_code(VapourPressureEquation equation);
/// The equation of such letters, none when they are unknown.
VapourPressureEquation vp_of_code(std::string_view code);

/// Name of a method of the enthalpy of vaporisation; empty before a choice.
std::string_view hlv_name(VaporisationModel method);
/// Name of an ideal-gas cp form.
std::string_view cp_name(CpForm form);

/// Label of a row of the extended result pages, 0 to 23, 14 characters.
std::string_view function_label(int index);

}  // namespace quor::models
