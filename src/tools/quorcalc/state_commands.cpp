#include "common/text.h"
#include "datafiles/database.h"
#include "datafiles/record_fields.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"
#include "tools/quorcalc/command_list.h"

namespace quor::quorcalc {

namespace {

Json list(Call& call, const Arguments& a) {
    const datafiles::Database database = database_of(call, a);
    Json substances = Json::array();
    for (const datafiles::DatabaseEntry& entry : database.entries())
        substances.push_back({{"index", substances.size() + 1},
                              {"number", entry.number},
                              {"name", text::trim_right(entry.name)},
                              {"formula", text::trim_right(entry.formula)},
                              {"casrn", text::trim_right(entry.casrn)}});
    return {{"status", 0}, {"substances", substances}};
}

std::string list_text(const Json& result) {
    std::string out;
    for (const Json& s : result.at("substances"))
        out += text::pad_left(std::to_string(s.at("index").get<int>()), 5) + "  " +
               text::pad_right(s.at("casrn").get<std::string>(), 13) +
               text::pad_right(s.at("formula").get<std::string>(), 13) +
               s.at("name").get<std::string>() + "\n";
    return out;
}

Json value_of(const models::SubstanceRecord& substance, const datafiles::FieldPlace& place) {
    return std::visit(
        [](const auto& value) -> Json {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, std::string>) {
                return text::trim_right(value);
            } else if constexpr (std::is_same_v<T, float>) {
                return static_cast<double>(value);
            } else {
                return value;
            }
        },
        datafiles::value_of(substance, place));
}

Json data(Call& call, const Arguments& a) {
    set_up(call, a);
    const models::SubstanceRecord& substance = call.session->substance;
    Json result = {{"status", 0}};
    for (const datafiles::RecordField& field : datafiles::record_fields()) {
        if (field.count == 0) {
            result[std::string(field.name)] = value_of(substance, {&field, 0});
            continue;
        }
        Json elements = Json::array();
        for (std::size_t i = 0; i < field.count; ++i)
            elements.push_back(value_of(substance, {&field, i}));
        result[std::string(field.name)] = elements;
    }
    result["VPCode"] = models::vp_code(call.session->models.vapour_pressure);
    return result;
}

Json eos(Call& call, const Arguments& a) {
    set_up(call, a);
    const models::Fluid fluid = call.session.fluid();
    const models::EosParameters& e = fluid.eos();
    const models::EosState s = models::eos_at(fluid, *a.T);
    const models::JiTorvikParameters& jt = fluid.jt();
    return {{"status", 0},
            {"eosA0", e.a0},
            {"eosB0", e.b0},
            {"eosC0", e.c0},
            {"eosD0", e.d0},
            {"eosNA", e.na},
            {"eosAlphaForm", e.alpha_form},
            {"a", number(s.a)},
            {"b", number(s.b)},
            {"c", number(s.c)},
            {"d", number(s.d)},
            {"vcritCalc", e.vcrit_calculated},
            {"rhocritCalc", e.rhocrit_calculated},
            {"jtOmegaA", jt.omega_a},
            {"jtOmegaB", jt.omega_b},
            {"jtOmegaC", jt.omega_c},
            {"jtA0", jt.a0}};
}

/// A pressure that every solver needs.
double positive_pressure(const Arguments& a) {
    if (!(*a.p > 0)) throw WrongCall{"--p has to be > 0"};
    return *a.p;
}

/// An equation for the V phase alone knows no equilibrium.
void require_cubic(const Call& call) {
    if (call.session->models.vapour_only) throw CannotBeDone{"possible only by using a  cubic EOS"};
}

Json pressure(Call& call, const Arguments& a) {
    set_up(call, a);
    if (!(*a.v > 0)) throw WrongCall{"--v has to be > 0"};
    const models::Fluid fluid = call.session.fluid();
    models::EosState state = models::eos_at(fluid, *a.T);
    const auto p = models::pressure_from_Tv(fluid, *a.T, *a.v, state);
    Json result = {{"status", status_of(p)}, {"p", p ? number(*p) : Json()}};
    if (!p && *a.v <= state.b) result["message"] = "v is not above the smallest volume at T";
    return result;
}

Json volumes(const std::array<double, 3>& v, int count) {
    Json array = Json::array();
    for (int i = 0; i < count; ++i) array.push_back(number(v[static_cast<std::size_t>(i)]));
    return array;
}

Json roots(Call& call, const Arguments& a) {
    set_up(call, a);
    require_cubic(call);
    positive_pressure(a);
    const models::EosState state = models::eos_at(call.session.fluid(), *a.T);
    const auto found = models::solve_cubic(state, *a.T, *a.p);
    const models::CubicRoots r = found.value_or(models::CubicRoots{});
    return {{"status", status_of(found)}, {"v", volumes(r.v, r.count)}, {"count", r.count}};
}

Json state(Call& call, const Arguments& a) {
    set_up(call, a);
    const auto found = models::solve_state_tp(call.session.fluid(), *a.T, positive_pressure(a));
    const models::StateTP none =
        found ? models::StateTP{}
              : models::StateTP{.region = found.failure().region, .text = found.failure().text};
    const models::StateTP& r = found ? *found : none;
    return {{"status", status_of(found)},
            {"hasL", r.has_L},
            {"hasV", r.has_V},
            {"rhoL", present(r.rhoL)},
            {"rhoV", present(r.rhoV)},
            {"vL", present(r.vL)},
            {"vV", present(r.vV)},
            {"nRoots", r.root_count},
            {"areaRatio", number(r.areas.ratio)},
            {"areaL", number(r.areas.L)},
            {"areaV", number(r.areas.V)},
            {"PhaseRegion", r.region},
            {"text", r.text},
            {"v", volumes(r.v, r.root_count)}};
}

Json temperature(Call& call, const Arguments& a) {
    set_up(call, a);
    if (!(*a.rho > 0)) throw WrongCall{"--rho has to be > 0"};
    const auto T =
        models::temperature_from_p_rho(call.session.fluid(), positive_pressure(a), *a.rho, false);
    return {{"status", status_of(T)}, {"T", present(T)}};
}

Json saturation(const std::optional<models::Saturation>& found, const char* key,
                double models::Saturation::*value) {
    const models::Saturation r = found.value_or(models::Saturation{});
    return {{"status", status_of(found)},         {key, found ? present(r.*value) : Json()},
            {"areaRatio", number(r.areas.ratio)}, {"areaL", number(r.areas.L)},
            {"areaV", number(r.areas.V)},         {"nRoots", r.root_count},
            {"v", volumes(r.v, r.root_count)}};
}

Json psat(Call& call, const Arguments& a) {
    set_up(call, a);
    require_cubic(call);
    return saturation(models::saturation_pressure(call.session.fluid(), *a.T), "p",
                      &models::Saturation::p);
}

Json tsat(Call& call, const Arguments& a) {
    set_up(call, a);
    require_cubic(call);
    return saturation(models::saturation_temperature(call.session.fluid(), positive_pressure(a)),
                      "T", &models::Saturation::T);
}

models::VapourPressureEquation equation_of(const Call& call, const Arguments& a) {
    if (a.code.empty()) return call.session->models.vapour_pressure;
    const models::VapourPressureEquation equation = models::vp_of_code(a.code);
    if (equation == models::VapourPressureEquation::none && a.code != "000")
        throw WrongCall{"--code: no such equation: " + a.code};
    return equation;
}

Json vp(Call& call, const Arguments& a) {
    set_up(call, a);
    const auto r = models::vapour_pressure(call.session->substance, *a.T, equation_of(call, a));
    return {{"status", status_of(r)},
            {"p", r ? present(r->p) : Json()},
            {"deviation", r ? r->deviation : 0}};
}

Json tboil(Call& call, const Arguments& a) {
    set_up(call, a);
    const auto r = models::boiling_temperature(call.session->substance, positive_pressure(a),
                                               equation_of(call, a));
    return {{"status", status_of(r)},
            {"T", r ? present(r->T) : Json()},
            {"deviation", r ? r->deviation : 0}};
}

Json vpslope(Call& call, const Arguments& a) {
    set_up(call, a);
    const auto slope =
        models::vapour_pressure_slope(call.session->substance, *a.T, equation_of(call, a));
    return {{"status", status_of(slope)}, {"slope", present(slope)}};
}

Json virial(Call& call, const Arguments& a) {
    set_up(call, a);
    const models::Virial r = models::virial(call.session.fluid(), *a.T);
    const bool derivatives = models::is_v_only(call.session->models.eos);
    return {{"status", 0},
            {"B", number(r.B)},
            {"dB", derivatives ? number(r.dB) : Json()},
            {"d2B", derivatives ? number(r.d2B) : Json()}};
}

}  // namespace

std::vector<Command> state_commands() {
    return {
        {"list", "substances of the database", {}, list, list_text},
        {"data", "every field of the substance record", {}, data},
        {"eos", "constants of the equation of state and a, b, c, d at T", {"T!"}, eos},
        {"p", "pressure at T and v", {"T!", "v!"}, pressure, nullptr, false, true},
        {"roots", "volume roots at T and p", {"T!", "p!"}, roots, nullptr, false, true},
        {"state",
         "phases, volumes and densities at T and p",
         {"T!", "p!"},
         state,
         nullptr,
         false,
         true},
        {"T", "temperature at p and rho", {"p!", "rho!"}, temperature, nullptr, false, true},
        {"psat", "p(LV) of the cubic EOS at T", {"T!"}, psat, nullptr, false, true},
        {"tsat", "T(LV) of the cubic EOS at p", {"p!"}, tsat, nullptr, false, true},
        {"vp", "p(LV) by a vapour pressure equation", {"T!", "code"}, vp, nullptr, false, true},
        {"tboil",
         "T(LV) by a vapour pressure equation",
         {"p!", "code"},
         tboil,
         nullptr,
         false,
         true},
        {"vpslope", "d(ln p)/d(1/T) of a vapour pressure equation", {"T!", "code"}, vpslope},
        {"virial",
         "second virial coefficient and its derivatives",
         {"T!"},
         virial,
         nullptr,
         false,
         true},
    };
}

}  // namespace quor::quorcalc
