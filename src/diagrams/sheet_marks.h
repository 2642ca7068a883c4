#pragma once

#include <cstdint>

#include "diagrams/sheet_draw.h"

/// Lines, points and special curves that are added to a diagram. Each returns true when it added
/// something; a refusal is said and leaves the sheet as it is.
namespace quor::diagrams {

/// True for the number at which a reference line begins: far outside, whatever the unit.
bool is_far(float value);

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

bool mark_temperatures(DiagramSheet& sheet, const Pen& pen);
bool mark_pressures(DiagramSheet& sheet, const Pen& pen);
bool mark_volume(DiagramSheet& sheet, const Pen& pen);
bool mark_covolume(DiagramSheet& sheet, const Pen& pen);
bool mark_s_curve(DiagramSheet& sheet, const Pen& pen);
bool mark_critical_point(DiagramSheet& sheet, const Pen& pen, bool experimental);
bool mark_bisection(DiagramSheet& sheet, const Pen& pen);
bool mark_inversion(DiagramSheet& sheet, const Pen& pen);
bool mark_coexistence(DiagramSheet& sheet, const Pen& pen);
/// Refuses an isohygric with a V-only equation; the fraction is asked for afterwards.
bool may_mark_isohygric(const Pen& pen);
/// The line of a vapour fraction, 0 to 1.
bool mark_isohygric(DiagramSheet& sheet, const Pen& pen, double fraction);
bool mark_tie_line(DiagramSheet& sheet, const Pen& pen);

}  // namespace quor::diagrams
