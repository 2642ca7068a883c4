#include "models/model_codes.h"

#include <array>

namespace quor::models {

namespace {

struct EosCode {
    Eos eos;
    std::int16_t code;
};
constexpr std::array<EosCode, 16> kEosCodes{{{Eos::none, -1},
                                             {Eos::idealGas, 0},
                                             {Eos::vanDerWaals, 2},
                                             {Eos::berthelot, 3},
                                             {Eos::redlichKwong, 4},
                                             {Eos::soave, 5},
                                             {Eos::pengRobinson, 6},
                                             {Eos::jiTorvik1, 7},
                                             {Eos::jiTorvik2, 8},
                                             {Eos::manualVirial, 10},
                                             {Eos::virialVanDerWaals, 11},
                                             {Eos::virialBerthelot, 12},
                                             {Eos::virialRedlichKwong, 13},
                                             {Eos::virialSoave, 14},
                                             {Eos::virialPengRobinson, 15},
                                             {Eos::pitzerCurl, 16}}};

/// An enumeration whose order is that of its codes.
template <class Model>
std::optional<Model> in_order(int code, Model last) {
    if (code < 0 || code > static_cast<int>(last)) return std::nullopt;
    return static_cast<Model>(code);
}

}  // namespace

std::int16_t code_of(Eos eos) {
    for (const EosCode& row : kEosCodes)
        if (row.eos == eos) return row.code;
    return -1;
}

std::optional<Eos> eos_of_code(int code) {
    for (const EosCode& row : kEosCodes)
        if (row.code == code) return row.eos;
    return std::nullopt;
}

std::int16_t code_of(VapourPressureEquation equation) {
    return static_cast<std::int16_t>(equation);
}
std::optional<VapourPressureEquation> vapour_pressure_of_code(int code) {
    return in_order(code, VapourPressureEquation::thompson);
}

std::int16_t code_of(VaporisationModel method) {
    return static_cast<std::int16_t>(method);
}
std::optional<VaporisationModel> vaporisation_of_code(int code) {
    return in_order(code, VaporisationModel::cubicEos);
}

std::int16_t code_of(CpForm form) {
    return static_cast<std::int16_t>(form);
}
std::optional<CpForm> cp_form_of_code(int code) {
    return in_order(code, CpForm::sinhCosh);
}

}  // namespace quor::models
