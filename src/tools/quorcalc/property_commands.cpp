#include "models/caloric.h"
#include "models/density.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/reference_state.h"
#include "models/state_solver.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

Json density(const models::DensityResult& r) {
    return {{"status", r.status}, {"rho", present(r.rho)}, {"deviation", r.deviation}};
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
    const models::CpResult r =
        models::ideal_gas_cp(call.session->substance, call.session->models.cp_form, *a.T);
    const models::CpSet& set = call.session->models.cp_form == models::CpForm::polynomial
                                   ? call.session->substance.cp_polynomial
                                   : call.session->substance.cp_sinh_cosh;
    const double outside = *a.T < set.T_low    ? *a.T - set.T_low
                           : *a.T > set.T_high ? *a.T - set.T_high
                                               : 0.0;
    return {{"status", r.status},
            {"cp", r.status == kSuccess ? number(r.cp) : Json()},
            {"deviation", r.status == kSuccess ? Json(outside) : Json()}};
}

Json hlv(Call& call, const Arguments& a) {
    if (!a.T && !a.p) throw WrongCall{"--T or --p is required"};
    set_up(call, a);
    const models::EnthalpyOfVaporisationResult r =
        models::enthalpy_of_vaporisation(call.session.fluid(),
                                         {.model = call.session->models.vaporisation,
                                          .equation = call.session->models.vapour_pressure,
                                          .reference = call.session->calculation.method.reference,
                                          .T = 0,
                                          .p = 0},
                                         a.T.value_or(0), a.p.value_or(0));
    const bool good = r.status == kSuccess;
    Json result = {{"status", r.status},       {"hLV", good ? Json(r.h) : Json()},
                   {"T", present(r.T)},        {"p", present(r.p)},
                   {"zV", present(r.zV)},      {"zL", present(r.zL)},
                   {"rhoV", present(r.rhoV)},  {"rhoL", present(r.rhoL)},
                   {"deviation", r.deviation}, {"explanation", r.explanation}};
    if (!good) result["message"] = r.explanation.empty() ? "no Result" : r.explanation;
    return result;
}

template <class Array>
Json numbers_from(const Array& values, std::size_t first) {
    Json array = Json::array();
    for (std::size_t i = first; i < values.size(); ++i) array.push_back(number(values[i]));
    return array;
}

Json phase(const session::Session& session, double T, double p, double v, Status& status) {
    const models::Fluid& fluid = session.fluid();
    models::ReferenceState reference = session->reference;
    models::settle_reference(reference);
    const models::StateValues r = models::state_functions(
        fluid, reference, models::surroundings_state(fluid, reference), T, p, v);
    if (r.status != kSuccess) {
        status = r.status;
        return Json();
    }
    return {{"v", v},
            {"derivatives", numbers_from(r.table.first, 1)},
            {"second", numbers_from(r.table.second, 1)},
            {"residual", numbers_from(r.table.residual, 0)},
            {"h", number(r.h)},
            {"u", number(r.u)},
            {"s", number(r.s)},
            {"g", number(r.g)},
            {"a", number(r.a)},
            {"cp", number(r.cp)},
            {"cv", number(r.cv)},
            {"w", number(r.w)},
            {"eH", number(r.eH)},
            {"eU", number(r.eU)}};
}

Json functions(Call& call, const Arguments& a) {
    if (!a.row.empty() && a.row != "V" && a.row != "L") throw WrongCall{"--row is V or L"};
    set_up(call, a);
    Json result = {{"status", 0}, {"V", Json()}, {"L", Json()}};
    Status status = kSuccess;
    if (a.v) {
        result[a.row.empty() ? "V" : a.row] = phase(call.session, *a.T, *a.p, *a.v, status);
    } else {
        const models::StateTP state = models::solve_state_tp(call.session.fluid(), *a.T, *a.p);
        status = state.status;
        if (status == kSuccess && state.has_V)
            result["V"] = phase(call.session, *a.T, *a.p, state.vV, status);
        if (status == kSuccess && state.has_L)
            result["L"] = phase(call.session, *a.T, *a.p, state.vL, status);
    }
    result["status"] = status;
    return result;
}

}  // namespace

std::vector<Command> property_commands() {
    return {
        {"rhol", "saturated liquid density of the database equation", {"T!"}, rhol},
        {"rhos", "solid density of the database equation", {"T!"}, rhos},
        {"cpid", "heat capacity of the ideal gas", {"T!"}, cpid},
        {"hlv", "enthalpy of vaporisation by the method of --hlv", {"T", "p"}, hlv},
        {"functions",
         "derivatives, residual and caloric functions",
         {"T!", "p!", "v", "row"},
         functions},
    };
}

}  // namespace quor::quorcalc
