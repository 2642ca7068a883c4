#include "common/text.h"
#include "models/model_codes.h"
#include "models/model_tables.h"
#include "models/named_reference.h"
#include "models/unit_text.h"
#include "report/made.h"
#include "session/session_status.h"
#include "tools/quorcalc/commands.h"

namespace quor::quorcalc {

namespace {

Json models_of(const models::ModelSelection& m) {
    return {{"eos", text::trim(models::eos_name(m.eos))},
            {"vp", models::vp_code(m.vapour_pressure)},
            {"hlv", text::trim(models::hlv_name(m.vaporisation))},
            {"cp", text::trim(models::cp_name(m.cp_form))},
            {"priority", m.eos_has_priority ? "ceos" : "vp"}};
}

Json units_of(const session::Session& session, bool chosen) {
    const models::UnitChoice choice =
        chosen ? session::unit_choice(session.state()) : models::UnitChoice{};
    const models::Units units = models::make_units(choice, session.fluid());
    if (models::has_own_units(choice)) {
        Json names = Json::object();
        for (std::size_t i = 0; i < models::kDimensions; ++i) {
            const auto dimension = static_cast<models::Dimension>(i);
            names[std::string(models::key_of(dimension))] = units.of(dimension).name;
        }
        return names;
    }
    return {{"T", units.T_label},
            {"p", units.p_label},
            {"v", units.v_label},
            {"rho", "kg/m^3"},
            {"h", report::caloric_name(units.choice.caloric)}};
}

Json reference_of(const models::ReferenceState& r) {
    const models::NamedReference* const named = models::named_reference(r.named);
    return {{"state", named == nullptr ? Json() : Json(named->code)},
            {"mode", r.mode},
            {"href", number(r.href)},
            {"sref", number(r.sref)},
            {"T0", number(static_cast<double>(r.T0))},
            {"p0", number(static_cast<double>(r.p0))},
            {"Tenv", number(r.Tenv)},
            {"penv", number(r.penv)}};
}

}  // namespace

void name_inputs(const session::Session& session, const Command& command, Json& result) {
    const auto add = [&](const char* key, Json value) {
        if (!result.contains(key)) result[key] = std::move(value);
    };
    add("substance", text::trim(session->substance.name));
    add("model", models_of(session->models));
    add("units", units_of(session, command.in_chosen_units));
    add("reference", reference_of(session::present_reference(session)));
}

}  // namespace quor::quorcalc
