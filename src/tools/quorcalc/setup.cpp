#include <charconv>
#include <cmath>

#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/record_fields.h"
#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/model_choice.h"
#include "models/model_codes.h"
#include "models/model_tables.h"
#include "models/parameter_program.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"
#include "session/substance_session.h"
#include "tools/quorcalc/commands.h"

namespace quor::quorcalc {

using legacy::the_substance;

namespace {

/// A whole text as a number; nothing when it is none.
std::optional<double> number(const std::string& s) {
    double value = 0;
    const auto result = std::from_chars(s.data(), s.data() + s.size(), value);
    if (result.ec != std::errc() || result.ptr != s.data() + s.size()) return std::nullopt;
    return value;
}

void open_database(const Arguments& a) {
    const std::string path =
        a.db.empty() ? legacy::the_places.find_file("STUDENT.Q05").string() : a.db;
    if (!session::open_database(std::filesystem::absolute(path).string()))
        throw CannotBeDone{"Database " + paths::file_title(path) + " not found or empty resp."};
    legacy::the_session.DatabaseFile = paths::file_title(path);
}

/// Position (from 1) of a substance: "#number", else a name, synonym or CASRN.
std::int16_t find_substance(const std::string& wanted) {
    const std::int16_t index = session::find_substance(wanted);
    if (index == 0) throw CannotBeDone{"Nothing found: " + wanted};
    return index;
}

void read_substance(const Arguments& a) {
    if (a.substance.empty()) throw WrongCall{"--substance is required"};
    legacy::the_session.CurrentSubstance = find_substance(a.substance);
    (void)session::read_substance(legacy::the_session.CurrentSubstance);
    legacy::the_session.SubstanceSet = true;
}

double* ji_torvik_field(const std::string& name) {
    models::JiTorvikParameters& jt = legacy::the_jiTorvik;
    if (name == "jtM") return &jt.jtM;
    if (name == "jtP") return &jt.jtP;
    if (name == "jtQ") return &jt.jtQ;
    if (name == "jtZc") return &jt.jtZc;
    if (name == "jtK") return &jt.jtK;
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

void store(const Override& o) {
    const Result<void> stored = datafiles::set_field(the_substance, o.field, o.value);
    if (!stored) throw WrongCall{stored.reason()};
}

void correlate() {
    models::CorrelateAugust();
    using enum models::VapourPressureEquation;
    for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
        models::CorrelateVapourPressure(equation, the_substance.Tcrit, the_substance.pcrit,
                                        static_cast<double>(the_substance.Tboil));
}

/// Values of the record that follow from others, where a field they come from was set.
void refresh_derived(const std::vector<Override>& all) {
    const auto was_set = [&](std::string_view name) {
        for (const Override& o : all)
            if (o.field.starts_with(name)) return true;
        return false;
    };
    if ((was_set("M") || was_set("rhocrit")) && !was_set("vcritExp"))
        the_substance.vcritExp = the_substance.rhocrit > 1e-6
                                     ? static_cast<double>(the_substance.M) / the_substance.rhocrit
                                     : 0.0;
    const auto ideal = [](const models::CpSet& s) {
        return std::fabs(static_cast<double>(s.TLo) * static_cast<double>(s.c[0]) * s.THi) > 1e-6;
    };
    const auto condensed = [](const models::CpSet& s) {
        return (std::fabs(s.c[0]) > 1e-6F || std::fabs(s.c[1]) > 1e-6F) && s.TLo > 0 && s.THi > 0;
    };
    if (was_set("cpPoly") && !was_set("hasCpPoly"))
        the_substance.hasCpPoly = ideal(the_substance.cpPoly);
    if (was_set("cpSinh") && !was_set("hasCpSinh"))
        the_substance.hasCpSinh = ideal(the_substance.cpSinh);
    if (was_set("cpL") && !was_set("hasCpL")) the_substance.hasCpL = condensed(the_substance.cpL);
    if (was_set("cpS") && !was_set("hasCpS")) the_substance.hasCpS = condensed(the_substance.cpS);
}

void apply_overrides(const std::vector<Override>& all) {
    bool jiTorvik = false;
    for (const Override& o : all) {
        if (double* field = ji_torvik_field(o.field)) {
            const auto value = number(o.value);
            if (!value) throw WrongCall{"not a number: " + o.field + "=" + o.value};
            *field = *value;
            jiTorvik = true;
        } else {
            store(o);
        }
    }
    models::give_ji_torvik_parameters(jiTorvik);
    refresh_derived(all);
    correlate();
    // A correlated set that is given itself stands as it is.
    for (const Override& o : all)
        if (is_correlated(o.field)) store(o);
}

std::int16_t code_between(int value, int low, int high, const char* option) {
    if (value < low || value > high) throw WrongCall{std::string(option) + " is out of range"};
    return static_cast<std::int16_t>(value);
}

void choose_models(const Arguments& a) {
    models::ModelSelection& m = legacy::the_models;
    // The record's own default, which follows overrides of the measured sets.
    using enum models::VapourPressureEquation;
    m.VPModel = the_substance.WAG.TLo > 0   ? wagner
                : the_substance.FRO.TLo > 0 ? frostKalkwarf
                : the_substance.ALP.TLo > 0 ? antoineLow
                : the_substance.AHP.TLo > 0 ? antoineHigh
                                            : none;
    // Brings every family to an entry that is offered.
    m = models::ModelChoice(the_substance, m).models();

    if (a.eos)
        m.EOSModel =
            models::eos_of_code(code_between(*a.eos, 0, 16, "--eos")).value_or(models::Eos::none);
    m.EOSOnlyV = models::is_v_only(m.EOSModel);
    if (a.vp.size() == 3) {
        m.VPModel = models::vp_of_code(a.vp);
        if (m.VPModel == none && a.vp != "000") throw WrongCall{"--vp: no such equation: " + a.vp};
    } else if (!a.vp.empty()) {
        throw WrongCall{"--vp: no such equation: " + a.vp};
    }
    if (a.hlv) m.HLVModel = *models::vaporisation_of_code(code_between(*a.hlv, 1, 7, "--hlv"));
    if (a.cp) m.CpModel = *models::cp_form_of_code(code_between(*a.cp, 0, 2, "--cp"));
    if (a.watson) m.WatsonN = static_cast<float>(*a.watson);
    if (!a.priority.empty()) m.PriorityCEOS = a.priority == "ceos";
    if (m.EOSOnlyV) m.PriorityCEOS = false;
    if (models::calc_eos_parameters(m.EOSModel) > 0)
        throw CannotBeDone{"Error during EOS-parameter calculation"};
}

void choose_units(const Arguments& a) {
    legacy::Session& s = legacy::the_session;
    if (a.units == "specific") s.CaloricUnit = 3;
    s.UnitMode = a.units == "specific" ? 1 : a.units == "reduced" ? 2 : 0;
    if (s.CaloricUnit == 3 && !(the_substance.M > 0)) throw CannotBeDone{"Division by zero"};
    s.CaloricFactor = session::caloric_factor_of(s.CaloricUnit, s.DiagramT);
    session::refresh_units();
}

void choose_reference(const Arguments& a) {
    models::ReferenceState& r = legacy::the_reference;
    if (a.refmode) r.RefMode = static_cast<std::int16_t>(*a.refmode);
    if (a.href) r.href = *a.href;
    if (a.sref) r.sref = *a.sref;
    if (a.T0) r.T0 = static_cast<float>(*a.T0);
    if (a.p0) r.p0 = static_cast<float>(*a.p0);
    if (a.Tenv) r.Tenv = *a.Tenv == 0 ? 1e-6 : *a.Tenv;
    if (a.penv) r.penv = *a.penv;
    if (a.benson.empty()) return;
    const std::vector<std::string> parts = text::split(a.benson, ',');
    if (parts.size() != 4) throw WrongCall{"--benson needs T,p,rhoL,rhoV"};
    std::array<float, 4> values{};
    for (std::size_t i = 0; i < 4; ++i) {
        const auto value = number(parts[i]);
        if (!value) throw WrongCall{"--benson: not a number: " + parts[i]};
        values[i] = static_cast<float>(*value);
    }
    legacy::the_session.calculation.method.reference = {values[0], values[1], values[2], values[3]};
}

}  // namespace

void set_up(const Arguments& a) {
    open_database(a);
    read_substance(a);
    apply_overrides(overrides(a));
    choose_models(a);
    choose_units(a);
    choose_reference(a);
}

}  // namespace quor::quorcalc
