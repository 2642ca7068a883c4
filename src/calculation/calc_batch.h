#pragma once

#include <cstdint>
#include <string>

#include "legacy/declare.h"

namespace quor::calculation {

/// The arguments of `CalcBatch`. The caller owns them, and the array that `Results` refers to.
struct CalcCall {
    std::int16_t Mode = 0;    ///< `CalcMode`
    std::int16_t Index = 0;   ///< element of `legacy::the_BatchData`
    bool Quiet = false;       ///< do not write `Liste`
    bool Interactive = true;  ///< message boxes of the remark kind may appear
    std::string Text = {};    ///< in: title of the result; out: "EXIT" when execution was refused,
                              ///< "ERROR1" to "ERROR3" when a tank has no solution
    double Pressure = 0;      ///< out: p/kPa
    float FractionV = 0;      ///< out: 0 without V phase, 100 without L phase; of a tank the share
                              ///< of its volume that the L phase fills, per cent
    bool HasL = false, HasV = false;  ///< out: the phases that exist
    std::int16_t Roots = 0;           ///< out: volume roots of the EOS, 3 in the two-phase region
    bool Failed = false;              ///< out: the calculation ended with an error
    calculation::FuArray* Results = &legacy::the_Fu;
};

/// Turns a calculation kind and one input record into a state: texts of `resultText`, `Fu`, the
/// current `ResultRecord` and that of the data set, the record of the last state. Never throws:
/// what cannot be calculated ends in a red text, an arithmetic fault in a message box.
void CalcBatch(CalcCall& call);

}  // namespace quor::calculation
