#include "models/caloric.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/reference_state.h"
#include "models/state_solver.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

/// A temperature that the set does not describe is no failure of its equation.
Json density(const Result<models::Density, models::NoDensity>& r) {
    const bool failed = !r && r.failure() == models::NoDensity::impossible;
    return {{"status", failed ? -1 : 0},
            {"rho", r ? present(r->rho) : Json()},
            {"deviation", r ? r->deviation : 0}};
}

Json rhol(Call& call, const Arguments& a) {
    set_up(call, a);
    return density(models::density_liquid(call.session->substance, static_cast<float>(*a.T)));
}

Json rhos(Call& call, const Arguments& a) {
    set_up(call, a);
    return density(models::density_solid(call.session->substance, static_cast<float>(*a.T)));
}

Json cpid(Call& call, const Arguments& a) {
    set_up(call, a);
    const auto r =
        models::ideal_gas_cp(call.session->substance, call.session->models.cp_form, *a.T);
    const models::CpSet& set = call.session->models.cp_form == models::CpForm::polynomial
                                   ? call.session->substance.cp_polynomial
                                   : call.session->substance.cp_sinh_cosh;
    const double outside = *a.T < set.T_low    ? *a.T - set.T_low
                           : *a.T > set.T_high ? *a.T - set.T_high
                                               : 0.0;
    return {{"status", status_of(r)},
            {"cp", r ? number(*r) : Json()},
            {"deviation", r ? Json(outside) : Json()}};
}

Json hlv(Call& call, const Arguments& a) {
    if (!a.T && !a.p) throw WrongCall{"--T or --p is required"};
    set_up(call, a);
    const models::Vaporisation r =
        models::enthalpy_of_vaporisation(call.session.fluid(),
                                         {.model = call.session->models.vaporisation,
                                          .equation = call.session->models.vapour_pressure,
                                          .reference = call.session->calculation.method.reference,
                                          .T = {},
                                          .p = {}},
                                         a.T, a.p);
    Json result = {{"status", status_of(r.h)}, {"hLV", r.h ? Json(*r.h) : Json()},
                   {"T", present(r.T)},        {"p", present(r.p)},
                   {"zV", present(r.zV)},      {"zL", present(r.zL)},
                   {"rhoV", present(r.rhoV)},  {"rhoL", present(r.rhoL)},
                   {"deviation", r.deviation}, {"explanation", r.explanation},
                   {"obtained", r.obtained}};
    if (!r.h) result["message"] = r.explanation.empty() ? "no Result" : r.explanation;
    return result;
}

template <class Array>
Json numbers_from(const Array& values, std::size_t first) {
    Json array = Json::array();
    for (std::size_t i = first; i < values.size(); ++i) array.push_back(number(values[i]));
    return array;
}

/// Null where there are no functions or no exergies.
Json phase(const session::Session& session, double T, double p, double v) {
    const models::Fluid& fluid = session.fluid();
    models::ReferenceState reference = session::present_reference(session);
    models::settle_reference(reference);
    const auto r = models::state_functions(fluid, reference,
                                           models::surroundings_state(fluid, reference), T, p, v);
    if (!r || !r->exergies) return Json();
    return {{"v", v},
            {"derivatives", numbers_from(r->table.first, 1)},
            {"second", numbers_from(r->table.second, 1)},
            {"residual", numbers_from(r->table.residual, 0)},
            {"h", number(r->h)},
            {"u", number(r->u)},
            {"s", number(r->s)},
            {"g", number(r->g)},
            {"a", number(r->a)},
            {"cp", number(r->cp)},
            {"cv", number(r->cv)},
            {"w", number(r->w)},
            {"eH", number(r->exergies->H)},
            {"eU", number(r->exergies->U)}};
}

Json functions(Call& call, const Arguments& a) {
    if (!a.row.empty() && a.row != "V" && a.row != "L") throw WrongCall{"--row is V or L"};
    if (!(*a.p > 0)) throw WrongCall{"--p has to be > 0"};
    if (a.v && !(*a.v > 0)) throw WrongCall{"--v has to be > 0"};
    set_up(call, a);
    Json result = {{"status", 0}, {"V", Json()}, {"L", Json()}};
    const auto take = [&](const char* row, double v) {
        result[row] = phase(call.session, *a.T, *a.p, v);
        if (result[row].is_null()) result["status"] = -1;
    };
    if (a.v) {
        take(a.row == "L" ? "L" : "V", *a.v);
        return result;
    }
    const auto state = models::solve_state_tp(call.session.fluid(), *a.T, *a.p);
    result["status"] = status_of(state);
    if (state && state->has_V) take("V", *state->vV);
    if (state && state->has_L && result["status"] == 0) take("L", *state->vL);
    return result;
}

}  // namespace

std::vector<Command> property_commands() {
    return {
        {"rhol",
         "saturated liquid density of the database equation",
         {"T!"},
         rhol,
         nullptr,
         false,
         true},
        {"rhos", "solid density of the database equation", {"T!"}, rhos, nullptr, false, true},
        {"cpid", "heat capacity of the ideal gas", {"T!"}, cpid, nullptr, false, true},
        {"hlv",
         "enthalpy of vaporisation by the method of --hlv",
         {"T", "p"},
         hlv,
         nullptr,
         false,
         true},
        {"functions",
         "derivatives, residual and caloric functions",
         {"T!", "p!", "v", "row"},
         functions,
         nullptr,
         false,
         true},
    };
}

}  // namespace quor::quorcalc
