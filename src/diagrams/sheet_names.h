#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "diagrams/diagram_sheet.h"

/// The words on a sheet: titles, footer, and the names of curves by fluid and model.
namespace quor::diagrams {

/// The texts of the request go to header, footer and axes.
void show_texts(DiagramSheet& sheet, const Basis& basis);

/// What the header of the slope of a vapour pressure equation tells of its maximum at T/K; empty
/// without one.
inline constexpr std::string_view kMaximumCaption = "; maximum at T/";
std::string maximum_text(std::optional<double> T, const models::Units& units);

/// On which reference state and surroundings the caloric values of a diagram rest; empty for one
/// without such values.
std::string reference_note(const Diagram& diagram, const models::ReferenceState& reference,
                           const models::Units& units = {});
/// The same of any diagram: the state in which h and s are zero, the surroundings of exergies.
std::string reference_text(bool zero_point, bool surroundings,
                           const models::ReferenceState& reference,
                           const models::Units& units = {});

/// Names a curve; where the sheet has several fluids or models, these stand before.
void name_curve(DiagramSheet& sheet, int place, const CurveName& name);

/// Legend, labels and footer name the fluid and the model of each curve as soon as the sheet holds
/// more than one. Texts that the user has changed stay.
void name_fluids(DiagramSheet& sheet);

/// The footer of a sheet on which no curve has given one: the second title of the request and the
/// references of the basis with which it was opened.
std::string opening_footer(const DiagramRequest& request, const Basis& basis);

/// Lengths in characters at which header and footer, in their faces, still fit a small diagram.
inline constexpr std::size_t kHeaderLine = 50, kFooterLine = 70;

/// A title with line ends at blanks, so that a line has at most `length` characters; a longer word
/// stays whole.
std::string wrap_title(const std::string& title, std::size_t length);

}  // namespace quor::diagrams
