#include "calculation/calc_batch.h"
#include "calculation/result_text.h"
#include "models/reference_state.h"
#include "tools/quorcalc/command_list.h"

namespace quorcalc {

namespace {

/// The choice of a global or partial calculation, and of the liquid's density in the latter.
void choose_equilibrium(const Arguments& a) {
    Declare::Session& s = Declare::session;
    if (a.global && a.partial) throw WrongCall{"--global and --partial exclude each other"};
    if (!a.liquid.empty() && a.liquid != "benson" && a.liquid != "rhoT")
        throw WrongCall{"--liquid is benson or rhoT"};
    s.GlobalCalculation = !a.partial && !(Declare::models.EOSOnlyV && !a.global);
    s.LiquidByBenson = a.liquid != "rhoT";
    // A "T, p" calculation is partial when a phase equilibrium is assumed.
    s.AssumedVle = a.partial && a.mode == 3;
    if (!s.BensonReferenceValid && s.LiquidByBenson) {
        s.BensonReference = thermo::ProposeBensonReference().point;
        const Declare::BensonPoint& r = s.BensonReference;
        s.BensonReferenceValid = static_cast<double>(r.T) * static_cast<double>(r.p) *
                                     static_cast<double>(r.rhoL) * static_cast<double>(r.rhoV) >
                                 1e-6;
    }
}

void fill_input(const Arguments& a) {
    Declare::BatchDataSet& input = Declare::BatchData[0];
    input.T = a.T.value_or(0);
    input.p = a.p.value_or(0);
    input.rhoV = static_cast<float>(a.rho.value_or(0));
    input.rhoL = input.rhoV;
    Declare::Tank& tank = Declare::session.tank;
    tank.T = static_cast<float>(a.T.value_or(0));
    tank.V = static_cast<float>(a.V.value_or(0));
    tank.m = static_cast<float>(a.m.value_or(0));
}

Json calc(const Arguments& a) {
    SetUp(a);
    choose_equilibrium(a);
    fill_input(a);
    Declare::Session& s = Declare::session;
    const int page = a.page.value_or(1);
    if (page < 1 || page > 4) throw WrongCall{"--page is 1 to 4"};
    s.OutputPage = static_cast<std::int16_t>(page);
    s.EquilibriumFunctions = a.uhs;
    s.CalcMode = static_cast<std::int16_t>(*a.mode);
    if (*a.mode == 9) s.GlobalCalculation = true;
    if (*a.mode == 10) s.GlobalCalculation = false;

    Zentrale::CalcCall call{.Mode = s.CalcMode};
    Zentrale::CalcBatch(call);

    const Zentrale::ResultText& r = Zentrale::resultText;
    Json fu = Json::array();
    for (const double value : Declare::Fu) fu.push_back(Number(value));
    const bool exit = call.Text == "EXIT";
    Json result = {{"status", call.Failed || exit ? -1 : 0},
                   {"par1", r.par1.text},
                   {"par2", r.par2.text},
                   {"co1", r.co1.text},
                   {"co2", r.co2.text},
                   {"Liste", Zentrale::ListText(r)},
                   {"State", r.State},
                   {"Fu", fu},
                   {"p", Present(call.Pressure)},
                   {"FractionV", static_cast<double>(call.FractionV)},
                   {"hasL", call.HasL},
                   {"hasV", call.HasV},
                   {"nRoots", call.Roots},
                   {"exit", exit},
                   {"text", Zentrale::ResultAsText(r)},
                   {"messages", Json::array()}};
    return result;
}

std::string calc_text(const Json& result) {
    return result.at("text").get<std::string>() + "\n";
}

}  // namespace

std::vector<Command> CalculationCommands() {
    return {
        {"calc",
         "a whole calculation by its mode, with the texts of the result view",
         {"mode!", "T", "p", "rho", "V", "m", "global", "partial", "liquid", "page", "uhs"},
         calc,
         calc_text},
    };
}

}  // namespace quorcalc
