#pragma once

#include <string>

#include "diagrams/curve.h"
#include "diagrams/diagram_sheet.h"

namespace quor::Module9 {

/// What a run of `draw_curve` did.
struct DrawOutcome {
    int slot = -1;            ///< where the curve went; -1 when nothing was stored
    std::int16_t status = 0;  ///< of `diagrams::calc_curve`
};

/// Computes the curve of the sheet's request with its parameters, tells a status, and stores and
/// names the curve. `branch` follows its legend text.
DrawOutcome draw_curve(DiagramSheet& sheet, const std::string& branch = {});

/// `cmdDraw` of the diagram: one curve, in a projection with two branches both of them. False when
/// nothing was drawn.
bool Draw(DiagramSheet& sheet);

/// Draws the two branches of the coexistence curve of the sheet's code: boiling and dew line, one
/// run where they are the same line.
bool draw_both_branches(DiagramSheet& sheet);

/// Legend text and label of a curve.
struct CurveName {
    std::string legend, label;
};

/// The name of the curve that the request stands for, from the parameters of the session.
CurveName name_of(const diagrams::DiagramRequest& request, bool criticalPointMarked);

/// Code of the curve of vapour fractions in the diagram of a code; 0 when there is none.
std::int16_t coexistence_code_of(std::int16_t DiagramType);

/// True for a curve that depends on the vapour fraction.
bool has_branches(std::int16_t code);

}  // namespace quor::Module9
