#include <filesystem>

#include "calculation/batch_list.h"
#include "calculation/calc_batch.h"
#include "calculation/calc_modes.h"
#include "calculation/result_text.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/measured_data.h"
#include "legacy/wrappers.h"
#include "models/reference_state.h"
#include "session/measured_data_session.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

/// The choice of a global or partial calculation, and of the liquid's density in the latter.
void choose_equilibrium(const Arguments& a) {
    legacy::Session& s = legacy::the_session;
    if (a.global && a.partial) throw WrongCall{"--global and --partial exclude each other"};
    if (!a.liquid.empty() && a.liquid != "benson" && a.liquid != "rhoT")
        throw WrongCall{"--liquid is benson or rhoT"};
    s.GlobalCalculation = !a.partial && !(legacy::the_models.EOSOnlyV && !a.global);
    s.LiquidByBenson = a.liquid != "rhoT";
    // A "T, p" calculation is partial when a phase equilibrium is assumed.
    s.AssumedVle = a.partial && a.mode == 3;
    if (!s.BensonReferenceValid) {
        s.BensonReference = models::propose_benson_reference().point;
        const models::BensonPoint& r = s.BensonReference;
        s.BensonReferenceValid = static_cast<double>(r.T) * static_cast<double>(r.p) *
                                     static_cast<double>(r.rhoL) * static_cast<double>(r.rhoV) >
                                 1e-6;
    }
}

std::int16_t page_of(const Arguments& a) {
    const int page = a.page.value_or(1);
    if (page < 1 || page > 4) throw WrongCall{"--page is 1 to 4"};
    return static_cast<std::int16_t>(page);
}

std::int16_t code_of_mode(const Arguments& a) {
    if (*a.mode < 1 || *a.mode > 24) throw WrongCall{"--mode is 1 to 24"};
    return static_cast<std::int16_t>(*a.mode);
}

void fill_input(const Arguments& a) {
    calculation::BatchDataSet& input = legacy::the_BatchData[0];
    input.T = a.T.value_or(0);
    input.p = a.p.value_or(0);
    input.rhoV = static_cast<float>(a.rho.value_or(0));
    input.rhoL = input.rhoV;
    calculation::Tank& tank = legacy::the_session.tank;
    tank.T = static_cast<float>(a.T.value_or(0));
    tank.V = static_cast<float>(a.V.value_or(0));
    tank.m = static_cast<float>(a.m.value_or(0));
}

Json calc(const Arguments& a) {
    set_up(a);
    choose_equilibrium(a);
    fill_input(a);
    legacy::Session& s = legacy::the_session;
    s.OutputPage = page_of(a);
    s.EquilibriumFunctions = a.uhs;
    s.CalcMode = code_of_mode(a);
    if (*a.mode == 9) s.GlobalCalculation = true;
    if (*a.mode == 10) s.GlobalCalculation = false;

    calculation::CalcCall call{.Mode = s.CalcMode};
    calculation::CalcBatch(call);

    const calculation::ResultText& r = calculation::resultText;
    Json fu = Json::array();
    for (const double value : legacy::the_Fu) fu.push_back(Number(value));
    const bool exit = call.Text == "EXIT";
    Json result = {{"status", call.Failed || exit ? -1 : 0},
                   {"par1", r.par1.text},
                   {"par2", r.par2.text},
                   {"co1", r.co1.text},
                   {"co2", r.co2.text},
                   {"Liste", calculation::ListText(r)},
                   {"State", r.State},
                   {"Fu", fu},
                   {"p", present(call.Pressure)},
                   {"FractionV", static_cast<double>(call.FractionV)},
                   {"hasL", call.HasL},
                   {"hasV", call.HasV},
                   {"nRoots", call.Roots},
                   {"exit", exit},
                   {"text", calculation::result_as_text(r)},
                   {"messages", Json::array()}};
    return result;
}

/// The CASRN that a file of experimental data names.
std::string substance_of(const std::string& file) {
    const Result<std::string> whole = files::read_whole(file);
    if (!whole) throw CannotBeDone{whole.reason()};
    const auto content = datafiles::read_measured_data(*whole, file);
    if (!content) throw CannotBeDone{"not a file of experimental data: " + file};
    return text::trim_right(content->data.casrn);
}

Json batch(const Arguments& a) {
    const std::string file = std::filesystem::absolute(a.file).string();
    Arguments call = a;
    const std::string casrn = substance_of(file);
    if (call.substance.empty()) call.substance = casrn;
    set_up(call);
    choose_equilibrium(call);
    if (!session::load_measured_data(file, false))
        throw CannotBeDone{"nothing was loaded from " + file};

    legacy::Session& s = legacy::the_session;
    s.BatchMode = true;
    s.CalcMode = code_of_mode(call);
    s.OutputPage = page_of(call);
    calculation::calculate_all_sets();
    const std::string title = calculation::mode_title(s.CalcMode);
    const bool extended = s.OutputPage > 1;
    const calculation::ResultList list = calculation::make_result_list(
        title, s.GlobalCalculation, extended, calculation::ListForm::File);
    if (!a.lst.empty() && !calculation::result_file(std::filesystem::absolute(a.lst).string(),
                                                    title, s.GlobalCalculation, extended))
        throw CannotBeDone{"the list could not be written: " + a.lst};

    std::string lines;
    for (const std::string& line : list.lines) lines += line + "\n";
    Json means = Json::object();
    constexpr const char* kNames[] = {"T", "p", "rhoV", "rhoL", "hLV"};
    for (std::size_t i = 0; i < calculation::kQuantities; ++i) {
        const auto value = list.means[i].value();
        means[kNames[i]] = value ? Number(*value) : Json();
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
         calc_text},
        {"batch",
         "a model against a file of experimental data (.BAQ)",
         {"file!", "mode!", "lst", "global", "partial", "liquid", "page"},
         batch,
         batch_text},
    };
}

}  // namespace quor::quorcalc
