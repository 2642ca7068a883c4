#pragma once

#include <functional>

namespace quor::session {

/// The views that a calculation opens and closes. The program hands in functions of real views,
/// tests and tools functions of their own; the default does nothing.
struct CalculationViews {
    /// `PartialChoiceDialog`, modal; goes on by itself. False when it was cancelled.
    std::function<bool()> open_partial_choice = [] { return false; };
    std::function<void()> open_result_view = [] {};  ///< `ResultView`; calculates as it opens
    std::function<void()> show_result_view = [] {};  ///< brings it to the front
    std::function<void()> close_result_view = [] {};
    std::function<void()> open_direct_input = [] {};  ///< `DirectInputView` in front, not modal
    std::function<void()> close_direct_input = [] {};
    std::function<void()> open_tank_view = [] {};  ///< `TankView`
    std::function<void()> close_tank_view = [] {};
    std::function<void()> open_process_view = [] {};  ///< `ProcessLineDialog`, polytropic form
    std::function<void()> prepare_diagram = [] {};    ///< goes on with the current diagram
};

}  // namespace quor::session
