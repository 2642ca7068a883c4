#pragma once

#include <functional>

namespace quor::session {

/// The views that a calculation opens and closes. The program hands in functions of real views,
/// tests and tools functions of their own; the default does nothing.
struct CalculationViews {
    /// `PartialChoiceDialog`, modal; goes on by itself. False when it was cancelled.
    std::function<bool()> openCalcIn = [] { return false; };
    std::function<void()> openResultView = [] {};  ///< `ResultView`; calculates as it opens
    std::function<void()> showResultView = [] {};  ///< brings it to the front
    std::function<void()> closeResultView = [] {};
    std::function<void()> openParinput = [] {};  ///< `DirectInputView` in front, not modal
    std::function<void()> closeParinput = [] {};
    std::function<void()> openTankView = [] {};  ///< `TankView`
    std::function<void()> closeTankView = [] {};
    std::function<void()> openProcessView = [] {};  ///< `ProcessLineDialog`, polytropic form
    std::function<void()> prepareDiagram = [] {};   ///< goes on with the current diagram
};

}  // namespace quor::session
