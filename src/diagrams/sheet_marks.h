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
bool OffersMark(const DiagramSheet& sheet, Mark mark);

bool MarkTGrenzen(DiagramSheet& sheet);
bool MarkPressures(DiagramSheet& sheet);
bool MarkVolume(DiagramSheet& sheet);
bool MarkCovolume(DiagramSheet& sheet);
bool MarkSCurve(DiagramSheet& sheet);
bool MarkCriticalPoint(DiagramSheet& sheet, bool experimental);
bool MarkBisection(DiagramSheet& sheet);
bool MarkInversion(DiagramSheet& sheet);
bool MarkCoexistence(DiagramSheet& sheet);
/// Refuses an isohygric with a V-only equation; the fraction is asked for afterwards.
bool MayMarkIsohygric();
/// The line of a vapour fraction, 0 to 1.
bool MarkIsohygric(DiagramSheet& sheet, double fraction);
bool MarkTieLine(DiagramSheet& sheet);

}  // namespace quor::Module9
