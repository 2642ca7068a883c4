#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The central routine `CalcBatch` and all that surrounds a calculation: views as data, extended
/// pages, tank, iso-calculator, diagnosis, protocol.
namespace quor::calculation {

/// A text field of the result view.
struct TextField {
    std::string text;
    bool red = false;
    bool bold = false;
};

/// A line of `Liste`. Rows of a table also keep their cells, for a copy into a spreadsheet.
struct ListLine {
    std::string text;
    bool red = false;
    std::vector<std::string> cells;
};

/// A push button that the engine switches; colour 0 is the platform's own.
struct ButtonState {
    bool enabled = false;
    std::uint32_t colour = 0;
};

/// Everything that the result view shows of one calculation. `CalcBatch` fills it.
struct ResultText {
    TextField par1, par2;  ///< specified values
    TextField co1, co2;    ///< remark and main result
    std::vector<ListLine> Liste;
    std::string title;          ///< what stands behind "Result of the Calculation: "
    std::string State = "   ";  ///< " V ", " L ", "V+L" or blanks
    std::string lblLphase = "L-Phase", lblVphase = "V-Phase";
    bool lblGleich = false;       ///< "identical with" is visible
    ButtonState cmdCEOSDiagnose;  ///< "Diagnosis of cubic EOS"
    bool panelsHidden = false;    ///< the polytropic process hides the panels of a single state
};

/// Light green of `cmdCEOSDiagnose` when it can be used.
inline constexpr std::uint32_t kDiagnoseColour = 0xC0FFC0;

/// The texts of the last calculation.
inline ResultText resultText;

/// The lines of `Liste` joined by '\n'.
std::string ListText(const ResultText& result);

/// The captions of the two value columns of `Liste`, set above those columns; with `lblGleich` the
/// words "identical with" stand between them.
std::string phase_header(const ResultText& result);

/// The whole result as readable text and as a table with tabs between the cells: for the clipboard
/// and the command line.
std::string result_as_text(const ResultText& result);
std::string result_as_table(const ResultText& result);

}  // namespace quor::calculation
