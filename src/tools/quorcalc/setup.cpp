#include <cmath>

#include "common/numbers.h"
#include "common/single.h"
#include "common/text.h"
#include "datafiles/record_fields.h"
#include "models/cubic_eos.h"
#include "models/model_choice.h"
#include "models/model_codes.h"
#include "models/model_tables.h"
#include "models/named_reference.h"
#include "models/vapour_pressure.h"
#include "session/options.h"
#include "session/substance_session.h"
#include "session/take_models.h"
#include "tools/quorcalc/commands.h"
#include "tools/quorcalc/unit_options.h"

namespace quor::quorcalc {

namespace {

namespace fs = std::filesystem;

/// The path of the database as it is named in messages.
std::string database_path(const Call& call, const Arguments& a) {
    return a.db.empty() ? call.session.places().find_file("STUDENT.Q05").string() : a.db;
}

fs::path synonym_path(const Call& call) {
    return call.session.places().find_file(std::string(datafiles::kSynonymFile));
}

void open_database(Call& call, const Arguments& a) {
    datafiles::Database database = database_of(call, a);
    const auto now = call.session.change();
    now->database = std::move(database);
    now->database_file = paths::file_title(database_path(call, a));
}

/// Position (from 1) of a substance: "#number", else a name, synonym or CASRN.
std::int16_t find_substance(Call& call, const std::string& wanted) {
    const fs::path file = synonym_path(call);
    if (const auto synonyms = call.kept.synonyms(file)) {
        const auto now = call.session.change();
        now->synonyms = *synonyms;
        now->synonym_file = file;
    }
    const std::int16_t index = session::find_substance(call.session, wanted);
    if (index == 0) throw CannotBeDone{"Nothing found: " + wanted};
    return index;
}

void read_substance(Call& call, const Arguments& a) {
    if (a.substance.empty()) throw WrongCall{"--substance is required"};
    const std::int16_t number = find_substance(call, a.substance);
    (void)session::read_substance(call.session, number);
    const auto now = call.session.change();
    now->substance_number = number;
    now->substance_set = true;
}

double* ji_torvik_field(models::JiTorvikParameters& jt, const std::string& name) {
    if (name == "jtM") return &jt.m;
    if (name == "jtP") return &jt.p;
    if (name == "jtQ") return &jt.q;
    if (name == "jtZc") return &jt.zc;
    if (name == "jtK") return &jt.k;
    return nullptr;
}

double* virial_field(models::ManualVirial& virial, const std::string& name) {
    if (name == "b0") return &virial.b0;
    if (name == "b1") return &virial.b1;
    if (name == "b2") return &virial.b2;
    return nullptr;
}

bool is_correlated(const std::string& field) {
    return field.starts_with("AUG") || field.starts_with("KFW") || field.starts_with("KFR") ||
           field.starts_with("THO");
}

struct Override {
    std::string field, value;
};

std::vector<Override> overrides(const Arguments& a) {
    std::vector<Override> all;
    for (const std::string& s : a.set) {
        const std::size_t i = s.find('=');
        if (i == std::string::npos) throw WrongCall{"--set needs FIELD=VALUE: " + s};
        all.push_back({s.substr(0, i), s.substr(i + 1)});
    }
    return all;
}

double number_of(const Override& o) {
    const auto value = numbers::number(o.value);
    if (!value) throw WrongCall{"not a number: " + o.field + "=" + o.value};
    return *value;
}

void store(models::SubstanceRecord& substance, const Override& o) {
    const Result<void> stored = datafiles::set_field(substance, o.field, o.value);
    if (!stored) throw WrongCall{stored.reason()};
}

void correlate(models::SubstanceRecord& s) {
    models::correlate_august(s);
    using enum models::VapourPressureEquation;
    for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
        models::correlate_vapour_pressure(s, equation, s.Tcrit, s.pcrit,
                                          static_cast<double>(s.Tboil));
}

/// Values of the record that follow from others, where a field they come from was set.
void refresh_derived(models::SubstanceRecord& s, const std::vector<Override>& all) {
    const auto was_set = [&](std::string_view name) {
        for (const Override& o : all)
            if (o.field.starts_with(name)) return true;
        return false;
    };
    if ((was_set("M") || was_set("rhocrit")) && !was_set("vcritExp"))
        s.vcrit_measured = s.rhocrit > 1e-6 ? static_cast<double>(s.M) / s.rhocrit : 0.0;
    const auto ideal = [](const models::CpSet& set) {
        return std::fabs(static_cast<double>(set.T_low) * static_cast<double>(set.c[0]) *
                         set.T_high) > 1e-6;
    };
    const auto condensed = [](const models::CpSet& set) {
        return (std::fabs(set.c[0]) > 1e-6F || std::fabs(set.c[1]) > 1e-6F) && set.T_low > 0 &&
               set.T_high > 0;
    };
    if (was_set("cpPoly") && !was_set("hasCpPoly")) s.has_cp_polynomial = ideal(s.cp_polynomial);
    if (was_set("cpSinh") && !was_set("hasCpSinh")) s.has_cp_sinh_cosh = ideal(s.cp_sinh_cosh);
    if (was_set("cpL") && !was_set("hasCpL")) s.has_cpL = condensed(s.cpL);
    if (was_set("cpS") && !was_set("hasCpS")) s.has_cpS = condensed(s.cpS);
}

void apply_overrides(session::SessionState& state, const std::vector<Override>& all) {
    models::SubstanceRecord& substance = state.substance;
    for (const Override& o : all) {
        if (double* field = ji_torvik_field(state.ji_torvik, o.field)) {
            *field = number_of(o);
            state.ji_torvik_given = true;
        } else if (double* coefficient = virial_field(state.models.manual_virial, o.field)) {
            *coefficient = number_of(o);
        } else {
            store(substance, o);
        }
    }
    refresh_derived(substance, all);
    correlate(substance);
    // A correlated set that is given itself stands as it is.
    for (const Override& o : all)
        if (is_correlated(o.field)) store(substance, o);
}

std::int16_t code_between(int value, int low, int high, const char* option) {
    if (value < low || value > high) throw WrongCall{std::string(option) + " is out of range"};
    return static_cast<std::int16_t>(value);
}

models::ModelSelection models_of(const Arguments& a, const models::SubstanceRecord& substance,
                                 models::ModelSelection m) {
    // The record's own default, which follows overrides of the measured sets.
    using enum models::VapourPressureEquation;
    m.vapour_pressure = models::default_vapour_pressure(substance);
    // Brings every family to an entry that is offered.
    m = models::ModelChoice(substance, m).models();

    if (a.eos)
        m.eos =
            models::eos_of_code(code_between(*a.eos, 0, 16, "--eos")).value_or(models::Eos::none);
    m.vapour_only = models::is_v_only(m.eos);
    if (a.vp.size() == 3) {
        m.vapour_pressure = models::vp_of_code(a.vp);
        if (m.vapour_pressure == none && a.vp != "000")
            throw WrongCall{"--vp: no such equation: " + a.vp};
    } else if (!a.vp.empty()) {
        throw WrongCall{"--vp: no such equation: " + a.vp};
    }
    if (a.hlv) m.vaporisation = *models::vaporisation_of_code(code_between(*a.hlv, 1, 7, "--hlv"));
    if (a.cp) m.cp_form = *models::cp_form_of_code(code_between(*a.cp, 0, 2, "--cp"));
    if (a.watson) m.watson_n = static_cast<float>(*a.watson);
    if (!a.priority.empty()) m.eos_has_priority = a.priority == "ceos";
    if (m.vapour_only) m.eos_has_priority = false;
    return m;
}

void choose_models(session::Session& session, const Arguments& a) {
    const models::ModelSelection chosen = models_of(a, session->substance, session->models);
    session.change()->models = chosen;
    if (!session::compute_constants(session, chosen.eos))
        throw CannotBeDone{"Error during EOS-parameter calculation"};
}

void choose_units(session::Session& session, const Arguments& a) {
    const auto now = session.change();
    using enum models::UnitSystem;
    if (!a.out_units.empty()) {
        if (!a.units.empty()) throw WrongCall{"--out-units does not go with --units"};
        now->units = choice_of("--out-units", a.out_units);
        if (!session::apply_units(session, now->units))
            throw CannotBeDone{"--out-units: the substance has no molar mass"};
        return;
    }
    now->units.system = a.units == "specific" ? specific : a.units == "reduced" ? reduced : molar;
    if (now->units.system == specific) {
        if (!(now->substance.M > 0)) throw CannotBeDone{"Division by zero"};
        now->units.caloric = models::CaloricUnit::specific;
    }
    now->caloric_factor =
        models::caloric_factor(now->units.caloric, now->diagram_at.T, now->substance);
    session::settle_units(session);
}

/// T,p,V|L,h,s.
models::OwnState own_state(const std::string& typed) {
    const std::vector<std::string> parts = text::split(typed, ',');
    const auto at = [&](std::size_t i) {
        const auto value = numbers::number(parts[i]);
        if (!value) throw WrongCall{"--refstate own: not a number: " + parts[i]};
        return *value;
    };
    if (parts.size() != 5 || (parts[2] != "V" && parts[2] != "L"))
        throw WrongCall{"--refstate own needs T,p,V|L,h,s"};
    return {.T = at(0), .p = at(1), .vapour = parts[2] == "V", .h = at(3), .s = at(4)};
}

void choose_named_reference(models::ReferenceState& r, const Arguments& a) {
    constexpr std::string_view kOwn = "own:";
    if (a.refstate.empty()) return;
    for (const bool given : {a.refmode.has_value(), a.href.has_value(), a.sref.has_value(),
                             a.T0.has_value(), a.p0.has_value()})
        if (given)
            throw WrongCall{"--refstate does not go with --refmode, --href, --sref, --T0, --p0"};
    if (a.refstate == "conventional") {
        r.mode = 2;
    } else if (a.refstate == "formation") {
        r.mode = 10;
    } else if (a.refstate.starts_with(kOwn)) {
        r.named = models::NamedState::own;
        r.own = own_state(a.refstate.substr(kOwn.size()));
    } else {
        const auto named = models::named_state_of(a.refstate);
        if (!named || *named == models::NamedState::own)
            throw WrongCall{"--refstate: not known: " + a.refstate};
        r.named = *named;
    }
}

void choose_reference(session::SessionState& state, const Arguments& a) {
    models::ReferenceState& r = state.reference;
    if (a.refmode) r.mode = static_cast<std::int16_t>(*a.refmode);
    if (a.href) r.href = *a.href;
    if (a.sref) r.sref = *a.sref;
    if (a.T0) r.T0 = static_cast<float>(*a.T0);
    if (a.p0) r.p0 = static_cast<float>(*a.p0);
    if (a.Tenv) r.Tenv = *a.Tenv == 0 ? 1e-6 : *a.Tenv;
    if (a.penv) r.penv = *a.penv;
    choose_named_reference(r, a);
    if (a.benson.empty()) return;
    const std::vector<std::string> parts = text::split(a.benson, ',');
    if (parts.size() != 4) throw WrongCall{"--benson needs T,p,rhoL,rhoV"};
    std::array<float, 4> values{};
    for (std::size_t i = 0; i < 4; ++i) {
        const auto value = numbers::number(parts[i]);
        if (!value) throw WrongCall{"--benson: not a number: " + parts[i]};
        if (!numbers::fits_single(*value)) throw WrongCall{"--benson: out of range: " + parts[i]};
        values[i] = static_cast<float>(*value);
    }
    state.calculation.method.reference = {values[0], values[1], values[2], values[3]};
}

/// True when a call that asks for the same is bound to get the same: nothing was told, and no
/// program was asked for parameters.
bool is_repeatable(const Call& call) {
    const models::Eos eos = call.session->models.eos;
    const bool fitted = eos == models::Eos::jiTorvik1 || eos == models::Eos::jiTorvik2;
    return call.messages.empty() && (!fitted || call.session->ji_torvik_given);
}

}  // namespace

datafiles::Database database_of(Call& call, const Arguments& a) {
    const std::string path = database_path(call, a);
    Result<datafiles::Database> database = call.kept.database(fs::absolute(path));
    if (!database)
        throw CannotBeDone{"Database " + paths::file_title(path) + " not found or empty resp."};
    return *std::move(database);
}

void set_up(Call& call, const Arguments& a) {
    const std::string key = common_key(a);
    const Kept::Sources sources{stamp_of(fs::absolute(database_path(call, a))),
                                stamp_of(synonym_path(call))};
    session::Session& session = call.session;
    if (const session::SessionState* known = call.kept.state(key, sources)) {
        *session.change() = *known;
        return;
    }
    open_database(call, a);
    read_substance(call, a);
    apply_overrides(*session.change(), overrides(a));
    choose_models(session, a);
    choose_units(session, a);
    choose_reference(*session.change(), a);
    const auto reference = models::resolved_reference(session.fluid(), session->reference);
    if (!reference) throw CannotBeDone{reference.reason()};
    if (is_repeatable(call)) call.kept.keep(key, sources, session.state());
}

}  // namespace quor::quorcalc
