#pragma once

#include <functional>
#include <string>

#include "legacy/declare.h"

namespace quor::Module9 {

/// The views that the preparation opens; the program installs them, tests install records of the
/// calls. An empty function opens nothing.
struct Diagram2DViews {
    std::function<void()> openDiagram;         ///< `DiagramWindow`, on `legacy::the_diagram`
    std::function<void()> openParameterInput;  ///< `CurveParameterDialog`
    std::function<void()> openRangeInput;      ///< `ProcessLineDialog`, for its kind 7
    /// Draws the curve of a database function between two temperatures in K.
    std::function<void(float low, float high)> showDatabaseFunction;
};
Diagram2DViews& views2_d();

/// Fills the request for its `DiagramType`, `sectionKind` and `axisPair`: state parameters of the
/// session, window, texts. Then opens the diagram and the input that belongs to it. A fault while
/// the view opens is told.
void prepare_diagram2_d(diagrams::DiagramRequest& request);

/// The menu command: says what has to be said of `legacy::the_diagram`, and prepares it unless that
/// was a refusal.
void open_diagram2_d();

/// Caption of the diagram's view.
std::string view_caption(const diagrams::DiagramRequest& request);

}  // namespace quor::Module9
