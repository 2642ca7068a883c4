#pragma once

#include "diagrams/diagram_sheet.h"

namespace quor::diagrams {

/// With what the next curve of a sheet is drawn.
struct Pen {
    Basis basis{};  ///< its units are left aside for those of the sheet
    CurveOptions options{};
    CoordinateDefaults limits{};

    /// False for a pen without a substance or without an equation of state.
    bool has_fluid() const {
        return !basis.fluid.substance().name.empty() &&
               basis.fluid.models().eos != models::Eos::none;
    }
};

/// What a run of `draw_curve` did.
struct DrawOutcome {
    int place = -1;  ///< where the curve went; -1 when nothing was stored
    CurveStatus status = CurveStatus::complete;
    std::optional<ProcessState> last{};  ///< of a process line
};

/// Which curve of a sheet is wanted: `curve` and `on` nullptr stand for its own diagram, the window
/// and the parameters are always those of the sheet.
DrawOutcome draw_curve(DiagramSheet& sheet, const Pen& pen, CurveRequest request = {},
                       const std::string& branch = {});

/// The process line in the sheet.
DrawOutcome draw_process_line(DiagramSheet& sheet, const Pen& pen, const ProcessLine& line);

/// `cmdDraw` of the diagram: one curve, in a projection with two branches both of them. `range` is
/// that of two functions over each other. False when nothing was drawn; without a fluid this is
/// said.
bool draw(DiagramSheet& sheet, const Pen& pen, const ProcessLine& range = {});

/// Draws the two branches of a coexistence curve: boiling and dew line, one run where they are the
/// same line.
bool draw_both_branches(DiagramSheet& sheet, const Pen& pen, const Diagram& dome);

/// What a curve holds constant and is told by `name_of`.
HeldValue held_by(const CurveRequest& request, bool critical_point_marked);
/// A held value with its unit, "300.0 K ", as names of curves have it.
std::string held_text(const HeldValue& held, const models::Units& units);
/// The name of a curve from its parameters; that of an isochore compares with the critical volume
/// where the critical point is marked.
CurveName name_of(const CurveRequest& request, const Basis& basis, bool critical_point_marked);

/// The words of the pen: substance and model of the next curve of a diagram; empty without a fluid.
std::string fluid_text(const Diagram* diagram, const Pen& pen);

}  // namespace quor::diagrams
