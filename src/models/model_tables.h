#pragma once

#include <cstdint>
#include <string_view>

/// Names and codes of all models. Names keep their blanks: lists show them trimmed.
namespace quor::models {

/// Name of an equation of state, a 35-character text; codes 1 and 9 are empty.
std::string_view EOSName(std::int16_t code);
bool is_cubic_eos(std::int16_t code);   ///< codes 2 to 8
bool is_v_only_eos(std::int16_t code);  ///< codes 0 and 10 to 16
/// Codes in the order in which the model view offers them.
inline constexpr std::int16_t kEOSOrder[] = {0, 2, 3, 4, 5, 6, 7, 8, 10, 16, 11, 12, 13, 14, 15};
/// True for the equations that are offered only with an acentric factor.
bool eos_needs_omega(std::int16_t code);

inline constexpr std::int16_t kVPCount = 9;
/// Name of a vapour pressure equation, index 0 to 8.
std::string_view vp_name(std::int16_t index);
/// Its code: "000", "ALP", "AHP", "FRO", "WAG", "AUG", "KFW", "KFR", "THO".
std::string_view VPCode(std::int16_t index);
/// Index of a code, 0 when unknown.
std::int16_t vp_index(std::string_view code);

/// Name of a method of the enthalpy of vaporisation, 1 to 7; empty otherwise.
std::string_view hlv_name(std::int16_t method);
/// Name of an ideal-gas cp form, 0 to 2.
std::string_view cp_name(std::int16_t form);

/// Label of a row of the extended result pages, 0 to 23, 14 characters.
std::string_view FunctionLabel(int index);

}  // namespace quor::models
