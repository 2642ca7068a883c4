#include "session/calculations.h"

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "legacy/current_fluid.h"
#include "report/titles.h"
#include "session/module2.h"

namespace quor::session {

using calculation::Task;
using constants::kPresent;
using legacy::the_session;

namespace {

report::CalculationState& state() {
    return the_session.calculation;
}

bool asks_for_vle() {
    return dialogs::ask(
        "Do you intend to describe a VLE?\n\n"
        "Selecting \"Yes\" => the existence of a L-phase is assumed\n\n"
        "and a \"partial calulation\" is carried out",
        "T-p-Vorgabe", dialogs::Icon::Question, false);
}

/// Tasks that need the choice of a global or partial calculation, or a second reference point.
bool needs_preparation(Task task) {
    if (is_equilibrium(task)) return true;
    if (task == Task::state) return state().method.assumedVle;
    return is_vaporisation(task) &&
           legacy::the_models.HLVModel == models::VaporisationModel::benson;
}

calculation::Process present_process() {
    const diagrams::ProcessLine& line = legacy::the_processLine;
    calculation::Process process{.T1 = line.T1,
                                 .p1 = line.p1,
                                 .exponent = line.polytropicExponent,
                                 .kappa = line.kappa,
                                 .liquid = !line.vapour,
                                 .points = {}};
    for (const diagrams::PolytropicPoint& point : line.polytropicPoints)
        process.points.push_back({point.T, point.p});
    return process;
}

/// What was typed for another substance is of no use for this one.
void forget_other_substances() {
    report::DirectValues& typed = state().direct;
    if (typed.substance != report::substance_key(models::current_fluid())) typed = {};
}

/// The number of the next active data set from `number` on in steps of `by`, 0 when there is none.
std::size_t next_active(std::size_t number, int by) {
    const auto sets = measured_sets();
    for (; number >= 1 && number <= sets.size(); number += static_cast<std::size_t>(by))
        if (sets[number - 1].skip == 0) return number;
    return 0;
}

void step(int by) {
    const std::size_t next = next_active(state().dataSet + static_cast<std::size_t>(by), by);
    if (next == 0)
        dialogs::Beep();
    else
        state().dataSet = next;
    calculate(present_request(), state().dataSet);
    report::show(messages(legacy::the_results.current, report::Tell::remarks));
}

}  // namespace

// ---- What results are made with ----------------------------------------------------------------

models::UnitChoice unit_choice() {
    return {static_cast<models::UnitSystem>(the_session.UnitMode),
            static_cast<models::CaloricUnit>(the_session.CaloricUnit), the_session.DiagramT};
}

report::Made present_made() {
    return report::make_made(models::current_fluid(), legacy::the_reference, unit_choice());
}

bool is_out_of_date(const report::TaskResult& result) {
    try {
        return report::is_out_of_date(result.made, present_made());
    } catch (const faults::Fault&) {
        return true;
    }
}

std::span<const calculation::BatchDataSet> measured_sets() {
    const std::span<const calculation::BatchDataSet> all = legacy::the_BatchData;
    const auto count = static_cast<std::size_t>(std::max<int>(the_session.BatchCount, 0));
    return all.size() > 1 ? all.subspan(1, std::min(count, all.size() - 1))
                          : std::span<const calculation::BatchDataSet>{};
}

// ---- Calculating -------------------------------------------------------------------------------

calculation::Request present_request() {
    if (state().task == Task::process) {
        calculation::Request request = report::direct_request(state(), the_session.tank);
        request.process = present_process();
        return request;
    }
    if (state().dataSet == 0) return report::direct_request(state(), the_session.tank);
    const auto sets = measured_sets();
    return report::measured_request(state(), state().dataSet <= sets.size()
                                                 ? sets[state().dataSet - 1]
                                                 : calculation::BatchDataSet{});
}

const report::TaskResult& calculate(const calculation::Request& request, std::size_t dataSet) {
    report::ResultSet& results = legacy::the_results;
    results.current =
        report::make_result(models::current_fluid(), legacy::the_reference, unit_choice(), request);
    results.current.dataSet = dataSet;
    if (dataSet >= 1 && dataSet <= results.rows.size())
        results.rows[dataSet - 1] = results.current.record;
    return results.current;
}

// ---- Menu --------------------------------------------------------------------------------------

bool start_calculation(const CalculationViews& views) {
    Task& task = state().task;
    const bool direct = !the_session.BatchMode;
    if (task == Task::none) task = Task::pressureOfVapour;
    if (task == Task::pressureOfLiquid && legacy::the_models.EOSOnlyV) {
        task = Task::none;
        dialogs::refuse("possible only by using a  cubic EOS");
        return true;
    }
    state().method.assumedVle = false;
    if (direct) {
        state().input = is_tank(task) ? report::InputKind::tank : report::InputKind::state;
        if (task == Task::partialTank) return views.openCalcIn();
    }
    state().method.assumedVle = direct && task == Task::state && asks_for_vle();
    if (needs_preparation(task)) return views.openCalcIn();
    if (task == Task::process) {
        views.openProcessView();
        return true;
    }
    views.openResultView();
    if (direct) views.openParinput();
    return true;
}

void run_calculation(Task task, const CalculationViews& views) {
    const report::CalculationState before = state();
    state().task = task;
    if (task == Task::process) {
        legacy::the_processLine.kind = diagrams::ProcessKind::polytropic;
        legacy::the_processLine.fromCalculation = true;
    }
    if (task == Task::globalTank) state().method.global = true;
    if (!start_calculation(views)) {
        state() = before;
        return;
    }
    if (is_tank(state().task)) views.closeResultView();
}

void prepare_calculation_menu(const CalculationViews& views) {
    if (the_session.BatchMode && the_session.BatchCount == 0)
        dialogs::refuse(
            "This mode of calculation is possible only when \n"
            "batch data (= exper. T-p-rho,..-data) are available.\n\n"
            "Enter batch-data\n"
            "(via file or manual input) => menue \"Data/exper. data...\"");
    views.closeResultView();
    views.closeParinput();
    views.closeTankView();
}

report::PartialChoice open_partial_choice() {
    return {models::current_fluid(), state().task, state().method};
}

void confirm_partial_choice(const report::PartialChoice& choice, bool forDiagram,
                            const CalculationViews& views) {
    state().method = choice.method;
    views.closeParinput();
    if (forDiagram) {
        views.prepareDiagram();
        return;
    }
    const bool tank = state().task == Task::partialTank;
    if (!tank) views.openResultView();
    if (the_session.BatchMode) return;
    state().input = tank ? report::InputKind::tank : report::InputKind::state;
    views.openParinput();
}

// ---- Input view --------------------------------------------------------------------------------

report::InputForm input_form(bool amount) {
    return {.kind = state().input,
            .task = state().task,
            .volume = state().volumeInput,
            .amount = amount,
            .system = report::volume_system(unit_choice(), models::current_fluid())};
}

namespace {

constexpr auto kNoInput = "no valid input";

std::optional<report::TypedInput> accept(const report::InputForm& form,
                                         const std::array<std::string, 4>& texts) {
    const auto typed = report::read_input(form, texts, models::current_fluid(), unit_choice());
    if (!typed) dialogs::refuse(kNoInput);
    return typed;
}

InputResult calculate_tank(const calculation::Tank& tank) {
    the_session.tank = tank;
    const report::TaskResult& result = calculate(present_request());
    report::show(messages(result, report::Tell::all));
    return result.refused() ? InputResult::TankExit : InputResult::TankCalculated;
}

}  // namespace

InputResult accept_input(const std::array<std::string, 4>& texts, bool amount) {
    const auto typed = accept(input_form(amount), texts);
    if (!typed) return InputResult::Refused;
    state().dataSet = 0;
    if (const auto* tank = std::get_if<calculation::Tank>(&*typed)) return calculate_tank(*tank);
    state().direct = std::get<report::DirectValues>(*typed);
    report::show(messages(calculate(present_request()), report::Tell::remarks));
    return InputResult::Calculated;
}

void cancel_input(const CalculationViews& views) {
    views.closeParinput();
    views.closeResultView();
}

std::optional<models::BensonPoint> accept_reference(const std::array<std::string, 4>& texts) {
    const auto typed = accept({.kind = report::InputKind::reference}, texts);
    if (!typed) return std::nullopt;
    return std::get<models::BensonPoint>(*typed);
}

// ---- Result view -------------------------------------------------------------------------------

report::ResultView open_result_view() {
    const bool batch = the_session.BatchMode;
    state().pages = {};
    forget_other_substances();
    legacy::the_results.rows.assign(measured_sets().size(), {});
    state().dataSet = batch ? std::max<std::size_t>(next_active(1, 1), 1) : 0;
    calculate(present_request(), state().dataSet);
    if (batch) report::show(messages(legacy::the_results.current, report::Tell::remarks));
    return report::describe_result_view(state().task, state().method, batch);
}

void recalculate() {
    const report::TaskResult& shown = legacy::the_results.current;
    calculation::Request request = shown.request;
    request.pages = state().pages;
    report::show(messages(calculate(request, shown.dataSet), report::Tell::remarks));
}

void step_forward() {
    step(1);
}
void step_backward() {
    step(-1);
}

void set_equilibrium_functions(bool on) {
    state().pages.functions = on;
    recalculate();
}

void set_extended_pages(report::ResultView& view, bool functions, bool derivatives) {
    calculation::Pages& pages = state().pages;
    pages.residual = functions;
    pages.derivatives = derivatives;
    const Task task = state().task;
    view.funcPrintEnabled =
        pages.tables() && task >= Task::pressureOfVapour && task <= Task::saturationAtP;
    recalculate();
}

report::Comparison compare_all_sets() {
    const BusyPointer busy;
    report::Comparison comparison =
        report::compare(models::current_fluid(), legacy::the_reference, unit_choice(), state(),
                        measured_sets(), the_session.BatchFile);
    report::show(comparison.told);
    return comparison;
}

void print_result(const std::string& title, bool extended) {
    dialogs::Print({.title = title,
                    .font = "COURIER",
                    .text = report::printed_list(compare_all_sets(), title, extended)});
}

bool result_file(const std::string& name, const std::string& title, bool extended) {
    const Result<void> written =
        report::write_result_file(report::result_file_path(name, write_folder().string()),
                                  compare_all_sets(), title, extended);
    if (!written) dialogs::tell(written.reason(), "WARNING");
    return static_cast<bool>(written);
}

bool finish_result_view(const report::ResultView& view, report::ListTarget target,
                        bool withExtended, const CalculationViews& views) {
    if (target == report::ListTarget::Printer) print_result(view.title, withExtended);
    if (target == report::ListTarget::File) {
        const auto name = dialogs::choose_file({.save = true,
                                                .title = "Save QUOR result list as ...",
                                                .filter = "Result file (*.LST)|*.LST",
                                                .folder = write_folder().string(),
                                                .defaultExtension = ".LST",
                                                .overwritePrompt = true});
        if (!name || !result_file(*name, view.title, withExtended)) return false;
    }
    views.closeResultView();
    views.closeParinput();
    return true;
}

// ---- Iso-calculator ----------------------------------------------------------------------------

std::optional<calculation::ProcessPoint> iso_start(const std::string& T, const std::string& p) {
    calculation::ProcessPoint start{numbers::val_input(T), numbers::val_input(p)};
    if (the_session.BatchMode) {
        const calculation::Request shown = present_request();
        start = {shown.given.T, shown.given.p};
    }
    if (start.T > kPresent || start.p > kPresent) return start;
    dialogs::refuse("not yet a T|p value available!");
    return std::nullopt;
}

report::IsoCalculator open_iso_calculator(const calculation::ProcessPoint& start) {
    return {report::make_result(models::current_fluid(), legacy::the_reference, unit_choice(),
                                report::functions_request(start.T, start.p)),
            state().isoFunction, state().isoGiven};
}

void take_iso_result(const report::IsoCalculator& iso) {
    const report::TaskResult& found = iso.last();
    state().direct = {found.request.given.T, found.request.given.p, 0.0F,
                      report::substance_key(found.made.fluid)};
    legacy::the_results.current = found;
    report::show(messages(found, report::Tell::remarks));
}

// ---- Protocol ----------------------------------------------------------------------------------

namespace {

report::ProtocolPlace protocol_place() {
    return {write_folder(), short_date(), the_session.CsvSeparator, new_protocol_file_name};
}

/// The protocol as a table with tabs, into the clipboard. False when the file cannot be read.
bool copy_to_clipboard(const std::filesystem::path& path) {
    const Result<std::string> content = files::read_whole(path);
    if (!content) {
        dialogs::tell(content.reason(), "WARNING");
        return false;
    }
    const std::string table = text::from_ansi(*content);
    dialogs::set_clipboard(
        text::replace_all(table, std::string(1, the_session.CsvSeparator), "\t"));
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

void add_to_protocol() {
    if (the_session.DecimalComma && the_session.CsvSeparator == ',')
        dialogs::tell(
            "Bei Computereinstellung \"Deutschland\" (Dezimalzeichen Komma)\n"
            "ist Komma als Dateitrennzeichen nicht sinnvoll; der Clipboard-Inhalt\n"
            "ist nicht mehr Excel-kompatibel.\n"
            "semicolon recommended",
            "WARNING");
    const report::TaskResult& result = legacy::the_results.current;
    const Result<void> added = legacy::the_protocol.add(result.made, result.Fu);
    if (!added) dialogs::tell(added.reason(), "WARNING");
}

bool write_protocol() {
    if (!legacy::the_protocol.pending) return true;
    const BusyPointer busy;
    const Result<void> written = legacy::the_protocol.write(protocol_place());
    if (!written) dialogs::tell(written.reason(), "WARNING");
    return static_cast<bool>(written);
}

bool open_new_protocol() {
    report::Protocol& protocol = legacy::the_protocol;
    if (!write_protocol()) return false;
    const std::filesystem::path path = protocol.path(protocol_place());
    if (!delete_if_empty(path) && protocol.is_own() && !copy_to_clipboard(path)) return false;
    protocol.begin(new_protocol_file_name());
    return true;
}

std::string protocol_file_title() {
    return file_title(legacy::the_protocol.file);
}

void close_protocol() {
    if (write_protocol()) legacy::the_protocol.pending = false;
    delete_if_empty(legacy::the_protocol.path(protocol_place()));
}

void choose_separator(int index) {
    if (index >= 0 && index < 3) the_session.CsvSeparator = report::kSeparators[index];
}

}  // namespace quor::session
