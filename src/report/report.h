#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "calculation/answer.h"
#include "calculation/request.h"
#include "report/made.h"

namespace quor::report {

/// A text field of the result view.
struct TextField {
    std::string text;
    bool red = false;
    bool bold = false;
};

/// A line of `lines`. Where it holds a value it also keeps its cells, for a copy into a
/// spreadsheet: quantity, unit and value, or quantity, unit and the values of L and V.
struct ListLine {
    std::string text;
    bool red = false;
    std::vector<std::string> cells = {};
    bool of_phases = false;  ///< a value in the column of L or V
};

/// A line in front of a copy: "Substance" and "Propane  C3H8".
struct HeadLine {
    std::string name, text;
};

/// A push button that a result switches; colour 0 is the platform's own.
struct ButtonState {
    bool enabled = false;
    std::uint32_t colour = 0;
};

/// What is told of one calculation.
struct Report {
    std::vector<HeadLine> head;  ///< what the result belongs to
    TextField par1, par2;        ///< specified values
    TextField co1, co2;          ///< remark and main result
    std::vector<ListLine> lines;
    std::string phases = "   ";  ///< " V ", " L ", "V+L" or blanks
    std::string caption_L = "L-Phase", caption_V = "V-Phase";
    bool identical = false;      ///< "identical with" is visible
    ButtonState diagnosis;       ///< "Diagnosis of cubic EOS"
    bool panels_hidden = false;  ///< the polytropic process hides the panels of a single state
    /// A number that cannot be written, in words with the lines so far; the list is empty then.
    std::string fault;
};

/// Light green of `cmdCEOSDiagnose` when it can be used.
inline constexpr std::uint32_t kDiagnoseColour = 0xC0FFC0;

/// The words for an answer. Never throws: a number that cannot be written is a fault of the report.
Report report(const Made& made, const calculation::Request& request,
              const calculation::Answer& answer);

/// A state beyond T(cr) or p(cr): "supercritical V-phase" and the like, empty below both.
const char* region_name(calculation::Region region);

/// " V ", " L ", "V+L", or blanks without a phase.
std::string state_text(const calculation::Answer& answer);

/// The lines of `lines` joined by '\n'.
std::string list_text(const Report& result);

/// True when a line has the columns of L and V.
bool has_phase_columns(const Report& result);

/// The captions of the two value columns of `lines`, set above those columns; with `lblGleich` the
/// words "identical with" stand between them.
std::string phase_header(const Report& result);

/// What a result belongs to, a line each.
std::string head_as_text(const Report& result);
/// The whole result as readable text and as a table with tabs between the cells: for the clipboard
/// and the command line. Both begin with what the result belongs to.
std::string result_as_text(const Report& result);
std::string result_as_table(const Report& result);
/// Some lines of the list as a table, with the same head: `first` to `last`, as far as they exist.
std::string lines_as_table(const Report& result, std::size_t first, std::size_t last);

}  // namespace quor::report
