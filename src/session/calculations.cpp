#include "session/calculations.h"

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/progress.h"
#include "common/save_file.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "report/titles.h"

namespace quor::session {

using calculation::Task;
using constants::kPresent;

namespace {

bool asks_for_vle() {
    return dialogs::ask(
        "Do you intend to describe a VLE?\n\n"
        "Selecting \"Yes\" => the existence of a L-phase is assumed\n\n"
        "and a \"partial calulation\" is carried out",
        "T-p-Vorgabe", dialogs::Icon::Question, false);
}

/// Tasks that need the choice of a global or partial calculation, or a second reference point.
bool needs_preparation(const Session& session) {
    const Task task = session->calculation.task;
    if (is_equilibrium(task)) return true;
    if (task == Task::state) return session->calculation.method.assumed_vle;
    return is_vaporisation(task) &&
           session->models.vaporisation == models::VaporisationModel::benson;
}

calculation::Process present_process(const Session& session) {
    const diagrams::ProcessLine& line = session->process_line;
    calculation::Process process{.T1 = line.T1,
                                 .p1 = line.p1,
                                 .exponent = line.polytropic_exponent,
                                 .kappa = line.kappa,
                                 .liquid = !line.vapour,
                                 .points = {}};
    for (const diagrams::PolytropicPoint& point : line.polytropic_points)
        process.points.push_back({point.T, point.p});
    return process;
}

/// What was typed for another substance is of no use for this one.
void forget_other_substances(Session& session) {
    if (session->calculation.direct.substance != report::substance_key(session.fluid()))
        session.change()->calculation.direct = {};
}

/// The number of the next active data set from `number` on in steps of `by`, 0 when there is none.
std::size_t next_active(const Session& session, std::size_t number, int by) {
    const auto sets = measured_sets(session);
    for (; number >= 1 && number <= sets.size(); number += static_cast<std::size_t>(by))
        if (sets[number - 1].skip == 0) return number;
    return 0;
}

void step(Session& session, int by) {
    const std::size_t next =
        next_active(session, session->calculation.data_set + static_cast<std::size_t>(by), by);
    if (next == 0)
        dialogs::beep();
    else
        session.change()->calculation.data_set = next;
    calculate(session, present_request(session), session->calculation.data_set);
    report::show(messages(session->results.current, report::Tell::remarks));
}

}  // namespace

// ---- What results are made with ----------------------------------------------------------------

report::Made present_made(const Session& session) {
    return report::make_made(session.fluid(), present_reference(session),
                             unit_choice(session.state()));
}

bool is_out_of_date(const Session& session, const report::TaskResult& result) {
    try {
        return report::is_out_of_date(result.made, present_made(session));
    } catch (const faults::Fault&) {
        return true;
    }
}

std::span<const calculation::BatchDataSet> measured_sets(const Session& session) {
    return session->measured.points;
}

// ---- Calculating -------------------------------------------------------------------------------

calculation::Request present_request(const Session& session) {
    const report::CalculationState& state = session->calculation;
    calculation::Request request = report::direct_request(state, session->tank);
    if (state.task == Task::process) {
        request.process = present_process(session);
        return request;
    }
    if (state.data_set == 0) return request;
    const auto sets = measured_sets(session);
    return report::measured_request(state, state.data_set <= sets.size()
                                               ? sets[state.data_set - 1]
                                               : calculation::BatchDataSet{});
}

const report::TaskResult& calculate(Session& session, const calculation::Request& request,
                                    std::size_t data_set) {
    const auto now = session.change();
    report::ResultSet& results = now->results;
    results.current = report::make_result(session.fluid(), present_reference(session),
                                          unit_choice(session.state()), request);
    results.current.data_set = data_set;
    if (data_set >= 1 && data_set <= results.rows.size())
        results.rows[data_set - 1] = results.current.record;
    return results.current;
}

// ---- Menu --------------------------------------------------------------------------------------

bool start_calculation(Session& session, const CalculationViews& views) {
    const bool direct = !session->batch_mode;
    if (session->calculation.task == Task::none)
        session.change()->calculation.task = Task::pressureOfVapour;
    const Task task = session->calculation.task;
    if (task == Task::pressureOfLiquid && session->models.vapour_only) {
        session.change()->calculation.task = Task::none;
        dialogs::refuse("possible only by using a  cubic EOS");
        return true;
    }
    session.change()->calculation.method.assumed_vle = false;
    if (direct) {
        session.change()->calculation.input =
            is_tank(task) ? report::InputKind::tank : report::InputKind::state;
        if (task == Task::partialTank) return views.open_partial_choice();
    }
    const bool vle = direct && task == Task::state && asks_for_vle();
    session.change()->calculation.method.assumed_vle = vle;
    if (needs_preparation(session)) return views.open_partial_choice();
    if (task == Task::process) {
        views.open_process_view();
        return true;
    }
    views.open_result_view();
    if (direct) views.open_direct_input();
    return true;
}

void run_calculation(Session& session, Task task, const CalculationViews& views) {
    const report::CalculationState before = session->calculation;
    {
        const auto now = session.change();
        now->calculation.task = task;
        if (task == Task::process) {
            now->process_line.kind = diagrams::ProcessKind::polytropic;
            now->process_line.from_calculation = true;
        }
        if (task == Task::globalTank) now->calculation.method.global = true;
    }
    if (!start_calculation(session, views)) {
        session.change()->calculation = before;
        return;
    }
    if (is_tank(session->calculation.task)) views.close_result_view();
}

void prepare_calculation_menu(Session& session, const CalculationViews& views) {
    if (session->batch_mode && session->measured.points.empty())
        dialogs::refuse(
            "This mode of calculation is possible only when \n"
            "batch data (= exper. T-p-rho,..-data) are available.\n\n"
            "Enter batch-data\n"
            "(via file or manual input) => menue \"Data/exper. data...\"");
    views.close_result_view();
    views.close_direct_input();
    views.close_tank_view();
}

report::PartialChoice open_partial_choice(const Session& session) {
    return {session.fluid(), session->calculation.task, session->calculation.method};
}

void confirm_partial_choice(Session& session, const report::PartialChoice& choice, bool for_diagram,
                            const CalculationViews& views) {
    session.change()->calculation.method = choice.method;
    views.close_direct_input();
    if (for_diagram) {
        views.prepare_diagram();
        return;
    }
    const bool tank = session->calculation.task == Task::partialTank;
    if (!tank) views.open_result_view();
    if (session->batch_mode) return;
    session.change()->calculation.input = tank ? report::InputKind::tank : report::InputKind::state;
    views.open_direct_input();
}

// ---- Input view --------------------------------------------------------------------------------

report::InputForm input_form(const Session& session, bool amount) {
    const report::CalculationState& state = session->calculation;
    return {.kind = state.input,
            .task = state.task,
            .volume = state.volume_input,
            .amount = amount,
            .units = usable_units(session)};
}

report::InputForm reference_form(const Session& session) {
    return {.kind = report::InputKind::reference, .units = usable_units(session)};
}

namespace {

constexpr auto kNoInput = "no valid input";

std::optional<report::TypedInput> accept(const Session& session, const report::InputForm& form,
                                         const std::array<std::string, 4>& texts) {
    const auto typed = report::read_input(form, texts, session.fluid());
    if (!typed) dialogs::refuse(kNoInput);
    return typed;
}

InputResult calculate_tank(Session& session, const calculation::Tank& tank) {
    session.change()->tank = tank;
    const report::TaskResult& result = calculate(session, present_request(session));
    report::show(messages(result, report::Tell::all));
    return result.refused() ? InputResult::TankExit : InputResult::TankCalculated;
}

}  // namespace

InputResult accept_input(Session& session, const std::array<std::string, 4>& texts, bool amount) {
    const auto typed = accept(session, input_form(session, amount), texts);
    if (!typed) return InputResult::Refused;
    session.change()->calculation.data_set = 0;
    if (const auto* tank = std::get_if<calculation::Tank>(&*typed))
        return calculate_tank(session, *tank);
    session.change()->calculation.direct = std::get<report::DirectValues>(*typed);
    report::show(messages(calculate(session, present_request(session)), report::Tell::remarks));
    return InputResult::Calculated;
}

void cancel_input(const CalculationViews& views) {
    views.close_direct_input();
    views.close_result_view();
}

std::optional<models::BensonPoint> accept_reference(const Session& session,
                                                    const std::array<std::string, 4>& texts) {
    const auto typed = accept(session, reference_form(session), texts);
    if (!typed) return std::nullopt;
    return std::get<models::BensonPoint>(*typed);
}

// ---- Result view -------------------------------------------------------------------------------

report::ResultView open_result_view(Session& session) {
    const bool batch = session->batch_mode;
    {
        const auto now = session.change();
        now->calculation.pages = {};
        forget_other_substances(session);
        now->results.rows.assign(measured_sets(session).size(), {});
        now->calculation.data_set =
            batch ? std::max<std::size_t>(next_active(session, 1, 1), 1) : 0;
        calculate(session, present_request(session), now->calculation.data_set);
    }
    if (batch) report::show(messages(session->results.current, report::Tell::remarks));
    return report::describe_result_view(session->calculation.task, session->calculation.method,
                                        batch);
}

void recalculate(Session& session) {
    const report::TaskResult& shown = session->results.current;
    calculation::Request request = shown.request;
    request.pages = session->calculation.pages;
    report::show(messages(calculate(session, request, shown.data_set), report::Tell::remarks));
}

void step_forward(Session& session) {
    step(session, 1);
}
void step_backward(Session& session) {
    step(session, -1);
}

void set_equilibrium_functions(Session& session, bool on) {
    session.change()->calculation.pages.functions = on;
    recalculate(session);
}

void set_extended_pages(Session& session, report::ResultView& view, bool functions,
                        bool derivatives) {
    {
        const auto now = session.change();
        now->calculation.pages.residual = functions;
        now->calculation.pages.derivatives = derivatives;
    }
    const Task task = session->calculation.task;
    view.function_print_enabled = session->calculation.pages.tables() &&
                                  task >= Task::pressureOfVapour && task <= Task::saturationAtP;
    recalculate(session);
}

report::Comparison compare_all_sets(Session& session) {
    const BusyPointer busy(session);
    report::Comparison comparison =
        report::compare(session.fluid(), present_reference(session), unit_choice(session.state()),
                        session->calculation, measured_sets(session), session->measured.file);
    report::show(comparison.told);
    return comparison;
}

bool print_result(Session& session, const std::string& title, bool extended) {
    try {
        return dialogs::print_out(
            {.title = title,
             .font = "COURIER",
             .text = report::printed_list(compare_all_sets(session), title, extended)});
    } catch (const progress::GivenUp&) {
        return false;
    }
}

bool save_result_list(Session& session, const std::string& title, bool extended) {
    const std::string folder = session.places().write_folder().string();
    try {
        return saving::save_where_chosen({.choice = {.save = true,
                                                     .title = "Save QUOR result list as ...",
                                                     .filter = "Result file (*.LST)|*.LST",
                                                     .folder = folder,
                                                     .default_extension = ".LST",
                                                     .overwrite_prompt = true},
                                          .content =
                                              [&](const std::string&) {
                                                  return report::result_file_text(
                                                      compare_all_sets(session), title, extended);
                                              },
                                          .failure_title = "WARNING",
                                          .place =
                                              [&](const std::string& name) {
                                                  return report::result_file_path(name, folder);
                                              }})
            .has_value();
    } catch (const progress::GivenUp&) {
        return false;
    }
}

bool finish_result_view(Session& session, const report::ResultView& view, report::ListTarget target,
                        bool with_extended, const CalculationViews& views) {
    if (target == report::ListTarget::Printer && !print_result(session, view.title, with_extended))
        return false;
    if (target == report::ListTarget::File && !save_result_list(session, view.title, with_extended))
        return false;
    views.close_result_view();
    views.close_direct_input();
    return true;
}

// ---- Iso-calculator ----------------------------------------------------------------------------

std::optional<calculation::ProcessPoint> iso_start(const Session& session) {
    const report::TaskResult& shown = session->results.current;
    if (shown.failed() || !(shown.answer.T > kPresent) || !(shown.answer.p > kPresent))
        return std::nullopt;
    return calculation::ProcessPoint{shown.answer.T, shown.answer.p};
}

report::IsoCalculator open_iso_calculator(const Session& session,
                                          const calculation::ProcessPoint& start) {
    return {report::make_result(session.fluid(), present_reference(session),
                                unit_choice(session.state()),
                                report::functions_request(start.T, start.p)),
            session->calculation.iso_function, session->calculation.iso_given};
}

void take_iso_result(Session& session, const report::IsoCalculator& iso) {
    const report::TaskResult& found = iso.last();
    {
        const auto now = session.change();
        now->calculation.direct = {found.request.given.T, found.request.given.p, 0.0F,
                                   report::substance_key(found.made.fluid)};
        now->results.current = found;
    }
    report::show(messages(found, report::Tell::remarks));
}

// ---- Protocol ----------------------------------------------------------------------------------

namespace {

report::ProtocolPlace protocol_place(const Session& session) {
    return {session.places().write_folder(), session.places().short_date(), session->csv_separator,
            [&session] { return session.places().new_protocol_file_name(); }};
}

/// The protocol as a table with tabs, into the clipboard. False when the file cannot be read.
bool copy_to_clipboard(const Session& session, const std::filesystem::path& path) {
    const Result<std::string> content = files::read_whole(path);
    if (!content) {
        dialogs::tell(content.reason(), "WARNING");
        return false;
    }
    const std::string table = text::from_ansi(*content);
    dialogs::set_clipboard(text::replace_all(table, std::string(1, session->csv_separator), "\t"));
    return true;
}

/// True when the file exists and holds nothing; it is then deleted.
bool delete_if_empty(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) ||
        std::filesystem::file_size(path, error) != 0 || error)
        return false;
    std::filesystem::remove(path, error);
    return true;
}

}  // namespace

void add_to_protocol(Session& session) {
    if (session->decimal_comma && session->csv_separator == ',')
        dialogs::tell(
            "Bei Computereinstellung \"Deutschland\" (Dezimalzeichen Komma)\n"
            "ist Komma als Dateitrennzeichen nicht sinnvoll; der Clipboard-Inhalt\n"
            "ist nicht mehr Excel-kompatibel.\n"
            "semicolon recommended",
            "WARNING");
    const report::TaskResult& result = session->results.current;
    const Result<void> added = session.change()->protocol.add(result.made, result.numbers);
    if (!added) dialogs::tell(added.reason(), "WARNING");
}

namespace {

/// Writes pending rows to their file, or where the user wants them.
saving::Elsewhere write_pending(Session& session) {
    using saving::Elsewhere;
    if (!session->protocol.pending) return Elsewhere::saved;
    const report::ProtocolPlace place = protocol_place(session);
    const auto written = [&] {
        const BusyPointer busy(session);
        return session.change()->protocol.write(place);
    }();
    if (written) return Elsewhere::saved;
    std::string path;
    const Elsewhere outcome = saving::save_elsewhere(
        written.reason(),
        {.choice = {.save = true,
                    .title = "Save the protocol as ...",
                    .filter = "Protocol (*.CSV)|*.CSV",
                    .folder = place.folder.string(),
                    .name = session->protocol.file,
                    .default_extension = ".CSV",
                    .overwrite_prompt = true},
         .content = [&](const std::string&) { return session->protocol.content(place); },
         .failure_title = "WARNING"},
        path);
    if (outcome == Elsewhere::saved) session.change()->protocol.written_to(path);
    return outcome;
}

}  // namespace

bool write_protocol(Session& session) {
    return write_pending(session) == saving::Elsewhere::saved;
}

bool open_new_protocol(Session& session) {
    if (!write_protocol(session)) return false;
    const report::Protocol& protocol = session->protocol;
    const std::filesystem::path path = protocol.path(protocol_place(session));
    if (!delete_if_empty(path) && protocol.is_own() && !copy_to_clipboard(session, path))
        return false;
    session.change()->protocol.begin(session.places().new_protocol_file_name());
    return true;
}

std::string protocol_file_title(const Session& session) {
    return paths::file_title(session->protocol.file);
}

bool close_protocol(Session& session) {
    const saving::Elsewhere outcome = write_pending(session);
    if (outcome == saving::Elsewhere::cancelled) return false;
    if (outcome == saving::Elsewhere::saved) session.change()->protocol.pending = false;
    delete_if_empty(session->protocol.path(protocol_place(session)));
    return true;
}

void choose_separator(Session& session, int index) {
    if (index >= 0 && index < 3) session.change()->csv_separator = report::kSeparators[index];
}

}  // namespace quor::session
