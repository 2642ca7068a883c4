#include "models/equation_of_state.h"

#include <array>

#include "models/equations.h"

namespace quor::models {

namespace {

constexpr std::array<const EquationOfState*, 15> kRows = {&kIdealGas,
                                                          &kVanDerWaals,
                                                          &kBerthelot,
                                                          &kRedlichKwong,
                                                          &kSoave,
                                                          &kPengRobinson,
                                                          &kJiTorvik1,
                                                          &kJiTorvik2,
                                                          &kManualVirial,
                                                          &kPitzerCurl,
                                                          &kVirialVanDerWaals,
                                                          &kVirialBerthelot,
                                                          &kVirialRedlichKwong,
                                                          &kVirialSoave,
                                                          &kVirialPengRobinson};

}  // namespace

const EquationOfState& equation_of(Eos eos) {
    for (const EquationOfState* row : kRows)
        if (row->eos == eos) return *row;
    static const EquationOfState none = [] {
        EquationOfState row = kIdealGas;
        row.eos = Eos::none;
        row.name = {};
        return row;
    }();
    return none;
}

std::span<const EquationOfState* const> equations() {
    return kRows;
}

}  // namespace quor::models
