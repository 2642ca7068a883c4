#pragma once

#include <cstdint>
#include <string>

#include "legacy/declare.h"

namespace quor::calculation {

/// Functions that the iso-calculator holds constant, as `IsoFunction` of the session counts them.
enum IsoFunction : std::int16_t { kIsoV = 1, kIsoH, kIsoS, kIsoG, kIsoU, kIsoA, kIsoEH, kIsoEU };
/// What is specified, as `IsoTp` of the session counts; the other of T and p is found.
enum class IsoGiven : std::int16_t { T = 1, p = 2 };

/// Label of `lblFuConst`: "V  = ", "H  = ", ...
const char* iso_label(std::int16_t function);
/// Element of `Fu` that holds a function (1 to 8) of the L or the V phase.
std::size_t iso_position(std::int16_t function, bool liquid);

struct IsoSolution {
    double x = 0;  ///< T/K or p/kPa, 0 on failure
    bool failed = true;
};
/// Finds T (given p) or p (given T), starting from the direct input, where the function of the
/// phase has the target value (in the units of `Fu`). On success the direct input holds the state
/// and `CalcBatch` has run on it; on failure all is as it was.
IsoSolution iso_solve(IsoGiven given, std::int16_t function, bool liquid, double target);

/// What `IsoCalculatorView` shows and keeps.
struct IsoCalculator {
    std::int16_t function = kIsoV;
    bool liquid = false;           ///< `optIsoPhase`
    IsoGiven given = IsoGiven::p;  ///< `optIsoTp`
    std::string lblFuConst;
    std::string givenLabel, soughtLabel;  ///< of `txtTpVorgabe` and `txtTpCalc`
    std::string txtFuConst, txtTpVorgabe, txtTpCalc;
    double lastT = 0, lastP = 0;    ///< last successful calculation, K and kPa
    calculation::FuArray values{};  ///< functions of that state
};

/// The view over the state in the direct input, with the session's choice of function.
IsoCalculator open_iso_calculator();
/// Clicks of `OptIsoFu`, `optIsoPhase` and `optIsoTp`.
void choose_iso_function(IsoCalculator& iso, std::int16_t function);
void choose_iso_phase(IsoCalculator& iso, bool liquid);
void choose_iso_given(IsoCalculator& iso, IsoGiven given);
/// `cmdCalc` with the texts of the view's two input fields. False without a solution.
bool calculate_iso(IsoCalculator& iso, const std::string& fuConst, const std::string& given);
/// `cmdReset`: back to the last successful calculation.
void reset_iso(IsoCalculator& iso);

}  // namespace quor::calculation
