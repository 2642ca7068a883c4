#pragma once

#include <array>
#include <span>
#include <string>

#include "report/batch_list.h"
#include "report/direct_input.h"
#include "report/iso_calculator.h"
#include "report/partial_choice.h"
#include "report/protocol.h"
#include "report/result_view.h"
#include "session/calculation_views.h"
#include "session/session.h"

/// The calculations of the session: what the views of the Calculation menu ask for and keep.
namespace quor::session {

// ---- What results are made with ----------------------------------------------------------------

/// What a result would be made with now. Throws as `report::make_made`.
report::Made present_made(const Session& session);
/// True when a result does not stand for the present fluid, units and reference state.
bool is_out_of_date(const Session& session, const report::TaskResult& result);
/// The measured data sets.
std::span<const calculation::BatchDataSet> measured_sets(const Session& session);

// ---- Calculating -------------------------------------------------------------------------------

/// The request as the session stands: of the direct input, of the data set in view, or of the
/// process.
calculation::Request present_request(const Session& session);
/// Calculates; the result becomes the current one, and that of its data set.
const report::TaskResult& calculate(Session& session, const calculation::Request& request,
                                    std::size_t data_set = 0);

// ---- Menu --------------------------------------------------------------------------------------

/// Decides which views a calculation of the session's task opens, and opens them. False when the
/// user has cancelled the choice of a method.
bool start_calculation(Session& session, const CalculationViews& views);
/// What a row of the Calculation menu does: sets the task and what belongs to it, starts it, and
/// closes the result view behind a tank. A cancel changes nothing.
void run_calculation(Session& session, calculation::Task task, const CalculationViews& views);
/// Before the Calculation menu opens: tells that batch mode has no data, closes the views of the
/// last calculation.
void prepare_calculation_menu(Session& session, const CalculationViews& views);

/// The choice between a global and a partial calculation as it opens for the session's task.
report::PartialChoice open_partial_choice(const Session& session);
/// `OK` of the choice, after the view has closed itself: takes it over and goes on to the diagram
/// or to the result and the input view. Without it nothing has changed.
void confirm_partial_choice(Session& session, const report::PartialChoice& choice, bool for_diagram,
                            const CalculationViews& views);

// ---- Input view --------------------------------------------------------------------------------

/// The form of the input view as the session stands.
report::InputForm input_form(const Session& session, bool amount = false);
/// The same for a second reference point.
report::InputForm reference_form(const Session& session);

/// How an input ended.
enum class InputResult {
    Refused,         ///< a message says why; nothing has changed
    TankExit,        ///< the tank calculation was refused
    TankCalculated,  ///< the result view and the tank view open
    Calculated       ///< the result view comes to the front
};
/// `cmdParameter_OK` with the texts of the four fields. Checks, stores, and calculates.
InputResult accept_input(Session& session, const std::array<std::string, 4>& texts,
                         bool amount = false);
/// `cancel`: closes the input and the result view.
void cancel_input(const CalculationViews& views);
/// The texts of a second reference point; nothing, after a message, when it is not valid.
std::optional<models::BensonPoint> accept_reference(const Session& session,
                                                    const std::array<std::string, 4>& texts);

// ---- Result view -------------------------------------------------------------------------------

/// The view as it opens: resets pages and results, chooses the first active data set, calculates.
/// A direct calculation shows no boxes then, and forgets what was typed for another substance.
report::ResultView open_result_view(Session& session);
/// Calculates the result in view again, with its boxes.
void recalculate(Session& session);
/// The next active data set forward or backward; a beep at the ends.
void step_forward(Session& session);
void step_backward(Session& session);
/// `chkUHS` click.
void set_equilibrium_functions(Session& session, bool on);
/// `ResPlus` click: whether `ResPlus`(1) and `ResPlus`(2) are checked.
void set_extended_pages(Session& session, report::ResultView& view, bool functions,
                        bool derivatives);

/// Calculates every active data set; a message that repeats is shown once. Throws
/// `progress::GivenUp`.
report::Comparison compare_all_sets(Session& session);
/// Calculates, and prints the list or saves it where the user wants it. False when the user gave
/// up.
bool print_result(Session& session, const std::string& title, bool extended);
bool save_result_list(Session& session, const std::string& title, bool extended);
/// `cmdCalc_OK`: the list of results as asked. False when the user cancelled or the file could not
/// be written; the views then stay open, else they close.
bool finish_result_view(Session& session, const report::ResultView& view, report::ListTarget target,
                        bool with_extended, const CalculationViews& views);

// ---- Iso-calculator ----------------------------------------------------------------------------

/// T and p of the state in view, from which the iso-calculator starts; nothing without both.
std::optional<calculation::ProcessPoint> iso_start(const Session& session);
/// The iso-calculator over the state at T and p.
report::IsoCalculator open_iso_calculator(const Session& session,
                                          const calculation::ProcessPoint& start);
/// A state that the iso-calculator has found becomes the current result and the direct input.
void take_iso_result(Session& session, const report::IsoCalculator& iso);

// ---- Protocol ----------------------------------------------------------------------------------

/// `cmdProtokoll`: adds the current result to the protocol.
void add_to_protocol(Session& session);
/// Writes the protocol when rows are pending. Where that fails, the reason is told and another
/// place offered; false when the rows are still pending.
bool write_protocol(Session& session);
/// `cmdOpenNew`: writes what is pending, copies the file to the clipboard as a table with tabs, and
/// takes a new protocol file. False, after a message, when the pending rows could not be written.
bool open_new_protocol(Session& session);
/// The title of the file that the next protocol is written to, for `lblProtText2`.
std::string protocol_file_title(const Session& session);
/// At the program's end: pending rows are written, a protocol file of length 0 is deleted. False
/// when that failed and the user wants to go on instead.
bool close_protocol(Session& session);
/// `cmbSep`: the delimiter of an entry, 0 semicolon, 1 comma, 2 tab.
void choose_separator(Session& session, int index);

}  // namespace quor::session
