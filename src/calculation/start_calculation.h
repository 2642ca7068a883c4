#pragma once

#include <cstdint>
#include <functional>

#include "calculation/calc_modes.h"

namespace quor::calculation {

/// The views that a calculation opens and closes. The program installs functions of real views,
/// tests and tools functions of their own; after start none does anything.
struct Views {
    std::function<void()> openCalcIn = [] {};      ///< `PartialChoiceDialog`, modal
    std::function<void()> openResultView = [] {};  ///< `ResultView`; calculates as it opens
    std::function<void()> showResultView = [] {};  ///< brings it to the front
    std::function<void()> closeResultView = [] {};
    std::function<void()> openParinput = [] {};  ///< `DirectInputView` in front, not modal
    std::function<void()> openReferenceInput = [] {
    };  ///< `DirectInputView`, modal, for situation 4
    std::function<void()> closeParinput = [] {};
    std::function<void()> openTankView = [] {};  ///< `TankView`
    std::function<void()> closeTankView = [] {};
    std::function<void()> openProcessView = [] {};  ///< `ProcessLineDialog`, polytropic form
    std::function<void()> prepareDiagram = [] {};   ///< goes on with the current diagram
};
/// The functions in use.
Views& views();

/// Decides which views a calculation of `CalcMode` opens, and opens them.
void StartCalculation();

/// What a row of the Calculation menu does: sets the mode and what belongs to it, starts it, and
/// closes the result view behind a tank.
void run_calculation(std::int16_t CalcMode);

/// Before the Calculation menu opens: tells that batch mode has no data, closes the views of the
/// last calculation.
void prepare_calculation_menu();

}  // namespace quor::calculation
