#pragma once

#include <cstdint>
#include <optional>

#include "diagrams/diagram_sheet.h"

/// Lines, points and special curves that are added to a diagram. Each returns true when it added
/// something; a refusal is said and leaves the sheet as it is.
namespace quor::Module9 {

enum class Mark : std::uint8_t {
    T,
    p,
    v,
    b,
    SCurve,
    CriticalEx,
    CriticalCalc,
    Bisection,
    Inversion,
    Coexistence,
    Isohygric,
    TieLine
};

/// False where the kind of diagram has no place for the mark. What only the models forbid stays
/// offered, and is refused with a reason.
bool offers_mark(const DiagramSheet& sheet, Mark mark);

bool mark_t_grenzen(DiagramSheet& sheet);
bool mark_pressures(DiagramSheet& sheet);
bool mark_volume(DiagramSheet& sheet);
bool mark_covolume(DiagramSheet& sheet);
bool mark_s_curve(DiagramSheet& sheet);
bool mark_critical_point(DiagramSheet& sheet, bool experimental);
bool mark_bisection(DiagramSheet& sheet);
bool mark_inversion(DiagramSheet& sheet);
bool mark_coexistence(DiagramSheet& sheet);
/// Refuses an isohygric with a V-only equation; the fraction is asked for afterwards.
bool may_mark_isohygric();
/// The line of a vapour fraction, 0 to 1.
bool mark_isohygric(DiagramSheet& sheet, double fraction);
bool mark_tie_line(DiagramSheet& sheet);

}  // namespace quor::Module9
