#pragma once

#include <string_view>

#include "models/model_codes.h"
#include "models/model_tables.h"

/// Models by the numbers and letters under which files and tables of reference values know them.
namespace codes {

inline quor::models::Eos eos(int code) {
    return quor::models::eos_of_code(code).value();
}
inline quor::models::VapourPressureEquation vp(int code) {
    return quor::models::vapour_pressure_of_code(code).value();
}
inline quor::models::VapourPressureEquation vp(std::string_view code) {
    return quor::models::vp_of_code(code);
}
inline quor::models::VaporisationModel hlv(int code) {
    return quor::models::vaporisation_of_code(code).value();
}
inline quor::models::CpForm cp(int code) {
    return quor::models::cp_form_of_code(code).value();
}

}  // namespace codes
