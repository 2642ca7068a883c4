#include <filesystem>

#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/measured_data.h"
#include "models/density.h"
#include "models/reference_state.h"
#include "report/titles.h"
#include "session/calculations.h"
#include "session/measured_data_session.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

/// The choice of a global or partial calculation, and of the liquid's density in the latter.
calculation::Method method_of(const Call& call, const Arguments& a) {
    if (a.global && a.partial) throw WrongCall{"--global and --partial exclude each other"};
    if (!a.liquid.empty() && a.liquid != "benson" && a.liquid != "rhoT")
        throw WrongCall{"--liquid is benson or rhoT"};
    calculation::Method method = call.session->calculation.method;
    method.global = !a.partial && !(call.session->models.vapour_only && !a.global);
    method.liquid_by_benson = a.liquid != "rhoT";
    // A "T, p" calculation is partial when a phase equilibrium is assumed.
    method.assumed_vle = a.partial && a.mode == 3;
    if (!models::is_known(method.reference))
        method.reference = models::propose_benson_reference(call.session.fluid()).point;
    return method;
}

calculation::Pages pages_of(const Arguments& a) {
    const int page = a.page.value_or(1);
    if (page < 1 || page > 4) throw WrongCall{"--page is 1 to 4"};
    return {.residual = page == 2 || page == 4, .derivatives = page >= 3, .functions = a.uhs};
}

/// The list of a batch shows the further pages of states.
void refuse_pages(const calculation::Task task, const calculation::Pages& pages) {
    if (pages.tables() && (is_vaporisation(task) || is_database_function(task)))
        throw WrongCall{"--page: this calculation has no further pages"};
}

/// What a failed calculation shows in place of a result.
std::string failure_text(const report::Report& r) {
    const std::string head = report::head_as_text(r);
    std::string all = report::result_as_text(r);
    if (all.starts_with(head)) all.erase(0, head.size());
    std::string reasons;
    for (const std::string& line : text::lines(all)) {
        const std::string words = text::trim(line);
        if (!words.empty()) reasons += (reasons.empty() ? "" : "\n") + words;
    }
    return reasons.empty() ? "no result with these input data" : reasons;
}

calculation::Task task_of(const Arguments& a) {
    if (*a.mode < 1 || *a.mode > 24) throw WrongCall{"--mode is 1 to 24"};
    return calculation::task_of_code(*a.mode);
}

calculation::Request request_of(const Call& call, const Arguments& a) {
    calculation::Request request;
    request.method = method_of(call, a);
    request.given.T = a.T.value_or(0);
    request.given.p = a.p.value_or(0);
    request.given.rhoV = request.given.rhoL = static_cast<float>(a.rho.value_or(0));
    request.tank = {.V = static_cast<float>(a.V.value_or(0)),
                    .m = static_cast<float>(a.m.value_or(0)),
                    .T = static_cast<float>(a.T.value_or(0))};
    request.pages = pages_of(a);
    request.task = task_of(a);
    if (is_tank(request.task))
        request.method.global = request.task == calculation::Task::globalTank;
    return request;
}

Json calc(Call& call, const Arguments& a) {
    set_up(call, a);
    const report::TaskResult result =
        report::make_result(call.session.fluid(), session::present_reference(call.session),
                            session::unit_choice(call.session.state()), request_of(call, a));
    report::show(messages(result, report::Tell::remarks));
    const report::Report& r = result.report;
    const calculation::Answer& answer = result.answer;
    Json fu = Json::array();
    for (const double value : result.numbers) fu.push_back(number(value));
    Json all = {{"status", result.failed() ? -1 : 0},
                {"par1", r.par1.text},
                {"par2", r.par2.text},
                {"co1", r.co1.text},
                {"co2", r.co2.text},
                {"Liste", report::list_text(r)},
                {"State", r.phases},
                {"Fu", fu},
                {"p", result.failed() ? Json() : present(answer.p)},
                {"FractionV",
                 result.failed() ? Json() : Json(static_cast<double>(report::fraction_of(answer)))},
                {"hasL", answer.phases.liquid.has_value()},
                {"hasV", answer.phases.vapour.has_value()},
                {"nRoots", answer.roots},
                {"exit", result.refused()},
                {"text", report::result_as_text(r)},
                {"messages", Json::array()}};
    if (result.failed())
        all["message"] = call.messages.empty() ? failure_text(r) : call.messages.front();
    return all;
}

/// The CASRN that a file of experimental data names.
std::string substance_of(const std::string& file) {
    const Result<std::string> whole = files::read_whole(file);
    if (!whole) throw CannotBeDone{whole.reason()};
    const auto content = datafiles::read_measured_data(*whole, file);
    if (!content) throw CannotBeDone{"not a file of experimental data: " + file};
    return text::trim_right(content->data.casrn);
}

Json batch(Call& call, const Arguments& a) {
    const std::string file = std::filesystem::absolute(a.file).string();
    Arguments asked = a;
    const std::string casrn = substance_of(file);
    if (asked.substance.empty()) asked.substance = casrn;
    set_up(call, asked);
    report::CalculationState state;
    state.method = method_of(call, asked);
    if (!session::load_measured_data(call.session, file, false))
        throw CannotBeDone{"nothing was loaded from " + file};
    state.task = task_of(asked);
    state.pages = pages_of(asked);
    refuse_pages(state.task, state.pages);
    const report::Comparison comparison =
        report::compare(call.session.fluid(), session::present_reference(call.session),
                        session::unit_choice(call.session.state()), state,
                        session::measured_sets(call.session), call.session->measured.file);
    report::show(comparison.told);
    const std::string title = report::title_of(state.task, state.method);
    const bool extended = state.pages.tables();
    const report::ResultList list =
        report::make_result_list(comparison, title, extended, report::ListForm::File);
    if (!a.lst.empty()) {
        const Result<void> written = files::write_whole(
            report::result_file_path(std::filesystem::absolute(a.lst).string(), {}),
            report::result_file_text(comparison, title, extended));
        if (!written) {
            dialogs::tell(written.reason(), "WARNING");
            throw CannotBeDone{"the list could not be written: " + a.lst};
        }
    }

    std::string lines;
    for (const std::string& line : list.lines) lines += line + "\n";
    Json means = Json::object();
    constexpr const char* kNames[] = {"T", "p", "rhoV", "rhoL", "hLV"};
    for (std::size_t i = 0; i < report::kQuantities; ++i) {
        const auto value = list.means[i].value();
        means[kNames[i]] = value ? number(*value) : Json();
    }
    return {{"status", 0}, {"list", lines}, {"means", means}, {"messages", Json::array()}};
}

std::string batch_text(const Json& result) {
    return result.at("list").get<std::string>();
}

std::string calc_text(const Json& result) {
    return result.at("text").get<std::string>() + "\n";
}

}  // namespace

std::vector<Command> calculation_commands() {
    return {
        {"calc",
         "a whole calculation by its mode, with the texts of the result view",
         {"mode!", "T", "p", "rho", "V", "m", "global", "partial", "liquid", "page", "uhs"},
         calc,
         calc_text,
         true},
        {"batch",
         "a model against a file of experimental data (.BAQ)",
         {"file!", "mode!", "lst", "global", "partial", "liquid", "page"},
         batch,
         batch_text,
         true},
    };
}

}  // namespace quor::quorcalc
