#pragma once

#include <optional>
#include <string>

#include "diagrams/diagram_sheet.h"

namespace quor::diagrams {

/// The name proposed for the file of a diagram: that of the file it came from, else of a substance
/// and the axes, such as "Propane p-v.oc2".
std::string proposed_file(const DiagramSheet& sheet, const std::string& substance);
/// The substance of the first curve; nullptr when no curve has one.
const models::SubstanceRecord* first_substance(const DiagramSheet& sheet);
/// Asks for a name, beginning with one in a folder, and writes the diagram as .oc2; the path of the
/// file, if there is one now.
std::optional<std::string> save_oc2(const DiagramSheet& sheet, const std::string& folder,
                                    const std::string& proposed);

enum class LoadOutcome {
    Loaded,
    Cancelled,
    Failed  ///< said; the view closes
};
struct LoadAnswer {
    LoadOutcome outcome = LoadOutcome::Cancelled;
    std::string folder;  ///< in which the next file is looked for
};
/// Asks for a saved diagram, beginning in a folder, and takes it in the place of all that is there.
/// `with_note` tells first what to mind.
LoadAnswer load_oc2(DiagramSheet& sheet, const std::string& folder, bool with_note);
/// The same for a known file.
LoadAnswer load_oc2(DiagramSheet& sheet, const std::string& file);

/// The substance that the footer of a chart names first; empty for none.
std::string named_substance(const chart::Chart2D& chart);

/// Takes a chart that was read: places, labels, window. No fluid is known of its curves.
void take_loaded_chart(DiagramSheet& sheet, chart::Chart2D chart);

/// The points of a curve that are shown; empty for a free place.
CurvePoints shown_points(const DiagramSheet& sheet, int place);

/// What names a curve: its fluid and model, as far as they are known, and its legend text.
std::string curve_name(const DiagramSheet& sheet, int place);

/// The points of a curve as lines of x, y and the parameter, separated by tabs, under lines with
/// its name and captions; numbers in the locale's form.
std::string curve_table(const DiagramSheet& sheet, int place);

}  // namespace quor::diagrams
